// The program check in the tool.
#pragma once

#include <memory>
#include <string>

#include "cli/program_files.h"
#include "evaluate/program_checks.h"
#include "insight/program_check.h"
#include "session/tvx_view.h"

namespace tvx {

// Checks a program with the settings of the view. Throws Failure if it cannot be read. *start is
// what the check starts from, and becomes what the next program starts from.
ProgramCheck CheckProgramFile(const ProgramFile& file, const CheckOptions& options,
                              const CTVXView& view, LoadStart* start);

// Call it before the load of a program: prints in one line on standard error how many of its lines
// the times leave out or change; nothing if there is none or with --quiet. Returns the check, whose
// remarks are only counted; null for a missing file, and where the check is neither wanted nor
// noted. Throws Failure if the program cannot be read.
std::shared_ptr<const FileCheck> NoteRemarks(const ProgramFile& file, const CTVXView& view,
                                             bool wantsCheck);

}  // namespace tvx
