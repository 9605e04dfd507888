// The job sheet: one page in HTML that goes to the machine and to the customer. It needs no other
// file, no script and no network, and prints on A4.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/message.h"
#include "evaluate/program_result.h"
#include "platform/files/files.h"

namespace tvx {

// Creates or replaces the page, UTF-8, in a language: totals, a table of all
// programs, then for each its picture, times, remarks and conditions, as far as its details are
// kept. An existing file is unchanged if that fails.
Status WriteJobSheetFile(const std::string& path, std::span<const ProgramResult> results,
                         Language language, Files* files);

// True for the first bytes of such a page, or of another in HTML.
bool IsJobSheet(std::string_view start);

}  // namespace tvx
