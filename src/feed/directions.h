// The angles of a direction that the feed adjustment compares.
#pragma once

#include <algorithm>
#include <cmath>

#include "model/path.h"

namespace tvx {

// Degrees of a direction as seen from above, 0 to 360.
inline float Heading(const Vec3& unit) {
  return Angle(unit.y, unit.x);
}

// Degrees of a direction out of the XY plane: 0 to 90 rising, 270 to 360 falling.
inline float Elevation(const Vec3& unit) {
  return Angle(unit.z, static_cast<float>(SafeSqrt(Square(unit.x) + Square(unit.y))));
}

// Elevations are measured through two square roots and an arc function, and most moves of a smooth
// path turn out to be far below the angle that matters. These bounds sort them out by the
// components of their unit vectors. The measure is within 0.04 degrees of the true angle: its
// factor is a little long, and close to an axis it works with the rounded cosine.
inline constexpr double kSurelyDegrees = 0.2;
inline constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

// A direction with no more rise than this is beyond doubt not above the angle, in degrees.
inline double SurelyFlatRise(float degrees) {
  return std::sin((std::min<double>(degrees, 90.0) - kSurelyDegrees) * kRadiansPerDegree);
}

// The elevations of two directions with at least this cosine between them differ beyond doubt by no
// more than the angle, in degrees: in space they turn at least as much.
inline double SurelyStraightCosine(float degrees) {
  const double angle = std::min<double>(degrees, 180.0) - kSurelyDegrees;
  return angle < 0 ? 2.0 : std::cos(angle * kRadiansPerDegree);
}

inline double Cosine(const Vec3& a, const Vec3& b) {
  return static_cast<double>(a.x) * b.x + static_cast<double>(a.y) * b.y +
         static_cast<double>(a.z) * b.z;
}

}  // namespace tvx
