// Loads: results, full stores, reads of any size.
#include "model/loader.h"

#include <gtest/gtest.h>

#include "model/test_load.h"
#include "model/walks.h"

namespace tvx {
namespace {

// Lines that start and end at every place of a read, and one of many reads.
TEST(Loader, LinesOfAnyLengthAcrossReads) {
  constexpr int kLines = 30000;
  std::string text;
  for (int i = 1; i <= kLines; ++i) text += "G01 X" + std::to_string(i) + " Y0.5\n";
  TestLoad load;
  load.Load(text + text + std::string(3 << 20, 'X') + "\nX1\n");
  ASSERT_EQ(load.program.store.blockCount, 2 * kLines + 2U);
  for (uint32_t i = 0; i < 2 * kLines; ++i) {
    ASSERT_EQ(load.program.store.Peek(i)->x, static_cast<float>(i % kLines + 1)) << i;
  }
  EXPECT_EQ(load.program.store.Peek(2 * kLines + 1)->x, 1);
}

TEST(Loader, LineEndsAndCommentsAtEveryPlaceOfALine) {
  std::string text = "G01\n", blocks = "none";
  for (size_t n = 0; n < 100; ++n) {
    const std::string x = std::to_string(n + 1);
    const std::string move = "X" + x + std::string(n, ' ');
    text.append(move).append("\n").append(move).append("(Y9\n").append(move).append("#\n");
    blocks += (move.size() > 80 ? "; none" : "; cut " + x + " 0 0 F100") + "; none; none";
  }
  TestLoad load;
  load.Load(text);
  EXPECT_EQ(load.Blocks(), blocks);
}

TEST(Loader, SmallReadsGiveTheSameBlocks) {
  const std::string text = "%\r\nG01 X1.25 F300\r\n(" + std::string(400, 'X') +
                           ")\r\nX2 Y-3.5\r\nX3" + std::string(300, ' ') + "\r\nG02 X4 I0.5 J0\nX9";
  TestLoad load;
  load.Load(text);
  for (const size_t bytes : {1U, 2U, 7U, 32U, 33U, 81U, 255U, 256U, 300U}) {
    MemoryFiles files;
    files.mostBytesOfARead = bytes;
    TestLoad slow;
    EXPECT_EQ(slow.Load(text, &files), StatusKind::kOk);
    EXPECT_EQ(slow.Blocks(), load.Blocks()) << bytes;
    EXPECT_EQ(slow.program.FeedBase, 300);
  }
}

TEST(Loader, FailedReadKeepsWhatCameBeforeAndIsNoEnd) {
  const struct {
    int failing;  // read; 0 for none
    StatusKind result;
    uint32_t blocks;
  } cases[] = {{0, StatusKind::kOk, 4},
               {1, StatusKind::kReadFailed, 0},
               {3, StatusKind::kReadFailed, 2},
               {5, StatusKind::kReadFailed, 4}};
  for (const auto& [failing, result, blocks] : cases) {
    MemoryFiles files;
    files.mostBytesOfARead = 7;
    files.RefuseRead(failing);
    TestLoad load;
    EXPECT_EQ(load.Load("G01 X1\nG01 X2\nG01 X3\nG01 X4\n", &files), result) << failing;
    EXPECT_EQ(load.program.store.blockCount, blocks);
    EXPECT_EQ(load.program.isIncomplete, failing != 0);
  }
}

TEST(Loader, EmptyFileAndMissingFileEmptyTheProgram) {
  MemoryFiles files;
  TestLoad load;
  const auto loadPath = [&](const char* path) {
    load.Load("G01 X1\n");
    load.program.firstPoint = 0;
    return LoadNcFile(path, &load.program, &load.states, &load.job, &files).kind();
  };
  files.Put("c:\\new.nc", "");
  EXPECT_EQ(loadPath("c:\\new.nc"), StatusKind::kOk);
  EXPECT_EQ(load.program.store.blockCount, 0U);
  EXPECT_EQ(loadPath("c:\\none.nc"), StatusKind::kMissing);
  EXPECT_FALSE(files.Exists("c:\\none.nc"));
  EXPECT_EQ(load.program.store.blockCount, 0U);
  EXPECT_EQ(load.program.firstPoint, 1);
  EXPECT_EQ(load.program.store.CurrentBlock.type, BlockNone);
}

TEST(Loader, FullStoreLosesBlocksAndEndsAtAnArcWithoutItsCentre) {
  OnePageMemory memory;  // of 2041 blocks
  TestLoad load{.program{.store = BlockStore(&memory)}};
  std::string text = "G01\n";
  for (int i = 1; i <= 2050; ++i) text += "X" + std::to_string(i) + "\n\n";
  EXPECT_EQ(load.Load(text), StatusKind::kBlocksLost);
  EXPECT_EQ(load.program.store.blockCount, 2041U);
  EXPECT_EQ(load.program.lostBlocks, 4101U - 2041U);
  EXPECT_TRUE(load.program.isIncomplete) << "there is no memory, but room in the store";
  EXPECT_EQ(memory.Tries(), 2);
  EXPECT_EQ(load.states.word.savedPos.x, 2050) << "the rest was parsed";

  EXPECT_EQ(load.Load(std::string(2040, '\n') + "G02 X2 I1 J0\nG01 X5\n"), StatusKind::kStoreFull);
  EXPECT_EQ(load.states.word.savedPos.x, 2);
  EXPECT_EQ(load.program.store.blockCount, 2042U);
  Vec3 low, high;
  EXPECT_EQ(PathExtents(&load.program.store, &low, &high), 1) << "a walk over it is safe";
}

}  // namespace
}  // namespace tvx
