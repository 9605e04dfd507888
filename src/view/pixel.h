#pragma once

#include <cstdint>

namespace tvx {

// A point of a drawing area or of a device, x to the right and y downward.
struct Pixel {
  int32_t x = 0;
  int32_t y = 0;

  friend bool operator==(const Pixel& a, const Pixel& b) { return a.x == b.x && a.y == b.y; }
};

}  // namespace tvx
