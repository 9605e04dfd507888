// The text report (*.tvx): a block of labelled lines for each result.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/user_interface.h"
#include "stats/result_table.h"

namespace tvx {

// The text of the report, UTF-8, lines ended by CR LF; empty for an empty table.
std::string TextReport(const ResultTable& results);

// Creates or replaces the report file. Returns false, with an older file as it was, if that fails.
bool WriteTextReportFile(const std::string& path, const ResultTable& results, Files* files);

// Asks for a name and writes the report under it into the current directory, where the chooser has
// left it. A cancel or a file that cannot be written ends it silently.
void WriteTextReport(const ResultTable& results, Files* files, UserInterface* ui);

}  // namespace tvx
