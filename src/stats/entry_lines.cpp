// The lines that describe a result, as reports and dialogs share them.
#include "stats/entry_lines.h"

#include <string_view>

#include "base/format.h"

namespace tvx {

namespace {

std::string WeightsText(float at0, float at30, float at60) {
  return Format("%3.2f %3.2f %3.2f ", at0, at30, at60);
}

}  // namespace

std::vector<std::string> RestartLines(const CutTimeEntry& entry) {
  if (entry.RestartOn != 1) return {"Restart OFF"};
  std::vector<std::string> lines = {"Restart ON"};
  switch (entry.RestartKind) {
    case 1:
      lines.push_back(Format("재전송: 번호->%d", entry.RestartNumber));
      break;
    case 2:
      lines.push_back(Format("재전송: 블록->%d", entry.RestartNumber));
      break;
    case 3:
      lines.push_back(
          Format("재전송: Z영역->(%6.2f - %6.2f)", entry.RestartZMin, entry.RestartZMax));
      break;
    case 4:
      lines.push_back(Format("재전송: 좌표->XYZ(%6.2f, %6.2f, %6.2f)  공차->%6.2f  ",
                             entry.RestartX, entry.RestartY, entry.RestartZ,
                             entry.RestartTolerance));
      break;
    default:
      break;
  }
  return lines;
}

std::vector<std::string> ConditionLines(const CutTimeEntry& entry, const char* weightIndent) {
  if (entry.AfaEnabled != 1) return {"Afa Off"};
  std::vector<std::string> lines = {
      "Afa On",
      Format("공구직경  %.1f", entry.ToolDiameter),
      Format("안전거리  %.1f", entry.SafetyDistance),
      Format("코너최소각도  %.1f", entry.CornerMinAngle),
      Format("코너최대감속비 %.1f", entry.CornerMaxRatio),
      Format("경사최소각도 %.1f", entry.SlopeMinAngle),
      Format("경사최대감속비 %.1f", entry.SlopeMaxRatio),
      Format("볼록코너검색 %s", OnOff(entry.ConCorChk)),
      Format("Z상하향검색 %s", OnOff(entry.UpDownChk)),
      Format("최대피드  %d", entry.MaxFeed),
      Format("접근피드  %d", entry.PlungeFeed),
      weightIndent + ("코너가중치 " + CornerWeightsText(entry)),
      weightIndent + ("경사가중치 " + SlopeWeightsText(entry)),
  };
  if (entry.FeedChgSmoothCheck == 1) lines.emplace_back("부드러운 피드 변화 ON ");
  if (entry.XyChgReduceCheck == 1) lines.emplace_back("XY변화 축소 ON ");
  if (entry.AfaByMaster == 1 && NamesMasterFile(entry.AfaMasterFile)) {
    lines.push_back("MMA " + entry.AfaMasterFile);
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

std::string CornerWeightsText(const CutTimeEntry& entry) {
  return WeightsText(entry.CorWeight0, entry.CorWeight30, entry.CorWeight60);
}

std::string SlopeWeightsText(const CutTimeEntry& entry) {
  return WeightsText(entry.SideWeight0, entry.SideWeight30, entry.SideWeight60);
}

double Metres(float millimetres) {
  return static_cast<double>(millimetres) * 0.001F;
}

}  // namespace tvx
