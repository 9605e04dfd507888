// The reports write themselves; this file has their order and their error texts.
#include "cli/run_outputs.h"

#include <functional>

#include "base/format.h"
#include "cli/command.h"
#include "cli/output.h"
#include "platform/files/drives.h"
#include "reports/cut_time_list.h"
#include "reports/job_list_file.h"
#include "reports/job_sheet.h"
#include "reports/result_csv.h"
#include "reports/result_workbook.h"
#include "reports/spreadsheet_export.h"
#include "reports/text_report.h"

namespace tvx {

namespace {

// The full drive path of a file to write.
std::string OutputPath(const Host& host, const std::string& argument) {
  return NormalDrivePath(host.DrivePath(argument));
}

void WriteOutput(const Host& host, const std::optional<std::string>& argument,
                 const std::function<Status(const std::string& path)>& write) {
  if (!argument) return;
  const Status written = write(OutputPath(host, *argument));
  ThrowIfUnwritten(*argument, written);
}

// Returns false if a file could not be copied.
bool ReportFailedCopies(const std::vector<FailedCopy>& failed) {
  for (const FailedCopy& copy : failed) {
    PrintRemark(copy.source + ": cannot be copied to " + copy.destination + ": " +
                copy.status.Text());
  }
  return failed.empty();
}

Status WriteListCopy(const std::string& argument, const std::string& path,
                     std::span<const ProgramResult> results, Files* files,
                     std::vector<FailedCopy>* failed) {
  if (const auto same = FindSameName(path, results)) {
    throw Failure{argument, same->first + " and " + same->second + " have the same name"};
  }
  const size_t replaced = ProgramsToReplace(path, results, files).size();
  const Status written = WriteJobListFileCopy(path, results, files, failed);
  if (written.ok() && replaced > 0) {
    PrintRemark(argument + Format(": replaced %zu program%s that differed beside it", replaced,
                                  replaced == 1 ? "" : "s"));
  }
  return written;
}

void WriteSheet(const std::string& argument, const Host& host,
                std::span<const ProgramResult> results) {
  if (HasIncomplete(results)) ThrowIfUnwritten(argument, StatusKind::kPartSource);
  const auto program = host.app.spreadsheets->Start(SpreadsheetForm::kFile);
  if (program == nullptr) throw Failure{argument, kNoSpreadsheetProgram};
  if (!WriteSpreadsheetFile(OutputPath(host, argument), results, program.get())) {
    const std::string problem = program->Problem();
    throw Failure{argument, problem.empty() ? "cannot be filled and saved" : problem};
  }
}

}  // namespace

void RunOutputs::AddTo(CommandLine* line) {
  line->AddOption("--report", &report, "OUT.tvx: write the text report");
  line->AddOption("--list", &list, "OUT.mcf: write the job list file");
  line->AddOption("--list-copy", &listCopy,
                  "OUT.mcf: write the job list file and copy the files of the list beside it");
  line->AddOption("--sheet", &sheet, "FILE: fill the first sheet of a workbook and save it");
  line->AddOption("--sheet-html", &page, "OUT.html: write the job sheet, one page to print");
  line->AddOption("--xlsx", &workbook,
                  "OUT.xlsx: write a workbook with pictures, without an office program");
  csv.AddTo(line);
}

bool WriteOutputs(const RunOutputs& outputs, const Host& host,
                  std::span<const ProgramResult> results) {
  Files* const files = host.files.get();
  std::vector<FailedCopy> failed;
  WriteOutput(host, outputs.report,
              [&](const std::string& path) { return WriteTextReportFile(path, results, files); });
  WriteOutput(host, outputs.list,
              [&](const std::string& path) { return WriteJobListFile(path, results, files); });
  WriteOutput(host, outputs.listCopy, [&](const std::string& path) {
    return WriteListCopy(*outputs.listCopy, path, results, files, &failed);
  });
  WriteOutput(host, outputs.page, [&](const std::string& path) {
    return WriteJobSheetFile(path, results, host.app.LabelLanguage, files);
  });
  WriteOutput(host, outputs.workbook,
              [&](const std::string& path) { return WriteResultWorkbook(path, results, files); });
  outputs.csv.Write(host, ResultsCsv(results), HasIncomplete(results));
  const bool copied = ReportFailedCopies(failed);
  if (outputs.sheet) {
    ShowProgress(*outputs.sheet + ": filling");
    WriteSheet(*outputs.sheet, host, results);
  }
  return copied;
}

}  // namespace tvx
