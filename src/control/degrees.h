// Functions of angles in degrees.
#pragma once

#include <cmath>
#include <numbers>

namespace tvx {

inline double ToRadians(double degrees) {
  return degrees * (std::numbers::pi / 180);
}
inline double ToDegrees(double radians) {
  return radians * (180 / std::numbers::pi);
}

inline double SineOf(double degrees) {
  return std::sin(ToRadians(degrees));
}
inline double CosineOf(double degrees) {
  return std::cos(ToRadians(degrees));
}

}  // namespace tvx
