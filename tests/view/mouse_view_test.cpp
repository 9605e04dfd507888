// Wheel and middle button, from each of the fixed views.
#include "view/mouse_view.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvx {
namespace {

// In a part of 100 mm that fills an area of 900 x 700 pixels.
class MouseView : public testing::TestWithParam<int> {
 protected:
  MouseView() {
    OnResize(&view, 900, 700);
    PrepareDevice(&view);
    SetViewMode(&view, GetParam());
    view.viewScale = 7;
    view.panX = 41, view.panY = -33;
  }
  // From the top left.
  Pixel At(const Vec3& point) {
    const Pixel pixel = Project(&view, point);
    return {pixel.x + 450, pixel.y + 350};
  }
  static int Distance(Pixel a, Pixel b) {
    return std::max(std::abs(a.x - b.x), std::abs(a.y - b.y));
  }

  ViewTransform view;
  MouseDrag drag;
  const Vec3 part{50, 40, -12};
};
INSTANTIATE_TEST_SUITE_P(From, MouseView, testing::Range(1, kViewModes + 1));

TEST_P(MouseView, TwentyStepsInAndOutKeepThePointUnderThePointer) {
  const Pixel pointer = {731, 102};
  const Vec3 point = PointAt(view, pointer, part);
  const ViewTransform before = view;
  float largest = 0;
  for (int step = 0; step < 40; ++step) {
    ZoomAt(&view, pointer, step < 20 ? 1 : -1);
    EXPECT_LE(Distance(At(point), pointer), 1) << step;
    largest = std::max(largest, view.viewScale);
  }
  EXPECT_GT(largest, 200);
  EXPECT_NEAR(view.viewScale, before.viewScale, 1e-3);
  ZoomAt(&view, pointer, 1000);
  EXPECT_EQ(view.viewScale, kLargestFittedScale);
  ZoomAt(&view, pointer, -1e9);
  EXPECT_GT(view.viewScale, 0);
}

TEST_P(MouseView, PanMovesEachPointWithThePointer) {
  const Pixel from = At(part);
  drag.BeginPan({10, 20});
  for (const Pixel to : {Pixel{13, 21}, {-90, 340}, {207, 99}}) {
    EXPECT_TRUE(drag.MoveTo(to, &view));
    EXPECT_LE(Distance(At(part), {from.x + to.x - 10, from.y + to.y - 20}), 1);
  }
  EXPECT_FALSE(drag.MoveTo({207, 99}, &view));
  CentreOn(&view, part);
  EXPECT_LE(Distance(At(part), {450, 350}), 1);
}

TEST_P(MouseView, TurnKeepsItsPointAndTheSizeOfThePart) {
  const Pixel from = At(part);
  const auto depth = [&] { return std::abs(At({50, 40, 88}).y - At(part).y); };
  const ViewTransform before = view;
  drag.BeginTurn({100, 100}, part);
  drag.MoveTo({101, 100}, &view);  // half a degree, so up to 9 pixels
  for (const Vec3 corner : {Vec3{0, 0, 0}, {100, 0, 9}, {0, 100, -30}}) {
    ViewTransform start = before;
    const Pixel was = Project(&start, corner);
    EXPECT_LE(Distance(At(corner), {was.x + 450, was.y + 350}), 9) << corner.x;
  }
  for (int x = 102; x < 300; x += 7) {
    drag.MoveTo({x, 100}, &view);
    EXPECT_LE(Distance(At(part), from), 1) << x;
  }
  const int tilted = depth();
  drag.MoveTo({1000, 100}, &view);
  EXPECT_NEAR(depth(), tilted, 1) << "a drag across turns about the Z axis of the world";
  drag.MoveTo({1000, 137}, &view);
  EXPECT_GT(std::abs(depth() - tilted), 10) << "and a drag down tilts it";
  drag.End();
  EXPECT_FALSE(drag.MoveTo({0, 0}, &view));

  SetViewMode(&view, GetParam());
  view.panX = before.panX, view.panY = before.panY;
  view.finePanX = view.finePanY = 0;
  EXPECT_EQ(At(part), from) << "a fixed view has its exact angles again";
}

}  // namespace
}  // namespace tvx
