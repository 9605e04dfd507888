// Properties of the feed pass on random programs. Golden cases hold worked values.
#include "feed/feed_pass.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "base/format.h"
#include "support/random_program.h"
#include "support/record_changes.h"
#include "support/rows.h"

namespace tvx {
namespace {

constexpr uint32_t kBatch = 200;

// Two runs over each of some random programs: the second run finds the zones of the first, and the
// headings are carried from program to program.
//
// The sums are those of a second, plain implementation of the pass, which agreed with this one on
// every byte. A change of a sum is a change of figures that users rely on.
TEST(FeedPass, RandomProgramsKeepTheirFeeds) {
  const Rows<const char*, uint32_t> rows = {
      {"", 1571803552},
      {"ConCorChk=0 UpDownChk=0 PlungeFeed=5000 CornerMinAngle=0 SlopeMinAngle=0", 2519456089},
      {"SafetyDistance=4 ConCorChk=2 UpDownChk=2 ZupZdown=0.5 PlungeFeed=150 FeedChgAng=1",
       1776044622},
      {"XyChgReduceCheck=1 ZupZdown=1.5 CornerMinAngle=30 SlopeMinAngle=45 ToolDiameter=6",
       2571637031},
      {"SafetyDistance=1 XyChgReduceCheck=-1 FeedChgAng=50 MaxFeed=2345 CorWeight30=0.2",
       2214301426},
      {"SafetyDistance=0.25 CornerMaxRatio=0.3 SlopeMaxRatio=0.5 MaxFeed=100000 CorWeight60=0.9",
       4132292203},
      {"SafetyDistance=20 ToolDiameter=20 CornerMaxRatio=0.05 CorWeight30=1 CorWeight60=0",
       1221796676},
      {"AfaByMaster=1", 3422013710},
      {"AfaByMaster=1 SafetyDistance=1 SlopeMinAngle=0 SideWeight0=0.9 SideWeight60=0.2",
       3039796377},
      {"AfaByMaster=1 SafetyDistance=0.25 SlopeMaxRatio=0.5 MaxFeed=30000", 159783723},
      // Values that no dialog accepts.
      {"SafetyDistance=0 CornerMinAngle=-1 FeedChgAng=0 ToolDiameter=0", 3550378611},
      {"SafetyDistance=1e-22 CornerMinAngle=90 CornerMaxRatio=3 FeedChgAng=-3", 278449209},
      {"SafetyDistance=1e30 SlopeMaxRatio=2 ZupZdown=-1 SlopeMinAngle=-1", 1200334694},
      {"SafetyDistance=-1 CornerMaxRatio=-0.5 CorWeight0=5 MaxFeed=7", 654215698},
      {"SafetyDistance=500 MaxFeed=2000000000 SideWeight0=-2 ZupZdown=1e20", 2189710709},
  };
  for (const auto& [settings, expected] : rows) {
    const JobRecord job = Record(settings);
    NcProgram program;
    FeedPassMemory memory;
    uint32_t sum = 0;
    for (uint32_t seed = 0; seed < 60; ++seed) {
      Random random(seed);
      const std::vector<MotionBlock> blocks =
          RandomProgram(&random, seed % 10 == 0 ? 1500 : 1 + seed * 4, job.AfaByMaster == 0);
      const MasterGrid master = RandomModel(blocks, &random);
      Fill(&program.store, blocks);
      for (int run = 0; run < 2; ++run) FeedPass(&program, job, &master, &memory);
      AddTo(&sum, Bytes(program.store));
    }
    EXPECT_EQ(sum, expected) << settings;
  }
}

std::string Feeds(const MotionBlock& block) {
  return Format("%d, head %d%% %d, tail %d%% %d; ", block.feed, block.headPercent, block.headFeed,
                block.tailPercent, block.tailFeed);
}

// Only the first move of a batch changes after the last rule, when its own batch resets it.
TEST(FeedPass, TraceHoldsTheLastChangeAndAltersNone) {
  for (uint32_t seed = 0; seed < 60; ++seed) {
    Random random(seed);
    const std::vector<MotionBlock> blocks = RandomProgram(&random, 450, true);
    const MasterGrid master = RandomModel(blocks, &random);
    NcProgram plain, traced;
    FeedPassMemory plainMemory, tracedMemory;
    std::map<uint32_t, MotionBlock> last;
    Fill(&plain.store, blocks);
    Fill(&traced.store, blocks);
    FeedPass(&plain, Record("AfaByMaster=1"), &master, &plainMemory);
    FeedPass(&traced, Record("AfaByMaster=1"), &master, &tracedMemory,
             [&](FeedRule, uint32_t i, const MotionBlock&, const MotionBlock& after) {
               last[i] = after;
             });
    ASSERT_TRUE(Bytes(plain.store) == Bytes(traced.store)) << "seed " << seed;
    const PathIndex path(&plain.store);
    for (const auto& [i, after] : last) {
      if (path.PrevMove(i) / kBatch != i / kBatch) continue;
      EXPECT_EQ(Feeds(path.Block(i)), Feeds(after)) << "seed " << seed << " block " << i;
    }
  }
}

// Adjusts level cuts whose corners are at right angles, after `shift` lines without a move.
// Returns the feeds of the cuts from `first` to `last`.
std::string FeedsOfCorners(const std::vector<float>& lengths, size_t cutsPerSide, size_t shift,
                           size_t first, size_t last) {
  NcProgram program;
  FeedPassMemory memory;
  Fill(&program.store, std::vector<MotionBlock>(shift));
  Append(&program.store, BlockRapidStart, 0, 0, 0);
  for (size_t i = 0; i < lengths.size(); ++i) {
    const bool alongX = i / cutsPerSide % 2 == 0;
    const Vec3 at = EndPoint(program.store.CurrentBlock);
    Append(&program.store, BlockCut, at.x + (alongX ? lengths[i] : 0),
           at.y + (alongX ? 0 : lengths[i]), 0);
  }
  FeedPass(&program, JobRecord(), nullptr, &memory);
  std::string feeds;
  for (size_t i = first; i <= last; ++i) {
    feeds += Feeds(*program.store.Peek(static_cast<uint32_t>(shift + i)));
  }
  return feeds;
}

// While all moves are long a corner only sets zones: the tail before the edge of a batch and the
// head after it stay.
TEST(FeedPass, LongMovesHaveTheSameFeedsWhereverABatchEnds) {
  Random random(1);
  std::vector<float> lengths;
  for (int i = 0; i < 300; ++i) lengths.push_back(static_cast<float>(random.Whole(20, 60)));
  const std::string expected = FeedsOfCorners(lengths, 1, 0, 1, 300);
  for (size_t shift = 1; shift < kBatch; shift += 7) {
    EXPECT_EQ(FeedsOfCorners(lengths, 1, shift, 1, 300), expected) << shift;
  }
}

// A corner between short moves slows both as a whole; the reset of the next batch undoes the
// second.
TEST(FeedPass, BatchEdgeResetsTheShortMoveBehindACorner) {
  const std::string slow = "100, head 0% 0, tail 0% 0; ";
  const std::vector<float> lengths(40, 1);
  EXPECT_EQ(FeedsOfCorners(lengths, 20, kBatch - 22, 20, 21), slow + slow);
  EXPECT_EQ(FeedsOfCorners(lengths, 20, kBatch - 20, 20, 21), slow + slow);
  EXPECT_EQ(FeedsOfCorners(lengths, 20, kBatch - 21, 20, 21), slow + "200, head 0% 0, tail 0% 0; ");
}

}  // namespace
}  // namespace tvx
