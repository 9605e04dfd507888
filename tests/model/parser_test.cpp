// The rules of both line formats, and number tokens against the C library.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "base/format.h"
#include "model/number_token.h"
#include "model/test_load.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

struct ProgramCase {
  const char* program;
  const char* blocks;  // type and end point, and the feed where it changes
};

const ProgramCase kWordAddress[] = {
    // Runs of rapids and cuts.
    {"G0X10Y10\nG1Z-5F300\nG1X20\nY20F500\nY20\nG0Z9\nX0\nG0X5\nG1X6",
     "1 10 10 0; 3 10 10 -5 F300; 4 20 10 -5; 3 20 20 -5 F500; 0; 1 20 20 9; 2 0 20 9; 2 5 20 9; "
     "3 6 20 9"},
    // F chooses cut or rapid for its own line.
    {"G0X1\nX2F300\nX3\nG1X4F5000\nX5\nX6F4999\nF6000G1X7",
     "1 1 0 0; 3 2 0 0 F300; 2 3 0 0; 1 4 0 0 F5000; 4 5 0 0; 3 6 0 0 F4999; 3 7 0 0 F6000"},
    // No type before the first G word.
    {"X1\nX2F300\nG54X3\nG1X4", "0; 0 F300; 0; 3 4 0 0"},
    // I and J are modal until a G word; an arc needs no words.
    {"G2X10I5J0\nX0\nM8\nG2X0I4\nG3J-4\nI9J9X\nX1F400\nX2F5000\nG4X4\nG0",
     "1 10 0 0; 101 5 0 0; 8 0 0 0; 101 5 0 0; 8 0 0 0; 101 5 0 0; 8 0 0 0; 101 4 0 0; 6 0 0 0; "
     "101 0 -4 0; 0; 6 1 0 0 F400; 101 0 -4 0; 1 2 0 0 F5000; 6 4 0 0; 101 0 -4 0; 0"},
    // R uses the words before it.
    {"G2X10R5\nG2R5X20\nG3X10R5\nX16G2R-5\nX10Y6R-5\nG1R3X9\nG2X9",
     "1 10 0 0; 101 5 0 0; 8 20 0 0; 101 -5 -0.00005 0; 6 10 0 0; 101 -5 0 0; 8 16 0 0; "
     "101 3 4 0; 8 10 6 0; 101 -4.8708286 1.1291711 0; 3 9 6 0; 8 9 6 0; 101 0 0 0"},
    // G90 and G91 drop the coordinates before them.
    {"G1X10Y5\nG91X1\nX0\nX3G91Y1Z-2\nG2X10R5\nI-5\nG1X9G90Y1\nX0",
     "3 10 5 0; 4 11 5 0; 0; 4 11 6 -2; 8 21 6 -2; 101 5 0 -2; 8 21 6 -2; 101 -5 0 -2; "
     "3 21 1 -2; 4 0 1 -2"},
    // G90 returns to the last position.
    {"G91G1X5\nG90\nX5Y5", "3 5 0 0; 0; 4 5 5 0"},
    // A G number is truncated.
    {"G91.1X1\nG1.9X1\nG-1X1\nG04X9\nG90.5X9", "0; 3 2 0 0; 4 3 0 0; 4 12 0 0; 4 9 0 0"},
    // Odd numbers.
    {"G1X2.5.7\nX-.5\nX--3Y1\nX1-2\nX1.\nX00000000000000012.9Y3\nF99999999999X4",
     "3 2.5 0 0; 4 -0.5 0 0; 4 0 1 0; 4 1 1 0; 0; 4 12.9 3 0; 1 4 3 0 F2147483647"},
    // A letter without a number acts as 0, and its line is invalid.
    {"G1X5Y5\nX-\nX+3\nX 4\nXF300\nG0X9F\nX9\nIX3\nGX1\nX8R\nX7",
     "3 5 5 0; 4 0 5 0; 0; 0; 0 F300; 0 F0; 2 9 5 0; 0; 0; 0; 2 7 5 0"},
    // Text that ends or drops a line.
    {"G0X1\nX2cX9\nX3(X4)\nX4#1\nG1Y1 S T r K5 %", "1 1 0 0; 0; 0; 0; 3 1 1 0"},
    // Lower-case letters other than g and r.
    {"g1x1y2z-3f150.9r9\nG2i4j5\nF-9.9X1",
     "0 F150; 1 1 2 -3; 101 4 5 -3; 8 1 2 -3 F-9; 101 4 5 -3"},
};

const ProgramCase kConversational[] = {
    // A program.
    {"1 BLK FORM 0.1 Z X+0\n3 TOOL CALL 1 Z\n5 L X10 Y0 F500\n6 L X20\n7 CC X20 Y10\n"
     "8 C X30 Y10 DR+\n9 L X30 Y20\n10 CR X40 Y20 R+5 DR-\n12 END PGM 1 MM",
     "0; 0; 3 10 0 0 F500; 4 20 0 0; 0; 6 30 10 0; 101 0 10 0; 3 30 20 0; 8 40 20 0; 101 5 0 0; 0"},
    // F chooses and latches cut or rapid; so does L after an arc.
    {"L X1\nL X2 F2000\nL X3 F2001\nX4 F2001\nX5 F300\nX6 F200\nCR X8 R1 DR+\nX9 F2000\n"
     "CR X11 R1 DR+\nL X12\nF2001\nCR X14 R1 DR+\nL X15",
     "1 1 0 0; 3 2 0 0 F2000; 1 3 0 0 F2001; 2 4 0 0; 3 5 0 0 F300; 4 6 0 0 F200; 6 8 0 0; "
     "101 1 0 0; 3 9 0 0 F2000; 6 11 0 0; 101 1 0 0; 3 12 0 0; 0 F2001; 6 14 0 0; 101 1 0 0; "
     "1 15 0 0"},
    // Words that drop their line, and some that only look like those.
    {"L X5\nBOOX1\nBNDX1\nBLKX1\nBEGX1\nTNDX1\nTOOX1\nENDX1\nEG X6\nTLKX7\nEOO X8\nTEG X9\n"
     "ELKX10\nBX11\nTX12",
     "1 5 0 0; 0; 0; 0; 0; 0; 0; 0; 2 6 0 0; 2 7 0 0; 2 8 0 0; 2 9 0 0; 2 10 0 0; 2 11 0 0; "
     "2 12 0 0"},
    // No arc without a radius.
    {"C X5 Y5 DR+\nCR X6 R-2 DR-\nX7\nCR X9 R0DR+", "3 5 5 0; 3 6 5 0; 4 7 5 0; 3 9 5 0"},
    // CC gives the radius and keeps an axis that it does not name.
    {"CC X3 Y4\nC X10 DR-\nCC X10\nC X18 DR-\nCC Y6 Z3\nL X20\nTC X1Y1\nECX1\nC X30 DR+",
     "0; 1 10 0 0; 101 5 0 0; 0; 8 18 0 0; 101 4 0 0; 0; 3 20 0 0; 0; 0; 6 30 0 0; "
     "101 5 18.357561 0"},
    // G words; I, J and # are ignored.
    {"G1 X+5 I9 J9\nX6 # Y\nG91 X1 Y+1\nG90 X1\nG X2\nG+1X3\nG91.9X1 (\nX1G91Y2",
     "3 5 0 0; 4 6 0 0; 4 7 1 0; 4 1 0 0; 1 2 0 0; 2 3 0 0; 0; 2 3 2 0"},
    // Two characters after a direction are ignored; R needs a number.
    {"CR X10 R5 DR+RX9Y4\nCR X20 R DR- F300\nCR9X30DR\nDX1\nL X2 D R+9\nX9 DR\nR1 DRX3 Y9\n"
     "DR 1X3Y5",
     "1 10 4 0; 101 5 0 0; 8 20 4 0; 101 5 0 0; 8 30 4 0; 101 5 0 0; 8 1 4 0; 101 5 0 0; "
     "3 2 4 0; 4 9 4 0; 4 9 9 0; 4 9 5 0"},
    // Arcs in incremental mode.
    {"G91\nCR X2 R1 DR-\nL X2\nM8\nCR X2 DR+\nDR+",
     "0; 1 2 0 0; 101 1 0 0; 3 4 0 0; 0; 6 6 0 0; 101 1 0 0; 6 6 0 0; 101 -1 0 0"},
    // A small c keeps the block. L and G are capital; F needs a number.
    {"L X1 F500\nL X2 c Y9\nL Y1\nl g0 x3y4z5f600\nX4 F\nX5 R\nX\nX-+1",
     "3 1 0 0 F500; 4 2 0 0; 4 1 1 0; 4 3 4 5 F600; 4 4 4 5; 4 5 4 5; 4 0 4 5; 0"},
};

const ProgramCase kRapidFeed2000[] = {{"G1X1F2000\nX2F1999", "1 1 0 0 F2000; 3 2 0 0 F1999"}};

const ProgramCase kThousandths[] = {
    {"G1X1500Y-250.F300\nG2X2500Y-250I500J1\nX1500R500\nZ9",
     "3 1.5 -0.25 0 F300; 8 2.5 -0.25 0; 101 0.5 0.001 0; 8 1.5 -0.25 0; 101 -0.5 0 0; "
     "8 1.5 -0.25 0.009; 101 -0.5 0 0.009"},
};

std::string Blocks(const BlockStore& store) {
  std::string text;
  int32_t feed = 100;
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    const MotionBlock& block = *store.Peek(i);
    text += Format("%s%u", i > 0 ? "; " : "", block.type);
    if (block.type != BlockNone) {
      for (const float value : {block.x, block.y, block.z}) text += " " + ShortestFloat(value);
    }
    if (block.feed != feed) text += Format(" F%d", feed = block.feed);
  }
  return text;
}

TEST(Parser, LinesOfBothFormats) {
  const std::pair<const char*, std::span<const ProgramCase>> tables[] = {
      {"", kWordAddress},
      {"RapidFeed=2000 InputFileType=7", kRapidFeed2000},
      {"IntNcdataFlg=1", kThousandths},
      {"InputFileType=2", kConversational},
  };
  for (const auto& [settings, table] : tables) {
    for (const auto& [program, blocks] : table) {
      TestLoad load;
      load.job = Record(settings);
      load.Load(std::string(program) + "\n");
      EXPECT_EQ(Blocks(load.program.store), blocks) << program;
      EXPECT_EQ(load.job.InputFileType, table.data() == kConversational ? 2 : 1);
    }
  }
}

TEST(Parser, RadiusOutlivesTheLoad) {
  TestLoad load;
  load.job.InputFileType = 2;
  load.Load("CR X10 R5 DR-\n");
  load.Load("C X20 DR-\n");
  EXPECT_EQ(Blocks(load.program.store), "1 20 0 0; 101 5 0 0");
}

// At most 19 characters belong to a number.
template <bool plusAllowed>
void ExpectTheCLibrarysNumber(const std::string& text) {
  const char* const characters = plusAllowed ? "0123456789.-+" : "0123456789.-";
  const std::string token =
      text.substr(0, std::min<size_t>(text.find_first_not_of(characters), 19));
  const char* next = text.c_str();
  const NumberToken number = TakeNumber<plusAllowed>(&next);
  EXPECT_EQ(number.empty, token.empty()) << text;
  EXPECT_EQ(Format("%a", number.value), Format("%a", std::atof(token.c_str()))) << text;
  EXPECT_LE(next, text.c_str() + token.size()) << text;
}

TEST(NumberToken, EqualsTheCLibrarysNumber) {
  std::mt19937 random(1);
  for (int i = 0; i < 300000 && !HasFailure(); ++i) {
    std::string text(random() % 24, '0');
    for (char& c : text) c = "0123456789012345678900..-+"[random() % (i % 2 == 0 ? 22 : 26)];
    ExpectTheCLibrarysNumber<false>(text + "X1\n");
    ExpectTheCLibrarysNumber<true>(text + "X1\n");
  }
}

}  // namespace
}  // namespace tvx
