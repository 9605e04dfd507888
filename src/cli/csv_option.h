// The options --csv and --bom of the commands that print times.
#pragma once

#include <optional>
#include <string>

#include "cli/command_line.h"
#include "cli/host.h"

namespace tvx {

inline constexpr char kMarkOption[] = "--bom";
inline constexpr char kMarkHelp[] =
    "begin the values with a byte order mark, for spreadsheet programs that need it";

class CsvOption {
 public:
  void AddTo(CommandLine* line);
  // Call it after the parse: throws WrongCall for --bom without --csv.
  void Check() const;
  // Creates or replaces the file with the rows, UTF-8; nothing without --csv. Throws Failure, with
  // an older file unchanged, if it cannot be written, or if the rows are only a part: a program
  // could not be read.
  void Write(const Host& host, const std::string& rows, bool isIncomplete) const;

 private:
  std::optional<std::string> path_;
  bool hasMark_ = false;
};

}  // namespace tvx
