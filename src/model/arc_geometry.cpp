// Arc centres, sweeps and lengths in the precision that the figures depend on.
#include "model/arc_geometry.h"

#include <algorithm>
#include <cmath>

#include "model/block_store.h"

namespace tvx {

namespace {

// Slope taken for a chord with no X extent.
constexpr double kVerticalSlope = 100000.0;
// How far a candidate centre may lie from the radius about the start point, mm.
constexpr double kRadiusTolerance = 0.01;
// Degrees to radians in the arc length; not quite pi / 180.
constexpr float kArcLengthRadiansPerDegree = 0x1.1DF45Cp-6F;  // 0.01745328

float DirectionAngle(const Vec3& from, const Vec3& to) {
  Difference difference;
  Vec3 unit;
  DiffVectors(to, from, &difference, &unit);
  return Angle(unit.y, unit.x);
}

// Unwraps the two angles so that the arc runs from start to end in its direction, a full turn when
// they are equal, and sets the sweep. Other types change nothing.
void UnwrapAngles(uint32_t type, float* startAngle, float* endAngle, float* sweep) {
  if (type == BlockArcCcw) {
    if (*endAngle < *startAngle) {
      *startAngle -= 360.0F;
    } else if (*endAngle == *startAngle) {
      *endAngle = *startAngle + 360.0F;
    }
    *sweep = *endAngle - *startAngle;
  } else if (type == BlockArcCw) {
    if (*startAngle < *endAngle) {
      *endAngle -= 360.0F;
    } else if (*startAngle == *endAngle) {
      *startAngle = *endAngle + 360.0F;
    }
    *sweep = *startAngle - *endAngle;
  }
}

}  // namespace

int ArcCentreFromRadius(const Vec3& start, const Vec3& end, float radius, uint32_t type,
                        Vec3* arcOffset) {
  if (!IsArcType(type)) return 1;

  const double slope = end.x == start.x ? kVerticalSlope
                                        : (static_cast<double>(end.y) - start.y) /
                                              (static_cast<double>(end.x) - start.x);
  Difference chord;
  Vec3 unit;
  DiffVectors(end, start, &chord, &unit);
  // A radius shorter than half the chord gives 0: the centre falls on the chord's middle.
  const double height = SafeSqrt(Square(radius) - Square(chord.length) * 0.25);
  const double q1 = SafeSqrt(height * height / (slope * slope + 1));
  const double q2 = SafeSqrt(height * height * slope * slope / (slope * slope + 1));
  const double middleX =
      (static_cast<double>(std::min(start.x, end.x)) + std::max(start.x, end.x)) * 0.5;
  const double middleY =
      (static_cast<double>(std::min(start.y, end.y)) + std::max(start.y, end.y)) * 0.5;

  const auto candidate = [&](double signX, double signY) {
    return Vec3{static_cast<float>(middleX + signX * q2), static_cast<float>(middleY + signY * q1),
                start.z};
  };
  Vec3 p = candidate(1, 1);
  Vec3 q = candidate(-1, -1);
  // In double: at such radii a difference rounded to single precision fails the tolerance.
  const double toStartX = static_cast<double>(p.x) - start.x;
  const double toStartY = static_cast<double>(p.y) - start.y;
  const double distance = SafeSqrt(toStartX * toStartX + toStartY * toStartY);
  if (!(std::abs(distance - std::abs(static_cast<double>(radius))) < kRadiusTolerance)) {
    p = candidate(-1, 1);
    q = candidate(1, -1);
  }

  float endAngle = DirectionAngle(p, end);
  float startAngle = DirectionAngle(p, start);
  float sweep = 0;
  UnwrapAngles(type, &startAngle, &endAngle, &sweep);
  const bool isShort = sweep < 180.0F;
  const bool wantsShort = radius > 0;
  const Vec3& centre = isShort == wantsShort ? p : q;
  arcOffset->x = centre.x - start.x;
  arcOffset->y = centre.y - start.y;
  return 1;
}

int ArcGeometry(const Vec3& start, const Vec3& end, const Vec3& centre, uint32_t type,
                ArcMeasures* measures) {
  Difference toEnd;
  Vec3 unit;
  DiffVectors(end, centre, &toEnd, &unit);
  measures->radius = toEnd.length;
  measures->endAngle = Angle(unit.y, unit.x);
  measures->startAngle = DirectionAngle(centre, start);
  UnwrapAngles(type, &measures->startAngle, &measures->endAngle, &measures->sweep);
  measures->length = static_cast<float>(static_cast<double>(measures->sweep) * measures->radius *
                                        kArcLengthRadiansPerDegree);
  return 1;
}

}  // namespace tvx
