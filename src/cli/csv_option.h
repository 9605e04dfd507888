// The options --csv and --bom of the commands that print times.
#pragma once

#include <optional>
#include <string>

#include "cli/command_line.h"
#include "cli/host.h"

namespace tvx {

inline constexpr char kMarkOption[] = "--bom";
inline constexpr Message kMarkHelp{
    "맨 앞에 바이트 순서 표시(BOM)를 쓰기, 이것이 필요한 스프레드시트용",
    "begin the values with a byte order mark, for spreadsheet programs that need it"};
inline constexpr Message kMarkNeedsCsv{"--bom은 --csv와 함께 써야 합니다", "--bom needs --csv"};
inline constexpr Message kCsvHelp{"OUT.csv: 값을 쉼표로 구분하여 쓰기",
                                  "OUT.csv: write the figures as comma-separated values"};

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
