#include "view/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

struct ProjectCase {
  int mode;
  Vec3 point;
  Pixel pixel;
};

TEST(ViewTransform, ProjectsPointsToPixels) {
  const ProjectCase cases[] = {
      {4, {10, 0, 0}, {259, 75}},
      {4, {10, 20, 5}, {559, -314}},
      {2, {10, 20, 5}, {300, -149}},  // the cosine of 270 degrees is not exactly 0
      {1, {10, 20, 5}, {300, -600}},
      {1, {0.01F, -0.01F, 0}, {0, 0}},  // towards zero from either side
      {1, {-0.01F, 0.01F, 0}, {0, 0}},
  };
  TestScene scene;
  for (const ProjectCase& c : cases) {
    ViewTransform view;
    SetViewMode(&view, c.mode, &scene.ui);
    const Pixel pixel = Project(&view, c.point);
    EXPECT_EQ(pixel.x, c.pixel.x) << "mode " << c.mode << ", x " << c.point.x;
    EXPECT_EQ(pixel.y, c.pixel.y) << "mode " << c.mode << ", x " << c.point.x;
  }
}

TEST(ViewTransform, PanIsSubtractedBeforeTheScale) {
  TestScene scene(2.5F);
  scene.view.transform.panX = 3;
  scene.view.transform.panY = -4;
  EXPECT_EQ(Project(&scene.view.transform, {5, 1, 0}), (Pixel{5, 7}));
}

TEST(ViewTransform, LiftsTheScaleForGood) {
  TestScene scene(0.0F);
  EXPECT_EQ(Project(&scene.view.transform, {32000, 0, 0}), (Pixel{0, 0}));
  EXPECT_EQ(scene.view.transform.viewScale, 0.00001F);
}

// No conversion to a whole number is undefined, and what has no place lies outside.
TEST(ViewTransform, CoordinatesOutOfRangeLieFarOutside) {
  TestScene scene(500.0F);
  const float infinity = HUGE_VALF;
  EXPECT_EQ(Project(&scene.view.transform, {1e30F, 1e30F, 0}), (Pixel{INT32_MAX, INT32_MIN}));
  EXPECT_EQ(Project(&scene.view.transform, {infinity - infinity, 0, 0}).x, INT32_MAX);
}

TEST(ViewTransform, ViewModesSetTheAnglesAlone) {
  const int32_t angles[kViewModes][3] = {{0, 0, 0},     {270, 0, 0},   {0, 90, 270}, {300, 0, 330},
                                         {300, 0, 240}, {300, 0, 150}, {300, 0, 60}};
  ScriptedUi ui;
  ViewTransform view;
  view.panX = 7;
  view.viewScale = 2.0F;
  for (int mode = 1; mode <= kViewModes; ++mode) {
    SetViewMode(&view, mode, &ui);
    EXPECT_EQ(view.rotX, angles[mode - 1][0]) << mode;
    EXPECT_EQ(view.rotY, angles[mode - 1][1]) << mode;
    EXPECT_EQ(view.rotZ, angles[mode - 1][2]) << mode;
    ViewTransform fresh = view;
    fresh.UpdateTrigTable();
    EXPECT_EQ(fresh.sinZ, view.sinZ) << mode;
    EXPECT_EQ(fresh.cosX, view.cosX) << mode;
  }
  EXPECT_EQ(view.panX, 7);
  EXPECT_EQ(view.viewScale, 2.0F);
  EXPECT_EQ(ui.repaints, kViewModes);
}

struct FitCase {
  const char* what;
  std::vector<MotionBlock> blocks;
  float scale;
  int32_t panX, panY;
};

TEST(ViewTransform, FitsToThePath) {
  const FitCase cases[] = {
      {"empty", {}, 15.0F, 0, 0},
      {"lines without a move only", {{.x = 5, .type = BlockNone}}, 15.0F, 0, 0},
      {"one point", {{.x = 7.9F, .y = 3.9F, .type = BlockCutStart}}, 10.0F, 7, -3},
      {"vertical line, held at 10 pixels a unit",
       {{.type = BlockRapidStart}, {.y = 20, .type = BlockCutStart}},
       10.0F,
       0,
       -10},
      {"tall vertical line",
       {{.type = BlockRapidStart}, {.y = 120, .type = BlockCutStart}},
       5.0F,
       0,
       -60},
      {"very small",
       {{.type = BlockRapidStart}, {.x = 0.02F, .type = BlockCutStart}},
       10.0F,  // height 0 counts 10 pixels a unit
       0,
       0},
      {"very small square",
       {{.type = BlockRapidStart}, {.x = 0.02F, .y = 0.02F, .type = BlockCutStart}},
       500.0F,
       0,
       0},
      {"rapids count",
       {{.type = BlockRapidStart}, {.x = 80, .y = 60, .type = BlockRapid}},
       10.0F,
       40,
       -30},
      {"an arc counts by its end, its centre record not at all",
       {{.type = BlockRapidStart},
        {.x = 80, .y = 60, .type = BlockArcCw},
        {.x = -5000, .y = 9000, .type = BlockArcCentre}},
       10.0F,
       40,
       -30},
      {"a bad record is no point",
       {{.type = BlockRapidStart},
        {.x = 80, .y = 60, .type = BlockRapid},
        {.x = 40000, .type = BlockCut}},
       10.0F,
       40,
       -30},
  };
  for (const FitCase& c : cases) {
    TestScene scene;
    for (const MotionBlock& block : c.blocks) scene.Add(block);
    OnResize(&scene.view.transform, 800, 600);
    PrepareDevice(&scene.view.transform);
    scene.ui.repaints = 0;
    FitToPath(&scene.view.transform, &scene.program.store, &scene.ui);
    EXPECT_EQ(scene.view.transform.viewScale, c.scale) << c.what;
    EXPECT_EQ(scene.view.transform.panX, c.panX) << c.what;
    EXPECT_EQ(scene.view.transform.panY, c.panY) << c.what;
    EXPECT_EQ(scene.ui.repaints, 1) << c.what;
  }
}

TEST(ViewTransform, FitFollowsTheAnglesEvenWithAStaleTable) {
  TestScene scene;
  OnResize(&scene.view.transform, 800, 600);
  PrepareDevice(&scene.view.transform);
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add({.x = 80, .y = 1000, .z = 600, .type = BlockCutStart});
  scene.view.transform.rotX = 270;  // the front: Y goes into the depth
  FitToPath(&scene.view.transform, &scene.program.store, &scene.ui);
  EXPECT_NEAR(scene.view.transform.viewScale, 1.0, 0.0001);  // 600 pixels for a Z of 600
  EXPECT_EQ(scene.view.transform.panX, 40);
}

TEST(ViewTransform, ZoomsToARectangleInAnyDirection) {
  const Pixel corners[][2] = {{{100, 100}, {500, 400}},
                              {{500, 400}, {100, 100}},
                              {{100, 400}, {500, 100}},
                              {{500, 100}, {100, 400}}};
  for (const auto& [press, release] : corners) {
    TestScene scene(30.0F);
    OnResize(&scene.view.transform, 800, 600);
    PrepareDevice(&scene.view.transform);
    scene.view.transform.panX = 5;
    ZoomToRect(&scene.view.transform, press, release, &scene.ui);
    // 13.33 by 10 units, centred at (-3.33 + 5, -1.67)
    EXPECT_FLOAT_EQ(scene.view.transform.viewScale, 60.0F);
    EXPECT_EQ(scene.view.transform.panX, 1);
    EXPECT_EQ(scene.view.transform.panY, -1);
  }
}

TEST(ViewTransform, ZoomOfALineRepaintsAndChangesNothing) {
  for (const Pixel release : {Pixel{100, 400}, Pixel{500, 100}, Pixel{100, 100}}) {
    TestScene scene(30.0F);
    scene.ui.repaints = 0;
    ZoomToRect(&scene.view.transform, {100, 100}, release, &scene.ui);
    EXPECT_EQ(scene.view.transform.viewScale, 30.0F);
    EXPECT_EQ(scene.view.transform.panX, 0);
    EXPECT_EQ(scene.ui.repaints, 1);
  }
}

TEST(ViewTransform, ZoomIsHeldAt500) {
  TestScene scene(400.0F);
  OnResize(&scene.view.transform, 800, 600);
  PrepareDevice(&scene.view.transform);
  ZoomToRect(&scene.view.transform, {390, 290}, {410, 310}, &scene.ui);
  EXPECT_EQ(scene.view.transform.viewScale, 500.0F);
}

TEST(ViewTransform, ASizeComesIntoForceWithThePreparation) {
  ViewTransform view;
  OnResize(&view, 801, 599);
  EXPECT_EQ(view.clientWidth, 0);
  EXPECT_EQ(PrepareDevice(&view).origin, (Pixel{-400, -299}));
  EXPECT_EQ(view.clientWidth, 801);
  EXPECT_EQ(view.clientHeight, 599);
}

}  // namespace
}  // namespace tvx
