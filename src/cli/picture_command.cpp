// tvx-cli picture: the picture file of a program.

#include <optional>
#include <string>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "cli/view_options.h"
#include "view/picture.h"

namespace tvx {

int RunPicture(const Call& call) {
  Params params;
  ViewOptions viewOptions;
  std::optional<std::string> out;
  std::string argument;
  CommandLine line(call, {"프로그램의 그림을 흰 종이에 맞는 색으로 씁니다.",
                          "Writes the picture of a program, with the colours for a white page."});
  params.AddTo(&line);
  viewOptions.AddTo(&line);
  line.AddOption("-o", &out,
                 {"OUT.emf, OUT.svg, OUT.png: 만들거나 바꿀 화일",
                  "OUT.emf, OUT.svg or OUT.png, the file to create or replace"});
  line.RequireOption("-o");
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  params.Check();
  viewOptions.Check();
  const std::optional<PictureFormat> format = PictureFormatOf(*out);
  if (!format)
    throw WrongCall{Say({"-o: .emf, .svg, .png로 끝나지 않습니다: '{file}'",
                         "-o: '{file}' ends in none of .emf, .svg and .png"},
                        {{"file", *out}})};

  Host host(call);
  const ProgramFile file{argument, host.ProgramPath(argument)};
  const std::string outPath = host.DrivePath(*out);
  ToolView view(&host);
  params.Apply(&host, &view);
  PrepareProgram(file, params.Adjusts(), &view);
  viewOptions.Apply(&view, /*fits=*/true);
  ShowProgress(Say({"{file}: 그리는 중", "{file}: drawing"}, {{"file", file.argument}}));
  const Scene scene{&view.program, &view.job, &view.view};
  const Status written = WritePictureFile(*format, outPath, scene, host.files.get());
  ThrowIfUnwritten(*out, written);
  return 0;
}

}  // namespace tvx
