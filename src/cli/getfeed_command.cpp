// tvx-cli getfeed: the calculator, with changes as the user would make them.

#include <optional>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/nearest_name.h"
#include "cli/output.h"
#include "cli/tool_text.h"
#include "getfeed/calculator_dialog.h"

namespace tvx {
namespace {

// A refused field is reported by its name, not by the calculator's message.
class SilentUser final : public CliUserInterface {
 public:
  bool ShowMessage(const MessageBox&) override { return false; }
};

std::vector<std::string> FieldNames() {
  std::vector<std::string> names;
  for (const GetFeedField& field : GetFeedFields()) names.emplace_back(field.name);
  return names;
}

// Makes one change, FIELD=VALUE.
void MakeChange(const std::string& word, CGetFeedDlg* dialog) {
  const size_t equals = word.find('=');
  if (equals == std::string::npos)
    throw WrongCall{Say({"--change: FIELD=VALUE 형식이 아닙니다: '{word}'",
                         "--change wants FIELD=VALUE, not '{word}'"},
                        {{"word", word}})};
  const std::string field = word.substr(0, equals);
  if (dialog->Change(field, word.substr(equals + 1))) return;
  for (const std::string& name : FieldNames()) {
    if (name == field)
      throw WrongCall{Say({"계산기에서 바꿀 수 없는 값입니다: '{word}'",
                           "'{word}' is no change that the calculator takes"},
                          {{"word", word}})};
  }
  throw WrongCall{
      Say({"계산기에 없는 필드입니다: '{field}'", "the calculator has no field '{field}'"},
          {{"field", field}}) +
      DidYouMean(field, FieldNames())};
}

}  // namespace

int RunGetFeed(const Call& call) {
  std::optional<float> diameter;
  std::optional<std::string> material;
  std::vector<std::string> changes;
  bool accept = false;
  CommandLine line(call, {"회전수와 피드를 계산하고 계산기의 값을 출력합니다.",
                          "Proposes spindle speed and feed, and prints the calculator's record."});
  line.AddOption("--diameter", &diameter,
                 {"공구 직경, mm (기본 10)", "tool diameter in mm (default 10)"});
  line.AddOption(
      "--material", &material,
      {"가공소재, 목록에 없으면 KP4", "material; one it does not know leaves it at KP4"});
  line.AddRepeated("--change", &changes,
                   {"FIELD=VALUE: 창에서 입력하듯이 값을 바꾸기",
                    "FIELD=VALUE, a change as the user would make it"});
  line.AddFlag("--accept", &accept,
               {"\"확인\"을 누를 때처럼 범위를 검사", "check the ranges as on acceptance"});
  line.Parse();

  SilentUser ui;
  CGetFeedDlg dialog(diameter.value_or(GetFeedState().toolDiameter), material.value_or(""), &ui);
  for (const std::string& change : changes) MakeChange(change, &dialog);
  if (accept && dialog.Accept() != Closing::kAccepted) {
    throw Failure{dialog.refusedField,
                  Say({"숫자가 아니거나 범위를 벗어납니다", "out of its range, or no number"})};
  }
  Print(JsonText(FieldsJson(dialog.state, GetFeedFields())));
  return 0;
}

}  // namespace tvx
