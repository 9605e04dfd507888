// Geometry of arcs in the XY plane.
#pragma once

#include <cstdint>

#include "model/vectors.h"

namespace tvx {

// Centre of an arc in the XY plane, relative to its start point, from a signed radius: positive for
// the short way round, 0 or negative for the long one. Writes x (I) and y (J) of *arcOffset for
// types 6 and 8 and leaves it alone for others. A radius shorter than half the chord puts the
// centre on the middle of the chord. Returns 1.
int ArcCentreFromRadius(const Vec3& start, const Vec3& end, float radius, uint32_t type,
                        Vec3* arcOffset);

struct ArcMeasures {
  float startAngle = 0;  // degrees
  float endAngle = 0;    // degrees; below the start angle for a clockwise arc
  float sweep = 0;       // degrees, 360 for a full circle
  float radius = 0;
  float length = 0;
};

// Angles, sweep, radius and length of an arc about a centre. Types other than 6 and 8 leave the
// sweep as the caller set it. Returns 1.
int ArcGeometry(const Vec3& start, const Vec3& end, const Vec3& centre, uint32_t type,
                ArcMeasures* measures);

}  // namespace tvx
