// Support points and steps are whole numbers, which is part of the result.
#include "feed/angle_feed.h"

#include "base/numbers.h"

namespace tvx {

namespace {

constexpr int kBandDegrees = 30;

// The feed at a support point, truncated to a whole number like every feed.
int32_t SupportFeed(double weight, double ratio, int32_t maxFeed) {
  return TruncateToInt(((1.0 - ratio) * weight + ratio) * maxFeed);
}

int Band(float angle, BandEdges edges) {
  if (edges == BandEdges::kStrict) return angle < 30.0F ? 0 : angle < 60.0F ? 1 : 2;
  return angle <= 30.0F ? 0 : angle <= 60.0F ? 1 : 2;
}

}  // namespace

FeedCurve::FeedCurve(float W0, float W30, float W60, float R, int32_t maxFeed) {
  const int32_t support[] = {SupportFeed(W0, R, maxFeed), SupportFeed(W30, R, maxFeed),
                             SupportFeed(W60, R, maxFeed),
                             TruncateToInt(static_cast<double>(maxFeed) * R)};
  for (int band = 0; band < kBands; ++band) {
    from_[band] = support[band];
    // The step per degree is a whole number too, so a band stops short of its upper support point.
    step_[band] = (int64_t{support[band + 1]} - support[band]) / kBandDegrees;
  }
}

int32_t FeedCurve::At(float angle, BandEdges edges) const {
  const int band = Band(angle, edges);
  const double base = band * kBandDegrees;
  return TruncateToInt(static_cast<double>(step_[band]) * (angle - base) +
                       static_cast<double>(from_[band]));
}

}  // namespace tvx
