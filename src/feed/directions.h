// The two angles of a direction that the feed adjustment compares.
#pragma once

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

}  // namespace tvx
