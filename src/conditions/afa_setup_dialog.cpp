// Sliders change the record at once; check boxes and edits are stored on acceptance.
#include "conditions/afa_setup_dialog.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "platform/number_field.h"

namespace tvx {

namespace {

constexpr WeightSlider kSliders[] = {
    {"0도 가중치(%2.2f)", &JobRecord::CorWeight0},
    {"30도 가중치(%2.2f)", &JobRecord::CorWeight30},
    {"60도 가중치(%2.2f)", &JobRecord::CorWeight60},
    {"0도 가중치(%2.2f)", &JobRecord::SideWeight0},
    {"30도 가중치(%2.2f)", &JobRecord::SideWeight30},
    {"60도 가중치(%2.2f)", &JobRecord::SideWeight60},
};
static_assert(std::size(kSliders) == kWeightSliders);

}  // namespace

std::span<const WeightSlider, kWeightSliders> WeightSliders() {
  return kSliders;
}

void CAfaSetupDlg::Open(JobRecord* record) {
  job = record;
  // Each is ticked while the setting is in effect for the code that reads it.
  xyChgReduceTicked = job->XyChgReduceCheck != 0;
  feedChgSmoothTicked = job->FeedChgSmoothCheck == 1;
  feedChgAngText = Format("%d", job->FeedChgAng);
  zUpZDownText = ShortestFloat(job->ZupZdown);
}

int CAfaSetupDlg::Position(size_t slider) const {
  // In double precision: the float nearest to 0.7 is position 69.
  const double weight = job->*kSliders[slider].weight;
  return std::clamp(TruncateToInt(weight * 100), 0, kHighestPosition);
}

std::string CAfaSetupDlg::Caption(size_t slider) const {
  return Format(kSliders[slider].caption, job->*kSliders[slider].weight);
}

void CAfaSetupDlg::ReleaseSlider(size_t slider, int position) {
  job->*kSliders[slider].weight =
      static_cast<float>(std::clamp(position, 0, kHighestPosition) * 0.01);
}

void CAfaSetupDlg::ToggleMaster() {
  job->AfaByMaster = job->AfaByMaster != 1 && NamesMasterFile(job->AfaMasterFile) ? 1 : 0;
}

Closing CAfaSetupDlg::Accept() {
  int32_t feedStep = 0;
  float zRatio = 0;
  refusedField = "FeedChgAng";
  if (!AcceptWholeNumber(feedChgAngText, ui_, &feedStep)) return Closing::kStaysOpen;
  refusedField = "ZupZdown";
  if (!AcceptNumber(zUpZDownText, ui_, &zRatio)) return Closing::kStaysOpen;
  refusedField.clear();
  job->XyChgReduceCheck = xyChgReduceTicked ? 1 : 0;
  job->FeedChgSmoothCheck = feedChgSmoothTicked ? 1 : 0;
  job->FeedChgAng = feedStep;
  job->ZupZdown = zRatio;
  return Closing::kAccepted;
}

}  // namespace tvx
