// The fast pass against the plain one, on random programs.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include "feed/feed_pass.h"
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

  void Compare(const std::vector<MotionBlock>& blocks, const JobRecord& job, unsigned seed) {
    Fill(&fast.store, blocks);
    Fill(&plain, blocks);
    for (const int run : {1, 2}) {
      FeedPass(&fast, job, nullptr, &fastMemory);
      ReferencePass(&plain, job, &plainMemory);
      ASSERT_EQ(FirstDifference(fast.store, plain), -1) << "seed " << seed << " run " << run;
      ASSERT_TRUE(SameHeading(fastMemory.headings.forward, plainMemory.headings.forward) &&
                  SameHeading(fastMemory.headings.backward, plainMemory.headings.backward))
          << "seed " << seed << " run " << run;
      ASSERT_EQ(fastMemory.LastNextBlock, plainMemory.LastNextBlock) << "seed " << seed;
    }
  }
};

TEST(FeedPass, LeavesTheBytesOfThePlainPassOnRandomPrograms) {
  auto pair = std::make_unique<Pair>();
  for (unsigned seed = 0; seed < 1200; ++seed) {
    Random random(seed);
    const size_t moves = seed % 10 == 0 ? 1500 : 1 + seed % 250;
    const std::vector<MotionBlock> blocks = RandomProgram(&random, moves);
    pair->Compare(blocks, RandomJob(&random), seed);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace tvx
