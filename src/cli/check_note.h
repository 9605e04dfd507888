// The program check in the tool.
#pragma once

#include <string>

#include "cli/program_files.h"
#include "insight/machine_time.h"
#include "insight/program_check.h"
#include "shell/tvx_view.h"

namespace tvx {

// Checks a program with the settings of the view. Throws Failure if it cannot be read. *start is
// what the check starts from, and becomes what the next program starts from.
ProgramCheck CheckProgramFile(const ProgramFile& file, const CheckOptions& options,
                              const CTVXView& view, LoadStart* start);

// Call it before the load of a program: prints in one line on standard error how many of its lines
// the times leave out or change; nothing if there is none, if there is no such file or with
// --quiet. Returns the pauses of the program, which take a check only if they are wanted or noted.
// Throws Failure if the program cannot be read.
ProgramPauses NoteRemarks(const ProgramFile& file, const CTVXView& view, bool wantsPauses);

}  // namespace tvx
