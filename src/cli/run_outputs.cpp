// The reports write themselves; this file has their order and their error texts.
#include "cli/run_outputs.h"

#include <algorithm>

#include "base/format.h"
#include "cli/command.h"
#include "cli/csv_option.h"
#include "cli/output.h"
#include "platform/files/drives.h"
#include "reports/job_list_file.h"
#include "reports/spreadsheet_export.h"

namespace tvx {

namespace {

// The full drive path of a file to write.
std::string OutputPath(const Host& host, const std::string& argument) {
  return NormalDrivePath(host.DrivePath(argument));
}

// Returns false if a file could not be copied.
bool ReportFailedCopies(const std::vector<FailedCopy>& failed) {
  for (const FailedCopy& copy : failed) {
    PrintRemark(copy.source + ": cannot be copied to " + copy.destination + ": " +
                copy.status.Text());
  }
  return failed.empty();
}

void WriteFile(const Report& report, const std::string& argument, const Host& host, bool hasMark,
               std::span<const ProgramResult> results) {
  const ReportTarget target{.path = OutputPath(host, argument),
                            .language = host.app.LabelLanguage,
                            .hasByteOrderMark = hasMark,
                            .files = host.files.get()};
  ThrowIfUnwritten(argument, report.write(results, target));
}

// Throws Failure if the list cannot be written. Returns the files that could not be copied.
std::vector<FailedCopy> WriteListCopy(const std::string& argument, const Host& host,
                                      std::span<const ProgramResult> results) {
  const std::string path = OutputPath(host, argument);
  Files* const files = host.files.get();
  if (const auto same = FindSameName(path, results)) {
    throw Failure{argument, same->first + " and " + same->second + " have the same name"};
  }
  const size_t replaced = ProgramsToReplace(path, results, files).size();
  std::vector<FailedCopy> failed;
  ThrowIfUnwritten(argument, WriteJobListFileCopy(path, results, files, &failed));
  if (replaced > 0) {
    PrintRemark(argument + Format(": replaced %zu program%s that differed beside it", replaced,
                                  replaced == 1 ? "" : "s"));
  }
  return failed;
}

void FillSheet(const std::string& argument, const Host& host,
               std::span<const ProgramResult> results) {
  if (HasIncomplete(results)) ThrowIfUnwritten(argument, StatusKind::kPartSource);
  ShowProgress(argument + ": filling");
  const auto program = host.app.spreadsheets->Start(SpreadsheetForm::kFile);
  if (program == nullptr) throw Failure{argument, kNoSpreadsheetProgram};
  if (!WriteSpreadsheetFile(OutputPath(host, argument), results, program.get())) {
    const std::string problem = program->Problem();
    throw Failure{argument, problem.empty() ? "cannot be filled and saved" : problem};
  }
}

}  // namespace

void RunOutputs::AddTo(CommandLine* line) {
  for (size_t i = 0; i < arguments_.size(); ++i) {
    line->AddOption(Reports()[i]->option, &arguments_[i], Reports()[i]->help);
  }
  line->AddFlag(kMarkOption, &hasMark_, kMarkHelp);
}

void RunOutputs::Check() const {
  const auto csv = std::ranges::find(Reports(), &ReportOf("--csv")) - Reports().begin();
  if (hasMark_ && !arguments_[static_cast<size_t>(csv)]) throw WrongCall{"--bom needs --csv"};
}

Wanted RunOutputs::Needs() const {
  Wanted wanted;
  for (size_t i = 0; i < arguments_.size(); ++i) {
    if (arguments_[i]) wanted = Union(wanted, Reports()[i]->needs);
  }
  return wanted;
}

bool RunOutputs::Write(const Host& host, std::span<const ProgramResult> results) const {
  std::vector<FailedCopy> failed;
  std::optional<std::string> spreadsheet;
  for (size_t i = 0; i < arguments_.size(); ++i) {
    if (!arguments_[i]) continue;
    const std::string& argument = *arguments_[i];
    switch (Reports()[i]->steps) {
      case ReportSteps::kWriteFile:
        WriteFile(*Reports()[i], argument, host, hasMark_, results);
        break;
      case ReportSteps::kCopyFiles:
        failed = WriteListCopy(argument, host, results);
        break;
      case ReportSteps::kFillSpreadsheet:
        spreadsheet = argument;
        break;
    }
  }
  const bool copied = ReportFailedCopies(failed);
  if (spreadsheet) FillSheet(*spreadsheet, host, results);
  return copied;
}

}  // namespace tvx
