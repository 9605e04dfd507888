// A new report is a line in each of the two lists.
#include "reports/report_table.h"

#include <algorithm>

namespace tvx {

extern const Report kTextReport, kJobListReport, kJobListCopyReport, kSpreadsheetReport,
    kJobSheetReport, kWorkbookReport, kCsvReport;

namespace {

constexpr const Report* kReports[] = {
    &kTextReport,     &kJobListReport,  &kJobListCopyReport, &kSpreadsheetReport,
    &kJobSheetReport, &kWorkbookReport, &kCsvReport,
};

}  // namespace

std::span<const Report* const> Reports() {
  return kReports;
}

const Report& ReportOf(std::string_view option) {
  return **std::ranges::find_if(
      kReports, [option](const Report* report) { return report->option == option; });
}

Wanted WantedInWindow() {
  Wanted wanted;
  for (const Report* const report : kReports) {
    if (report->button != nullptr) wanted = Union(wanted, report->needs);
  }
  wanted.check = false;
  return wanted;
}

}  // namespace tvx
