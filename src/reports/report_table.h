// The table of the reports. Each is declared beside the function that writes it.
#pragma once

#include <span>
#include <string_view>

#include "reports/report.h"

namespace tvx {

// In the order of the tool's help text and of the window's buttons. All exist as long as the
// program.
std::span<const Report* const> Reports();
// By its option, which has to be one of the table.
const Report& ReportOf(std::string_view option);

// What the reports of the window need. Checks are done afterwards there.
Wanted WantedInWindow();

}  // namespace tvx
