// The lines of the file information dialog.
#include "stats/file_information.h"

#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr char kWeightIndent[] = " ";
constexpr int kRapidLengthDecimals = 1;

bool IsKnownRestart(int32_t kind) {
  return kind >= 1 && kind <= 4;
}

void Append(const std::vector<std::string>& more, std::vector<std::string>* lines) {
  lines->insert(lines->end(), more.begin(), more.end());
}

}  // namespace

std::vector<std::string> FileInformationLines(const CutTimeEntry& entry, Language language) {
  std::vector<std::string> lines = RestartLines(entry, language);
  // Here a position that nobody knows has a line all the same.
  if (entry.RestartOn == 1 && !IsKnownRestart(entry.RestartKind)) lines.emplace_back();
  Append(ConditionLines(entry, kWeightIndent, language), &lines);
  Append(FigureLines(entry, kRapidLengthDecimals, language), &lines);
  return lines;
}

}  // namespace tvx
