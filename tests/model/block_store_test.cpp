// The block store: pages, repair, failed reads.
#include "model/block_store.h"

#include <gtest/gtest.h>

#include <cstring>

#include "model/test_load.h"

namespace tvx {
namespace {

void Append(BlockStore* store, uint32_t type, float x, float y = 0, float z = 0) {
  store->CurrentBlock = {x, y, z, 700, 800, 1, 2, 3, 4, type};
  ASSERT_EQ(store->WriteBlock(store->blockCount++), 1);
}

TEST(BlockStore, ReadsWhatWasWrittenOnEveryPage) {
  BlockStore store;
  constexpr uint32_t kCount = 2 * BlockStore::blocksPerPage + 2;
  for (uint32_t i = 0; i < kCount; ++i) Append(&store, BlockCut, static_cast<float>(i));
  for (const uint32_t i : {0U, 2040U, 2041U, 4081U, 4082U, kCount - 1}) {
    ASSERT_EQ(store.ReadBlock(i), 1);
    EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(i));
  }
  EXPECT_EQ(store.ReadBlock(kCount), 0);
  EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(kCount - 1)) << "the register stays";
  Append(&store, BlockArcCentre, 1);
  EXPECT_EQ(store.ReadBlock(kCount), 1);
  Append(&store, BlockNone, 2);
  EXPECT_EQ(store.ReadBlock(kCount + 1), 0) << "read all the same, but of type 0";
}

TEST(BlockStore, RepairsRecordsOutOfRangeForGood) {
  const struct {
    float x, y, z;
    bool bad;
  } cases[] = {
      {32700, 0, -32700, false}, {-32700, 40000, 32700, false}, {32700.5F, 1, 2, true},
      {-32700.5F, 1, 2, true},   {1, 2, 32700.5F, true},        {1, 2, -32701, true},
  };
  for (const auto& c : cases) {
    BlockStore store;
    Append(&store, BlockCut, c.x, c.y, c.z);
    const MotionBlock written = store.CurrentBlock;
    MotionBlock read = written;
    if (c.bad) read = {32700, 32700, 32700, 300, 300, 1, 2, 3, 4, BlockNone};
    EXPECT_EQ(std::memcmp(store.Peek(0), &written, sizeof written), 0) << "a peek repairs nothing";
    EXPECT_EQ(store.ReadBlock(0), c.bad ? 0 : 1) << c.x << ' ' << c.z;
    EXPECT_EQ(std::memcmp(&store.CurrentBlock, &read, sizeof read), 0) << c.x << ' ' << c.z;
    EXPECT_EQ(std::memcmp(store.Peek(0), &read, sizeof read), 0) << c.x << ' ' << c.z;
  }
}

TEST(BlockStore, RefusesWritesWithoutMemoryAndBeyondTheLastPage) {
  OnePageMemory memory;
  BlockStore store(&memory);
  EXPECT_EQ(store.WriteBlock(2040), 1);
  for (const uint32_t index : {2041U, 0xFFFFFFFFU}) {
    EXPECT_EQ(store.WriteBlock(index), 0) << index;
  }
  store.blockCount = 2043;  // a count can run ahead of the pages
  store.CurrentBlock.x = 5;
  EXPECT_EQ(store.ReadBlock(2042), 0);
  EXPECT_EQ(store.CurrentBlock.x, 5);

  BlockStore large;
  EXPECT_EQ(large.WriteBlock(8163999), 1);
  EXPECT_EQ(large.WriteBlock(8164000), 0);
}

}  // namespace
}  // namespace tvx
