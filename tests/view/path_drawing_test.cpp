#include "view/path_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

// The calls of a path between the start pen and the return of the fresh device's pen.
#define EXPECT_PATH(scene, calls) \
  EXPECT_EQ((scene).PathCalls(), "pen penWhite|" calls "|pen default")

// --- points, pens, rapids

TEST(PathDrawing, TheFirstPointIsSilent) {
  const struct {
    uint32_t type;
    const char* calls;
  } cases[] = {
      {BlockRapidStart, "pen penRapid|move 10 -20|line 30 -20"},
      {BlockRapid, "move 10 -20|line 30 -20"},
      {BlockCutStart, "pen penRed|move 10 -20|line 30 -20"},
      {BlockCut, "pen penRed|move 10 -20|line 30 -20"},
  };
  for (const auto& c : cases) {
    TestScene scene;
    scene.program.FeedBase = 1000;
    scene.Add(BlockNone, 99, 99);
    scene.Add(c.type, 10, 20, 100);
    scene.Add(BlockRapid, 30, 20);
    EXPECT_EQ(scene.PathCalls(), std::string("pen penWhite|") + c.calls + "|pen default")
        << "type " << c.type;
  }
}

TEST(PathDrawing, AnArcDoesNotTouchTheFirstPoint) {
  TestScene scene;
  scene.AddArc(BlockArcCcw, 1, 0, 0.5F, 0);
  scene.Add(BlockRapid, 30, 20);
  EXPECT_EQ(scene.PathCalls(), "pen penWhite|line 1 0|move 30 -20|pen default");
}

TEST(PathDrawing, HiddenRapidsOnlyMoveThePen) {
  TestScene scene;
  scene.program.FeedBase = 100;
  scene.Add(BlockCutStart, 0, 0, 100);
  scene.Add(BlockCut, 5, 0, 100);
  scene.Add(BlockRapidStart, 10, 0);
  scene.Add(BlockRapid, 20, 0);
  scene.Add(BlockCutStart, 30, 0, 100);
  EXPECT_PATH(scene,
              "pen penWhite|move 0 0|pen penWhite|line 5 0|pen penRapid|line 10 0|line 20 0|"
              "pen penWhite|line 30 0");
  scene.view.RapidVisible = 0;
  EXPECT_PATH(scene,
              "pen penWhite|move 0 0|line 5 0|pen penRapid|move 10 0|move 20 0|pen penWhite|"
              "line 30 0");
}

TEST(PathDrawing, AContinuingMoveSelectsAPenOnlyForANewFeed) {
  TestScene scene;
  scene.program.FeedBase = 1000;
  scene.Add(BlockCutStart, 0, 0, 900);  // silent, so its feed is not taken note of
  scene.Add(BlockCut, 1, 0, 900);
  scene.Add(BlockCut, 2, 0, 900);
  scene.Add(BlockCut, 3, 0, 890);  // another feed of the same band
  scene.Add(BlockCutStart, 4, 0, 890);
  scene.Add(BlockCut, 5, 0, 890);
  EXPECT_PATH(scene,
              "pen penWhite|move 0 0|pen penWhite|line 1 0|line 2 0|pen penWhite|line 3 0|"
              "pen penWhite|line 4 0|line 5 0");
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

TEST(PathDrawing, PensOfTheFeeds) {
  const struct {
    int32_t feed, base;
    std::optional<Pen> pen;
  } cases[] = {
      {1000, 1000, penWhite},    {100000, 1000, penWhite},  {100001, 1000, std::nullopt},
      {871, 1000, penWhite},     {870, 1000, penWhite},  // just above 0.87 in single precision
      {869, 1000, penLightGrey}, {751, 1000, penLightGrey}, {750, 1000, penGreen},
      {620, 1000, penGreen},     {619, 1000, penDarkGreen}, {501, 1000, penDarkGreen},
      {500, 1000, penDarkBlue},  {370, 1000, penDarkBlue},  {369, 1000, penBlue},
      {251, 1000, penBlue},      {250, 1000, penRed},       {0, 1000, penRed},
      {-1, 1000, std::nullopt},  {-1, -1000, penRed},       {5, 0, penBlue},
      {-5, 0, penBlue},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PenForFeed(c.feed, c.base, kScreenPalette), c.pen) << c.feed << " of " << c.base;
  }
  EXPECT_EQ(PenForFeed(900, 1000, kPicturePalette), penBlack);
  EXPECT_EQ(PenForFeed(800, 1000, kPicturePalette), penGrey);
  EXPECT_EQ(PenForFeed(700, 1000, kPicturePalette), penGreen);
}

TEST(PathDrawing, AFeedWithoutABandKeepsThePenButCountsAsTheLast) {
  TestScene scene;
  scene.program.FeedBase = 1;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 1, 0, 101);
  scene.Add(BlockCut, 2, 0, 1);
  EXPECT_PATH(scene, "pen penRapid|move 0 0|line 1 0|pen penWhite|line 2 0");
  EXPECT_EQ(scene.view.screen.lastPenFeed, 1);
}

TEST(PathDrawing, PointsBeyond30000PixelsAreSkipped) {
  TestScene scene;
  scene.program.FeedBase = 1000;
  scene.Add(BlockRapidStart, 30001, 0);  // skipped, so the next point is still the first
  scene.Add(BlockCutStart, 30000, 0, 1000);
  scene.Add(BlockCutStart, 0, 30001, 100);  // selects no pen either
  scene.Add(BlockCut, 0, -30001, 100);
  scene.Add(BlockCut, -30000.5F, -30000, 900);
  EXPECT_PATH(scene, "pen penWhite|move 30000 0|pen penWhite|line -30000 30000");
}

// --- arcs

TEST(PathDrawing, AnArcIsDrawnInTheColourOfTheMoveBeforeIt) {
  TestScene scene;
  scene.program.FeedBase = 1000;
  scene.Add(BlockCutStart, 2, 0, 100);
  scene.Add(BlockCut, 3, 0, 100);
  scene.AddArc(BlockArcCcw, -3, 0, -3, 0);  // half a circle of radius 3: 9.42 * 0.33 + 1, 4 chords
  scene.Add(BlockCut, -5, 0, 100);
  EXPECT_PATH(scene,
              "pen penRed|move 2 0|pen penRed|line 3 0|line 2 -2|line 0 -3|line -2 -2|line -3 0|"
              "line -5 0");
}

TEST(PathDrawing, AHelicalArcIsFlatAtTheHeightOfItsEnd) {
  TestScene scene;
  SetViewMode(&scene.view.transform, 2, &scene.ui);
  scene.Add({.x = 10, .z = 50, .type = BlockRapidStart});
  scene.Add({.x = -10, .z = 20, .type = BlockArcCw});
  scene.Add({.x = -10, .z = 20, .type = BlockArcCentre});
  const std::string calls = scene.PathCalls();
  EXPECT_EQ(calls.substr(0, 65),
            "pen penWhite|pen penRapid|move 10 -49|line 9 -20|line 8 -20|line ");
}

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

TEST(PathDrawing, ArcsWithoutAMeasurableLengthDrawNothing) {
  for (const float y : {1e20F, 3e38F, HUGE_VALF}) {
    TestScene scene;
    scene.Add(BlockRapidStart, 0, 0);
    scene.AddArc(BlockArcCcw, 1, 1, 0, y);
    scene.AddArc(BlockArcCw, 1, y, y, 0);
    EXPECT_EQ(scene.PathCalls(), "pen penWhite|pen penRapid|move 0 0|pen default") << y;
  }
}

TEST(PathDrawing, AnArcWithoutItsCentreRecordIsStillDefined) {
  TestScene scene;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockArcCw, 1, 0);  // the register still holds the arc itself
  EXPECT_EQ(scene.PathCalls(), "pen penWhite|pen penRapid|move 0 0|line 1 0|pen default");
}

// --- portions and ramps

class PortionTest : public testing::Test {
 protected:
  PortionTest() : scene(9.0F) {
    scene.job.AfaEnabled = 1;
    scene.program.FeedBase = 1000;
    scene.view.screen.lastPenFeed = -1;
    scene.Add(BlockRapidStart, 0, 0);
  }
  TestScene scene;
};

TEST_F(PortionTest, WithoutSmoothChangeAMoveIsUpToThreeStretches) {
  scene.Add({.x = 10,
             .feed = 1000,
             .headPercent = 40,
             .headFeed = 300,
             .tailPercent = 25,
             .tailFeed = 100,
             .type = BlockCut});
  scene.Add({.x = 20, .feed = 1000, .headPercent = 50, .headFeed = 600, .type = BlockCutStart});
  scene.Add({.x = 30, .feed = 1000, .tailPercent = 50, .tailFeed = 600, .type = BlockCut});
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

TEST_F(PortionTest, AHeadRampEndsWhereTheMiddleStarts) {
  scene.job.FeedChgSmoothCheck = 1;
  // 4 units: 9 steps of 100 from 100 to 1000.
  scene.Add({.x = 10, .feed = 1000, .headPercent = 40, .headFeed = 100, .type = BlockCut});
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penRed|line 4 0|pen penBlue|line 8 0|pen penDarkBlue|"
              "line 12 0|pen penDarkBlue|line 16 0|pen penDarkGreen|line 20 0|pen penGreen|"
              "line 24 0|pen penLightGrey|line 28 0|pen penWhite|line 32 0|pen penWhite|"
              "line 36 0|line 90 0");
}

TEST_F(PortionTest, ATailRampStopsOneStepShort) {
  scene.job.FeedChgSmoothCheck = 1;
  scene.Add({.x = 10, .feed = 1000, .tailPercent = 20, .tailFeed = 0, .type = BlockCutStart});
  scene.Add(BlockCutStart, 10, 10, 1000);
  // 2 units: 5 steps of 200 from 1000 down, the first of them where the middle ends.
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 72 0|pen penWhite|line 72 0|"
              "pen penLightGrey|line 75 0|pen penDarkGreen|line 79 0|pen penDarkBlue|line 82 0|"
              "pen penRed|line 86 0|pen penWhite|line 90 -90");
}

TEST_F(PortionTest, StepsOfARampGoByItsLength) {
  const struct {
    float length;
    int steps;
  } cases[] = {{0.4F, 1}, {0.5F, 2}, {4.9F, 10}, {5.0F, 11}, {5.001F, 10}, {400.0F, 10}};
  for (const auto& c : cases) {
    TestScene ramp;
    ramp.job = scene.job;
    ramp.job.FeedChgSmoothCheck = 1;
    ramp.program.FeedBase = 1000;
    ramp.Add(BlockRapidStart, 0, 0);
    ramp.Add({.x = c.length, .feed = 900, .headPercent = 100, .headFeed = 100, .type = BlockCut});
    const auto calls = TestScene::Record([&](DrawingDevice* device) {
      PathDrawing(ramp.scene(), &ramp.view.screen, kScreenPalette, device).DrawPath();
    });
    const auto lines = std::count_if(calls.begin(), calls.end(),
                                     [](const std::string& call) { return call[0] == 'l'; });
    EXPECT_EQ(lines, c.steps + 1) << c.length;  // and the end of the move
  }
}

TEST_F(PortionTest, AMoveRampsTowardsAFasterNeighbour) {
  const MotionBlock slow = {.x = 2, .feed = 400, .type = BlockCut};
  const auto neighbour = [](float x, int32_t feed, uint32_t type = BlockCut) {
    return MotionBlock{.x = x, .feed = feed, .type = type};
  };
  MotionBlock slowTail = neighbour(1, 1000);
  slowTail.tailPercent = 10;
  slowTail.tailFeed = 400;
  MotionBlock slowHead = neighbour(3, 1000);
  slowHead.headPercent = 10;
  slowHead.headFeed = 400;
  // The move goes from x = 1 to 2, at 9 pixels a unit: 3 steps. Two thirds fall just below 15.
  const std::string up =
      "pen penDarkGreen|line 12 0|pen penLightGrey|line 14 0|pen penWhite|line 18 0";
  const std::string down =
      "pen penLightGrey|line 12 0|pen penDarkGreen|line 14 0|pen penDarkBlue|line 18 0";
  const std::string plain = "pen penDarkBlue|line 18 0";
  const struct {
    const char* what;
    MotionBlock before, move;
    std::vector<MotionBlock> after;
    std::string calls;
  } cases[] = {
      {"up to the next", neighbour(1, 400), slow, {neighbour(3, 1000)}, up},
      {"down from the last", neighbour(1, 1000), slow, {neighbour(3, 400)}, down},
      {"the next goes first", neighbour(1, 1000), slow, {neighbour(3, 1000)}, up},
      {"0.8 exactly is no step", neighbour(1, 500), slow, {neighbour(3, 500)}, plain},
      {"a start of a run never ramps",
       neighbour(1, 1000),
       neighbour(2, 400, BlockCutStart),
       {neighbour(3, 1000)},
       plain},
      {"a feed below 0 is a step to itself, without pens",
       neighbour(1, 1000),
       neighbour(2, -100, BlockCutStart),
       {neighbour(3, 1000)},
       "line 12 0|line 14 0|line 18 0"},
      {"the tail of the last counts", slowTail, slow, {neighbour(3, 400)}, plain},
      {"the head of the next counts", neighbour(1, 400), slow, {slowHead}, plain},
      {"lines between do not count",
       neighbour(1, 400),
       slow,
       {neighbour(9, 0, BlockNone), neighbour(3, 1000)},
       up},
      {"at the end the move before stands in for the next", neighbour(1, 1000), slow, {}, up},
      {"at the end the register stands in for the next",
       neighbour(1, 1000),
       slow,
       {neighbour(9, 400, BlockNone)},
       down},
  };
  for (const auto& c : cases) {
    TestScene ramp(9.0F);
    ramp.job = scene.job;
    ramp.job.FeedChgSmoothCheck = 1;
    ramp.program.FeedBase = 1000;
    ramp.Add(BlockRapidStart, 0, 0);
    MotionBlock before = c.before;
    before.type = BlockCutStart;
    ramp.Add(before);
    ramp.Add(c.move);
    for (const MotionBlock& block : c.after) ramp.Add(block);
    ramp.view.screen.lastPenFeed = -1;
    std::string calls;
    RecorderDevice device(
        [&](std::string_view line) { calls += (calls.empty() ? "" : "|") + std::string(line); });
    ramp.program.firstPoint = 0;
    PathDrawing(ramp.scene(), &ramp.view.screen, kScreenPalette, &device).DrawMove(2, c.move);
    EXPECT_EQ(calls, c.calls) << c.what;
  }
}

TEST_F(PortionTest, ARampOfOneStepIsAPlainMove) {
  scene.job.FeedChgSmoothCheck = 1;
  scene.Add(BlockCutStart, 1, 0, 1000);
  scene.Add(BlockCut, 1.4F, 0, 400);
  scene.Add(BlockCut, 9, 0, 400);
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 9 0|pen penDarkBlue|line 12 0|line 81 0");
}

TEST_F(PortionTest, AnArcAfterARampStartsAtTheEndOfTheMove) {
  scene.job.FeedChgSmoothCheck = 1;
  scene.Add({.x = 10, .feed = 1000, .tailPercent = 10, .tailFeed = 900, .type = BlockCut});
  scene.AddArc(BlockArcCcw, 10, 0.5F, 0, 0.25F);  // 0.79 units at 9 pixels: 3 chords
  EXPECT_PATH(scene,
              "pen penRapid|move 0 0|pen penWhite|line 81 0|line 81 0|pen penWhite|line 83 0|"
              "pen penWhite|line 87 0|line 91 -1|line 91 -3|line 90 -4");
}

// --- whole drawings

TEST(PathDrawing, TheScreenHasABlackAreaAndATripod) {
  TestScene scene(30.0F);
  scene.view.transform.clientWidth = 800;
  scene.view.transform.clientHeight = 600;
  SetViewMode(&scene.view.transform, 4, &scene.ui);
  for (const float scale : {30.0F, 0.5F}) {
    scene.view.transform.viewScale = scale;
    const auto calls =
        TestScene::Record([&](DrawingDevice* device) { Paint(scene.scene(), device); });
    EXPECT_EQ(TestScene::Joined(calls),
              "fill -800 -600 800 600 000000|pen penWhite|"
              "move 0 0|line 43 12|text 60 17 X|"
              "move 0 0|line 25 -21|text 35 -30 Y|"
              "move 0 0|line 0 -34|text 0 -60 Z|"
              "pen default|pen penWhite");  // an empty program ends after its start pen
  }
}

TEST(PathDrawing, ThePictureIsTheSameDrawingForAWhitePage) {
  TestScene scene(10.0F);
  scene.program.FeedBase = 1000;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 1, 0, 1000);
  scene.Add(BlockCut, 1, 1, 800);
  scene.Add(BlockCut, 0, 1, 700);
  const auto calls =
      TestScene::Record([&](DrawingDevice* device) { DrawPicture(scene.scene(), device); });
  EXPECT_EQ(TestScene::Joined(calls),
            "pen penBlack|"
            "move 0 0|line 50 0|text 70 0 X|"
            "move 0 0|line 0 -50|text 0 -70 Y|"
            "move 0 0|line 0 0|text 0 0 Z|"
            "pen penBlack|pen penRapid|move 0 0|pen penBlack|line 10 0|pen penGrey|line 10 -10|"
            "pen penGreen|line 0 -10|pen penBlack");
}

}  // namespace
}  // namespace tvx
