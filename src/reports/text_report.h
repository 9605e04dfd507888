// The text report (*.tvx): a block of labelled lines for each result.
#pragma once

#include <string>

#include "platform/files.h"
#include "stats/result_table.h"

namespace tvx {

// The text of the report, UTF-8, lines ended by CR LF; empty for an empty table.
std::string TextReport(const ResultTable& results);

// Creates or replaces the report file. Returns false if that fails; an existing file is then
// unchanged.
bool WriteTextReportFile(const std::string& path, const ResultTable& results, Files* files);

}  // namespace tvx
