#include "feed/master_build.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <numbers>
#include <regex>

#include "base/numbers.h"
#include "feed/master_picture.h"
#include "feed_fixture.h"
#include "model/loader.h"
#include "model/walks.h"
#include "support/block_list.h"
#include "support/memory_files.h"

namespace tvx {
namespace {

double Flat(double, double) {
  return 1;
}

// One window's state around a build.
struct Build {
  NcProgram program;
  MasterGrid grid;
  CMasterDlg input;

  explicit Build(float tolerance = 1.25F) { input.MasterTolerance = tolerance; }

  void Add(BlockType type, float x, float y, float z) { Append(&program.store, type, x, y, z); }
  BuildResult Run() { return BuildMaster(input, &program, &grid); }

  // Passes along X over a surface, y from row to row by 1.25, in moves of 0.25: with the tolerance
  // of 1.25 the cells are 0.25 mm apart during the build, and each node of them in a row is the
  // start of a move, so that the heights come out exactly.
  void Raster(float size, const std::function<double(double, double)>& height) {
    const auto cut = [&](BlockType type, float x, float y) {
      Add(type, x, y, static_cast<float>(height(x, y)));
    };
    for (float y = 0; y <= size; y += 1.25F) {
      Add(BlockRapidStart, 0, y, 50);
      cut(BlockCutStart, 0, y);
      for (float x = 0.25F; x <= size; x += 0.25F) cut(BlockCut, x, y);
      Add(BlockRapidStart, size, y, 50);
    }
  }
};

TEST(BuildMaster, HemisphereHasTheSlopesBetweenItsCells) {
  const auto height = [](double x, double y) {
    return std::sqrt(std::max(0.0, 20 * 20 - (x - 20) * (x - 20) - (y - 20) * (y - 20)));
  };
  Build build;
  build.Raster(40, height);
  ASSERT_EQ(build.Run(), BuildResult::kBuilt);
  ASSERT_EQ(build.grid.NX, 33);
  for (int32_t iy = 2; iy < 33; ++iy) {
    for (int32_t ix = 2; ix < 33; ++ix) {
      const MasterCell& cell = build.grid.At(ix, iy);
      const double x = (ix - 1) * 1.25, y = (iy - 1) * 1.25, z = height(x, y);
      ASSERT_FLOAT_EQ(cell.z, static_cast<float>(z)) << ix << " " << iy;
      const double step =
          std::max(std::abs(z - height(x - 1.25, y)), std::abs(z - height(x, y - 1.25)));
      // Degrees are a little stretched in this program, by 3 hundredths at most.
      const double degrees = std::atan(step / 1.25) * 180 / std::numbers::pi;
      ASSERT_NEAR(cell.angle, degrees - 0.5, 0.54) << ix << " " << iy;
    }
  }
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
  const struct {
    const char* about;
    float tolerance, diameter;
    BlockType type;  // of the five moves of the program
    float size;      // their length
    BuildResult result;
  } cases[] = {
      {"no straight cut", 1, 10, BlockRapid, 10, BuildResult::kNoCut},
      {"arcs are none", 1, 10, BlockArcCw, 10, BuildResult::kNoCut},
      {"no tolerance", 0, 10, BlockCut, 10, BuildResult::kSizes},
      {"negative tolerance", -1, 10, BlockCut, 10, BuildResult::kSizes},
      {"tolerance is no number", std::nanf(""), 10, BlockCut, 10, BuildResult::kSizes},
      {"more cells than the budget", 0.001F, 10, BlockCut, 10, BuildResult::kSizes},
      {"endless tolerance", HUGE_VALF, 10, BlockCut, 10, BuildResult::kSizes},
      {"out of the range of coordinates", 30'000, 10, BlockCut, 10'000, BuildResult::kTooWide},
      {"endless tool", 1, HUGE_VALF, BlockCut, 10, BuildResult::kSizes},
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
    EXPECT_EQ(build.Run(), c.result) << c.about;
    EXPECT_EQ(BlockList(build.program.store), before) << c.about;
    EXPECT_EQ(build.grid.CellCount, 4) << c.about;
  }
  Build build;
  build.Add(BlockRapidStart, 0, 0, 5);
  for (float x = 0; x < 3; ++x) build.Add(BlockCut, x, x, 0);
  EXPECT_EQ(build.Run(), BuildResult::kFewBlocks);
  build.Add(BlockNone, 0, 0, 0);
  EXPECT_EQ(build.Run(), BuildResult::kBuilt);
}

TEST(BuildMaster, WithoutMemoryLeavesNoModelAndAProgramToReload) {
  Build build;
  build.grid = MasterGrid(AllocateWhileAllowed);
  build.Raster(5, Flat);
  allocationsLeft = 1;
  EXPECT_EQ(build.Run(), BuildResult::kBuilt);  // needs no more
  EXPECT_EQ(build.grid.CellCount, 25);
  EXPECT_EQ(build.grid.At(4, 4).z, 1);
  build.program.store.blockCount = 0;
  build.Raster(5, Flat);
  allocationsLeft = 0;
  EXPECT_EQ(build.Run(), BuildResult::kNoMemory);
  EXPECT_EQ(build.grid.ModelBuilt, 0);
  EXPECT_EQ(build.grid.CellCount, 0);
  // In grid coordinates, and still a program.
  EXPECT_EQ(BlockText(*build.program.store.Peek(0)), "rapidStart 1.25 1.25 50 F1000");
}

// A rapid behind a plunge becomes a cut, wherever it goes.
TEST(BuildMaster, RefusesAGridFarBeyondTheBudget) {
  Build build(0.1F);
  build.Add(BlockRapidStart, 0, 0, 10);
  for (float x = 0; x < 5; ++x) build.Add(BlockCut, x, x, 10);
  build.Add(BlockCutStart, 4, 4, 0);
  build.Add(BlockRapidStart, 30'000, 30'000, 10);
  EXPECT_EQ(build.Run(), BuildResult::kNoMemory);
  EXPECT_TRUE(build.grid.Cells.Empty());
}

TEST(BuildMaster, MovesBeyondAllMeasureTakeNoTime) {
  Build build;
  build.Raster(5, Flat);
  build.Add(BlockCutStart, 5, -3e38F, 1);
  build.Add(BlockCut, 5, 0, 1);
  build.Add(BlockRapid, 5, 0, -5);
  build.Add(BlockRapid, 5, -2e38F, 1);
  EXPECT_EQ(build.Run(), BuildResult::kSizes);
  BlockStore* store = &build.program.store;
  MasterGrid grid = EmptyGrid(20, 20, 1);
  SamplePath(store, &grid);
  EXPECT_EQ(grid.At(4, 5).z, 1);
}

std::string WithoutFeeds(const BlockStore& store) {
  return std::regex_replace(BlockList(store), std::regex(" F[0-9]+"), "");
}

TEST(CleanPlunges, TakesStraightPlungesOut) {
  const struct {
    const char* about;
    const char* program;
    const char* cleaned;
  } cases[] = {
      {"a plunge in steps, rapid and cut", "G0 Z9\nZ2\nG1 Z0\nX5\nY5",
       "rapidStart 0 0 9; none; rapid 0 0 0; cutStart 5 0 0; cut 5 5 0"},
      {"lines without moves in between", "G0 Z9\nG1 Z0\nM8\nX5",
       "rapidStart 0 0 9; rapid 0 0 0; none; cutStart 5 0 0"},
      {"a move of any type starts the cut behind it", "G0 Z9\nG1 Z0\nG2 X5 Y5 I5 J0\nG0 Z9\nZ3\nY9",
       "rapidStart 0 0 9; rapid 0 0 0; cutStart 5 5 0; centre 5 0 0; rapidStart 5 5 9; "
       "rapid 5 5 3; cutStart 5 9 3"},
      {"a cut that goes on downwards stays", "G0 Z9\nG1 X5\nZ0\nX9",
       "rapidStart 0 0 9; cutStart 5 0 9; cut 5 0 0; cut 9 0 0"},
      {"a plunge that no move leaves stays", "G0 Z9\nG1 X5\nG0 Z4\nZ2",
       "rapidStart 0 0 9; cutStart 5 0 9; rapidStart 5 0 4; rapid 5 0 2"},
      {"the way back up leaves the line", "G0 Z9\nG1 Z0\nG0 Z9\nX9",
       "rapidStart 0 0 9; rapid 0 0 0; cutStart 0 0 9; rapid 9 0 9"},
      {"a repeated point ends the line, and is no plunge itself", "G0 Z9\nG1 Z0\nZ-.00001\nZ-1\nX5",
       "rapidStart 0 0 9; rapid 0 0 0; cutStart 0 0 -0.00001; cut 0 0 -1; cut 5 0 -1"},
      {"nothing but one move", "G0 Z9", "rapidStart 0 0 9"},
  };
  for (const auto& c : cases) {
    Build build;
    MemoryFiles files;
    ParserStates states;
    JobRecord job;
    files.Put("c:\\a.nc", std::string(c.program) + "\n");
    ASSERT_EQ(LoadNcFile("c:\\a.nc", &build.program, &states, &job, &files), LoadResult::kLoaded);
    CleanPlunges(&build.program.store);
    EXPECT_EQ(WithoutFeeds(build.program.store), c.cleaned) << c.about;
  }
}

TEST(CleanPlunges, EndsOnAProgramThatOnlyGoesDown) {
  BlockStore store;
  for (int i = 0; i < 300'000; ++i) Append(&store, BlockRapid, 0, 0, static_cast<float>(-i) * 0.1F);
  CleanPlunges(&store);
  EXPECT_EQ(store.Peek(299'999)->type, BlockRapid);
}

TEST(MasterAngles, LookBackFirstAndAheadWhereNothingIsThere) {
  MasterGrid grid = EmptyGrid(6, 2, 1);
  const float heights[] = {0, 0, 1, kNoHeight, 1, 4};
  for (int32_t ix = 0; ix < 6; ++ix) grid.At(ix, 1).z = heights[ix];
  MasterAngles(&grid);
  const int16_t angles[] = {0, 44, 44, 0, 71, 71};  // 1 up is 44.996, 3 up 71
  for (int32_t ix = 0; ix < 6; ++ix) EXPECT_EQ(grid.At(ix, 1).angle, angles[ix]) << ix;
}

// Golden cases hold whole pictures.
TEST(ShowMaster, TakesThePlaceOfTheProgram) {
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

// Every stage by its rule and nothing else: no sample is left out, and the finished grid is copied
// together in place, cell by cell.
class PlainBuild {
 public:
  PlainBuild(BlockStore* store, float tolerance) : store_(store), tolerance_(tolerance) {}

  void Run() {
    Vec3 low, high;
    PathExtents(store_, &low, &high);
    const auto originX = static_cast<float>(double{low.x} - tolerance_);
    const auto originY = static_cast<float>(double{low.y} - tolerance_);
    const double n = std::trunc((double{high.x} - originX) / tolerance_) *
                     std::trunc((double{high.y} - originY) / tolerance_);
    const int k = 350 * n <= 60e6 ? 5 : TruncateToInt(std::sqrt(60e6 / (14 * n)));
    c_ = tolerance_ / static_cast<float>(k);
    for (uint32_t i = 0; i < store_->blockCount; ++i) {
      if (IsMoveBlock(store_, i) == 0) continue;
      store_->CurrentBlock.x -= originX;
      store_->CurrentBlock.y -= originY;
      store_->WriteBlock(i);
    }
    CleanPlunges(store_);
    PathExtents(store_, &low, &high);
    NX = TruncateToInt(double{high.x} / c_ + 1);
    NY = TruncateToInt(double{high.y} / c_ + 1);
    cells.assign(static_cast<size_t>(NX) * static_cast<size_t>(NY), {});
    for (uint32_t i = 0; i < store_->blockCount; ++i) Sample(i);
    const int reach = TruncateToInt(4.0 / c_);
    for (int iy = 1; iy < NY; ++iy) {
      for (int ix = 1; ix < NX; ++ix) {
        if (At(ix, iy).z == -9999) continue;
        Fill(ix, iy, 1, 0, reach, &MasterCell::x);
        Fill(ix, iy, 0, 1, reach, &MasterCell::y);
      }
    }
    for (int iy = 0; iy < NY; iy += k) {
      for (int ix = 0; ix < NX; ix += k) {
        const int kept = (NX / k) * iy / k + ix / k;
        cells[static_cast<size_t>(kept)] = At(ix, iy);
      }
    }
    NX /= k;
    NY /= k;
    c_ = tolerance_;
    for (int iy = 1; iy < NY; ++iy) {
      for (int ix = 1; ix < NX; ++ix) {
        const float steepest =
            std::max(SlopeOnAxis(ix, iy, 1, 0, ix, NX), SlopeOnAxis(ix, iy, 0, 1, iy, NY));
        At(ix, iy).angle = static_cast<int16_t>(steepest);
      }
    }
  }

  int NX = 0, NY = 0;
  std::vector<MasterCell> cells;

 private:
  MasterCell& At(int ix, int iy) {
    const int index = iy * NX + ix;
    return cells[static_cast<size_t>(index)];
  }
  bool Inside(int ix, int iy) const { return ix >= 0 && ix < NX && iy >= 0 && iy < NY; }

  Vec3 Point(uint32_t i) {
    store_->ReadBlock(i);
    return {store_->CurrentBlock.x, store_->CurrentBlock.y, store_->CurrentBlock.z};
  }

  static float Distance(const Vec3& a, const Vec3& b) {
    Difference d;
    Vec3 u;
    DiffVectors(a, b, &d, &u);
    return d.length;
  }

  void Deposit(const Vec3& s) {
    const int ix = TruncateToInt(double{s.x} / c_);
    const int iy = TruncateToInt(double{s.y} / c_);
    if (!Inside(ix, iy)) return;
    const Vec3 node = {static_cast<float>(ix * double{c_}), static_cast<float>(iy * double{c_}),
                       s.z};
    MasterCell& cell = At(ix, iy);
    if (Distance(node, s) < Distance(node, {cell.x, cell.y, s.z})) {
      cell.x = s.x, cell.y = s.y, cell.z = s.z;
    }
  }

  void Sample(uint32_t i) {
    if (IsCutBlock(store_, i) == 0) return;
    const uint32_t p = PrevMove(store_, i);
    Difference d;
    Vec3 u;
    BlockVector(store_, i, p, &d, &u);
    const Vec3 s = Point(p);
    if (u.z == -1) return Deposit(Point(i));
    if (u.z == 1) return Deposit(s);
    const float m = std::max(std::abs(d.dx), std::abs(d.dy));
    const int n = 2 * TruncateToInt(double{m} / c_) + 1;
    for (int j = 0; j < n; ++j) {
      const auto at = [&](float from, float way) {
        if (std::abs(way) <= 0.001) return from;
        return static_cast<float>(from + j * double{way} / n);
      };
      Deposit({at(s.x, d.dx), at(s.y, d.dy), at(s.z, d.dz)});
    }
  }

  void Fill(int ix, int iy, int alongX, int alongY, int reach, float MasterCell::*place) {
    const int index = alongX * ix + alongY * iy;
    for (int g = 1; g < reach; ++g) {
      if (index - g < 1) return;
      MasterCell& a = At(ix, iy);
      MasterCell& b = At(ix - alongX * g, iy - alongY * g);
      if (b.z == -9999) continue;
      const double p0 = a.*place, z0 = a.z, p1 = b.*place, z1 = b.z;
      a.*place = static_cast<float>(index * double{c_});
      a.z = static_cast<float>((a.*place - p0) * (z1 - z0) / (p1 - p0) + z0);
      b.*place = static_cast<float>((index - g) * double{c_});
      b.z = static_cast<float>((b.*place - p0) * (z1 - z0) / (p1 - p0) + z0);
      for (int m = 1; m < g; ++m) {
        At(ix - alongX * m, iy - alongY * m).z =
            static_cast<float>((double{b.z} - a.z) * m / g + a.z);
      }
      return;
    }
  }

  bool HasSlope(int ax, int ay, int bx, int by) {
    return Inside(bx, by) && At(ax, ay).z != -9999 && At(bx, by).z != -9999;
  }
  float Slope(int ax, int ay, int bx, int by) {
    if (!HasSlope(ax, ay, bx, by)) return 0;
    Difference d;
    Vec3 u;
    DiffVectors({0, 0, At(ax, ay).z}, {c_, 0, At(bx, by).z}, &d, &u);
    float h = Angle(u.z, u.x);
    if (h > 180) h -= 180;
    if (h > 90) h = 180 - h;
    return h;
  }
  float SlopeOnAxis(int ix, int iy, int dx, int dy, int index, int count) {
    const bool ahead = index == 1 || (!HasSlope(ix, iy, ix - dx, iy - dy) && index < count - 1);
    return ahead ? Slope(ix, iy, ix + dx, iy + dy) : Slope(ix, iy, ix - dx, iy - dy);
  }

  BlockStore* store_;
  float tolerance_;
  float c_ = 0;
};

TEST(BuildMaster, GivesTheCellsOfThePlainBuildOnRandomPrograms) {
  int built = 0;
  for (unsigned seed = 0; seed < 150; ++seed) {
    Random random(seed);
    const std::vector<MotionBlock> blocks = RandomProgram(&random, 20 + seed);
    if (!StaysWithin(400, blocks)) continue;
    NcProgram program;
    BlockStore store;
    Fill(&program.store, blocks);
    Fill(&store, blocks);
    CMasterDlg input;
    input.MasterTolerance = 0.15F * static_cast<float>(1 + random() % 20);
    MasterGrid grid;
    const BuildResult result = BuildMaster(input, &program, &grid);
    if (result == BuildResult::kNoCut || result == BuildResult::kFewBlocks) continue;
    ASSERT_EQ(result, BuildResult::kBuilt) << "seed " << seed;

    PlainBuild plain(&store, input.MasterTolerance);
    plain.Run();
    ASSERT_EQ(grid.NX, plain.NX) << "seed " << seed;
    ASSERT_EQ(grid.NY, plain.NY) << "seed " << seed;
    for (size_t i = 0; i < static_cast<size_t>(grid.CellCount); ++i) {
      ASSERT_EQ(std::bit_cast<uint32_t>(grid.Cells[i].z), std::bit_cast<uint32_t>(plain.cells[i].z))
          << "seed " << seed << " cell " << i;
      ASSERT_EQ(grid.Cells[i].angle, plain.cells[i].angle) << "seed " << seed << " cell " << i;
    }
    ++built;
  }
  EXPECT_GT(built, 50);
}

}  // namespace
}  // namespace tvx
