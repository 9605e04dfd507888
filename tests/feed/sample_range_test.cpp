#include <gtest/gtest.h>

#include <random>

#include "feed/master_grid.h"

namespace tvx {
namespace {

// No sample that comes out between the limits may be lost; far fewer are kept than there are.
TEST(SampleRange, KeepsEverySampleBetweenTheLimits) {
  std::mt19937 random(3);
  const auto number = [&](float span) {
    return std::uniform_real_distribution<float>(-span, span)(random);
  };
  for (int round = 0; round < 3000; ++round) {
    const double from = number(1000), step = round % 3 == 0 ? number(0.005F) : number(15);
    const double low = number(500), high = low + std::abs(number(250));
    const SampleRange range = SamplesWithin({0, 400}, from, step, low, high);
    for (int64_t j = 0; j <= 400; ++j) {
      const auto position = static_cast<float>(from + static_cast<double>(j) * step);
      if (low <= position && position <= high) {
        ASSERT_TRUE(range.first <= j && j <= range.last) << from << " " << step << " " << j;
      }
    }
    ASSERT_LE(static_cast<double>(range.last - range.first), (high - low) / std::abs(step) + 6);
  }
}

}  // namespace
}  // namespace tvx
