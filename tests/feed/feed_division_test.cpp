// A pass in parts, by any number of threads, changes the same bytes, leaves the same memory and
// calls the trace in the same order as one by a single thread.
#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"
#include "feed/feed_pass.h"
#include "support/random_program.h"
#include "support/record_changes.h"
#include "support/rows.h"

namespace tvx {
namespace {

using Blocks = std::vector<MotionBlock>;

void AddCut(Blocks* blocks, double x, double y, double z) {
  blocks->push_back({.x = static_cast<float>(x),
                     .y = static_cast<float>(y),
                     .z = static_cast<float>(z),
                     .feedProgrammed = 900,
                     .feed = 900,
                     .type = BlockCut});
}

// Right angles between moves of a length that has room for one zone of 5 mm, but not for two: each
// corner depends on the one before it.
Blocks Stairs(Random* random) {
  Blocks blocks;
  double x = 0, y = 0;
  for (int i = 0; i < 1500; ++i) {
    (i % 2 == 0 ? x : y) += random->Chance(3) ? random->Real(1, 30) : random->Real(6.5, 11.9);
    AddCut(&blocks, x, y, 0);
    blocks.back().feed = random->OneOf({50, 90, 900});
    if (random->Chance(30)) blocks.back().headPercent = blocks.back().headFeed = 40;
  }
  return blocks;
}

// Never farther apart than the look distance, or with moves that are too short for a heading.
Blocks Circles(Random* random) {
  Blocks blocks;
  const double radius = random->OneOf({0.004, 0.3, 2.0, 2.6});
  const double step = random->OneOf({0.003, 0.05, 0.7}), climb = random->OneOf({0.0, 0.0, 0.001});
  for (int i = 0; i < 2500; ++i) {
    AddCut(&blocks, radius * std::cos(i * step), radius * std::sin(i * step), i * climb);
    if (random->Chance(1) && random->Chance(20)) blocks.back().type = BlockRapid;
  }
  return blocks;
}

// Moves far apart by index.
Blocks Gaps(Random* random) {
  Blocks blocks = RandomProgram(random, 300, true);
  for (int gap = 0; gap < 5; ++gap) {
    const auto at = static_cast<size_t>(random->Whole(0, static_cast<int>(blocks.size())));
    blocks.insert(blocks.begin() + static_cast<std::ptrdiff_t>(at),
                  static_cast<size_t>(random->OneOf({1, 199, 200, 201, 1300})), MotionBlock());
  }
  return blocks;
}

Blocks Rapids(Random* random) {
  Blocks blocks;
  for (int i = 0; i < 900; ++i) {
    AddCut(&blocks, random->Real(-40, 40), random->Real(-40, 40), random->Real(-4, 4));
    if (!random->Chance(3)) blocks.back().type = BlockRapid;
  }
  return blocks;
}

Blocks AnyMoves(Random* random) {
  return RandomProgram(random, random->OneOf({150U, 450U, 2500U}), random->Chance(50));
}

// What passes over a program did, with everything that they can be asked for.
std::string PassesOver(const Blocks& blocks, const JobRecord& job, const MasterGrid& master,
                       uint32_t lastNext, bool traces, const FeedPassDivision& division) {
  NcProgram program;
  FeedPassMemory memory;
  memory.LastNextBlock = lastNext;
  Fill(&program.store, blocks);
  std::string text;
  uint32_t sum = 0;
  const FeedTrace trace = [&](FeedRule rule, uint32_t i, const MotionBlock& before,
                              const MotionBlock& after) {
    const std::string_view bytes(reinterpret_cast<const char*>(&before), sizeof before);
    AddTo(&sum, Format("%d %u ", static_cast<int>(rule), i) + std::string(bytes));
    AddTo(&sum, std::string(reinterpret_cast<const char*>(&after), sizeof after));
  };
  for (int run = 0; run < 2; ++run) {
    FeedPass(&program, job, &master, &memory, traces ? trace : FeedTrace(), NoProgress(), division);
    text += Bytes(program.store) + Format(" %u %u %a %a", sum, memory.LastNextBlock,
                                          memory.headings.forward.Degrees(),
                                          memory.headings.backward.Degrees());
  }
  return text;
}

TEST(FeedDivision, AnyNumberOfThreadsAndPartsGivesTheSameBytesTraceAndMemory) {
  using Maker = Blocks (*)(Random*);
  uint32_t parts = 0, redone = 0;
  for (uint32_t seed = 0; seed < 500; ++seed) {
    Random random(seed);
    const Blocks blocks =
        random.OneOf<Maker>({Stairs, Circles, Gaps, Rapids, AnyMoves, AnyMoves, AnyMoves})(&random);
    const MasterGrid master = RandomModel(blocks, &random);
    const char* const settings = random.OneOf(
        {"", "CornerMinAngle=0 SlopeMinAngle=0", "SafetyDistance=500", "SafetyDistance=0.002",
         "XyChgReduceCheck=1 SafetyDistance=2", "SafetyDistance=0 ConCorChk=0",
         "AfaByMaster=1 SafetyDistance=1", "AfaByMaster=1 SlopeMinAngle=0", "SafetyDistance=20"});
    const JobRecord job = Record(settings);
    const auto lastNext = static_cast<uint32_t>(random.Whole(0, static_cast<int>(blocks.size())));
    const bool traces = random.Chance(50);
    const std::string expected = PassesOver(blocks, job, master, lastNext, traces, {});
    for (const unsigned threads : {1U, 2U, 3U, 7U, 16U}) {
      FeedPassDivision::Seams seams;
      const FeedPassDivision division = {
          .threads = threads, .partBatches = random.OneOf({1U, 1U, 2U, 3U}), .seams = &seams};
      ASSERT_TRUE(PassesOver(blocks, job, master, lastNext, traces, division) == expected)
          << "seed " << seed << ", " << settings << ", threads " << threads
          << ", batches in a part " << division.partBatches;
      parts += seams.parts;
      redone += seams.redone;
    }
  }
  // Both ways to join a part have been taken often.
  EXPECT_GT(redone, 100U);
  EXPECT_LT(redone, parts / 2);
}

// Every corner sets zones, also those across the edges: what the batch before an edge hands on is
// found out in advance.
TEST(FeedDivision, PartsOfAUsualPathAreDoneOnce) {
  Random random(1);
  Blocks blocks;
  double x = 0, y = 0;
  for (int i = 0; i < 3000; ++i) {
    (i % 2 == 0 ? x : y) += random.Real(20, 60) * (i % 100 < 50 ? 1 : -1);
    AddCut(&blocks, x, y, 0);
  }
  NcProgram program;
  Fill(&program.store, blocks);
  FeedPassMemory memory;
  FeedPassDivision::Seams seams;
  FeedPass(&program, JobRecord(), nullptr, &memory, {}, NoProgress(),
           {.threads = 3, .partBatches = 1, .seams = &seams});
  EXPECT_EQ(seams.parts, 15U);
  EXPECT_EQ(seams.redone, 0U);
}

// Stops at the given step.
class Impatient final : public Progress {
 public:
  explicit Impatient(int steps) : Progress(std::chrono::milliseconds(0)), steps_(steps) {}

 private:
  bool Show(const State&) override { return --steps_ > 0; }
  void Hide() override {}
  int steps_;
};

TEST(FeedDivision, StopEndsAllThreadsAndKeepsTheMemory) {
  Random random(1);
  NcProgram program;
  Fill(&program.store, RandomProgram(&random, 3000, false));
  // The calling thread may have one step only where others do the work.
  for (const auto& [threads, steps] : Rows<unsigned, int>{{1, 1}, {1, 9}, {2, 1}, {7, 1}}) {
    FeedPassMemory memory;
    memory.LastNextBlock = 77;
    Impatient progress(steps);
    const WorkScope work(&progress, Work::kAdjust, "", Stopping::kAllowed);
    EXPECT_FALSE(FeedPass(&program, JobRecord(), nullptr, &memory, {}, &progress,
                          {.threads = threads, .partBatches = 1}));
    EXPECT_EQ(memory.LastNextBlock, 77U);
  }
}

}  // namespace
}  // namespace tvx
