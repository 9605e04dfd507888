// Sends each step to tvx-calc as a line and waits for its answer.
#include "reports/calc_client.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include "base/format.h"
#include "platform/processes/host_programs.h"
#include "reports/calc_lines.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

// Time for tvx-calc to end after its work: it closes an office.
constexpr Milliseconds kOrderlyEnd{10000};
// Time for it to end after a failure, before it is killed.
constexpr Milliseconds kForcedEnd{3000};

constexpr char kHasEnded[] = "the program has ended";

class CalcApplication final : public SpreadsheetApplication {
 public:
  CalcApplication(std::unique_ptr<ChildProcess> calc, const Drives* drives, Milliseconds patience)
      : calc_(std::move(calc)), drives_(drives), patience_(patience) {}

  ~CalcApplication() override {
    if (calc_ == nullptr) return;
    calc_->CloseInput();
    calc_->WaitForEnd(kOrderlyEnd);
  }

  // Waits for the first answer, which tvx-calc sends without a step.
  bool HasStarted() { return AwaitDone(); }

  bool OpenWorkbook(const std::string& path) override {
    const auto host = drives_->ToHost(path);
    return host ? Do(kCalcOpen, host->string()) : Fail("lies on no drive");
  }
  bool SelectSheet(int number) override { return Do(kCalcSheet, Format("%d", number)); }
  bool SelectRange(const std::string& first, const std::string& last) override {
    return Do(kCalcRange, first == last ? first : first + ":" + last);
  }
  bool PutValue(const CellValue& value) override {
    if (const auto* text = std::get_if<std::string>(&value)) return Do(kCalcText, *text);
    // A cell holds a double: 17 digits carry the 32-bit value into it exactly.
    return Do(kCalcNumber, Format("%.17g", static_cast<double>(std::get<float>(value))));
  }
  bool SetVisible(bool visible) override { return Do(kCalcVisible, visible ? kCalcYes : kCalcNo); }
  bool SetUserControl(bool control) override {
    return control ? Do(kCalcLeave, "") : true;  // without kCalcLeave tvx-calc keeps the control
  }
  bool Save() override { return Do(kCalcSave, ""); }

  std::string Problem() const override { return problem_; }

 private:
  bool Do(std::string_view word, std::string_view argument) {
    if (calc_ == nullptr) return false;
    if (!calc_->Send(CalcLine(word, argument), patience_)) return Fail(kHasEnded);
    return AwaitDone();
  }

  bool AwaitDone() {
    std::string answer;
    switch (calc_->Receive(&answer, patience_)) {
      case Reception::kEnd:
        return Fail(kHasEnded);
      case Reception::kTooLate:
        return Fail("the program does not answer");
      case Reception::kLine:
        break;
    }
    if (answer == kCalcDone) return true;
    return Fail(SplitCalcLine(answer).second);
  }

  bool Fail(std::string problem) {
    problem_ = std::move(problem);
    if (calc_ != nullptr) calc_->End(kForcedEnd);
    calc_ = nullptr;
    return false;
  }

  std::unique_ptr<ChildProcess> calc_;  // null after a failure
  const Drives* drives_;
  Milliseconds patience_;
  std::string problem_;
};

}  // namespace

fs::path FindCalcProgram() {
  const char* const named = std::getenv("TVX_CALC");
  if (named != nullptr && *named != '\0') return named;
  const fs::path above = ProgramFolder().parent_path();
  std::error_code error;
  const fs::path installed = above / "libexec" / "tvx" / "tvx-calc";
  return fs::exists(installed, error) ? installed : above / "calc" / "tvx-calc";
}

std::unique_ptr<SpreadsheetApplication> CalcSpreadsheets::Start(SpreadsheetForm form) {
  const std::string_view word = form == SpreadsheetForm::kFile ? kCalcFileForm : kCalcWindowForm;
  auto calc = ChildProcess::Start({program_.string(), std::string(word)}, ChildTies::kPartner);
  if (calc == nullptr) return nullptr;
  auto application = std::make_unique<CalcApplication>(std::move(calc), drives_, patience_);
  if (!application->HasStarted()) return nullptr;
  return application;
}

}  // namespace tvx
