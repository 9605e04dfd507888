// The table of a condition file, and its reader and writer.
#include "conditions/condition_file.h"

#include "base/text.h"

namespace tvx {

namespace {

using enum LineReading;

const ParameterLine kLines[] = {
    {"공구직경", &JobRecord::ToolDiameter, kByPlace},
    {"안전거리", &JobRecord::SafetyDistance, kByPlace},
    {"코너최소각도", &JobRecord::CornerMinAngle, kByPlace},
    {"코너최대감속비", &JobRecord::CornerMaxRatio, kByPlace},
    {"경사최소각도", &JobRecord::SlopeMinAngle, kByPlace},
    {"경사최대감속비", &JobRecord::SlopeMaxRatio, kByPlace},
    {"PlungeFeed", &JobRecord::PlungeFeed, kByPlace},
    {"최대피드", &JobRecord::MaxFeed, kByPlace},
    {"가공소재", &JobRecord::Material, kByPlace},
    // A condition does not switch the master model on or off.
    {"AfaByMaster", &JobRecord::AfaByMaster, kNever},
    {"ConCorChk", &JobRecord::ConCorChk, kByKey},
    {"UpDownChk", &JobRecord::UpDownChk, kByKey},
    {"FeedChgSmoothCheck", &JobRecord::FeedChgSmoothCheck, kByKey},
    {"XyChgReduceCheck", &JobRecord::XyChgReduceCheck, kByKey},
    {"FeedChgAng", &JobRecord::FeedChgAng, kByKey},
    {"CorWeight0", &JobRecord::CorWeight0, kByKey},
    {"CorWeight30", &JobRecord::CorWeight30, kByKey},
    {"CorWeight60", &JobRecord::CorWeight60, kByKey},
    {"SideWeight0", &JobRecord::SideWeight0, kByKey},
    {"SideWeight30", &JobRecord::SideWeight30, kByKey},
    {"SideWeight60", &JobRecord::SideWeight60, kByKey},
    {"ZupZdown", &JobRecord::ZupZdown, kByKey},
    {"SideCorRat", &JobRecord::SideCorRat, kByKey},
    {"Spindle", SpindleSpeed{}, kByKey},
};

}  // namespace

std::string DefaultConditionPath(const std::string& environmentDir) {
  return environmentDir + "\\afa\\tvx.afa";
}

bool IsConditionFile(std::string_view start) {
  return start.starts_with(EncodeCp949(kLines[0].key));
}

Status ReadConditionFile(const std::string& path, JobRecord* record, int32_t* spindle,
                         Files* files) {
  const Result<std::string> bytes = ReadSettings(files, path);
  if (!bytes.ok()) return bytes.status;
  const std::string text = DecodeCp949(bytes.value);
  WordScanner words(text);
  ReadLinesByPlace(kLines, &words, record, spindle);
  ReadLinesByKey(kLines, &words, record, spindle);
  return {};
}

Status WriteConditionFile(const std::string& path, const JobRecord& record, int32_t spindle,
                          Files* files) {
  return WriteWholeFile(files, path, PrintLines(kLines, record, spindle));
}

}  // namespace tvx
