// The results as a workbook file, written without an office program.
#pragma once

#include <span>
#include <string>

#include "evaluate/program_result.h"
#include "platform/files/files.h"

namespace tvx {

// Creates or replaces the workbook: the columns of the spreadsheet export, a column with the
// pictures that the results keep, and a row of totals. The figures of the results stay as they are.
// An existing file is unchanged if that fails.
Status WriteResultWorkbook(const std::string& path, std::span<const ProgramResult> results,
                           Files* files);

}  // namespace tvx
