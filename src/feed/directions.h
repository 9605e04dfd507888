// The angles of a direction that the feed adjustment compares.
#pragma once

#include <algorithm>
#include <cmath>

#include "model/vectors.h"

namespace tvx {

// Degrees of a direction as seen from above, 0 to 360.
inline float Heading(const Vec3& unit) {
  return Angle(unit.y, unit.x);
}

// Degrees of a direction out of the XY plane: 0 to 90 rising, 270 to 360 falling.
inline float Elevation(const Vec3& unit) {
  return Angle(unit.z, static_cast<float>(SafeSqrt(Square(unit.x) + Square(unit.y))));
}

// A direction in plan view whose degrees are calculated on demand: a smooth path needs few of them.
class PlanHeading {
 public:
  explicit PlanHeading(float degrees) : degrees_(degrees) {}
  explicit PlanHeading(const Vec3& unit) : unit_(unit), known_(false) {}

  float Degrees() {
    if (!known_) degrees_ = Heading(unit_);
    known_ = true;
    return degrees_;
  }

 private:
  Vec3 unit_;
  float degrees_ = 0;
  bool known_ = true;
};

// Angles are measured through square roots and an arc function, and most moves of a smooth path are
// far below the angle that matters. The bounds below recognise them by the components of their unit
// vectors. The measured angle is within 0.04 degrees of the true one: its factor is a little long,
// and near an axis it is calculated from the rounded cosine.
inline constexpr double kSurelyDegrees = 0.2;
inline constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

// A direction with no more rise than this is surely not steeper than the angle, in degrees.
inline double SurelyFlatRise(float degrees) {
  return std::sin(std::clamp(degrees - kSurelyDegrees, -90.0, 90.0) * kRadiansPerDegree);
}

// Two directions with at least this cosine between them surely differ by no more than the angle, in
// degrees.
inline double SurelyStraightCosine(float degrees) {
  const double angle = std::min<double>(degrees, 180.0) - kSurelyDegrees;
  return angle < 0 ? 2.0 : std::cos(angle * kRadiansPerDegree);
}

// Whether the elevations of two directions surely have at least this cosine: in space the
// directions turn at least as much as their elevations.
inline bool ElevationsHaveCosine(const Vec3& a, const Vec3& b, double cosine) {
  return static_cast<double>(a.x) * b.x + static_cast<double>(a.y) * b.y +
             static_cast<double>(a.z) * b.z >=
         cosine;
}

// The same for their headings. A direction too close to the vertical has no heading of its own: it
// is measured as 0.
inline bool HeadingsHaveCosine(const Vec3& a, const Vec3& b, double cosine) {
  constexpr double kLeastPlanPart = 1e-8;  // squared
  const double planA = Square(a.x) + Square(a.y);
  const double planB = Square(b.x) + Square(b.y);
  const double dot = static_cast<double>(a.x) * b.x + static_cast<double>(a.y) * b.y;
  return planA > kLeastPlanPart && planB > kLeastPlanPart &&
         dot >= cosine * std::sqrt(planA * planB);
}

}  // namespace tvx
