// Numbers as texts and back.
#include "base/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "base/format.h"
#include "base/scan.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

using namespace std::string_literals;

TEST(TruncateTo, TowardsZeroAndHeldAtTheEnds) {
  const double kCases[][4] = {
      // a value, and what becomes of it in 32, 16 and 8 bits
      {1.9, 1, 1, 1},
      {-1.9, -1, -1, 0},
      {255.9, 255, 255, 255},
      {32767.9, 32767, 32767, 255},
      {-32768.9, -32768, -32768, 0},
      {2147483646.5, 2147483646, 32767, 255},
      {2147483648.0, 2147483647, 32767, 255},
      {-2147483649.0, INT32_MIN, INT16_MIN, 0},
      {HUGE_VAL, INT32_MAX, INT16_MAX, 255},
      {std::nan(""), 0, 0, 0},
  };
  for (const auto& [value, int32, int16, byte] : kCases) {
    EXPECT_EQ(TruncateTo<int32_t>(value), int32) << value;
    EXPECT_EQ(TruncateTo<int16_t>(value), int16) << value;
    EXPECT_EQ(TruncateTo<uint8_t>(value), byte) << value;
  }
  EXPECT_EQ(TruncateTo<int64_t>(9.3e18), INT64_MAX);
  EXPECT_EQ(TruncateTo<int64_t>(-9.3e18), INT64_MIN);
  EXPECT_EQ(TruncateTo<int64_t>(9.0e18), 9000000000000000000);
}

TEST(Format, TextsOfAnyLength) {
  EXPECT_EQ(Format("%s", ""), "");
  EXPECT_EQ(Format("S%d %6.3f [%c:]", 1200, 1.5, 'c'), "S1200  1.500 [c:]");
  for (const size_t length : {254u, 255u, 256u, 257u, 100000u}) {
    const std::string text(length, 'x');
    EXPECT_EQ(Format("%s|%d", text.c_str(), 7), text + "|7") << length;
  }
}

TEST(ShortestFloat, PlainAndReadsBackToTheSameBits) {
  using Float = std::numeric_limits<float>;
  EXPECT_EQ(ShortestFloat(-0.0f), "-0");
  EXPECT_EQ(ShortestFloat(0.1f), "0.1");
  EXPECT_EQ(ShortestFloat(-1250.5f), "-1250.5");
  EXPECT_EQ(ShortestFloat(1e-5f), "0.00001");
  EXPECT_EQ(ShortestFloat(-Float::infinity()), "-inf");
  EXPECT_EQ(ShortestFloat(-std::nanf("")), "nan");
  EXPECT_EQ(ShortestFloat(Float::max()), "340282346638528859811704183484516925440");
  EXPECT_EQ(ShortestFloat(Float::denorm_min()), "0." + std::string(44, '0') + "1");
  std::mt19937 random(4);
  for (int i = 0; i < 100000; ++i) {
    const float value = std::bit_cast<float>(static_cast<uint32_t>(random()));
    if (std::isnan(value)) continue;
    const std::string text = ShortestFloat(value);
    ASSERT_EQ(std::bit_cast<uint32_t>(TextToFloat(text)), std::bit_cast<uint32_t>(value)) << text;
  }
}

int32_t HeldIn32Bits(int64_t value) {
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// A text of the characters that numbers are made of, and of some that end one.
std::string RandomText(std::mt19937* random, const std::string& characters) {
  std::string text((*random)() % 12, ' ');
  for (char& c : text) c = characters[(*random)() % characters.size()];
  return text;
}

TEST(TextToNumber, AgreesWithTheCLibrary) {
  std::vector<std::string> texts = {" \t\r\n\v\f7", "X10", "1,5", "5\0005"s, "-0", "1e", "1e+"};
  for (const char* text : {"1e400", "-1e400", "1e-400", "1e-310", "+-1", "-+1",
                           "1.00000005960464478", "2147483647", "2147483648", "-2147483648",
                           "-2147483649", "9223372036854775808", "18446744073709551617"}) {
    texts.emplace_back(text);
  }
  texts.push_back("-" + std::string(100000, '9'));
  texts.push_back("0." + std::string(1000, '0') + "1e1003");
  texts.push_back("1" + std::string(400, '0') + "e-400");
  std::mt19937 random(1);
  for (int i = 0; i < 200000; ++i) {
    texts.push_back(RandomText(&random, "00123456789..+-eEq( \t"));
  }
  for (const std::string& text : texts) {
    const double real = std::atof(text.c_str());
    const int64_t whole = std::strtoll(text.c_str(), nullptr, 10);
    ASSERT_EQ(Format("%a", TextToDouble(text)), Format("%a", real)) << '"' << text << '"';
    ASSERT_EQ(Format("%a", TextToFloat(text)), Format("%a", static_cast<float>(real)))
        << '"' << text << '"';
    ASSERT_EQ(TextToInt(text), HeldIn32Bits(whole)) << '"' << text << '"';
  }
}

TEST(EqualNoCase, OnlyAsciiLettersHaveCase) {
  EXPECT_TRUE(EqualNoCase("NCDATA확장자30", "ncDATA확장자30"));
  EXPECT_FALSE(EqualNoCase("abc", "abcd"));
  EXPECT_FALSE(EqualNoCase("[", "{"));
  EXPECT_FALSE(EqualNoCase("\xC3\x80", "\xC3\xA0"));
}

// Reads a number, real ('f') or whole ('d'), and the words after it: "VALUE|WORD|WORD", with "-"
// where there is no number.
std::string Outcome(const std::string& text, char conversion) {
  WordScanner scanner(text);
  std::string outcome = "-";
  float real = 0;
  int32_t whole = 0;
  if (conversion == 'f' && scanner.ReadFloat(&real)) outcome = Format("%a", real);
  if (conversion == 'd' && scanner.ReadInt(&whole)) outcome = Format("%d", whole);
  for (std::string word; scanner.ReadWord(&word);) outcome += "|" + word;
  return outcome;
}

std::string OutcomeInC(const std::string& text, char conversion) {
  if (text.empty()) return "-";
  const std::unique_ptr<FILE, int (*)(FILE*)> file(
      fmemopen(const_cast<char*>(text.data()), text.size(), "r"), std::fclose);
  std::string outcome = "-";
  float real = 0;
  long whole = 0;  // longer than any of these texts, held in range afterwards
  char word[64];
  if (conversion == 'f' && std::fscanf(file.get(), "%f", &real) == 1 && std::isfinite(real)) {
    outcome = Format("%a", real);
  }
  if (conversion == 'd' && std::fscanf(file.get(), "%ld", &whole) == 1) {
    outcome = Format("%d", HeldIn32Bits(whole));
  }
  while (std::fscanf(file.get(), "%63s", word) == 1) outcome += std::string("|") + word;
  return outcome;
}

TEST(WordScanner, AgreesWithTheCLibrary) {
  std::mt19937 random(2);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = RandomText(&random, "00123456789..+-eEq \n");
    for (const char conversion : {'f', 'd'}) {
      ASSERT_EQ(Outcome(text, conversion), OutcomeInC(text, conversion)) << '"' << text << '"';
    }
  }
}

TEST(WordScanner, WhatDoesNotFitStaysUnread) {
  const char* const kCases[][3] = {
      {"Name 1", "d", "-|Name|1"},        {"nan(1)", "f", "-|nan(1)"}, {"inf", "f", "-|inf"},
      {"-Infinity!", "f", "-|Infinity!"}, {"0x10", "f", "0x0p+0|x10"}, {"1e39 2", "f", "-|2"},
  };
  for (const auto& [text, conversion, outcome] : kCases) {
    EXPECT_EQ(Outcome(text, *conversion), outcome) << text;
  }
}

TEST(WordScanner, WordsOfAnyLengthAndBytes) {
  const std::string longWord(200000, 'w');
  EXPECT_EQ(Outcome("\xB0\xA1\0b \v"s + longWord + "\f", '-'), "-|\xB0\xA1\0b|"s + longWord);
  std::string word = "as it was";
  EXPECT_FALSE(WordScanner(" \n").ReadWord(&word));
  EXPECT_EQ(word, "as it was");
}

// Gives the process a locale with a decimal comma, built on the spot, as the numbers of a program
// must not follow it; std::setlocale(LC_NUMERIC, "C") takes it back. False if this machine has no
// means to build it.
bool UseCommaLocale() {
  const TempDir folder;
  const auto source = folder.Put("comma.src",
                                 "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                                 "grouping 3;3\nEND LC_NUMERIC\n");
  // It warns of the other parts of a locale, which are missing on purpose.
  const std::string command = "localedef --no-archive --quiet -c -i " + source.string() + " " +
                              (folder / "comma").string() + " 2>/dev/null";
  if (std::system(command.c_str()) == -1) return false;
  setenv("LOCPATH", folder.Path().c_str(), 1);
  const bool isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  unsetenv("LOCPATH");
  return isSet;
}

TEST(Numbers, HaveADecimalPointInEveryLocale) {
  if (!UseCommaLocale()) GTEST_SKIP() << "no localedef here";
  EXPECT_EQ(Format("%.2f", 1234.5), "1234.50");
  EXPECT_EQ(Format("%s %.1f", std::string(300, 'x').c_str(), 0.5), std::string(300, 'x') + " 0.5");
  EXPECT_EQ(ShortestFloat(0.5f), "0.5");
  EXPECT_EQ(TextToDouble("1,5"), 1);
  EXPECT_EQ(TextToDouble("inf") + TextToDouble("-nan") + TextToDouble("0x1.8"), 0);
  EXPECT_EQ(TextToDouble("1.5e400"), HUGE_VAL);
  EXPECT_EQ(Outcome("2.25 1,5", 'f'), "0x1.2p+1|1,5");
  EXPECT_EQ(std::atof("1,5"), 1.5) << "the locale is not in force, or Format did not put it back";
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace
}  // namespace tvx
