#include "platform/text.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

namespace tvx {
namespace {

using namespace std::string_literals;

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
      {"c:\\가공\\뷁.nc", "c:\\\xB0\xA1\xB0\xF8\\\x94\xEE.nc"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(EncodeCp949(c.utf8), c.cp949) << c.utf8;
    EXPECT_EQ(DecodeCp949(c.cp949), c.utf8) << c.utf8;
  }
}

TEST(Text, EverySyllableOfModernHangul) {
  std::set<std::string> codes;
  for (unsigned c = 0xAC00; c <= 0xD7A3; ++c) {
    const std::string utf8 = {static_cast<char>(0xE0 | c >> 12),
                              static_cast<char>(0x80 | (c >> 6 & 0x3F)),
                              static_cast<char>(0x80 | (c & 0x3F))};
    const std::string code = EncodeCp949(utf8);
    ASSERT_EQ(code.size(), 2u) << utf8;
    ASSERT_EQ(DecodeCp949(code), utf8);
    codes.insert(code);
  }
  EXPECT_EQ(codes.size(), 11172u);
}

TEST(Text, ForeignBytesBecomePrivateCharacters) {
  const struct {
    std::string bytes;
    std::string utf8;
  } kCases[] = {
      {"\x80", "\U0010FF80"},
      {"a\xFFz", "a\U0010FFFFz"},
      {"\xB0", "\U0010FFB0"},  // cut in the middle
      {"\xB0\xA1\xB0", "가\U0010FFB0"},
      {"\xB0\n", "\U0010FFB0\n"},  // a line end is never swallowed
      {"\xB0\0x"s, "\U0010FFB0\0x"s},
      {"\x80\xB0\xA1", "\U0010FF80가"},                // what is no lead byte stands alone
      {"\xC9\xA1\xB0\xA1", "\U0010FFC9\U0010FFA1가"},  // an unassigned pair stays a pair
      {"\xC9"
       "A\xB0\xA1",
       "\U0010FFC9"
       "A가"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(DecodeCp949(c.bytes), c.utf8);
    EXPECT_EQ(EncodeCp949(c.utf8), c.bytes);
  }
}

TEST(Text, AllBytesSurviveTheRoundTrip) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(EncodeCp949(DecodeCp949(bytes)), bytes) << first << ' ' << second;
    }
  }
  std::mt19937 random(3);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 100, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    ASSERT_EQ(EncodeCp949(DecodeCp949(bytes)), bytes) << testing::PrintToString(bytes);
  }
}

TEST(Text, WhatCp949LacksBecomesOneQuestionMark) {
  const struct {
    std::string utf8;
    std::string cp949;
  } kCases[] = {
      {"é", "?"},
      {"a😀가", "a?\xB0\xA1"},
      {"\U0010FF7F", "?"},  // below the private bytes
      {"\U0010FEFF", "?"},
      {"\xEA\xB0", "?"},  // 가 without its last byte
      {"\xEA\xB0x", "?x"},
      {"\xEA", "?"},
      {"\x80\x80", "??"},  // continuation bytes alone
      {"\xC0\xAF", "??"},  // overlong
      {"\xE0\x80\xAF", "???"},
      {"\xF0\x80\x80\x80", "????"},
      {"\xED\xA0\x80", "???"},       // a surrogate
      {"\xF4\x90\x80\x80", "????"},  // beyond the last character
      {"\xF0\x9F\x98", "?"},
      {"\xFF\xB0\xA1", "???"},                // never CP949 taken as it stands
      {"\xEA\xB0\xEA\xB0\x80", "?\xB0\xA1"},  // the next character is whole
      {"a\0b"s, "a\0b"s},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(EncodeCp949(c.utf8), c.cp949) << testing::PrintToString(c.utf8);
  }
}

}  // namespace
}  // namespace tvx
