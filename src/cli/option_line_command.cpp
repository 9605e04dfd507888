// tvx-cli option-line: the option line of a job's file, read and written.

#include <optional>
#include <string>

#include "base/path_text.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "jobs/option_line.h"

namespace tvx {
namespace {

// The directory of a file, in the letters of the argument.
std::string DirectoryOf(const std::string& path, Files* files) {
  constexpr size_t kDriveLength = 2;
  std::string directory = PathBeforeName(path, kAnySlash);
  // A drive and a name alone: the file is in the root.
  if (directory.empty()) directory = path.substr(0, kDriveLength) + "\\";
  if (!files->SetCurrentDirectory(directory).ok()) {
    throw Failure{path, Say({"폴더를 읽을 수 없습니다", "its folder cannot be read"})};
  }
  return files->CurrentDirectory();
}

}  // namespace

int RunOptionLineParse(const Call& call) {
  FieldSettings settings;
  std::string text;
  CommandLine line(call, {"옵션 줄을 기본값에 반영하여 작업 조건을 출력합니다.",
                          "Parses an option line into a job record of defaults, and prints it."});
  settings.AddTo(&line);
  line.AddArgument("LINE", &text, {"옵션 줄", "option line"});
  line.Parse();
  settings.Check();

  Host host(call);
  JobRecord record = DefaultRecord(host.app);
  settings.Apply(&record);
  LineFile file;
  ParseOptionLine(&record, text, &file);
  Json object = FieldsJson(record, JobFields());
  object["currentDirectory"] = file.currentDirectory;
  object["fileSize"] = file.fileSize;
  Print(JsonText(object));
  return 0;
}

int RunOptionLineBuild(const Call& call) {
  FieldSettings settings;
  std::optional<int> spindle;
  std::string argument;
  CommandLine line(call, {"작업 리스트 창이 화일에 붙이는 옵션 줄을 출력합니다.",
                          "Prints the option line that the job dialog would give a file."});
  settings.AddTo(&line);
  line.AddOption(
      "--spindle", &spindle,
      {"이 회전수(rev/min)의 워드를 추가", "add the word of this spindle speed in rev/min"});
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  settings.Check();

  Host host(call);
  const std::string path = host.ReadablePath(argument);
  JobRecord record = DefaultRecord(host.app);
  // As the dialog opens: a new file has the adjustment on.
  record.AfaEnabled = 1;
  record.WorkDir = DirectoryOf(path, host.files.get());
  settings.Apply(&record);
  const auto file = host.files->OpenForReading(path);
  ThrowIfUnread(argument, file.status);
  Print(BuildOptionLine(record, record, file.value->Stamp().size, spindle) + "\n");
  return 0;
}

}  // namespace tvx
