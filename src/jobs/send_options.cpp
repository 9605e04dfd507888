// The logic of the send options: feeds, reduction ratios and the dialogs behind the buttons.

#include "jobs/send_options.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "base/scan.h"
#include "getfeed/calculator_dialog.h"
#include "getfeed/condition_tables.h"
#include "jobs/labels.h"
#include "platform/number_field.h"

namespace tvx {

namespace {

int32_t Toggled(int32_t check) {
  return check == 1 ? 0 : 1;
}

// The lowest feed of a condition, in single precision, as the feeds are shown.
int32_t LowestFeed(int32_t maxFeed, float ratio) {
  return TruncateToInt(static_cast<float>(maxFeed) * ratio);
}

bool IsFeed(int32_t feed) {
  return feed >= 0 && feed <= CSendOptionDlg::kHighestFeed;
}

// The user can choose the NC file from which the master model is to be built.
std::string WithMasterEnding(std::string path) {
  if (path.find("mma") == std::string::npos) path += ".mma";
  return path;
}

// The fields that the dialog neither shows nor changes. Others change them between two openings,
// and OK must not bring old ones back.
const JobMember kNotShown[] = {
    &JobRecord::RapidFeed,   &JobRecord::InputFileType,     &JobRecord::IntNcdataFlg,
    &JobRecord::DeleteM30,   &JobRecord::KeyCodeOn,         &JobRecord::KeyCodeCount,
    &JobRecord::KeyCodes,    &JobRecord::MetafileCreateChk, &JobRecord::WorkDir,
    &JobRecord::NcdataExt,   &JobRecord::FileNames,         &JobRecord::OptionLines,
    &JobRecord::RestartOn,   &JobRecord::RestartKind,       &JobRecord::RestartNumber,
    &JobRecord::RestartZMax, &JobRecord::RestartZMin,       &JobRecord::RestartX,
    &JobRecord::RestartY,    &JobRecord::RestartZ,          &JobRecord::RestartTolerance,
};

}  // namespace

CSendOptionDlg::CSendOptionDlg(Files* files, UserInterface* ui)
    : files_(files), ui_(ui), condition_(files, ui), setup_(ui) {}

void CSendOptionDlg::Open(JobRecord* source) {
  source_ = source;
  own.ConditionDir = source->ConditionDir;
  for (const JobMember& field : kNotShown) {
    std::visit([&](auto member) { own.*member = source->*member; }, field);
  }
  if (!optionsLoaded_) {
    CopyJobRecord(0, &own, *source);
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
  own.SlopeMaxRatio = std::min(own.SideCorRat * own.CornerMaxRatio, 1.0F);
}

void CSendOptionDlg::BuildConditionText() {
  conditionText = ReplaceLabels(
      Format("Afa조건:\r\n  공구직경 %3.1f\r\n  안전거리 %3.1f\r\n", own.ToolDiameter,
             own.SafetyDistance) +
          Format("  코너최소각도 %3.1f\r\n  코너최대감속비 %3.2f\r\n", own.CornerMinAngle,
                 own.CornerMaxRatio) +
          Format("  경사최소각도 %3.1f\r\n  경사최대감속비 %3.2f\r\n", own.SlopeMinAngle,
                 own.SlopeMaxRatio) +
          Format("  볼록코너검색 %s\r\n  Z상하향검색 %s\r\n", OnOff(own.ConCorChk),
                 OnOff(own.UpDownChk)) +
          Format("  가공소재: %s\r\n  최대피드  %d\r\n", own.Material.c_str(), own.MaxFeed) +
          Format("  접근피드  %d\r\n", own.PlungeFeed),
      labelLanguage);
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
  conditionFileCaption = "조건화일: ";
  if (tvx::ChooseConditionFile(&own, &SpindleSpeed, files_, ui_, &fileName)) {
    ShowSpindleSpeed();
    conditionFileCaption += fileName;
  }
  conditionFileCaption = ReplaceLabels(conditionFileCaption, labelLanguage);
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
    ShowRange(0, kHighestFeed, ui_);
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

std::string ConditionButtonText(const JobRecord& job, int32_t language) {
  return ReplaceLabels(
      Format("Afa조건: 공구직경 %3.1f, 안전거리 %3.1f\r\n", job.ToolDiameter, job.SafetyDistance) +
          Format(" 코너최소각도 %3.1f, 코너최대감속비 %3.2f\r\n", job.CornerMinAngle,
                 job.CornerMaxRatio) +
          Format(" 경사최소각도 %3.1f, 경사최대감속비 %3.2f\r\n", job.SlopeMinAngle,
                 job.SlopeMaxRatio) +
          Format(" 볼록코너검색 %s Z상하향검색 %s\r\n", OnOff(job.ConCorChk),
                 OnOff(job.UpDownChk)) +
          Format(" 가공소재: %s  최대피드  %d\n", job.Material.c_str(), job.MaxFeed) +
          Format(" 접근피드  %d", job.PlungeFeed),
      language);
}

}  // namespace tvx
