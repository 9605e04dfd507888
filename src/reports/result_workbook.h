// The results as a workbook file, written without an office program.
#pragma once

#include <string>

#include "platform/files.h"
#include "stats/result_table.h"

namespace tvx {

// Creates or replaces the workbook: the columns of the spreadsheet export, a column with the
// pictures that the results keep, and a row of totals. The figures of the results stay as they are.
// Returns false if that fails; an existing file is then unchanged.
bool WriteResultWorkbook(const std::string& path, const ResultTable& results, Files* files);

}  // namespace tvx
