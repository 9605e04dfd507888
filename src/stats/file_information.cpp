#include "stats/file_information.h"

#include "platform/format.h"

namespace tvx {

namespace {

using Entry = CutTimeEntry;

struct Line {
  bool (*shown)(const Entry& entry);
  std::string (*text)(const Entry& entry);
};

bool Always(const Entry&) {
  return true;
}

bool RestartOn(const Entry& e) {
  return e.RestartOn == 1;
}
bool RestartOff(const Entry& e) {
  return !RestartOn(e);
}
template <int32_t kKind>
bool RestartBy(const Entry& e) {
  return RestartOn(e) && e.RestartKind == kKind;
}
bool RestartByNothingKnown(const Entry& e) {
  return RestartOn(e) && (e.RestartKind < 1 || e.RestartKind > 4);
}

bool AfaOn(const Entry& e) {
  return e.AfaEnabled == 1;
}
bool AfaOff(const Entry& e) {
  return !AfaOn(e);
}
bool Smooth(const Entry& e) {
  return AfaOn(e) && e.FeedChgSmoothCheck == 1;
}
bool XyReduced(const Entry& e) {
  return AfaOn(e) && e.XyChgReduceCheck == 1;
}
bool ByMaster(const Entry& e) {
  return AfaOn(e) && e.AfaByMaster == 1 && NamesMasterFile(e.AfaMasterFile);
}

const char* OnOff(int32_t check) {
  return check == 1 ? "ON" : "OFF";
}

double Metres(float millimetres) {
  return static_cast<double>(millimetres) * 0.001F;
}

const Line kLines[] = {
    {RestartOn, [](const Entry&) { return std::string("Restart ON"); }},
    {RestartBy<1>, [](const Entry& e) { return Format("재전송: 번호->%d", e.RestartNumber); }},
    {RestartBy<2>, [](const Entry& e) { return Format("재전송: 블록->%d", e.RestartNumber); }},
    {RestartBy<3>,
     [](const Entry& e) {
       return Format("재전송: Z영역->(%6.2f - %6.2f)", e.RestartZMin, e.RestartZMax);
     }},
    {RestartBy<4>,
     [](const Entry& e) {
       return Format("재전송: 좌표->XYZ(%6.2f, %6.2f, %6.2f)  공차->%6.2f  ", e.RestartX,
                     e.RestartY, e.RestartZ, e.RestartTolerance);
     }},
    {RestartByNothingKnown, [](const Entry&) { return std::string(); }},
    {RestartOff, [](const Entry&) { return std::string("Restart OFF"); }},

    {AfaOn, [](const Entry&) { return std::string("Afa On"); }},
    {AfaOn, [](const Entry& e) { return Format("공구직경  %.1f", e.ToolDiameter); }},
    {AfaOn, [](const Entry& e) { return Format("안전거리  %.1f", e.SafetyDistance); }},
    {AfaOn, [](const Entry& e) { return Format("코너최소각도  %.1f", e.CornerMinAngle); }},
    {AfaOn, [](const Entry& e) { return Format("코너최대감속비 %.1f", e.CornerMaxRatio); }},
    {AfaOn, [](const Entry& e) { return Format("경사최소각도 %.1f", e.SlopeMinAngle); }},
    {AfaOn, [](const Entry& e) { return Format("경사최대감속비 %.1f", e.SlopeMaxRatio); }},
    {AfaOn, [](const Entry& e) { return Format("볼록코너검색 %s", OnOff(e.ConCorChk)); }},
    {AfaOn, [](const Entry& e) { return Format("Z상하향검색 %s", OnOff(e.UpDownChk)); }},
    {AfaOn, [](const Entry& e) { return Format("최대피드  %d", e.MaxFeed); }},
    {AfaOn, [](const Entry& e) { return Format("접근피드  %d", e.PlungeFeed); }},
    {AfaOn,
     [](const Entry& e) {
       return Format(" 코너가중치 %3.2f %3.2f %3.2f ", e.CorWeight0, e.CorWeight30, e.CorWeight60);
     }},
    {AfaOn,
     [](const Entry& e) {
       return Format(" 경사가중치 %3.2f %3.2f %3.2f ", e.SideWeight0, e.SideWeight30,
                     e.SideWeight60);
     }},
    {Smooth, [](const Entry&) { return std::string("부드러운 피드 변화 ON "); }},
    {XyReduced, [](const Entry&) { return std::string("XY변화 축소 ON "); }},
    {ByMaster, [](const Entry& e) { return "MMA " + e.AfaMasterFile; }},
    {AfaOff, [](const Entry&) { return std::string("Afa Off"); }},

    {Always, [](const Entry& e) { return Format("절삭길이  %.3f M", Metres(e.cutLength)); }},
    {Always, [](const Entry& e) { return Format("절삭시간  %.1f min", e.cutMinutes); }},
    {Always, [](const Entry& e) { return Format("평균절삭속도  %d mm/min", e.averageFeed); }},
    {Always, [](const Entry& e) { return Format("급속이송속도  %d mm/min", e.RapidFeed); }},
    {Always, [](const Entry& e) { return Format("급속이송길이  %.1f M", Metres(e.rapidLength)); }},
    {Always, [](const Entry& e) { return Format("급속이송시간 %.1f min", e.rapidMinutes); }},
    {Always, [](const Entry& e) { return Format("소요시간 %.1f min", e.totalMinutes); }},
};

}  // namespace

std::vector<std::string> FileInformationLines(const CutTimeEntry& entry) {
  std::vector<std::string> lines;
  for (const Line& line : kLines) {
    if (line.shown(entry)) lines.push_back(line.text(entry));
  }
  return lines;
}

}  // namespace tvx
