// The table of the fields of a job record, and copying by it.
#include "model/job_record.h"

#include <cmath>

#include "base/scan.h"

namespace tvx {

namespace {

constexpr bool kCopied = true;
constexpr bool kStays = false;

const JobField kFields[] = {
    {"RapidFeed", &JobRecord::RapidFeed, kCopied},
    {"InputFileType", &JobRecord::InputFileType, kCopied},
    {"AfaEnabled", &JobRecord::AfaEnabled, kStays},
    {"FirstEditable", &JobRecord::FirstEditable, kStays},
    {"IntNcdataFlg", &JobRecord::IntNcdataFlg, kCopied},
    {"ToolDiameter", &JobRecord::ToolDiameter, kCopied},
    {"SafetyDistance", &JobRecord::SafetyDistance, kCopied},
    {"CornerMinAngle", &JobRecord::CornerMinAngle, kCopied},
    {"CornerMaxRatio", &JobRecord::CornerMaxRatio, kCopied},
    {"SlopeMinAngle", &JobRecord::SlopeMinAngle, kCopied},
    {"SlopeMaxRatio", &JobRecord::SlopeMaxRatio, kCopied},
    {"ConCorChk", &JobRecord::ConCorChk, kCopied},
    {"UpDownChk", &JobRecord::UpDownChk, kCopied},
    {"MaxFeed", &JobRecord::MaxFeed, kCopied},
    {"PlungeFeed", &JobRecord::PlungeFeed, kCopied},
    {"DeleteM30", &JobRecord::DeleteM30, kCopied},
    {"KeyCodeOn", &JobRecord::KeyCodeOn, kCopied},
    {"KeyCodeCount", &JobRecord::KeyCodeCount, kCopied},
    {"MetafileCreateChk", &JobRecord::MetafileCreateChk, kCopied},
    {"WorkDir", &JobRecord::WorkDir, kCopied},
    {"Material", &JobRecord::Material, kCopied},
    {"NcdataExt", &JobRecord::NcdataExt, kCopied},
    {"KeyCodeText", &JobRecord::KeyCodeText, kStays},
    {"ConditionDir", &JobRecord::ConditionDir, kStays},
    {"RapidShown", &JobRecord::RapidShown, kStays},
    {"FileNames", &JobRecord::FileNames, kCopied},
    {"OptionLines", &JobRecord::OptionLines, kCopied},
    {"KeyCodes", &JobRecord::KeyCodes, kCopied},
    {"FeedChgSmoothCheck", &JobRecord::FeedChgSmoothCheck, kCopied},
    {"XyChgReduceCheck", &JobRecord::XyChgReduceCheck, kCopied},
    {"FeedChgAng", &JobRecord::FeedChgAng, kCopied},
    {"CorWeight0", &JobRecord::CorWeight0, kCopied},
    {"CorWeight30", &JobRecord::CorWeight30, kCopied},
    {"CorWeight60", &JobRecord::CorWeight60, kCopied},
    {"SideWeight0", &JobRecord::SideWeight0, kCopied},
    {"SideWeight30", &JobRecord::SideWeight30, kCopied},
    {"SideWeight60", &JobRecord::SideWeight60, kCopied},
    {"SideCorRat", &JobRecord::SideCorRat, kCopied},
    {"ZupZdown", &JobRecord::ZupZdown, kCopied},
    {"AfaByMaster", &JobRecord::AfaByMaster, kCopied},
    {"AfaMasterFile", &JobRecord::AfaMasterFile, kCopied},
    {"RestartOn", &JobRecord::RestartOn, kCopied},
    {"RestartKind", &JobRecord::RestartKind, kCopied},
    {"RestartNumber", &JobRecord::RestartNumber, kCopied},
    {"RestartZMax", &JobRecord::RestartZMax, kCopied},
    {"RestartZMin", &JobRecord::RestartZMin, kCopied},
    {"RestartX", &JobRecord::RestartX, kCopied},
    {"RestartY", &JobRecord::RestartY, kCopied},
    {"RestartZ", &JobRecord::RestartZ, kCopied},
    {"RestartTolerance", &JobRecord::RestartTolerance, kCopied},
};

// True if the text is one number with nothing behind it.
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
  return kFields;
}

const JobField* FindJobField(std::string_view name) {
  for (const JobField& field : kFields) {
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
  for (const JobField& field : kFields) {
    if (!field.copied) continue;
    std::visit([&](auto member) { destination->*member = source.*member; }, field.member);
  }
  return 1;
}

}  // namespace tvx
