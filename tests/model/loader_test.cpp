#include "model/loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "model/block_list.h"
#include "model/one_page_memory.h"
#include "model/walks.h"
#include "support/memory_files.h"

namespace tvx {
namespace {

struct Shop {
  explicit Shop(PageMemory* memory = ProcessPageMemory()) : program{BlockStore(memory)} {}

  NcProgram program;
  ParserStates states;
  JobRecord job;

  LoadResult Load(const std::string& text, MemoryFiles* files,
                  const std::string& path = "c:\\a.nc") {
    if (!text.empty()) files->Put(path, text);
    return LoadNcFile(path, &program, &states, &job, files);
  }
  LoadResult Load(const std::string& text) {
    MemoryFiles files;
    return Load(text, &files);
  }
  std::string Blocks() const { return BlockList(program.store); }
};

// Lines that start and end at every place of a read, among them one of many reads.
TEST(Loader, LinesOfAnyLengthAcrossReads) {
  std::string text;
  for (int i = 1; i <= 60000; ++i) {
    text += "G01 X" + std::to_string(i % 30000) + " Y" + std::to_string(i) + "\n";
  }
  text += std::string(3 << 20, 'X') + "\nG01 X1 Y1\n";
  Shop shop;
  ASSERT_EQ(shop.Load(text), LoadResult::kLoaded);
  ASSERT_EQ(shop.program.store.blockCount, 60002U);
  for (uint32_t i = 1; i <= 60000; ++i) {
    const MotionBlock* block = shop.program.store.Peek(i - 1);
    ASSERT_EQ(block->x, static_cast<float>(i % 30000)) << i;
    ASSERT_EQ(block->y, static_cast<float>(i)) << i;
  }
  EXPECT_EQ(shop.program.store.Peek(60001)->x, 1);
}

TEST(Loader, LineEndsAndCommentsAtEveryPlaceOfALine) {
  std::string text = "G01\n", blocks = "none";
  for (int n = 0; n < 100; ++n) {
    const std::string x = std::to_string(n + 1);
    const std::string move = "X" + x + std::string(static_cast<size_t>(n), ' ');
    text.append(move).append("\n").append(move).append("(Y9\n").append(move).append("#\n");
    blocks += (move.size() > 80 ? "; none" : "; cut " + x + " 0 0 F100") + "; none; none";
  }
  Shop shop;
  EXPECT_EQ(shop.Load(text), LoadResult::kLoaded);
  EXPECT_EQ(shop.Blocks(), blocks);
}

// Files that are read a few bytes at a time.
struct SlowFiles : MemoryFiles {
  struct SlowFile : InputFile {
    size_t Read(char* buffer, size_t size) override {
      return whole->Read(buffer, std::min(size, most));
    }
    std::unique_ptr<InputFile> whole;
    size_t most = 0;
  };

  std::unique_ptr<InputFile> OpenOrCreateForReading(const std::string& path) override {
    auto slow = std::make_unique<SlowFile>();
    slow->whole = MemoryFiles::OpenOrCreateForReading(path);
    slow->most = bytes;
    return slow;
  }
  size_t bytes = 0;
};

TEST(Loader, SmallReadsGiveTheSameBlocks) {
  const std::string text = "%\r\nG01 X1.25 F300\r\n(" + std::string(400, 'X') +
                           ")\r\nX2 Y-3.5\r\nX3" + std::string(300, ' ') + "\r\nG02 X4 I0.5 J0\nX9";
  Shop shop;
  ASSERT_EQ(shop.Load(text), LoadResult::kLoaded);
  for (const size_t bytes : {1U, 2U, 7U, 32U, 33U, 81U, 255U, 256U, 300U}) {
    SlowFiles files;
    files.bytes = bytes;
    Shop slow;
    EXPECT_EQ(slow.Load(text, &files), LoadResult::kLoaded);
    EXPECT_EQ(slow.Blocks(), shop.Blocks()) << bytes;
    EXPECT_EQ(slow.program.FeedBase, 300);
  }
}

TEST(Loader, FilesThatCannotBeRead) {
  MemoryFiles files;
  Shop shop;
  shop.Load("G01 X1\n");
  EXPECT_EQ(shop.Load("", &files, "c:\\new.nc"), LoadResult::kLoaded);
  EXPECT_TRUE(files.Exists("c:\\new.nc")) << "created empty";
  EXPECT_EQ(shop.program.store.blockCount, 0U);

  shop.Load("G01 X1\n");
  shop.program.firstPoint = 0;
  EXPECT_EQ(shop.Load("", &files, "c:\\no\\such.nc"), LoadResult::kCannotOpen);
  EXPECT_EQ(shop.program.store.blockCount, 0U);
  EXPECT_EQ(shop.program.firstPoint, 1);
}

TEST(Loader, BlocksWithoutRoomAreLostAndTheLoadGoesOn) {
  OnePageMemory memory;  // of 2041 blocks
  Shop shop(&memory);
  std::string text = "G01\n";
  for (int i = 1; i <= 2050; ++i) text += "X" + std::to_string(i) + "\n\n";
  EXPECT_EQ(shop.Load(text), LoadResult::kLoaded);
  EXPECT_EQ(shop.program.store.blockCount, 2041U);
  EXPECT_EQ(shop.states.word.savedPos.x, 2050) << "the rest was parsed";
}

TEST(Loader, AnArcWithoutRoomForItsCentreEndsTheLoad) {
  OnePageMemory memory;  // of 2041 blocks
  Shop shop(&memory);
  EXPECT_EQ(shop.Load(std::string(2040, '\n') + "G02 X2 I1 J0\nG01 X5\n"), LoadResult::kStoreFull);
  EXPECT_EQ(shop.states.word.savedPos.x, 2);
  EXPECT_EQ(shop.program.store.blockCount, 2042U);
  Vec3 low, high;
  EXPECT_EQ(PathExtents(&shop.program.store, &low, &high), 1) << "a walk over it is safe";
}

}  // namespace
}  // namespace tvx
