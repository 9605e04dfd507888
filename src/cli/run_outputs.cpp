// The reports write themselves; this file has their order and their error texts.
#include "cli/run_outputs.h"

#include <algorithm>

#include "base/format.h"
#include "cli/command.h"
#include "cli/csv_option.h"
#include "cli/output.h"
#include "cli/tool_text.h"
#include "platform/files/drives.h"
#include "reports/job_list_file.h"
#include "reports/spreadsheet_export.h"

namespace tvx {

namespace {

constexpr Message kNotCopied{"{file}: {destination}에 복사할 수 없습니다: {reason}",
                             "{file}: cannot be copied to {destination}: {reason}"};
constexpr Message kSameName{"이름이 같은 화일이 두 폴더에 있습니다: {first}, {second}",
                            "{first} and {second} have the same name"};
constexpr Message kReplacedOne{"{file}: 옆에 있던 내용이 다른 프로그램 {count}개를 바꾸었습니다",
                               "{file}: replaced {count} program that differed beside it"};
constexpr Message kReplaced{"{file}: 옆에 있던 내용이 다른 프로그램 {count}개를 바꾸었습니다",
                            "{file}: replaced {count} programs that differed beside it"};

// The full drive path of a file to write.
std::string OutputPath(const Host& host, const std::string& argument) {
  return NormalDrivePath(host.DrivePath(argument));
}

// Returns false if a file could not be copied.
bool ReportFailedCopies(const std::vector<FailedCopy>& failed) {
  for (const FailedCopy& copy : failed) {
    PrintRemark(Say(kNotCopied, {{"file", copy.source},
                                 {"destination", copy.destination},
                                 {"reason", copy.status.Text(ToolLanguage())}}));
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
    throw Failure{argument, Say(kSameName, {{"first", same->first}, {"second", same->second}})};
  }
  const size_t replaced = ProgramsToReplace(path, results, files).size();
  std::vector<FailedCopy> failed;
  ThrowIfUnwritten(argument, WriteJobListFileCopy(path, results, files, &failed));
  if (replaced > 0) {
    PrintRemark(
        Say(replaced == 1 ? kReplacedOne : kReplaced, {{"file", argument}, {"count", replaced}}));
  }
  return failed;
}

void FillSheet(const std::string& argument, const Host& host,
               std::span<const ProgramResult> results) {
  if (HasIncomplete(results)) ThrowIfUnwritten(argument, StatusKind::kPartSource);
  ShowProgress(Say({"{file}: 스프레드시트 쓰는 중", "{file}: filling"}, {{"file", argument}}));
  const auto program = host.app.spreadsheets->Start(SpreadsheetForm::kFile);
  if (program == nullptr) throw Failure{argument, kNoSpreadsheetProgram};
  if (!WriteSpreadsheetFile(OutputPath(host, argument), results, program.get())) {
    const std::string problem = program->Problem();
    throw Failure{argument, problem.empty()
                                ? Say({"채우거나 저장할 수 없습니다", "cannot be filled and saved"})
                                : problem};
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
  if (hasMark_ && !arguments_[static_cast<size_t>(csv)]) throw WrongCall{Say(kMarkNeedsCsv)};
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
