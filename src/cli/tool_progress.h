// Long work on the terminal, and its end by SIGINT.
#pragma once

#include <string>

#include "platform/progress.h"

namespace tvx {

// The command ends early: exit status 1.
struct Interrupted {};

// Shows the work on standard error (ShowProgress). From its first use on, SIGINT stops the work
// under way at its next step; without work, or a second time, it ends the process with exit status
// 1. Temporary files are removed in either case.
Progress* ToolProgress();

// Work of a command on the file of an argument: shown at once, and can be stopped.
class ToolWork {
 public:
  ToolWork(Work work, const std::string& argument);

 private:
  WorkScope scope_;
};

// Call it after work that can be stopped. Throws Interrupted if it was.
void EndIfInterrupted();

}  // namespace tvx
