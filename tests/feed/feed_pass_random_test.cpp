// The fast pass against the plain one, on random programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include "feed/feed_pass.h"
#include "feed/master_fixture.h"
#include "random_program.h"
#include "reference_pass.h"

namespace tvx {
namespace {

bool SameBytes(const void* a, const void* b, size_t size) {
  return std::memcmp(a, b, size) == 0;
}

bool SameHeading(float a, float b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// The first block that differs, or -1.
int64_t FirstDifference(const BlockStore& a, const BlockStore& b) {
  for (uint32_t i = 0; i < a.blockCount; ++i) {
    if (!SameBytes(a.Peek(i), b.Peek(i), sizeof(MotionBlock))) return i;
  }
  return -1;
}

// Runs both passes twice, so that the second run meets the zones of the first, and the headings go
// on from program to program.
struct Pair {
  NcProgram fast;
  BlockStore plain;
  FeedPassMemory fastMemory, plainMemory;

  void Compare(const std::vector<MotionBlock>& blocks, const JobRecord& job,
               const MasterGrid& master, unsigned seed) {
    Fill(&fast.store, blocks);
    Fill(&plain, blocks);
    for (const int run : {1, 2}) {
      FeedPass(&fast, job, &master, &fastMemory);
      ReferencePass(&plain, job, master, &plainMemory);
      ASSERT_EQ(FirstDifference(fast.store, plain), -1) << "seed " << seed << " run " << run;
      ASSERT_TRUE(SameHeading(fastMemory.headings.forward, plainMemory.headings.forward) &&
                  SameHeading(fastMemory.headings.backward, plainMemory.headings.backward))
          << "seed " << seed << " run " << run;
      ASSERT_EQ(fastMemory.LastNextBlock, plainMemory.LastNextBlock) << "seed " << seed;
    }
  }
};

// The plain pass samples every move from end to end.
bool StaysInReach(const std::vector<MotionBlock>& blocks) {
  return std::all_of(blocks.begin(), blocks.end(), [](const MotionBlock& block) {
    return std::abs(block.x) < 5000 && std::abs(block.y) < 5000 && std::abs(block.z) < 5000;
  });
}

// A patch of walls near one of the moves.
MasterGrid RandomModel(const std::vector<MotionBlock>& blocks, Random* random) {
  const auto below = [random](size_t limit) { return static_cast<uint32_t>((*random)() % limit); };
  const MotionBlock& centre = blocks[below(blocks.size())];
  MasterGrid grid = EmptyGrid(static_cast<int32_t>(5 + below(40)),
                              static_cast<int32_t>(5 + below(40)), below(2) == 0 ? 1.0F : 0.7F);
  grid.OriginX = centre.x - static_cast<float>(below(30));
  grid.OriginY = centre.y - static_cast<float>(below(30));
  const uint32_t rarity = 1 + below(200);
  for (size_t i = 0; i < static_cast<size_t>(grid.CellCount); ++i) {
    grid.Cells[i].z = centre.z + static_cast<float>(below(12)) - 4;
    if (below(rarity) == 0) grid.Cells[i].angle = static_cast<int16_t>(below(91));
  }
  IndexCells(&grid);
  return grid;
}

TEST(FeedPass, LeavesTheBytesOfThePlainPassOnRandomPrograms) {
  auto pair = std::make_unique<Pair>();
  for (unsigned seed = 0; seed < 1200; ++seed) {
    Random random(seed);
    const size_t moves = seed % 10 == 0 ? 1500 : 1 + seed % 250;
    const std::vector<MotionBlock> blocks = RandomProgram(&random, moves);
    JobRecord job = RandomJob(&random);
    MasterGrid master;
    if (seed % 3 != 0 && StaysInReach(blocks)) {
      job.AfaByMaster = 1;
      master = RandomModel(blocks, &random);
    }
    pair->Compare(blocks, job, master, seed);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace tvx
