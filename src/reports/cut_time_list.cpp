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
#include "reports/job_sheet.h"
#include "reports/spreadsheet_export.h"
#include "reports/text_report.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr int kRapidLengthDecimals = 3;
constexpr int kNoFile = -1;
constexpr size_t kShownPrograms = 10;  // of those that a copy replaces

FileQuestion ReportQuestion() {
  return {.save = true,
          .confirmsOverwrite = true,
          .defaultExtension = "tvx",
          .fileName = "*.tvx",
          .filter = "TVX file (*.tvx)|*.tvx|모든 화일(*.*)|*.*||"};
}

FileQuestion ListQuestion() {
  return {.save = true,
          .defaultExtension = "mcf",
          .fileName = "*.mcf",
          .filter = "TVX file (*.mcf)|*.mcf|모든 화일(*.*)|*.*||",
          .title = "TVX  화일명을 입력 하시요!!"};
}

FileQuestion SheetQuestion() {
  return {.save = true,
          .defaultExtension = "html",
          .fileName = "*.html",
          .filter = "HTML file (*.html)|*.html|모든 화일(*.*)|*.*||"};
}

FileQuestion WorkbookQuestion() {
  return {.save = true,
          .mustExist = true,
          .fileName = "*.xls",
          .filter = "Excel file (*.xls)|*.xls|모든 화일(*.*)|*.*||"};
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

std::vector<std::string> CutTimeListLines(const CutTimeEntry& entry) {
  std::vector<std::string> lines = {"Dir : " + entry.dirName};
  Append(RestartLines(entry), &lines);
  Append(ConditionLines(entry, ""), &lines);
  Append(FigureLines(entry, kRapidLengthDecimals), &lines);
  lines.push_back("그림화일 " + entry.pictureName);
  return lines;
}

std::string StoppedText(const RunEnd& end) {
  return Format("화일 %d개 중 %d개를 끝내고 중지했습니다.", static_cast<int>(end.count),
                static_cast<int>(end.done));
}

std::span<const CCutTimeListDlg::Button> CCutTimeListDlg::Buttons() {
  static constexpr Button kButtons[] = {
      {"청소", &CCutTimeListDlg::Clear},
      {"화일삭제", &CCutTimeListDlg::DeleteSelected},
      {"화일 출력", &CCutTimeListDlg::WriteReport},
      {"AFA 출력", &CCutTimeListDlg::WriteList},
      {"AFA 출력, Copy", &CCutTimeListDlg::WriteListCopy},
      {"스프레드시트 출력", &CCutTimeListDlg::Export},
      {"HTML", &CCutTimeListDlg::WriteSheet},
  };
  return kButtons;
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
  if (isEntry) information = CutTimeListLines(recorded[static_cast<size_t>(index)].entry);
}

Closing CCutTimeListDlg::Clear() {
  results_->recorded.clear();
  results_->runEnd = {};
  return Closing::kAccepted;
}

Closing CCutTimeListDlg::DeleteSelected() {
  if (selected == kNoFile) {
    ui_->ShowMessage({.text = "화일이 선택되지 않아습니다!!!\n", .caption = "DNC message"});
    return Closing::kStaysOpen;
  }
  results_->recorded.erase(results_->recorded.begin() + selected);
  Fill();
  return Closing::kStaysOpen;
}

// Only the name of the chosen file is used: the report is written into the current directory.
Closing CCutTimeListDlg::WriteReport() {
  std::string path;
  if (!ui_->ChooseFile(ReportQuestion(), &path)) return Closing::kStaysOpen;
  const std::string name = NameOfPath(path, kBackslash);
  ShowReport(WriteTextReportFile(name, results_->recorded, files_),
             AbsoluteDrivePath(files_->CurrentDirectory(), name));
  return Closing::kStaysOpen;
}

void CCutTimeListDlg::ShowReport(const Status& written, const std::string& path) {
  if (written.ok()) results_->isReported = true;
  ShowWritten(written, path, ui_);
}

// A list with a name that has a blank is not read back with it: one message is enough.
void CCutTimeListDlg::ShowList(const Status& written, const std::string& path) {
  ShowReport(written, path);
  if (!written.ok()) return;
  for (const ProgramResult& result : results_->recorded) {
    if (!AcceptWord(result.entry.fileName, ui_)) return;
  }
}

bool CCutTimeListDlg::ChooseList(std::string* path) {
  return ui_->ChooseFile(ListQuestion(), path) && MayReplace(*path, IsJobList, files_, ui_);
}

Closing CCutTimeListDlg::WriteList() {
  std::string path;
  if (ChooseList(&path)) ShowList(WriteJobListFile(path, results_->recorded, files_), path);
  return Closing::kStaysOpen;
}

bool CCutTimeListDlg::MayCopyBeside(const std::string& path) {
  if (const auto same = FindSameName(path, results_->recorded)) {
    ui_->ShowMessage({.text = "이름이 같은 화일이 두 폴더에 있어서 복사하지 않았습니다.",
                      .path = same->first + "\n" + same->second,
                      .icon = MessageIcon::kExclamation});
    return false;
  }
  const std::vector<std::string> replaced = ProgramsToReplace(path, results_->recorded, files_);
  if (replaced.empty()) return true;
  return ui_->ShowMessage({.text = "내용이 다른 프로그램이 있습니다. 바꾸겠습니까?",
                           .path = JoinLines(replaced, kShownPrograms),
                           .caption = "화일 바꾸기",
                           .icon = MessageIcon::kQuestion,
                           .buttons = MessageButtons::kYesNo});
}

Closing CCutTimeListDlg::WriteListCopy() {
  std::string path;
  if (!ChooseList(&path) || !MayCopyBeside(path)) return Closing::kStaysOpen;
  std::vector<FailedCopy> failed;
  const Status written = WriteJobListFileCopy(path, results_->recorded, files_, &failed);
  ShowList(written, path);
  if (written.ok() && !failed.empty())
    ui_->ShowStatus("복사하지 못했습니다.", failed.front().source);
  return Closing::kStaysOpen;
}

Closing CCutTimeListDlg::Export() {
  std::string path;
  if (!ui_->ChooseFile(WorkbookQuestion(), &path)) return Closing::kStaysOpen;
  size_t rows = 0;
  const auto fill = [&] {
    const WorkScope work(ui_->LongWork(), Work::kFillSheet, path);
    return ExportSpreadsheet(path, results_->recorded, spreadsheets_, &rows, ui_->LongWork());
  };
  const bool filled = fill();
  for (ProgramResult& result : std::span(results_->recorded).first(rows)) {
    CutDownFigures(&result.entry);
  }
  if (filled) {
    results_->isReported = true;
  } else {
    ShowWritten(StatusKind::kWriteFailed, path, ui_);
    ui_->ShowMessage({.text = kNoSpreadsheetProgram});
  }
  return Closing::kStaysOpen;
}

Closing CCutTimeListDlg::WriteSheet() {
  std::string path;
  if (!ui_->ChooseFile(SheetQuestion(), &path) || !MayReplace(path, IsJobSheet, files_, ui_)) {
    return Closing::kStaysOpen;
  }
  finishChecks();
  const Status written = WriteJobSheetFile(path, results_->recorded, language(), files_);
  ShowReport(written, path);
  if (written.ok()) ui_->OfferToOpen(path);
  return Closing::kStaysOpen;
}

std::string CCutTimeListDlg::Remark() const {
  return results_->runEnd.WasStopped() ? StoppedText(results_->runEnd) : std::string();
}

std::string CCutTimeListDlg::TotalTimeText() const {
  return Format("%.2f", totalTime);
}

}  // namespace tvx
