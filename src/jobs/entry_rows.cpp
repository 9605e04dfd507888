// Builds the rows of the information list from the record of an option line.

#include "jobs/entry_rows.h"

#include "base/format.h"
#include "jobs/labels.h"
#include "jobs/restart.h"

namespace tvx {

namespace {

using Rows = std::vector<std::string>;

// Some rows have one blank in front, and SlopeMaxRatio has one decimal fewer than CornerMaxRatio.
Rows ConditionRows(const JobRecord& job) {
  if (job.AfaEnabled != 1) return {"Afa OFF"};
  Rows rows = {
      "Afa ON",
      Format("  공구직경 %3.1f", job.ToolDiameter),
      Format("  안전거리 %3.1f", job.SafetyDistance),
      Format("  코너최소각도 %3.1f", job.CornerMinAngle),
      Format("  코너최대감속비 %3.2f", job.CornerMaxRatio),
      Format("  경사최소각도 %3.1f", job.SlopeMinAngle),
      Format("  경사최대감속비 %3.1f", job.SlopeMaxRatio),
      Format("  볼록코너검색 %s", OnOff(job.ConCorChk)),
      Format("  Z상하향검색 %s", OnOff(job.UpDownChk)),
      Format("  가공소재: %s", job.Material.c_str()),
      Format("  최대피드  %d", job.MaxFeed),
      Format(" 접근피드  %d", job.PlungeFeed),
      Format(" 코너가중치 %3.2f %3.2f %3.2f ", job.CorWeight0, job.CorWeight30, job.CorWeight60),
      Format(" 경사가중치 %3.2f %3.2f %3.2f ", job.SideWeight0, job.SideWeight30, job.SideWeight60),
  };
  if (job.FeedChgSmoothCheck == 1) rows.push_back("부드러운 피드 변화 ON ");
  if (job.XyChgReduceCheck == 1) rows.push_back("XY변화 축소 ON ");
  if (job.AfaByMaster == 1 && NamesMasterFile(job.AfaMasterFile)) {
    rows.push_back("MMA " + job.AfaMasterFile);
  }
  return rows;
}

}  // namespace

std::vector<std::string> EntryRows(const std::string& name, const LineFile& file,
                                   const JobRecord& options, int32_t language) {
  Rows rows = {ReplaceLabels(Format("화일명 : %s ", name.c_str()), language), file.currentDirectory,
               Format("FileSize %d Byte", file.fileSize)};
  if (options.DeleteM30 == 0) rows.push_back("M30 ON");
  rows.push_back(Format("Restart %s", OnOff(options.RestartOn)));
  const auto append = [&](const Rows& labelled) {
    for (const std::string& row : labelled) rows.push_back(ReplaceLabels(row, language));
  };
  if (options.RestartOn == 1) append(RestartInfoRows(options));
  append(ConditionRows(options));
  if (options.KeyCodeOn != 1) return rows;
  rows.push_back("Key Code");
  for (const std::string& word : options.KeyCodes) rows.push_back("  " + word);
  return rows;
}

}  // namespace tvx
