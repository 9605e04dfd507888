#include "model/arc_geometry.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(ArcGeometry, CentreFromRadius) {
  const struct {
    Vec3 start, end;
    float radius;
    uint32_t type;
    float i, j;
  } cases[] = {
      {{0, 0, 0}, {10, 0, 0}, 5, BlockArcCw, 5, 0},
      {{0, 0, 0}, {10, 0, 0}, 4, BlockArcCw, 5, 0},  // chord longer than the diameter
      {{0, 0, 0}, {10, 0, 0}, 10, BlockArcCw, 5, -8.660254F},
      {{0, 0, 0}, {10, 0, 0}, -10, BlockArcCw, 5, 8.660254F},
      {{0, 0, 0}, {10, 0, 0}, 10, BlockArcCcw, 5, 8.660254F},
      {{0, 0, 0}, {10, 0, 0}, -10, BlockArcCcw, 5, -8.660254F},
      {{0, 0, 0}, {10, 10, 0}, 10, BlockArcCw, 10, 0},
      {{0, 0, 0}, {10, 10, 0}, -10, BlockArcCw, 0, 10},
      {{10, 0, 0}, {0, 10, 0}, 10, BlockArcCcw, -10, 0},
      // No X extent: the slope of 100000 shifts the centre a little.
      {{0, 0, 0}, {0, 10, 0}, 10, BlockArcCcw, -8.660254F, 4.999913F},
  };
  for (const auto& c : cases) {
    Vec3 offset{-1, -1, 7};
    EXPECT_EQ(ArcCentreFromRadius(c.start, c.end, c.radius, c.type, &offset), 1);
    EXPECT_NEAR(offset.x, c.i, 2e-6) << c.radius << ' ' << c.type;
    EXPECT_NEAR(offset.y, c.j, 2e-6) << c.radius << ' ' << c.type;
    EXPECT_EQ(offset.z, 7);
  }
  Vec3 offset{1, 2, 3};
  EXPECT_EQ(ArcCentreFromRadius({0, 0, 0}, {10, 0, 0}, 5, BlockCut, &offset), 1);
  EXPECT_EQ(offset.x, 1) << "other types keep the offset";
}

TEST(ArcGeometry, MeasuresOfAnArc) {
  const struct {
    Vec3 start, end;
    uint32_t type;
    float startAngle, endAngle, sweep;
  } cases[] = {
      {{10, 0, 0}, {0, 10, 0}, BlockArcCcw, 0, 90, 90},
      {{0, 10, 0}, {10, 0, 0}, BlockArcCcw, -270, 0, 270},
      {{0, 10, 0}, {10, 0, 0}, BlockArcCw, 90, 0, 90},
      {{10, 0, 0}, {0, 10, 0}, BlockArcCw, 0, -270, 270},
      {{10, 0, 0}, {10, 0, 0}, BlockArcCcw, 0, 360, 360},
      {{10, 0, 0}, {10, 0, 0}, BlockArcCw, 360, 0, 360},
  };
  for (const auto& c : cases) {
    ArcMeasures m;
    EXPECT_EQ(ArcGeometry(c.start, c.end, {0, 0, 0}, c.type, &m), 1);
    EXPECT_EQ(m.startAngle, c.startAngle) << c.sweep;
    EXPECT_EQ(m.endAngle, c.endAngle) << c.sweep;
    EXPECT_EQ(m.sweep, c.sweep);
    EXPECT_EQ(m.radius, 10);
    EXPECT_FLOAT_EQ(m.length, c.sweep * 10 * 0.01745328F);
  }
}

}  // namespace
}  // namespace tvx
