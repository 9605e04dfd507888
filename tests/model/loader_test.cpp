#include "model/loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "model/block_list.h"
#include "model/one_page_memory.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

struct Shop {
  MemoryFiles files;
  ScriptedUi ui;
  NcProgram program;
  ParserStates states;
  JobRecord job;

  int Load(const std::string& text) {
    files.Put("c:\\a.nc", text);
    return LoadNcFile("c:\\a.nc", &program, &states, &job, &files, &ui);
  }
  std::string Blocks() const { return BlockList(program.store); }
};

TEST(Loader, EachLineLeavesItsBlocks) {
  const struct {
    const char* name;
    std::string text;
    const char* blocks;
    int32_t feedBase;
  } cases[] = {
      {"every kind", "%\nG00 X1\nG02 X2 Y1 I1 J0\nG01 X3 F100\nM30\n",
       "none; rapidStart 1 0 0 F100; cw 2 1 0 F100; centre 1 0 0 F100; cutStart 3 1 0 F100; none",
       100},
      {"empty file", "", "", 0},
      {"last line without a line feed", "G01 X1 F300\nX2", "cutStart 1 0 0 F300", 300},
      {"first move is an arc", "\nG02 X2 I1 J0\n", "none; rapidStart 2 0 0 F100; centre 1 0 0 F100",
       0},
      {"rapids give no base", "G00 X1 F9000\nG01 X2 F200\nX3 F150\n",
       "rapidStart 1 0 0 F9000; cutStart 2 0 0 F200; cutStart 3 0 0 F150", 200},
      {"helix", "G01 Z-1\nG03 X2 I1 J0 Z-2\n",
       "cutStart 0 0 -1 F100; ccw 2 0 -2 F100; centre 1 0 -2 F100", 100},
      {"a record beyond the limit is repaired while the base is found",
       "G01 X1 F100\nX40000 F900\n", "cutStart 1 0 0 F100; none", 100},
  };
  for (const auto& c : cases) {
    Shop shop;
    EXPECT_EQ(shop.Load(c.text), 1) << c.name;
    EXPECT_EQ(shop.Blocks(), c.blocks) << c.name;
    EXPECT_EQ(shop.program.FeedBase, c.feedBase) << c.name;

    Shop crlf;
    std::string text;
    for (const char ch : c.text) text += ch == '\n' ? std::string("\r\n") : std::string(1, ch);
    EXPECT_EQ(crlf.Load(text), 1) << c.name;
    EXPECT_EQ(crlf.Blocks(), c.blocks) << c.name << ", CR LF";
  }
}

TEST(Loader, LinesLongerThanTheParserLine) {
  const std::string pad79(73, ' ');  // "G01 X5" + 73 blanks + CR = 80
  Shop shop;
  EXPECT_EQ(shop.Load("G01 X5" + pad79 + "\r\nX6" + std::string(79, ' ') + "\nY1\n"), 1);
  EXPECT_EQ(shop.Blocks(), "cutStart 5 0 0 F100; none; cut 5 1 0 F100");

  Shop conversational;
  conversational.job.InputFileType = 2;
  EXPECT_EQ(conversational.Load("L X5 F500" + std::string(300, ' ') + "Y7\n"), 1);
  EXPECT_EQ(conversational.Blocks(), "cutStart 5 0 0 F500");
}

TEST(Loader, LinesOfAnyLengthAcrossReads) {
  // Lines that start and end at every place of a read, among them one of many reads.
  std::string text, blocks;
  for (int i = 1; i <= 60000; ++i) {
    text += "G01 X" + std::to_string(i % 30000) + " Y" + std::to_string(i) + "\n";
  }
  text += std::string(3 << 20, 'X') + "\nG01 X1 Y1\n";
  Shop shop;
  ASSERT_EQ(shop.Load(text), 1);
  ASSERT_EQ(shop.program.store.blockCount, 60002U);
  for (int i = 1; i <= 60000; ++i) {
    const MotionBlock* block = shop.program.store.Peek(static_cast<uint32_t>(i - 1));
    ASSERT_EQ(block->x, static_cast<float>(i % 30000)) << i;
    ASSERT_EQ(block->y, static_cast<float>(i)) << i;
  }
  EXPECT_EQ(shop.program.store.Peek(60001)->x, 1);
}

TEST(Loader, LineEndsAndCommentsAtEveryPlaceOfALine) {
  std::string text = "G01\n", blocks = "none";
  for (int n = 0; n < 100; ++n) {
    const std::string x = "X" + std::to_string(n + 1);
    const std::string move = x + std::string(static_cast<size_t>(n), ' ');
    text.append(move).append("\n").append(move).append("(Y9\n").append(move).append("#\n");
    const bool isCut = move.size() > 80;
    blocks += isCut ? "; none" : "; cut " + std::to_string(n + 1) + " 0 0 F100";
    blocks += "; none; none";
  }
  Shop shop;
  EXPECT_EQ(shop.Load(text), 1);
  EXPECT_EQ(shop.Blocks(), blocks);
}

// Files that are read a few bytes at a time.
class SlowFiles final : public MemoryFiles {
 public:
  explicit SlowFiles(size_t bytes) : bytes_(bytes) {}

  std::unique_ptr<InputFile> OpenOrCreateForReading(const std::string& path) override {
    return std::make_unique<SlowFile>(MemoryFiles::OpenOrCreateForReading(path), bytes_);
  }

 private:
  struct SlowFile final : InputFile {
    SlowFile(std::unique_ptr<InputFile> whole, size_t most) : file(std::move(whole)), bytes(most) {}
    size_t Read(char* buffer, size_t size) override {
      return file->Read(buffer, std::min(size, bytes));
    }
    std::unique_ptr<InputFile> file;
    size_t bytes;
  };

  size_t bytes_;
};

TEST(Loader, SmallReadsGiveTheSameBlocks) {
  const std::string text = "%\r\nG01 X1.25 F300\r\n(" + std::string(400, 'X') +
                           ")\r\nX2 Y-3.5\r\nX3" + std::string(300, ' ') + "\r\nG02 X4 I0.5 J0\nX9";
  Shop shop;
  ASSERT_EQ(shop.Load(text), 1);
  for (const size_t bytes : std::initializer_list<size_t>{1, 2, 7, 32, 33, 81, 255, 256, 300}) {
    SlowFiles files(bytes);
    files.Put("c:\\a.nc", text);
    Shop slow;
    EXPECT_EQ(LoadNcFile("c:\\a.nc", &slow.program, &slow.states, &slow.job, &files, &slow.ui), 1);
    EXPECT_EQ(slow.Blocks(), shop.Blocks()) << bytes;
    EXPECT_EQ(slow.program.FeedBase, 300);
  }
}

TEST(Loader, ModalStateLastsFromFileToFile) {
  Shop shop;
  shop.Load("G00 X1\nG91 X1\n");
  // The second file starts in absolute mode at the raw words of the last line.
  shop.Load("X5\nG01 X6 F300\n");
  EXPECT_EQ(shop.Blocks(), "rapidStart 5 0 0 F100; cutStart 6 0 0 F300");
  EXPECT_EQ(shop.program.incrementalMode, 0U);
  shop.Load("X7\n");
  EXPECT_EQ(shop.Blocks(), "cut 7 0 0 F100") << "and at the feed of 100";
}

TEST(Loader, FilesThatCannotBeRead) {
  Shop shop;
  shop.Load("G01 X1\n");
  EXPECT_EQ(LoadNcFile("c:\\new.nc", &shop.program, &shop.states, &shop.job, &shop.files, &shop.ui),
            1);
  EXPECT_TRUE(shop.files.Exists("c:\\new.nc")) << "created empty";
  EXPECT_EQ(shop.program.store.blockCount, 0U);
  EXPECT_TRUE(shop.ui.messages.empty());

  shop.Load("G01 X1\n");
  shop.program.firstPoint = 0;
  EXPECT_EQ(
      LoadNcFile("c:\\no\\such.nc", &shop.program, &shop.states, &shop.job, &shop.files, &shop.ui),
      0);
  EXPECT_EQ(shop.program.store.blockCount, 0U);
  EXPECT_EQ(shop.program.firstPoint, 1);
  ASSERT_EQ(shop.ui.messages.size(), 1U);
  EXPECT_EQ(shop.ui.messages[0].text, "화일을 열수 없읍니다.\n");
  EXPECT_EQ(shop.ui.messages[0].caption, "Error message");
  EXPECT_EQ(shop.ui.messages[0].icon, MessageIcon::kInformation);
}

// A store of one page of 2041 blocks.
struct SmallShop {
  MemoryFiles files;
  ScriptedUi ui;
  OnePageMemory memory;
  NcProgram program{BlockStore(&memory)};
  ParserStates states;
  JobRecord job;
};

TEST(Loader, BlocksWithoutRoomAreLostAndTheLoadGoesOn) {
  SmallShop shop;
  std::string text = "G01\n";
  for (int i = 1; i <= 2050; ++i) text += "X" + std::to_string(i) + "\n\n";
  shop.files.Put("c:\\a.nc", text);
  EXPECT_EQ(LoadNcFile("c:\\a.nc", &shop.program, &shop.states, &shop.job, &shop.files, &shop.ui),
            1);
  EXPECT_EQ(shop.program.store.blockCount, 2041U);
  EXPECT_EQ(shop.states.word.savedPos.x, 2050) << "the rest was parsed";
}

TEST(Loader, AnArcWithoutRoomForItsCentreEndsTheLoad) {
  SmallShop shop;
  std::string text(2040, '\n');
  text += "G02 X2 I1 J0\nG01 X5\n";
  shop.files.Put("c:\\a.nc", text);
  EXPECT_EQ(LoadNcFile("c:\\a.nc", &shop.program, &shop.states, &shop.job, &shop.files, &shop.ui),
            0);
  EXPECT_EQ(shop.states.word.savedPos.x, 2);
  EXPECT_EQ(shop.program.store.blockCount, 2042U);
  Vec3 low, high;
  EXPECT_EQ(PathExtents(&shop.program.store, &low, &high), 1) << "a walk over it is safe";
}

}  // namespace
}  // namespace tvx
