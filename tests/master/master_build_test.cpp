// The stages of a build and what makes it fail. Golden cases hold whole models and pictures.
#include "master/master_build.h"

#include <gtest/gtest.h>

#include <cmath>

#include "master/master_file.h"
#include "master/master_picture.h"
#include "support/block_list.h"
#include "support/memory_files.h"
#include "support/random_program.h"
#include "support/rows.h"

namespace tvx {
namespace {

struct Build {
  void Add(BlockType type, float x, float y, float z) { Append(&program.store, type, x, y, z); }
  StatusKind Run() { return BuildMaster(input, &program, &grid).kind(); }

  // Cuts to and fro over a square of 5 mm at z = 1, in place of the program.
  void FillRaster() {
    program.store.blockCount = 0;
    Add(BlockRapidStart, 0, 0, 50);
    for (float y = 0; y <= 5; y += 0.5F) {
      Add(BlockCut, 0, y, 1);
      Add(BlockCut, 5, y, 1);
    }
  }

  NcProgram program;
  MasterGrid grid;
  CMasterDlg input;
};

TEST(BuildMaster, RefinementKeepsTheBudget) {
  const Rows<double, double, int32_t> rows = {
      {101, 101, 5},   {1001, 1001, 2},   {0, 40, 5},        {171'428, 1, 5}, {171'429, 1, 4},
      {2001, 2001, 1}, {4'285'714, 1, 1}, {4'285'715, 1, 0}, {1e30, 1e30, 0},
  };
  for (const auto& [columns, lines, k] : rows) EXPECT_EQ(Refinement(columns, lines), k) << columns;
}

TEST(BuildMaster, RefusalChangesNothing) {
  using enum StatusKind;
  // The number, type and size of the moves after the first; tolerance and tool diameter.
  const Rows<const char*, int, BlockType, float, float, float, StatusKind> rows = {
      {"four blocks", 3, BlockCut, 10, 1, 10, kFewBlocks},
      {"five blocks", 4, BlockCut, 10, 1, 10, kOk},
      {"no straight cut", 5, BlockRapid, 10, 1, 10, kNoCut},
      {"arcs only", 5, BlockArcCw, 10, 1, 10, kNoCut},
      {"no tolerance", 5, BlockCut, 10, 0, 10, kBadSizes},
      {"tolerance is no number", 5, BlockCut, 10, std::nanf(""), 10, kBadSizes},
      {"infinite tolerance", 5, BlockCut, 10, HUGE_VALF, 10, kBadSizes},
      {"more cells than the budget", 5, BlockCut, 10, 0.001F, 10, kBadSizes},
      {"huge coordinates", 5, BlockCut, 3e38F, 1, 10, kBadSizes},
      {"infinite tool", 5, BlockCut, 10, 1, HUGE_VALF, kBadSizes},
      {"wider than the range of coordinates", 5, BlockCut, 10'000, 30'000, 10, kTooWide},
  };
  for (const auto& [about, moves, type, size, tolerance, diameter, result] : rows) {
    Build build;
    build.input.MasterTolerance = tolerance;
    build.input.MasterToolDiameter = diameter;
    build.grid = EmptyGrid(2, 2, 1);
    build.Add(BlockRapidStart, 0, 0, 5);
    for (int i = 0; i < moves; ++i) {
      build.Add(type, i % 2 == 0 ? std::min(size, 1e4F) : 0, size * static_cast<float>(i) / 4, 0);
    }
    const std::string before = Bytes(build.program.store);
    EXPECT_EQ(build.Run(), result) << about;
    const bool unchanged = Bytes(build.program.store) == before && build.grid.CellCount == 4;
    EXPECT_EQ(unchanged, result != kOk) << about;
  }
}

TEST(BuildMaster, WithoutMemoryLeavesNoModelAndAProgramToReload) {
  Build build;
  build.grid = MasterGrid(AllocateWhileAllowed);
  for (const int allocations : {1, 0}) {  // one is enough: the cells need not be shrunk
    build.FillRaster();
    allocationsLeft = allocations;
    EXPECT_EQ(build.Run(), allocations == 1 ? StatusKind::kOk : StatusKind::kNoMemory);
    EXPECT_EQ(build.grid.ModelBuilt, allocations);
    EXPECT_EQ(build.grid.CellCount, 36 * allocations);
  }
  // In grid coordinates, and still a program.
  EXPECT_EQ(BlockText(*build.program.store.Peek(0)), "rapidStart 1 1 50 F1000");
}

TEST(SamplePath, HugeCoordinatesFinishQuickly) {
  Build build;
  build.FillRaster();
  build.Add(BlockCutStart, 5, -3e38F, 1);
  build.Add(BlockCut, 5, 0, 1);
  build.grid = EmptyGrid(20, 20, 1);
  SamplePath(&build.program.store, &build.grid);
  EXPECT_EQ(build.grid.At(4, 5).z, 1);
}

// Moves by type, X and Z, and the types that the clean-up leaves.
TEST(CleanPlunges, RemovesStraightPlunges) {
  using Move = std::tuple<BlockType, float, float>;
  constexpr BlockType kRapid = BlockRapid, kCut = BlockCut, kStart = BlockCutStart;
  const Rows<const char*, std::vector<Move>, std::vector<BlockType>> rows = {
      {"plunge in steps, rapid and cut",
       {{kRapid, 0, 9}, {kRapid, 0, 2}, {kStart, 0, 0}, {kCut, 5, 0}, {kCut, 6, 0}},
       {kRapid, BlockNone, kRapid, kStart, kCut}},
      {"line without a move in between",
       {{kRapid, 0, 9}, {kStart, 0, 0}, {BlockNone, 0, 0}, {kCut, 5, 0}},
       {kRapid, kRapid, BlockNone, kStart}},
      {"next move of any type starts the cut",
       {{kRapid, 0, 9}, {kStart, 0, 0}, {BlockArcCw, 5, 0}, {kRapid, 5, 0}},
       {kRapid, kRapid, kStart, kRapid}},
      {"cut that continues downwards stays",
       {{kRapid, 0, 9}, {kStart, 5, 9}, {kCut, 5, 0}, {kCut, 9, 0}},
       {kRapid, kStart, kCut, kCut}},
      {"plunge that no move leaves stays", {{kRapid, 5, 9}, {kRapid, 5, 4}}, {kRapid, kRapid}},
      {"way back up ends the plunge",
       {{kRapid, 0, 9}, {kStart, 0, 0}, {kRapid, 0, 9}, {kRapid, 9, 9}},
       {kRapid, kRapid, kStart, kRapid}},
      {"repeated point ends the plunge, and is no plunge itself",
       {{kRapid, 0, 9}, {kStart, 0, 0}, {kStart, 0, -0.00001F}, {kCut, 0, -1}, {kCut, 5, -1}},
       {kRapid, kRapid, kStart, kCut, kCut}},
      {"only one move", {{kRapid, 0, 9}}, {kRapid}},
  };
  for (const auto& [about, moves, types] : rows) {
    BlockStore store;
    for (const auto& [type, x, z] : moves) Append(&store, type, x, 0, z);
    CleanPlunges(&store);
    for (uint32_t i = 0; i < types.size(); ++i) EXPECT_EQ(store.Peek(i)->type, types[i]) << about;
  }
}

TEST(CleanPlunges, EndsOnAProgramThatOnlyGoesDown) {
  BlockStore store;
  for (int i = 0; i < 300'000; ++i) Append(&store, BlockRapid, 0, 0, static_cast<float>(-i) * 0.1F);
  CleanPlunges(&store);
  EXPECT_EQ(store.Peek(299'999)->type, BlockRapid);
}

TEST(MasterAngles, UseTheCellBeforeOrElseTheNextOne) {
  MasterGrid grid = EmptyGrid(6, 2, 1);
  const float heights[] = {0, 0, 1, kNoHeight, 1, 4};
  for (int32_t ix = 0; ix < 6; ++ix) grid.At(ix, 1).z = heights[ix];
  MasterAngles(&grid);
  const int16_t angles[] = {0, 44, 44, 0, 71, 71};  // 1 up is 44.996, 3 up 71
  for (int32_t ix = 0; ix < 6; ++ix) EXPECT_EQ(grid.At(ix, 1).angle, angles[ix]) << ix;
}

TEST(ShowMaster, ReplacesTheProgram) {
  NcProgram program;
  program.FeedBase = 600;
  Append(&program.store, BlockCut, 1, 2, 3);
  program.store.CurrentBlock.tailFeed = 5;
  ShowMaster(MasterGrid(), &program);
  EXPECT_EQ(BlockList(program.store), "cut 1 2 3 F1000");  // without a model

  // A single column is no surface, and has no cell where a line could start.
  ShowMaster(EmptyGrid(1, 4, 1), &program);
  EXPECT_EQ(BlockList(program.store),
            "rapidStart 0 0 500 F600; rapidStart 1 1 500 F600; rapid 1 1 500 F600; "
            "rapidStart 1 1 500 F600");
  EXPECT_EQ(program.store.Peek(3)->feedProgrammed, 600);
  EXPECT_EQ(program.store.Peek(3)->tailFeed, 0);
}

// Files and pictures of models of random programs. A second, plain implementation of the build
// agreed with this one on every cell when the sum was taken.
TEST(BuildMaster, RandomProgramsKeepTheirModels) {
  uint32_t sum = 0;
  for (uint32_t seed = 0; seed < 150; ++seed) {
    Random random(seed);
    Build build;
    MemoryFiles files;
    build.input.MasterTolerance = 0.15F * static_cast<float>(random.Whole(1, 20));
    Fill(&build.program.store, RandomProgram(&random, 20 + seed, false));
    if (build.Run() != StatusKind::kOk) continue;
    WriteMasterFile("c:\\a.mma", build.grid, &files);
    AddTo(&sum, files.Bytes("c:\\a.mma") + Bytes(build.program.store));
  }
  EXPECT_EQ(sum, 3543148826);
}

}  // namespace
}  // namespace tvx
