// The table of the fields of a result entry.
#include "model/result_entry.h"

namespace tvx {

namespace {

const EntryField kFields[] = {
    {"AfaEnabled", &CutTimeEntry::AfaEnabled},
    {"ConCorChk", &CutTimeEntry::ConCorChk},
    {"UpDownChk", &CutTimeEntry::UpDownChk},
    {"RapidFeed", &CutTimeEntry::RapidFeed},
    {"averageFeed", &CutTimeEntry::averageFeed},
    {"MaxFeed", &CutTimeEntry::MaxFeed},
    {"PlungeFeed", &CutTimeEntry::PlungeFeed},
    {"ToolDiameter", &CutTimeEntry::ToolDiameter},
    {"SafetyDistance", &CutTimeEntry::SafetyDistance},
    {"CornerMinAngle", &CutTimeEntry::CornerMinAngle},
    {"CornerMaxRatio", &CutTimeEntry::CornerMaxRatio},
    {"SlopeMinAngle", &CutTimeEntry::SlopeMinAngle},
    {"SlopeMaxRatio", &CutTimeEntry::SlopeMaxRatio},
    {"cutLength", &CutTimeEntry::cutLength},
    {"rapidLength", &CutTimeEntry::rapidLength},
    {"cutMinutes", &CutTimeEntry::cutMinutes},
    {"rapidMinutes", &CutTimeEntry::rapidMinutes},
    {"totalMinutes", &CutTimeEntry::totalMinutes},
    {"fileName", &CutTimeEntry::fileName},
    {"dirName", &CutTimeEntry::dirName},
    {"pictureName", &CutTimeEntry::pictureName},
    {"AfaMasterFile", &CutTimeEntry::AfaMasterFile},
    {"optionLine", &CutTimeEntry::optionLine},
    {"FeedChgSmoothCheck", &CutTimeEntry::FeedChgSmoothCheck},
    {"XyChgReduceCheck", &CutTimeEntry::XyChgReduceCheck},
    {"FeedChgAng", &CutTimeEntry::FeedChgAng},
    {"CorWeight0", &CutTimeEntry::CorWeight0},
    {"CorWeight30", &CutTimeEntry::CorWeight30},
    {"CorWeight60", &CutTimeEntry::CorWeight60},
    {"SideWeight0", &CutTimeEntry::SideWeight0},
    {"SideWeight30", &CutTimeEntry::SideWeight30},
    {"SideWeight60", &CutTimeEntry::SideWeight60},
    {"ZupZdown", &CutTimeEntry::ZupZdown},
    {"AfaByMaster", &CutTimeEntry::AfaByMaster},
    {"RestartOn", &CutTimeEntry::RestartOn},
    {"RestartKind", &CutTimeEntry::RestartKind},
    {"RestartNumber", &CutTimeEntry::RestartNumber},
    {"RestartZMax", &CutTimeEntry::RestartZMax},
    {"RestartZMin", &CutTimeEntry::RestartZMin},
    {"RestartX", &CutTimeEntry::RestartX},
    {"RestartY", &CutTimeEntry::RestartY},
    {"RestartZ", &CutTimeEntry::RestartZ},
    {"RestartTolerance", &CutTimeEntry::RestartTolerance},
};

}  // namespace

std::span<const EntryField> EntryFields() {
  return kFields;
}

void CopyOptions(const JobRecord& record, CutTimeEntry* entry) {
  static_cast<FeedOptions&>(*entry) = record;
  static_cast<RestartOptions&>(*entry) = record;
  entry->RapidFeed = record.RapidFeed;
}

}  // namespace tvx
