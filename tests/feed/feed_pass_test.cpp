#include "feed/feed_pass.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "path_builder.h"

namespace tvx {
namespace {

struct FeedPassTest : testing::Test {
  std::unique_ptr<NcProgram> program = std::make_unique<NcProgram>();
  BlockStore& store = program->store;
  JobRecord job;
  FeedPassMemory memory;

  // Corners out of the way.
  FeedPassTest() { job.CornerMinAngle = 360; }

  void Run() { FeedPass(program.get(), job, nullptr, &memory); }
};

using FeedPassSlopes = FeedPassTest;
using FeedPassBatches = FeedPassTest;

// A move of 100 mm at an angle out of the XY plane.
MotionBlock Sloping(uint32_t type, double degrees) {
  const double radians = degrees * 3.14159265358979 / 180;
  return Move(type, static_cast<float>(100 * std::cos(radians)), 0,
              static_cast<float>(100 * std::sin(radians)));
}

TEST_F(FeedPassSlopes, FollowTheirAngle) {
  const struct {
    const char* what;
    MotionBlock move;
    int32_t feed;
  } cases[] = {
      {"level", Sloping(BlockCut, 0), 1000},
      {"nearly level", Move(BlockCut, 100, 0, 0.01F), 1000},
      {"below the smallest angle", Sloping(BlockCut, 9.9), 1000},
      {"above the smallest angle", Sloping(BlockCut, 10.1), 900},
      {"rising", Move(BlockCut, 100, 0, 100), 560},  // 563 in steps of 10
      {"falling", Move(BlockCut, 100, 0, -100), 560},
      {"backward", Move(BlockCut, -100, 0, 100), 560},
      {"60 degrees", Sloping(BlockCut, 60.1), 360},
      {"up", Move(BlockCut, 0, 0, 100), 100},
      {"down, going on", Move(BlockCut, 0, 0, -100), 100},
      {"plunge", Move(BlockCutStart, 0, 0, -100), 400},
      {"nearly a plunge", Sloping(BlockCutStart, 88.5), 110},
      {"plunge upward", Move(BlockCutStart, 0, 0, 100), 400},
      {"no slope on an arc", Move(BlockArcCw, 100, 0, 100), 1000},
      {"no slope on a rapid", Move(BlockRapid, 100, 0, 100), 1000},
      {"tiny", Move(BlockCut, 0, 0, 0.0001F), 1000},
  };
  job.PlungeFeed = 400;
  for (const auto& c : cases) {
    Fill(&store, {Move(BlockRapidStart, 0, 0, 0), c.move});
    Run();
    EXPECT_EQ(FeedTexts(store), "1000; " + std::to_string(c.feed)) << c.what;
    EXPECT_EQ(store.Peek(1)->feedProgrammed, 1000);
  }
}

TEST_F(FeedPassSlopes, AngleHasToBeAboveTheSmallest) {
  Fill(&store, {Move(BlockRapidStart, 0, 0, 0), Move(BlockCut, 100, 0, 100)});
  job.SlopeMinAngle = Angle(1, 1);
  Run();
  EXPECT_EQ(store.Peek(1)->feed, 1000);
  job.SlopeMinAngle = std::nextafter(job.SlopeMinAngle, 0.0F);
  Run();
  EXPECT_EQ(store.Peek(1)->feed, 560);
}

TEST_F(FeedPassSlopes, UpDownChkScalesFallingMovesAndHoldsAll) {
  const struct {
    const char* what;
    MotionBlock move;
    int32_t UpDownChk;
    float ZupZdown;
    int32_t PlungeFeed, feed;
  } cases[] = {
      {"falling, off", Move(BlockCut, 100, 0, -100), 0, 0.5F, 400, 560},
      {"falling", Move(BlockCut, 100, 0, -100), 1, 0.5F, 400, 280},  // 281 in steps
      {"rising", Move(BlockCut, 100, 0, 100), 1, 0.5F, 400, 560},
      {"falling, held above", Move(BlockCut, 100, 0, -100), 1, 5.0F, 400, 1000},
      {"falling, held below", Move(BlockCut, 100, 0, -100), 1, 0.01F, 400, 100},
      {"plunge", Move(BlockCutStart, 0, 0, -100), 1, 0.5F, 400, 200},
      {"plunge, held above", Move(BlockCutStart, 0, 0, -100), 1, 1.0F, 3000, 1000},
      {"plunge, off", Move(BlockCutStart, 0, 0, -100), 0, 1.0F, 3000, 3000},
      {"plunge, held below", Move(BlockCutStart, 0, 0, -100), 1, 1.0F, 20, 100},
      {"plunge below, off", Move(BlockCutStart, 0, 0, -100), 0, 1.0F, 25, 20},
      {"plunge below one step", Move(BlockCutStart, 0, 0, -100), 0, 1.0F, 5, 5},
  };
  for (const auto& c : cases) {
    job.UpDownChk = c.UpDownChk;
    job.ZupZdown = c.ZupZdown;
    job.PlungeFeed = c.PlungeFeed;
    Fill(&store, {Move(BlockRapidStart, 0, 0, 0), c.move});
    Run();
    EXPECT_EQ(store.Peek(1)->feed, c.feed) << c.what;
  }
}

// Level moves and slopes of 45 degrees by turns, 10 mm each in X.
std::vector<MotionBlock> Stairs(uint32_t count) {
  std::vector<MotionBlock> blocks = {Move(BlockRapidStart, 0, 0, 0)};
  for (uint32_t i = 1; i < count; ++i) {
    const uint32_t rises = i / 2;
    blocks.push_back(Move(BlockCut, static_cast<float>(10 * i), 0, static_cast<float>(10 * rises)));
  }
  return blocks;
}

TEST_F(FeedPassBatches, MoveWithoutLengthEndsTheSlopesOfItsBatch) {
  std::vector<MotionBlock> blocks = Stairs(450);
  for (const size_t i : {size_t{101}, size_t{399}}) {
    blocks[i] = blocks[i - 1];
  }
  Fill(&store, blocks);
  Run();
  const auto slowed = [](uint32_t i) {
    const bool slope = i > 0 && i % 2 == 0;
    return slope && (i < 101 || i >= 200) ? 560 : 1000;
  };
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    // The slope behind a doubled point is as long as two steps.
    if (i == 102 || i == 400) continue;
    ASSERT_EQ(store.Peek(i)->feed, slowed(i)) << i;
  }
  EXPECT_EQ(store.Peek(102)->feed, 1000);
  EXPECT_LT(store.Peek(400)->feed, 1000);  // the next batch
}

TEST_F(FeedPassBatches, ReductionAcrossTheEdgeIsLostAndAHeadZoneStays) {
  job.CornerMinAngle = 10;
  for (const bool edge : {false, true}) {
    const uint32_t corner = edge ? 199 : 198;
    for (const float step : {1.0F, 20.0F}) {
      std::vector<MotionBlock> blocks = {Move(BlockRapidStart, 0, 0, 0)};
      for (uint32_t i = 1; i < 230; ++i) {
        const float x = step * static_cast<float>(std::min(i, corner));
        const float y = i > corner ? step * static_cast<float>(i - corner) : 0;
        blocks.push_back(Move(BlockCut, x, y, 0));
      }
      Fill(&store, blocks);
      Run();
      const std::string next = FeedText(*store.Peek(corner + 1));
      if (step == 20.0F) {
        EXPECT_EQ(FeedText(*store.Peek(corner)), "1000 tail 25% 100");
        EXPECT_EQ(next, "1000 head 25% 100");
      } else {
        EXPECT_EQ(FeedText(*store.Peek(corner)), "100");
        // The move behind the corner sees the turn too, at the look distance, but less of it.
        EXPECT_EQ(next == "100", !edge) << next;
      }
    }
  }
}

TEST_F(FeedPassTest, FlattensArcs) {
  const struct {
    int16_t headFeed, tailFeed;
    int32_t feed;
  } cases[] = {{0, 0, 1000}, {300, 0, 300}, {0, 300, 300}, {400, 300, 300}, {2000, 3000, 1000}};
  for (const auto& c : cases) {
    std::vector<MotionBlock> blocks = {Move(BlockRapidStart, 0, 0, 0), Move(BlockArcCw, 20, 0, 0),
                                       Move(BlockArcCentre, 10, 0, 0)};
    blocks[1].headPercent = blocks[1].tailPercent = 30;
    blocks[1].headFeed = c.headFeed, blocks[1].tailFeed = c.tailFeed;
    Fill(&store, blocks);
    Run();
    EXPECT_EQ(FeedText(*store.Peek(1)), std::to_string(c.feed));
    EXPECT_EQ(store.Peek(1)->feedProgrammed, c.feed);
  }
}

TEST_F(FeedPassTest, LeavesAnEmptyStoreEmpty) {
  Run();
  EXPECT_EQ(store.blockCount, 0U);
  EXPECT_EQ(program->FeedBase, 1000);
}

TEST_F(FeedPassTest, ForgetsProgrammedFeedsAndKeepsZones) {
  std::vector<MotionBlock> blocks = {Move(BlockRapidStart, 0, 0, 0, 700),
                                     Move(BlockCut, 20, 0, 0, 50), Move(BlockNone, 9, 9, 9, 60)};
  blocks[1].headPercent = 20, blocks[1].headFeed = 300;
  Fill(&store, blocks);
  job.MaxFeed = 2500;
  Run();
  EXPECT_EQ(FeedTexts(store), "2500; 2500 head 20% 300");
  EXPECT_EQ(store.Peek(1)->feedProgrammed, 2500);
  EXPECT_EQ(store.Peek(2)->feed, 60);
  EXPECT_EQ(program->FeedBase, 2500);
}

TEST_F(FeedPassTest, TellsWhichRuleChangedWhichMove) {
  job.CornerMinAngle = 10;
  Fill(&store, {Move(BlockRapidStart, 0, 0, 0), Move(BlockCutStart, 0, 0, -20),
                Move(BlockCut, 30, 0, -20), Move(BlockCut, 30, 30, -20),
                Move(BlockArcCw, 60, 30, -20), Move(BlockArcCentre, 15, 0, -20)});
  job.PlungeFeed = 300;
  std::string told;
  FeedPass(program.get(), job, nullptr, &memory,
           [&](FeedRule rule, uint32_t block, const MotionBlock&, const MotionBlock& after) {
             told += std::string(RuleName(rule)) + " " + std::to_string(block) + ": " +
                     FeedText(after) + "; ";
           });
  EXPECT_EQ(told,
            "slope 1: 300; z corner 1: 300 tail 25% 100; z corner 2: 1000 head 16% 100; "
            "xy corner 2: 1000 head 16% 100 tail 16% 100; xy corner 3: 1000 head 16% 100; "
            "xy corner 3: 1000 head 16% 100 tail 16% 100; xy corner 4: 1000 head 16% 100; "
            "arc 4: 100; ");
}

// What must hold on any path, whatever the rules do to it.
TEST_F(FeedPassTest, KeepsFeedsAndZonesInTheirRange) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Random random(seed);
    std::vector<MotionBlock> blocks = RandomProgram(&random, 200);
    for (MotionBlock& block : blocks) {
      block.headPercent = block.headFeed = block.tailPercent = block.tailFeed = 0;
    }
    job = JobRecord();
    job.UpDownChk = static_cast<int32_t>(seed % 2);
    job.PlungeFeed = 1500;
    Fill(&store, blocks);
    Run();
    for (uint32_t i = 0; i < store.blockCount; ++i) {
      const MotionBlock& block = *store.Peek(i);
      if (!IsMoveType(block.type)) continue;
      const int32_t most = block.type == BlockCutStart && job.UpDownChk == 0 ? 1500 : 1000;
      ASSERT_LE(block.feed, most) << "seed " << seed << " block " << i;
      ASSERT_GE(block.feed, 100) << "seed " << seed << " block " << i;
      ASSERT_LE(block.headPercent + block.tailPercent, 80) << "seed " << seed << " block " << i;
      ASSERT_EQ(block.headPercent == 0, block.headFeed == 0) << "seed " << seed << " block " << i;
      if (IsArcType(block.type)) {
        ASSERT_EQ(FeedText(block), std::to_string(block.feedProgrammed)) << "seed " << seed;
      }
    }
  }
}

// Neither the headings nor anything else of the first run shows in the second one.
TEST_F(FeedPassTest, GivesTheSameAfterAReload) {
  std::vector<MotionBlock> blocks = {Move(BlockRapidStart, 0, 0, 10)};
  for (int i = 0; i < 1000; ++i) {
    const auto x = static_cast<float>(0.5 * i);
    blocks.push_back(Move(BlockCut, x, 5 * std::sin(x / 10), 3 * std::cos(x / 7)));
  }
  job = JobRecord();
  Fill(&store, blocks);
  const std::string before = FeedTexts(store);
  Run();
  const std::string first = FeedTexts(store);
  EXPECT_NE(first, before);
  Fill(&store, blocks);
  Run();
  EXPECT_EQ(FeedTexts(store), first);
}

}  // namespace
}  // namespace tvx
