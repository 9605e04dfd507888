// tvx-cli project: where points appear in the picture.

#include <optional>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "cli/view_options.h"
#include "view/view_transform.h"

namespace tvx {
int RunProject(const Call& call) {
  ViewOptions viewOptions;
  std::optional<std::string> argument;
  std::vector<std::string> words;
  CommandLine line(
      call, {"점이 나타나는 위치를 그림 영역의 중심에서 픽셀로, 한 줄에 X Y 하나씩 출력합니다.",
             "Prints where points appear, in pixels from the centre of the drawing area, "
             "X Y one a line."});
  viewOptions.AddTo(&line);
  line.AddOption("--fit", &argument,
                 {"FILE: 보기를 이 프로그램에 맞추기 (기본: 새 보기의 배율과 위치)",
                  "FILE: fit the view to this program (default: the scale and pan of a new view)"});
  line.AddArguments("POINT", &words, {"X,Y,Z: 점, mm", "X,Y,Z: points in mm"});
  line.Parse();
  viewOptions.Check();
  std::vector<Vec3> points;
  points.reserve(words.size());
  for (const std::string& word : words) points.push_back(ParsePoint(word));

  Host host(call);
  ToolView view(&host);
  if (argument) LoadWholeProgram({*argument, host.ProgramPath(*argument)}, &view);
  viewOptions.Apply(&view, /*fits=*/argument.has_value());
  for (const Vec3& point : points) {
    const Pixel pixel = Project(&view.view.transform, point);
    Print(std::to_string(pixel.x) + ' ' + std::to_string(pixel.y) + '\n');
  }
  return 0;
}

}  // namespace tvx
