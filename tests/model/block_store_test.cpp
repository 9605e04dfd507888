#include "model/block_store.h"

#include <gtest/gtest.h>

#include <cstring>

#include "model/one_page_memory.h"

namespace tvx {
namespace {

void Append(BlockStore* store, uint32_t type, float x, float y = 0, float z = 0) {
  store->CurrentBlock = {x, y, z, 700, 700, 11, 0, 0, 0, type};
  ASSERT_EQ(store->WriteBlock(store->blockCount), 1);
  ++store->blockCount;
}

TEST(BlockStore, KeepsEveryRecordAcrossPages) {
  BlockStore store;
  store.CurrentBlock.x = 1;
  EXPECT_EQ(store.ReadBlock(0), 0);
  EXPECT_EQ(store.CurrentBlock.x, 1) << "nothing to read leaves the register";
  constexpr uint32_t kCount = 3 * BlockStore::blocksPerPage + 5;
  for (uint32_t i = 0; i < kCount; ++i) Append(&store, BlockCut, static_cast<float>(i % 30000));
  for (const uint32_t i : {0U, 2040U, 2041U, 4081U, 4082U, kCount - 1}) {
    ASSERT_EQ(store.ReadBlock(i), 1);
    EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(i % 30000)) << i;
  }
  EXPECT_EQ(store.ReadBlock(kCount), 0);
  EXPECT_EQ(store.CurrentBlock.x, static_cast<float>((kCount - 1) % 30000));

  Append(&store, BlockArcCentre, 1);
  EXPECT_EQ(store.ReadBlock(kCount), 1);
  Append(&store, BlockNone, 2);
  store.CurrentBlock.x = 7;
  EXPECT_EQ(store.ReadBlock(kCount + 1), 0) << "the result tells type 0 alone";
  EXPECT_EQ(store.CurrentBlock.x, 2);
}

TEST(BlockStore, RepairsRecordsOutOfRangeForGood) {
  const struct {
    float x, y, z;
    bool bad;
  } cases[] = {
      {32700.0F, 0, 0, false}, {-32700.0F, 0, -32700.0F, false}, {0, 40000.0F, 0, false},
      {32700.5F, 1, 2, true},  {-32700.5F, 1, 2, true},          {1, 2, 32700.5F, true},
      {1, 2, -32701.0F, true},
  };
  for (const auto& c : cases) {
    BlockStore store;
    Append(&store, BlockCut, c.x, c.y, c.z);
    EXPECT_EQ(store.Peek(0)->x, c.x) << "a peek repairs nothing";
    EXPECT_EQ(store.ReadBlock(0), c.bad ? 0 : 1) << c.x << ' ' << c.z;
    // The zone fields stay.
    MotionBlock expected{c.x, c.y, c.z, 700, 700, 11, 0, 0, 0, BlockCut};
    if (c.bad) expected = {32700, 32700, 32700, 300, 300, 11, 0, 0, 0, BlockNone};
    for (const MotionBlock& block : {store.CurrentBlock, *store.Peek(0)}) {
      EXPECT_EQ(std::memcmp(&block, &expected, sizeof block), 0) << c.x << ' ' << c.z;
    }
  }
}

TEST(BlockStore, RefusesWritesWithoutMemoryAndBeyondTheLastPage) {
  OnePageMemory memory;
  BlockStore store(&memory);
  store.CurrentBlock.x = 5;
  EXPECT_EQ(store.WriteBlock(2040), 1);
  for (const uint32_t index : {2041U, 8164000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(store.WriteBlock(index), 0) << index;
  }
  // A count that runs ahead of the pages reads nothing.
  store.blockCount = 2042;
  EXPECT_EQ(store.ReadBlock(2041), 0);
  EXPECT_EQ(store.CurrentBlock.x, 5);
}

}  // namespace
}  // namespace tvx
