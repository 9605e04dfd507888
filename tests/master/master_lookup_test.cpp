// The cells of the master model: their memory, the samples that can meet them, and their lookup.
#include "master/master_lookup.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/numbers.h"
#include "support/random_program.h"
#include "support/rows.h"

namespace tvx {
namespace {

// 0 for none.
int32_t Lookup(const MasterGrid& grid, const Vec3& point, float radius) {
  int32_t angle = 0;
  const bool found = MasterLookup(grid, point, radius, &angle);
  EXPECT_EQ(found, angle != 0);
  return angle;
}

// Cells 2 mm apart from (10, 20), all 5 mm high; the angle is 10 x iy + ix.
TEST(MasterLookup, VisitsTheSquareAroundTheNearestGridLine) {
  MasterGrid grid = EmptyGrid(6, 6, 2.0F);
  grid.OriginX = 10;
  grid.OriginY = 20;
  for (int32_t i = 0; i < 36; ++i) SetCell(&grid, i % 6, i / 6, 5.0F, 10 * (i / 6) + i % 6);
  IndexCells(&grid);
  const Rows<const char*, Vec3, float, int32_t> rows = {
      {"on a node", {14, 24, 0}, 2, 33},
      {"just below the next line", {15.01F, 24, 0}, 1, 23},
      {"on a tie the lower line", {15, 24, 0}, 1, 22},
      {"radius truncated to whole cells", {14, 24, 0}, 1.9F, 22},
      {"surface as high as the point", {14, 24, 5}, 2, 0},
      {"row 0 and column 0 are not visited", {10, 20, 0}, 1, 0},
      {"first corner", {10, 20, 0}, 2, 11},
      {"last corner", {22, 32, 0}, 3, 55},
      {"before the grid, within reach", {9, 21, 0}, 2, 11},
      {"beyond the grid", {40, 40, 0}, 3, 0},
      {"negative radius", {14, 24, 0}, -4, 0},
      {"far outside any grid", {3e38F, -3e38F, 0}, 5, 0},
  };
  for (const auto& [about, point, radius, angle] : rows) {
    EXPECT_EQ(Lookup(grid, point, radius), angle) << about;
  }
  for (const float size : {0.0F, -1.0F, std::nanf("")}) {
    grid.CellSize = size;
    EXPECT_EQ(Lookup(grid, {14, 24, 0}, 2), 0) << size;
  }
  EXPECT_EQ(Lookup(MasterGrid(), {14, 24, 0}, 2), 0);
}

// Tests every cell.
int32_t PlainLookup(const MasterGrid& grid, const Vec3& point, double radius) {
  const double c = grid.CellSize;
  const auto nearestLine = [&](double position) {
    const double low = TruncateToInt(position / c) * c;
    const double high = (TruncateToInt(position / c) + 1.0) * c;
    return high - position < position - low ? high : low;
  };
  const double x = nearestLine(double{point.x} - grid.OriginX);
  const double y = nearestLine(double{point.y} - grid.OriginY);
  const auto inReach = [&](int32_t cell, double line) {
    return TruncateToInt((line - radius) / c) <= cell && cell <= TruncateToInt((line + radius) / c);
  };
  int32_t best = 0;
  for (int32_t iy = 1; iy < grid.NY; ++iy) {
    for (int32_t ix = 1; inReach(iy, y) && ix < grid.NX; ++ix) {
      const MasterCell& cell = grid.At(ix, iy);
      if (inReach(ix, x) && cell.z > point.z && cell.angle > best) best = cell.angle;
    }
  }
  return best;
}

// Either heights and angles without relation, many of them equal, some cells empty and some angles
// without meaning; or a hill that gets lower and steeper outwards, most of all to the last corner:
// each block on the edge of a square could hold the answer, which depends on the height of the
// point.
void FillCells(bool hill, MasterGrid* grid, Random* random) {
  for (int32_t i = 0; i < grid->CellCount; ++i) {
    const int32_t ix = i % grid->NX, iy = i / grid->NX;
    const int32_t out = std::max(std::abs(ix - grid->NX / 2), std::abs(iy - grid->NY / 2));
    const float z = random->Chance(12) ? kNoHeight : static_cast<float>(random->Whole(0, 19));
    const int angle = random->Chance(2) ? random->Whole(-32768, 32767) : random->Whole(0, 11) * 8;
    SetCell(grid, ix, iy, hill ? 25.0F - static_cast<float>(out) / 8 : z,
            hill ? out / 2 + (ix + iy) / 40 : angle);
  }
}

TEST(MasterLookup, EqualsATestOfEveryCell) {
  Random random(20);
  for (int round = 0; round < 120; ++round) {
    const int32_t NX = random.OneOf({1, 2, 9, 10, 17, 64, 65, 400, 400});
    const int32_t NY = random.OneOf({1, 2, 9, 10, 17, 64, 65, 400, 400});
    MasterGrid grid = EmptyGrid(NX, NY, random.OneOf({0.1F, 0.3F, 0.5F, 1.0F, 2.0F}));
    grid.OriginX = static_cast<float>(random.Real(-200, 170));
    grid.OriginY = static_cast<float>(random.Real(-200, 170));
    FillCells(random.Chance(50), &grid, &random);
    for (int i = 0; i < 200; ++i) {
      if (i == 100 || i == 150) IndexCells(&grid);
      const auto along = [&](float origin, int32_t count) {
        return static_cast<float>(origin + random.Real(-0.2, 1.2) * count * grid.CellSize);
      };
      const Vec3 point = {along(grid.OriginX, NX), along(grid.OriginY, NY),
                          static_cast<float>(random.Whole(-2, 21))};
      const auto radius = static_cast<float>(random.Real(0, 150) * grid.CellSize);
      ASSERT_EQ(Lookup(grid, point, radius), PlainLookup(grid, point, radius))
          << "round " << round << " lookup " << i << " grid " << NX << " x " << NY;
    }
  }
}

// Below the value of an empty cell even the empty cells are above the point.
TEST(MasterLookup, TreatsAnEmptyCellAsAHeight) {
  MasterGrid grid = EmptyGrid(40, 40, 1.0F);
  grid.At(20, 20).angle = 33;
  IndexCells(&grid);
  EXPECT_EQ(Lookup(grid, {20, 20, kNoHeight}, 18), 0);
  EXPECT_EQ(Lookup(grid, {20, 20, kNoHeight - 1}, 18), 33);
}

TEST(MasterGrid, FailedAllocationLeavesNoModel) {
  const Rows<int64_t, int64_t, int> rows = {
      {3, 3, 0}, {0, 5, 1}, {5, -1, 1}, {1'000'000, 1'000'000, 1}, {INT64_MAX, 2, 1}};
  for (const auto& [NX, NY, allocations] : rows) {
    MasterGrid grid(AllocateWhileAllowed);
    allocationsLeft = 1;
    ASSERT_TRUE(AllocateGrid(&grid, 3, 2));
    allocationsLeft = allocations;
    EXPECT_FALSE(AllocateGrid(&grid, NX, NY)) << NX;
    EXPECT_TRUE(grid.Cells.Empty() && grid.CellCount == 0) << NX;
  }
}

// No sample between the limits may be lost; far fewer are kept than there are.
TEST(SampleRange, KeepsEverySampleBetweenTheLimits) {
  Random random(3);
  for (int round = 0; round < 3000; ++round) {
    const double from = random.Real(-1000, 1000), most = round % 3 == 0 ? 0.005 : 15;
    const double step = random.Real(-most, most);
    const double low = random.Real(-500, 500), high = low + random.Real(0, 250);
    const SampleRange range = SamplesWithin({0, 400}, from, step, low, high);
    for (int64_t j = 0; j <= 400; ++j) {
      const auto position = static_cast<float>(from + static_cast<double>(j) * step);
      const bool within = low <= position && position <= high;
      ASSERT_TRUE(!within || (range.first <= j && j <= range.last)) << from << " " << step;
    }
    ASSERT_LE(static_cast<double>(range.last - range.first), (high - low) / std::abs(step) + 6);
  }
}

}  // namespace
}  // namespace tvx
