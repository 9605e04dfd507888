// The curve from an angle to a feed, behind every reduction of the feed adjustment.
#pragma once

#include <cstdint>

namespace tvx {

// The band that an angle of exactly 30 or 60 degrees belongs to. The feed depends on it: the slope
// of a band is a whole number, so a band does not quite reach the next support point.
enum class BandEdges {
  kStrict,     // 30 and 60 open the next band
  kInclusive,  // 30 and 60 close the band below
};

// Feed in mm/min of a corner or slope of `angle` degrees, 0 to 90. The curve falls through four
// support points: the weights W0, W30 and W60 (0 to 1: the share of the span between the lowest
// feed and maxFeed that is kept) at 0, 30 and 60 degrees, and R x maxFeed at 90. R is the lowest
// feed as a fraction of maxFeed. Values out of these ranges go through the same formula; the result
// is limited to the range of int32_t, and an angle that is not a number has the feed 0.
class FeedCurve {
 public:
  FeedCurve(float W0, float W30, float W60, float R, int32_t maxFeed);

  int32_t At(float angle, BandEdges edges) const;

 private:
  static constexpr int kBands = 3;
  int32_t from_[kBands];  // the feed at the lower end of each band
  int64_t step_[kBands];  // and its change by one degree
};

// One point of such a curve.
inline int32_t AngleFeed(float W0, float W30, float W60, float R, int32_t maxFeed, float angle,
                         BandEdges edges) {
  return FeedCurve(W0, W30, W60, R, maxFeed).At(angle, edges);
}

}  // namespace tvx
