// Builds the rows of the information list from the record of an option line.

#include "jobs/entry_rows.h"

#include "base/format.h"
#include "jobs/labels.h"
#include "jobs/restart.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

using Rows = std::vector<std::string>;

constexpr Message kFileName = {"화일명 : {name} ", "FileName : {name} "};

const char* Indent(const FeedField& field) {
  if (field.form == FeedForm::kSwitch) return "  ";
  if (field.form != FeedForm::kValue) return "";
  const bool isPlungeFeed = field.member == FeedMember(&JobRecord::PlungeFeed);
  return isPlungeFeed || field.groupSize > 1 ? " " : "  ";
}

// SlopeMaxRatio has one decimal fewer than CornerMaxRatio.
std::string ConditionRow(const JobRecord& job, const FeedField& field, Language language) {
  const bool isSlopeRatio = field.member == FeedMember(&JobRecord::SlopeMaxRatio);
  return Indent(field) + LabelledText(job, field, isSlopeRatio ? 1 : field.decimals, language);
}

Rows ConditionRows(const JobRecord& job, Language language) {
  if (job.AfaEnabled != 1) return {"Afa OFF"};
  Rows rows = {"Afa ON"};
  for (const FeedField& field : FeedFields()) {
    if (IsShown(job, field)) rows.push_back(ConditionRow(job, field, language));
  }
  return rows;
}

}  // namespace

std::vector<std::string> EntryRows(const std::string& name, const LineFile& file,
                                   const JobRecord& options, int32_t language) {
  Rows rows = {Say(kFileName, LanguageOf(language), {{"name", name}}), file.currentDirectory,
               Format("FileSize %d Byte", file.fileSize)};
  if (options.DeleteM30 == 0) rows.push_back("M30 ON");
  rows.push_back(Format("Restart %s", OnOff(options.RestartOn)));
  const auto append = [&](const Rows& labelled) {
    for (const std::string& row : labelled) rows.push_back(ReplaceLabels(row, language));
  };
  if (options.RestartOn == 1) append(RestartInfoRows(options));
  const Rows conditions = ConditionRows(options, LanguageOf(language));
  rows.insert(rows.end(), conditions.begin(), conditions.end());
  if (options.KeyCodeOn != 1) return rows;
  rows.push_back("Key Code");
  for (const std::string& word : options.KeyCodes) rows.push_back("  " + word);
  return rows;
}

}  // namespace tvx
