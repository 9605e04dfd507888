// tvx-cli condition: condition files, read and written.

#include <optional>
#include <string>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "conditions/condition_file.h"

namespace tvx {
namespace {

constexpr int kDefaultSpindle = 1000;  // rev/min

}  // namespace

int RunConditionShow(const Call& call) {
  std::string argument;
  CommandLine line(call, "Prints the job record after reading a condition file over its defaults.");
  line.AddArgument("FILE.afa", &argument, "condition file");
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
  CommandLine line(call, "Writes a condition file of the defaults, changed by --set.");
  settings.AddTo(&line);
  line.AddOption("--spindle", &spindle, "spindle speed in rev/min (default 1000)");
  line.AddArgument("OUT.afa", &argument, "condition file to create or replace");
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
