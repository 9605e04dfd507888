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
  throw Failure{argument,
                hasMemory ? built.Text() : "gives no master model: there is not enough memory"};
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
std::string ModelArgument(const Call& call, const std::string& description) {
  std::string argument;
  CommandLine line(call, description);
  line.AddArgument("FILE.mma", &argument, "master model file");
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
  CommandLine line(call, "Builds a master model from the program that cuts the final surface.");
  params.AddTo(&line);
  line.AddOption("--tool-diameter", &diameter, "tool diameter in mm (default 10)");
  line.AddOption("--allowance", &allowance, "allowance in mm (default 0)");
  line.AddOption("--tolerance", &tolerance, "size of a cell in mm (default 1)");
  line.AddOption("-o", &out, "OUT.mma, the file to create or replace");
  line.RequireOption("-o");
  line.AddArgument("FILE", &argument, "NC program");
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
  ShowProgress(file.argument + ": building the master model");
  BuildModel(file.argument, &view);
  const Status written = WriteMasterFile(outPath, view.masterGrid, host.files.get());
  ThrowIfUnwritten(*out, written);
  return 0;
}

int RunMasterDump(const Call& call) {
  const std::string argument = ModelArgument(
      call,
      "Prints a master model: a line of its fields OriginX OriginY MinZ MaxX MaxY MaxZ ToolSize "
      "CellSize CellCount NX NY ModelBuilt, then of each cell ix, iy, z and angle.");
  Host host(call);
  const MasterGrid grid = ReadModel(argument, host);
  Print(HeaderLine(grid));
  for (int32_t iy = 0; iy < grid.NY; ++iy) Print(RowLines(grid, iy));
  return 0;
}

int RunMasterLookup(const Call& call) {
  std::string argument, radiusWord;
  std::vector<std::string> pointWords;
  CommandLine line(call,
                   "Prints for each point the steepest angle of the model around it and above it, "
                   "or none.");
  line.AddArgument("FILE.mma", &argument, "master model file");
  line.AddArgument("RADIUS", &radiusWord, "how far to look, in mm");
  line.AddArguments("POINT", &pointWords, "points X,Y,Z");
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
      call, "Prints the moves of the wire picture of a master model, as the command blocks does.");
  Host host(call);
  ToolView view(&host);
  view.masterGrid = ReadModel(argument, host);
  ShowMaster(view.masterGrid, &view.program);
  PrintStore(argument, view.program, Status());
  return 0;
}

}  // namespace tvx
