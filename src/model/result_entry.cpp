// The fields of a result entry in their order.
#include "model/result_entry.h"

#include <vector>

#include "model/option_fields.h"

namespace tvx {

namespace {

EntryField Feed(FeedMember member) {
  return ListField<EntryField>(FieldOf(member));
}

std::vector<EntryField> MakeFields() {
  std::vector<EntryField> fields = {
      Feed(&CutTimeEntry::AfaEnabled),
      Feed(&CutTimeEntry::ConCorChk),
      Feed(&CutTimeEntry::UpDownChk),
      {"RapidFeed", &CutTimeEntry::RapidFeed},
      {"averageFeed", &CutTimeEntry::averageFeed},
      Feed(&CutTimeEntry::MaxFeed),
      Feed(&CutTimeEntry::PlungeFeed),
      Feed(&CutTimeEntry::ToolDiameter),
      Feed(&CutTimeEntry::SafetyDistance),
      Feed(&CutTimeEntry::CornerMinAngle),
      Feed(&CutTimeEntry::CornerMaxRatio),
      Feed(&CutTimeEntry::SlopeMinAngle),
      Feed(&CutTimeEntry::SlopeMaxRatio),
      {"cutLength", &CutTimeEntry::cutLength},
      {"rapidLength", &CutTimeEntry::rapidLength},
      {"cutMinutes", &CutTimeEntry::cutMinutes},
      {"rapidMinutes", &CutTimeEntry::rapidMinutes},
      {"totalMinutes", &CutTimeEntry::totalMinutes},
      {"fileName", &CutTimeEntry::fileName},
      {"dirName", &CutTimeEntry::dirName},
      {"pictureName", &CutTimeEntry::pictureName},
      Feed(&CutTimeEntry::AfaMasterFile),
      {"optionLine", &CutTimeEntry::optionLine},
      Feed(&CutTimeEntry::FeedChgSmoothCheck),
      Feed(&CutTimeEntry::XyChgReduceCheck),
      Feed(&CutTimeEntry::FeedChgAng),
  };
  AppendOtherOptions(/*onlyOfResults=*/true, &fields);
  return fields;
}

}  // namespace

std::span<const EntryField> EntryFields() {
  static const std::vector<EntryField> kFields = MakeFields();
  return kFields;
}

void CopyOptions(const JobRecord& record, CutTimeEntry* entry) {
  static_cast<FeedOptions&>(*entry) = record;
  static_cast<RestartOptions&>(*entry) = record;
  entry->RapidFeed = record.RapidFeed;
}

}  // namespace tvx
