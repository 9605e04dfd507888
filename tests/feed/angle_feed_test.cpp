#include "feed/angle_feed.h"

#include <gtest/gtest.h>

#include <limits>

namespace tvx {
namespace {

constexpr BandEdges kStrict = BandEdges::Strict;
constexpr BandEdges kInclusive = BandEdges::Inclusive;

TEST(AngleFeed, FallsThroughTheSupportPointsInWholeSteps) {
  const struct {
    float angle;
    BandEdges edges;
    int32_t feed;
  } cases[] = {
      {0.0F, kInclusive, 1000},    {15.0F, kInclusive, 865},  // -9 * 15 + 1000
      {29.99F, kStrict, 730},                                 // -9 * 29.99 + 1000 = 730.09
      {30.0F, kStrict, 729},                                  // opens the middle band
      {30.0F, kInclusive, 730},     // closes the first one, which stops short of 729
      {45.0F, kStrict, 564},        // -11 * 15 + 729
      {45.0F, kInclusive, 564},     //
      {45.00133F, kStrict, 563},    // 45 degrees as Angle measures it
      {60.0F, kStrict, 370},        //
      {60.0F, kInclusive, 399},     // -11 * 30 + 729
      {60.0001F, kInclusive, 369},  //
      {89.0F, kStrict, 109},        // -9 * 29 + 370
      {90.0F, kStrict, 100},        //
      {90.0F, kInclusive, 100},     //
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AngleFeed(1.0F, 0.7F, 0.3F, 0.1F, 1000, c.angle, c.edges), c.feed)
        << c.angle << (c.edges == kStrict ? " strict" : " inclusive");
  }
}

TEST(AngleFeed, FollowsOtherWeightsRatiosAndFeeds) {
  const struct {
    float w0, w30, w60, ratio;
    int32_t maxFeed;
    float angle;
    int32_t feed;
  } cases[] = {
      {1.0F, 1.0F, 1.0F, 0.1F, 1000, 60.0F, 1000},  // no reduction up to 60 degrees
      {1.0F, 1.0F, 1.0F, 0.1F, 1000, 75.0F, 550},   // -30 * 15 + 1000
      {0.0F, 0.0F, 0.0F, 0.1F, 1000, 10.0F, 100},   // full reduction everywhere
      {1.0F, 0.7F, 0.3F, 1.0F, 1000, 90.0F, 1000},  // a ratio of 1 lowers nothing
      {0.0F, 0.5F, 1.0F, 0.5F, 2000, 20.0F, 1320},  // rising: 1000 + 16 * 20
      {1.0F, 0.7F, 0.3F, 0.1F, 20, 29.0F, 20},      // a span below 30 has the step 0
      {1.0F, 0.7F, 0.3F, 0.1F, 0, 45.0F, 0},       {1.0F, 0.7F, 0.3F, 0.1F, 100000, 90.0F, 10000},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AngleFeed(c.w0, c.w30, c.w60, c.ratio, c.maxFeed, c.angle, kInclusive), c.feed)
        << c.ratio << " " << c.maxFeed << " " << c.angle;
  }
}

TEST(AngleFeed, HoldsValuesThatFitNoFeed) {
  constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(AngleFeed(1e30F, 1e30F, 1e30F, 0.1F, 1000, 0.0F, kInclusive), kMost);
  EXPECT_EQ(AngleFeed(1e30F, -1e30F, 0.0F, 0.1F, 1000, 0.0F, kInclusive), kMost);
  EXPECT_EQ(
      AngleFeed(1.0F, 0.7F, 0.3F, 0.1F, 1000, std::numeric_limits<float>::quiet_NaN(), kInclusive),
      0);
}

}  // namespace
}  // namespace tvx
