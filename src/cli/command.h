// A call of the tool, its commands, and the two ways in which a command ends early.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/message.h"
#include "base/status.h"

namespace tvx {

// One call of the tool, after its global options.
struct Call {
  std::string home;                    // folder of the drives; empty for the default
  std::string command;                 // its name in the table
  std::vector<std::string> arguments;  // the words after the name
};

// A command. Its name has one or two words. `run` returns the exit status, or throws WrongCall or
// Failure, which main() turns into one line on standard error and the exit status.
struct ToolCommand {
  const char* name;
  Message summary;
  int (*run)(const Call& call);
};

// All commands, in the order of the help text. A new command is a new row and a new file: man page
// and completion are made from its help text, see scripts/tool-pages.
std::span<const ToolCommand> ToolCommands();

// The call itself is wrong: exit status 2.
struct WrongCall {
  std::string message;
};

// An operation failed: exit status 1. `file` as the user named it.
struct Failure {
  std::string file;
  std::string reason;
  Status status = {};  // of the file, if that could not be read or written
};

}  // namespace tvx
