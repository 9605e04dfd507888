// The logic of the restart dialog and the texts of a restart position.

#include "jobs/restart.h"

#include "base/format.h"
#include "base/scan.h"

namespace tvx {

namespace {

constexpr int kSequenceNumber = 1;
constexpr int kBlock = 2;
constexpr int kZArea = 3;
constexpr int kPoint = 4;
constexpr float kNotSet = 9999.0F;

bool HasNoPoint(const JobRecord& job) {
  return job.RestartX == kNotSet && job.RestartY == kNotSet && job.RestartZ == kNotSet;
}

}  // namespace

void CRestartDlg::Open(JobRecord* options) {
  options_ = options;
  CopyJobRecord(0, &own, *options);
  if (own.RestartKind < kSequenceNumber || own.RestartKind > kPoint) own.RestartKind = kPoint;
  numberText = Format("%d", own.RestartNumber);
  for (size_t i = 0; i < kRestartDecimals.size(); ++i) {
    decimalTexts[i] = Format("%6.3f", own.*kRestartDecimals[i].field);
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
  own.*kRestartDecimals.at(index).field = TextToFloat(text);
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

std::string RestartButtonText(const JobRecord& options, bool accepted) {
  std::string text = "재전송: ";
  if (!accepted) return text;
  switch (options.RestartKind) {
    case kSequenceNumber:
      return text + Format("번호->%d", options.RestartNumber);
    case kBlock:
      return text + Format("블록->%d", options.RestartNumber);
    case kZArea:
      return text + Format("Z영역->(%6.2f - %6.2f)", options.RestartZMin, options.RestartZMax);
    case kPoint:
      return text + Format("좌표->XYZ(%6.2f, %6.2f, %6.2f)  공차->%6.2f  ", options.RestartX,
                           options.RestartY, options.RestartZ, options.RestartTolerance);
    default:
      return text;
  }
}

std::vector<std::string> RestartInfoRows(const JobRecord& job) {
  switch (job.RestartKind) {
    case kSequenceNumber:
      return {Format("  재전송: 번호-> %d ", job.RestartNumber)};
    case kBlock:
      return {Format("  재전송: 블록-> %d ", job.RestartNumber)};
    case kZArea:
      return {Format("  재전송: Z영역->(%6.3f - %6.3f) ", job.RestartZMax, job.RestartZMin)};
    case kPoint:
      return {Format("  재전송: 좌표->XYZ(%6.3f, %6.3f, %6.3f)", job.RestartX, job.RestartY,
                     job.RestartZ),
              Format("  공차->%6.2f", job.RestartTolerance)};
    default:
      return {};
  }
}

}  // namespace tvx
