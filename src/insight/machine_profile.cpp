// Machine files: one table of keys serves reading, checking and writing.
#include "insight/machine_profile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <variant>
#include <vector>

#include "base/format.h"

namespace tvx {

namespace {

using AxesField = AxisValues MachineProfile::*;
using NumberField = double MachineProfile::*;
using SwitchField = bool MachineProfile::*;
using TextField = std::string MachineProfile::*;

struct Key {
  std::string_view name;
  std::variant<TextField, AxesField, NumberField, SwitchField> field;
  bool mayBeZero = false;
};

const Key kKeys[] = {
    {"Name", &MachineProfile::Name},
    {"RapidFeed", &MachineProfile::RapidFeed},
    {"CutFeed", &MachineProfile::CutFeed},
    {"Acceleration", &MachineProfile::Acceleration},
    {"CornerTolerance", &MachineProfile::CornerTolerance, true},
    {"BlockTime", &MachineProfile::BlockTime, true},
    {"StopAtRapids", &MachineProfile::StopAtRapids, true},
    {"ToolChange", &MachineProfile::ToolChange, true},
    {"Factor", &MachineProfile::Factor},
};

constexpr std::string_view kBlanks = " \t\r\f\v";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

using Fault = std::optional<MachineFileError>;

// A decimal number that fills the whole word.
Fault ParseNumber(std::string_view word, bool mayBeZero, double* value) {
  if (word.starts_with('+')) word.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (end != word.data() + word.size() || std::isnan(number)) return MachineFileError::kNotANumber;
  if (error == std::errc::result_out_of_range) return MachineFileError::kOutOfRange;
  if (error != std::errc()) return MachineFileError::kNotANumber;
  if (std::isinf(number) || number < 0 || (number == 0 && !mayBeZero)) {
    return MachineFileError::kOutOfRange;
  }
  *value = number;
  return {};
}

std::vector<std::string_view> WordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  while (true) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return words;
    text.remove_prefix(first);
    const size_t length = std::min(text.find_first_of(kBlanks), text.size());
    words.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
}

std::string_view Trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Sets one field of a profile from the text after its key.
struct FieldReader {
  std::string_view text;
  bool mayBeZero;
  MachineProfile* profile;

  Fault operator()(TextField field) const {
    if (text.empty()) return MachineFileError::kMissingValue;
    profile->*field = std::string(text);
    return {};
  }

  // One value for all axes, or one for each.
  Fault operator()(AxesField field) const {
    const std::vector<std::string_view> words = WordsOf(text);
    AxisValues& axes = profile->*field;
    if (words.size() > axes.size()) return MachineFileError::kTooManyValues;
    if (words.size() != 1 && words.size() != axes.size()) return MachineFileError::kMissingValue;
    for (size_t i = 0; i < words.size(); ++i) {
      if (const Fault error = ParseNumber(words[i], mayBeZero, &axes[i])) return error;
    }
    if (words.size() == 1) axes.fill(axes[0]);
    return {};
  }

  Fault operator()(NumberField field) const {
    const std::vector<std::string_view> words = WordsOf(text);
    if (words.empty()) return MachineFileError::kMissingValue;
    if (words.size() > 1) return MachineFileError::kTooManyValues;
    return ParseNumber(words[0], mayBeZero, &(profile->*field));
  }

  Fault operator()(SwitchField field) const {
    if (text.empty()) return MachineFileError::kMissingValue;
    if (text != "0" && text != "1") return MachineFileError::kOutOfRange;
    profile->*field = text == "1";
    return {};
  }
};

// The words of a field after its key.
struct FieldWriter {
  const MachineProfile& profile;

  std::string operator()(TextField field) const { return profile.*field; }
  std::string operator()(AxesField field) const {
    const AxisValues& axes = profile.*field;
    return ShortestDouble(axes[0]) + " " + ShortestDouble(axes[1]) + " " + ShortestDouble(axes[2]);
  }
  std::string operator()(NumberField field) const { return ShortestDouble(profile.*field); }
  std::string operator()(SwitchField field) const { return profile.*field ? "1" : "0"; }
};

const Key* FindKey(std::string_view name) {
  for (const Key& key : kKeys) {
    if (key.name == name) return &key;
  }
  return nullptr;
}

bool IsText(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' && kBlanks.find(c) == std::string_view::npos &&
           c != '\n';
  });
}

Message TextOf(MachineFileError error) {
  switch (error) {
    case MachineFileError::kCannotBeRead:
      return {"읽을 수 없습니다", "cannot be read"};
    case MachineFileError::kTooLarge:
      return {"기계 화일로는 너무 큽니다", "is too large for a machine file"};
    case MachineFileError::kNotText:
      return {"텍스트 화일이 아닙니다", "is no text file"};
    case MachineFileError::kUnknownKey:
      return {"없는 키입니다", "unknown key"};
    case MachineFileError::kDuplicateKey:
      return {"키가 두 번 나옵니다", "the key is set twice"};
    case MachineFileError::kMissingValue:
      return {"값이 없습니다", "a value is missing"};
    case MachineFileError::kTooManyValues:
      return {"값이 너무 많습니다", "too many values"};
    case MachineFileError::kNotANumber:
      return {"숫자가 아닙니다", "not a number"};
    case MachineFileError::kOutOfRange:
      return {"값이 범위를 벗어납니다", "value out of range"};
  }
  return {"", ""};
}

}  // namespace

std::string FaultText(const MachineFileFault& fault, Language language) {
  std::string text;
  if (fault.line > 0) {
    text += Say({"{line}번 줄: ", "line {line}: "}, language, {{"line", fault.line}});
  }
  if (!fault.key.empty()) text += fault.key + ": ";
  return text + TextOf(fault.error).In(language);
}

std::optional<MachineFileFault> ParseMachineProfile(std::string_view text, std::string_view name,
                                                    MachineProfile* profile) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (!IsText(text)) return MachineFileFault{MachineFileError::kNotText};
  MachineProfile read;
  read.Name = std::string(name);
  std::set<std::string_view> seen;
  for (int line = 1; !text.empty(); ++line) {
    const std::string_view whole = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(whole.size() + 1, text.size()));
    const std::string_view content = Trimmed(whole.substr(0, whole.find('#')));
    if (content.empty()) continue;

    const std::string_view word = content.substr(0, content.find_first_of(kBlanks));
    const auto fault = [&](MachineFileError error) {
      return MachineFileFault{error, line, std::string(word)};
    };
    const Key* const key = FindKey(word);
    if (key == nullptr) return fault(MachineFileError::kUnknownKey);
    if (!seen.insert(key->name).second) return fault(MachineFileError::kDuplicateKey);
    const FieldReader reader{Trimmed(content.substr(word.size())), key->mayBeZero, &read};
    if (const Fault error = std::visit(reader, key->field)) return fault(*error);
  }
  *profile = std::move(read);
  return {};
}

std::optional<MachineFileFault> ReadMachineProfile(const std::string& path, Files* files,
                                                   MachineProfile* profile) {
  if (files->Size(path) > kLargestMachineFile) {
    return MachineFileFault{MachineFileError::kTooLarge};
  }
  const Result<std::string> text = ReadSettings(files, path);
  if (!text.ok()) {
    return MachineFileFault{.error = MachineFileError::kCannotBeRead, .read = text.status};
  }
  const std::string name = path.substr(path.find_last_of("\\/:") + 1);
  return ParseMachineProfile(text.value, name, profile);
}

std::string MachineProfileText(const MachineProfile& profile) {
  std::string text;
  for (const Key& key : kKeys) {
    text += std::string(key.name) + " " + std::visit(FieldWriter{profile}, key.field) + "\n";
  }
  return text;
}

Status WriteMachineProfile(const std::string& path, const MachineProfile& profile, Files* files) {
  return WriteWholeFile(files, path, MachineProfileText(profile));
}

}  // namespace tvx
