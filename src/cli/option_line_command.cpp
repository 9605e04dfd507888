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
#include "jobs/option_line.h"

namespace tvx {
namespace {

// The directory of a file, in the letters of the argument.
std::string DirectoryOf(const std::string& path, Files* files) {
  constexpr size_t kDriveLength = 2;
  std::string directory = PathBeforeName(path, kAnySlash);
  // A drive and a name alone: the file is in the root.
  if (directory.empty()) directory = path.substr(0, kDriveLength) + "\\";
  if (!files->SetCurrentDirectory(directory).ok()) throw Failure{path, "its folder cannot be read"};
  return files->CurrentDirectory();
}

}  // namespace

int RunOptionLineParse(const Call& call) {
  FieldSettings settings;
  std::string text;
  CommandLine line(call, "Parses an option line into a job record of defaults, and prints it.");
  settings.AddTo(&line);
  line.AddArgument("LINE", &text, "option line");
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
  CommandLine line(call, "Prints the option line that the job dialog would give a file.");
  settings.AddTo(&line);
  line.AddOption("--spindle", &spindle, "add the word of this spindle speed in rev/min");
  line.AddArgument("FILE", &argument, "NC program");
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
