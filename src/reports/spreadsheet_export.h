// The results laid into the first sheet of a workbook: a row of titles and a row for each file.
#pragma once

#include <string>

#include "platform/user_interface.h"
#include "reports/spreadsheet.h"
#include "stats/result_table.h"

namespace tvx {

// Opens the workbook and fills its first sheet, cell by cell. An entry without the feed adjustment
// leaves the cells of its conditions as the workbook has them.
//
// The figures of each entry are cut down in the table itself before its row is written, and stay
// so: lengths to whole millimetres, times to thousandths of a minute. Returns false at the first
// step that fails; the entries up to there are then cut.
bool FillWorkbook(const std::string& path, ResultTable* results, SpreadsheetApplication* program);

// Asks for a workbook, starts a spreadsheet program, fills the workbook and leaves it open and
// unsaved in the hands of the user. A program that does not start, or dies on the way, brings up
// the one message of this operation.
void ExportSpreadsheet(ResultTable* results, Spreadsheets* spreadsheets, UserInterface* ui);

// The form for a file, with a program started in that form: creates the workbook if it does not
// exist, fills and saves it. Returns false if that fails; an older file is then as it was.
bool WriteSpreadsheetFile(const std::string& path, ResultTable* results,
                          SpreadsheetApplication* program);

// What the user is told when there is no spreadsheet program.
inline constexpr char kNoSpreadsheetProgram[] = "Couldn't start Excel.";

}  // namespace tvx
