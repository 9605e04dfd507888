// Feeds of angles between the weights.
#include "feed/angle_feed.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/rows.h"

namespace tvx {
namespace {

TEST(AngleFeed, FallsThroughTheSupportPointsInWholeSteps) {
  const Rows<float, float, float, float, int32_t, float, int32_t, int32_t> rows = {
      {1, 0.7F, 0.3F, 0.1F, 1000, 0, 1000, 1000},
      {1, 0.7F, 0.3F, 0.1F, 1000, 29.99F, 730, 730},  // -9 * 29.99 + 1000 = 730.09
      {1, 0.7F, 0.3F, 0.1F, 1000, 30, 729, 730},      // opens the middle band or closes the first
      {1, 0.7F, 0.3F, 0.1F, 1000, 45, 564, 564},      // -11 * 15 + 729
      {1, 0.7F, 0.3F, 0.1F, 1000, 45.00133F, 563, 563},  // 45 degrees as Angle measures it
      {1, 0.7F, 0.3F, 0.1F, 1000, 60, 370, 399},         // -11 * 30 + 729
      {1, 0.7F, 0.3F, 0.1F, 1000, 89, 109, 109},         // -9 * 29 + 370
      {1, 0.7F, 0.3F, 0.1F, 1000, 90, 100, 100},
      {1, 0.7F, 0.3F, 1, 1000, 90, 1000, 1000},  // a ratio of 1 lowers nothing
      {0, 0.5F, 1, 0.5F, 2000, 20, 1320, 1320},  // rising: 1000 + 16 * 20
      {1, 0.7F, 0.3F, 0.1F, 20, 29, 20, 20},     // a span below 30 has the step 0
      {1e30F, -1e30F, 0, 0.1F, 1000, 0, INT32_MAX, INT32_MAX},
      {1, 0.7F, 0.3F, 0.1F, 1000, std::nanf(""), 0, 0},
  };
  for (const auto& [w0, w30, w60, ratio, maxFeed, angle, strict, inclusive] : rows) {
    EXPECT_EQ(AngleFeed(w0, w30, w60, ratio, maxFeed, angle, BandEdges::kStrict), strict) << angle;
    EXPECT_EQ(AngleFeed(w0, w30, w60, ratio, maxFeed, angle, BandEdges::kInclusive), inclusive);
  }
}

}  // namespace
}  // namespace tvx
