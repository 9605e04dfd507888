// Builds the rows of the information list from the record of an option line.

#include "jobs/entry_rows.h"

#include "base/format.h"
#include "jobs/restart.h"
#include "model/option_labels.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

using Rows = std::vector<std::string>;

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
                                   const JobRecord& options, Language language) {
  Rows rows = {kFileNameLabel.In(language) + (" : " + name + " "), file.currentDirectory,
               Format("FileSize %d Byte", file.fileSize)};
  if (options.DeleteM30 == 0) rows.push_back("M30 ON");
  rows.push_back(Format("Restart %s", OnOff(options.RestartOn)));
  const auto append = [&rows](const Rows& more) {
    rows.insert(rows.end(), more.begin(), more.end());
  };
  if (options.RestartOn == 1) append(RestartInfoRows(options, language));
  append(ConditionRows(options, language));
  if (options.KeyCodeOn != 1) return rows;
  rows.push_back("Key Code");
  for (const std::string& word : options.KeyCodes) rows.push_back("  " + word);
  return rows;
}

}  // namespace tvx
