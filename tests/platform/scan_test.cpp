#include "platform/scan.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "support/comma_locale.h"

namespace tvx {
namespace {

using namespace std::string_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();
constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();

// A text of the characters that numbers are made of, and of some that end one.
std::string RandomText(std::mt19937* random, const std::string& characters) {
  std::string text((*random)() % 12, ' ');
  for (char& c : text) c = characters[(*random)() % characters.size()];
  return text;
}

TEST(TextToDouble, LongestValidPrefix) {
  const struct {
    std::string text;
    double value;
  } kCases[] = {
      {"", 0},
      {"-", 0},
      {".", 0},
      {"X10", 0},
      {"10", 10},
      {"-.5", -0.5},
      {"5.", 5},
      {"+12.5", 12.5},
      {"+-5", 0},
      {"--5", 0},
      {"1.2.3", 1.2},
      {"1-2", 1},
      {" \t\r\n\v\f7", 7},
      {"1e3", 1000},
      {"1e", 1},
      {"1e+", 1},
      {"1,5", 1},
      {"0x1F", 31},
      {"-0X1p3z", -8},
      {"0x", 0},
      {"5x", 5},
      {"1e400", kInfinity},
      {"-1e400", -kInfinity},
      {"1e-400", 0},
      {"1e-310", 1e-310},
      {"infinity", kInfinity},
      {"-INF", -kInfinity},
      {"5\0005"s, 5},
      {std::string(1000, '9'), kInfinity},
      {"0." + std::string(1000, '0') + "1e1003", 100},
      {"1" + std::string(400, '0') + "e-400", 1},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(TextToDouble(c.text), c.value) << c.text;
    EXPECT_EQ(TextToFloat(c.text), static_cast<float>(c.value)) << c.text;
  }
  EXPECT_TRUE(std::signbit(TextToDouble("-0")));
  EXPECT_TRUE(std::isnan(TextToDouble("nan")));
}

TEST(TextToDouble, AgreesWithTheCLibrary) {
  std::mt19937 random(1);
  for (int i = 0; i < 200000; ++i) {
    const std::string text = RandomText(&random, "00123456789..+-eExXpPinfaty( \t");
    const double expected = std::atof(text.c_str());
    const double value = TextToDouble(text);
    if (std::isnan(expected)) {
      ASSERT_TRUE(std::isnan(value)) << '"' << text << '"';
    } else {
      ASSERT_EQ(std::bit_cast<uint64_t>(value), std::bit_cast<uint64_t>(expected))
          << '"' << text << '"';
    }
  }
}

TEST(TextToInt, LongestValidPrefix) {
  const struct {
    std::string text;
    int32_t value;
  } kCases[] = {
      {"", 0},
      {"x5", 0},
      {"-", 0},
      {"+-5", 0},
      {" \t12.9", 12},
      {"+7", 7},
      {"-12abc", -12},
      {"0x1A", 0},
      {"1e3", 1},
      {"007", 7},
      {"2147483647", kHighest},
      {"2147483648", kHighest},
      {"-2147483648", kLowest},
      {"-2147483649", kLowest},
      {"9223372036854775808", kHighest},
      {"18446744073709551617", kHighest},
      {"-" + std::string(100000, '9'), kLowest},
  };
  for (const auto& c : kCases) EXPECT_EQ(TextToInt(c.text), c.value) << c.text;
}

TEST(EqualNoCase, OnlyAsciiLettersHaveCase) {
  EXPECT_TRUE(EqualNoCase("SideWeight30", "SIDEweight30"));
  EXPECT_TRUE(EqualNoCase("NCDATA확장자", "ncdata확장자"));
  EXPECT_FALSE(EqualNoCase("abc", "abcd"));
  EXPECT_FALSE(EqualNoCase("[", "{"));
  EXPECT_FALSE(EqualNoCase("\xC3\x80", "\xC3\xA0"));
}

// Runs one read and tells its outcome and what stays unread.
std::string Outcome(const std::string& text, char conversion) {
  WordScanner scanner(text);
  char value[64] = "-";
  std::string word;
  if (conversion == 'f') {
    float number = 0;
    if (scanner.ReadFloat(&number)) std::snprintf(value, sizeof value, "%a", number);
  } else {
    int32_t number = 0;
    if (scanner.ReadInt(&number)) std::snprintf(value, sizeof value, "%d", number);
  }
  std::string rest;
  while (scanner.ReadWord(&word)) rest += "|" + word;
  return value + rest;
}

std::string OutcomeInC(const std::string& text, char conversion) {
  if (text.empty()) return "-";
  const std::unique_ptr<FILE, int (*)(FILE*)> file(
      fmemopen(const_cast<char*>(text.data()), text.size(), "r"), std::fclose);
  char value[64] = "-";
  if (conversion == 'f') {
    float number = 0;
    if (std::fscanf(file.get(), "%f", &number) == 1)
      std::snprintf(value, sizeof value, "%a", number);
  } else {
    int number = 0;
    if (std::fscanf(file.get(), "%d", &number) == 1)
      std::snprintf(value, sizeof value, "%d", number);
  }
  std::string rest;
  char word[64];
  while (std::fscanf(file.get(), "%63s", word) == 1) rest += std::string("|") + word;
  return value + rest;
}

TEST(WordScanner, AgreesWithTheCLibrary) {
  std::mt19937 random(2);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = RandomText(&random, "00123456789..+-eExXpPaf \n");
    // The library here takes a prefix and a point for a number, which the standard does not.
    if (text.find("x.") != std::string::npos || text.find("X.") != std::string::npos) continue;
    ASSERT_EQ(Outcome(text, 'f'), OutcomeInC(text, 'f')) << '"' << text << '"';
  }
  for (int i = 0; i < 20000; ++i) {
    const std::string text = RandomText(&random, "0123+-x \t").substr(0, 9);
    ASSERT_EQ(Outcome(text, 'd'), OutcomeInC(text, 'd')) << '"' << text << '"';
  }
}

TEST(WordScanner, WhatDoesNotFitStaysUnread) {
  const struct {
    const char* text;
    char conversion;
    const char* outcome;
  } kCases[] = {
      {"", 'f', "-"},
      {"  \n", 'd', "-"},
      {"Name 1", 'f', "-|Name|1"},
      {"Name 1", 'd', "-|Name|1"},
      {"12.5 x", 'd', "12|.5|x"},
      {"-x", 'd', "-|x"},
      {".x", 'f', "-|x"},
      {"nan(1)", 'f', "nan|(1)"},
      {"NaFeed", 'f', "-|NaFeed"},  // the start of a name is not lost
      {"IntNcdataFlg", 'f', "-|IntNcdataFlg"},
      {"INFx", 'f', "inf|x"},
      {"-Infinity!", 'f', "-inf|!"},
      {"infix", 'f', "inf|ix"},
      {"1e39", 'f', "inf"},
      {"-99999999999", 'd', "-2147483648"},
      {"99999999999", 'd', "2147483647"},
  };
  for (const auto& c : kCases) EXPECT_EQ(Outcome(c.text, c.conversion), c.outcome) << c.text;
}

TEST(WordScanner, WordsOfAnyLengthAndBytes) {
  const std::string longWord(200000, 'w');
  const std::string text = "\xB0\xA1\0b \v"s + longWord + "\f";
  WordScanner scanner(text);
  std::string word;
  ASSERT_TRUE(scanner.ReadWord(&word));
  EXPECT_EQ(word, "\xB0\xA1\0b"s);
  ASSERT_TRUE(scanner.ReadWord(&word));
  EXPECT_EQ(word, longWord);
  EXPECT_FALSE(scanner.ReadWord(&word));
  EXPECT_EQ(word, longWord);
}

TEST(WordScanner, PairsStopAtTheFirstMisfit) {
  WordScanner scanner("MaxFeed 2000\r\nSideWeight30 0.7\tAngle x");
  std::string key;
  float value = 0;
  std::string read;
  while (scanner.ReadWord(&key) && scanner.ReadFloat(&value)) {
    read += key + "=" + std::to_string(value) + ";";
  }
  EXPECT_EQ(read, "MaxFeed=2000.000000;SideWeight30=0.700000;");
  EXPECT_EQ(key, "Angle");
}

TEST(Scan, HasADecimalPointInEveryLocale) {
  const CommaLocale comma;
  if (!comma.IsSet()) GTEST_SKIP() << "no localedef here";
  ASSERT_EQ(std::atof("1,5"), 1.5) << "the locale is not in force";
  EXPECT_EQ(TextToDouble("1.5"), 1.5);
  EXPECT_EQ(TextToDouble("1,5"), 1);
  EXPECT_EQ(TextToDouble("0x1.8"), 1.5);
  EXPECT_EQ(TextToDouble("1.5e400"), kInfinity);
  EXPECT_EQ(TextToDouble("1.5e-400"), 0);
  EXPECT_EQ(Outcome("2.25 1,5", 'f'), "0x1,2p+1|1,5");  // printed as C does it here
}

}  // namespace
}  // namespace tvx
