// Points and vectors of a tool path in single precision, with the rounding that every figure relies
// on.
#pragma once

#include <cmath>

namespace tvx {

struct Vec3 {
  float x = 0, y = 0, z = 0;
};

struct Difference {
  float dx = 0, dy = 0, dz = 0;
  float length = 0;
};

inline double Square(float value) {
  return static_cast<double>(value) * value;
}

// 0 for arguments below 1e-9, negative ones included.
inline double SafeSqrt(double value) {
  return value < 1e-9 ? 0.0 : std::sqrt(value);
}

// Point a minus point b without the unit vector.
inline Difference Subtract(const Vec3& a, const Vec3& b) {
  Difference difference{a.x - b.x, a.y - b.y, a.z - b.z, 0};
  difference.length = static_cast<float>(
      SafeSqrt(Square(difference.dx) + Square(difference.dy) + Square(difference.dz)));
  return difference;
}

// Point a minus point b, in the same way as BlockVector. Here, so that the feed pass, which
// measures millions of lengths, does not pay for unit vectors that it does not use.
inline int DiffVectors(const Vec3& a, const Vec3& b, Difference* difference, Vec3* unit) {
  difference->dx = a.x - b.x;
  difference->dy = a.y - b.y;
  difference->dz = a.z - b.z;
  difference->length = static_cast<float>(
      SafeSqrt(Square(difference->dx) + Square(difference->dy) + Square(difference->dz)));
  if (difference->length == 0) return 0;
  unit->x = difference->dx / difference->length;
  unit->y = difference->dy / difference->length;
  unit->z = difference->dz / difference->length;
  return 1;
}

// Degrees from 0 up to but not including 360 of the direction with the y-like component a and the
// x-like component b. The factor is 180 / 3.1415, so angles between the axes are stretched a
// little.
float Angle(float a, float b);

}  // namespace tvx
