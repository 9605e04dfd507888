// The send options: the feed conditions of the files that the user is about to add to a job.
#pragma once

#include <string>
#include <string_view>

#include "base/message.h"
#include "conditions/afa_setup_dialog.h"
#include "conditions/auto_feed_dialog.h"
#include "model/job_record.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// States the conditions by the lowest and the highest feed, the two numbers that a machinist works
// with. The reduction ratios are derived from them.
//
// An object lives as long as its owner: only the first opening copies the whole source record.
// Later ones show what the last one left, and copy the fields that are not shown. The job dialog
// uses one for its list options, the command of a single cut time another for the working record.
class CSendOptionDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "전송 dialog";
  static constexpr char kMinFeed[] = "최저 피드";
  static constexpr char kTopFeed[] = "최대 피드";
  static constexpr char kSetupButton[] = "Set";
  static constexpr char kCalculatorButton[] = "GetFeed";
  static constexpr char kSpindle[] = "Spindle";  // ticked while SpindleOn is 1
  static constexpr char kConditionFileButton[] = "조건화일 :";
  static constexpr char kMasterButton[] = "MMA : ";

  CSendOptionDlg(Files* files, UserInterface* ui);

  // Opens for a source record, which is kept until the dialog closes.
  void Open(JobRecord* source);

  // Edits. Text that is no number counts as 0. A changed feed updates the ratios at once.
  void EditMinFeed(std::string_view text);
  void EditTopFeed(std::string_view text);
  void EditSpindleSpeed(std::string_view text);

  // Clicks on the check boxes. The first two are ticked while the field of `own` is 1.
  void ToggleConCorChk();
  void ToggleUpDownChk();
  void ToggleSpindle();

  // The button that shows conditionText: opens the machining condition.
  void OpenCondition();
  // The button that shows conditionFileCaption: reads a condition file over the own record.
  void ChooseConditionFile();
  // The button "Set": the finer settings.
  void OpenSetup();
  // The button that shows masterCaption: chooses the master model. A cancelled choice removes it.
  void ChooseMaster();
  // The button "GetFeed": the calculator. It starts with diameter and material, and its result sets
  // both, the highest feed and the spindle speed.
  void OpenCalculator();

  // "OK": copies the own record back and switches the adjustment on in both records. For a feed out
  // of range it shows a message, sets refusedField and stays open.
  Closing Accept();
  // "Cancel": switches the adjustment off in both records; the source's other fields stay.
  Closing Cancel();

  Language labelLanguage = Language::kKorean;  // of conditionText and conditionFileCaption
  JobRecord own;
  int32_t SpindleSpeed = 1000;  // 1/min; the job dialog sets and reads it, and SpindleOn
  int32_t SpindleOn = 0;
  // The texts of the controls. A face that shows them after an operation must not report them back
  // as edits.
  std::string minFeedText;
  std::string topFeedText;
  std::string spindleText;
  std::string conditionText;
  std::string conditionFileCaption = kConditionFileButton;
  std::string masterCaption = kMasterButton;
  std::string refusedField;  // "MinFeed" or "TopFeed", for the focus after a refusal

 private:
  void Refresh();
  void BuildConditionText();
  void DeriveSlopeRatio();
  void ShowFeedsOfCondition();
  void ShowSpindleSpeed();

  Files* files_;
  UserInterface* ui_;
  JobRecord* source_ = nullptr;
  int32_t minFeed_ = 0;         // mm/min
  int32_t topFeed_ = 0;         // mm/min
  bool optionsLoaded_ = false;  // the own record has been filled, and edits recompute
  CAutoFeedDlg condition_;
  CAfaSetupDlg setup_;
};

// The text of the job dialog's button for the conditions of a record.
std::string ConditionButtonText(const JobRecord& job, Language language);

}  // namespace tvx
