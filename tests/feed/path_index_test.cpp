// Jumps of the path index against a plain walk.
#include "feed/path_index.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/random_program.h"

namespace tvx {
namespace {

bool IsAway(const MotionBlock& block, const Vec3& point, float distance) {
  if (IsRapidType(block.type)) return true;
  return IsMoveType(block.type) && !(Subtract(EndPoint(block), point).length < distance);
}

void CompareJumpsWithWalks(const std::vector<MotionBlock>& program, Random* random) {
  BlockStore store;
  Fill(&store, program);
  const PathIndex path(&store, random->OneOf({1.0F, 5.0F, HUGE_VALF}), 2);
  const int count = static_cast<int>(path.BlockCount());
  ASSERT_EQ(path.BlockCount(), program.size());
  const auto walk = [&](int from, int step, const auto& ends) {
    for (int i = from; 0 <= i && i < count; i += step) {
      if (ends(path.Block(static_cast<uint32_t>(i)))) return static_cast<uint32_t>(i);
    }
    return PathIndex::kNoMove;
  };
  const auto isMove = [](const MotionBlock& block) { return IsMoveType(block.type); };
  for (int round = 0; round < 300; ++round) {
    const int from = random->Whole(0, count - 1);
    const auto start = static_cast<uint32_t>(from);
    const uint32_t previous = walk(from - 1, -1, isMove);
    ASSERT_EQ(path.NextMove(start), walk(from + 1, 1, isMove)) << from;
    ASSERT_EQ(path.PrevMove(start), previous == PathIndex::kNoMove ? 0 : previous) << from;
    const Vec3 point = path.Point(static_cast<uint32_t>(random->Whole(0, count - 1)));
    const float distance = random->OneOf({1e-6F, 0.02F, 0.3F, 1.0F, 4.0F, 5.0F, 60.0F, 1e30F});
    const auto isAway = [&](const MotionBlock& block) { return IsAway(block, point, distance); };
    const AwayTest test(distance);
    for (const auto search : {&PathIndex::FirstAway, &PathIndex::FirstAwaySoon}) {
      ASSERT_EQ((path.*search)(start, point, test), walk(from, 1, isAway)) << from;
    }
    for (const auto search : {&PathIndex::LastAway, &PathIndex::LastAwaySoon}) {
      ASSERT_EQ((path.*search)(start, point, test), walk(from, -1, isAway)) << from;
    }
  }
}

TEST(PathIndex, JumpsEqualAStepByStepWalk) {
  for (uint32_t seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    const size_t moves = seed % 30 == 0 ? 3000 : 1 + seed;
    CompareJumpsWithWalks(RandomProgram(&random, moves, true), &random);
  }
  // A long stay in one place, over several levels of the index and pages of the store.
  std::vector<MotionBlock> circles;
  for (int i = 0; i < 9000; ++i) {
    const float angle = 0.05F * static_cast<float>(i);
    circles.push_back({.x = 2 * std::cos(angle), .y = 2 * std::sin(angle), .type = BlockCut});
  }
  circles[1].x = circles.back().x = 50;
  Random random(0);
  CompareJumpsWithWalks(circles, &random);
}

}  // namespace
}  // namespace tvx
