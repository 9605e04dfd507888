#include "platform/format.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "platform/scan.h"
#include "support/comma_locale.h"

namespace tvx {
namespace {

TEST(Format, TextsOfAnyLength) {
  EXPECT_EQ(Format("%s", ""), "");
  EXPECT_EQ(Format("S%d %6.3f [%c:]", 1200, 1.5, 'c'), "S1200  1.500 [c:]");
  for (const size_t length : {254u, 255u, 256u, 257u, 100000u}) {
    const std::string text(length, 'x');
    EXPECT_EQ(Format("%s|%d", text.c_str(), 7), text + "|7") << length;
  }
}

TEST(ShortestFloat, PlainAndExact) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const struct {
    float value;
    const char* text;
  } kCases[] = {
      {0.0f, "0"},
      {-0.0f, "-0"},
      {0.1f, "0.1"},
      {-12.0f, "-12"},
      {1250.5f, "1250.5"},
      {16777216.0f, "16777216"},
      {1e-5f, "0.00001"},
      {kInfinity, "inf"},
      {-kInfinity, "-inf"},
      {std::nanf(""), "nan"},
      {-std::nanf(""), "nan"},
      {std::numeric_limits<float>::max(), "340282346638528859811704183484516925440"},
      {std::numeric_limits<float>::denorm_min(), "0.000000000000000000000000000000000000000000001"},
  };
  for (const auto& c : kCases) EXPECT_EQ(ShortestFloat(c.value), c.text);
}

TEST(ShortestFloat, ReadsBackToTheSameBits) {
  std::mt19937 random(4);
  for (int i = 0; i < 100000; ++i) {
    const float value = std::bit_cast<float>(static_cast<uint32_t>(random()));
    if (std::isnan(value)) continue;
    const std::string text = ShortestFloat(value);
    ASSERT_EQ(std::bit_cast<uint32_t>(TextToFloat(text)), std::bit_cast<uint32_t>(value)) << text;
  }
}

TEST(Format, HasADecimalPointInEveryLocale) {
  const CommaLocale comma;
  if (!comma.IsSet()) GTEST_SKIP() << "no localedef here";
  EXPECT_EQ(Format("%.2f", 1234.5), "1234.50");
  EXPECT_EQ(Format("%s %.1f", std::string(300, 'x').c_str(), 0.5), std::string(300, 'x') + " 0.5");
  EXPECT_EQ(ShortestFloat(0.5f), "0.5");
  char text[16];
  std::snprintf(text, sizeof text, "%.1f", 0.5);
  EXPECT_STREQ(text, "0,5") << "the locale is not in force, or Format did not put it back";
}

}  // namespace
}  // namespace tvx
