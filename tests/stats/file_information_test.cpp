// The lines in which a result is shown before it is recorded.
#include "stats/file_information.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

CutTimeEntry Figures() {
  CutTimeEntry entry;
  entry.cutLength = 12345.6F;
  entry.cutMinutes = 7.26F;
  entry.averageFeed = 1702;
  entry.RapidFeed = 5000;
  entry.rapidLength = 950.4F;
  entry.rapidMinutes = 0.19F;
  entry.totalMinutes = 7.44F;
  return entry;
}

TEST(FileInformation, WithoutOptionsNineLines) {
  EXPECT_EQ(FileInformationLines(Figures()),
            (Lines{"Restart OFF", "Afa Off", "절삭길이  12.346 M", "절삭시간  7.3 min",
                   "평균절삭속도  1702 mm/min", "급속이송속도  5000 mm/min", "급속이송길이  1.0 M",
                   "급속이송시간 0.2 min", "소요시간 7.4 min"}));
}

TEST(FileInformation, WithEverythingOn) {
  CutTimeEntry entry = Figures();
  entry.RestartOn = 1;
  entry.RestartKind = 4;
  entry.RestartX = 1.5F;
  entry.RestartY = -20;
  entry.RestartZ = 9999;
  entry.RestartTolerance = 1.5F;
  entry.AfaEnabled = 1;
  entry.ToolDiameter = 10;
  entry.SafetyDistance = 5;
  entry.CornerMinAngle = 12.34F;
  entry.CornerMaxRatio = 0.1F;
  entry.SlopeMinAngle = 15;
  entry.SlopeMaxRatio = 0.26F;
  entry.ConCorChk = 1;
  entry.UpDownChk = 2;
  entry.MaxFeed = 2400;
  entry.PlungeFeed = 400;
  entry.CorWeight0 = 1;
  entry.CorWeight30 = 0.7F;
  entry.CorWeight60 = 0.3F;
  entry.SideWeight0 = 0.95F;
  entry.SideWeight30 = 0.65F;
  entry.SideWeight60 = 12.5F;
  entry.FeedChgSmoothCheck = 1;
  entry.XyChgReduceCheck = 1;
  entry.AfaByMaster = 1;
  entry.AfaMasterFile = "c:\\금형.mma";
  EXPECT_EQ(FileInformationLines(entry),
            (Lines{"Restart ON",
                   "재전송: 좌표->XYZ(  1.50, -20.00, 9999.00)  공차->  1.50  ",
                   "Afa On",
                   "공구직경  10.0",
                   "안전거리  5.0",
                   "코너최소각도  12.3",
                   "코너최대감속비 0.1",
                   "경사최소각도 15.0",
                   "경사최대감속비 0.3",
                   "볼록코너검색 ON",
                   "Z상하향검색 OFF",
                   "최대피드  2400",
                   "접근피드  400",
                   " 코너가중치 1.00 0.70 0.30 ",
                   " 경사가중치 0.95 0.65 12.50 ",
                   "부드러운 피드 변화 ON ",
                   "XY변화 축소 ON ",
                   "MMA c:\\금형.mma",
                   "절삭길이  12.346 M",
                   "절삭시간  7.3 min",
                   "평균절삭속도  1702 mm/min",
                   "급속이송속도  5000 mm/min",
                   "급속이송길이  1.0 M",
                   "급속이송시간 0.2 min",
                   "소요시간 7.4 min"}));
}

TEST(FileInformation, KindsOfRestart) {
  struct {
    int32_t on;
    int32_t kind;
    Lines head;
  } const cases[] = {
      {1, 1, {"Restart ON", "재전송: 번호->200", "Afa Off"}},
      {1, 2, {"Restart ON", "재전송: 블록->200", "Afa Off"}},
      {1, 3, {"Restart ON", "재전송: Z영역->(-200.00 -  12.50)", "Afa Off"}},
      {1, 0, {"Restart ON", "", "Afa Off"}},
      {1, 5, {"Restart ON", "", "Afa Off"}},
      {2, 1, {"Restart OFF", "Afa Off"}},
  };
  for (const auto& c : cases) {
    CutTimeEntry entry;
    entry.RestartOn = c.on;
    entry.RestartKind = c.kind;
    entry.RestartNumber = 200;
    entry.RestartZMin = -200;
    entry.RestartZMax = 12.5F;
    Lines lines = FileInformationLines(entry);
    lines.resize(lines.size() - 7);  // the figures
    EXPECT_EQ(lines, c.head) << c.on << " " << c.kind;
  }
}

// Each of these lines needs the feed adjustment, and its switch to be exactly 1.
TEST(FileInformation, SwitchesOfTheAdjustment) {
  struct {
    int32_t afa, smooth, reduce, byMaster;
    const char* master;
    size_t lines;
  } const cases[] = {
      {0, 1, 1, 1, "c:\\a.mma", 9},  {1, 0, 0, 0, "c:\\a.mma", 21},
      {1, 1, 0, 0, "", 22},          {1, 0, 1, 0, "", 22},
      {1, 2, 2, 2, "c:\\a.mma", 21}, {1, 0, 0, 1, "c:\\a", 21},
      {1, 0, 0, 1, "c:\\ab", 22},    {2, 1, 1, 1, "c:\\a.mma", 9},
      {1, 0, 0, 1, "c:금", 21},  // four bytes in a file
  };
  for (const auto& c : cases) {
    CutTimeEntry entry;
    entry.AfaEnabled = c.afa;
    entry.FeedChgSmoothCheck = c.smooth;
    entry.XyChgReduceCheck = c.reduce;
    entry.AfaByMaster = c.byMaster;
    entry.AfaMasterFile = c.master;
    EXPECT_EQ(FileInformationLines(entry).size(), c.lines)
        << c.afa << c.smooth << c.reduce << c.byMaster << " " << c.master;
  }
}

}  // namespace
}  // namespace tvx
