// The calls that reach the device, each as a line of text. Paths are wrapped in the start pen and
// the pen that was selected before.
#include "view/path_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

#define EXPECT_PATH(scene, calls) \
  EXPECT_EQ((scene).PathCalls(), std::string("pen penWhite|") + (calls) + "|pen default")

// --- points and pens

TEST(PathDrawing, FeedSelectsThePenOfItsBand) {
  const auto pens = [](const Palette& palette) {
    std::string names;
    for (const int32_t feed :
         {100001, 100000, 871, 870, 869, 751, 750, 620, 501, 500, 370, 251, 250, 0, -1}) {
      const auto pen = PenForFeed(feed, 1000, palette);
      names.append(pen ? StyleOf(*pen).name + 3 : "none") += ' ';
    }
    return names;
  };
  const std::string slow = "Green Green DarkGreen DarkBlue DarkBlue Blue Red Red none ";
  EXPECT_EQ(pens(kScreenPalette), "none White White White LightGrey LightGrey " + slow);
  EXPECT_EQ(pens(kPicturePalette), "none Black Black Black Grey Grey " + slow);
  EXPECT_EQ(PenForFeed(-1, -1000, kScreenPalette), penRed);
  EXPECT_EQ(PenForFeed(-5, 0, kScreenPalette), penBlue);
}

// 0.87 * 1200 is 1044, and in single precision a little above 0.87.
TEST(PathDrawing, FeedsOfBandAreThoseDrawnInIt) {
  EXPECT_EQ(FeedsOfBand(1, 1200).last, 1043);
  for (const int32_t base : {1, 7, 1000, 1200, 3333, 1'000'000'000}) {
    for (size_t i = 0; i < kFeedBands; ++i) {
      const auto [first, last] = FeedsOfBand(i, base);
      const auto isDrawn = [&](int64_t feed) {
        return PenForFeed(static_cast<int32_t>(feed), base, kScreenPalette) ==
               kScreenPalette.band[i];
      };
      EXPECT_EQ(isDrawn(first), first <= last) << base << " " << i;
      if (i == 0) continue;  // ends beyond the whole feeds
      EXPECT_EQ(isDrawn(last), first <= last) << base << " " << i;
      EXPECT_FALSE(isDrawn(last + 1)) << base << " " << i;
    }
  }
}

TEST(PathDrawing, FeedWithoutABandKeepsThePen) {
  TestScene scene;
  scene.program.FeedBase = 1;
  scene.Add(BlockRapidStart, 0, 0);
  for (const float x : {1.0F, 2.0F}) scene.Add(BlockCut, x, 0, 101);
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0|line 2 0");
  EXPECT_EQ(scene.view.screen.lastPenFeed, 101);
}

TEST(PathDrawing, LastFeedIsKeptForTheNextPaintOfTheSameTarget) {
  TestScene scene;
  scene.program.FeedBase = 1000;
  for (const float x : {1.0F, 2.0F}) scene.Add(BlockCut, x, 0, 100);
  EXPECT_PATH(scene, "pen penRed|move 1 0|line 2 0");
  EXPECT_PATH(scene, "move 1 0|line 2 0");
  std::string picture;
  RecorderDevice device([&](std::string_view call) { picture.append(call) += '|'; });
  DrawPicture(scene.scene(), &device);
  EXPECT_TRUE(picture.ends_with("|pen penRed|move 1 0|line 2 0|pen penBlack|")) << picture;
}

// --- arcs

TEST(PathDrawing, ArcAtTheStartBeginsAtTheOriginAndKeepsTheFirstPoint) {
  TestScene scene;
  scene.AddArc(BlockArcCcw, 1, 0, 0.5F, 0);
  scene.Add(BlockRapid, 30, 20);
  for (int paint = 0; paint < 2; ++paint) EXPECT_PATH(scene, "line 1 0|move 30 -20");
}

// The number of chords within the limit, as counted by a drawing that tests each chord. The last
// arc has ten thousand million chords.
TEST(PathDrawing, ArcPartlyOutOfSightDrawsEveryVisibleChord) {
  constexpr Vec3 kZero{0, 0, 0};
  const struct {
    Vec3 start, end, centre;
    uint32_t type;
    float scale;
    int mode;
    int32_t panX, chords;
  } cases[] = {
      {{10, 0, 0}, {0, 10, 0}, kZero, BlockArcCcw, 30.0F, 1, 0, 158},
      {{10, 0, 0}, {0, 10, 0}, kZero, BlockArcCw, 30.0F, 1, 0, 472},
      {{10, 0, 0}, {10, 0, 5}, {0, 0, 5}, BlockArcCw, 30.0F, 4, 0, 629},
      {kZero, kZero, {1000, 0, 0}, BlockArcCcw, 400.0F, 1, 0, 19995},         // inside at one place
      {kZero, kZero, {1000, 0, 0}, BlockArcCw, 400.0F, 2, 2000, 103941},      // edge on, far side
      {kZero, {3, 3, 0}, {2e4F, 2e4F, 0}, BlockArcCcw, 100.0F, 5, 0, 20532},  // crosses twice
      {kZero, kZero, {75, 0, 0}, BlockArcCcw, 400.0F, 1, 75, 62832},  // touches it all round
      {kZero, kZero, {1e8F, 0, 0}, BlockArcCcw, 50.0F, 7, 0, 23081},
  };
  for (const auto& c : cases) {
    TestScene scene;
    SetViewMode(&scene.view.transform, c.mode);
    scene.view.transform.viewScale = c.scale;
    scene.view.transform.panX = c.panX;
    int32_t chords = 0;
    RecorderDevice device([&](std::string_view) { ++chords; });
    PathDrawing(scene.scene(), &scene.view.screen, kScreenPalette, &device)
        .DrawArc(c.start, c.end, c.centre, c.type);
    EXPECT_EQ(chords, c.chords) << "centre " << c.centre.x << " type " << c.type;
  }
}

TEST(PathDrawing, ArcWithoutAFiniteRadiusOrACentreIsDefined) {
  for (const float y : {1e20F, 3e38F, HUGE_VALF}) {
    TestScene scene;
    scene.Add(BlockRapidStart, 0, 0);
    scene.AddArc(BlockArcCcw, 1, 1, 0, y);
    scene.AddArc(BlockArcCw, 1, y, y, 0);
    EXPECT_PATH(scene, "pen penRapid|move 0 0");
  }
  TestScene scene;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockArcCw, 1, 0);  // no centre record: the register still holds the arc
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0");
}

// --- portions and ramps

struct Portion {
  int16_t percent = 0, feed = 0;
};
// A move along X.
MotionBlock Move(float x, int32_t feed = 1000, Portion head = {}, Portion tail = {}) {
  MotionBlock block{.x = x, .feed = feed, .type = BlockCut};
  block.headPercent = head.percent, block.headFeed = head.feed;
  block.tailPercent = tail.percent, block.tailFeed = tail.feed;
  return block;
}
MotionBlock OfType(uint32_t type, MotionBlock block) {
  block.type = type;
  return block;
}

// Nine pixels a unit, adjusted feeds, and the pen at (0, 0).
struct PortionScene : TestScene {
  PortionScene(bool smooth, const std::vector<MotionBlock>& moves) : TestScene(9.0F) {
    job.AfaEnabled = 1;
    job.FeedChgSmoothCheck = smooth ? 1 : 0;
    program.FeedBase = 1000;
    Add(BlockRapidStart, 0, 0);
    for (const MotionBlock& move : moves) Add(move);
  }
};

TEST(Portions, WithoutSmoothChangeAMoveIsUpToThreeLines) {
  PortionScene scene(
      false, {Move(10, 1000, {40, 300}, {25, 100}),
              OfType(BlockCutStart, Move(20, 1000, {50, 600})), Move(30, 1000, {}, {50, 600})});
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penBlue|line 36 0|pen penWhite|line 67 0|pen penRed|"
              "line 90 0|pen penDarkGreen|line 135 0|pen penWhite|line 180 0|line 225 0|"
              "pen penDarkGreen|line 270 0");
  scene.job.AfaEnabled = 0;
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 90 0|pen penWhite|line 180 0|line 270 0");
}

// The tail of 2 units has 5 steps of 200 from 1000 down, the first where the middle ends. The arc
// of 0.79 units has 3 chords.
TEST(Portions, TailRampStopsOneStepBeforeTheEndAndAnArcStartsAtTheEnd) {
  PortionScene scene(true, {OfType(BlockCutStart, Move(10, 1000, {}, {20, 0}))});
  scene.AddArc(BlockArcCcw, 10, 0.5F, 0, 0.25F);
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 72 0|pen penWhite|line 72 0|"
              "pen penLightGrey|line 75 0|pen penDarkGreen|line 79 0|pen penDarkBlue|line 82 0|"
              "pen penRed|line 86 0|line 91 -1|line 91 -3|line 90 -4");
}

TEST(Portions, RampHasAStepForEachHalfUnitAndTenWhenLong) {
  for (const auto& [length, steps] : {std::pair(0.5F, 2), {5, 11}, {5.1F, 10}, {80, 10}}) {
    PortionScene scene(true, {Move(length, 400), Move(length, 1000)});
    // A pen and a line for each step.
    EXPECT_EQ(std::ranges::count(scene.PathCalls(), '|'), 2 * steps + 4) << length;
  }
}

TEST(Portions, MoveRampsTowardsAClearlyFasterNeighbour) {
  // From x = 1 to 2 at 9 pixels a unit: 3 steps. Two thirds of the way is just below 15.
  const std::string up =
      "pen penDarkGreen|line 12 0|pen penLightGrey|line 14 0|pen penWhite|line 18 0";
  const std::string down =
      "pen penLightGrey|line 12 0|pen penDarkGreen|line 14 0|pen penDarkBlue|line 18 0";
  const std::string slight =
      "pen penDarkBlue|line 12 0|pen penDarkBlue|line 14 0|pen penDarkGreen|line 18 0";
  const std::string plain = "pen penDarkBlue|line 18 0";
  const MotionBlock slow = Move(2, 400), start = OfType(BlockCutStart, slow);
  const MotionBlock backward = OfType(BlockCutStart, Move(2, -100));
  const MotionBlock noMove = OfType(BlockNone, Move(9, 400));
  const struct {
    std::vector<MotionBlock> moves;  // the second one is drawn
    std::string calls;
  } cases[] = {
      {{Move(1, 400), slow, Move(3)}, up},
      {{Move(1), slow, Move(3, 400)}, down},
      {{Move(1), slow, Move(3)}, up},               // the next one before the previous one
      {{Move(1, 500), slow, Move(3, 500)}, plain},  // 0.8 exactly
      {{Move(1, 400), slow, Move(3, 502)}, slight},
      {{Move(1.6F, 400), slow, Move(3)}, plain},  // too short for two steps
      {{Move(1), start, Move(3)}, plain},
      {{Move(1), backward, Move(3)}, "line 12 0|line 14 0|line 18 0"},  // below 0, to itself
      {{Move(1, 1000, {}, {10, 400}), slow, Move(3, 400)}, plain},
      {{Move(1, 400), slow, Move(3, 1000, {10, 400})}, plain},
      {{Move(1, 400), slow, noMove, Move(3)}, up},
      {{Move(1), slow}, up},            // without a next move the previous one is compared,
      {{Move(1), slow, noMove}, down},  // or what the register holds
  };
  for (const auto& c : cases) {
    PortionScene scene(true, c.moves);
    scene.program.firstPoint = 0;
    EXPECT_EQ(scene.Calls([&](PathDrawing* drawing) { drawing->DrawMove(2, c.moves[1]); }), c.calls)
        << "case " << &c - cases;
  }
}

}  // namespace
}  // namespace tvx
