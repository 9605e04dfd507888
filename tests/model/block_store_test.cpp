#include "model/block_store.h"

#include <gtest/gtest.h>

#include "model/one_page_memory.h"

namespace tvx {
namespace {

MotionBlock At(float x, float y, float z, uint32_t type) {
  MotionBlock block;
  block.x = x;
  block.y = y;
  block.z = z;
  block.feed = block.feedProgrammed = 700;
  block.headPercent = 11;
  block.type = type;
  return block;
}

void Append(BlockStore* store, const MotionBlock& block) {
  store->CurrentBlock = block;
  ASSERT_EQ(store->WriteBlock(store->blockCount), 1);
  ++store->blockCount;
}

TEST(BlockStore, EmptyStoreReadsNothingAndKeepsTheRegister) {
  BlockStore store;
  store.CurrentBlock = At(1, 2, 3, BlockCut);
  EXPECT_EQ(store.ReadBlock(0), 0);
  EXPECT_EQ(store.CurrentBlock.x, 1);
  EXPECT_EQ(store.CurrentBlock.type, BlockCut);
}

TEST(BlockStore, KeepsEveryRecordAcrossPages) {
  BlockStore store;
  constexpr uint32_t kCount = 3 * BlockStore::blocksPerPage + 5;
  for (uint32_t i = 0; i < kCount; ++i) {
    Append(&store, At(static_cast<float>(i % 30000), 0, 0, BlockCut));
  }
  for (const uint32_t i : {0U, 2040U, 2041U, 4081U, 4082U, kCount - 1}) {
    ASSERT_EQ(store.ReadBlock(i), 1);
    EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(i % 30000)) << i;
  }
  EXPECT_EQ(store.ReadBlock(kCount), 0);
  EXPECT_EQ(store.CurrentBlock.x, static_cast<float>((kCount - 1) % 30000));
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
    Append(&store, At(c.x, c.y, c.z, BlockCut));
    EXPECT_EQ(store.Peek(0)->x, c.x) << "a peek repairs nothing";
    EXPECT_EQ(store.ReadBlock(0), c.bad ? 0 : 1) << c.x << ' ' << c.z;
    const MotionBlock& stored = *store.Peek(0);
    for (const MotionBlock& block : {store.CurrentBlock, stored}) {
      EXPECT_EQ(block.type, c.bad ? BlockNone : BlockCut);
      EXPECT_EQ(block.x, c.bad ? 32700.0F : c.x);
      EXPECT_EQ(block.y, c.bad ? 32700.0F : c.y);
      EXPECT_EQ(block.z, c.bad ? 32700.0F : c.z);
      EXPECT_EQ(block.feed, c.bad ? 300 : 700);
      EXPECT_EQ(block.feedProgrammed, c.bad ? 300 : 700);
      EXPECT_EQ(block.headPercent, 11) << "the zone fields stay";
    }
  }
}

TEST(BlockStore, ResultOfAReadTellsTypeZeroOnly) {
  BlockStore store;
  Append(&store, At(1, 1, 1, BlockNone));
  Append(&store, At(2, 2, 2, BlockArcCentre));
  EXPECT_EQ(store.ReadBlock(0), 0);
  EXPECT_EQ(store.CurrentBlock.x, 1);
  EXPECT_EQ(store.ReadBlock(1), 1);
  EXPECT_EQ(store.CurrentBlock.x, 2);
}

TEST(BlockStore, RefusesWritesWithoutMemoryAndBeyondTheLastPage) {
  OnePageMemory memory;
  BlockStore store(&memory);
  EXPECT_EQ(store.WriteBlock(2040), 1);
  EXPECT_EQ(store.WriteBlock(2041), 0);
  EXPECT_EQ(store.WriteBlock(8164000), 0);
  EXPECT_EQ(store.WriteBlock(0xFFFFFFFF), 0);
  // A count that runs ahead of the pages reads nothing.
  store.CurrentBlock = At(5, 5, 5, BlockCut);
  store.blockCount = 2042;
  EXPECT_EQ(store.ReadBlock(2041), 0);
  EXPECT_EQ(store.CurrentBlock.x, 5);
}

}  // namespace
}  // namespace tvx
