// The map between lines and blocks.
#include "model/line_map.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "model/test_load.h"

namespace tvx {
namespace {

struct Text {
  std::string bytes;
  std::vector<uint32_t> blocks;  // number of blocks that each line leaves

  void Add(const std::string& line, uint32_t count) {
    bytes += line;
    blocks.push_back(count);
  }
};

// Lines of all kinds; `arcs` of a thousand lines are arcs, and one in nine of these is repaired
// after the load.
Text RandomText(unsigned seed, int lines, unsigned arcs) {
  std::mt19937 random(seed);
  const std::string kNoMoves[] = {"\n", "\r\n", "(" + std::string(300, 'x') + ")\r\n",
                                  "X5" + std::string(79, ' ') + "\n", "M8\r\n"};
  Text text;
  for (int i = 0; i < lines; ++i) {
    const std::string x = std::to_string(i % 1000);
    if (random() % 1000 < arcs) {
      text.Add("G2 X" + x + (random() % 9 == 0 ? " Z40000" : "") + " I3\r\nG1\n", 2);
      text.blocks.push_back(1);
    } else if (random() % 3 == 0) {
      text.Add(kNoMoves[random() % std::size(kNoMoves)], 1);
    } else {
      text.Add("G1 X" + x + " Y" + std::to_string(i) + "\n", 1);
    }
  }
  return text;
}

TEST(LineMap, FindsEveryLineAndBlockInAtMostOneBitForEachBlock) {
  for (const unsigned arcs : {0U, 1U, 55U, 60U, 65U, 500U, 1000U}) {
    const Text text = RandomText(arcs, 12'000, arcs);
    TestLoad loaded;
    ASSERT_EQ(loaded.Load(text.bytes), StatusKind::kOk);
    const LineMap& map = loaded.program.source.lines;
    uint32_t block = 0, wrong = 0;
    for (uint32_t line = 0; line < text.blocks.size(); ++line) {
      wrong += map.FirstBlockOf(line + 1) != block;
      for (uint32_t i = 0; i < text.blocks[line]; ++i) wrong += map.LineOf(block++) != line + 1;
    }
    EXPECT_EQ(wrong, 0U) << arcs;
    EXPECT_EQ(loaded.program.store.blockCount, block);
    EXPECT_EQ(map.LineOf(block), 0U);
    EXPECT_EQ(map.FirstBlockOf(0), std::nullopt);
    EXPECT_EQ(map.FirstBlockOf(text.blocks.size() + 1), std::nullopt);
    EXPECT_LE(map.Bytes() * 8, block) << arcs;
  }
}

TEST(LineMap, LinesBehindAFullStoreHaveNoBlock) {
  OnePageMemory memory;
  std::string text;
  for (int i = 1; i <= 3000; ++i) text += "G1 X" + std::to_string(i) + "\n";
  TestLoad loaded{.program = {.store = BlockStore(&memory)}};
  loaded.Load(text);
  EXPECT_EQ(loaded.program.source.lines.FirstBlockOf(2041), 2040U);
  EXPECT_EQ(loaded.program.source.lines.FirstBlockOf(2042), std::nullopt);
}

}  // namespace
}  // namespace tvx
