// Lengths, times and average feed of a stored program.
#include "stats/cut_time.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/record_changes.h"

namespace tvx {
namespace {

MotionBlock Block(uint32_t type, float x, float y, float z, int32_t feed = 0) {
  return {x, y, z, feed, feed, 0, 0, 0, 0, type};
}

MotionBlock Zoned(MotionBlock block, int16_t headPercent, int16_t headFeed, int16_t tailPercent,
                  int16_t tailFeed) {
  block.headPercent = headPercent;
  block.headFeed = headFeed;
  block.tailPercent = tailPercent;
  block.tailFeed = tailFeed;
  return block;
}

CutTimeEntry CutTime(const std::vector<MotionBlock>& blocks, const JobRecord& job = {}) {
  BlockStore store;
  for (const MotionBlock& block : blocks) {
    store.CurrentBlock = block;
    store.WriteBlock(store.blockCount++);
  }
  CutTimeEntry entry;
  EXPECT_EQ(ComputeCutTime(&store, job, &entry), 1);
  return entry;
}

const MotionBlock kOrigin = Block(BlockRapidStart, 0, 0, 0);

TEST(CutTime, OneMoveOfAHundredMillimetres) {
  const MotionBlock cut = Block(BlockCutStart, 100, 0, 0, 500);
  struct {
    MotionBlock move;
    float minutes;
    int32_t average;
  } const cases[] = {
      {cut, 0.2F, 500},
      {Zoned(cut, 20, 250, 10, 100), 0.32F, 312},
      {Zoned(cut, 20, 0, 0, 0), 0.16F, 625},
      {Zoned(cut, 0, 0, 30, 0), 0.14F, 714},
      {Zoned(cut, 20, -5, 10, -5), 0.14F, 714},  // a zone's feed counts from 1 on
      {Block(BlockCut, 0, 60, -80, 500), 0.2F, 500},
      {Block(BlockCutStart, 100, 0, 0, 0), 0.0F, 0},  // no feed, no time
      {Zoned(Block(BlockCutStart, 100, 0, 0, 0), 50, 100, 0, 0), 0.5F, 200},
  };
  for (const auto& c : cases) {
    const CutTimeEntry entry = CutTime({kOrigin, c.move});
    SCOPED_TRACE(testing::Message() << "feed " << c.move.feed << " head " << c.move.headPercent
                                    << " tail " << c.move.tailPercent);
    EXPECT_FLOAT_EQ(entry.cutLength, 100);
    EXPECT_FLOAT_EQ(entry.cutMinutes, c.minutes);
    EXPECT_EQ(entry.averageFeed, c.average);
    EXPECT_EQ(entry.rapidLength, 0);
    EXPECT_EQ(entry.totalMinutes, entry.cutMinutes);
  }
}

TEST(CutTime, RapidsRunAtTheRapidFeed) {
  const std::vector<MotionBlock> blocks = {kOrigin, Block(BlockRapidStart, 100, 0, 0, 17)};
  const CutTimeEntry entry = CutTime(blocks);
  EXPECT_FLOAT_EQ(entry.rapidMinutes, 0.02F);
  EXPECT_EQ(entry.averageFeed, 0);
  EXPECT_EQ(entry.totalMinutes, entry.rapidMinutes);
  EXPECT_FLOAT_EQ(CutTime(blocks, Record("RapidFeed=0")).rapidLength, 100);
  EXPECT_EQ(CutTime(blocks, Record("RapidFeed=0")).rapidMinutes, 0);
}

TEST(CutTime, WhereAMoveIsMeasuredFrom) {
  const MotionBlock comment = Block(BlockNone, 7, 7, 7);
  const MotionBlock bad = Block(BlockCut, 40000, 0, 0, 500);
  struct {
    const char* what;
    std::vector<MotionBlock> blocks;
    float cutLength;
  } const cases[] = {
      {"the first block is a move", {Block(BlockCutStart, 100, 0, 0, 500)}, 0},
      {"over lines without a move", {kOrigin, comment, comment, Block(BlockCut, 5, 0, 0, 500)}, 5},
      {"over a bad record", {kOrigin, bad, Block(BlockCut, 3, 0, 0, 500)}, 3},
      {"from a bad block 0 after its repair",
       {bad, Block(BlockCut, 32700, 32700, 32600, 500)},
       100},
      {"from the end of an arc",
       {kOrigin, Block(BlockArcCcw, 9, 0, 0), Block(BlockArcCentre, 5, 0, 0),
        Block(BlockCut, 9, 0, 4, 500)},
       4},
  };
  for (const auto& c : cases) {
    const CutTimeEntry entry = CutTime(c.blocks);
    EXPECT_FLOAT_EQ(entry.cutLength, c.cutLength) << c.what;
    EXPECT_FLOAT_EQ(entry.cutMinutes, c.cutLength / 500) << c.what;
  }
}

// 16777216 + 1 is no float: each addition is rounded by itself, and the small moves are lost.
TEST(CutTime, SumsAreRoundedAfterEachAddition) {
  std::vector<MotionBlock> blocks = {kOrigin};
  for (int i = 0; i < 600; ++i) {
    blocks.push_back(Block(BlockCut, i % 2 == 0 ? 32000.0F : 0.0F, 0, 0, 1));
  }
  const float before = CutTime(blocks).cutLength;
  ASSERT_GT(before, 16777216.0F);
  for (int i = 0; i < 3; ++i) blocks.push_back(Block(BlockCut, 0, i % 2 == 0 ? 0.9F : 0.0F, 0, 1));
  EXPECT_EQ(CutTime(blocks).cutLength, before);
}

TEST(CutTime, TakesTheOptionsAndLeavesTheNames) {
  BlockStore store;
  CutTimeEntry entry;
  entry.fileName = "part.nc";
  entry.optionLine = "old";
  entry.cutLength = entry.rapidLength = 9;
  entry.averageFeed = 9;
  ComputeCutTime(&store, Record("MaxFeed=1234 SideWeight60=0.5 AfaMasterFile=c:\\m.mma"), &entry);
  EXPECT_EQ(entry.MaxFeed, 1234);
  EXPECT_EQ(entry.SideWeight60 + entry.CorWeight0, 0.5F + 1);
  EXPECT_EQ(entry.AfaMasterFile, "c:\\m.mma");
  EXPECT_EQ(entry.fileName + entry.optionLine, "part.ncold");
  EXPECT_EQ(entry.cutLength + entry.rapidLength, 0);
  EXPECT_EQ(entry.averageFeed, 0);
}

// Sums of whole millimetres and minutes are exact, over every page of the store.
TEST(CutTime, EveryMoveOfALongProgramCountsOnce) {
  constexpr int kRounds = 2000;
  std::vector<MotionBlock> blocks = {kOrigin};
  for (int i = 0; i < kRounds; ++i) {
    for (const MotionBlock& block :
         {Block(BlockCutStart, 3, 4, 0, 1), Block(BlockCut, 3, 4, 0, 1), Block(BlockNone, 9, 9, 9),
          Block(BlockArcCw, 0, 0, 5, 1), Block(BlockArcCentre, 7, 7, 5),
          Block(BlockCut, 0, 0, 7, 1), Block(BlockRapidStart, 0, 24, 0),
          Block(BlockRapid, 0, 0, 0)}) {
      blocks.push_back(block);
    }
  }
  const CutTimeEntry entry = CutTime(blocks, Record("RapidFeed=1"));
  EXPECT_EQ(entry.cutLength, (5 + 2) * kRounds);
  EXPECT_EQ(entry.cutMinutes, (5 + 2) * kRounds);
  EXPECT_EQ(entry.rapidLength, (25 + 24) * kRounds);
  EXPECT_EQ(entry.rapidMinutes, (25 + 24) * kRounds);
}

// A move with zones takes as long as three moves, one for each of its portions.
TEST(CutTime, PortionsTakeTheTimeOfTheMove) {
  for (int16_t head = 0; head <= 40; ++head) {
    for (int16_t tail = 0; tail <= 40; ++tail) {
      const MotionBlock cut = Zoned(Block(BlockCut, 12.3F, -45.6F, 0, 900), head, 250, tail, 125);
      const auto until = [&](int percent, int32_t feed) {
        const auto share = static_cast<float>(percent) / 100;
        return Block(BlockCut, cut.x * share, cut.y * share, 0, feed);
      };
      const float whole = CutTime({kOrigin, cut}).cutMinutes;
      const float portions =
          CutTime({kOrigin, until(head, 250), until(100 - tail, 900), until(100, 125)}).cutMinutes;
      ASSERT_NEAR(portions, whole, 1e-5 * whole)  // float coordinates and sums
          << "head " << head << " tail " << tail;
    }
  }
}

}  // namespace
}  // namespace tvx
