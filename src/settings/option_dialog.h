// The dialog of the environment settings.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/job_record.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// The environment settings: those of the parameter file. The dialog has its own copy and stores it
// in the working record on acceptance.
class COptionDlg : public Dialog {
 public:
  static constexpr char kMetafileCreate[] = "그림화일 생성";
  static constexpr char kIntNcdata[] = "정수 Ncdata";
  static constexpr char kRapidFeed[] = "최소 급속이송";
  static constexpr char kNcdataExt[] = "NCDATA확장자";
  static constexpr char kSaveButton[] = "저장";
  static constexpr std::array<const char*, 5> kRapidFeeds = {"5000", "6000", "10000", "20000",
                                                             "30000"};  // mm/min
  static constexpr size_t kLongestExtension = 100;                      // characters

  COptionDlg(Files* files, UserInterface* ui) : files_(files), ui_(ui) {}

  // Copies the settings from the working record, which has to outlive the dialog.
  // `environmentDirectory` holds the parameter file.
  void Open(JobRecord* working, std::string_view environmentDirectory);

  // The check boxes: the first is ticked while MetafileCreateChk of `own` is 1, the second while
  // IntNcdataFlg is not 0.
  void ToggleMetafileCreate();
  void ToggleIntNcdata();

  // The entry of kRapidFeeds that is shown: the first that starts with the digits of RapidFeed, or
  // -1. Only a choice sets RapidFeed; otherwise it keeps its value, whatever the list shows.
  int ShownRapidFeed() const;
  void ChooseRapidFeed(size_t entry);

  // Stores the mask, cut to kLongestExtension characters.
  void EditNcdataExt(std::string_view text);

  // The button kSaveButton: writes the dialog's own settings to the parameter file, accepted or
  // not. A failure is shown in a message.
  void Save();

  // Copies the settings to the working record, except a feed step below 1. A cancel needs no
  // operation.
  Closing Accept();

  JobRecord own;  // only the fields of the parameter file are used

 private:
  Files* files_;
  UserInterface* ui_;
  JobRecord* working_ = nullptr;
  std::string environmentDirectory_;
};

}  // namespace tvx
