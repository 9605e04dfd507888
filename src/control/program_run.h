// What the readers of both formats work with.
#pragma once

#include "control/control_reading.h"
#include "control/path_writer.h"
#include "control/program_text.h"
#include "control/run_limit.h"

namespace tvx {

// The run of one program. The arguments have to outlive it.
struct ProgramRun {
  ProgramRun(InputFile* file, const ReadingOptions& options, MoveReceiver* receiver,
             ReadingRemarks* remarks)
      : text(file, options.progress),
        path(receiver, remarks),
        limit(&text, options.stepsBeyondLines) {}
  ProgramRun(const ProgramRun&) = delete;
  ProgramRun& operator=(const ProgramRun&) = delete;

  ProgramText text;
  PathWriter path;
  RunLimit limit;
};

}  // namespace tvx
