// tvx-calc: fills a workbook in LibreOffice for another program. The other program writes the steps
// to standard input, a line each, and reads the result of each from standard output (calc_lines.h).
// tvx-calc is a separate program so that nothing else needs LibreOffice to be built or to start.

#include <com/sun/star/uno/Exception.hpp>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "base/scan.h"
#include "calc/office.h"
#include "calc/uno_text.h"
#include "calc/workbook.h"
#include "platform/processes/child_process.h"
#include "platform/termination.h"
#include "reports/calc_lines.h"

namespace tvx {
namespace {

using com::sun::star::uno::Exception;

struct Step {
  std::string_view word;
  void (*carryOut)(Workbook* workbook, const std::string& argument);
};

constexpr Step kSteps[] = {
    {kCalcOpen, [](Workbook* workbook, const std::string& path) { workbook->Open(path); }},
    {kCalcSheet,
     [](Workbook* workbook, const std::string& number) { workbook->TakeSheet(TextToInt(number)); }},
    {kCalcRange, [](Workbook* workbook, const std::string& name) { workbook->TakeRange(name); }},
    {kCalcNumber, [](Workbook* workbook,
                     const std::string& number) { workbook->PutNumber(TextToDouble(number)); }},
    {kCalcText, [](Workbook* workbook, const std::string& text) { workbook->PutText(text); }},
    {kCalcVisible,
     [](Workbook* workbook, const std::string& on) { workbook->SetVisible(on == kCalcYes); }},
    {kCalcLeave, [](Workbook* workbook, const std::string&) { workbook->LeaveToUser(); }},
    {kCalcSave, [](Workbook* workbook, const std::string&) { workbook->Save(); }},
};

// Runs `action` and prints its result as an answer line. Returns false if it failed.
template <typename Action>
bool Answer(Action action) {
  std::string answer(kCalcDone);
  try {
    action();
  } catch (const Problem& problem) {
    answer = CalcLine(kCalcFailed, problem.reason);
  } catch (const Exception& exception) {
    answer = CalcLine(kCalcFailed, "LibreOffice: " + ToUtf8(exception.Message));
  }
  std::cout << answer << std::endl;
  return answer == kCalcDone;
}

bool CarryOut(const std::string& line, Workbook* workbook) {
  const auto [word, argument] = SplitCalcLine(line);
  for (const Step& step : kSteps) {
    if (step.word == word) return Answer([&] { step.carryOut(workbook, argument); });
  }
  return Answer([&] { throw Problem{"no such step: " + word}; });
}

int Run(OfficeForm form) {
  std::optional<Office> office;
  if (!Answer([&] { office.emplace(form); })) return 1;
  Workbook workbook(&*office);
  std::string line;
  while (std::getline(std::cin, line)) {
    if (!CarryOut(line, &workbook)) return 1;
  }
  return 0;
}

}  // namespace
}  // namespace tvx

int main(int argc, char** argv) {
  if (tvx::IsTiedCall(argc, argv)) return tvx::RunTied(argv);
  tvx::PrepareProcess();
  tvx::EndWithParent();
  const std::string_view form = argc == 2 ? argv[1] : "";
  if (form == tvx::kCalcWindowForm) return tvx::Run(tvx::OfficeForm::kWindow);
  if (form == tvx::kCalcFileForm) return tvx::Run(tvx::OfficeForm::kHidden);
  if (form == "--version") {
    std::cout << "tvx-calc " TVX_VERSION "\n";
    return 0;
  }
  std::cerr << "usage: tvx-calc " << tvx::kCalcWindowForm << '|' << tvx::kCalcFileForm << '\n';
  return 2;
}
