// The number fields of the calculator, and the step that each change runs.
#include "getfeed/calculator_dialog.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/format.h"
#include "base/scan.h"
#include "getfeed/condition_tables.h"
#include "platform/number_field.h"

namespace tvx {

namespace {

using State = GetFeedState;

constexpr CalculatorNumber kNumbers[] = {
    {"feedOut", "이송 속도", 1, 10000, &State::feedOut, nullptr},
    {"toolDiameter", "공구 직경", 0.1F, 1000, &State::toolDiameter, RecalcTool},
    {"toolLength", "공구 길이", 1, 1000, &State::toolLength, RecalcTool},
    {"cutDepth", "절삭 깊이", 0.1F, 100, &State::cutDepth, RecalcResult},
    {"spindleOut", "Spindle 회전수", 1, 100000, nullptr, nullptr},
    {"stepover", "Stepover", 0.1F, 100, &State::stepover, RecalcResult},
    {"fluteLength", "공구 날길이", 1, 1000, &State::fluteLength, RecalcTool},
    {"maxSpindle", "최대 회전수", 1, 1000000, &State::maxSpindle, RecalcResult},
    {"maxFeedRate", "최대 FEED", 1, 100000, &State::maxFeedRate, RecalcResult},
    {"ncPower", "NC POWER (KW)", 10, 1000000, &State::ncPower, RecalcResult},
    {"removalOut", "분당 절삭량", 0, 1000000, &State::removalOut, nullptr},
    {"idlePower", "무부하 POWER(KW)", 1, 10000, &State::idlePower, RecalcResult},
};
static_assert(std::size(kNumbers) == kCalculatorNumbers);

size_t PositionOf(const CalculatorNumber& number) {
  return static_cast<size_t>(&number - kNumbers);
}

std::vector<std::string> Sorted(std::span<const std::string_view> names) {
  std::vector<std::string> entries(names.begin(), names.end());
  std::ranges::sort(entries);
  return entries;
}

bool Contains(std::span<const std::string_view> names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

// Its blanks differ from those after the first change.
constexpr Message kFirstSpeed{"<<공구보호 -----(0)----- 가공속도>> ",
                              "<<Tool protection -----(0)----- Machining speed>> "};
constexpr Message kSpeed{"<< 공구보호 -----({percent})----- 가공속도>>",
                         "<< Tool protection -----({percent})----- Machining speed>>"};
constexpr Message kFeed{"<<고품질 -----({percent})----- 가공 속도>> ",
                        "<<High quality -----({percent})----- Machining speed>> "};

std::string FeedCaption(const UserInterface& ui, int percent) {
  return ui.Say(kFeed, {{"percent", percent - 100}});
}

int InPercentRange(int position) {
  return std::clamp(position, CGetFeedDlg::kLowestPercent, CGetFeedDlg::kHighestPercent);
}

// A text that is a whole number in the range of the sliders, and nothing else.
std::optional<int> SliderPosition(std::string_view text) {
  int position = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, position);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  if (position != InPercentRange(position)) return std::nullopt;
  return position;
}

}  // namespace

std::span<const CalculatorNumber, kCalculatorNumbers> CalculatorNumbers() {
  return kNumbers;
}

CGetFeedDlg::CGetFeedDlg(float toolDiameter, std::string_view material, UserInterface* ui)
    : speedCaption(ui->Say(kFirstSpeed)),
      feedCaption(FeedCaption(*ui, state.feedPercent)),
      ui_(ui) {
  state.toolDiameter = toolDiameter;
  if (IsWorkMaterial(material)) state.workMaterial = material;
  for (const CalculatorNumber& number : kNumbers) {
    if (number.recalculate != nullptr) {
      typed_[PositionOf(number)] = ShortestFloat(state.*number.field);
    }
  }
  StartCalculation(&state);
}

std::vector<std::string> CGetFeedDlg::WorkMaterialEntries() {
  return Sorted(WorkMaterials());
}

std::vector<std::string> CGetFeedDlg::ToolMaterialEntries() {
  return Sorted(ToolMaterials());
}

std::vector<std::string> CGetFeedDlg::FluteCountEntries() {
  return Sorted(FluteCounts());
}

std::string CGetFeedDlg::FluteCountText() const {
  return Format("%.0f", state.fluteCount);
}

bool CGetFeedDlg::SelectWorkMaterial(std::string_view entry) {
  if (!IsWorkMaterial(entry)) return false;
  state.workMaterial = entry;
  LookUpPower(&state);
  RecalcSpeed(&state);
  return true;
}

bool CGetFeedDlg::SelectToolMaterial(std::string_view entry) {
  if (!Contains(ToolMaterials(), entry)) return false;
  state.toolMaterial = entry;
  LookUpPower(&state);
  RecalcTool(&state);
  RecalcSpeed(&state);
  return true;
}

bool CGetFeedDlg::SelectFluteCount(std::string_view entry) {
  if (!Contains(FluteCounts(), entry)) return false;
  state.fluteCount = TextToFloat(entry);
  RecalcResult(&state);
  return true;
}

std::string CGetFeedDlg::NumberText(const CalculatorNumber& number) const {
  if (number.field == nullptr) return Format("%d", state.spindleOut);
  if (number.recalculate == nullptr) {
    return Format("%5.0f", state.*number.field);
  }
  return typed_[PositionOf(number)];
}

void CGetFeedDlg::EditNumber(const CalculatorNumber& number, std::string_view text) {
  if (number.recalculate == nullptr) return;
  typed_[PositionOf(number)] = text;
  state.*number.field = TextToFloat(text);
  number.recalculate(&state);
}

void CGetFeedDlg::ReleaseSpeedSlider(int position) {
  state.speedPercent = InPercentRange(position);
  RecalcSpeed(&state);
  speedCaption = ui_->Say(kSpeed, {{"percent", state.speedPercent - 100}});
}

void CGetFeedDlg::ReleaseFeedSlider(int position) {
  state.feedPercent = InPercentRange(position);
  RecalcResult(&state);
  feedCaption = FeedCaption(*ui_, state.feedPercent);
}

void CGetFeedDlg::ToggleHighSpeedRough() {
  state.highSpeedRough = state.highSpeedRough == 0 ? 1 : 0;
  RecalcToothFeed(&state);
}

bool CGetFeedDlg::Change(std::string_view field, std::string_view value) {
  if (field == "workMaterial") return SelectWorkMaterial(value);
  if (field == "toolMaterial") return SelectToolMaterial(value);
  if (field == "fluteCount") return SelectFluteCount(value);
  if (field == "speedPercent" || field == "feedPercent") {
    const std::optional<int> position = SliderPosition(value);
    if (!position) return false;
    field == "speedPercent" ? ReleaseSpeedSlider(*position) : ReleaseFeedSlider(*position);
    return true;
  }
  if (field == "highSpeedRough") {
    if (value != "0" && value != "1") return false;
    if (TextToInt(value) != state.highSpeedRough) ToggleHighSpeedRough();
    return true;
  }
  const auto* number = std::ranges::find(kNumbers, field, &CalculatorNumber::name);
  if (number == std::end(kNumbers) || number->recalculate == nullptr) return false;
  EditNumber(*number, value);
  return true;
}

Closing CGetFeedDlg::Accept() {
  for (const CalculatorNumber& number : kNumbers) {
    float value = 0;
    if (!AcceptNumber(NumberText(number), number.lowest, number.highest, ui_, &value)) {
      refusedField = number.name;
      return Closing::kStaysOpen;
    }
    // The caller gets the values as shown, so a feed is a whole number.
    if (number.field != nullptr) state.*number.field = value;
  }
  refusedField.clear();
  return Closing::kAccepted;
}

}  // namespace tvx
