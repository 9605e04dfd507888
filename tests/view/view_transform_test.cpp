#include "view/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

// Where points lie, and what fits and zooms come to, is in the golden cases; here is the rest.

TEST(ViewTransform, WhatHasNoPlaceLiesOutside) {
  TestScene scene;
  EXPECT_EQ(Project(&scene.view.transform, {std::nanf(""), 0, 0}).x, INT32_MAX);
}

TEST(ViewTransform, AModeSetsTheAnglesAloneAndRepaints) {
  TestScene scene(2.0F);
  ViewTransform& view = scene.view.transform;
  view.panX = 7;
  SetViewMode(&view, kViewModes, &scene.ui);
  SetViewMode(&view, kViewModes + 1, &scene.ui);
  SetViewMode(&view, 0, &scene.ui);
  EXPECT_EQ(view.rotZ, 60);
  EXPECT_EQ(view.panX, 7);
  EXPECT_EQ(view.viewScale, 2.0F);
  EXPECT_EQ(scene.ui.repaints, 2);  // the first with the scene's own set-up
}

TEST(ViewTransform, AFitFollowsTheAnglesEvenWithAStaleTable) {
  TestScene scene;
  ViewTransform& view = scene.view.transform;
  OnResize(&view, 800, 600);
  PrepareDevice(&view);
  FitToPath(&view, &scene.program.store, &scene.ui);
  EXPECT_EQ(view.viewScale, 15.0F);  // an empty store shows 40 units
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add({.x = 80, .y = 1000, .z = 600, .type = BlockCutStart});
  scene.Add(BlockCut, 40000, 0);  // a bad record is no point
  view.rotX = 270;                // the front: Y goes into the depth
  FitToPath(&view, &scene.program.store, &scene.ui);
  EXPECT_NEAR(view.viewScale, 1.0, 0.0001);  // 600 pixels for a Z of 600
  EXPECT_EQ(view.panX, 40);
  EXPECT_EQ(scene.ui.repaints, 3);
}

TEST(ViewTransform, AZoomOfALineRepaintsAndChangesNothing) {
  for (const Pixel release : {Pixel{100, 400}, Pixel{500, 100}, Pixel{100, 100}}) {
    TestScene scene(30.0F);
    ZoomToRect(&scene.view.transform, {100, 100}, release, &scene.ui);
    EXPECT_EQ(scene.view.transform.viewScale, 30.0F);
    EXPECT_EQ(scene.ui.repaints, 2);
  }
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
