// The logic of the send options: feeds, reduction ratios and the dialogs behind the buttons.

#include "jobs/send_options.h"

#include <algorithm>
#include <iterator>

#include "base/format.h"
#include "base/numbers.h"
#include "base/scan.h"
#include "getfeed/calculator_dialog.h"
#include "getfeed/condition_tables.h"
#include "model/option_fields.h"
#include "model/option_labels.h"
#include "platform/number_field.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

int32_t Toggled(int32_t check) {
  return check == 1 ? 0 : 1;
}

// The lowest feed of a condition, in single precision, as the feeds are shown.
int32_t LowestFeed(int32_t maxFeed, float ratio) {
  return TruncateToInt(static_cast<float>(maxFeed) * ratio);
}

// Of the lowest feed, too.
const ValueRange& FeedRange() {
  return FieldOf(&JobRecord::MaxFeed).range;
}

bool IsFeed(int32_t feed) {
  return feed >= FeedRange().lowest && feed <= FeedRange().highest;
}

// The user can choose the NC file from which the master model is to be built.
std::string WithMasterEnding(std::string path) {
  if (path.find("mma") == std::string::npos) path += ".mma";
  return path;
}

// The parameters that the texts of the buttons show: all with a single value that is always shown.
bool IsOnButton(const FeedField& field) {
  return field.form == FeedForm::kSwitch ||
         (field.form == FeedForm::kValue && field.groupSize == 1);
}

}  // namespace

CSendOptionDlg::CSendOptionDlg(Files* files, UserInterface* ui)
    : files_(files), ui_(ui), condition_(files, ui), setup_(ui) {}

void CSendOptionDlg::Open(JobRecord* source) {
  source_ = source;
  own.ConditionDir = source->ConditionDir;
  // Others change what the dialog does not show between two openings, and OK must not bring old
  // values back.
  const FeedOptions shown = own;
  CopyJobRecord(0, &own, *source);
  if (optionsLoaded_) {
    static_cast<FeedOptions&>(own) = shown;
  } else {
    own.PlungeFeed = own.MaxFeed;
    topFeed_ = own.MaxFeed;
    DeriveSlopeRatio();
    minFeed_ = LowestFeed(own.MaxFeed, own.CornerMaxRatio);
  }
  minFeedText = Format("%d", minFeed_);
  topFeedText = Format("%d", topFeed_);
  ShowSpindleSpeed();
  Refresh();
  conditionFileCaption = kConditionFileButton;
  masterCaption = kMasterButton;
  if (NamesMasterFile(own.AfaMasterFile)) masterCaption += own.AfaMasterFile;
}

void CSendOptionDlg::Refresh() {
  optionsLoaded_ = true;
  own.MaxFeed = topFeed_;
  if (topFeed_ > 0) {
    own.CornerMaxRatio = static_cast<float>(minFeed_) / static_cast<float>(topFeed_);
    DeriveSlopeRatio();
  }
  BuildConditionText();
}

void CSendOptionDlg::DeriveSlopeRatio() {
  own.SlopeMaxRatio =
      std::min(own.SideCorRat * own.CornerMaxRatio,
               static_cast<float>(FieldOf(&JobRecord::SlopeMaxRatio).range.highest));
}

void CSendOptionDlg::BuildConditionText() {
  const Language language = labelLanguage;
  conditionText = std::string(kConditionLabel.In(language)) + "\r\n";
  for (const FeedField& field : FeedFields()) {
    if (!IsOnButton(field)) continue;
    conditionText += "  " + LabelledText(own, field, field.decimals, language) + "\r\n";
  }
}

void CSendOptionDlg::EditMinFeed(std::string_view text) {
  minFeedText = text;
  minFeed_ = TextToInt(text);
  if (optionsLoaded_) Refresh();
}

void CSendOptionDlg::EditTopFeed(std::string_view text) {
  topFeedText = text;
  topFeed_ = TextToInt(text);
  if (optionsLoaded_) Refresh();
}

void CSendOptionDlg::EditSpindleSpeed(std::string_view text) {
  spindleText = text;
  SpindleSpeed = TextToInt(text);
}

void CSendOptionDlg::ToggleConCorChk() {
  own.ConCorChk = Toggled(own.ConCorChk);
}

void CSendOptionDlg::ToggleUpDownChk() {
  own.UpDownChk = Toggled(own.UpDownChk);
}

void CSendOptionDlg::ToggleSpindle() {
  SpindleOn = Toggled(SpindleOn);
}

void CSendOptionDlg::OpenCondition() {
  condition_.SpindleOn = SpindleOn;
  condition_.SpindleSpeed = SpindleSpeed;
  condition_.Open(&own);
  if (!ui_->RunModal(&condition_)) return;
  SpindleOn = condition_.SpindleOn;
  SpindleSpeed = condition_.SpindleSpeed;
  ShowSpindleSpeed();
  ShowFeedsOfCondition();
  BuildConditionText();
}

void CSendOptionDlg::ChooseConditionFile() {
  std::string fileName;
  conditionFileCaption = kConditionFileLabel.In(labelLanguage);
  conditionFileCaption += ": ";
  if (tvx::ChooseConditionFile(&own, &SpindleSpeed, files_, ui_, &fileName)) {
    ShowSpindleSpeed();
    conditionFileCaption += fileName;
  }
  BuildConditionText();
  ShowFeedsOfCondition();
}

void CSendOptionDlg::OpenSetup() {
  setup_.Open(&own);
  if (!ui_->RunModal(&setup_)) return;
  DeriveSlopeRatio();
  BuildConditionText();
}

void CSendOptionDlg::ChooseMaster() {
  std::string path;
  FileQuestion question;
  question.defaultExtension = "mma";
  question.fileName = own.WorkDir;
  question.filter =
      "Master file (*.mma)|*.mma|Ncdata file(*.nc, *.hnc, *.tap)|*.nc;*.hnc;*tap;|"
      "All file(*.*)|*.*||";
  const bool chosen = ui_->ChooseFile(question, &path);
  own.AfaMasterFile = chosen ? WithMasterEnding(path) : "";
  masterCaption = chosen ? kMasterButton + own.AfaMasterFile : "MMA :";
}

void CSendOptionDlg::OpenCalculator() {
  CGetFeedDlg calculator(own.ToolDiameter, own.Material, ui_);
  if (!ui_->RunModal(&calculator)) return;
  own.ToolDiameter = calculator.state.toolDiameter;
  own.Material = calculator.state.workMaterial;
  SpindleSpeed = calculator.state.spindleOut;
  ShowSpindleSpeed();
  EditTopFeed(Format("%5.0f", calculator.state.feedOut));
}

Closing CSendOptionDlg::Accept() {
  refusedField = !IsFeed(minFeed_) ? "MinFeed" : !IsFeed(topFeed_) ? "TopFeed" : "";
  if (!refusedField.empty()) {
    ShowRange(static_cast<float>(FeedRange().lowest), static_cast<float>(FeedRange().highest), ui_);
    return Closing::kStaysOpen;
  }
  CopyJobRecord(0, source_, own);
  own.AfaEnabled = 1;
  source_->AfaEnabled = 1;
  return Closing::kAccepted;
}

Closing CSendOptionDlg::Cancel() {
  own.AfaEnabled = 0;
  source_->AfaEnabled = 0;
  return Closing::kCancelled;
}

// Shows the feeds of a condition that was read or edited elsewhere; the smaller ratio determines
// the lowest feed. The ratios keep their values until the next edit of a feed.
void CSendOptionDlg::ShowFeedsOfCondition() {
  topFeed_ = own.MaxFeed;
  minFeed_ = LowestFeed(own.MaxFeed, std::min(own.CornerMaxRatio, own.SlopeMaxRatio));
  topFeedText = Format("%d", topFeed_);
  minFeedText = Format("%d", minFeed_);
}

void CSendOptionDlg::ShowSpindleSpeed() {
  spindleText = Format("%d", SpindleSpeed);
}

std::string ConditionButtonText(const JobRecord& job, Language language) {
  // After each parameter, and after all that follow.
  constexpr const char* kSeparators[] = {", ", "\r\n ", ", ", "\r\n ", ", ",   "\r\n ",
                                         " ",  "\r\n ", "  ", "\n ",   "\r\n "};
  std::string text = kConditionLabel.In(language);
  const char* before = " ";
  size_t next = 0;
  for (const FeedField& field : FeedFields()) {
    if (!IsOnButton(field)) continue;
    text += before + LabelledText(job, field, field.decimals, language);
    before = kSeparators[std::min(next++, std::size(kSeparators) - 1)];
  }
  return text;
}

}  // namespace tvx
