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
#include "cli/tool_text.h"
#include "stats/file_information.h"

namespace tvx {

int RunInfo(const Call& call) {
  Params params;
  bool json = false;
  std::string argument;
  CommandLine line(call, {"프로그램의 화일정보 창에 나오는 내용을 출력합니다.",
                          "Prints the lines of the file information dialog for a program."});
  params.AddTo(&line);
  line.AddFlag("--json", &json, kJsonHelp);
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  params.Check();

  Host host(call);
  const ProgramFile file{argument, host.ProgramPath(argument)};
  ToolView view(&host);
  params.Apply(&host, &view);
  LoadWholeProgram(file, &view);
  const ProgramResult result = EvaluateProgram(file, params.Adjusts(), nullptr, &view);

  const std::vector<std::string> lines = FileInformationLines(result.entry, host.app.LabelLanguage);
  if (json) {
    Print(JsonText(Json(lines)));
  } else {
    for (const std::string& text : lines) Print(text + "\n");
  }
  return 0;
}

}  // namespace tvx
