#include "platform/text.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(Text, KoreanBothWays) {
  const struct {
    const char* utf8;
    const char* cp949;
  } kCases[] = {
      {"", ""},
      {"G1 X10. F500\r\n", "G1 X10. F500\r\n"},
      {"가", "\xB0\xA1"},
      {"힝", "\xC8\xFE"},
      {"똠방각하", "\x8C\x63\xB9\xE6\xB0\xA2\xC7\xCF"},  // outside the older standard set
      {"뷁", "\x94\xEE"},
      {"힣", "\xC6\x52"},
      {"갂", "\x81\x41"},
      {"伽", "\xCA\xA1"},
      {"N10(황삭)M3", "N10(\xC8\xB2\xBB\xE8)M3"},
      {"㎜", "\xA7\xAE"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(EncodeCp949(c.utf8), c.cp949) << c.utf8;
    EXPECT_EQ(DecodeCp949(c.cp949), c.utf8) << c.utf8;
  }
}

}  // namespace
}  // namespace tvx
