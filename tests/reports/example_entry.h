// Results for the tests of the reports.
#pragma once

#include <string>
#include <vector>

#include "evaluate/program_result.h"

namespace tvx {

// A result of the multi-file run with the feed adjustment off and no restart.
inline CutTimeEntry PlainEntry(const std::string& name,
                               const char* optionLine = "Dir c:\\marlo\\ncdata FS 20480 Afa OFF ") {
  CutTimeEntry entry;
  entry.fileName = name;
  entry.dirName = "c:\\marlo\\ncdata";
  entry.optionLine = optionLine;
  entry.RapidFeed = 15000;
  entry.averageFeed = 850;
  entry.cutLength = 12345.6F;
  entry.rapidLength = 987.65F;
  entry.cutMinutes = 14.567F;
  entry.rapidMinutes = 0.26F;
  entry.totalMinutes = 14.827F;
  return entry;
}

// A result with every option on.
inline CutTimeEntry AdjustedEntry(const std::string& name) {
  CutTimeEntry entry = PlainEntry(name);
  entry.pictureName = name + ".emf";
  entry.AfaEnabled = entry.AfaByMaster = entry.ConCorChk = entry.UpDownChk = 1;
  entry.FeedChgSmoothCheck = entry.XyChgReduceCheck = 1;
  entry.ToolDiameter = 16;
  entry.SafetyDistance = 3.26F;
  entry.CornerMinAngle = 12.5F;
  entry.CornerMaxRatio = 0.27F;
  entry.SlopeMinAngle = 15;
  entry.SlopeMaxRatio = 0.5F;
  entry.MaxFeed = 2400;
  entry.PlungeFeed = 400;
  entry.CorWeight0 = 1;
  entry.CorWeight30 = 0.65F;
  entry.CorWeight60 = 0.3F;
  entry.SideWeight0 = 0.9F;
  entry.SideWeight30 = 0.7F;
  entry.SideWeight60 = 12.345F;
  entry.AfaMasterFile = "c:\\die\\코아.mma";
  return entry;
}

inline std::vector<ProgramResult> ResultsOf(const std::vector<CutTimeEntry>& entries) {
  std::vector<ProgramResult> results;
  for (const CutTimeEntry& entry : entries) results.push_back({.entry = entry});
  return results;
}

}  // namespace tvx
