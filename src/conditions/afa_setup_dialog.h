// The dialog of the finer feed settings.
#pragma once

#include <span>
#include <string>

#include "model/job_record.h"
#include "platform/user_interface.h"

namespace tvx {

// One weight of the feed of an angle, set by a slider.
struct WeightSlider {
  const char* caption;  // a format of the value
  float JobRecord::*weight;
};

// The first three belong to the group kCornerGroup, the others to kSlopeGroup.
inline constexpr size_t kWeightSliders = 6;
std::span<const WeightSlider, kWeightSliders> WeightSliders();

// The finer settings: weights, feed step, the two options of the feed's shape, and the switch of
// the master model. There is no private copy: the sliders and that switch change the caller's
// record at once, so a cancel does not undo them; the check boxes and edits are stored on
// acceptance.
class CAfaSetupDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "AFA 설정";
  static constexpr char kAfaByMaster[] = "Master에 의한 AFA ";  // ticked while AfaByMaster is 1
  static constexpr char kXyChgReduce[] = "AFA 전송시 XY변화 축소(0.3)";
  static constexpr char kFeedChgSmooth[] = "부드러운 피드 변화";
  static constexpr char kFeedChgAng[] = "피드 변화 단위";
  static constexpr char kZupZdown[] = "Z 상향 / Z 하향";
  static constexpr char kCornerGroup[] = "<< 코너 가중치 >>";
  static constexpr char kSlopeGroup[] = "<< 경사 가중치 >>";
  static constexpr int kHighestPosition = 100;  // of a slider; the lowest is 0

  explicit CAfaSetupDlg(UserInterface* ui) : ui_(ui) {}

  // Opens on the record itself, which has to outlive the dialog.
  void Open(JobRecord* record);

  // The position and the caption of a slider, by its index in WeightSliders.
  int Position(size_t slider) const;
  std::string Caption(size_t slider) const;
  // A slider was released at a position, which is limited to its range.
  void ReleaseSlider(size_t slider, int position);

  // A click on the switch of the master model. It turns on only with a master file.
  void ToggleMaster();

  // Stores the check boxes and edits. An edit that is no number is refused with a message, and
  // refusedField names it: the dialog then stays open and nothing is stored. A cancel needs no
  // operation.
  Closing Accept();

  JobRecord* job = nullptr;  // the caller's record
  bool xyChgReduceTicked = false;
  bool feedChgSmoothTicked = false;
  std::string feedChgAngText;  // a whole number, in mm/min
  std::string zUpZDownText;
  std::string refusedField;  // "FeedChgAng" or "ZupZdown": where the focus goes after a refusal

 private:
  UserInterface* ui_;
};

}  // namespace tvx
