// The dialog of recorded results, the questions of its reports and its messages.
#include "reports/cut_time_list.h"

#include <algorithm>

#include "base/format.h"
#include "base/path_text.h"
#include "jobs/job_list.h"
#include "platform/files/drives.h"
#include "platform/files/user_files.h"
#include "platform/number_field.h"
#include "reports/job_list_file.h"
#include "reports/spreadsheet_export.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr int kRapidLengthDecimals = 3;
constexpr Message kPicture{"그림화일 {file}", "Picture file {file}"};
constexpr Message kStopped{"화일 {count}개 중 {done}개를 끝내고 중지했습니다.",
                           "Stopped after {done} of {count} files."};

constexpr int kNoFile = -1;
constexpr size_t kShownPrograms = 10;  // of those that a copy replaces

FileQuestion QuestionOf(const Report& report) {
  const std::string mask = std::string("*.") + report.ending;
  const bool isFilled = report.steps == ReportSteps::kFillSpreadsheet;
  return {.save = true,
          .mustExist = isFilled,
          .confirmsOverwrite = !isFilled && report.isOfKind == nullptr,
          .defaultExtension = isFilled ? "" : report.ending,
          .fileName = mask,
          .filter = report.fileKind + (" (" + mask + ")|" + mask) + "|모든 화일(*.*)|*.*||",
          .title = report.chooserTitle};
}

// The first lines, and "..." for the others.
std::string JoinLines(const std::vector<std::string>& lines, size_t most) {
  std::string text;
  for (size_t i = 0; i < std::min(lines.size(), most); ++i) {
    text += (i == 0 ? "" : "\n") + lines[i];
  }
  return lines.size() > most ? text + "\n..." : text;
}

void Append(const std::vector<std::string>& more, std::vector<std::string>* lines) {
  lines->insert(lines->end(), more.begin(), more.end());
}

}  // namespace

std::vector<std::string> CutTimeListLines(const CutTimeEntry& entry, Language language) {
  std::vector<std::string> lines = {"Dir : " + entry.dirName};
  Append(RestartLines(entry, language), &lines);
  Append(ConditionLines(entry, "", language), &lines);
  Append(FigureLines(entry, kRapidLengthDecimals, language), &lines);
  lines.push_back(Say(kPicture, language, {{"file", entry.pictureName}}));
  return lines;
}

std::string StoppedText(const RunEnd& end, Language language) {
  return Say(kStopped, language, {{"count", end.count}, {"done", end.done}});
}

std::vector<CCutTimeListDlg::Button> CCutTimeListDlg::Buttons() {
  static constexpr Message kClear{"청소", "Clear"};
  static constexpr Message kDelete{"화일삭제", "Remove file"};
  std::vector<Button> buttons = {{&kClear, &CCutTimeListDlg::Clear},
                                 {&kDelete, &CCutTimeListDlg::DeleteSelected}};
  for (const Report* const report : Reports()) {
    if (report->button == nullptr) continue;
    buttons.push_back(
        {report->button, [report](CCutTimeListDlg* dialog) { return dialog->Write(*report); }});
  }
  return buttons;
}

void CCutTimeListDlg::Open() {
  information.clear();
  Fill();
}

void CCutTimeListDlg::Fill() {
  fileNames.clear();
  selected = kNoFile;
  totalTime = 0;
  for (const ProgramResult& result : results_->recorded) {
    fileNames.push_back(result.entry.fileName);
    totalTime += result.entry.totalMinutes;
  }
}

void CCutTimeListDlg::Select(int index) {
  const auto& recorded = results_->recorded;
  const bool isEntry = index >= 0 && static_cast<size_t>(index) < recorded.size();
  selected = isEntry ? index : kNoFile;
  if (!isEntry) return;
  const CutTimeEntry& entry = recorded[static_cast<size_t>(index)].entry;
  information = CutTimeListLines(entry, ui_->language());
}

Closing CCutTimeListDlg::Clear() {
  results_->recorded.clear();
  results_->runEnd = {};
  return Closing::kAccepted;
}

Closing CCutTimeListDlg::DeleteSelected() {
  if (selected == kNoFile) {
    ui_->ShowMessage(
        {.text = ui_->Say({"화일이 선택되지 않아습니다!!!\n", "No file is selected!!!\n"}),
         .caption = "DNC message"});
    return Closing::kStaysOpen;
  }
  results_->recorded.erase(results_->recorded.begin() + selected);
  Fill();
  return Closing::kStaysOpen;
}

Closing CCutTimeListDlg::Write(const Report& report) {
  std::string path;
  if (!ui_->ChooseFile(QuestionOf(report), &path)) return Closing::kStaysOpen;
  if (report.usesCurrentDirectory) {
    path = AbsoluteDrivePath(files_->CurrentDirectory(), NameOfPath(path, kBackslash));
  }
  if (!MayReplaceFile(report, path)) return Closing::kStaysOpen;
  if (report.needs.check) finishChecks();
  const bool written = report.steps == ReportSteps::kFillSpreadsheet ? FillSpreadsheet(path)
                                                                     : WriteFiles(report, path);
  if (written) results_->isReported = true;
  return Closing::kStaysOpen;
}

bool CCutTimeListDlg::MayReplaceFile(const Report& report, const std::string& path) {
  if (report.isOfKind != nullptr && !MayReplace(path, report.isOfKind, files_, ui_)) return false;
  return report.steps != ReportSteps::kCopyFiles || MayCopyBeside(path);
}

bool CCutTimeListDlg::MayCopyBeside(const std::string& path) {
  if (const auto same = FindSameName(path, results_->recorded)) {
    ui_->ShowMessage(
        {.text = ui_->Say({"이름이 같은 화일이 두 폴더에 있어서 복사하지 않았습니다.",
                           "Two files in two folders have the same name; nothing was copied."}),
         .path = same->first + "\n" + same->second,
         .icon = MessageIcon::kExclamation});
    return false;
  }
  const std::vector<std::string> replaced = ProgramsToReplace(path, results_->recorded, files_);
  if (replaced.empty()) return true;
  return ui_->ShowMessage({.text = ui_->Say({"내용이 다른 프로그램이 있습니다. 바꾸겠습니까?",
                                             "There are programs that differ. Replace them?"}),
                           .path = JoinLines(replaced, kShownPrograms),
                           .caption = ui_->Say({"화일 바꾸기", "Replace a file"}),
                           .icon = MessageIcon::kQuestion,
                           .buttons = MessageButtons::kYesNo});
}

bool CCutTimeListDlg::WriteFiles(const Report& report, const std::string& path) {
  const std::span<const ProgramResult> results = results_->recorded;
  std::vector<FailedCopy> failed;
  const Status written =
      report.steps == ReportSteps::kCopyFiles
          ? WriteJobListFileCopy(path, results, files_, &failed)
          : report.write(results, {.path = path, .language = ui_->language(), .files = files_});
  ShowWritten(written, path, ui_);
  if (!written.ok()) return false;
  if (report.isOfKind == IsJobList) ShowNamesThatListsCutOff();
  if (!failed.empty())
    ui_->ShowStatus(ui_->Say({"복사하지 못했습니다.", "Not copied."}), failed.front().source);
  if (report.isOfferedToOpen) ui_->OfferToOpen(path);
  return true;
}

// A list with a name that has a blank is not read back with it: one message is enough.
void CCutTimeListDlg::ShowNamesThatListsCutOff() {
  for (const ProgramResult& result : results_->recorded) {
    if (!AcceptWord(result.entry.fileName, ui_)) return;
  }
}

bool CCutTimeListDlg::FillSpreadsheet(const std::string& path) {
  const std::span<ProgramResult> results = results_->recorded;
  size_t rows = 0;
  const auto fill = [&] {
    const WorkScope work(ui_->LongWork(), Work::kFillSheet, path);
    return ExportSpreadsheet(path, results, spreadsheets_, &rows, ui_->LongWork());
  };
  const bool filled = fill();
  for (ProgramResult& result : results.first(rows)) CutDownFigures(&result.entry);
  if (filled) return true;
  ShowWritten(StatusKind::kWriteFailed, path, ui_);
  ui_->ShowMessage({.text = kNoSpreadsheetProgram});
  return false;
}

std::string CCutTimeListDlg::Remark() const {
  return results_->runEnd.WasStopped() ? StoppedText(results_->runEnd, ui_->language())
                                       : std::string();
}

std::string CCutTimeListDlg::TotalTimeText() const {
  return Format("%.2f", totalTime);
}

}  // namespace tvx
