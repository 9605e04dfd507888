#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvx {
namespace {

TEST(TruncateTo, TowardsZeroAndHeldAtTheEnds) {
  const struct {
    double value;
    int32_t int32;
    int16_t int16;
    uint8_t byte;
  } kCases[] = {
      {0.0, 0, 0, 0},
      {1.9, 1, 1, 1},
      {-1.9, -1, -1, 0},
      {-0.9, 0, 0, 0},
      {255.9, 255, 255, 255},
      {32767.9, 32767, 32767, 255},
      {-32768.9, -32768, -32768, 0},
      {2147483646.5, 2147483646, 32767, 255},
      {2147483648.0, 2147483647, 32767, 255},
      {-2147483649.0, INT32_MIN, INT16_MIN, 0},
      {1e300, INT32_MAX, INT16_MAX, 255},
      {HUGE_VAL, INT32_MAX, INT16_MAX, 255},
      {-HUGE_VAL, INT32_MIN, INT16_MIN, 0},
      {std::nan(""), 0, 0, 0},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(TruncateTo<int32_t>(c.value), c.int32) << c.value;
    EXPECT_EQ(TruncateTo<int16_t>(c.value), c.int16) << c.value;
    EXPECT_EQ(TruncateTo<uint8_t>(c.value), c.byte) << c.value;
  }
  EXPECT_EQ(TruncateTo<int64_t>(9.3e18), INT64_MAX);
  EXPECT_EQ(TruncateTo<int64_t>(-9.3e18), INT64_MIN);
  EXPECT_EQ(TruncateTo<int64_t>(9.0e18), 9000000000000000000);
}

}  // namespace
}  // namespace tvx
