// Options and arguments of a command.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/message.h"
#include "cli/command.h"

namespace tvx {

// The options and arguments of one command: declare them, then Parse(). The targets have to outlive
// the parse and keep their values where an option is not given.
class CommandLine {
 public:
  // `description` heads the help text of the command.
  CommandLine(const Call& call, const Message& description);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  // An option is named with its dashes ("--json", "-o").
  void AddFlag(const std::string& name, bool* given, const Message& description);
  void AddOption(const std::string& name, std::optional<std::string>* value,
                 const Message& description);
  void AddOption(const std::string& name, std::optional<int>* value, const Message& description);
  void AddOption(const std::string& name, std::optional<float>* value, const Message& description);
  // One value each time, repeated at will.
  void AddRepeated(const std::string& name, std::vector<std::string>* values,
                   const Message& description);
  void RequireOption(const std::string& name);

  // Arguments by position, in the order of these calls; each is required.
  void AddArgument(const std::string& name, std::string* value, const Message& description);
  // The rest of the arguments, at least one.
  void AddArguments(const std::string& name, std::vector<std::string>* values,
                    const Message& description);

  // Reads the arguments of the call. Throws WrongCall with one line for the user, which names the
  // nearest option for a misspelt one, and HelpWanted after --help.
  void Parse();

 private:
  struct Parser;  // keeps the parser library out of every command

  const Call& call_;
  std::unique_ptr<Parser> parser_;
};

inline constexpr Message kUnknownOption{"없는 옵션입니다: '{name}'", "unknown option '{name}'"};
inline constexpr char kVersionText[] = "tvx-cli " TVX_VERSION "\n";

// Thrown for --help and --version: the text to print instead of running the command.
struct HelpWanted {
  std::string text;
};

}  // namespace tvx
