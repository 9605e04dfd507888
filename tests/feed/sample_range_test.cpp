#include "feed/sample_range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace tvx {
namespace {

// No sample that comes out between the limits may be lost; far fewer are kept than there are.
TEST(SampleRange, KeepsEverySampleBetweenTheLimits) {
  std::mt19937 random(3);
  const auto number = [&](double span) {
    return static_cast<double>(
        static_cast<float>((static_cast<double>(random()) / 4294967296.0 - 0.5) * span));
  };
  for (int round = 0; round < 3000; ++round) {
    const double from = number(2000), step = number(random() % 3 == 0 ? 0.01 : 30);
    const double low = number(1000), high = low + std::abs(number(500));
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

TEST(SampleRange, EndsWhereNoSampleCanBe) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const SampleRange all = {3, 9};
  const auto count = [&](double from, double step) {
    const SampleRange range = SamplesWithin(all, from, step, -1, 1);
    return std::max<int64_t>(0, range.last - range.first + 1);
  };
  EXPECT_EQ(count(0, 0), 7);
  EXPECT_EQ(count(5, 0), 0);
  EXPECT_EQ(count(5, 1), 0);
  EXPECT_EQ(count(kInfinity, 1), 0);
  EXPECT_EQ(count(0, kInfinity), 0);
  EXPECT_EQ(count(std::nan(""), 1), 0);
  EXPECT_LE(count(0, 1e30), 1);
}

}  // namespace
}  // namespace tvx
