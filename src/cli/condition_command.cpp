// tvx-cli condition: condition files, read and written.

#include <optional>
#include <string>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/tool_text.h"
#include "conditions/condition_file.h"

namespace tvx {
namespace {

constexpr int kDefaultSpindle = 1000;  // rev/min

}  // namespace

int RunConditionShow(const Call& call) {
  std::string argument;
  CommandLine line(call,
                   {"조건화일을 읽은 뒤의 작업 조건을 출력합니다.",
                    "Prints the job record after reading a condition file over its defaults."});
  line.AddArgument("FILE.afa", &argument, {"조건화일", "condition file"});
  line.Parse();

  Host host(call);
  const std::string path = host.ReadablePath(argument);
  JobRecord record = DefaultRecord(host.app);
  int32_t spindle = kDefaultSpindle;
  const Status read = ReadConditionFile(path, &record, &spindle, host.files.get());
  ThrowIfUnread(argument, read);
  Json object = FieldsJson(record, JobFields());
  object["Spindle"] = spindle;
  Print(JsonText(object));
  return 0;
}

int RunConditionWrite(const Call& call) {
  FieldSettings settings;
  std::optional<int> spindle;
  std::string argument;
  CommandLine line(call, {"기본값을 --set으로 바꾸어 조건화일을 씁니다.",
                          "Writes a condition file of the defaults, changed by --set."});
  settings.AddTo(&line);
  line.AddOption("--spindle", &spindle,
                 {"회전수, rev/min (기본 1000)", "spindle speed in rev/min (default 1000)"});
  line.AddArgument("OUT.afa", &argument,
                   {"만들거나 바꿀 조건화일", "condition file to create or replace"});
  line.Parse();
  settings.Check();

  Host host(call);
  const std::string path = host.DrivePath(argument);
  JobRecord record = DefaultRecord(host.app);
  settings.Apply(&record);
  const Status written =
      WriteConditionFile(path, record, spindle.value_or(kDefaultSpindle), host.files.get());
  ThrowIfUnwritten(argument, written);
  return 0;
}

}  // namespace tvx
