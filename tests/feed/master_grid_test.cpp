#include <gtest/gtest.h>

#include <cmath>

#include "feed/master_lookup.h"
#include "feed_fixture.h"

namespace tvx {
namespace {

constexpr int32_t kNothing = -1;

int32_t Lookup(const MasterGrid& grid, const Vec3& point, float radius) {
  int32_t angle = kNothing;
  const bool found = MasterLookup(grid, point, radius, &angle);
  EXPECT_EQ(found, angle != kNothing);
  return angle;
}

// Cells 2 mm apart, all 5 mm high; the angle tells the cell: 10 x iy + ix.
MasterGrid NumberedGrid() {
  MasterGrid grid = EmptyGrid(6, 6, 2.0F);
  grid.OriginX = 10;
  grid.OriginY = 20;
  for (int32_t iy = 0; iy < 6; ++iy) {
    for (int32_t ix = 0; ix < 6; ++ix) SetCell(&grid, ix, iy, 5.0F, 10 * iy + ix);
  }
  IndexCells(&grid);
  return grid;
}

TEST(MasterLookup, VisitsTheSquareAroundTheNearestGridLine) {
  const MasterGrid grid = NumberedGrid();
  const struct {
    const char* about;
    Vec3 point;
    float radius;
    int32_t angle;
  } cases[] = {
      {"on a node", {14, 24, 0}, 2, 33},
      {"just below the next line", {15.01F, 24, 0}, 1, 23},
      {"on a tie the lower line", {15, 24, 0}, 1, 22},
      {"the radius is cut off to whole cells", {14, 24, 0}, 1.9F, 22},
      {"a surface as high as the point does not count", {14, 24, 5}, 2, kNothing},
      {"a surface just above it does", {14, 24, 4.999F}, 2, 33},
      {"row 0 and column 0 are never visited", {10, 20, 0}, 1, kNothing},
      {"a corner keeps the cells that remain", {10, 20, 0}, 2, 11},
      {"the far corner", {22, 32, 0}, 3, 55},
      {"before the grid, within reach", {9, 21, 0}, 2, 11},
      {"behind the grid", {40, 40, 0}, 3, kNothing},
      {"the whole grid", {16, 26, 0}, 1000, 55},
      {"a negative radius", {14, 24, 0}, -4, kNothing},
      {"far outside any grid", {3e38F, -3e38F, 0}, 5, kNothing},
  };
  for (const auto& c : cases) EXPECT_EQ(Lookup(grid, c.point, c.radius), c.angle) << c.about;
}

TEST(MasterLookup, FindsNothingWithoutCellsOrCellSize) {
  EXPECT_EQ(Lookup(MasterGrid(), {14, 24, 0}, 2), kNothing);
  MasterGrid grid = NumberedGrid();
  for (const float size : {0.0F, -1.0F, std::nanf("")}) {
    grid.CellSize = size;
    EXPECT_EQ(Lookup(grid, {14, 24, 0}, 2), kNothing) << size;
  }
}

using Surface = void (*)(MasterGrid*, std::mt19937*);

// Heights and angles without relation, in few steps so that many are equal; some cells empty, some
// of them with an angle, some angles of no meaning.
void Noise(MasterGrid* grid, std::mt19937* random) {
  for (int32_t i = 0; i < grid->CellCount; ++i) {
    MasterCell& cell = grid->Cells[static_cast<size_t>(i)];
    if ((*random)() % 8 != 0) cell.z = static_cast<float>((*random)() % 20);
    cell.angle = static_cast<int16_t>((*random)() % 12 * 8);
    if ((*random)() % 50 == 0) cell.angle = static_cast<int16_t>((*random)());
  }
}

// A hill that gets lower and steeper outwards, most of all to the last corner: each block on the
// edge of a square could hold the answer, which hangs on the height of the point.
void Hill(MasterGrid* grid, std::mt19937*) {
  for (int32_t iy = 0; iy < grid->NY; ++iy) {
    for (int32_t ix = 0; ix < grid->NX; ++ix) {
      const int32_t out = std::max(std::abs(ix - grid->NX / 2), std::abs(iy - grid->NY / 2));
      SetCell(grid, ix, iy, 25.0F - static_cast<float>(out) / 8, out / 2 + (ix + iy) / 40);
    }
  }
}

TEST(MasterLookup, AnswersAsAVisitOfEveryCell) {
  std::mt19937 random(20);
  const Surface surfaces[] = {Noise, Hill};
  const float sizes[] = {0.1F, 0.3F, 0.5F, 1.0F, 2.0F};
  const int32_t counts[] = {1, 2, 9, 10, 17, 64, 65, 400, 400};
  for (int round = 0; round < 120; ++round) {
    MasterGrid grid =
        EmptyGrid(counts[random() % std::size(counts)], counts[random() % std::size(counts)],
                  sizes[random() % std::size(sizes)]);
    grid.OriginX = static_cast<float>(random() % 1000) * 0.37F - 200;
    grid.OriginY = static_cast<float>(random() % 1000) * 0.37F - 200;
    surfaces[random() % std::size(surfaces)](&grid, &random);
    for (const bool indexed : {false, true}) {
      if (indexed) IndexCells(&grid);
      const auto coordinate = [&](float origin, int32_t count) {
        const double cells = (static_cast<double>(random() % 1000) / 1000 * 1.4 - 0.2) * count;
        return static_cast<float>(origin + cells * static_cast<double>(grid.CellSize));
      };
      for (int i = 0; i < 100; ++i) {
        const Vec3 point = {coordinate(grid.OriginX, grid.NX), coordinate(grid.OriginY, grid.NY),
                            static_cast<float>(random() % 24) - 2};
        const float radius = grid.CellSize * static_cast<float>(random() % 1500) / 10;
        const int32_t plain = PlainLookup(grid, point, radius);
        ASSERT_EQ(Lookup(grid, point, radius), plain == 0 ? kNothing : plain)
            << "round " << round << " grid " << grid.NX << " x " << grid.NY << " of "
            << grid.CellSize << ", point " << point.x << " " << point.y << " " << point.z
            << " radius " << radius << (indexed ? " indexed" : "");
      }
    }
  }
}

// Below the value of an empty cell even the empty cells are above the point.
TEST(MasterLookup, TakesAnEmptyCellForAHeightLikeAnyOther) {
  MasterGrid grid = EmptyGrid(40, 40, 1.0F);
  grid.At(20, 20).angle = 33;
  IndexCells(&grid);
  EXPECT_EQ(Lookup(grid, {20, 20, kNoHeight}, 18), kNothing);
  EXPECT_EQ(Lookup(grid, {20, 20, kNoHeight - 1}, 18), 33);
}

TEST(MasterGridMemory, RefusesWhatCannotBeHad) {
  const struct {
    int64_t NX, NY;
    int allocations;
  } refused[] = {{3, 3, 0}, {0, 5, 1}, {5, -1, 1}, {1'000'000, 1'000'000, 1}, {INT64_MAX, 2, 1}};
  for (const auto& c : refused) {
    MasterGrid grid(AllocateWhileAllowed);
    allocationsLeft = 1;
    ASSERT_TRUE(AllocateGrid(&grid, 3, 2));
    EXPECT_EQ(grid.CellCount, 6);
    allocationsLeft = c.allocations;
    EXPECT_FALSE(AllocateGrid(&grid, c.NX, c.NY)) << c.NX;
    EXPECT_TRUE(grid.Cells.Empty()) << c.NX;
    EXPECT_EQ(grid.CellCount, 0) << c.NX;
  }
}

}  // namespace
}  // namespace tvx
