#include "view/path_drawing.h"

#include <gtest/gtest.h>

#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

// What a program as it can be read draws is in the golden cases; here is the rest.

// The calls of a path between the start pen and the return of the fresh device's pen.
#define EXPECT_PATH(scene, calls) \
  EXPECT_EQ((scene).PathCalls(), "pen penWhite|" calls "|pen default")

// --- points and pens

TEST(PathDrawing, AnArcDoesNotTouchTheFirstPoint) {
  TestScene scene;
  scene.AddArc(BlockArcCcw, 1, 0, 0.5F, 0);
  scene.Add(BlockRapid, 30, 20);
  EXPECT_PATH(scene, "line 1 0|move 30 -20");
}

TEST(PathDrawing, TheLastFeedOfAPaintHoldsForTheNextOnTheSameTarget) {
  TestScene scene;
  scene.program.FeedBase = 1000;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 1, 0, 100);
  EXPECT_PATH(scene, "pen penRapid|move 0 0|pen penRed|line 1 0");
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0");
  const auto picture =
      TestScene::Record([&](DrawingDevice* device) { DrawPicture(scene.scene(), device); });
  EXPECT_EQ(picture[picture.size() - 3], "pen penRed");
}

TEST(PathDrawing, PensOfOddFeeds) {
  const struct {
    int32_t feed, base;
    std::optional<Pen> pen;
  } cases[] = {
      {100000, 1000, penWhite}, {100001, 1000, std::nullopt},
      {-1, 1000, std::nullopt}, {-1, -1000, penRed},
      {5, 0, penBlue},          {-5, 0, penBlue},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PenForFeed(c.feed, c.base, kScreenPalette), c.pen) << c.feed << " of " << c.base;
  }
}

TEST(PathDrawing, AFeedWithoutABandKeepsThePenButCountsAsTheLast) {
  TestScene scene;
  scene.program.FeedBase = 1;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 1, 0, 101);
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0");
  EXPECT_EQ(scene.view.screen.lastPenFeed, 101);
}

// --- arcs

// What DrawArc has to come to, chord by chord.
std::string ChordByChord(TestScene* scene, const Vec3& start, const Vec3& end, const Vec3& centre,
                         uint32_t type) {
  ArcMeasures arc;
  ArcGeometry(start, end, centre, type, &arc);
  const auto chords = static_cast<int64_t>(
      static_cast<double>(arc.length) * scene->view.transform.viewScale * 0.33333334 + 1.0);
  return TestScene::Joined(TestScene::Record([&](DrawingDevice* device) {
    PathDrawing drawing(scene->scene(), &scene->view.screen, kScreenPalette, device);
    for (int64_t k = 1; k <= chords; ++k) {
      const double turned = static_cast<double>(k) * arc.sweep / static_cast<double>(chords);
      const auto degrees = static_cast<float>(type == BlockArcCcw ? arc.startAngle + turned
                                                                  : arc.startAngle - turned);
      const double angle = degrees * 0.01745277777777778;
      drawing.DrawTo({static_cast<float>(std::cos(angle) * arc.radius + centre.x),
                      static_cast<float>(std::sin(angle) * arc.radius + centre.y), centre.z},
                     0, type);
    }
  }));
}

TEST(PathDrawing, ArcsOutOfSightArePassedOverWithTheSameCalls) {
  const struct {
    Vec3 start, end, centre;
    float scale;
    int mode;
    int32_t panX;
  } cases[] = {
      {{10, 0, 0}, {0, 10, 0}, {0, 0, 0}, 30.0F, 1, 0},
      {{10, 0, 0}, {10, 0, 5}, {0, 0, 5}, 30.0F, 4, 0},
      {{0, 0, 0}, {0, 0, 0}, {1000, 0, 0}, 400.0F, 1, 0},       // enters the limit at one place
      {{0, 0, 0}, {0, 0, 0}, {1000, 0, 0}, 400.0F, 2, 0},       // edge on
      {{0, 0, 0}, {0, 0, 0}, {1000, 0, 0}, 400.0F, 2, 2000},    // edge on, at its far side
      {{0, 0, 0}, {3, 3, 0}, {20000, 20000, 0}, 100.0F, 5, 0},  // passes the limit twice
      {{0, 0, 0}, {0, 0, 0}, {75, 0, 0}, 400.0F, 1, 75},        // touches the limit all round
      {{0, 0, 0}, {0, 0, 0}, {76, 0, 0}, 400.0F, 1, 76},
      {{0, 0, 0}, {0, 0, 0}, {0, 1000, 0}, 500.0F, 1, 900},  // wholly out of sight
  };
  for (const auto& c : cases) {
    for (const uint32_t type : {BlockArcCcw, BlockArcCw}) {
      TestScene scene;
      SetViewMode(&scene.view.transform, c.mode, &scene.ui);
      scene.view.transform.viewScale = c.scale;
      scene.view.transform.panX = c.panX;
      const auto calls = TestScene::Record([&](DrawingDevice* device) {
        PathDrawing(scene.scene(), &scene.view.screen, kScreenPalette, device)
            .DrawArc(c.start, c.end, c.centre, type);
      });
      EXPECT_TRUE(TestScene::Joined(calls) == ChordByChord(&scene, c.start, c.end, c.centre, type))
          << "centre " << c.centre.x << " scale " << c.scale << " type " << type << ": "
          << calls.size() << " chords";
    }
  }
}

// Each of these would be a million to a billion chords, most of them out of sight.
TEST(PathDrawing, AnEnormousArcTakesNoLongerThanWhatIsSeenOfIt) {
  for (int mode = 1; mode <= kViewModes; ++mode) {
    TestScene scene;
    SetViewMode(&scene.view.transform, mode, &scene.ui);
    scene.view.transform.viewScale = 100.0F;
    scene.Add(BlockRapidStart, 0, 0);
    for (const float radius : {1e3F, 1e4F, 1e5F}) {
      scene.AddArc(BlockArcCcw, 10, 10, 0, radius);
      scene.AddArc(BlockArcCw, 0, 0, 0, -radius);
    }
    size_t lines = 0;
    RecorderDevice device([&](std::string_view line) { lines += line[0] == 'l' ? 1U : 0U; });
    PathDrawing(scene.scene(), &scene.view.screen, kScreenPalette, &device).DrawPath();
    EXPECT_GT(lines, 1000U);
    EXPECT_LT(lines, 5'000'000U);
  }
}

TEST(PathDrawing, OddArcsAreStillDefined) {
  for (const float y : {1e20F, 3e38F, HUGE_VALF}) {
    TestScene scene;
    scene.Add(BlockRapidStart, 0, 0);
    scene.AddArc(BlockArcCcw, 1, 1, 0, y);
    scene.AddArc(BlockArcCw, 1, y, y, 0);
    EXPECT_EQ(scene.PathCalls(), "pen penWhite|pen penRapid|move 0 0|pen default") << y;
  }
  TestScene scene;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockArcCw, 1, 0);  // without its centre record: the register still holds the arc
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0");
}

// --- portions and ramps

// A move along X at feed 1000.
MotionBlock Move(float x, int32_t feed = 1000, uint32_t type = BlockCut) {
  return {.x = x, .feed = feed, .type = type};
}
MotionBlock WithHead(MotionBlock block, int16_t percent, int16_t feed) {
  block.headPercent = percent;
  block.headFeed = feed;
  return block;
}
MotionBlock WithTail(MotionBlock block, int16_t percent, int16_t feed) {
  block.tailPercent = percent;
  block.tailFeed = feed;
  return block;
}

// Nine pixels a unit, with the feed pass on and the pen at (0, 0).
struct PortionScene : TestScene {
  explicit PortionScene(bool smooth) : TestScene(9.0F) {
    job.AfaEnabled = 1;
    job.FeedChgSmoothCheck = smooth ? 1 : 0;
    program.FeedBase = 1000;
    view.screen.lastPenFeed = -1;
    Add(BlockRapidStart, 0, 0);
  }
};

TEST(Portions, WithoutSmoothChangeAMoveIsUpToThreeStretches) {
  PortionScene scene(false);
  scene.Add(WithTail(WithHead(Move(10), 40, 300), 25, 100));
  scene.Add(WithHead(Move(20, 1000, BlockCutStart), 50, 600));
  scene.Add(WithTail(Move(30), 50, 600));
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penBlue|line 36 0|pen penWhite|line 67 0|pen penRed|"
              "line 90 0|"
              "pen penDarkGreen|line 135 0|pen penWhite|line 180 0|"
              "line 225 0|pen penDarkGreen|line 270 0");
  scene.job.AfaEnabled = 0;
  scene.view.screen.lastPenFeed = -1;
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 90 0|pen penWhite|line 180 0|line 270 0");
}

TEST(Portions, ATailRampStopsOneStepShort) {
  PortionScene scene(true);
  scene.Add(WithTail(Move(10, 1000, BlockCutStart), 20, 0));
  scene.Add(BlockCutStart, 10, 10, 1000);
  // 2 units: 5 steps of 200 from 1000 down, the first of them where the middle ends.
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 72 0|pen penWhite|line 72 0|"
              "pen penLightGrey|line 75 0|pen penDarkGreen|line 79 0|pen penDarkBlue|line 82 0|"
              "pen penRed|line 86 0|pen penWhite|line 90 -90");
}

TEST(Portions, AnArcAfterATailRampStartsAtTheEndOfTheMove) {
  PortionScene scene(true);
  scene.Add(WithTail(Move(10), 10, 900));
  scene.AddArc(BlockArcCcw, 10, 0.5F, 0, 0.25F);  // 0.79 units at 9 pixels: 3 chords
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 81 0|line 81 0|pen penWhite|line 83 0|"
              "pen penWhite|line 87 0|line 91 -1|line 91 -3|line 90 -4");
}

TEST(Portions, AMoveRampsTowardsAFasterNeighbour) {
  // The move goes from x = 1 to 2, at 9 pixels a unit: 3 steps. Two thirds fall just below 15.
  const std::string up =
      "pen penDarkGreen|line 12 0|pen penLightGrey|line 14 0|pen penWhite|line 18 0";
  const std::string down =
      "pen penLightGrey|line 12 0|pen penDarkGreen|line 14 0|pen penDarkBlue|line 18 0";
  const std::string plain = "pen penDarkBlue|line 18 0";
  const MotionBlock slow = Move(2, 400), start = Move(2, 400, BlockCutStart);
  const MotionBlock backward = Move(2, -100, BlockCutStart);
  const MotionBlock noMove = Move(9, 400, BlockNone);
  const MotionBlock slowTail = WithTail(Move(1), 10, 400), slowHead = WithHead(Move(3), 10, 400);
  const struct {
    const char* what;
    MotionBlock before, move;
    std::vector<MotionBlock> after;
    std::string calls;
  } cases[] = {
      {"up to the next", Move(1, 400), slow, {Move(3)}, up},
      {"down from the last", Move(1), slow, {Move(3, 400)}, down},
      {"the next goes first", Move(1), slow, {Move(3)}, up},
      {"0.8 exactly is no step", Move(1, 500), slow, {Move(3, 500)}, plain},
      {"a start of a run never ramps", Move(1), start, {Move(3)}, plain},
      {"below 0 a step to itself", Move(1), backward, {Move(3)}, "line 12 0|line 14 0|line 18 0"},
      {"the tail of the last counts", slowTail, slow, {Move(3, 400)}, plain},
      {"the head of the next counts", Move(1, 400), slow, {slowHead}, plain},
      {"lines between do not count", Move(1, 400), slow, {noMove, Move(3)}, up},
      {"at the end the move before stands in", Move(1), slow, {}, up},
      {"at the end the register stands in", Move(1), slow, {noMove}, down},
  };
  for (const auto& c : cases) {
    PortionScene scene(true);
    scene.Add(c.before);
    scene.Add(c.move);
    for (const MotionBlock& block : c.after) scene.Add(block);
    scene.program.firstPoint = 0;
    const auto calls = TestScene::Record([&](DrawingDevice* device) {
      PathDrawing(scene.scene(), &scene.view.screen, kScreenPalette, device).DrawMove(2, c.move);
    });
    EXPECT_EQ(TestScene::Joined(calls), c.calls) << c.what;
  }
}

}  // namespace
}  // namespace tvx
