// The lines of a condition file, and its reader and writer.
#include "conditions/condition_file.h"

#include "base/text.h"

namespace tvx {

namespace {

std::span<const ParameterLine> Lines() {
  static const std::vector<ParameterLine> kLines =
      LinesOfFile({{{24, "Spindle"}, SpindleSpeed{}}}, &FeedField::conditionLine);
  return kLines;
}

}  // namespace

std::string DefaultConditionPath(const std::string& environmentDir) {
  return environmentDir + "\\afa\\tvx.afa";
}

bool IsConditionFile(std::string_view start) {
  return start.starts_with(EncodeCp949(Lines().front().line.key));
}

Status ReadConditionFile(const std::string& path, JobRecord* record, int32_t* spindle,
                         Files* files) {
  const Result<std::string> bytes = ReadSettings(files, path);
  if (!bytes.ok()) return bytes.status;
  const std::string text = DecodeCp949(bytes.value);
  WordScanner words(text);
  ReadLinesByPlace(Lines(), &words, record, spindle);
  ReadLinesByKey(Lines(), &words, record, spindle);
  return {};
}

Status WriteConditionFile(const std::string& path, const JobRecord& record, int32_t spindle,
                          Files* files) {
  return WriteWholeFile(files, path, PrintLines(Lines(), record, spindle));
}

}  // namespace tvx
