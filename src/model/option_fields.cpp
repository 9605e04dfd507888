// The rows, and the text of a value.
#include "model/option_fields.h"

#include <stdexcept>

#include "base/format.h"

namespace tvx {

namespace {

using Options = FeedOptions;
using enum FeedDialog;
using enum FeedForm;
using enum LineReading;

constexpr ValueRange kOnOrOff = {0, 1};
constexpr ValueRange kShare = {0, 1};  // of the highest feed
constexpr double kHighestFeed = 100000;

// One row is one parameter; a new one comes last, so that columns and lines keep their places.
constexpr FeedField kFields[] = {
    {.name = "AfaEnabled", .member = &Options::AfaEnabled, .range = kOnOrOff},
    {.name = "ToolDiameter",
     .member = &Options::ToolDiameter,
     .unit = "mm",
     .conditionLine = {1, "공구직경", kByPlace},
     .dialog = kCondition,
     .caption = {"공구경로 공구 직경", "Tool path tool diameter"},
     .form = kValue,
     .word = "TD",
     .label = {"공구직경", "ToolDia"},
     .title = {"공구직경", "Tool diameter"}},
    {.name = "SafetyDistance",
     .member = &Options::SafetyDistance,
     .unit = "mm",
     .conditionLine = {2, "안전거리", kByPlace},
     .dialog = kCondition,
     .caption = {"안전거리", "Safety distance"},
     .form = kValue,
     .word = "SD",
     .label = {"안전거리", "SafeDist"},
     .title = {"안전거리", "Safety distance"}},
    {.name = "CornerMinAngle",
     .member = &Options::CornerMinAngle,
     .unit = "°",
     .conditionLine = {3, "코너최소각도", kByPlace},
     .dialog = kCondition,
     .caption = {"코너검색 최소각도", "Corner check minimum angle"},
     .form = kValue,
     .word = "CMIA",
     .label = {"코너최소각도", "CorChkMinAng"},
     .title = {"코너최소각도", "Corner minimum angle"}},
    {.name = "CornerMaxRatio",
     .member = &Options::CornerMaxRatio,
     .range = kShare,
     .conditionLine = {4, "코너최대감속비", kByPlace},
     .dialog = kCondition,
     .caption = {"코너 최대 감속비", "Corner maximum slow-down ratio"},
     .form = kValue,
     .word = "CMAR",
     .label = {"코너최대감속비", "CorMaxDecRat"},
     .title = {"코너최대감속비", "Corner lowest ratio"},
     .decimals = 2},
    {.name = "SlopeMinAngle",
     .member = &Options::SlopeMinAngle,
     .unit = "°",
     .conditionLine = {5, "경사최소각도", kByPlace},
     .dialog = kCondition,
     .caption = {"경사검색 최소각도", "Slope check minimum angle"},
     .form = kValue,
     .word = "SMIA",
     .label = {"경사최소각도", "SideChkMinAng"},
     .title = {"경사최소각도", "Slope minimum angle"}},
    {.name = "SlopeMaxRatio",
     .member = &Options::SlopeMaxRatio,
     .range = kShare,
     .conditionLine = {6, "경사최대감속비", kByPlace},
     .dialog = kCondition,
     .caption = {"경사 최대감속비", "Slope maximum slow-down ratio"},
     .form = kValue,
     .word = "SMAR",
     .label = {"경사최대감속비", "SideMaxDecRat"},
     .title = {"경사최대감속비", "Slope lowest ratio"},
     .decimals = 2},
    {.name = "ConCorChk",
     .member = &Options::ConCorChk,
     .range = kOnOrOff,
     .conditionLine = {11, "ConCorChk"},
     .caption = {"정삭", "Finishing"},
     .form = kSwitch,
     .word = "CCC",
     .label = {"볼록코너검색", "ConcornerCheck"},
     .title = {"볼록코너검색", "Convex corners"}},
    {.name = "UpDownChk",
     .member = &Options::UpDownChk,
     .range = kOnOrOff,
     .conditionLine = {12, "UpDownChk"},
     .caption = {"Z 상하향 검색", "Z up/down check"},
     .form = kSwitch,
     .word = "ZUDC",
     .label = {"Z상하향검색", "UpDownChk"},
     .title = {"Z상하향검색", "Z up and down"}},
    {.name = "Material",
     .member = &Options::Material,
     .conditionLine = {9, "가공소재", kByPlace},
     .dialog = kCondition,
     .caption = {"가공소재", "Work material"},
     .form = kValue,
     .word = "MAT",
     .label = {"가공소재", "MaterialName"},
     .isInResults = false},
    {.name = "MaxFeed",
     .member = &Options::MaxFeed,
     .unit = "mm/min",
     .range = {0, kHighestFeed},
     .conditionLine = {8, "최대피드", kByPlace},
     .dialog = kCondition,
     .caption = {"최대피드", "Maximum feed"},
     .form = kValue,
     .word = "MAF",
     .label = {"최대피드", "MaxFeed"},
     .title = {"최대피드", "Maximum feed"}},
    {.name = "PlungeFeed",
     .member = &Options::PlungeFeed,
     .unit = "mm/min",
     .conditionLine = {7, "PlungeFeed", kByPlace},
     .dialog = kCondition,
     .caption = {"공구 접근피드", "Plunge feed"},
     .form = kValue,
     .word = "AF",
     .label = {"접근피드", "PlungeFeed"},
     .title = {"접근피드", "Plunge feed"}},
    {.name = "CorWeight0",
     .member = &Options::CorWeight0,
     .range = kShare,
     .conditionLine = {16, "CorWeight0"},
     .parameterLine = {10, "CorWeight0", kNever},
     .dialog = kSetupSlider,
     .caption = {"0도 가중치", "0 deg weight"},
     .form = kValue,
     .word = "CW",
     .label = {"코너가중치", "CornerWeight"},
     .title = {"코너가중치 0, 30, 60°", "Corner weights"},
     .decimals = 2,
     .groupSize = 3},
    {.name = "CorWeight30",
     .member = &Options::CorWeight30,
     .range = kShare,
     .conditionLine = {17, "CorWeight30"},
     .parameterLine = {11, "CorWeight30", kNever},
     .dialog = kSetupSlider,
     .caption = {"30도 가중치", "30 deg weight"}},
    {.name = "CorWeight60",
     .member = &Options::CorWeight60,
     .range = kShare,
     .conditionLine = {18, "CorWeight60"},
     .parameterLine = {12, "CorWeight60", kNever},
     .dialog = kSetupSlider,
     .caption = {"60도 가중치", "60 deg weight"}},
    {.name = "SideWeight0",
     .member = &Options::SideWeight0,
     .range = kShare,
     .conditionLine = {19, "SideWeight0"},
     .parameterLine = {13, "SideWeight0", kNever},
     .dialog = kSetupSlider,
     .caption = {"0도 가중치", "0 deg weight"},
     .form = kValue,
     .word = "SW",
     .label = {"경사가중치", "SideWeight"},
     .title = {"경사가중치 0, 30, 60°", "Slope weights"},
     .decimals = 2,
     .groupSize = 3},
    {.name = "SideWeight30",
     .member = &Options::SideWeight30,
     .range = kShare,
     .conditionLine = {20, "SideWeight30"},
     .parameterLine = {14, "SideWeight30", kNever},
     .dialog = kSetupSlider,
     .caption = {"30도 가중치", "30 deg weight"}},
    {.name = "SideWeight60",
     .member = &Options::SideWeight60,
     .range = kShare,
     .conditionLine = {21, "SideWeight60"},
     .parameterLine = {15, "SideWeight60", kNever},
     .dialog = kSetupSlider,
     .caption = {"60도 가중치", "60 deg weight"}},
    {.name = "FeedChgSmoothCheck",
     .member = &Options::FeedChgSmoothCheck,
     .range = kOnOrOff,
     .conditionLine = {13, "FeedChgSmoothCheck"},
     .parameterLine = {7, "FeedChgSmoothCheck", kNever},
     .caption = {"부드러운 피드 변화", "Smooth feed changes"},
     .form = kSwitchIfOn,
     .word = "FCS",
     .label = {"부드러운 피드 변화", "SmoothFeed"},
     .title = {"부드러운 피드 변화", "Smooth feed change"}},
    {.name = "XyChgReduceCheck",
     .member = &Options::XyChgReduceCheck,
     .range = kOnOrOff,
     .conditionLine = {14, "XyChgReduceCheck"},
     .parameterLine = {8, "XyChgReduceCheck", kNever},
     .caption = {"AFA 전송시 XY변화 축소(0.3)", "Reduce XY changes in AFA sending(0.3)"},
     .form = kSwitchIfOn,
     .word = "XYR",
     .label = {"XY변화 축소", "XyChgReduceCheck"},
     .title = {"XY변화 축소", "XY change reduction"},
     .column = "XY변화 축소 ON"},
    {.name = "FeedChgAng",
     .member = &Options::FeedChgAng,
     .unit = "mm/min",
     .range = {.lowest = 1},
     .conditionLine = {15, "FeedChgAng"},
     .parameterLine = {9, "FeedChgAng", kNever},
     .dialog = kSetupEdit,
     .caption = {"피드 변화 단위", "Feed change step"}},
    {.name = "SideCorRat",
     .member = &Options::SideCorRat,
     .conditionLine = {23, "SideCorRat"},
     .isInResults = false},
    {.name = "ZupZdown",
     .member = &Options::ZupZdown,
     .conditionLine = {22, "ZupZdown"},
     .parameterLine = {16, "ZupZdown", kNever},
     .dialog = kSetupEdit,
     .caption = {"Z 상향 / Z 하향", "Z up / Z down"}},
    {.name = "AfaByMaster",
     .member = &Options::AfaByMaster,
     .range = kOnOrOff,
     .conditionLine = {10, "AfaByMaster", kNever},  // a condition does not switch the master model
     .parameterLine = {3, "AfaByMasterFlg", kNever},
     .caption = {"Master에 의한 AFA ", "AFA by master "},
     .form = kMaster,
     .word = "MMA",
     .label = {"MMA", "MMA"},
     .title = {"마스터 모델", "Master model"},
     .column = "마스타 화일 ",
     .groupSize = 2},
    {.name = "AfaMasterFile", .member = &Options::AfaMasterFile},
};

constexpr RestartField kRestartFields[] = {
    {"RestartOn", &RestartOptions::RestartOn},
    {"RestartKind", &RestartOptions::RestartKind},
    {"RestartNumber", &RestartOptions::RestartNumber, {"번호", "Number"}},
    {"RestartZMax", &RestartOptions::RestartZMax, {"Z 최대", "Z maximum"}},
    {"RestartZMin", &RestartOptions::RestartZMin, {"Z 최소", "Z minimum"}},
    {"RestartX", &RestartOptions::RestartX, {"X:", "X:"}},
    {"RestartY", &RestartOptions::RestartY, {"Y:", "Y:"}},
    {"RestartZ", &RestartOptions::RestartZ, {"Z:", "Z:"}},
    {"RestartTolerance", &RestartOptions::RestartTolerance, {"탐색 공차", "Search tolerance"}},
};

bool IsOn(const FeedOptions& options, const FeedField& field) {
  return options.*std::get<int32_t Options::*>(field.member) == 1;
}

}  // namespace

std::span<const FeedField> FeedFields() {
  return kFields;
}

std::span<const RestartField> RestartFields() {
  return kRestartFields;
}

const FeedField& FieldOf(FeedMember member) {
  for (const FeedField& field : kFields) {
    if (field.member == member) return field;
  }
  throw std::logic_error("a member of FeedOptions has no row in the table");
}

std::vector<const FeedField*> FieldsOfDialog(FeedDialog dialog) {
  std::vector<const FeedField*> fields;
  for (const FeedField& field : kFields) {
    if (field.dialog == dialog) fields.push_back(&field);
  }
  return fields;
}

std::span<const FeedField> GroupOf(const FeedField& field) {
  return {&field, field.groupSize};
}

bool UsesMaster(const FeedOptions& options) {
  return options.AfaByMaster == 1 && NamesMasterFile(options.AfaMasterFile);
}

std::string ValueText(const FeedOptions& options, const FeedField& field,
                      const std::function<std::string(float)>& floatText) {
  if (const auto* const real = std::get_if<float Options::*>(&field.member)) {
    return floatText(options.**real);
  }
  if (const auto* const whole = std::get_if<int32_t Options::*>(&field.member)) {
    return Format("%d", options.**whole);
  }
  return options.*std::get<std::string Options::*>(field.member);
}

std::string ValueText(const FeedOptions& options, const FeedField& field, int decimals) {
  return ValueText(options, field, [&](float value) { return Format("%.*f", decimals, value); });
}

bool IsShown(const FeedOptions& options, const FeedField& field) {
  switch (field.form) {
    case kHidden:
      return false;
    case kSwitchIfOn:
      return IsOn(options, field);
    case kMaster:
      return UsesMaster(options);
    default:
      return true;
  }
}

std::string ShownText(const FeedOptions& options, const FeedField& field, int decimals) {
  if (field.form == kMaster) return UsesMaster(options) ? options.AfaMasterFile : "OFF";
  if (field.form != kValue) return IsOn(options, field) ? "ON" : "OFF";
  if (field.groupSize == 1) return ValueText(options, field, decimals);
  std::string text;
  for (const FeedField& one : GroupOf(field)) text += ValueText(options, one, decimals) + " ";
  return text;
}

}  // namespace tvx
