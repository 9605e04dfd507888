// Writes an option line from a record and parses one into a record, the conditions by the table of
// their parameters.

#include "jobs/option_line.h"

#include <algorithm>
#include <span>

#include "base/format.h"
#include "base/scan.h"
#include "base/text.h"
#include "jobs/key_code_lines.h"
#include "model/option_fields.h"

namespace tvx {

namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";
constexpr size_t kScanBytes = 100;      // of the line that the scan of one token sees
constexpr size_t kShortestKeyText = 2;  // bytes of the file

using Float = float RestartOptions::*;

constexpr Float kZArea[] = {&JobRecord::RestartZMax, &JobRecord::RestartZMin};
constexpr Float kPoint[] = {&JobRecord::RestartX, &JobRecord::RestartY, &JobRecord::RestartZ};

// The word of the master model, which others look for, too.
std::string MasterWord() {
  return FieldOf(&JobRecord::AfaByMaster).word;
}

// Writing: the text of one parameter, empty if it is left out.
std::string ConditionText(const JobRecord& job, const FeedField& field) {
  if (field.word == nullptr || !IsShown(job, field)) return "";
  std::string text = field.word + std::string(" ");
  if (field.form != FeedForm::kValue) return text + ShownText(job, field, field.decimals) + " ";
  for (const FeedField& one : GroupOf(field)) text += ValueText(job, one, field.decimals) + " ";
  return text;
}

// The parameters in the order of their table. The switches that are left out while they are off
// come last.
std::string ConditionsText(const JobRecord& job) {
  std::string text, switches;
  for (const FeedField& field : FeedFields()) {
    (field.form == FeedForm::kSwitchIfOn ? switches : text) += ConditionText(job, field);
  }
  return text + switches;
}

std::string RestartText(const JobRecord& job) {
  if (job.RestartOn != 1) return "RT OFF ";
  std::string text = "RT ON " + Format(" %d ", job.RestartKind);
  const auto add = [&](std::span<const Float> fields) {
    for (const Float field : fields) text += Format(" %6.3f", job.*field);
    text += " ";
  };
  switch (job.RestartKind) {
    case 1:
    case 2:
      text += Format(" %d ", job.RestartNumber);
      break;
    case 3:
      add(kZArea);
      break;
    case 4:
      add(kPoint);
      break;
    default:
      break;
  }
  return text;
}

// Reading.

bool Holds(std::string_view line, std::string_view text) {
  return line.find(text) != std::string_view::npos;
}

bool IsWhite(char c) {
  return kWhite.find(c) != std::string_view::npos;
}

// The part of a line that the scan of a token reads: kScanBytes, counted in the file's encoding,
// and the rest of a word that this limit would cut.
std::string_view ScanWindow(std::string_view text) {
  size_t end = 0;
  for (size_t bytes = 0; end < text.size() && bytes < kScanBytes;) {
    // A character of two or three bytes in UTF-8 has two in the file. ASCII, and the four-byte
    // character that replaces an undecodable byte, has one.
    const auto lead = static_cast<unsigned char>(text[end]);
    bytes += lead < 0x80 || lead >= 0xF0 ? 1 : 2;
    end = CharacterEnd(text, end);
  }
  if (end == 0 || IsWhite(text[end - 1])) return text.substr(0, end);
  while (end < text.size() && !IsWhite(text[end])) ++end;
  return text.substr(0, end);
}

// A scanner after the first occurrence of a search text, which is that many words long.
std::optional<WordScanner> ScanBehind(std::string_view line, std::string_view searchText,
                                      int words) {
  const size_t at = line.find(searchText);
  if (at == std::string_view::npos) return std::nullopt;
  WordScanner scanner(ScanWindow(line.substr(at)));
  std::string ownWord;
  for (int i = 0; i < words; ++i) scanner.ReadWord(&ownWord);
  return scanner;
}

// Stops at the first value that cannot be read.
void ReadDecimals(WordScanner* scanner, std::span<const Float> fields, JobRecord* job) {
  for (const Float field : fields) {
    if (!scanner->ReadFloat(&(job->*field))) return;
  }
}

bool ReadValue(WordScanner* scanner, int32_t* value) {
  return scanner->ReadInt(value);
}
bool ReadValue(WordScanner* scanner, float* value) {
  return scanner->ReadFloat(value);
}
bool ReadValue(WordScanner* scanner, std::string* value) {
  return scanner->ReadWord(value);
}

void ReadMaster(std::optional<WordScanner> scanner, JobRecord* job) {
  job->AfaByMaster = scanner ? 1 : 0;
  if (scanner) scanner->ReadWord(&job->AfaMasterFile);
}

// Stops at the first value that cannot be read.
void ReadValues(std::optional<WordScanner> scanner, const FeedField& field, JobRecord* job) {
  if (!scanner) return;
  for (const FeedField& one : GroupOf(field)) {
    const auto read = [&](auto member) { return ReadValue(&*scanner, &(job->*member)); };
    if (!std::visit(read, one.member)) return;
  }
}

void ReadCondition(std::string_view line, const FeedField& field, JobRecord* job) {
  const std::string word = " " + std::string(field.word) + " ";
  switch (field.form) {
    case FeedForm::kSwitch:
    case FeedForm::kSwitchIfOn:
      job->*std::get<int32_t FeedOptions::*>(field.member) = Holds(line, word + "ON ") ? 1 : 0;
      break;
    case FeedForm::kMaster:
      ReadMaster(ScanBehind(line, word, 1), job);
      break;
    default:
      ReadValues(ScanBehind(line, word, 1), field, job);
      break;
  }
}

void ReadRestart(std::string_view line, JobRecord* job) {
  auto scanner = ScanBehind(line, "RT ON", 2);
  job->RestartOn = scanner ? 1 : 0;
  if (!scanner || !scanner->ReadInt(&job->RestartKind)) return;
  switch (job->RestartKind) {
    case 1:
    case 2:
      scanner->ReadInt(&job->RestartNumber);
      break;
    case 3:
      ReadDecimals(&*scanner, kZArea, job);
      break;
    case 4:
      ReadDecimals(&*scanner, kPoint, job);
      break;
    default:
      break;
  }
}

void ReadConditions(std::string_view line, JobRecord* job) {
  job->AfaEnabled = Holds(line, "Afa ON") ? 1 : 0;
  if (job->AfaEnabled == 0) return;
  // A line without a tool diameter does not start an adjustment.
  if (!Holds(line, " TD ")) job->AfaEnabled = 0;
  for (const FeedField& field : FeedFields()) {
    if (field.word != nullptr) ReadCondition(line, field, job);
  }
}

// The words of a key-code part: what follows "KeyCode" and the one character after it, without
// white space at its end.
std::string_view KeyCodeWords(std::string_view part) {
  part.remove_prefix(std::string_view(kKeyCodeWord).size());
  if (!part.empty()) part.remove_prefix(CharacterEnd(part, 0));
  return part.substr(0, part.find_last_not_of(kWhite) + 1);
}

void ReadKeyCodes(std::string_view line, JobRecord* job) {
  job->KeyCodes.clear();
  job->KeyCodeCount = 0;
  job->KeyCodeText.clear();
  const std::string_view part = KeyCodePart(line);
  job->KeyCodeOn = part.empty() ? 0 : 1;
  if (job->KeyCodeOn == 0) return;
  std::string_view text = KeyCodeWords(part);
  if (EncodeCp949(text).size() < kShortestKeyText) return;
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.empty()) return;
    const std::string word(text.substr(0, text.find(' ')));
    text.remove_prefix(word.size());
    job->KeyCodeText += word + "\r\n";
    job->KeyCodes.push_back(word);
    ++job->KeyCodeCount;
  }
}

}  // namespace

std::string BuildOptionLine(const JobRecord& options, const JobRecord& restart,
                            std::optional<uint64_t> fileSize, std::optional<int32_t> spindleSpeed) {
  const auto lowBits = static_cast<int32_t>(static_cast<uint32_t>(fileSize.value_or(0)));
  std::string line = "Dir " + options.WorkDir + Format(" FS %d ", lowBits);
  if (options.DeleteM30 == 0) line += "M30 ON ";
  line += RestartText(restart);
  if (options.AfaEnabled == 1) {
    line += "Afa ON " + ConditionsText(options);
  } else {
    line += "Afa OFF ";
  }
  if (spindleSpeed) line += Format(" %s  S%d", kKeyCodeWord, *spindleSpeed);
  return line;
}

void ParseOptionLine(JobRecord* record, std::string_view line, LineFile* file) {
  if (file != nullptr) {
    if (auto scanner = ScanBehind(line, "Dir", 1)) scanner->ReadWord(&file->currentDirectory);
    if (auto scanner = ScanBehind(line, "FS", 1)) scanner->ReadInt(&file->fileSize);
  }
  record->DeleteM30 = Holds(line, "M30 ON") ? 0 : 1;
  ReadRestart(line, record);
  ReadConditions(line, record);
  ReadKeyCodes(line, record);
}

int LineDirectory(std::string_view line, std::string* directory) {
  directory->clear();
  WordScanner scanner(line);
  scanner.ReadWord(directory);
  directory->clear();
  scanner.ReadWord(directory);
  return 1;
}

bool AdjustmentMaster(std::string_view line, std::string* path) {
  auto scanner = ScanBehind(line, " " + MasterWord() + " ", 1);
  return scanner && scanner->ReadWord(path);
}

bool LineMasterFile(std::string_view line, std::string* path) {
  const size_t at = line.find(MasterWord());
  if (at == std::string_view::npos) return false;
  WordScanner words(line.substr(at));
  std::string ownWord;
  words.ReadWord(&ownWord);
  return words.ReadWord(path);
}

}  // namespace tvx
