// Projection, fit and zoom are in the golden cases; these are the cases that no program shows.
#include "view/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "test_scene.h"

namespace tvx {
namespace {

TEST(ViewTransform, NanIsProjectedOutsideTheArea) {
  ViewTransform view;
  EXPECT_EQ(Project(&view, {std::nanf(""), 0, 0}).x, INT32_MAX);
}

TEST(ViewTransform, FitUpdatesTheTableAndSkipsBadRecords) {
  TestScene scene;
  ViewTransform& view = scene.view.transform;
  view.clientWidth = 800, view.clientHeight = 600;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add({.x = 80, .y = 1000, .z = 600, .type = BlockCutStart});
  scene.Add(BlockCut, 40000, 0);  // out of range: the store reads it as no move
  view.rotX = 270;                // the front view, where Y is the depth
  FitToPath(&view, &scene.program.store);
  EXPECT_NEAR(view.viewScale, 1.0, 0.0001);  // 600 pixels for a Z of 600
  EXPECT_EQ(view.panX, 40);
}

}  // namespace
}  // namespace tvx
