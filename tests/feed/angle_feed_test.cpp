#include "feed/angle_feed.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvx {
namespace {

TEST(AngleFeed, FallsThroughTheSupportPointsInWholeSteps) {
  struct Curve {
    float w0, w30, w60, ratio;
    int32_t maxFeed;
  };
  constexpr Curve kUsual = {1.0F, 0.7F, 0.3F, 0.1F, 1000};
  const struct {
    Curve curve;
    float angle;
    int32_t strict, inclusive;
  } cases[] = {
      {kUsual, 0, 1000, 1000},
      {kUsual, 29.99F, 730, 730},     // -9 * 29.99 + 1000 = 730.09
      {kUsual, 30, 729, 730},         // opens the middle band, or closes the first short of it
      {kUsual, 45, 564, 564},         // -11 * 15 + 729
      {kUsual, 45.00133F, 563, 563},  // 45 degrees as Angle measures it
      {kUsual, 60, 370, 399},         // -11 * 30 + 729
      {kUsual, 89, 109, 109},         // -9 * 29 + 370
      {kUsual, 90, 100, 100},
      {{1.0F, 1.0F, 1.0F, 0.1F, 1000}, 75, 550, 550},    // -30 * 15 + 1000
      {{0.0F, 0.0F, 0.0F, 0.1F, 1000}, 10, 100, 100},    // full reduction everywhere
      {{1.0F, 0.7F, 0.3F, 1.0F, 1000}, 90, 1000, 1000},  // a ratio of 1 lowers nothing
      {{0.0F, 0.5F, 1.0F, 0.5F, 2000}, 20, 1320, 1320},  // rising: 1000 + 16 * 20
      {{1.0F, 0.7F, 0.3F, 0.1F, 20}, 29, 20, 20},        // a span below 30 has the step 0
      {{1.0F, 0.7F, 0.3F, 0.1F, 100000}, 90, 10000, 10000},
      // Values that fit no feed.
      {{1e30F, 1e30F, 1e30F, 0.1F, 1000}, 0, INT32_MAX, INT32_MAX},
      {{1e30F, -1e30F, 0.0F, 0.1F, 1000}, 0, INT32_MAX, INT32_MAX},
      {kUsual, std::nanf(""), 0, 0},
  };
  for (const auto& c : cases) {
    const auto feed = [&](BandEdges edges) {
      const auto& [w0, w30, w60, ratio, maxFeed] = c.curve;
      return AngleFeed(w0, w30, w60, ratio, maxFeed, c.angle, edges);
    };
    EXPECT_EQ(feed(BandEdges::kStrict), c.strict) << c.curve.maxFeed << " at " << c.angle;
    EXPECT_EQ(feed(BandEdges::kInclusive), c.inclusive) << c.curve.maxFeed << " at " << c.angle;
  }
}

}  // namespace
}  // namespace tvx
