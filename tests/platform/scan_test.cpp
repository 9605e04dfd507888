#include "platform/scan.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(WordScanner, TakesWordsAndNumbersInTurn) {
  WordScanner scanner(" MaxFeed\t2000\r\nSideWeight30 0.7 x");
  std::string word;
  int32_t whole = 0;
  float real = 0;
  EXPECT_TRUE(scanner.ReadWord(&word));
  EXPECT_EQ(word, "MaxFeed");
  EXPECT_TRUE(scanner.ReadInt(&whole));
  EXPECT_EQ(whole, 2000);
  EXPECT_TRUE(scanner.ReadWord(&word));
  EXPECT_TRUE(scanner.ReadFloat(&real));
  EXPECT_EQ(real, 0.7f);
  EXPECT_FALSE(scanner.ReadFloat(&real));
  EXPECT_TRUE(scanner.ReadWord(&word));
  EXPECT_EQ(word, "x");
  EXPECT_FALSE(scanner.ReadWord(&word));
}

}  // namespace
}  // namespace tvx
