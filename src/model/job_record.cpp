// The fields of a job record in their order, and copying by them.
#include "model/job_record.h"

#include <cmath>

#include "base/scan.h"
#include "model/option_fields.h"

namespace tvx {

namespace {

constexpr bool kStays = false;

JobField Feed(FeedMember member) {
  return ListField<JobField>(FieldOf(member));
}

// The fields in the order in which a record is printed.
std::vector<JobField> MakeFields() {
  std::vector<JobField> fields = {
      {"RapidFeed", &JobRecord::RapidFeed},
      {"InputFileType", &JobRecord::InputFileType},
      {"AfaEnabled", &JobRecord::AfaEnabled, kStays},
      {"FirstEditable", &JobRecord::FirstEditable, kStays},
      {"IntNcdataFlg", &JobRecord::IntNcdataFlg},
      Feed(&JobRecord::ToolDiameter),
      Feed(&JobRecord::SafetyDistance),
      Feed(&JobRecord::CornerMinAngle),
      Feed(&JobRecord::CornerMaxRatio),
      Feed(&JobRecord::SlopeMinAngle),
      Feed(&JobRecord::SlopeMaxRatio),
      Feed(&JobRecord::ConCorChk),
      Feed(&JobRecord::UpDownChk),
      Feed(&JobRecord::MaxFeed),
      Feed(&JobRecord::PlungeFeed),
      {"DeleteM30", &JobRecord::DeleteM30},
      {"KeyCodeOn", &JobRecord::KeyCodeOn},
      {"KeyCodeCount", &JobRecord::KeyCodeCount},
      {"MetafileCreateChk", &JobRecord::MetafileCreateChk},
      {"WorkDir", &JobRecord::WorkDir},
      Feed(&JobRecord::Material),
      {"NcdataExt", &JobRecord::NcdataExt},
      {"KeyCodeText", &JobRecord::KeyCodeText, kStays},
      {"ConditionDir", &JobRecord::ConditionDir, kStays},
      {"RapidShown", &JobRecord::RapidShown, kStays},
      {"FileNames", &JobRecord::FileNames},
      {"OptionLines", &JobRecord::OptionLines},
      {"KeyCodes", &JobRecord::KeyCodes},
      Feed(&JobRecord::FeedChgSmoothCheck),
      Feed(&JobRecord::XyChgReduceCheck),
      Feed(&JobRecord::FeedChgAng),
  };
  AppendOtherOptions(/*onlyOfResults=*/false, &fields);
  return fields;
}

// True if the text is one number with nothing after it.
bool IsWholeNumberText(std::string_view text) {
  WordScanner scanner(text);
  int32_t number = 0;
  std::string rest;
  return scanner.ReadInt(&number) && !scanner.ReadWord(&rest);
}

bool IsFiniteNumberText(std::string_view text) {
  WordScanner scanner(text);
  float number = 0;
  std::string rest;
  // The two conversions round differently near the end of the range.
  return scanner.ReadFloat(&number) && !scanner.ReadWord(&rest) && std::isfinite(TextToFloat(text));
}

}  // namespace

std::span<const JobField> JobFields() {
  static const std::vector<JobField> kFields = MakeFields();
  return kFields;
}

const JobField* FindJobField(std::string_view name) {
  for (const JobField& field : JobFields()) {
    if (name == field.name) return &field;
  }
  return nullptr;
}

bool SetJobField(JobRecord* record, std::string_view name, std::string_view text) {
  const JobField* field = FindJobField(name);
  if (field == nullptr) return false;
  if (const auto* whole = std::get_if<int32_t JobRecord::*>(&field->member)) {
    if (!IsWholeNumberText(text)) return false;
    record->** whole = TextToInt(text);
    return true;
  }
  if (const auto* real = std::get_if<float JobRecord::*>(&field->member)) {
    if (!IsFiniteNumberText(text)) return false;
    record->** real = TextToFloat(text);
    return true;
  }
  if (const auto* string = std::get_if<std::string JobRecord::*>(&field->member)) {
    record->** string = text;
    return true;
  }
  return false;
}

int CopyJobRecord(int /*index*/, JobRecord* destination, const JobRecord& source) {
  for (const JobField& field : JobFields()) {
    if (!field.isCopied) continue;
    std::visit([&](auto member) { destination->*member = source.*member; }, field.member);
  }
  return 1;
}

}  // namespace tvx
