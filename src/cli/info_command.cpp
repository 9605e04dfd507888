// tvx-cli info: what the file information dialog would show.

#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "stats/entry_lines.h"
#include "stats/file_information.h"

namespace tvx {

int RunInfo(const Call& call) {
  Params params;
  bool json = false;
  std::string argument;
  CommandLine line(call, "Prints the lines of the file information dialog for a program.");
  params.AddTo(&line);
  line.AddFlag("--json", &json, "print one JSON document");
  line.AddArgument("FILE", &argument, "NC program");
  line.Parse();
  params.Check();

  Host host(call);
  const ProgramFile file{argument, host.ProgramPath(argument)};
  ToolView view(&host);
  params.Apply(&host, &view);
  LoadWholeProgram(file, &view);
  const ProgramResult result = EvaluateProgram(file, params.Adjusts(), nullptr, &view);

  std::vector<std::string> lines = FileInformationLines(result.entry);
  if (host.app.LabelLanguage == kEnglishLabels) {
    for (std::string& text : lines) text = EnglishFigure(ReplaceLabels(text, kEnglishLabels));
  }
  if (json) {
    Print(JsonText(Json(lines)));
  } else {
    for (const std::string& text : lines) Print(text + "\n");
  }
  return 0;
}

}  // namespace tvx
