// The text report (*.tvx): a block of labelled lines for each result.
#pragma once

#include <span>
#include <string>

#include "evaluate/program_result.h"
#include "platform/files/files.h"

namespace tvx {

// The text of the report, UTF-8, lines ended by CR LF; empty for an empty table.
std::string TextReport(std::span<const ProgramResult> results);

// Creates or replaces the report file. An existing file is unchanged if that fails.
Status WriteTextReportFile(const std::string& path, std::span<const ProgramResult> results,
                           Files* files);

}  // namespace tvx
