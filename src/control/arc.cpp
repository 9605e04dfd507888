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
  return {centre, isClockwise ? -turn : turn, std::sqrt(ax * ax + ay * ay),
          std::sqrt(bx * bx + by * by)};
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
  return {centre, isClockwise ? -turn : turn, Distance(centre, start), Distance(centre, end)};
}

bool IsDegenerate(const Arc& arc) {
  return std::min(arc.startRadius, arc.endRadius) <= kNoLength;
}

bool EndsElsewhere(const Arc& arc) {
  const double difference = std::abs(arc.startRadius - arc.endRadius);
  return difference > kRadiusTolerance &&
         difference > kRadiusRatio * std::max(arc.startRadius, arc.endRadius);
}

double ArcLength(const Arc& arc, double rise) {
  const double inPlane = (arc.startRadius + arc.endRadius) / 2 * arc.sweep;
  return std::sqrt(inPlane * inPlane + rise * rise);
}

}  // namespace tvx
