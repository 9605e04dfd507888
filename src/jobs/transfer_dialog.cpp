// The logic of the job dialog: browser, job list, information list and key codes.

#include "jobs/transfer_dialog.h"

#include <algorithm>

#include "base/format.h"
#include "base/path_text.h"
#include "base/text.h"
#include "jobs/entry_rows.h"
#include "jobs/key_code_lines.h"
#include "jobs/preview.h"
#include "model/option_labels.h"
#include "platform/files/user_files.h"
#include "platform/number_field.h"

namespace tvx {

namespace {

constexpr char kListFile[] = "FList";
constexpr char kInfoFile[] = "info";
constexpr char kKeyCodeFile[] = "KeyCode";
constexpr size_t kCheckedBytes = 100;  // of a file that enters the list: all have to be 7-bit text

constexpr Message kNotInserted{"리스트에 넣지 못했습니다.",
                               "The file was not inserted into the list."};

constexpr char kError[] = "Error message";
constexpr char kDnc[] = "DNC message";

constexpr struct {
  JobMessage message;
  Message text;
  const char* caption;
} kMessageTable[] = {
    {JobMessage::kCannotOpen, {"화일을 열수 없읍니다. ", "The file cannot be opened. "}, kError},
    {JobMessage::kNoFileSelected,
     {"화일 리스트에서 file이 선택되지 않았습니다. ", "No file is selected in the file list. "},
     kDnc},
    {JobMessage::kEntryIsFrozen,
     {"현재 전송중 이거나 전송한 file입니다. ", "The file is being sent or has been sent. "},
     kDnc},
    {JobMessage::kCannotEnter,
     {"화일을 등록할 수 없습니다. ", "The file cannot be entered. "},
     kError},
};

bool IsSevenBit(char c) {
  return static_cast<unsigned char>(c) <= 127;
}

std::string WithoutLeadingBlanks(std::string text) {
  return text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
}

// The part of a name after its last backslash, without blanks on both sides.
std::string BareName(const std::string& name) {
  std::string bare = WithoutLeadingBlanks(NameOfPath(name, kBackslash));
  bare.erase(bare.find_last_not_of(' ') + 1);
  return bare;
}

}  // namespace

MessageBox MessageOf(JobMessage message, Language language) {
  for (const auto& row : kMessageTable) {
    if (row.message == message) return {.text = row.text.In(language), .caption = row.caption};
  }
  return {};
}

CTransferDlg::CTransferDlg(const std::vector<std::string>* userKeys, Files* files,
                           UserInterface* ui)
    : browser(files),
      files_(files),
      ui_(ui),
      sendOptions_(files, ui),
      keyPad_(userKeys),
      maskPad_(userKeys) {}

std::span<const CTransferDlg::Button> CTransferDlg::ListButtons() {
  static constexpr Button kButtons[] = {
      {"삽입", &CTransferDlg::InsertSelected}, {"삭제", &CTransferDlg::DeleteEntry},
      {"청소", &CTransferDlg::ClearList},      {"화일정보", &CTransferDlg::ShowEntry},
      {"미리보기", &CTransferDlg::Preview},    {"편집", &CTransferDlg::EditEntry},
      {"저장", &CTransferDlg::SaveList},       {"읽기", &CTransferDlg::ReadList},
      {"TVX", &CTransferDlg::ReadMcf},         {"화일확장자", &CTransferDlg::NewMask},
  };
  return kButtons;
}

std::span<const CTransferDlg::Button> CTransferDlg::KeyCodeButtons() {
  static constexpr Button kButtons[] = {
      {"K추가", &CTransferDlg::AddKeyCode},    {"K삽입", &CTransferDlg::InsertKeyCode},
      {"K삭제", &CTransferDlg::DeleteKeyCode}, {"K수정", &CTransferDlg::ChangeKeyCode},
      {"K저장", &CTransferDlg::SaveKeyCodes},  {"K읽기", &CTransferDlg::ReadKeyCodes},
  };
  return kButtons;
}

void CTransferDlg::Open(const JobDialogSetup& setup) {
  setup_ = setup;
  sendOptions_.labelLanguage = setup.labelLanguage;
  spindleSpeed_ = setup.spindleSpeed;
  CopyJobRecord(kJobSlot, &listOptions_, *setup.slot);
  CopyJobRecord(kJobSlot, &shownOptions_, *setup.slot);
  listOptions_.ConditionDir = setup.working->ConditionDir;
  listOptions_.KeyCodeOn = listOptions_.KeyCodeCount = listOptions_.RestartOn = 0;
  restart_.own.RestartOn = 0;
  restartCaption = kRestartLabel.In(setup.labelLanguage) + std::string(" :");
  selectedFile = selectedEntry = -1;
  ClearInformation();

  FillMasks();
  browser.Enter(listOptions_.WorkDir, listOptions_.NcdataExt);
  lineFile_.currentDirectory = UpperCase(browser.directory);
  browser.ShowPartsInCapitals();
  FillFromSlot();

  listOptions_.AfaEnabled = 1;
  CopyJobRecord(kJobSlot, &sendOptions_.own, listOptions_);
  conditionCaption = ConditionButtonText(sendOptions_.own, setup_.labelLanguage);
}

// Selects the mask in force: the first one that begins with it, else it is added in front.
void CTransferDlg::FillMasks() {
  masks.clear();
  for (const std::string& mask : *setup_.extensions) {
    if (mask.empty()) break;
    masks.push_back(mask);
  }
  const std::string wanted = LowerCase(listOptions_.NcdataExt);
  const auto found = std::find_if(masks.begin(), masks.end(), [&](const std::string& mask) {
    return LowerCase(mask).starts_with(wanted);
  });
  selectedMask = static_cast<int>(found - masks.begin());
  if (found != masks.end()) return;
  masks.insert(masks.begin(), listOptions_.NcdataExt);
  selectedMask = 0;
}

void CTransferDlg::FillFromSlot() {
  list.Clear();
  const std::vector<std::string>& lines = listOptions_.OptionLines;
  for (size_t i = 0; i < listOptions_.FileNames.size(); ++i) {
    const std::string name = BareName(listOptions_.FileNames[i]);
    if (name.empty() || !IsSevenBit(name[0])) break;
    if (i >= lines.size() || lines[i].empty() || !IsSevenBit(lines[i][0])) continue;
    list.Insert(list.size(), name, lines[i]);
  }
}

void CTransferDlg::Browse(int item) {
  browser.Enter(browser.TargetOf(item), listOptions_.NcdataExt);
  listOptions_.WorkDir = lineFile_.currentDirectory = browser.DirectoryInCapitals();
  selectedFile = -1;
}

void CTransferDlg::SelectMask(size_t index) {
  if (index >= masks.size()) return;
  selectedMask = static_cast<int>(index);
  listOptions_.NcdataExt = masks[index];
  browser.FillFiles(listOptions_.NcdataExt);
  selectedFile = -1;
}

void CTransferDlg::NewMask() {
  if (!RunKeyCodePad(&maskPad_, ui_)) return;
  listOptions_.NcdataExt = maskPad_.KeyText;
  FillMasks();
  browser.FillFiles(listOptions_.NcdataExt);
  selectedFile = -1;
}

// Refuses an entry that is being transferred, and -1, the index without a selected entry.
bool CTransferDlg::RefuseFrozen(int entry) {
  if (entry >= std::max(setup_.working->FirstEditable, 0)) return false;
  ui_->ShowMessage(MessageOf(JobMessage::kEntryIsFrozen, ui_->language()));
  return true;
}

void CTransferDlg::InsertSelected() {
  if (selectedFile < 0) {
    ui_->ShowMessage(MessageOf(JobMessage::kNoFileSelected, ui_->language()));
    return;
  }
  const size_t position = selectedEntry < 0 ? list.size() : static_cast<size_t>(selectedEntry);
  if (!RefuseFrozen(static_cast<int>(position))) InsertFile(position);
}

void CTransferDlg::AppendSelected() {
  if (selectedFile >= 0) InsertFile(list.size());
}

// Returns false, with the message that says why, for a file that cannot be a program.
bool CTransferDlg::IsReadableProgram(const std::string& path) {
  const Result<std::unique_ptr<InputFile>> file = files_->OpenForReading(path);
  if (!file.ok()) {
    ui_->ShowStatus(ui_->Say(kNotInserted), path);
    // A file that has vanished since the list was filled counts as an empty one.
    const bool isMissing = file.status.kind() == StatusKind::kMissing;
    ui_->ShowMessage(
        MessageOf(isMissing ? JobMessage::kCannotEnter : JobMessage::kCannotOpen, ui_->language()));
    return false;
  }
  char bytes[kCheckedBytes];
  const size_t count = file.value->Read(bytes, sizeof bytes);
  if (count == 0 || !std::all_of(bytes, bytes + count, IsSevenBit)) {
    ui_->ShowStatus(ui_->Say(kNotInserted), path);
    ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter, ui_->language()));
    return false;
  }
  return true;
}

void CTransferDlg::InsertFile(size_t position) {
  const std::string name = browser.files.at(static_cast<size_t>(selectedFile));
  const std::string path = listOptions_.WorkDir + "\\" + name;
  if (!AcceptWord(listOptions_.WorkDir, ui_)) return;
  if (listOptions_.AfaByMaster == 1 && !AcceptWord(listOptions_.AfaMasterFile, ui_)) return;
  if (!IsReadableProgram(path)) return;
  if (list.IsFull()) {
    ui_->ShowStatus(ui_->Say(kNotInserted), path);
    ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter, ui_->language()));
    return;
  }
  const auto spindleSpeed = spindleOn_ == 1 ? std::optional(spindleSpeed_) : std::nullopt;
  list.Insert(position, name,
              BuildOptionLine(listOptions_, restart_.own, files_->Size(path), spindleSpeed));
  if (spindleSpeed) listOptions_.KeyCodeOn = listOptions_.KeyCodeCount = 1;
  if (selectedEntry >= static_cast<int>(position)) ++selectedEntry;
  // A file that no function reads: its failure is not shown.
  static_cast<void>(WriteWholeFile(files_, EnvironmentFile(kInfoFile) + ".dat", ""));
  ShowLine(position);
}

void CTransferDlg::DeleteEntry() {
  if (RefuseFrozen(selectedEntry)) return;
  list.Remove(static_cast<size_t>(selectedEntry));
  selectedEntry = -1;
  ClearInformation();
}

void CTransferDlg::ClearList() {
  list.Clear();
  selectedEntry = -1;
  ClearInformation();
}

std::optional<size_t> CTransferDlg::SelectedOrLast() const {
  if (list.size() == 0) return std::nullopt;
  const bool selected = selectedEntry >= 0 && static_cast<size_t>(selectedEntry) < list.size();
  return selected ? static_cast<size_t>(selectedEntry) : list.size() - 1;
}

void CTransferDlg::SelectEntry(int index) {
  selectedEntry = index;
  if (index >= 0 && static_cast<size_t>(index) < list.size()) ShowLine(static_cast<size_t>(index));
}

void CTransferDlg::ShowEntry() {
  if (const auto entry = SelectedOrLast()) ShowLine(*entry);
}

void CTransferDlg::ClearInformation() {
  information.clear();
  selectedInformation = -1;
}

void CTransferDlg::ShowLine(size_t entry) {
  ParseOptionLine(&shownOptions_, list.lines[entry], &lineFile_);
  information = EntryRows(list.names[entry], lineFile_, shownOptions_, setup_.labelLanguage);
  selectedInformation = -1;
}

std::string CTransferDlg::EnvironmentFile(const char* name) const {
  return Format("%s\\%s%d", setup_.environmentDir.c_str(), name, kJobSlot);
}

// The file of an entry, in the directory that its line names.
std::string CTransferDlg::ProgramPath(size_t entry) const {
  std::string directory;
  LineDirectory(list.lines[entry], &directory);
  return directory + "\\" + list.names[entry];
}

void CTransferDlg::SaveList() {
  const std::string path = EnvironmentFile(kListFile) + ".txt";
  // The list runs with such a name, but is not read back with it: one message is enough.
  for (const std::string& name : list.names) {
    if (!AcceptWord(name, ui_)) break;
  }
  ShowWritten(WriteWholeFile(files_, path, EncodeCp949(PrintJobList(list))), path, ui_);
}

void CTransferDlg::ReadList() {
  ReadListFile(EnvironmentFile(kListFile) + ".txt", std::nullopt);
}

void CTransferDlg::ReadMcf() {
  std::string path;
  if (!ui_->ChooseFile({.fileName = "*.mcf"}, &path)) return;
  ReadListFile(path, path.empty() ? std::nullopt : std::optional(path[0]));
}

void CTransferDlg::ReadListFile(const std::string& path, std::optional<char> driveLetter) {
  ClearList();
  const Result<std::string> bytes = ReadSettings(files_, path);
  if (!bytes.ok()) {
    ShowUnreadable(bytes.status);
    return;
  }
  ListReading reading = ReadJobList(DecodeCp949(bytes.value), driveLetter);
  list = std::move(reading.list);
  if (reading.leftOut > 0) {
    ui_->ShowStatus(ui_->Say(kNotInserted), path);
    ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter, ui_->language()));
  }
  if (reading.problem == ListProblem::kNone) return;
  ui_->ShowMessage(
      {.text = reading.problem == ListProblem::kName
                   ? ui_->Say({"리스트에 사용할 수 없는 화일 이름이 있어서 읽지 않았습니다.",
                               "The list holds a file name that is not allowed; it was not read."})
                   : ui_->Say({"리스트에 사용할 수 없는 경로가 있어서 읽지 않았습니다.",
                               "The list holds a path that is not allowed; it was not read."}),
       .path = Format("%s:%zu: %s", path.c_str(), reading.line, reading.word.c_str()),
       .icon = MessageIcon::kExclamation});
}

// A file that is missing is an empty one; any other that was not read is not.
void CTransferDlg::ShowUnreadable(const Status& failure) {
  if (failure.kind() == StatusKind::kMissing) return;
  MessageBox message = MessageOf(JobMessage::kCannotOpen, ui_->language());
  message.path = failure.path() + ": " + failure.Text();
  ui_->ShowMessage(message);
}

// The options of the entry previewed become those of the files to come.
void CTransferDlg::Preview() {
  const std::optional<size_t> entry = SelectedOrLast();
  if (!entry.has_value()) return;
  ClearInformation();
  ParseOptionLine(&listOptions_, list.lines[*entry], &lineFile_);
  const Result<std::string> bytes = ReadWholeFile(files_, ProgramPath(*entry));
  if (bytes.ok()) information = PreviewLines(bytes.value);
}

// Starts the editor on the entry's file and does not wait for it.
void CTransferDlg::EditEntry() {
  if (selectedEntry < 0 || static_cast<size_t>(selectedEntry) >= list.size()) return;
  const std::string path = ProgramPath(static_cast<size_t>(selectedEntry));
  if (!setup_.programs->Start(setup_.editor, path)) {
    ui_->ShowStatus(ui_->Say({"편집기를 시작하지 못했습니다.", "The editor could not be started."}),
                    path);
  }
}

void CTransferDlg::ReplaceLine(size_t entry, std::string line) {
  list.lines[entry] = std::move(line);
  ShowLine(entry);
}

// Counts one more word in the options; a line without a key-code part starts at 1.
void CTransferDlg::CountKeyCode(const std::string& line) {
  if (KeyCodePart(line).empty()) {
    listOptions_.KeyCodeOn = listOptions_.KeyCodeCount = 1;
  } else {
    ++listOptions_.KeyCodeCount;
  }
}

void CTransferDlg::AddKeyCode() {
  if (RefuseFrozen(selectedEntry) || !RunKeyCodePad(&keyPad_, ui_)) return;
  const auto entry = static_cast<size_t>(selectedEntry);
  CountKeyCode(list.lines[entry]);
  ReplaceLine(entry, WithKeyCode(list.lines[entry], keyPad_.KeyText));
}

void CTransferDlg::InsertKeyCode() {
  const std::optional<std::string> word = SelectedWord();
  if (selectedInformation < 0 || !word) {
    AddKeyCode();
    return;
  }
  if (RefuseFrozen(selectedEntry) || !RunKeyCodePad(&keyPad_, ui_)) return;
  const auto entry = static_cast<size_t>(selectedEntry);
  const std::string& line = list.lines[entry];
  CountKeyCode(line);
  if (auto newLine = WithKeyCodeBefore(line, *word, keyPad_.KeyText)) {
    ReplaceLine(entry, std::move(*newLine));
  }
}

// The text of the selected row of the information list, or of the last row, without its leading
// blanks. Nothing if the list is empty.
std::optional<std::string> CTransferDlg::SelectedWord() const {
  if (information.empty()) return std::nullopt;
  return WithoutLeadingBlanks(selectedInformation < 0
                                  ? information.back()
                                  : information.at(static_cast<size_t>(selectedInformation)));
}

void CTransferDlg::DeleteKeyCode() {
  if (RefuseFrozen(selectedEntry)) return;
  const auto entry = static_cast<size_t>(selectedEntry);
  const std::string& line = list.lines[entry];
  const std::optional<std::string> word = SelectedWord();
  if (!word || !HasKeyCode(line, *word)) return;
  ReplaceLine(entry, WithKeyCodeReplaced(line, *word, ""));
}

void CTransferDlg::ChangeKeyCode() {
  if (RefuseFrozen(selectedEntry)) return;
  const auto entry = static_cast<size_t>(selectedEntry);
  const std::string& line = list.lines[entry];
  const std::optional<std::string> word = SelectedWord();
  if (!word || !HasKeyCode(line, *word)) return;
  keyPad_.KeyText = *word;
  const bool accepted = RunKeyCodePad(&keyPad_, ui_);
  ReplaceLine(entry, accepted ? WithKeyCodeReplaced(line, *word, keyPad_.KeyText) : line);
}

void CTransferDlg::SaveKeyCodes() {
  const std::optional<size_t> entry = SelectedOrLast();
  if (!entry.has_value()) return;
  const std::string_view part = KeyCodePart(list.lines[*entry]);
  if (part.empty()) return;
  const std::string path = EnvironmentFile(kKeyCodeFile) + ".txt";
  ShowWritten(WriteWholeFile(files_, path, EncodeCp949(part)), path, ui_);
}

void CTransferDlg::ReadKeyCodes() {
  const std::optional<size_t> entry = SelectedOrLast();
  if (!entry.has_value() || RefuseFrozen(selectedEntry)) return;
  const std::string path = EnvironmentFile(kKeyCodeFile) + ".txt";
  const Result<std::string> bytes = ReadSettings(files_, path);
  if (!bytes.ok()) {
    ShowUnreadable(bytes.status);
    return;
  }
  ReplaceLine(*entry, WithKeyCodePart(list.lines[*entry], KeyCodePartOfFile(bytes.value)));
}

void CTransferDlg::ToggleDeleteM30() {
  listOptions_.DeleteM30 = listOptions_.DeleteM30 == 1 ? 0 : 1;
}

void CTransferDlg::SetRestart() {
  restart_.Open(&listOptions_);
  const bool accepted = ui_->RunModal(&restart_);
  if (!accepted) listOptions_.RestartOn = 0;
  restartCaption = RestartButtonText(listOptions_, accepted, setup_.labelLanguage);
}

void CTransferDlg::SetCondition() {
  sendOptions_.SpindleOn = spindleOn_;
  sendOptions_.SpindleSpeed = spindleSpeed_;
  sendOptions_.Open(&listOptions_);
  if (!ui_->RunModal(&sendOptions_)) {
    conditionCaption = kConditionLabel.In(setup_.labelLanguage) + std::string(" ");
    return;
  }
  spindleOn_ = sendOptions_.SpindleOn;
  spindleSpeed_ = sendOptions_.SpindleSpeed;
  conditionCaption = ConditionButtonText(sendOptions_.own, setup_.labelLanguage);
}

Closing CTransferDlg::Accept() {
  listOptions_.FileNames = list.names;
  listOptions_.FileNames.resize(kJobListSlots);
  listOptions_.OptionLines = list.lines;
  listOptions_.OptionLines.resize(kJobListSlots);
  CopyJobRecord(kJobSlot, setup_.slot, listOptions_);
  return Closing::kAccepted;
}

}  // namespace tvx
