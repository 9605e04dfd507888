// Worked values of the sub-pass. The sums of feed_pass_test cover random models.
#include "feed/master_pass.h"

#include <gtest/gtest.h>

#include "base/format.h"
#include "support/random_program.h"
#include "support/rows.h"

namespace tvx {
namespace {

struct Wall {
  int32_t x, y;  // world, mm
  int angle;
  float z = 50;
};

// The feeds of a path along z = 0 from the origin, "1000 head 5% 100 tail 5% 100; ", on a model of
// 1 mm cells, flat at z = 0 from (-10, -10) to (190, 190) except a few steep cells.
std::string Feeds(const std::vector<Vec3>& path, const std::vector<Wall>& walls) {
  MasterGrid grid = EmptyGrid(200, 200, 1);
  grid.OriginX = grid.OriginY = -10;
  for (int32_t i = 0; i < grid.CellCount; ++i) SetCell(&grid, i % 200, i / 200, 0, 0);
  for (const Wall& wall : walls) SetCell(&grid, wall.x + 10, wall.y + 10, wall.z, wall.angle);
  IndexCells(&grid);
  BlockStore store;
  Append(&store, BlockRapidStart, 0, 0, 0);
  for (const Vec3& p : path) Append(&store, BlockCut, p.x, p.y, 0);
  const JobRecord job;
  const PathIndex index(&store);
  FeedRecords records(index, 0, store.blockCount);
  MasterPass(index, job, grid).SlowMoves(0, store.blockCount, &records);
  std::string text;
  for (uint32_t i = 1; i < store.blockCount; ++i) {
    const MotionBlock& block = *store.Peek(i);
    text += Format("%d", block.feed);
    if (block.headFeed != 0) text += Format(" head %d%% %d", block.headPercent, block.headFeed);
    if (block.tailFeed != 0) text += Format(" tail %d%% %d", block.tailPercent, block.tailFeed);
    text += "; ";
  }
  return text;
}

// With the default job: reach 5 mm, MaxFeed 1000; feeds 100 at 90 degrees, 399 at 60, 564 at 45,
// 730 at 30, and 1000 up to 10 degrees. Samples are at 85, 80, ... 15 and reach 5 mm around.
TEST(MasterPass, SlowsALongMoveNearWallsAndTheNextOne) {
  const Rows<const char*, std::vector<Wall>, const char*> rows = {
      {"wall at the end", {{100, 0, 90}}, "1000 tail 5% 100; 1000 head 5% 100; "},
      {"angle at the limit", {{100, 0, 10}}, "1000; 1000; "},
      {"angles of a damaged model", {{50, 0, 32'000}}, "100 tail 5% 1000; 1000; "},
      {"angle just above the limit", {{100, 0, 11}}, "1000 tail 5% 900; 1000 head 5% 900; "},
      {"zone feeds are tens, the feed of a whole move is not",
       {{100, 0, 45}, {50, 0, 60}},
       "399 tail 5% 560; 1000 head 5% 560; "},
      {"surface below the move", {{100, 0, 90, -1}}, "1000; 1000; "},
      {"wall along the move only", {{50, 0, 90}}, "100 tail 5% 1000; 1000; "},
      {"walls near the ends", {{8, 0, 90}, {91, 0, 90}}, "1000; 1000; "},
      {"steepest sample", {{10, 0, 30}, {90, 0, 60}}, "399 tail 5% 1000; 1000; "},
  };
  for (const auto& [about, walls, feeds] : rows) {
    EXPECT_EQ(Feeds({{100, 0, 0}, {100, 100, 0}}, walls), feeds) << about;
  }
}

TEST(MasterPass, HugeCoordinatesFinishQuickly) {
  EXPECT_EQ(Feeds({{50, 3e38F, 0}, {50, -3e38F, 0}, {50, 50, 0}}, {{50, 60, 45}}).substr(0, 4),
            "1000");
}

}  // namespace
}  // namespace tvx
