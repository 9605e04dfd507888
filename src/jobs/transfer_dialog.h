// The job dialog, in which the user puts a job list together.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/message.h"
#include "jobs/directory_browser.h"
#include "jobs/job_list.h"
#include "jobs/key_code_pad.h"
#include "jobs/option_line.h"
#include "jobs/restart.h"
#include "jobs/send_options.h"
#include "model/job_record.h"
#include "platform/files/files.h"
#include "platform/processes/programs.h"
#include "platform/user_interface.h"

namespace tvx {

// The fixed texts of the job dialog, by number.
enum class JobMessage {
  kCannotOpen = 1,
  kNoFileSelected = 4,
  kEntryIsFrozen = 5,
  kCannotEnter = 6,
};

// A message of the table, with its caption.
MessageBox MessageOf(JobMessage message, Language language);

// The slot of CTVXApp::JobSlots that job lists use. Its number is a part of the names of the files
// that the dialog keeps in the environment directory.
inline constexpr int kJobSlot = 1;

// What an opening of the job dialog works with. Everything pointed to outlives the dialog.
struct JobDialogSetup {
  JobRecord* slot;             // the last accepted list and its options; Accept writes the new ones
  const JobRecord* working;    // ConditionDir, and FirstEditable during the whole dialog
  std::string environmentDir;  // where the saved list and the key-code file are
  std::string editor;
  const std::vector<std::string>* extensions;  // masks to offer, up to the first empty one
  Programs* programs;
  int32_t spindleSpeed = 1000;  // 1/min, that the send options start with
  Language labelLanguage = Language::kKorean;
};

// A browser over drives and directories, the files there that fit a mask, the job list, and an
// information list about one of its entries. A file enters the list together with the options in
// force at that moment.
//
// Kept for the whole life of its window; the lists are built anew from the slot at each opening.
class CTransferDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "전송";
  static constexpr char kJobListCaption[] = "전송 화일";
  static constexpr char kFileListCaption[] = "화일 리스트";
  static constexpr char kInfoListCaption[] = "화일 미리보기";
  static constexpr char kDeleteM30[] = "M30삭제";  // ticked while DeleteM30 of ListOptions is 1
  static constexpr char kConditionButton[] = "AFA 설정:";

  CTransferDlg(const std::vector<std::string>* userKeys, Files* files, UserInterface* ui);

  void Open(const JobDialogSetup& setup);

  // The buttons of the dialog, by caption, in the order of its face.
  struct Button {
    const char* caption;
    void (CTransferDlg::*press)();
  };
  static std::span<const Button> ListButtons();
  static std::span<const Button> KeyCodeButtons();

  // The browser: a click on an item of the tree.
  void Browse(int item);

  // The file list: its mask.
  void SelectMask(size_t index);
  void NewMask();

  // The job list. An insertion takes the file selected in the file list, before the selected entry
  // or at the end; a double click always appends.
  void InsertSelected();
  void AppendSelected();
  void DeleteEntry();
  void ClearList();
  void SaveList();
  void ReadList();
  void ReadMcf();
  void EditEntry();

  // The information list. A selection in the job list shows that entry; the button shows the last
  // one when none is selected.
  void SelectEntry(int index);
  void ShowEntry();
  void Preview();

  // Options of the files to come.
  void ToggleDeleteM30();
  void SetRestart();
  void SetCondition();

  // The key-code part of the selected entry. The selected row of the information list points to a
  // word, which is looked for in the line by its text.
  void AddKeyCode();
  void InsertKeyCode();
  void DeleteKeyCode();
  void ChangeKeyCode();
  void SaveKeyCodes();
  void ReadKeyCodes();

  // "전송": hands the lists over to the slot. A cancel needs no operation.
  Closing Accept();

  // The options that the next file gets.
  const JobRecord& ListOptions() const { return listOptions_; }
  // 1/min, as the send options left it.
  int32_t SpindleSpeed() const { return spindleSpeed_; }
  // Directory and size from the option line that was parsed last, here or by a run: a line without
  // them shows those of the line before it.
  LineFile* LastLineFile() { return &lineFile_; }

  DirectoryBrowser browser;
  JobList list;
  std::vector<std::string> information;
  std::vector<std::string> masks;
  int selectedMask = -1;
  int selectedFile = -1;         // in browser.files
  int selectedEntry = -1;        // in list
  int selectedInformation = -1;  // row of the information list
  std::string restartCaption;
  std::string conditionCaption = kConditionButton;

 private:
  void FillMasks();
  void FillFromSlot();
  void InsertFile(size_t position);
  bool IsReadableProgram(const std::string& path);
  bool RefuseFrozen(int entry);
  std::optional<size_t> SelectedOrLast() const;
  std::optional<std::string> SelectedWord() const;
  void ClearInformation();
  void ShowLine(size_t entry);
  void ReplaceLine(size_t entry, std::string line);
  void CountKeyCode(const std::string& line);
  void ReadListFile(const std::string& path, std::optional<char> driveLetter);
  void ShowUnreadable(const Status& failure);
  std::string EnvironmentFile(const char* name) const;
  std::string ProgramPath(size_t entry) const;

  JobDialogSetup setup_{};
  Files* files_;
  UserInterface* ui_;
  JobRecord listOptions_;
  JobRecord shownOptions_;  // of the entry shown last
  LineFile lineFile_;
  int32_t spindleOn_ = 0;
  int32_t spindleSpeed_ = 1000;
  CSendOptionDlg sendOptions_;
  CRestartDlg restart_;
  CKeyCodeDlg keyPad_;
  CKeyCodeDlg maskPad_;
};

}  // namespace tvx
