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

// A straight line between two points of the path, in the direction of travel. Its unit vector and
// its heading are calculated on demand: a smooth path needs few of them.
class Chord {
 public:
  Chord() = default;
  explicit Chord(const Difference& difference) : difference_(difference) {}

  const Difference& Way() const { return difference_; }
  float Length() const { return difference_.length; }

  // (0, 0, 0) without a length.
  Vec3 Unit() const {
    const Difference& d = difference_;
    if (d.length == 0) return {};
    return {d.dx / d.length, d.dy / d.length, d.dz / d.length};
  }

  float HeadingDegrees() {
    if (!isHeadingKnown_) heading_ = Heading(Unit());
    isHeadingKnown_ = true;
    return heading_;
  }

 private:
  friend class KeptHeading;

  Difference difference_;
  float heading_ = 0;
  bool isHeadingKnown_ = false;
};

// The last heading in plan view that could be measured.
class KeptHeading {
 public:
  // Not known: it is the one of an earlier part of the path.
  KeptHeading() = default;
  explicit KeptHeading(float degrees) : isKnown_(true) {
    chord_.heading_ = degrees;
    chord_.isHeadingKnown_ = true;
  }
  explicit KeptHeading(const Chord& chord) : chord_(chord), isKnown_(true) {}

  bool IsKnown() const { return isKnown_; }
  float Degrees() { return chord_.HeadingDegrees(); }

 private:
  Chord chord_;
  bool isKnown_ = false;
};

// Angles are measured through square roots and an arc function, and most moves of a smooth path are
// far below the angle that matters. The bounds below recognise them by squares. The measured angle
// is within 0.04 degrees of the true one: its factor is a little long, and near an axis it is
// calculated from the rounded cosine. The rest of kSurelyDegrees, 0.16 degrees, is at least 4e-6 of
// a cosine, ten times the rounding of the squares. Values that are too large for a square, or are
// no numbers, are not recognised.
inline constexpr double kSurelyDegrees = 0.2;
inline constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;
inline constexpr float kMostSquared = 1e18F;  // mm^2; its square is still a number

// A direction with no more rise than this is surely not steeper than the angle, in degrees.
inline double SurelyFlatRise(float degrees) {
  return std::sin(std::clamp(degrees - kSurelyDegrees, -90.0, 90.0) * kRadiansPerDegree);
}

// The square of a cosine: two directions with at least this cosine between them surely differ by no
// more than the angle, in degrees, nor by more than 90. Above 1 if there is none.
inline float SurelyStraightSquared(float degrees) {
  const double angle = std::min<double>(degrees - kSurelyDegrees, 90.0);
  const double cosine = angle < 0 ? 2.0 : std::cos(angle * kRadiansPerDegree);
  return static_cast<float>(cosine * cosine);
}

// Whether the elevations of two directions surely have at least this cosine: in space the
// directions turn at least as much as their elevations.
inline bool ElevationsHaveCosine(const Difference& a, const Difference& b, float cosineSquared) {
  const float dot = a.dx * b.dx + a.dy * b.dy + a.dz * b.dz;
  const float squaredA = a.length * a.length, squaredB = b.length * b.length;
  return dot > 0 && dot * dot >= cosineSquared * (squaredA * squaredB) && squaredA < kMostSquared &&
         squaredB < kMostSquared;
}

// The same for their headings. A direction too close to the vertical has no heading of its own: it
// is measured as 0. The lengths have to be those of chords that have a heading.
inline bool HeadingsHaveCosine(const Difference& a, const Difference& b, float cosineSquared) {
  constexpr float kLeastPlanPart = 1e-8F;  // of the length, squared
  const float dot = a.dx * b.dx + a.dy * b.dy;
  const float planA = a.dx * a.dx + a.dy * a.dy, planB = b.dx * b.dx + b.dy * b.dy;
  const float squaredA = a.length * a.length, squaredB = b.length * b.length;
  return dot > 0 && dot * dot >= cosineSquared * (planA * planB) &&
         planA > kLeastPlanPart * squaredA && planB > kLeastPlanPart * squaredB &&
         squaredA < kMostSquared && squaredB < kMostSquared;
}

}  // namespace tvx
