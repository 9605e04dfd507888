// The table of the fields of a result entry, and its copy of the options.
#include "model/result_entry.h"

namespace tvx {

namespace {

constexpr bool kOption = true;
constexpr bool kResult = false;

const EntryField kFields[] = {
    {"AfaEnabled", &CutTimeEntry::AfaEnabled, kOption},
    {"ConCorChk", &CutTimeEntry::ConCorChk, kOption},
    {"UpDownChk", &CutTimeEntry::UpDownChk, kOption},
    {"RapidFeed", &CutTimeEntry::RapidFeed, kOption},
    {"averageFeed", &CutTimeEntry::averageFeed, kResult},
    {"MaxFeed", &CutTimeEntry::MaxFeed, kOption},
    {"PlungeFeed", &CutTimeEntry::PlungeFeed, kOption},
    {"ToolDiameter", &CutTimeEntry::ToolDiameter, kOption},
    {"SafetyDistance", &CutTimeEntry::SafetyDistance, kOption},
    {"CornerMinAngle", &CutTimeEntry::CornerMinAngle, kOption},
    {"CornerMaxRatio", &CutTimeEntry::CornerMaxRatio, kOption},
    {"SlopeMinAngle", &CutTimeEntry::SlopeMinAngle, kOption},
    {"SlopeMaxRatio", &CutTimeEntry::SlopeMaxRatio, kOption},
    {"cutLength", &CutTimeEntry::cutLength, kResult},
    {"rapidLength", &CutTimeEntry::rapidLength, kResult},
    {"cutMinutes", &CutTimeEntry::cutMinutes, kResult},
    {"rapidMinutes", &CutTimeEntry::rapidMinutes, kResult},
    {"totalMinutes", &CutTimeEntry::totalMinutes, kResult},
    {"fileName", &CutTimeEntry::fileName, kResult},
    {"dirName", &CutTimeEntry::dirName, kResult},
    {"pictureName", &CutTimeEntry::pictureName, kResult},
    {"AfaMasterFile", &CutTimeEntry::AfaMasterFile, kOption},
    {"optionLine", &CutTimeEntry::optionLine, kResult},
    {"FeedChgSmoothCheck", &CutTimeEntry::FeedChgSmoothCheck, kOption},
    {"XyChgReduceCheck", &CutTimeEntry::XyChgReduceCheck, kOption},
    {"FeedChgAng", &CutTimeEntry::FeedChgAng, kOption},
    {"CorWeight0", &CutTimeEntry::CorWeight0, kOption},
    {"CorWeight30", &CutTimeEntry::CorWeight30, kOption},
    {"CorWeight60", &CutTimeEntry::CorWeight60, kOption},
    {"SideWeight0", &CutTimeEntry::SideWeight0, kOption},
    {"SideWeight30", &CutTimeEntry::SideWeight30, kOption},
    {"SideWeight60", &CutTimeEntry::SideWeight60, kOption},
    {"ZupZdown", &CutTimeEntry::ZupZdown, kOption},
    {"AfaByMaster", &CutTimeEntry::AfaByMaster, kOption},
    {"RestartOn", &CutTimeEntry::RestartOn, kOption},
    {"RestartKind", &CutTimeEntry::RestartKind, kOption},
    {"RestartNumber", &CutTimeEntry::RestartNumber, kOption},
    {"RestartZMax", &CutTimeEntry::RestartZMax, kOption},
    {"RestartZMin", &CutTimeEntry::RestartZMin, kOption},
    {"RestartX", &CutTimeEntry::RestartX, kOption},
    {"RestartY", &CutTimeEntry::RestartY, kOption},
    {"RestartZ", &CutTimeEntry::RestartZ, kOption},
    {"RestartTolerance", &CutTimeEntry::RestartTolerance, kOption},
};

}  // namespace

std::span<const EntryField> EntryFields() {
  return kFields;
}

void CopyOptions(const JobRecord& record, CutTimeEntry* entry) {
  for (const EntryField& field : kFields) {
    if (!field.copied) continue;
    const JobMember source = FindJobField(field.name)->member;
    std::visit(
        [&](auto member) {
          using Value = std::remove_reference_t<decltype(entry->*member)>;
          entry->*member = record.*std::get<Value JobRecord::*>(source);
        },
        field.member);
  }
}

}  // namespace tvx
