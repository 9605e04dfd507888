// Runs word-address programs.
#pragma once

#include "control/program_run.h"

namespace tvx {

// Runs the program from its beginning to its end, or until the limit of the run has ended it.
// `isIntegerData`: lengths without a decimal point are thousandths.
void RunWordProgram(ProgramRun* run, bool isIntegerData);

}  // namespace tvx
