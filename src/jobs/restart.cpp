// The logic of the restart dialog and the texts of a restart position.

#include "jobs/restart.h"

#include "base/format.h"
#include "base/scan.h"
#include "model/option_labels.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr int kSequenceNumber = 1;
constexpr int kPoint = 4;
constexpr float kNotSet = 9999.0F;

float RestartOptions::*Decimal(const RestartField& field) {
  return std::get<float RestartOptions::*>(field.member);
}

bool HasNoPoint(const JobRecord& job) {
  return job.RestartX == kNotSet && job.RestartY == kNotSet && job.RestartZ == kNotSet;
}

}  // namespace

void CRestartDlg::Open(JobRecord* options) {
  options_ = options;
  CopyJobRecord(0, &own, *options);
  if (own.RestartKind < kSequenceNumber || own.RestartKind > kPoint) own.RestartKind = kPoint;
  numberText = Format("%d", own.RestartNumber);
  decimalTexts.clear();
  for (const RestartField& field : RestartDecimals()) {
    decimalTexts.push_back(Format("%6.3f", own.*Decimal(field)));
  }
}

void CRestartDlg::SelectKind(int kind) {
  own.RestartKind = kind;
}

void CRestartDlg::EditNumber(std::string_view text) {
  numberText = text;
  own.RestartNumber = TextToInt(text);
}

void CRestartDlg::EditDecimal(size_t index, std::string_view text) {
  decimalTexts.at(index) = text;
  own.*Decimal(RestartDecimals()[index]) = TextToFloat(text);
}

Closing CRestartDlg::Accept() {
  if (own.RestartKind == kPoint && HasNoPoint(own)) return Cancel();
  own.RestartOn = 1;
  CopyJobRecord(0, options_, own);
  return Closing::kAccepted;
}

Closing CRestartDlg::Cancel() {
  own.RestartOn = 0;
  options_->RestartOn = 0;
  return Closing::kCancelled;
}

std::string RestartButtonText(const JobRecord& options, bool accepted, Language language) {
  return kRestartLabel.In(language) + (": " + (accepted ? RestartPosition(options, language) : ""));
}

std::vector<std::string> RestartInfoRows(const JobRecord& job, Language language) {
  std::vector<std::string> rows = RestartReportLines(job, language);
  for (std::string& row : rows) row.insert(0, "  ");
  return rows;
}

}  // namespace tvx
