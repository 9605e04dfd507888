#include "feed/master_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "feed_fixture.h"
#include "support/memory_files.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\part.mma";

MasterGrid SmallModel() {
  MasterGrid grid = EmptyGrid(3, 2, 0.5F);
  grid.OriginX = -1;
  grid.OriginY = 2;
  grid.MinZ = -3;
  grid.MaxX = 1.5F;
  grid.MaxY = 1;
  grid.MaxZ = 4;
  grid.ToolSize = 10;
  SetCell(&grid, 1, 0, 1, 0);
  SetCell(&grid, 1, 1, 1.25F, 90);
  SetCell(&grid, 2, 1, -0.5F, 258);
  return grid;
}

// Bytes in hexadecimal words.
std::string FromHex(const std::string& hex) {
  std::string bytes;
  std::istringstream words(hex);
  for (std::string word; words >> word;) {
    for (size_t i = 0; i < word.size(); i += 2)
      bytes += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

// The file of SmallModel, byte for byte.
std::string SmallFile() {
  return std::string(100, '\0') +
         FromHex(
             "000080bf 00000040 000040c0 0000c03f 0000803f 00008040 00002041 0000003f"
             "06000000 03000000 02000000 00000000 01000000 04000000"
             "003c1cc6 0000 0000803f 0000 003c1cc6 0000"
             "003c1cc6 0000 0000a03f 5a00 000000bf 0201");
}

class MasterFile : public testing::Test {
 protected:
  MasterFileResult Read(const std::string& bytes) {
    files.Put(kPath, bytes);
    return ReadMasterFile(kPath, &grid, &files);
  }
  std::string Written() {
    EXPECT_EQ(WriteMasterFile(kPath, grid, &files), MasterFileResult::kDone);
    return files.Bytes(kPath);
  }

  MemoryFiles files;
  MasterGrid grid = SmallModel();
};

TEST_F(MasterFile, HoldsTheModelByteForByte) {
  EXPECT_EQ(Written(), SmallFile());
  std::string bytes = SmallFile();
  // The reserved bytes may hold anything.
  for (const size_t reserved : {0, 99, 145, 153}) bytes[reserved] = 'x';
  grid = MasterGrid();
  ASSERT_EQ(Read(bytes), MasterFileResult::kDone);
  EXPECT_EQ(grid.Cells[4].x, kNoHeight);
  EXPECT_EQ(Written(), SmallFile());
}

TEST_F(MasterFile, HoldsALargeModel) {
  grid = EmptyGrid(201, 150, 0.3F);
  for (int32_t i = 0; i < 201 * 150; ++i) {
    SetCell(&grid, i % 201, i / 201, static_cast<float>(i) * 0.7F, i % 91);
  }
  const std::string bytes = Written();
  grid = SmallModel();
  ASSERT_EQ(Read(bytes), MasterFileResult::kDone);
  EXPECT_EQ(Written(), bytes);
  EXPECT_EQ(grid.At(0, 50).z, 10050 * 0.7F);  // of the second piece in which cells pass
  EXPECT_EQ(grid.At(0, 50).angle, 10050 % 91);
}

template <typename T>
std::string With(size_t offset, T value) {
  std::string bytes = SmallFile();
  for (size_t i = 0; i < sizeof(T); ++i) bytes[offset + i] = reinterpret_cast<char*>(&value)[i];
  return bytes;
}

TEST_F(MasterFile, RefusesWhatIsNoMasterFile) {
  std::string negativeCounts = With(136, -3);
  negativeCounts.replace(140, 4, "\xfe\xff\xff\xff");
  std::string noCells = With(132, 0).substr(0, 156);
  noCells.replace(136, 8, 8, '\0');
  // 65536 x 65536 cells: as a 32-bit number, none.
  std::string overflow = noCells;
  overflow[138] = overflow[142] = 1;
  const struct {
    const char* about;
    std::string bytes;
  } cases[] = {
      {"nothing", ""},
      {"one byte", "x"},
      {"the reserved bytes only", SmallFile().substr(0, 100)},
      {"a header cut off", SmallFile().substr(0, 155)},
      {"a header only", SmallFile().substr(0, 156)},
      {"a cell cut off", SmallFile().substr(0, 191)},
      {"one byte too many", SmallFile() + "x"},
      {"a count that does not fit the sides", With(132, 7)},
      {"the same with the bytes for it", With(132, 7) + "123456"},
      {"sides that do not fit the count", With(136, 2)},
      {"negative sides", negativeCounts},
      {"no cells", noCells},
      {"more cells than a count can hold", overflow},
      {"a huge count", With(132, 0x7fffffff)},
      {"origin is no number", With(100, std::nanf(""))},
      {"endless origin", With(104, HUGE_VALF)},
      {"endless tool", With(124, -HUGE_VALF)},
      {"no cell size", With(128, 0.0F)},
      {"negative cell size", With(128, -0.5F)},
      {"cell size is no number", With(128, std::nanf(""))},
      {"endless height", With(156 + 6, HUGE_VALF)},
      {"the last height is no number", With(186, std::nanf(""))},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.bytes), MasterFileResult::kNoMasterFile) << c.about;
    EXPECT_EQ(grid.CellCount, 6) << c.about;
    EXPECT_EQ(grid.At(1, 1).angle, 90) << c.about;
  }
  files.Remove(kPath);
  EXPECT_EQ(ReadMasterFile(kPath, &grid, &files), MasterFileResult::kCannotOpen);
  EXPECT_FALSE(files.Exists(kPath));
}

TEST_F(MasterFile, RefusesWithoutMemory) {
  allocationsLeft = 1;
  grid = MasterGrid(AllocateWhileAllowed);
  ASSERT_EQ(Read(SmallFile()), MasterFileResult::kDone);
  EXPECT_EQ(Read(SmallFile()), MasterFileResult::kNoMemory);
  EXPECT_EQ(grid.CellCount, 6);
}

TEST_F(MasterFile, FailedWriteKeepsTheOlderFile) {
  const std::function<void(MemoryFiles*)> faults[] = {
      [](MemoryFiles* f) { f->RefuseWrite(1); },
      [](MemoryFiles* f) { f->RefuseWrite(2); },
      [](MemoryFiles* f) { f->RefuseCommit(1); },
      [](MemoryFiles* f) { f->RefuseCreation(kPath); },
  };
  files.Put(kPath, "older");
  for (const auto& fault : faults) {
    fault(&files);
    EXPECT_EQ(WriteMasterFile(kPath, grid, &files), MasterFileResult::kCannotWrite);
    EXPECT_EQ(files.Bytes(kPath), "older");
  }
  EXPECT_EQ(WriteMasterFile("c:\\new.mma", MasterGrid(), &files), MasterFileResult::kNoModel);
  EXPECT_FALSE(files.Exists("c:\\new.mma"));
}

}  // namespace
}  // namespace tvx
