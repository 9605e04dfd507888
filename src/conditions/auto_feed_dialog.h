// The dialog of the machining condition, and the choice of a condition file.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/job_record.h"
#include "model/option_fields.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// Asks for a condition file, starting in the record's ConditionDir, and reads it over the record.
// Returns true and sets *fileName, without directory. Returns false, with nothing changed, if the
// user cancels or the file cannot be opened.
bool ChooseConditionFile(JobRecord* job, int32_t* spindleSpeed, Files* files, UserInterface* ui,
                         std::string* fileName);

// The fields of the machining condition, each shown as text, in the order of a condition file.
std::span<const FeedField* const> AutoFeedFields();

// The machining condition: sizes, angles, ratios, feeds and material, with condition files. Edits a
// private copy of the caller's record.
class CAutoFeedDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "자동 피드 조정";
  static constexpr char kSaveButton[] = "조건저장";
  static constexpr char kFileButton[] = "가공조건 화일 :";

  CAutoFeedDlg(Files* files, UserInterface* ui) : files_(files), ui_(ui) {}

  // Opens on a private copy of the record. `target` has to outlive the dialog. Showing a float
  // rounds it to the three decimals shown, so an accepted dialog returns rounded values.
  void Open(JobRecord* target);

  // Stores the text of the field at an index of AutoFeedFields at once. Text that is no number
  // counts as 0.
  void Edit(size_t index, std::string_view text);

  // The button that names the condition file: reads one into the private record.
  void ReadFile();
  // The button kSaveButton: writes the private record. A failure, also for want of a chosen path,
  // is shown in a message.
  void SaveFile();

  // Copies the private record back. A cancel needs no operation.
  Closing Accept();

  JobRecord own;
  std::vector<std::string> texts;
  std::string fileCaption = kFileButton;
  // Set and read by the caller; reading a condition file sets the speed, in 1/min.
  int32_t SpindleOn = 0;
  int32_t SpindleSpeed = 1000;

 private:
  void ShowFields();

  Files* files_;
  UserInterface* ui_;
  JobRecord* target_ = nullptr;
};

}  // namespace tvx
