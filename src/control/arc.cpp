#include "control/arc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tvx {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// Radii that differ by less than either are the same radius, written with few digits.
constexpr double kRadiusTolerance = 0.01;  // mm
constexpr double kRadiusRatio = 0.001;

}  // namespace

double Distance(const PlanePoint& a, const PlanePoint& b) {
  const double dx = b[0] - a[0], dy = b[1] - a[1];
  return std::sqrt(dx * dx + dy * dy);
}

Arc ArcAbout(const PlanePoint& centre, const PlanePoint& start, const PlanePoint& end,
             bool isClockwise) {
  const double ax = start[0] - centre[0], ay = start[1] - centre[1];
  const double bx = end[0] - centre[0], by = end[1] - centre[1];
  const double cross = ax * by - ay * bx;
  double turn = std::atan2(isClockwise ? -cross : cross, ax * bx + ay * by);
  if (turn < 0) turn += kTurn;
  if (turn <= kNoLength || turn >= kTurn - kNoLength) turn = kTurn;
  return {centre, isClockwise ? -turn : turn};
}

Arc ArcOfRadius(double radius, const PlanePoint& start, const PlanePoint& end, bool isClockwise,
                double* missing) {
  const double half = Distance(start, end) / 2;
  const double size = std::abs(radius);
  *missing = std::max(0.0, half - size);
  // From the middle of the chord to the centre.
  const double height = size > half ? std::sqrt((size - half) * (size + half)) : 0;
  const bool isLong = radius < 0;
  const double toLeft = (isClockwise == isLong ? height : -height) / (2 * half);
  const PlanePoint centre = {(start[0] + end[0]) / 2 - (end[1] - start[1]) * toLeft,
                             (start[1] + end[1]) / 2 + (end[0] - start[0]) * toLeft};
  const double lesser = 2 * std::atan2(half, height);
  const double turn = isLong ? kTurn - lesser : lesser;
  return {centre, isClockwise ? -turn : turn};
}

bool EndsElsewhere(double startRadius, double endRadius) {
  const double difference = std::abs(startRadius - endRadius);
  return difference > kRadiusTolerance &&
         difference > kRadiusRatio * std::max(startRadius, endRadius);
}

double ArcLength(double startRadius, double endRadius, double sweep, double rise) {
  const double inPlane = (startRadius + endRadius) / 2 * sweep;
  return std::sqrt(inPlane * inPlane + rise * rise);
}

}  // namespace tvx
