// Lengths, times and average feed of a stored program.
#include "stats/cut_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "model/walks.h"

namespace tvx {
namespace {

MotionBlock Block(uint32_t type, float x, float y, float z, int32_t feed = 0) {
  MotionBlock block;
  block.x = x;
  block.y = y;
  block.z = z;
  block.feedProgrammed = block.feed = feed;
  block.type = type;
  return block;
}

MotionBlock Zoned(MotionBlock block, int16_t headPercent, int16_t headFeed, int16_t tailPercent,
                  int16_t tailFeed) {
  block.headPercent = headPercent;
  block.headFeed = headFeed;
  block.tailPercent = tailPercent;
  block.tailFeed = tailFeed;
  return block;
}

void Fill(BlockStore* store, const std::vector<MotionBlock>& blocks) {
  store->blockCount = 0;
  for (const MotionBlock& block : blocks) {
    store->CurrentBlock = block;
    ASSERT_EQ(store->WriteBlock(store->blockCount), 1);
    ++store->blockCount;
  }
}

CutTimeEntry CutTime(const std::vector<MotionBlock>& blocks, const JobRecord& job = {}) {
  BlockStore store;
  Fill(&store, blocks);
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

TEST(CutTime, RapidsRunAtTheRapidFeedWhateverTheirBlocksSay) {
  JobRecord job;
  const std::vector<MotionBlock> blocks = {kOrigin, Block(BlockRapidStart, 100, 0, 0, 17)};
  EXPECT_FLOAT_EQ(CutTime(blocks, job).rapidMinutes, 0.02F);
  EXPECT_EQ(CutTime(blocks, job).averageFeed, 0);
  EXPECT_EQ(CutTime(blocks, job).totalMinutes, CutTime(blocks, job).rapidMinutes);
  job.RapidFeed = 0;
  EXPECT_FLOAT_EQ(CutTime(blocks, job).rapidLength, 100);
  EXPECT_EQ(CutTime(blocks, job).rapidMinutes, 0);
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
      {"from a bad block 0, as repaired", {bad, Block(BlockCut, 32700, 32700, 32600, 500)}, 100},
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
  JobRecord job;
  job.MaxFeed = 1234;
  CutTimeEntry entry;
  entry.fileName = "part.nc";
  entry.optionLine = "old";
  entry.cutLength = entry.rapidLength = 9;
  entry.averageFeed = 9;
  ComputeCutTime(&store, job, &entry);
  EXPECT_EQ(entry.MaxFeed, 1234);
  EXPECT_EQ(entry.fileName, "part.nc");
  EXPECT_EQ(entry.optionLine, "old");
  EXPECT_EQ(entry.cutLength + entry.rapidLength, 0);
  EXPECT_EQ(entry.averageFeed, 0);
}

// The walk that looks back for each move anew, which the walk of the program has to equal.
CutTimeEntry LookingBack(BlockStore* store, const JobRecord& job) {
  CutTimeEntry sums;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    store->ReadBlock(i);
    const MotionBlock block = store->CurrentBlock;
    if (!IsCutType(block.type) && !IsRapidType(block.type)) continue;
    Difference difference;
    Vec3 unit;
    BlockVector(store, i, PrevMove(store, i), &difference, &unit);
    const float length = difference.length;
    if (IsRapidType(block.type)) {
      sums.rapidLength += length;
      sums.rapidMinutes =
          static_cast<float>(sums.rapidMinutes + static_cast<double>(length) / job.RapidFeed);
      continue;
    }
    const float p1 = block.headPercent * 0.01F;
    const float p2 = block.tailPercent * 0.01F;
    const auto add = [&](double minutes) {
      sums.cutMinutes = static_cast<float>(sums.cutMinutes + minutes);
    };
    sums.cutLength += length;
    if (block.headFeed > 0) add(static_cast<double>(length) * p1 / block.headFeed);
    if (block.tailFeed > 0) add(static_cast<double>(length) * p2 / block.tailFeed);
    if (block.feed != 0) add((1.0 - p1 - p2) * length / block.feed);
  }
  sums.totalMinutes = sums.cutMinutes + sums.rapidMinutes;
  return sums;
}

class RandomProgram {
 public:
  explicit RandomProgram(uint32_t seed) : random_(seed) {}

  std::vector<MotionBlock> Blocks(size_t count) {
    static constexpr uint32_t kTypes[] = {BlockNone,     BlockRapidStart, BlockRapid,
                                          BlockCutStart, BlockCut,        BlockCut,
                                          BlockCut,      BlockArcCcw,     BlockArcCw};
    std::vector<MotionBlock> blocks;
    while (blocks.size() < count) {
      MotionBlock block =
          Block(kTypes[Below(std::size(kTypes))], Coordinate(), Coordinate(), Coordinate());
      if (Below(10) == 0 && !blocks.empty()) {  // a move of no length
        const MotionBlock& last = blocks.back();
        block = Block(block.type, last.x, last.y, last.z);
      }
      if (Below(40) == 0) block.x = 32701;  // a bad record
      block.feed = static_cast<int32_t>(Below(20) == 0 ? 0 : Below(30000));
      if (Below(3) == 0) block = Zoned(block, Percent(), Feed(), Percent(), Feed());
      blocks.push_back(block);
      if (IsArcType(block.type)) blocks.push_back(Block(BlockArcCentre, Coordinate(), 1, block.z));
    }
    return blocks;
  }

  uint32_t Below(uint64_t limit) { return static_cast<uint32_t>(random_() % limit); }
  float Coordinate() { return static_cast<float>(Below(200001)) / 1000.0F - 100.0F; }
  int16_t Percent() { return static_cast<int16_t>(Below(41)); }
  int16_t Feed() { return static_cast<int16_t>(Below(2000)); }

 private:
  std::mt19937 random_;
};

constexpr float CutTimeEntry::*kFigures[] = {
    &CutTimeEntry::cutLength, &CutTimeEntry::cutMinutes, &CutTimeEntry::rapidLength,
    &CutTimeEntry::rapidMinutes, &CutTimeEntry::totalMinutes};

TEST(CutTime, EqualsTheWalkThatLooksBackOnRandomPrograms) {
  JobRecord job;
  job.RapidFeed = 7000;
  for (uint32_t seed = 0; seed < 200; ++seed) {
    const size_t count = seed == 0 ? 3 * BlockStore::blocksPerPage : seed;
    const std::vector<MotionBlock> blocks = RandomProgram(seed).Blocks(count);
    BlockStore store;
    Fill(&store, blocks);
    CutTimeEntry entry;
    ComputeCutTime(&store, job, &entry);
    BlockStore otherStore;
    Fill(&otherStore, blocks);
    const CutTimeEntry expected = LookingBack(&otherStore, job);
    for (const auto figure : kFigures) {
      ASSERT_EQ(entry.*figure, expected.*figure) << "seed " << seed;
    }
    for (uint32_t i = 0; i < store.blockCount; ++i) {  // the same records were repaired
      ASSERT_EQ(std::memcmp(store.Peek(i), otherStore.Peek(i), sizeof(MotionBlock)), 0)
          << "seed " << seed << " block " << i;
    }
  }
}

// A move with zones takes as long as three moves, one for each of its portions.
TEST(CutTime, PortionsTakeTheTimeOfTheMove) {
  RandomProgram random(1);
  for (int i = 0; i < 1000; ++i) {
    const MotionBlock cut = Zoned(Block(BlockCut, random.Coordinate(), random.Coordinate(), 0, 900),
                                  random.Percent(), 250, random.Percent(), 125);
    const auto until = [&](int percent, int32_t feed) {
      const auto share = static_cast<float>(percent) / 100;
      return Block(BlockCut, cut.x * share, cut.y * share, 0, feed);
    };
    const float whole = CutTime({kOrigin, cut}).cutMinutes;
    const float portions = CutTime({kOrigin, until(cut.headPercent, 250),
                                    until(100 - cut.tailPercent, 900), until(100, 125)})
                               .cutMinutes;
    ASSERT_NEAR(portions, whole, 1e-5 * whole)
        << "head " << cut.headPercent << " tail " << cut.tailPercent;  // float coordinates and sums
  }
}

}  // namespace
}  // namespace tvx
