// Source lines: texts, lines of blocks, changed files.
#include "insight/source_lines.h"

#include <gtest/gtest.h>

#include <random>

#include "support/memory_files.h"

namespace tvx {
namespace {

struct Loaded {
  explicit Loaded(const std::string& text, int32_t format = 1) {
    files.Put("c:\\jobs\\a.nc", text);
    files.SetCurrentDirectory("c:\\jobs");
    ParserStates states;
    JobRecord job;
    job.InputFileType = format;
    LoadNcFile("a.nc", &program, &states, &job, &files);
    files.SetCurrentDirectory("z:\\");
  }

  // The texts with "|" between them.
  std::string Texts(uint64_t first, size_t count) {
    const Result<std::vector<std::string>> texts = lines.Read(first, count);
    if (!texts.ok()) return SourceProblem(texts.status).english;
    std::string joined;
    for (const std::string& text : texts.value) joined += (joined.empty() ? "" : "|") + text;
    return joined;
  }

  MemoryFiles files;
  NcProgram program;
  SourceLines lines{&program.source, &files};
};

TEST(SourceLines, ReadsTextsInTheirEncodingsWithoutLineEnds) {
  const std::string half(SourceLines::kLongestText - 1, 'x');
  const struct {
    std::string text;
    uint64_t first;
    size_t count;
    std::string expected;
  } kCases[] = {
      {"G0 X1\r\nG1 X2\n", 1, 9, "G0 X1|G1 X2"},
      {"G0\nG1\nG2", 3, 9, "G2"},
      {"G0\nG1", 3, 9, ""},
      {"", 1, 1, ""},
      {"(\xB0\xA1)\n(\xEA\xB0\x80)\n", 1, 2, "(가)|(가)"},
      {half + "\xEA\xB0\x80\nX1\n", 1, 2, half + "|X1"},
      {std::string(200'000, 'x') + "\nX1\n", 2, 1, "X1"},
  };
  for (const auto& c : kCases) {
    Loaded loaded(c.text);
    EXPECT_EQ(loaded.Texts(c.first, c.count), c.expected) << c.text.substr(0, 80);
  }
}

TEST(SourceLines, FindsLinesAndBlocksOfALongProgram) {
  std::string text;
  for (int i = 1; i <= 20'000; ++i) {
    text += (i % 10 == 0 ? "G2 I" : "G1 Y") + std::to_string(i) + "\n";
  }
  Loaded loaded(text);
  EXPECT_EQ(loaded.lines.Count().value, 20'000U);
  for (const uint32_t line : {1U, 10U, 4095U, 4096U, 4097U, 8192U, 12'289U, 19'990U, 20'000U}) {
    EXPECT_EQ(loaded.Texts(line, 1).substr(4), std::to_string(line));
    const uint32_t block = line - 1 + (line - 1) / 10;
    EXPECT_EQ(loaded.lines.FirstBlockOf(line), block);
    EXPECT_EQ(loaded.lines.LineOf(block), line);
  }
}

// Behind an adjustment every feed of the store is the same.
TEST(SourceLines, ReadsTheProgrammedFeedOfEachBlock) {
  const std::string kLines[] = {"G1 X1 Y2\n",
                                "G2 I5 X2\n",
                                "F%d X3\n",
                                "(F%d X4)\n",
                                "G0 Z9 F9%d\n",
                                "X%d cF%d\n",
                                "L X+1 F%d R0\n",
                                "BLK F%d\n",
                                "G91 f%d\n",
                                "X99999\n",
                                std::string(90, ' ') + "F%d\n",
                                "F\n",
                                "# F%d\n"};
  for (const int32_t format : {1, 2}) {
    std::mt19937 random(7);
    std::string text;
    for (int32_t i = 0; i < 30'000; ++i) {
      std::string line = kLines[i < 5000 ? 0 : random() % std::size(kLines)];
      for (size_t at; (at = line.find("%d")) != line.npos;) line.replace(at, 2, std::to_string(i));
      text += line;
    }
    Loaded loaded(text, format);
    const BlockStore& store = loaded.program.store;
    for (uint32_t block = 0; block < store.blockCount;
         block += 1 + static_cast<uint32_t>(random() % 700)) {
      if (store.Peek(block)->x == BlockStore::kCoordinateLimit) continue;  // repaired
      ASSERT_EQ(loaded.lines.ReadFeed(block).value, store.Peek(block)->feedProgrammed)
          << "format " << format << " " << block;
    }
  }
}

TEST(SourceLines, AFileThatChangedOrVanishedIsSaidSo) {
  Loaded loaded("G0 X1\n");
  EXPECT_EQ(loaded.Texts(1, 1), "G0 X1");
  loaded.files.Put("c:\\jobs\\a.nc", "G0 X2\n");
  EXPECT_EQ(loaded.Texts(1, 1), "the file has changed since it was loaded");
  loaded.files.Remove("c:\\jobs\\a.nc");
  EXPECT_EQ(loaded.Texts(1, 1), "the file cannot be read");
  EmptyProgram(&loaded.program);
  EXPECT_EQ(loaded.Texts(1, 1), "the program comes from no file");
}

}  // namespace
}  // namespace tvx
