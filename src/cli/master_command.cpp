// tvx-cli master: master models, built, listed, looked up and shown.

#include <optional>
#include <string>
#include <vector>

#include "base/format.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "master/master_build.h"
#include "master/master_file.h"
#include "master/master_lookup.h"
#include "master/master_picture.h"

namespace tvx {
namespace {

void BuildModel(const std::string& argument, CTVXView* view) {
  const Status built = BuildMaster(view->dialogs.master, &view->program, &view->masterGrid);
  if (built.ok()) return;
  const bool hasMemory = built.kind() != StatusKind::kNoMemory;
  throw Failure{argument, hasMemory ? built.Text(ToolLanguage())
                                    : Say({"마스터 모델을 만들 수 없습니다: 메모리가 모자랍니다",
                                           "gives no master model: there is not enough memory"})};
}

std::string HeaderLine(const MasterGrid& grid) {
  std::string line = "#";
  for (const float real : {grid.OriginX, grid.OriginY, grid.MinZ, grid.MaxX, grid.MaxY, grid.MaxZ,
                           grid.ToolSize, grid.CellSize}) {
    line += ' ' + ShortestFloat(real);
  }
  for (const int32_t whole : {grid.CellCount, grid.NX, grid.NY, grid.ModelBuilt}) {
    line += ' ' + std::to_string(whole);
  }
  return line + '\n';
}

std::string RowLines(const MasterGrid& grid, int32_t iy) {
  std::string lines;
  for (int32_t ix = 0; ix < grid.NX; ++ix) {
    const MasterCell& cell = grid.At(ix, iy);
    lines += std::to_string(ix) + '\t' + std::to_string(iy) + '\t' + ShortestFloat(cell.z) + '\t' +
             std::to_string(cell.angle) + '\n';
  }
  return lines;
}

// The calls that take a model and nothing else.
std::string ModelArgument(const Call& call, const Message& description) {
  std::string argument;
  CommandLine line(call, description);
  line.AddArgument("FILE.mma", &argument, {"마스터 모델 화일", "master model file"});
  line.Parse();
  return argument;
}

}  // namespace

int RunMasterBuild(const Call& call) {
  Params params;
  const CMasterDlg defaults;
  std::optional<float> diameter, allowance, tolerance;
  std::optional<std::string> out;
  std::string argument;
  CommandLine line(call, {"최종 면을 가공하는 프로그램으로 마스터 모델을 만듭니다.",
                          "Builds a master model from the program that cuts the final surface."});
  params.AddTo(&line);
  line.AddOption("--tool-diameter", &diameter,
                 {"공구 직경, mm (기본 10)", "tool diameter in mm (default 10)"});
  line.AddOption("--allowance", &allowance,
                 {"가공 여유, mm (기본 0)", "allowance in mm (default 0)"});
  line.AddOption("--tolerance", &tolerance,
                 {"셀의 크기, mm (기본 1)", "size of a cell in mm (default 1)"});
  line.AddOption("-o", &out,
                 {"OUT.mma: 만들거나 바꿀 화일", "OUT.mma, the file to create or replace"});
  line.RequireOption("-o");
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  params.Check();

  Host host(call);
  const ProgramFile file = FindProgramFiles(host, {argument}).front();
  const std::string outPath = host.DrivePath(*out);
  ToolView view(&host);
  params.Apply(&host, &view);
  view.dialogs.master.MasterToolDiameter = diameter.value_or(defaults.MasterToolDiameter);
  view.dialogs.master.MasterAllowance = allowance.value_or(defaults.MasterAllowance);
  view.dialogs.master.MasterTolerance = tolerance.value_or(defaults.MasterTolerance);
  PrepareProgram(file, params.Adjusts(), &view);
  ShowProgress(Say({"{file}: 마스터 모델 생성 중", "{file}: building the master model"},
                   {{"file", file.argument}}));
  BuildModel(file.argument, &view);
  const Status written = WriteMasterFile(outPath, view.masterGrid, host.files.get());
  ThrowIfUnwritten(*out, written);
  return 0;
}

int RunMasterDump(const Call& call) {
  const std::string argument = ModelArgument(
      call,
      {"마스터 모델을 출력합니다: 첫 줄은 OriginX OriginY MinZ MaxX MaxY MaxZ ToolSize CellSize "
       "CellCount NX NY ModelBuilt, 그다음은 셀마다 ix, iy, z, angle.",
       "Prints a master model: a line of its fields OriginX OriginY MinZ MaxX MaxY MaxZ ToolSize "
       "CellSize CellCount NX NY ModelBuilt, then of each cell ix, iy, z and angle."});
  Host host(call);
  const MasterGrid grid = ReadModel(argument, host);
  Print(HeaderLine(grid));
  for (int32_t iy = 0; iy < grid.NY; ++iy) Print(RowLines(grid, iy));
  return 0;
}

int RunMasterLookup(const Call& call) {
  std::string argument, radiusWord;
  std::vector<std::string> pointWords;
  CommandLine line(
      call, {"점마다 그 둘레와 위에서 가장 가파른 모델의 각도를 출력합니다. 없으면 none입니다.",
             "Prints for each point the steepest angle of the model around it and above it, "
             "or none."});
  line.AddArgument("FILE.mma", &argument, {"마스터 모델 화일", "master model file"});
  line.AddArgument("RADIUS", &radiusWord, {"찾을 거리, mm", "how far to look, in mm"});
  line.AddArguments("POINT", &pointWords, {"점 X,Y,Z", "points X,Y,Z"});
  line.Parse();
  const float radius = NumberOf(radiusWord, "RADIUS");
  std::vector<Vec3> points;
  points.reserve(pointWords.size());
  for (const std::string& word : pointWords) points.push_back(ParsePoint(word));

  Host host(call);
  const MasterGrid grid = ReadModel(argument, host);
  for (const Vec3& point : points) {
    int32_t angle = 0;
    Print(MasterLookup(grid, point, radius, &angle) ? std::to_string(angle) + '\n' : "none\n");
  }
  return 0;
}

int RunMasterShow(const Call& call) {
  const std::string argument = ModelArgument(
      call,
      {"마스터 모델 그림의 이동을 명령 blocks처럼 출력합니다.",
       "Prints the moves of the wire picture of a master model, as the command blocks does."});
  Host host(call);
  ToolView view(&host);
  view.masterGrid = ReadModel(argument, host);
  ShowMaster(view.masterGrid, &view.program);
  PrintStore(argument, view.program, Status());
  return 0;
}

}  // namespace tvx
