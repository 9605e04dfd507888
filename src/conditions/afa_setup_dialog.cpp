// Sliders change the record at once; check boxes and edits are stored on acceptance.
#include "conditions/afa_setup_dialog.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "platform/number_field.h"

namespace tvx {

namespace {

bool AcceptEdit(const std::string& text, UserInterface* ui, int32_t* value) {
  return AcceptWholeNumber(text, ui, value);
}
bool AcceptEdit(const std::string& text, UserInterface* ui, float* value) {
  return AcceptNumber(text, ui, value);
}
bool AcceptEdit(const std::string& text, UserInterface* /*ui*/, std::string* value) {
  *value = text;
  return true;
}

float FeedOptions::*Weight(size_t slider) {
  return std::get<float FeedOptions::*>(WeightSliders()[slider]->member);
}

}  // namespace

std::span<const FeedField* const> WeightSliders() {
  static const auto kSliders = FieldsOfDialog(FeedDialog::kSetupSlider);
  return kSliders;
}

std::span<const FeedField* const> SetupEdits() {
  static const auto kEdits = FieldsOfDialog(FeedDialog::kSetupEdit);
  return kEdits;
}

void CAfaSetupDlg::Open(JobRecord* record) {
  job = record;
  // Each is ticked while the setting is in effect for the code that reads it.
  xyChgReduceTicked = job->XyChgReduceCheck != 0;
  feedChgSmoothTicked = job->FeedChgSmoothCheck == 1;
  editTexts.clear();
  for (const FeedField* const edit : SetupEdits()) {
    editTexts.push_back(ValueText(*job, *edit, ShortestFloat));
  }
}

int CAfaSetupDlg::Position(size_t slider) const {
  // In double precision: the float nearest to 0.7 is position 69.
  const double weight = job->*Weight(slider);
  return std::clamp(TruncateToInt(weight * 100), 0, kHighestPosition);
}

std::string CAfaSetupDlg::Caption(size_t slider, Language language) const {
  return WeightSliders()[slider]->caption.In(language) + Format("(%2.2f)", job->*Weight(slider));
}

void CAfaSetupDlg::ReleaseSlider(size_t slider, int position) {
  job->*Weight(slider) = static_cast<float>(std::clamp(position, 0, kHighestPosition) * 0.01);
}

void CAfaSetupDlg::ToggleMaster() {
  job->AfaByMaster = job->AfaByMaster != 1 && NamesMasterFile(job->AfaMasterFile) ? 1 : 0;
}

Closing CAfaSetupDlg::Accept() {
  FeedOptions accepted = *job;
  for (size_t i = 0; i < editTexts.size(); ++i) {
    const auto accept = [&](auto member) {
      return AcceptEdit(editTexts[i], ui_, &(accepted.*member));
    };
    refusedEdit = i;
    if (!std::visit(accept, SetupEdits()[i]->member)) return Closing::kStaysOpen;
  }
  refusedEdit.reset();
  static_cast<FeedOptions&>(*job) = accepted;
  job->XyChgReduceCheck = xyChgReduceTicked ? 1 : 0;
  job->FeedChgSmoothCheck = feedChgSmoothTicked ? 1 : 0;
  return Closing::kAccepted;
}

}  // namespace tvx
