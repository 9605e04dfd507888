// CP949 text both ways: every syllable, foreign bytes, characters without a code; parts of paths.
#include "base/text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "base/path_text.h"

namespace tvx {
namespace {

using namespace std::string_literals;

TEST(Text, BothWays) {
  const std::string kCases[][2] = {
      {"G1 X10. F500\r\n", "G1 X10. F500\r\n"},
      {"N10(황삭)M3", "N10(\xC8\xB2\xBB\xE8)M3"},
      {"똠방각하", "\x8C\x63\xB9\xE6\xB0\xA2\xC7\xCF"},  // outside the older standard set
      {"c:\\가공\\뷁.nc", "c:\\\xB0\xA1\xB0\xF8\\\x94\xEE.nc"},
      {"伽㎜", "\xCA\xA1\xA7\xAE"},
      // Foreign bytes become private characters.
      {"a\U0010FFFFz", "a\xFFz"},
      {"가\U0010FFB0", "\xB0\xA1\xB0"},  // cut in the middle
      {"\U0010FFB0\n", "\xB0\n"},        // a line end is never swallowed
      {"\U0010FFB0\0x"s, "\xB0\0x"s},
      {"\U0010FF80가", "\x80\xB0\xA1"},                // what is no lead byte stands alone
      {"\U0010FFC9\U0010FFA1가", "\xC9\xA1\xB0\xA1"},  // an unassigned pair stays a pair
      {"\U0010FFC9A가", "\xC9\x41\xB0\xA1"},
  };
  for (const auto& [utf8, cp949] : kCases) {
    EXPECT_EQ(EncodeCp949(utf8), cp949) << utf8;
    EXPECT_EQ(DecodeCp949(cp949), utf8) << testing::PrintToString(cp949);
  }
}

TEST(Text, EverySyllableOfModernHangul) {
  std::string utf8;
  for (unsigned c = 0xAC00; c <= 0xD7A3; ++c) {
    for (const unsigned unit : {0xE0 | c >> 12, 0x80 | (c >> 6 & 0x3F), 0x80 | (c & 0x3F)}) {
      utf8 += static_cast<char>(unit);
    }
  }
  EXPECT_EQ(EncodeCp949(utf8).size(), 2U * 11172);
  EXPECT_EQ(DecodeCp949(EncodeCp949(utf8)), utf8);
}

TEST(Text, AllBytesSurviveTheRoundTrip) {
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {  // every pair of bytes several times over
    std::string bytes(random() % 100, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    ASSERT_EQ(EncodeCp949(DecodeCp949(bytes)), bytes) << testing::PrintToString(bytes);
  }
}

TEST(Text, WhatCp949LacksBecomesOneQuestionMark) {
  const std::string kCases[][2] = {
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
  for (const auto& [utf8, cp949] : kCases) {
    EXPECT_EQ(EncodeCp949(utf8), cp949) << testing::PrintToString(utf8);
  }
}

TEST(ShownText, ReplacesUndecodedBytesAlone) {
  EXPECT_EQ(ShownText(DecodeCp949("a\xFF\x80\xB0\xA1") + "\U0010FEFF"),
            "a\uFFFD\uFFFD가\U0010FEFF");
}

TEST(ReplaceAll, LeavesTheReplacementAlone) {
  std::string text = "aXa";
  ReplaceAll("a", "ba", &text);
  ReplaceAll("", "never", &text);
  EXPECT_EQ(text, "baXba");
}

TEST(PathText, SplitsAtTheLastSeparator) {
  const struct {
    const char *path, *separators, *name, *directory, *beforeName;
  } cases[] = {
      {"c:\\a\\b.nc", "\\", "b.nc", "c:\\a", "c:\\a\\"},
      {"c:\\a/b.nc", "\\", "a/b.nc", "c:", "c:\\"},
      {"c:\\a/b.nc", "\\/", "b.nc", "c:\\a", "c:\\a/"},
      {"\\b.nc", "\\", "b.nc", "", "\\"},
      {"b.nc", "\\/", "b.nc", "", ""},
      {"c:\\", "\\", "", "c:", "c:\\"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(NameOfPath(c.path, c.separators), c.name);
    EXPECT_EQ(DirectoryOfPath(c.path, c.separators), c.directory) << c.path;
    EXPECT_EQ(PathBeforeName(c.path, c.separators), c.beforeName) << c.path;
  }
}

}  // namespace
}  // namespace tvx
