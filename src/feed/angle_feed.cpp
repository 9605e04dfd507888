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

int32_t AngleFeed(float W0, float W30, float W60, float R, int32_t maxFeed, float angle,
                  BandEdges edges) {
  const int32_t support[] = {SupportFeed(W0, R, maxFeed), SupportFeed(W30, R, maxFeed),
                             SupportFeed(W60, R, maxFeed),
                             TruncateToInt(static_cast<double>(maxFeed) * R)};
  const int band = Band(angle, edges);
  const int64_t from = support[band];
  // The step per degree is a whole number too, so a band stops short of its upper support point.
  const int64_t step = (support[band + 1] - from) / kBandDegrees;
  const double base = band * kBandDegrees;
  return TruncateToInt(static_cast<double>(step) * (angle - base) + static_cast<double>(from));
}

}  // namespace tvx
