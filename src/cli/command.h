#pragma once

#include <span>
#include <string>
#include <vector>

namespace tvx {

// One call of the tool, after its global options.
struct Call {
  std::string home;                    // folder of the drives; empty for the default
  std::string command;                 // the name found in the table
  std::vector<std::string> arguments;  // what follows the name
};

// A command: its name as typed, of one or two words, and what runs it. `run` returns the exit
// status, or throws WrongCall or Failure.
struct ToolCommand {
  const char* name;
  const char* summary;
  int (*run)(const Call& call);
};

// All commands, in the order of the help text. A new command is a new row and a new file.
std::span<const ToolCommand> ToolCommands();

}  // namespace tvx
