#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jobs/directory_browser.h"
#include "jobs/job_list.h"
#include "jobs/key_code_pad.h"
#include "jobs/message_table.h"
#include "jobs/option_line.h"
#include "jobs/restart.h"
#include "jobs/send_options.h"
#include "model/job_record.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/user_interface.h"

namespace tvx {

// What the job dialog works with beside its own lists; all of it outlives the dialog.
struct JobDialogWorld {
  JobRecord* slot;           // the exchange place with the view: lists and options come and go here
  const JobRecord* working;  // of which FirstEditable counts
  std::string environmentDir;
  std::string editor;
  const std::vector<std::string>* extensions;
  Files* files;
  UserInterface* ui;
  Programs* programs;
};

// The job dialog: a browser over drives and directories, the files there that fit a mask, the job
// list, and an information list about one of its entries. A file enters the list together with the
// options in force at that moment.
//
// Kept for the whole life of its window; the lists are built anew from the slot at each opening.
class CTransferDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "전송";
  static constexpr char kJobListCaption[] = "전송 화일";
  static constexpr char kFileListCaption[] = "화일 리스트";
  static constexpr char kInfoListCaption[] = "화일 미리보기";
  static constexpr char kDeleteM30[] = "M30삭제";  // ticked while DeleteM30 of ListOptions is 1
  static constexpr char kRestartButton[] = "재전송 :";
  static constexpr char kConditionButton[] = "AFA 설정:";

  CTransferDlg(const std::vector<std::string>* userKeys, Files* files, UserInterface* ui);

  void Open(const JobDialogWorld& world);

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

  JobRecord ListOptions;   // what the next file gets
  JobRecord ShownOptions;  // of the entry that is shown
  LineFile shownFile;      // directory and size from its line
  DirectoryBrowser browser;
  JobList list;
  std::vector<std::string> information;
  std::vector<std::string> masks;
  int selectedMask = -1;
  int selectedFile = -1;         // in browser.files
  int selectedEntry = -1;        // in list
  int selectedInformation = -1;  // row of the information list
  std::string selectedName;      // of the entry last shown
  std::string restartCaption = kRestartButton;
  std::string conditionCaption = kConditionButton;
  int32_t SpindleOn = 0;
  int32_t SpindleSpeed = 1000;  // 1/min
  int32_t SlotIndex = 1;

 private:
  void FillMasks();
  void FillFromSlot();
  void InsertFile(std::optional<size_t> position);
  bool IsReadableProgram(const std::string& path);
  bool RefuseFrozen();
  std::optional<size_t> SelectedOrLast() const;
  void ShowLine(size_t index);
  void ShowInfo();
  void AddConditionRows();
  void ReplaceLine(size_t index, std::string line);
  void AddToKeyCodes(std::string* line);
  std::optional<size_t> SelectedWord(const std::string& line, std::string* word) const;
  void ReadListFile(const std::string& path, std::optional<char> driveLetter);
  std::string EnvironmentFile(const char* name) const;

  JobDialogWorld world_{};
  Files* files_;
  UserInterface* ui_;
  CSendOptionDlg sendOptions_;
  CRestartDlg restart_;
  CKeyCodeDlg keyPad_;
  CKeyCodeDlg maskPad_;
};

}  // namespace tvx
