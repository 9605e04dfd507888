// tvx-cli draw: the drawing of a program as the calls that reach the device.

#include <string>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "cli/view_options.h"
#include "view/path_drawing.h"
#include "view/recorder_device.h"

namespace tvx {

int RunDraw(const Call& call) {
  Params params;
  ViewOptions viewOptions;
  std::string argument;
  CommandLine line(
      call, {"프로그램의 그림을 장치 호출로 한 줄에 하나씩 출력합니다: fill L T R B RRGGBB, pen "
             "NAME, move X Y, line X Y, text X Y STRING.",
             "Prints the drawing of a program as a list of device calls, one a line: "
             "fill L T R B RRGGBB, pen NAME, move X Y, line X Y, text X Y STRING."});
  params.AddTo(&line);
  viewOptions.AddTo(&line);
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  params.Check();
  viewOptions.Check();

  Host host(call);
  const ProgramFile file{argument, host.ProgramPath(argument)};
  ToolView view(&host);
  params.Apply(&host, &view);
  PrepareProgram(file, params.Adjusts(), &view);
  viewOptions.Apply(&view, /*fits=*/true);

  std::string text;
  RecorderDevice device([&](std::string_view deviceCall) {
    text.assign(deviceCall);
    Print(text += '\n');
  });
  const Scene scene{&view.program, &view.job, &view.view};
  if (viewOptions.AsPicture()) {
    DrawPicture(scene, &device);
  } else {
    Paint(scene, &device);
  }
  return 0;
}

}  // namespace tvx
