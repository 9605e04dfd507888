// Walks over stored moves, and the vectors and angles between them.
#include "model/walks.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

namespace tvx {
namespace {

struct Move {
  uint32_t type;
  float x, y, z;
};

void Fill(BlockStore* store, std::initializer_list<Move> moves) {
  store->blockCount = 0;
  for (const Move& move : moves) {
    store->CurrentBlock = {move.x, move.y, move.z, 0, 0, 0, 0, 0, 0, move.type};
    store->WriteBlock(store->blockCount++);
  }
}

TEST(Walks, StepOverBlocksThatAreNoMoves) {
  BlockStore store;
  Fill(&store, {{0, 0, 0, 0}, {1, 1, 0, 0}, {101, 0, 0, 0}, {3, 3, 0, 0}, {0, 0, 0, 0}});
  EXPECT_EQ(PrevMove(&store, 3), 1U);
  EXPECT_EQ(store.CurrentBlock.x, 1);
  EXPECT_EQ(PrevMove(&store, 1), 0U) << "block 0 stands for a missing earlier move";
  store.ReadBlock(3);
  EXPECT_EQ(PrevMove(&store, 0), 0U);
  EXPECT_EQ(store.CurrentBlock.type, 0U) << "and is read";
  EXPECT_EQ((std::array{NextMove(&store, 0), NextMove(&store, 1)}), (std::array{1U, 3U}));
  EXPECT_EQ(NextMove(&store, 3), 0U) << "only a block of type 0 follows";
}

TEST(Walks, FailedReadKeepsRegisterType) {
  BlockStore store;
  Fill(&store, {{1, 1, 0, 0}, {4, 2, 0, 0}});
  EXPECT_EQ(IsCutBlock(&store, 1), 1);
  EXPECT_EQ(IsCutBlock(&store, 7), 1);
  EXPECT_EQ(IsMoveBlock(&store, 7), 0);
  EXPECT_EQ(NextMove(&store, 1), 2U) << "blockCount, as the register still holds a move";
  store.CurrentBlock.type = BlockNone;
  EXPECT_EQ(NextMove(&store, 1), 0U);
}

TEST(Walks, VectorBetweenTwoBlocks) {
  BlockStore store;
  Fill(&store, {{1, 1, 2, 3}, {3, 4, 6, 3}, {4, 4, 6, 3}});
  Difference d;
  Vec3 u{9, 9, 9};
  EXPECT_EQ(BlockVector(&store, 1, 0, &d, &u), 1);
  EXPECT_EQ((std::array{d.dx, d.dy, d.length, u.x}), (std::array{3.0F, 4.0F, 5.0F, 0.6F}));
  EXPECT_EQ(store.CurrentBlock.x, 1) << "the register holds the second block";

  EXPECT_EQ(BlockVector(&store, 2, 1, &d, &u), 0);
  EXPECT_EQ((std::array{d.length, u.x}), (std::array{0.0F, 0.6F}));

  store.CurrentBlock.x = 77;
  EXPECT_EQ(BlockVector(&store, 1, 1, &d, &u), 0);
  EXPECT_EQ((std::array{u.x, store.CurrentBlock.x}), (std::array{0.0F, 77.0F}));
}

TEST(Walks, ExtentsOfTheCuts) {
  BlockStore store;
  Vec3 low, high;
  EXPECT_EQ(PathExtents(&store, &low, &high), 0);

  Fill(&store, {{1, -500, 0, 90}, {2, 500, 0, 90}});
  EXPECT_EQ(PathExtents(&store, &low, &high), 1);
  EXPECT_EQ(low.x - high.x, 20000.0F) << "rapids do not count";

  // The start of a plunge does not count, that of a slanted opening does; arcs do not.
  Fill(&store, {{1, 0, 0, 50}, {3, 0, 0, -5}, {4, 10, 1, -5}, {6, 99, 99, -5}, {101, 1, 1, -5}});
  PathExtents(&store, &low, &high);
  EXPECT_EQ((std::array{low.x, high.x, high.z}), (std::array{0.0F, 10.0F, -5.0F}));
  Fill(&store, {{1, 0, 0, 50}, {3, 1, 0, -5}, {1, -9, 0, 0}, {4, 1, 0, 0}});
  PathExtents(&store, &low, &high);
  EXPECT_EQ((std::array{low.x, high.x, high.z}), (std::array{0.0F, 1.0F, 50.0F}));
}

TEST(Vectors, SafeSqrtOfLessThanItsFloorIsZero) {
  EXPECT_EQ(SafeSqrt(-4.0) + SafeSqrt(0.0000000009), 0.0);
  EXPECT_NEAR(SafeSqrt(0.000000001), 0.0000316, 1e-7);
}

TEST(Vectors, AngleOfADirection) {
  const float cases[][3] = {
      {0, 0, 0},           {1e-7F, 1e-7F, 0}, {0, 1, 0},           {1, 0, 90},
      {0, -1, 180},        {-1, 0, 270},      {0, 0.001F, 0},      {-7, 0, 270},
      {0, -0.37F, 180},    {1, 1, 45.00133F}, {1, -1, 135.00398F}, {-1, -1, 224.99602F},
      {-1, 1, 314.99867F},
  };
  for (const auto& [a, b, degrees] : cases) {
    EXPECT_NEAR(Angle(a, b), degrees, a == 0 || b == 0 ? 0 : 4e-5) << a << ' ' << b;
  }
  for (int i = -2000; i <= 2000; ++i) {
    const float tiny = static_cast<float>(i) * 1e-8F;
    for (const float big : {1.0F, -1.0F}) {
      for (const float angle : {Angle(tiny, big), Angle(big, tiny)}) {
        EXPECT_TRUE(angle >= 0 && angle < 360) << tiny << ' ' << angle;
      }
    }
  }
}

}  // namespace
}  // namespace tvx
