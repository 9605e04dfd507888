// Conversion of real numbers to whole ones without undefined results.
#pragma once

#include <cstdint>
#include <limits>

namespace tvx {

// A real number as a whole one: the fraction is dropped towards zero. Values beyond the range of
// the whole number are held at its ends, and a NaN gives 0, so no conversion is ever undefined.
template <typename Whole>
constexpr Whole TruncateTo(double value) {
  constexpr double kLowest = static_cast<double>(std::numeric_limits<Whole>::min());
  constexpr double kHighest = static_cast<double>(std::numeric_limits<Whole>::max());
  if (value != value) return 0;
  if (value <= kLowest) return std::numeric_limits<Whole>::min();
  if (value >= kHighest) return std::numeric_limits<Whole>::max();
  return static_cast<Whole>(value);
}

constexpr int32_t TruncateToInt(double value) {
  return TruncateTo<int32_t>(value);
}

}  // namespace tvx
