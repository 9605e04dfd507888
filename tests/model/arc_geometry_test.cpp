// Angles and lengths of arcs; the centres of radii are seen in the golden cases.
#include "model/arc_geometry.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "model/block_store.h"

namespace tvx {
namespace {

TEST(ArcGeometry, CentreFromRadiusIsForArcsAlone) {
  Vec3 offset{1, 2, 3};
  EXPECT_EQ(ArcCentreFromRadius({0, 0, 0}, {10, 0, 0}, 5, BlockCut, &offset), 1);
  EXPECT_EQ(offset.x, 1);
  EXPECT_EQ(ArcCentreFromRadius({0, 0, 0}, {10, 0, 0}, 5, BlockArcCw, &offset), 1);
  EXPECT_EQ((std::array{offset.x, offset.z}), (std::array{5.0F, 3.0F}));
}

// The rounding of single precision chose the other candidate, a centre that is not on the radius.
TEST(ArcGeometry, CentreOfHugeRadiusIsOnTheRadius) {
  Vec3 offset;
  ArcCentreFromRadius({-16000, -41.347F, -16000}, {-32700, 1, -16000}, 1000000, BlockArcCw,
                      &offset);
  EXPECT_EQ(offset.x, -5814.3477F);
}

TEST(ArcGeometry, CentreFromRadiusIsAsFarFromBothEnds) {
  for (int degrees = 0; degrees < 360; degrees += 15) {
    const double angle = degrees * 0.01745329;
    const Vec3 start{3, 4, 0};
    const Vec3 end{start.x + static_cast<float>(10 * std::cos(angle)),
                   start.y + static_cast<float>(10 * std::sin(angle)), 0};
    for (const float radius : {5.5F, 20.0F, -5.5F, -20.0F}) {
      for (const uint32_t type : {BlockArcCcw, BlockArcCw}) {
        Vec3 offset;
        ArcMeasures m;
        ArcCentreFromRadius(start, end, radius, type, &offset);
        ArcGeometry(start, end, {start.x + offset.x, start.y + offset.y, 0}, type, &m);
        EXPECT_NEAR(std::hypot(offset.x, offset.y), std::abs(radius), 0.005) << degrees;
        EXPECT_NEAR(m.radius, std::abs(radius), 0.005) << degrees;
        EXPECT_EQ(m.sweep<180, radius> 0) << degrees << ' ' << radius;
      }
    }
  }
}

TEST(ArcGeometry, MeasuresOfAnArc) {
  const Vec3 right{10, 0, 0}, top{0, 10, 0};
  const struct {
    Vec3 start, end;
    uint32_t type;
    float startAngle, endAngle, sweep;
  } cases[] = {
      {right, top, BlockArcCcw, 0, 90, 90},     {top, right, BlockArcCcw, -270, 0, 270},
      {top, right, BlockArcCw, 90, 0, 90},      {right, top, BlockArcCw, 0, -270, 270},
      {right, right, BlockArcCcw, 0, 360, 360}, {right, right, BlockArcCw, 360, 0, 360},
  };
  for (const auto& c : cases) {
    ArcMeasures m;
    EXPECT_EQ(ArcGeometry(c.start, c.end, {0, 0, 0}, c.type, &m), 1);
    EXPECT_EQ((std::array{m.startAngle, m.endAngle, m.sweep, m.radius}),
              (std::array{c.startAngle, c.endAngle, c.sweep, 10.0F}));
    EXPECT_FLOAT_EQ(m.length, c.sweep * 10 * 0.01745328F);
  }
}

}  // namespace
}  // namespace tvx
