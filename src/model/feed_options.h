// The options that a job record has and a result keeps: those of the feed adjustment, and where the
// transfer of a file resumes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tvx {

// The parameters of the feed adjustment. docs/parameters.md describes each of them.
// Lengths in mm, feeds in mm/min, angles in degrees, ratios and weights are pure numbers.
struct FeedOptions {
  int32_t AfaEnabled = 0;  // 1: the feed pass runs for this file
  float ToolDiameter = 10.0F;
  float SafetyDistance = 5.0F;   // reach of the adjustment around a corner
  float CornerMinAngle = 10.0F;  // a corner counts only above this angle
  float CornerMaxRatio = 0.1F;   // lowest corner feed as a fraction of MaxFeed
  float SlopeMinAngle = 10.0F;
  float SlopeMaxRatio = 0.1F;
  int32_t ConCorChk = 1;      // 1: every corner of the Z profile counts, 0: only upward ones
  int32_t UpDownChk = 1;      // 1: falling moves take ZupZdown and slopes are held in their range
  int32_t MaxFeed = 1000;     // replaces all programmed feeds
  int32_t PlungeFeed = 1000;  // feed of a straight plunge that opens a run
  std::string Material = "STEEL(S45C)";
  int32_t FeedChgSmoothCheck = 0;  // 1: feed changes are drawn as ramps
  int32_t XyChgReduceCheck = 0;    // not 0: look distance of the XY search x 0.3
  int32_t FeedChgAng = 10;         // feed step, mm/min
  float CorWeight0 = 1.0F, CorWeight30 = 0.7F, CorWeight60 = 0.3F;
  float SideWeight0 = 1.0F, SideWeight30 = 0.7F, SideWeight60 = 0.3F;
  float SideCorRat = 1.0F;  // slope ratio / corner ratio
  float ZupZdown = 1.0F;    // factor on the feed of a falling move
  int32_t AfaByMaster = 0;  // 1: the feed pass also uses the master model
  std::string AfaMasterFile;
};

// The position at which the transfer of a file resumes after an interruption. Only the transfer
// program interprets it.
struct RestartOptions {
  int32_t RestartOn = 0;
  int32_t RestartKind = 0;      // 1 sequence number, 2 NC block, 3 Z area, 4 coordinate
  int32_t RestartNumber = 200;  // for kinds 1 and 2
  float RestartZMax = 200.0F, RestartZMin = -200.0F;
  float RestartX = 9999.0F, RestartY = 9999.0F, RestartZ = 9999.0F;  // all 9999: no point set
  float RestartTolerance = 1.5F;
};

// True if the path can name a master model: in the encoding of the files it has more than 4 bytes.
bool NamesMasterFile(std::string_view path);

}  // namespace tvx
