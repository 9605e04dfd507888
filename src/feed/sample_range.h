// Which of the points sampled along a move can meet the master grid. Coordinates of a program have
// no limit in Y, so a move may hold more samples off the grid than could ever be visited.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/numbers.h"

namespace tvx {

// Indexes j of the samples; empty if last is below first.
struct SampleRange {
  int64_t first, last;
};

// Narrows a range to the samples from + j x step that lie between low and high, as seen on one
// axis. It is never too narrow: what a sample may lose when it is rounded to a float is allowed
// for.
inline SampleRange SamplesWithin(const SampleRange& range, double from, double step, double low,
                                 double high) {
  constexpr double kFloatRounding = 1e-6;  // more than half of the last place of a float
  low -= std::abs(low) * kFloatRounding;
  high += std::abs(high) * kFloatRounding;
  constexpr SampleRange kNone = {0, -1};
  if (!std::isfinite(from) || !std::isfinite(step)) return kNone;
  if (step == 0) return low <= from && from <= high ? range : kNone;
  const double atLow = (low - from) / step;
  const double atHigh = (high - from) / step;
  return {std::max(range.first, TruncateTo<int64_t>(std::floor(std::min(atLow, atHigh)) - 1)),
          std::min(range.last, TruncateTo<int64_t>(std::ceil(std::max(atLow, atHigh)) + 1))};
}

}  // namespace tvx
