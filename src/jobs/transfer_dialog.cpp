#include "jobs/transfer_dialog.h"

#include <algorithm>

#include "base/format.h"
#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "jobs/preview.h"
#include "model/labels.h"

namespace tvx {

namespace {

constexpr char kListFile[] = "FList";
constexpr char kInfoFile[] = "info";
constexpr size_t kCheckedBytes = 100;  // of a file that enters the list: all have to be 7-bit text

bool IsSevenBit(char c) {
  return static_cast<unsigned char>(c) <= 127;
}

// The part of a name behind its last backslash, without blanks on both sides.
std::string BareName(const std::string& name) {
  std::string bare = NameOfPath(name, kBackslash);
  bare.erase(0, std::min(bare.find_first_not_of(' '), bare.size()));
  bare.erase(bare.find_last_not_of(' ') + 1);
  return bare;
}

const char* OnOff(int32_t check) {
  return check == 1 ? "ON" : "OFF";
}

}  // namespace

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

void CTransferDlg::Open(const JobDialogWorld& world) {
  world_ = world;
  CopyJobRecord(SlotIndex, &ListOptions, *world.slot);
  CopyJobRecord(SlotIndex, &ShownOptions, *world.slot);
  ListOptions.ConditionDir = world.working->ConditionDir;
  ListOptions.KeyCodeOn = ListOptions.KeyCodeCount = ListOptions.RestartOn = 0;
  restart_.own.RestartOn = 0;
  restartCaption = kRestartButton;
  selectedFile = selectedEntry = selectedInformation = -1;
  information.clear();

  FillMasks();
  browser.Enter(ListOptions.WorkDir, ListOptions.NcdataExt);
  // Shown in capitals until the user browses.
  shownFile.currentDirectory = UpperCase(browser.directory);
  for (std::string& part : browser.parts) part = UpperCase(part);
  FillFromSlot();

  ListOptions.AfaEnabled = 1;
  CopyJobRecord(SlotIndex, &sendOptions_.own, ListOptions);
  conditionCaption = ConditionButtonText(sendOptions_.own);
}

// The mask in force is selected: the first one that begins with it, else it is added in front.
void CTransferDlg::FillMasks() {
  masks.clear();
  for (const std::string& mask : *world_.extensions) {
    if (mask.empty()) break;
    masks.push_back(mask);
  }
  const std::string wanted = LowerCase(ListOptions.NcdataExt);
  const auto found = std::find_if(masks.begin(), masks.end(), [&](const std::string& mask) {
    return LowerCase(mask).starts_with(wanted);
  });
  selectedMask = static_cast<int>(found - masks.begin());
  if (found != masks.end()) return;
  masks.insert(masks.begin(), ListOptions.NcdataExt);
  selectedMask = 0;
}

void CTransferDlg::FillFromSlot() {
  list.Clear();
  for (size_t i = 0; i < ListOptions.FileNames.size(); ++i) {
    const std::string name = BareName(ListOptions.FileNames[i]);
    if (name.empty() || !IsSevenBit(name[0])) break;
    const std::string line =
        i < ListOptions.OptionLines.size() ? ListOptions.OptionLines[i] : std::string();
    if (line.empty() || !IsSevenBit(line[0])) continue;
    list.Insert(list.size(), name, line);
  }
}

void CTransferDlg::Browse(int item) {
  browser.Enter(browser.TargetOf(item), ListOptions.NcdataExt);
  shownFile.currentDirectory = browser.directory;
  ListOptions.WorkDir = browser.directory;
  selectedFile = -1;
}

void CTransferDlg::SelectMask(size_t index) {
  if (index >= masks.size()) return;
  selectedMask = static_cast<int>(index);
  ListOptions.NcdataExt = masks[index];
  browser.FillFiles(ListOptions.NcdataExt);
  selectedFile = -1;
}

void CTransferDlg::NewMask() {
  if (!RunKeyCodePad(&maskPad_, ui_)) return;
  ListOptions.NcdataExt = maskPad_.KeyText;
  FillMasks();
  browser.FillFiles(ListOptions.NcdataExt);
  selectedFile = -1;
}

// An entry that is being transferred, or none at all, is not touched.
bool CTransferDlg::RefuseFrozen() {
  if (selectedEntry >= std::max(world_.working->FirstEditable, 0)) return false;
  ui_->ShowMessage(MessageOf(JobMessage::kEntryIsFrozen));
  return true;
}

void CTransferDlg::InsertSelected() {
  if (selectedFile < 0) {
    ui_->ShowMessage(MessageOf(JobMessage::kNoFileSelected));
    return;
  }
  const size_t position = selectedEntry < 0 ? list.size() : static_cast<size_t>(selectedEntry);
  if (static_cast<int>(position) < world_.working->FirstEditable) {
    ui_->ShowMessage(MessageOf(JobMessage::kEntryIsFrozen));
    return;
  }
  InsertFile(position);
}

void CTransferDlg::AppendSelected() {
  if (selectedFile >= 0) InsertFile(std::nullopt);
}

// False, with the message that says why, for a file that cannot be a program.
bool CTransferDlg::IsReadableProgram(const std::string& path) {
  const std::unique_ptr<InputFile> file = files_->OpenOrCreateForReading(path);
  if (file == nullptr) {
    ui_->ShowMessage(MessageOf(JobMessage::kCannotOpen));
    return false;
  }
  char bytes[kCheckedBytes];
  const size_t count = file->Read(bytes, sizeof bytes);
  if (count == 0 || !std::all_of(bytes, bytes + count, IsSevenBit)) {
    ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter));
    return false;
  }
  return true;
}

void CTransferDlg::InsertFile(std::optional<size_t> position) {
  const std::string name = browser.files.at(static_cast<size_t>(selectedFile));
  const std::string path = ListOptions.WorkDir + "\\" + name;
  if (!IsReadableProgram(path)) return;
  if (list.IsFull()) {
    ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter));
    return;
  }
  const size_t index = position.value_or(list.size());
  const std::string line =
      BuildOptionLine(ListOptions, restart_.own, files_->Size(path), std::nullopt);
  shownFile.currentDirectory = ListOptions.WorkDir;
  list.Insert(index, name, line);
  if (selectedEntry >= static_cast<int>(index)) ++selectedEntry;
  selectedName = name;
  ParseOptionLine(&ShownOptions, line, &shownFile);
  WriteWholeFile(files_, EnvironmentFile(kInfoFile) + ".dat", "");
  if (SpindleOn == 1) {
    AppendSpindleWord(SpindleSpeed, &list.lines[index]);
    ListOptions.KeyCodeOn = ListOptions.KeyCodeCount = 1;
    ParseOptionLine(&ShownOptions, list.lines[index], &shownFile);
  }
  ShowInfo();
}

void CTransferDlg::DeleteEntry() {
  if (RefuseFrozen()) return;
  list.Remove(static_cast<size_t>(selectedEntry));
  selectedEntry = -1;
  information.clear();
  selectedInformation = -1;
}

void CTransferDlg::ClearList() {
  list.Clear();
  selectedEntry = selectedInformation = -1;
  information.clear();
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
  if (const auto index = SelectedOrLast()) ShowLine(*index);
}

void CTransferDlg::ShowLine(size_t index) {
  selectedName = list.names[index];
  ParseOptionLine(&ShownOptions, list.lines[index], &shownFile);
  ShowInfo();
}

void CTransferDlg::ShowInfo() {
  const JobRecord& job = ShownOptions;
  selectedInformation = -1;
  information.clear();
  const auto add = [&](std::string text) { information.push_back(ReplaceLabels(std::move(text))); };
  add(Format("화일명 : %s ", selectedName.c_str()));
  information.push_back(shownFile.currentDirectory);
  add(Format("FileSize %d Byte", shownFile.fileSize));
  if (job.DeleteM30 == 0) add("M30 ON");
  add(Format("Restart %s", OnOff(job.RestartOn)));
  if (job.RestartOn == 1) {
    for (const std::string& row : RestartInfoRows(job)) information.push_back(row);
  }
  if (job.AfaEnabled == 1) {
    AddConditionRows();
  } else {
    add("Afa OFF");
  }
  if (job.KeyCodeOn != 1) return;
  add("Key Code");
  for (const std::string& word : job.KeyCodes) information.push_back("  " + word);
}

void CTransferDlg::AddConditionRows() {
  const JobRecord& job = ShownOptions;
  const auto add = [&](std::string text) { information.push_back(ReplaceLabels(std::move(text))); };
  add("Afa ON");
  add(Format("  공구직경 %3.1f", job.ToolDiameter));
  add(Format("  안전거리 %3.1f", job.SafetyDistance));
  add(Format("  코너최소각도 %3.1f", job.CornerMinAngle));
  add(Format("  코너최대감속비 %3.2f", job.CornerMaxRatio));
  add(Format("  경사최소각도 %3.1f", job.SlopeMinAngle));
  add(Format("  경사최대감속비 %3.1f", job.SlopeMaxRatio));
  add(Format("  볼록코너검색 %s", OnOff(job.ConCorChk)));
  add(Format("  Z상하향검색 %s", OnOff(job.UpDownChk)));
  add(Format("  가공소재: %s", job.Material.c_str()));
  add(Format("  최대피드  %d", job.MaxFeed));
  add(Format(" 접근피드  %d", job.PlungeFeed));
  add(Format(" 코너가중치 %3.2f %3.2f %3.2f ", job.CorWeight0, job.CorWeight30, job.CorWeight60));
  add(Format(" 경사가중치 %3.2f %3.2f %3.2f ", job.SideWeight0, job.SideWeight30,
             job.SideWeight60));
  if (job.FeedChgSmoothCheck == 1) add("부드러운 피드 변화 ON ");
  if (job.XyChgReduceCheck == 1) add("XY변화 축소 ON ");
  if (job.AfaByMaster == 1 && NamesMasterFile(job.AfaMasterFile)) {
    add("MMA " + job.AfaMasterFile);
  }
}

std::string CTransferDlg::EnvironmentFile(const char* name) const {
  return Format("%s\\%s%d", world_.environmentDir.c_str(), name, SlotIndex);
}

void CTransferDlg::SaveList() {
  WriteWholeFile(files_, EnvironmentFile(kListFile) + ".txt", EncodeCp949(PrintJobList(list)));
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
  std::string bytes;
  if (!ReadWholeFile(files_, path, &bytes)) return;
  size_t leftOut = 0;
  list = ReadJobList(DecodeCp949(bytes), driveLetter, &leftOut);
  if (leftOut > 0) ui_->ShowMessage(MessageOf(JobMessage::kCannotEnter));
}

// The options of the entry previewed become those of the files to come.
void CTransferDlg::Preview() {
  const std::optional<size_t> index = SelectedOrLast();
  if (!index.has_value()) return;
  information.clear();
  selectedInformation = -1;
  const std::string& line = list.lines[*index];
  std::string directory;
  LineDirectory(line, &directory);
  ParseOptionLine(&ListOptions, line, &shownFile);
  std::string bytes;
  if (!ReadWholeFile(files_, directory + "\\" + list.names[*index], &bytes)) return;
  information = PreviewLines(bytes);
}

// Starts the editor on the entry's file and goes on.
void CTransferDlg::EditEntry() {
  if (selectedEntry < 0 || static_cast<size_t>(selectedEntry) >= list.size()) return;
  const auto index = static_cast<size_t>(selectedEntry);
  std::string directory;
  LineDirectory(list.lines[index], &directory);
  world_.programs->Start(world_.editor, directory + "\\" + list.names[index]);
}

void CTransferDlg::ToggleDeleteM30() {
  ListOptions.DeleteM30 = ListOptions.DeleteM30 == 1 ? 0 : 1;
}

void CTransferDlg::SetRestart() {
  restart_.Open(&ListOptions);
  const bool accepted = ui_->RunModal(&restart_);
  if (!accepted) ListOptions.RestartOn = 0;
  restartCaption = RestartButtonText(ListOptions, accepted);
}

void CTransferDlg::SetCondition() {
  sendOptions_.SpindleOn = SpindleOn;
  sendOptions_.SpindleSpeed = SpindleSpeed;
  sendOptions_.Open(&ListOptions);
  if (!ui_->RunModal(&sendOptions_)) {
    conditionCaption = ReplaceLabels(kNoConditionText);
    return;
  }
  SpindleOn = sendOptions_.SpindleOn;
  SpindleSpeed = sendOptions_.SpindleSpeed;
  conditionCaption = ConditionButtonText(sendOptions_.own);
}

Closing CTransferDlg::Accept() {
  ListOptions.FileNames.assign(kJobListSlots, "");
  ListOptions.OptionLines.assign(kJobListSlots, "");
  for (size_t i = 0; i < list.size(); ++i) {
    ListOptions.FileNames[i] = list.names[i];
    ListOptions.OptionLines[i] = list.lines[i];
  }
  CopyJobRecord(SlotIndex, world_.slot, ListOptions);
  return Closing::kAccepted;
}

}  // namespace tvx
