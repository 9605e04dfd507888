// The dialog of the finer feed settings.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/job_record.h"
#include "model/option_fields.h"
#include "platform/user_interface.h"

namespace tvx {

// The weights, each set by a slider. The first half belongs to the group kCornerGroup, the others
// to kSlopeGroup.
std::span<const FeedField* const> WeightSliders();

// The fields that are edited as text.
std::span<const FeedField* const> SetupEdits();

// The finer settings: weights, feed step, the two options of the feed's shape, and the switch of
// the master model. There is no private copy: the sliders and that switch change the caller's
// record at once, so a cancel does not undo them; the check boxes and edits are stored on
// acceptance.
class CAfaSetupDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "AFA 설정";
  static constexpr char kCornerGroup[] = "<< 코너 가중치 >>";
  static constexpr char kSlopeGroup[] = "<< 경사 가중치 >>";
  static constexpr int kHighestPosition = 100;  // of a slider; the lowest is 0

  explicit CAfaSetupDlg(UserInterface* ui) : ui_(ui) {}

  // Opens on the record itself, which has to outlive the dialog.
  void Open(JobRecord* record);

  // The position and the caption of a slider, by its index in WeightSliders.
  int Position(size_t slider) const;
  std::string Caption(size_t slider, Language language) const;
  // A slider was released at a position, which is limited to its range.
  void ReleaseSlider(size_t slider, int position);

  // A click on the switch of the master model. It turns on only with a master file.
  void ToggleMaster();

  // Stores the check boxes and edits. An edit that is no number is refused with a message and
  // becomes refusedEdit: the dialog then stays open and nothing is stored. A cancel needs no
  // operation.
  Closing Accept();

  JobRecord* job = nullptr;  // the caller's record
  bool xyChgReduceTicked = false;
  bool feedChgSmoothTicked = false;
  std::vector<std::string> editTexts;  // of SetupEdits
  std::optional<size_t> refusedEdit;   // where the focus goes after a refusal

 private:
  UserInterface* ui_;
};

}  // namespace tvx
