#include "reports/report_table.h"

#include <algorithm>

#include "base/csv.h"
#include "jobs/job_list.h"
#include "reports/job_list_file.h"
#include "reports/job_sheet.h"
#include "reports/result_csv.h"
#include "reports/result_workbook.h"
#include "reports/text_report.h"

namespace tvx {

namespace {

using Results = std::span<const ProgramResult>;

Status WriteCsv(Results results, const ReportTarget& target) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, target.path};
  const std::string mark(target.hasByteOrderMark ? kUtf8Mark : "");
  return WriteWholeFile(target.files, target.path, mark + ResultsCsv(results));
}

const Report kReports[] = {
    {.option = "--report",
     .help = "OUT.tvx: write the text report",
     .button = "화일 출력",
     .ending = "tvx",
     .fileKind = "TVX file",
     .usesCurrentDirectory = true,
     .write =
         [](Results results, const ReportTarget& to) {
           return WriteTextReportFile(to.path, results, to.files);
         }},
    {.option = "--list",
     .help = "OUT.mcf: write the job list file",
     .button = "AFA 출력",
     .ending = "mcf",
     .fileKind = "TVX file",
     .chooserTitle = "TVX  화일명을 입력 하시요!!",
     .isOfKind = IsJobList,
     .write = [](Results results,
                 const ReportTarget& to) { return WriteJobListFile(to.path, results, to.files); }},
    {.option = "--list-copy",
     .help = "OUT.mcf: write the job list file and copy the files of the list beside it",
     .button = "AFA 출력, Copy",
     .ending = "mcf",
     .fileKind = "TVX file",
     .chooserTitle = "TVX  화일명을 입력 하시요!!",
     .isOfKind = IsJobList,
     .steps = ReportSteps::kCopyFiles},
    {.option = "--sheet",
     .help = "FILE: fill the first sheet of a workbook and save it",
     .button = "스프레드시트 출력",
     .ending = "xls",
     .fileKind = "Excel file",
     .steps = ReportSteps::kFillSpreadsheet},
    {.option = "--sheet-html",
     .help = "OUT.html: write the job sheet, one page to print",
     .button = "HTML",
     .ending = "html",
     .fileKind = "HTML file",
     .isOfKind = IsJobSheet,
     .isOfferedToOpen = true,
     .needs =
         {.programmed = true, .causes = true, .machine = true, .sheetPicture = true, .check = true},
     .write =
         [](Results results, const ReportTarget& to) {
           return WriteJobSheetFile(to.path, results, to.language, to.files);
         }},
    {.option = "--xlsx",
     .help = "OUT.xlsx: write a workbook with pictures, without an office program",
     .needs = {.workbookPicture = true},
     .write =
         [](Results results, const ReportTarget& to) {
           return WriteResultWorkbook(to.path, results, to.files);
         }},
    {.option = "--csv",
     .help = "OUT.csv: write the figures as comma-separated values",
     .write = WriteCsv},
};

}  // namespace

std::span<const Report> Reports() {
  return kReports;
}

const Report& ReportOf(std::string_view option) {
  return *std::ranges::find(kReports, option, &Report::option);
}

Wanted WantedInWindow() {
  Wanted wanted;
  for (const Report& report : kReports) {
    if (report.button != nullptr) wanted = Union(wanted, report.needs);
  }
  wanted.check = false;
  return wanted;
}

}  // namespace tvx
