#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "reports/spreadsheet.h"

namespace tvx {

// A spreadsheet program in memory, with one workbook that outlives it, and faults on demand.
class ScriptedSpreadsheets : public Spreadsheets {
 public:
  // No program can be started.
  bool refusesStart = false;
  // The count-th step from now on (1: the next), and every later one, fails, as if the program had
  // died. 0: no fault.
  int refusedStep = 0;

  // What happened, a line each: "start" ("start for a file"), "open PATH", "sheet 1", "A1:A1",
  // "value TEXT" (numbers as they read back), "visible", "control", "save", "end".
  std::vector<std::string> log;
  // The cells of the first sheet. A test may put old content there.
  std::map<std::string, CellValue> cells;

  std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm form) override;

 private:
  class Program;
};

}  // namespace tvx
