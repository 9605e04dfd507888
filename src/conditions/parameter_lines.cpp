// One overload per type of value prints, reads or converts it; the table selects them.
#include "conditions/parameter_lines.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/text.h"

namespace tvx {

namespace {

std::string Print(int32_t value) {
  return Format("%d", value);
}
std::string Print(float value) {
  return Format("%f", value);
}
std::string Print(const std::string& value) {
  return value.empty() ? std::string(kEmptyWord) : value;
}

bool ReadValue(WordScanner* words, int32_t* value) {
  return words->ReadInt(value);
}
bool ReadValue(WordScanner* words, float* value) {
  return words->ReadFloat(value);
}
bool ReadValue(WordScanner* words, std::string* value) {
  if (!words->ReadWord(value)) return false;
  if (*value == kEmptyWord) value->clear();
  return true;
}

void Convert(const std::string& word, int32_t* value) {
  *value = TextToInt(word);
}
void Convert(const std::string& word, float* value) {
  const float number = TextToFloat(word);
  if (std::isfinite(number)) *value = number;
}
void Convert(const std::string& word, std::string* value) {
  *value = word == kEmptyWord ? "" : word;
}

template <typename Value>
Value* Place(Value JobRecord::*member, JobRecord* record, int32_t*) {
  return &(record->*member);
}
int32_t* Place(SpindleSpeed, JobRecord*, int32_t* spindle) {
  return spindle;
}

std::string ValueText(const ParameterLine& line, const JobRecord& record, int32_t spindle) {
  return std::visit(
      [&](auto value) {
        if constexpr (std::is_same_v<decltype(value), SpindleSpeed>) {
          return Print(spindle);
        } else {
          return Print(record.*value);
        }
      },
      line.value);
}

const ParameterLine* FindByKey(std::span<const ParameterLine> lines, const std::string& key) {
  for (const ParameterLine& line : lines) {
    if (line.line.reading == LineReading::kByKey && EqualNoCase(line.line.key, key)) return &line;
  }
  return nullptr;
}

}  // namespace

std::vector<ParameterLine> LinesOfFile(std::vector<ParameterLine> own, FileLine FeedField::*file) {
  for (const FeedField& field : FeedFields()) {
    if ((field.*file).number == 0) continue;
    std::visit([&](auto member) { own.push_back({field.*file, member}); }, field.member);
  }
  std::ranges::sort(own, {}, [](const ParameterLine& line) { return line.line.number; });
  return own;
}

std::string PrintLines(std::span<const ParameterLine> lines, const JobRecord& record,
                       int32_t spindle) {
  std::string text;
  for (const ParameterLine& line : lines) {
    text += line.line.key;
    text += ' ';
    text += ValueText(line, record, spindle);
    text += "\r\n";
  }
  return EncodeCp949(text);
}

void ReadLinesByPlace(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                      int32_t* spindle) {
  for (const ParameterLine& line : lines) {
    if (line.line.reading != LineReading::kByPlace) continue;
    std::string key;
    if (!words->ReadWord(&key)) return;
    std::visit([&](auto value) { ReadValue(words, Place(value, record, spindle)); }, line.value);
  }
}

void ReadLinesByKey(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                    int32_t* spindle) {
  std::string key;
  std::string word;
  while (words->ReadWord(&key) && words->ReadWord(&word)) {
    const ParameterLine* line = FindByKey(lines, key);
    if (line == nullptr) continue;
    std::visit([&](auto value) { Convert(word, Place(value, record, spindle)); }, line->value);
  }
}

}  // namespace tvx
