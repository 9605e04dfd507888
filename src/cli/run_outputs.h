// The files that tvx-cli run writes from its results.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "cli/command_line.h"
#include "cli/csv_option.h"
#include "cli/host.h"
#include "evaluate/program_result.h"

namespace tvx {

// As named on the command line.
struct RunOutputs {
  std::optional<std::string> report, list, listCopy, sheet, page, workbook;
  CsvOption csv;

  void AddTo(CommandLine* line);
};

// Writes each file that is named, whole or not at all, the spreadsheet last because it rounds the
// figures of the results. Throws Failure at the first file that cannot be written. Returns false if
// files of the list could not be copied; everything else was done.
bool WriteOutputs(const RunOutputs& outputs, const Host& host,
                  std::span<const ProgramResult> results);

}  // namespace tvx
