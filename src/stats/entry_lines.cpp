// The lines that describe a result, as reports and dialogs share them.
#include "stats/entry_lines.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/format.h"
#include "model/option_labels.h"

namespace tvx {

namespace {

constexpr Message kCutLength{"절삭길이", "Cutting length"};
constexpr Message kCutTime{"절삭시간", "Cutting time"};
constexpr Message kAverageFeed{"평균절삭속도", "Average cutting feed"};
constexpr Message kRapidFeed{"급속이송속도", "Rapid feed"};
constexpr Message kRapidLength{"급속이송길이", "Rapid length"};
constexpr Message kRapidTime{"급속이송시간", "Rapid time"};
constexpr Message kTotalTime{"소요시간", "Total time"};

// Values of RestartKind.
constexpr int32_t kSequenceNumber = 1;
constexpr int32_t kBlock = 2;
constexpr int32_t kZArea = 3;
constexpr int32_t kPoint = 4;

std::string Decimal(float value, int decimals) {
  return Format("%6.*f", decimals, value);
}

std::string ZArea(float from, float to, int decimals, Language language) {
  return Say(kRestartZArea, language,
             {{"from", Decimal(from, decimals)}, {"to", Decimal(to, decimals)}});
}

std::string Point(const RestartOptions& options, int decimals, Language language) {
  return Say(kRestartPoint, language,
             {{"x", Decimal(options.RestartX, decimals)},
              {"y", Decimal(options.RestartY, decimals)},
              {"z", Decimal(options.RestartZ, decimals)}});
}

std::string Tolerance(const RestartOptions& options, Language language) {
  return Say(kRestartTolerance, language, {{"tolerance", Decimal(options.RestartTolerance, 2)}});
}

// A whole number follows two blanks.
const char* Gap(const FeedField& field) {
  if (field.form != FeedForm::kValue) return " ";
  if (std::holds_alternative<std::string FeedOptions::*>(field.member)) return ": ";
  return std::holds_alternative<int32_t FeedOptions::*>(field.member) ? "  " : " ";
}

std::string ConditionLine(const CutTimeEntry& entry, const FeedField& field,
                          const char* weightIndent, Language language) {
  // The lines of a result have one more blank after these labels.
  constexpr FeedMember kWide[] = {&CutTimeEntry::ToolDiameter, &CutTimeEntry::SafetyDistance,
                                  &CutTimeEntry::CornerMinAngle};
  const bool hasWeights = field.form == FeedForm::kValue && field.groupSize > 1;
  std::string line = LabelledText(entry, field, hasWeights ? field.decimals : 1, language);
  if (std::ranges::find(kWide, field.member) != std::end(kWide)) {
    line.insert(std::string_view(field.label.In(language)).size(), " ");
  }
  return hasWeights ? weightIndent + line : line;
}

}  // namespace

std::string RestartPosition(const RestartOptions& options, Language language) {
  switch (options.RestartKind) {
    case kSequenceNumber:
      return Say(kRestartNumber, language, {{"number", options.RestartNumber}});
    case kBlock:
      return Say(kRestartBlock, language, {{"number", options.RestartNumber}});
    case kZArea:
      return ZArea(options.RestartZMin, options.RestartZMax, 2, language);
    case kPoint:
      return Point(options, 2, language) + "  " + Tolerance(options, language) + "  ";
    default:
      return "";
  }
}

std::vector<std::string> RestartReportLines(const RestartOptions& options, Language language) {
  const auto row = [language](const std::string& position) {
    return kRestartLabel.In(language) + (": " + position);
  };
  const std::string number = Format(" %d ", options.RestartNumber);
  switch (options.RestartKind) {
    case kSequenceNumber:
      return {row(Say(kRestartNumber, language, {{"number", number}}))};
    case kBlock:
      return {row(Say(kRestartBlock, language, {{"number", number}}))};
    case kZArea:
      return {row(ZArea(options.RestartZMax, options.RestartZMin, 3, language) + " ")};
    case kPoint:
      return {row(Point(options, 3, language)), Tolerance(options, language)};
    default:
      return {};
  }
}

std::vector<std::string> RestartLines(const RestartOptions& options, Language language) {
  if (options.RestartOn != 1) return {"Restart OFF"};
  const std::string position = RestartPosition(options, language);
  if (position.empty()) return {"Restart ON"};
  return {"Restart ON", kRestartLabel.In(language) + (": " + position)};
}

std::string LabelledText(const FeedOptions& options, const FeedField& field, int decimals,
                         Language language) {
  const std::string text =
      field.label.In(language) + (Gap(field) + ShownText(options, field, decimals));
  return field.form == FeedForm::kSwitchIfOn ? text + " " : text;
}

std::vector<std::string> ConditionLines(const CutTimeEntry& entry, const char* weightIndent,
                                        Language language) {
  if (entry.AfaEnabled != 1) return {"Afa Off"};
  std::vector<std::string> lines = {"Afa On"};
  for (const FeedField& field : FeedFields()) {
    if (!field.isInResults || !IsShown(entry, field)) continue;
    lines.push_back(ConditionLine(entry, field, weightIndent, language));
  }
  return lines;
}

std::vector<std::string> FigureLines(const CutTimeEntry& entry, int rapidLengthDecimals,
                                     Language language) {
  const auto line = [language](const Message& label, const std::string& value) {
    return label.In(language) + value;
  };
  return {
      line(kCutLength, Format("  %.3f M", Metres(entry.cutLength))),
      line(kCutTime, Format("  %.1f min", entry.cutMinutes)),
      line(kAverageFeed, Format("  %d mm/min", entry.averageFeed)),
      line(kRapidFeed, Format("  %d mm/min", entry.RapidFeed)),
      line(kRapidLength, Format("  %.*f M", rapidLengthDecimals, Metres(entry.rapidLength))),
      line(kRapidTime, Format(" %.1f min", entry.rapidMinutes)),
      line(kTotalTime, Format(" %.1f min", entry.totalMinutes)),
  };
}

double Metres(float millimetres) {
  return static_cast<double>(millimetres) * 0.001F;
}

}  // namespace tvx
