#include "feed/master_pass.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "feed/master_fixture.h"

namespace tvx {
namespace {

struct Wall {
  int32_t x, y;  // world, mm
  int angle;
  float z = 50;
};

// A model of 1 mm cells, flat at z = 0 from (-10, -10) to (190, 190) but for a few steep cells.
MasterGrid ModelWith(const std::vector<Wall>& walls) {
  MasterGrid grid = EmptyGrid(200, 200, 1);
  grid.OriginX = grid.OriginY = -10;
  for (size_t i = 0; i < 200 * 200; ++i) grid.Cells[i].z = 0;
  for (const Wall& wall : walls) SetCell(&grid, wall.x + 10, wall.y + 10, wall.z, wall.angle);
  IndexCells(&grid);
  return grid;
}

struct Point {
  float x, y;
  BlockType type = BlockCut;
};

// Feeds of a block: "1000", with zones "1000 head 5% 100 tail 5% 100".
std::string Feeds(const MotionBlock& block) {
  std::string text = std::to_string(block.feed);
  if (block.headPercent != 0 || block.headFeed != 0) {
    text += Format(" head %d%% %d", block.headPercent, block.headFeed);
  }
  if (block.tailPercent != 0 || block.tailFeed != 0) {
    text += Format(" tail %d%% %d", block.tailPercent, block.tailFeed);
  }
  return text;
}

// A path along z = 0 from the origin, with the feeds of a pass that is about to reach the model.
struct Path {
  BlockStore store;
  JobRecord job;
  uint32_t lastNextBlock = 0;

  explicit Path(const std::vector<Point>& points) {
    Append(&store, BlockRapidStart, 0, 0, 0);
    for (const Point& p : points) Append(&store, p.type, p.x, p.y, 0);
  }

  MotionBlock* Block(uint32_t i) {
    store.ReadBlock(i);
    return &store.CurrentBlock;
  }

  std::string Run(const MasterGrid& master) {
    MasterSubPass(&store, job, master, 0, store.blockCount, &lastNextBlock);
    std::string text;
    for (uint32_t i = 1; i < store.blockCount; ++i) {
      text += (i > 1 ? "; " : "") + Feeds(*store.Peek(i));
    }
    return text;
  }
};

// With the default job: reach 5 mm, MaxFeed 1000; feeds 100 at 90 degrees, 399 at 60, 564 at 45,
// 730 at 30, and nothing up to 10 degrees.
TEST(MasterSubPass, SlowsMovesNearWalls) {
  const struct {
    const char* about;
    std::vector<Wall> walls;
    std::vector<Point> path;
    std::string feeds;
  } cases[] = {
      {"a wall at the end of a long move: a tail, and a head on the next",
       {{100, 0, 90}},
       {{100, 0}, {100, 100}},
       "1000 tail 5% 100; 1000 head 5% 100"},
      {"angles up to the limit do not count", {{100, 0, 10}}, {{100, 0}, {100, 100}}, "1000; 1000"},
      {"just above the limit",
       {{100, 0, 11}},
       {{100, 0}, {100, 100}},
       "1000 tail 5% 900; 1000 head 5% 900"},
      {"the zone feeds fall on tens, the feed of a whole move does not",
       {{100, 0, 45}, {50, 0, 60}},
       {{100, 0}, {100, 100}},
       "399 tail 5% 560; 1000 head 5% 560"},
      {"surface below the move does not count",
       {{100, 0, 90, -1}},
       {{100, 0}, {100, 100}},
       "1000; 1000"},
      {"a wall along the move only: the whole move, and a tail at full feed",
       {{50, 0, 90}},
       {{100, 0}, {100, 100}},
       "100 tail 5% 1000; 1000"},
      // Samples stand at 85, 80, ... 15 and see 5 mm around.
      {"samples near the ends of a long move are left out",
       {{8, 0, 90}, {91, 0, 90}},
       {{100, 0}, {100, 100}},
       "1000; 1000"},
      {"the first and last sample",
       {{10, 0, 30}},
       {{100, 0}, {100, 100}},
       "730 tail 5% 1000; 1000"},
      {"the steepest sample counts",
       {{10, 0, 30}, {90, 0, 60}},
       {{100, 0}, {100, 100}},
       "399 tail 5% 1000; 1000"},
      {"a short move has no zone and hands nothing on",
       {{6, 0, 90}},
       {{6, 0}, {100, 0}},
       "100; 1000"},
      {"a middling move has one sample, in its middle",
       {{10, 0, 60}},
       {{20, 0}, {100, 0}},
       "399 tail 25% 1000; 1000"},
      {"zones over 80 per cent collapse to the whole move",
       {{0, 0, 90}, {10, 0, 90}, {20, 0, 90}},
       {{10, 0}, {20, 0}, {100, 0}},
       "100 tail 50% 100; 100; 1000 head 6% 100"},
      {"a short next move slows as a whole",
       {{100, 0, 45}},
       {{100, 0}, {104, 0}, {190, 0}},
       "1000 tail 5% 560; 560; 1000"},
      {"the next move may be any move",
       {{100, 0, 45}},
       {{100, 0}, {100, 100, BlockArcCw}},
       "1000 tail 5% 560; 1000 head 5% 560"},
      {"without a next move", {{100, 0, 45}}, {{100, 0}}, "1000 tail 5% 560"},
      {"rapids and arcs are not slowed themselves",
       {{100, 0, 45}},
       {{100, 0, BlockRapid}, {50, 0}, {100, 0, BlockArcCcw}},
       "1000; 1000; 1000"},
  };
  for (const auto& c : cases) {
    Path path(c.path);
    EXPECT_EQ(path.Run(ModelWith(c.walls)), c.feeds) << c.about;
  }
}

// A wall at (100, 0) on the way from (0, 0) to (100, 0) to (100, 100), over blocks that the earlier
// rules have left in another state, or with another job.
TEST(MasterSubPass, KeepsToTheJobAndToWhatIsThere) {
  const struct {
    const char* about;
    std::function<void(Path*, MotionBlock*)> prepare;  // of the block of the first move
    std::string feeds;
  } cases[] = {
      {"a slower and longer tail stays",
       [](Path*, MotionBlock* b) { b->tailPercent = 9, b->tailFeed = 300; },
       "1000 tail 9% 300; 1000 head 5% 560"},
      {"a faster and shorter one does not",
       [](Path*, MotionBlock* b) { b->tailPercent = 2, b->tailFeed = 900; },
       "1000 tail 5% 560; 1000 head 5% 560"},
      {"collapsed with a long head, to the lower feed on a ten",
       [](Path*, MotionBlock* b) { b->headPercent = 76, b->headFeed = 355; },
       "350; 1000 head 5% 560"},
      {"a head of 75 per cent leaves both",
       [](Path*, MotionBlock* b) { b->headPercent = 75, b->headFeed = 355; },
       "1000 head 75% 355 tail 5% 560; 1000 head 5% 560"},
      {"zone feeds keep the lowest feed of the block",
       [](Path*, MotionBlock* b) { b->feedProgrammed = 7777; },
       "1000 tail 5% 770; 1000 head 5% 770"},
      {"the feed step is not looked at", [](Path* p, MotionBlock*) { p->job.FeedChgAng = 500; },
       "1000 tail 5% 560; 1000 head 5% 560"},
      {"a higher limit", [](Path* p, MotionBlock*) { p->job.SlopeMinAngle = 45; }, "1000; 1000"},
      {"a reach below one per cent of the move: no zones",
       [](Path* p, MotionBlock*) { p->job.SafetyDistance = 0.5F; }, "564; 1000"},
      {"no reach: still looks 1 mm around",
       [](Path* p, MotionBlock*) { p->job.SafetyDistance = 0; }, "564; 1000"},
      {"a negative reach harms nothing", [](Path* p, MotionBlock*) { p->job.SafetyDistance = -7; },
       "1000 tail 0% 560; 560"},
      {"endless reach", [](Path* p, MotionBlock*) { p->job.SafetyDistance = 3e38F; }, "564; 564"},
  };
  const MasterGrid model = ModelWith({{100, 0, 45}});
  for (const auto& c : cases) {
    Path path({{100, 0}, {100, 100}});
    c.prepare(&path, path.Block(1));
    path.store.WriteBlock(1);
    EXPECT_EQ(path.Run(model), c.feeds) << c.about;
  }
}

TEST(MasterSubPass, HandsAFeedToAShortNextMoveOnce) {
  const MasterGrid model = ModelWith({{100, 0, 45}});
  Path path({{100, 0}, {104, 0}});
  path.job.SlopeMinAngle = 20;
  EXPECT_EQ(path.Run(model), "1000 tail 5% 560; 560");
  EXPECT_EQ(path.lastNextBlock, 2U);
  // A second run that finds the same next move again leaves it: only its own wall slows it.
  path.Block(2)->feed = 900;
  path.store.WriteBlock(2);
  MasterSubPass(&path.store, path.job, model, 1, 2, &path.lastNextBlock);
  EXPECT_EQ(path.store.Peek(2)->feed, 900);
  path.lastNextBlock = 0;
  MasterSubPass(&path.store, path.job, model, 1, 2, &path.lastNextBlock);
  EXPECT_EQ(path.store.Peek(2)->feed, 560);
}

TEST(MasterSubPass, CollapsesTheNextMoveWithoutRounding) {
  const MasterGrid model = ModelWith({{100, 0, 45}});
  Path path({{100, 0}, {100, 100}});
  path.Block(2)->tailPercent = 76;
  path.store.CurrentBlock.tailFeed = 355;
  path.store.WriteBlock(2);
  EXPECT_EQ(path.Run(model), "1000 tail 5% 560; 355");
  EXPECT_EQ(path.lastNextBlock, 2U);
}

TEST(MasterSubPass, KeepsToItsBatch) {
  const MasterGrid model = ModelWith({{50, 0, 45}, {100, 0, 45}});
  Path path({{50, 0}, {100, 0}, {150, 0}});
  MasterSubPass(&path.store, path.job, model, 0, 2, &path.lastNextBlock);
  EXPECT_EQ(Feeds(*path.store.Peek(1)), "1000 tail 10% 560");
  EXPECT_EQ(Feeds(*path.store.Peek(2)), "1000 head 10% 560");
  EXPECT_EQ(Feeds(*path.store.Peek(3)), "1000");
}

TEST(MasterSubPass, WithoutAModelFindsNothing) {
  Path path({{100, 0}, {100, 100}});
  EXPECT_EQ(path.Run(MasterGrid()), "1000; 1000");
}

TEST(MasterSubPass, AnglesOfADamagedModelStillGiveAFeed) {
  Path path({{6, 0}, {100, 0}});
  EXPECT_EQ(path.Run(ModelWith({{6, 0, 32'000}})), "100; 1000");
}

TEST(MasterSubPass, MovesBeyondAllMeasureTakeNoTime) {
  Path path({{50, 3e38F}, {50, -3e38F}, {50, 50}, {60, 1e12F}});
  EXPECT_EQ(path.Run(ModelWith({{50, 60, 45}})).substr(0, 4), "1000");
}

}  // namespace
}  // namespace tvx
