#include "feed/master_build.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

#include "feed/master_fixture.h"
#include "feed/master_picture.h"
#include "model/block_list.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

// One window's state around a build.
struct Build {
  NcProgram program;
  MasterGrid grid;
  CMasterDlg input;
  int32_t RapidVisible = 1;
  ScriptedUi ui;

  explicit Build(float tolerance = 1.25F) { input.MasterTolerance = tolerance; }

  void Add(BlockType type, float x, float y, float z) { Append(&program.store, type, x, y, z); }
  int Run() { return BuildMaster(input, &program, &grid, &RapidVisible, &ui); }

  // Passes along X over a surface, y from row to row by 1.25, in moves of 0.25: with the tolerance
  // of 1.25 the cells are 0.25 mm apart during the build, and each node of them in a row is the
  // start of a move, so that the heights come out exactly. A profile gives one or two heights at x.
  void Raster(float size, const std::function<std::vector<float>(float, float)>& profile) {
    for (float y = 0; y <= size; y += 1.25F) {
      Add(BlockRapidStart, 0, y, 50);
      Add(BlockCutStart, 0, y, profile(0, y).front());
      for (float x = 0.25F; x <= size; x += 0.25F) {
        for (const float z : profile(x, y)) Add(BlockCut, x, y, z);
      }
      Add(BlockRapidStart, size, y, 50);
    }
  }
};

std::string Heights(const MasterGrid& grid, int32_t iy) {
  std::string text;
  for (int32_t ix = 0; ix < grid.NX; ++ix) text += " " + ShortestFloat(grid.At(ix, iy).z);
  return text;
}

std::string Angles(const MasterGrid& grid, int32_t iy) {
  std::string text;
  for (int32_t ix = 0; ix < grid.NX; ++ix) text += " " + std::to_string(grid.At(ix, iy).angle);
  return text;
}

// A block with a slope of 45 degrees and a step of 5 mm. Its angles by hand: 45 degrees measure
// 44.996 and are cut off to 44; the step lies between two cells 1.25 apart, atan(5 / 1.25) = 75.96.
TEST(BuildMaster, SteppedBlock) {
  Build build;
  build.Raster(10, [](float x, float) -> std::vector<float> {
    if (x <= 2.5F) return {0};
    if (x <= 3.75F) return {x - 2.5F};
    if (x < 6.25F) return {1.25F};
    if (x == 6.25F) return {1.25F, 6.25F};
    return {6.25F};
  });
  ASSERT_EQ(build.Run(), 1);
  const MasterGrid& grid = build.grid;
  EXPECT_EQ(grid.OriginX, -1.25F);
  EXPECT_EQ(grid.OriginY, -1.25F);
  EXPECT_EQ(grid.MinZ, 0);
  EXPECT_EQ(grid.MaxX, 11.25F);
  EXPECT_EQ(grid.MaxY, 11.25F);
  EXPECT_EQ(grid.MaxZ, 6.25F);
  EXPECT_EQ(grid.ToolSize, 10.0F);
  EXPECT_EQ(grid.CellSize, 1.25F);
  EXPECT_EQ(grid.ModelBuilt, 1);
  ASSERT_EQ(grid.NX, 9);
  ASSERT_EQ(grid.NY, 9);
  EXPECT_EQ(grid.CellCount, 81);
  EXPECT_EQ(Heights(grid, 0), " -9999 -9999 -9999 -9999 -9999 -9999 -9999 -9999 -9999");
  EXPECT_EQ(Angles(grid, 0), " 0 0 0 0 0 0 0 0 0");
  for (int32_t iy = 1; iy < 9; ++iy) {
    EXPECT_EQ(Heights(grid, iy), " -9999 0 0 0 1.25 1.25 1.25 6.25 6.25") << iy;
    EXPECT_EQ(Angles(grid, iy), " 0 0 0 0 44 0 0 75 0") << iy;
  }
  EXPECT_EQ(build.RapidVisible, 0);
  EXPECT_EQ(build.ui.repaints, 1);
  // The first move of the picture, back in world coordinates.
  EXPECT_EQ(BlockText(*build.program.store.Peek(0)), "rapidStart -1.25 -1.25 500 F0");
  // The surface between the cells of the step is found from below it, at the step only.
  int32_t angle = 0;
  EXPECT_TRUE(MasterLookup(grid, {7.5F, 5, 6}, 1.25F, &angle));
  EXPECT_EQ(angle, 75);
  EXPECT_FALSE(MasterLookup(grid, {2.5F, 5, 2}, 1.25F, &angle));
}

TEST(BuildMaster, HemisphereHasTheSlopesBetweenItsCells) {
  constexpr float kRadius = 20;
  const auto height = [](double x, double y) {
    const double under = kRadius * kRadius - (x - 20) * (x - 20) - (y - 20) * (y - 20);
    return under > 0 ? std::sqrt(under) : 0.0;
  };
  Build build;
  build.Raster(40, [&](float x, float y) -> std::vector<float> {
    return {static_cast<float>(height(x, y))};
  });
  ASSERT_EQ(build.Run(), 1);
  const MasterGrid& grid = build.grid;
  ASSERT_EQ(grid.NX, 33);
  int steep = 0;
  for (int32_t iy = 2; iy < grid.NY; ++iy) {
    for (int32_t ix = 2; ix < grid.NX; ++ix) {
      const double x = (ix - 1) * 1.25, y = (iy - 1) * 1.25;
      ASSERT_FLOAT_EQ(grid.At(ix, iy).z, static_cast<float>(height(x, y))) << ix << " " << iy;
      const double step = std::max(std::abs(height(x, y) - height(x - 1.25, y)),
                                   std::abs(height(x, y) - height(x, y - 1.25)));
      // Degrees are a little stretched in this program, by 3 hundredths at most.
      EXPECT_NEAR(grid.At(ix, iy).angle, std::atan(step / 1.25) * 180 / std::numbers::pi - 0.5,
                  0.54)
          << ix << " " << iy;
      if (grid.At(ix, iy).angle > 60) ++steep;
    }
  }
  EXPECT_GT(steep, 50);
}

TEST(BuildMaster, RefinementKeepsTheBudget) {
  const struct {
    double columns, rows;
    int32_t k;
  } cases[] = {
      {101, 101, 5},   {1001, 1001, 2},   {0, 40, 5},        {171'428, 1, 5}, {171'429, 1, 4},
      {2001, 2001, 1}, {4'285'714, 1, 1}, {4'285'715, 1, 0}, {1e30, 1e30, 0},
  };
  for (const auto& c : cases) EXPECT_EQ(Refinement(c.columns, c.rows), c.k) << c.columns;
}

TEST(BuildMaster, RefusesWithEverythingUnchanged) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const struct {
    const char* about;
    float tolerance, diameter;
    BlockType type;  // of the five moves of the program
    float size;      // their length
  } cases[] = {
      {"no straight cut", 1, 10, BlockRapid, 10},
      {"arcs are none", 1, 10, BlockArcCw, 10},
      {"no tolerance", 0, 10, BlockCut, 10},
      {"negative tolerance", -1, 10, BlockCut, 10},
      {"tolerance is no number", std::nanf(""), 10, BlockCut, 10},
      {"more cells than the budget", 0.001F, 10, BlockCut, 10},
      {"endless tolerance", kInfinity, 10, BlockCut, 10},
      {"out of the range of coordinates", 30'000, 10, BlockCut, 10'000},
      {"endless tool", 1, kInfinity, BlockCut, 10},
  };
  for (const auto& c : cases) {
    Build build;
    build.grid = EmptyGrid(2, 2, 1);
    build.Add(BlockRapidStart, 0, 0, 5);
    for (int i = 0; i < 5; ++i) {
      build.Add(c.type, i % 2 == 0 ? c.size : 0, c.size * static_cast<float>(i) / 4, 0);
    }
    const std::string before = BlockList(build.program.store);
    build.input.MasterTolerance = c.tolerance;
    build.input.MasterToolDiameter = c.diameter;
    EXPECT_EQ(build.Run(), 0) << c.about;
    EXPECT_EQ(BlockList(build.program.store), before) << c.about;
    EXPECT_EQ(build.grid.CellCount, 4) << c.about;
    EXPECT_TRUE(build.ui.log.empty()) << c.about;
    build.input = CMasterDlg();
    EXPECT_EQ(build.Run(), c.type == BlockCut && c.size == 10) << c.about;
  }
}

TEST(BuildMaster, RefusesFewerThanFiveBlocks) {
  Build build;
  build.Add(BlockRapidStart, 0, 0, 5);
  for (float x = 0; x < 3; ++x) build.Add(BlockCut, x, x, 0);
  EXPECT_EQ(build.Run(), 0);
  build.Add(BlockNone, 0, 0, 0);
  EXPECT_EQ(build.Run(), 1);
}

TEST(BuildMaster, WithoutMemoryLeavesNoModelAndAProgramToReload) {
  Build build;
  build.grid = MasterGrid(AllocateWhileAllowed);
  build.Raster(5, [](float, float) -> std::vector<float> { return {1}; });
  allocationsLeft = 0;
  EXPECT_EQ(build.Run(), 0);
  ASSERT_EQ(build.ui.messages.size(), 1U);
  EXPECT_EQ(build.ui.messages[0].text, "Memory를 할당할 수 없습니다!!!");
  EXPECT_EQ(build.ui.messages[0].caption, " Message");
  EXPECT_EQ(build.ui.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(build.ui.statusTexts.size(), 1U);
  EXPECT_EQ(build.ui.repaints, 0);
  EXPECT_EQ(build.grid.ModelBuilt, 0);
  EXPECT_EQ(build.grid.CellCount, 0);
  EXPECT_EQ(build.RapidVisible, 1);
  // In grid coordinates, and still a program.
  EXPECT_EQ(BlockText(*build.program.store.Peek(0)), "rapidStart 1.25 1.25 50 F1000");
}

TEST(BuildMaster, NeedsNoSecondMemory) {
  Build build;
  build.grid = MasterGrid(AllocateWhileAllowed);
  build.Raster(5, [](float, float) -> std::vector<float> { return {1}; });
  allocationsLeft = 1;
  EXPECT_EQ(build.Run(), 1);
  EXPECT_EQ(build.grid.CellCount, 25);
  EXPECT_EQ(Heights(build.grid, 4), " -9999 1 1 1 1");
}

// A rapid behind a plunge becomes a cut, wherever it goes.
TEST(BuildMaster, RefusesAGridFarBeyondTheBudget) {
  Build build(0.1F);
  build.Add(BlockRapidStart, 0, 0, 10);
  for (float x = 0; x < 5; ++x) build.Add(BlockCut, x, x, 10);
  build.Add(BlockCutStart, 4, 4, 0);
  build.Add(BlockRapidStart, 30'000, 30'000, 10);
  EXPECT_EQ(build.Run(), 0);
  EXPECT_EQ(build.ui.messages.size(), 1U);
  EXPECT_TRUE(build.grid.Cells.Empty());
}

TEST(BuildMaster, MovesBeyondAllMeasureTakeNoTime) {
  Build build;
  build.Raster(5, [](float, float) -> std::vector<float> { return {1}; });
  build.Add(BlockCutStart, 5, -3e38F, 1);
  build.Add(BlockCut, 5, 0, 1);
  build.Add(BlockRapid, 5, 0, -5);
  build.Add(BlockRapid, 5, -2e38F, 1);
  EXPECT_EQ(build.Run(), 0);  // such a part gives no refinement
  BlockStore* store = &build.program.store;
  MasterGrid grid = EmptyGrid(20, 20, 1);
  SamplePath(store, &grid);
  EXPECT_EQ(grid.At(4, 5).z, 1);
}

TEST(CleanPlunges, TakesStraightPlungesOut) {
  struct Row {
    BlockType type;
    float x, y, z;
  };
  const struct {
    const char* about;
    std::vector<Row> moves;
    std::string cleaned;
  } cases[] = {
      {"a plunge in steps, rapid and cut",
       {{BlockRapidStart, 0, 0, 9},
        {BlockRapid, 0, 0, 2},
        {BlockCutStart, 0, 0, 0},
        {BlockCut, 5, 0, 0},
        {BlockCut, 5, 5, 0}},
       "rapidStart 0 0 9 F7; none; rapid 0 0 0 F7; cutStart 5 0 0 F7; cut 5 5 0 F7"},
      {"lines without moves in between",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 0, 0, 0},
        {BlockNone, 0, 0, 0},
        {BlockCut, 5, 0, 0}},
       "rapidStart 0 0 9 F7; rapid 0 0 0 F7; none; cutStart 5 0 0 F7"},
      {"a move of any type starts the cut behind it",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 0, 0, 0},
        {BlockArcCw, 5, 5, 0},
        {BlockArcCentre, 5, 0, 0},
        {BlockRapidStart, 5, 5, 9},
        {BlockRapid, 5, 5, 3},
        {BlockRapid, 5, 9, 3}},
       "rapidStart 0 0 9 F7; rapid 0 0 0 F7; cutStart 5 5 0 F7; centre 5 0 0 F7; "
       "rapidStart 5 5 9 F7; rapid 5 5 3 F7; cutStart 5 9 3 F7"},
      {"a cut that goes on downwards stays",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 5, 0, 9},
        {BlockCut, 5, 0, 0},
        {BlockCut, 9, 0, 0}},
       "rapidStart 0 0 9 F7; cutStart 5 0 9 F7; cut 5 0 0 F7; cut 9 0 0 F7"},
      {"a plunge that no move leaves stays",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 5, 0, 9},
        {BlockRapidStart, 5, 0, 4},
        {BlockRapid, 5, 0, 2}},
       "rapidStart 0 0 9 F7; cutStart 5 0 9 F7; rapidStart 5 0 4 F7; rapid 5 0 2 F7"},
      {"the way back up leaves the line",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 0, 0, 0},
        {BlockRapidStart, 0, 0, 9},
        {BlockRapid, 9, 0, 9}},
       "rapidStart 0 0 9 F7; rapid 0 0 0 F7; cutStart 0 0 9 F7; rapid 9 0 9 F7"},
      {"a repeated point ends the line, and is no plunge itself",
       {{BlockRapidStart, 0, 0, 9},
        {BlockCutStart, 0, 0, 0},
        {BlockCutStart, 0, 0, 0},
        {BlockCut, 0, 0, -1},
        {BlockCut, 5, 0, -1}},
       "rapidStart 0 0 9 F7; rapid 0 0 0 F7; cutStart 0 0 0 F7; cut 0 0 -1 F7; cut 5 0 -1 F7"},
      {"nothing but one move", {{BlockRapidStart, 0, 0, 9}}, "rapidStart 0 0 9 F7"},
  };
  for (const auto& c : cases) {
    BlockStore store;
    for (const Row& row : c.moves) Append(&store, row.type, row.x, row.y, row.z, 7);
    CleanPlunges(&store);
    EXPECT_EQ(BlockList(store), c.cleaned) << c.about;
  }
}

TEST(CleanPlunges, EndsOnAProgramThatOnlyGoesDown) {
  BlockStore store;
  for (int i = 0; i < 300'000; ++i) Append(&store, BlockRapid, 0, 0, static_cast<float>(-i) * 0.1F);
  CleanPlunges(&store);
  EXPECT_EQ(store.Peek(299'999)->type, BlockRapid);
}

TEST(SamplePath, CellsKeepThePointNearestToTheirNode) {
  BlockStore store;
  MasterGrid grid = EmptyGrid(6, 4, 1);
  Append(&store, BlockRapidStart, 1.75F, 1.25F, 0);
  Append(&store, BlockCutStart, 1.75F, 1.75F, 1);  // half a cell long: its start only
  Append(&store, BlockCut, 1.25F, 1.5F, 2);        // deposits (1.75, 1.75, 1)
  Append(&store, BlockCut, 1.25F, 1.25F, 3);       // deposits (1.25, 1.5, 2)
  Append(&store, BlockCut, 1.25F, 1.25F, 9);       // straight up: its start, (1.25, 1.25, 3)
  Append(&store, BlockCut, 1.5F, 1.5F, 9);         // deposits (1.25, 1.25, 9), as near as the last
  Append(&store, BlockRapid, 4.5F, 2.5F, 9);
  Append(&store, BlockCutStart, 4.5F, 2.5F, 4);  // straight down: its end
  Append(&store, BlockRapid, 5.5F, 1.5F, 7);
  Append(&store, BlockCutStart, 7.5F, 1.5F,
         7);  // out of the grid, in two cells of which one counts
  SamplePath(&store, &grid);
  EXPECT_EQ(grid.At(1, 1).x, 1.25F);
  EXPECT_EQ(grid.At(1, 1).y, 1.25F);
  EXPECT_EQ(grid.At(1, 1).z, 3);
  EXPECT_EQ(grid.At(4, 2).z, 4);
  EXPECT_EQ(grid.At(5, 1).z, 7);
  int held = 0;
  for (size_t i = 0; i < 24; ++i) held += HasHeight(grid.Cells[i]);
  EXPECT_EQ(held, 3);
}

// Four cells long: 9 points, each 4 / 9 from the last.
TEST(SamplePath, TakesTwoPointsToACell) {
  BlockStore store;
  MasterGrid grid = EmptyGrid(8, 3, 1);
  Append(&store, BlockRapidStart, 1, 1.5F, 0);
  Append(&store, BlockCutStart, 5, 1.5005F, 9);  // too little along Y to follow it
  SamplePath(&store, &grid);
  std::string points;
  for (int32_t ix = 0; ix < 8; ++ix) {
    const MasterCell& cell = grid.At(ix, 1);
    points += HasHeight(cell) ? Format(" %.3f %.4f %.3f /", cell.x, cell.y, cell.z) : " . /";
  }
  EXPECT_EQ(points,
            " . / 1.000 1.5000 0.000 / 2.333 1.5000 3.000 / 3.222 1.5000 5.000 /"
            " 4.111 1.5000 7.000 / . / . / . /");
}

struct Stored {
  int32_t ix, iy;
  float x, y, z;
};

TEST(FillGaps, FillsAlongRowsAndColumns) {
  const struct {
    const char* about;
    std::vector<Stored> points;
    std::string rows;  // heights of rows 1 to 5
  } cases[] = {
      {"along a row, both ends put on their nodes",
       {{1, 1, 1.5F, 1, 0.5F}, {4, 1, 4.5F, 1, 3.5F}},
       " 0 1 2 3 . . . / . . . . . . . / . . . . . . . / . . . . . . . / . . . . . . . /"},
      {"four cells are too far",
       {{1, 1, 1, 1, 0}, {5, 1, 5, 1, 4}},
       " 0 . . . 4 . . / . . . . . . . / . . . . . . . / . . . . . . . / . . . . . . . /"},
      {"column 0 is left out",
       {{0, 1, 0, 1, 0}, {3, 1, 3, 1, 3}},
       " . . 3 . . . . / . . . . . . . / . . . . . . . / . . . . . . . / . . . . . . . /"},
      {"along a column",
       {{2, 1, 2, 1, 0}, {2, 4, 2, 4, 6}},
       " . 0 . . . . . / . 2 . . . . . / . 4 . . . . . / . 6 . . . . . / . . . . . . . /"},
      // The filled cell of row 1 has no position: its -9999 stands in the line, so the cell above
      // it takes hardly any slope and hands its own height down.
      {"a column that ends on a filled cell",
       {{1, 1, 1, 1, 0}, {3, 1, 3, 1, 0}, {2, 3, 2, 3, 8}},
       " 0 7.998 0 . . . . / . 7.999 . . . . . / . 8 . . . . . / . . . . . . . / . . . . . . . /"},
  };
  for (const auto& c : cases) {
    MasterGrid grid = EmptyGrid(8, 6, 1);
    for (const Stored& p : c.points) {
      MasterCell& cell = grid.At(p.ix, p.iy);
      cell.x = p.x;
      cell.y = p.y;
      cell.z = p.z;
    }
    FillGaps(&grid);
    std::string rows;
    for (int32_t iy = 1; iy < 6; ++iy) {
      for (int32_t ix = 1; ix < 8; ++ix) {
        const MasterCell& cell = grid.At(ix, iy);
        rows += HasHeight(cell) ? " " + ShortestFloat(std::round(cell.z * 1000) / 1000) : " .";
      }
      rows += " /";
    }
    EXPECT_EQ(rows, c.rows) << c.about;
  }
}

TEST(ThinOut, KeepsEveryKthCell) {
  MasterGrid grid = EmptyGrid(8, 5, 0.5F);
  for (int32_t iy = 0; iy < 5; ++iy) {
    for (int32_t ix = 0; ix < 8; ++ix) grid.At(ix, iy).z = static_cast<float>(10 * iy + ix);
  }
  ThinOut(&grid, 2, 1.0F);
  EXPECT_EQ(grid.NX, 4);
  EXPECT_EQ(grid.NY, 2);
  EXPECT_EQ(grid.CellCount, 8);
  EXPECT_EQ(grid.CellSize, 1.0F);
  EXPECT_EQ(Heights(grid, 0), " 0 2 4 6");
  EXPECT_EQ(Heights(grid, 1), " 20 22 24 26");
}

TEST(MasterAngles, LooksBackFirstAndAheadWhereNothingIsThere) {
  MasterGrid grid = EmptyGrid(6, 3, 1);
  const float heights[2][6] = {{0, 0, 1, kNoHeight, 1, 4}, {0, 0, 3, kNoHeight, kNoHeight, 5}};
  for (int32_t iy = 1; iy < 3; ++iy) {
    for (int32_t ix = 0; ix < 6; ++ix) grid.At(ix, iy).z = heights[iy - 1][ix];
  }
  MasterAngles(&grid);
  // Row 1: against the cell ahead in both directions; 1 up is 44, 2 up 63, 3 up 71, 1 down 44.
  EXPECT_EQ(Angles(grid, 1), " 0 44 63 0 71 71");
  EXPECT_EQ(Angles(grid, 2), " 0 71 71 0 0 44");
}

TEST(ShowMaster, LaysEveryFifthRowAndColumn) {
  MasterGrid grid = EmptyGrid(8, 3, 2);
  grid.OriginX = 100;
  grid.OriginY = 50;
  SetCell(&grid, 1, 1, 7, 0);
  SetCell(&grid, 6, 1, 8, 0);
  SetCell(&grid, 6, 2, 9, 0);  // between the lines
  NcProgram program;
  program.FeedBase = 600;
  Append(&program.store, BlockCut, 1, 2, 3);
  program.store.CurrentBlock.tailFeed = 5;
  int32_t RapidVisible = 1;
  ShowMaster(grid, &program, &RapidVisible);
  EXPECT_EQ(BlockList(program.store),
            "rapidStart 100 50 500 F600; "
            // Row 1.
            "rapidStart 102 52 500 F600; rapid 102 52 7 F600; "
            "rapid 102 52 7 F600; cutStart 102 52 7 F600; cut 112 52 8 F600; "
            "rapidStart 112 52 500 F600; "
            // Column 1, then column 6.
            "rapidStart 102 52 500 F600; rapid 102 52 7 F600; "
            "rapid 102 52 7 F600; cutStart 102 52 7 F600; rapidStart 102 52 500 F600; "
            "rapidStart 112 52 500 F600; rapid 112 52 8 F600; "
            "rapid 112 52 8 F600; cutStart 112 52 8 F600; rapidStart 112 52 500 F600");
  EXPECT_EQ(RapidVisible, 0);
  EXPECT_EQ(program.store.Peek(3)->feedProgrammed, 600);
  EXPECT_EQ(program.store.Peek(3)->tailFeed, 0);
}

TEST(ShowMaster, LeavesTheSurfaceAtHoles) {
  MasterGrid grid = EmptyGrid(12, 2, 1);
  SetCell(&grid, 6, 1, 3, 0);
  NcProgram program;
  int32_t RapidVisible = 1;
  ShowMaster(grid, &program, &RapidVisible);
  EXPECT_EQ(BlockList(program.store).substr(0, 191),
            "rapidStart 0 0 500 F0; rapidStart 1 1 500 F0; rapid 1 1 500 F0; "
            "rapidStart 1 1 500 F0; rapid 6 1 3 F0; cutStart 6 1 3 F0; "
            "rapidStart 11 1 500 F0; rapidStart 11 1 500 F0; rapidStart 1 1 500 F0");
}

TEST(ShowMaster, LeavesEverythingWithoutAModel) {
  NcProgram program;
  Append(&program.store, BlockCut, 1, 2, 3);
  int32_t RapidVisible = 1;
  ShowMaster(MasterGrid(), &program, &RapidVisible);
  EXPECT_EQ(BlockList(program.store), "cut 1 2 3 F1000");
  EXPECT_EQ(RapidVisible, 1);
  // A single row has no cell where a line could start, and one column is no surface either.
  ShowMaster(EmptyGrid(1, 4, 1), &program, &RapidVisible);
  EXPECT_EQ(
      BlockList(program.store),
      "rapidStart 0 0 500 F0; rapidStart 1 1 500 F0; rapid 1 1 500 F0; rapidStart 1 1 500 F0");
}

}  // namespace
}  // namespace tvx
