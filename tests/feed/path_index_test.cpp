#include "feed/path_index.h"

#include <gtest/gtest.h>

#include <cmath>

#include "path_builder.h"

namespace tvx {
namespace {

constexpr uint32_t kNoMove = PathIndex::kNoMove;

uint32_t FirstAwayByWalk(const BlockStore& store, int64_t first, int64_t step, const Vec3& point,
                         float distance) {
  for (int64_t i = first; i >= 0 && i < store.blockCount; i += step) {
    const MotionBlock& block = *store.Peek(static_cast<uint32_t>(i));
    if (!IsMoveType(block.type)) continue;
    if (IsRapidType(block.type)) return static_cast<uint32_t>(i);
    Difference difference;
    Vec3 unit;
    DiffVectors({block.x, block.y, block.z}, point, &difference, &unit);
    if (!(difference.length < distance)) return static_cast<uint32_t>(i);
  }
  return kNoMove;
}

void ExpectWalks(BlockStore* store, uint32_t stride, float distance) {
  const PathIndex path(store);
  for (uint32_t i = 0; i < store->blockCount; i += stride) {
    const Vec3 point = path.Point(i);
    ASSERT_EQ(path.FirstAway(i, point, distance), FirstAwayByWalk(*store, i, 1, point, distance))
        << i << " " << distance;
    ASSERT_EQ(path.LastAway(i, point, distance), FirstAwayByWalk(*store, i, -1, point, distance))
        << i << " " << distance;
  }
}

std::vector<MotionBlock> Helix(uint32_t points, double radius, double pitch, double spacing) {
  std::vector<MotionBlock> blocks;
  for (uint32_t i = 0; i < points; ++i) {
    const double angle = i * spacing / radius;
    blocks.push_back(Move(BlockCut, static_cast<float>(radius * std::cos(angle)),
                          static_cast<float>(radius * std::sin(angle)),
                          static_cast<float>(pitch * angle / 6.283)));
  }
  return blocks;
}

// Some levels of the tree, and more than one page of the store.
TEST(PathIndex, FindsWhatAWalkFindsOnAHelix) {
  BlockStore store;
  Fill(&store, Helix(20000, 2.0, 0.05, 0.1));
  for (const float distance : {0.05F, 1.0F, 3.99F, 4.0F, 4.01F, 5.0F, 8.0F}) {
    ExpectWalks(&store, 331, distance);
  }
}

TEST(PathIndex, FindsWhatAWalkFindsAmongRapids) {
  BlockStore store;
  std::vector<MotionBlock> blocks = Helix(6000, 2.0, 0, 0.1);
  for (const size_t i : {size_t{0}, size_t{700}, size_t{701}, size_t{2041}, size_t{4500}}) blocks[i].type = BlockRapid;
  Fill(&store, blocks);
  ExpectWalks(&store, 37, 5.0F);
  ExpectWalks(&store, 37, 3.9F);
}

TEST(PathIndex, StepsOverLinesWithoutAMove) {
  BlockStore store;
  std::vector<MotionBlock> blocks(5000, Move(BlockNone, 1, 2, 3));
  blocks[10] = Move(BlockCut, 0, 0, 0);
  blocks[3000] = Move(BlockArcCw, 1, 0, 0);
  blocks[3001] = Move(BlockArcCentre, 9, 9, 9);
  blocks[4999] = Move(BlockRapid, 3, 0, 0);
  Fill(&store, blocks);
  const PathIndex path(&store);
  const struct {
    uint32_t i, previous, next;
  } cases[] = {{0, 0, 10},       {10, 0, 3000},      {11, 10, 3000},       {2999, 10, 3000},
               {3000, 10, 4999}, {3001, 3000, 4999}, {4999, 3000, kNoMove}};
  for (const auto& c : cases) {
    EXPECT_EQ(path.PrevMove(c.i), c.previous) << c.i;
    EXPECT_EQ(path.NextMove(c.i), c.next) << c.i;
  }
}

TEST(PathIndex, RepairsBadRecordsAndTakesAnEmptyStore) {
  BlockStore store;
  EXPECT_EQ(PathIndex(&store).NextMove(0), kNoMove);
  EXPECT_EQ(PathIndex(&store).FirstAway(0, {}, 5.0F), kNoMove);
  Fill(&store, {Move(BlockCut, 0, 0, 0), Move(BlockCut, 40000, 0, 0), Move(BlockCut, 1, 0, 0)});
  EXPECT_EQ(PathIndex(&store).NextMove(0), 2U);
  EXPECT_EQ(store.Peek(1)->type, BlockNone);
}

}  // namespace
}  // namespace tvx
