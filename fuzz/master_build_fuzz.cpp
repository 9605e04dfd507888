// Fuzzes the build of a master model. The first two bytes of the input choose the tolerance and the
// tool; the rest is a program in the word-address format. A model that was built comes back whole
// from its file.

#include <algorithm>
#include <cmath>
#include <string_view>

#include "fuzz_world.h"
#include "master/master_build.h"
#include "master/master_file.h"
#include "model/loader.h"

namespace {

using namespace tvx;

constexpr size_t kChoices = 2;
constexpr float kTolerances[] = {1, 2.5F, 0.5F, 0, -1, 1e9F, NAN};
constexpr float kTools[] = {10, 0, 1, -5, 1e9F, INFINITY};

// A part above this size and below what a build refuses makes a grid that takes seconds to fill.
bool IsSmallOrRefused(BlockStore* store) {
  constexpr float kSmall = 60, kRefused = 1e8F;  // mm
  float farthest = 0;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    const MotionBlock& block = *store->Peek(i);
    for (const float c : {block.x, block.y, block.z}) farthest = std::max(farthest, std::abs(c));
  }
  return farthest < kSmall || farthest > kRefused;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < kChoices) return 0;
  FuzzFiles files(AsText(data, size).substr(kChoices));
  ParserStates states;
  NcProgram program;
  JobRecord job;
  if (!LoadNcFile("c:\\fuzz.nc", &program, &states, &job, &files).ok()) return 0;
  if (!IsSmallOrRefused(&program.store)) return 0;

  CMasterDlg input;
  input.MasterTolerance = kTolerances[data[0] % std::size(kTolerances)];
  input.MasterToolDiameter = kTools[data[1] % std::size(kTools)];
  MasterGrid grid;
  if (!BuildMaster(input, &program, &grid).ok()) {
    Require(grid.Cells.Empty());
    return 0;
  }
  Require(grid.CellCount > 0 && grid.CellCount == grid.NX * grid.NY);
  Require(WriteMasterFile("c:\\fuzz.mma", grid, &files).ok());
  FuzzFiles saved(files.written);
  MasterGrid again;
  Require(ReadMasterFile("c:\\fuzz.mma", &again, &saved).ok());
  Require(again.NX == grid.NX && again.NY == grid.NY && again.CellSize == grid.CellSize);
  return 0;
}
