#include "model/block_store.h"

#include <gtest/gtest.h>

#include <cstring>

#include "model/test_load.h"

namespace tvx {
namespace {

void Append(BlockStore* store, uint32_t type, float x, float y = 0, float z = 0) {
  store->CurrentBlock = {x, y, z, 700, 700, 11, 0, 0, 0, type};
  ASSERT_EQ(store->WriteBlock(store->blockCount++), 1);
}

TEST(BlockStore, KeepsEveryRecordAcrossPages) {
  BlockStore store;
  store.CurrentBlock.x = 1;
  EXPECT_EQ(store.ReadBlock(0), 0);
  EXPECT_EQ(store.CurrentBlock.x, 1) << "nothing to read leaves the register";
  constexpr uint32_t kCount = 3 * BlockStore::blocksPerPage + 5;
  for (uint32_t i = 0; i < kCount; ++i) Append(&store, BlockCut, static_cast<float>(i));
  for (const uint32_t i : {0U, 2040U, 2041U, 4081U, 4082U, kCount - 1}) {
    ASSERT_EQ(store.ReadBlock(i), 1);
    EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(i));
  }
  EXPECT_EQ(store.ReadBlock(kCount), 0);
  EXPECT_EQ(store.CurrentBlock.x, static_cast<float>(kCount - 1));

  Append(&store, BlockArcCentre, 1);
  EXPECT_EQ(store.ReadBlock(kCount), 1);
  Append(&store, BlockNone, 2);
  store.CurrentBlock.x = 7;
  EXPECT_EQ(store.ReadBlock(kCount + 1), 0) << "read all the same, but of type 0";
  EXPECT_EQ(store.CurrentBlock.x, 2);
}

TEST(BlockStore, RepairsRecordsOutOfRangeForGood) {
  const MotionBlock cases[][2] = {
      // a record, and how it is read
      {{32700, 0, -32700, 7, 8, 1, 2, 3, 4, BlockCut}, {32700, 0, -32700, 7, 8, 1, 2, 3, 4, 4}},
      {{0, 40000, 0, 7, 8, 1, 2, 3, 4, BlockCut}, {0, 40000, 0, 7, 8, 1, 2, 3, 4, 4}},
      {{32700.5F, 1, 2, 7, 8, 1, 2, 3, 4, 4}, {32700, 32700, 32700, 300, 300, 1, 2, 3, 4, 0}},
      {{-32700.5F, 1, 2, 7, 8, 1, 2, 3, 4, 4}, {32700, 32700, 32700, 300, 300, 1, 2, 3, 4, 0}},
      {{1, 2, 32700.5F, 7, 8, 1, 2, 3, 4, 4}, {32700, 32700, 32700, 300, 300, 1, 2, 3, 4, 0}},
      {{1, 2, -32701, 7, 8, 1, 2, 3, 4, 4}, {32700, 32700, 32700, 300, 300, 1, 2, 3, 4, 0}},
  };
  for (const auto& [record, read] : cases) {
    BlockStore store;
    store.CurrentBlock = record;
    store.WriteBlock(store.blockCount++);
    EXPECT_EQ(std::memcmp(store.Peek(0), &record, sizeof record), 0) << "a peek repairs nothing";
    EXPECT_EQ(store.ReadBlock(0), read.type == BlockCut ? 1 : 0) << record.x << ' ' << record.z;
    for (const MotionBlock& block : {store.CurrentBlock, *store.Peek(0)}) {
      EXPECT_EQ(std::memcmp(&block, &read, sizeof read), 0) << record.x << ' ' << record.z;
    }
  }
}

TEST(BlockStore, RefusesWritesWithoutMemoryAndBeyondTheLastPage) {
  OnePageMemory memory;
  BlockStore store(&memory);
  EXPECT_EQ(store.WriteBlock(2040), 1);
  for (const uint32_t index : {2041U, 8164000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(store.WriteBlock(index), 0) << index;
  }
  store.blockCount = 2042;  // as after an arc without room for its second record
  store.CurrentBlock.x = 5;
  EXPECT_EQ(store.ReadBlock(2041), 0);
  EXPECT_EQ(store.CurrentBlock.x, 5);
}

}  // namespace
}  // namespace tvx
