// Writes the results into the first sheet of a workbook: a row of titles, then a row for each file.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "evaluate/program_result.h"
#include "platform/progress.h"
#include "reports/spreadsheet.h"

namespace tvx {

// Starts a spreadsheet program, fills the workbook at a full drive path and leaves it open and
// unsaved to the user. Returns false if the program does not start or a step fails. *rows becomes
// the number of results whose row was begun.
//
// The figures in the cells are those that CutDownFigures makes. For a result without the feed
// adjustment the cells of its conditions keep their content.
bool ExportSpreadsheet(const std::string& path, std::span<const ProgramResult> results,
                       Spreadsheets* spreadsheets, size_t* rows, Progress* progress = NoProgress());

// Fills and saves a workbook in a program that was started in the file form; creates the workbook
// if it does not exist. Returns false if that fails or is stopped; an existing file is then
// unchanged.
bool WriteSpreadsheetFile(const std::string& path, std::span<const ProgramResult> results,
                          SpreadsheetApplication* program, Progress* progress = NoProgress());

// Truncates the figures as the cells have them: lengths to whole millimetres, times to thousandths
// of a minute. Lists and reports written later then agree with the workbook.
void CutDownFigures(CutTimeEntry* entry);

struct SpreadsheetColumn {
  const char* title;
  bool isPath;  // a wide column
};

// The columns, starting with A.
std::vector<SpreadsheetColumn> SpreadsheetColumns();

// The values of a result in these columns, as they are; nothing for a cell that is not written.
// `number` counts the results from 1.
std::vector<std::optional<CellValue>> SpreadsheetCells(const CutTimeEntry& entry, size_t number);

// A length in metres, as the cells have it.
float SpreadsheetMetres(float millimetres);

// The message to show when there is no spreadsheet program.
inline constexpr char kNoSpreadsheetProgram[] = "Couldn't start Excel.";

}  // namespace tvx
