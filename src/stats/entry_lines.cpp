// The lines that describe a result, as reports and dialogs share them.
#include "stats/entry_lines.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/format.h"

namespace tvx {

namespace {

// A whole number follows two blanks.
const char* Gap(const FeedField& field) {
  if (field.form != FeedForm::kValue) return " ";
  if (std::holds_alternative<std::string FeedOptions::*>(field.member)) return ": ";
  return std::holds_alternative<int32_t FeedOptions::*>(field.member) ? "  " : " ";
}

std::string ConditionLine(const CutTimeEntry& entry, const FeedField& field,
                          const char* weightIndent) {
  // The lines of a result have one more blank after these labels.
  constexpr FeedMember kWide[] = {&CutTimeEntry::ToolDiameter, &CutTimeEntry::SafetyDistance,
                                  &CutTimeEntry::CornerMinAngle};
  const bool hasWeights = field.form == FeedForm::kValue && field.groupSize > 1;
  std::string line = LabelledText(entry, field, hasWeights ? field.decimals : 1, Language::kKorean);
  if (std::ranges::find(kWide, field.member) != std::end(kWide)) {
    line.insert(std::string_view(field.label.korean).size(), " ");
  }
  return hasWeights ? weightIndent + line : line;
}

}  // namespace

std::string RestartText(const RestartOptions& options) {
  switch (options.RestartKind) {
    case 1:
      return Format("재전송: 번호->%d", options.RestartNumber);
    case 2:
      return Format("재전송: 블록->%d", options.RestartNumber);
    case 3:
      return Format("재전송: Z영역->(%6.2f - %6.2f)", options.RestartZMin, options.RestartZMax);
    case 4:
      return Format("재전송: 좌표->XYZ(%6.2f, %6.2f, %6.2f)  공차->%6.2f  ", options.RestartX,
                    options.RestartY, options.RestartZ, options.RestartTolerance);
    default:
      return "";
  }
}

std::vector<std::string> RestartReportLines(const RestartOptions& options) {
  switch (options.RestartKind) {
    case 1:
      return {Format("재전송: 번호-> %d ", options.RestartNumber)};
    case 2:
      return {Format("재전송: 블록-> %d ", options.RestartNumber)};
    case 3:
      return {Format("재전송: Z영역->(%6.3f - %6.3f) ", options.RestartZMax, options.RestartZMin)};
    case 4:
      return {Format("재전송: 좌표->XYZ(%6.3f, %6.3f, %6.3f)", options.RestartX, options.RestartY,
                     options.RestartZ),
              Format("공차->%6.2f", options.RestartTolerance)};
    default:
      return {};
  }
}

std::vector<std::string> RestartLines(const RestartOptions& options) {
  if (options.RestartOn != 1) return {"Restart OFF"};
  std::vector<std::string> lines = {"Restart ON"};
  const std::string position = RestartText(options);
  if (!position.empty()) lines.push_back(position);
  return lines;
}

std::string LabelledText(const FeedOptions& options, const FeedField& field, int decimals,
                         Language language) {
  const std::string text =
      field.label.In(language) + (Gap(field) + ShownText(options, field, decimals));
  return field.form == FeedForm::kSwitchIfOn ? text + " " : text;
}

std::vector<std::string> ConditionLines(const CutTimeEntry& entry, const char* weightIndent) {
  if (entry.AfaEnabled != 1) return {"Afa Off"};
  std::vector<std::string> lines = {"Afa On"};
  for (const FeedField& field : FeedFields()) {
    if (!field.isInResults || !IsShown(entry, field)) continue;
    lines.push_back(ConditionLine(entry, field, weightIndent));
  }
  return lines;
}

std::vector<std::string> FigureLines(const CutTimeEntry& entry, int rapidLengthDecimals) {
  return {
      Format("절삭길이  %.3f M", Metres(entry.cutLength)),
      Format("절삭시간  %.1f min", entry.cutMinutes),
      Format("평균절삭속도  %d mm/min", entry.averageFeed),
      Format("급속이송속도  %d mm/min", entry.RapidFeed),
      Format("급속이송길이  %.*f M", rapidLengthDecimals, Metres(entry.rapidLength)),
      Format("급속이송시간 %.1f min", entry.rapidMinutes),
      Format("소요시간 %.1f min", entry.totalMinutes),
  };
}

std::string EnglishFigure(const std::string& line) {
  constexpr struct {
    std::string_view korean;
    const char* english;
  } kLabels[] = {
      {"절삭길이", "Cutting length"},
      {"절삭시간", "Cutting time"},
      {"평균절삭속도", "Average cutting feed"},
      {"급속이송속도", "Rapid feed"},
      {"급속이송길이", "Rapid length"},
      {"급속이송시간", "Rapid time"},
      {"소요시간", "Total time"},
  };
  for (const auto& label : kLabels) {
    if (line.starts_with(label.korean)) return label.english + line.substr(label.korean.size());
  }
  return line;
}

double Metres(float millimetres) {
  return static_cast<double>(millimetres) * 0.001F;
}

}  // namespace tvx
