#include "feed/master_file.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "feed/master_fixture.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

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

std::string FromHex(std::string_view hex) {
  std::string bytes;
  for (size_t i = 0; i < hex.size(); ++i) {
    if (hex[i] == ' ') continue;
    bytes.push_back(static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
    ++i;
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

struct Reading {
  MemoryFiles files;
  ScriptedUi ui;
  MasterGrid grid;

  int Read() { return ReadMasterFile(kPath, &grid, &files, &ui); }
};

void ExpectCannotOpen(const ScriptedUi& ui, const std::string& about) {
  ASSERT_EQ(ui.messages.size(), 1U) << about;
  EXPECT_EQ(ui.messages[0].text, "화일을 열수 없습니다.\n") << about;
  EXPECT_EQ(ui.messages[0].caption, "Error message") << about;
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation) << about;
}

TEST(MasterFile, WritesTheModelByteForByte) {
  Reading r;
  EXPECT_EQ(WriteMasterFile(kPath, SmallModel(), &r.files, &r.ui), 1);
  EXPECT_EQ(r.files.Bytes(kPath), SmallFile());
  EXPECT_EQ(r.files.Bytes(kPath).size(), 192U);
}

TEST(MasterFile, ReadsWhatItWrote) {
  Reading r;
  std::string bytes = SmallFile();
  bytes[0] = 'x';  // the reserved bytes may hold anything
  bytes[99] = 'y';
  bytes[145] = 'z';
  bytes[153] = '!';
  r.files.Put(kPath, bytes);
  ASSERT_EQ(r.Read(), 1);
  const MasterGrid expected = SmallModel();
  EXPECT_EQ(r.grid.OriginX, -1);
  EXPECT_EQ(r.grid.ToolSize, 10);
  EXPECT_EQ(r.grid.ModelBuilt, 1);
  for (size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(r.grid.Cells[i].z, expected.Cells[i].z) << i;
    EXPECT_EQ(r.grid.Cells[i].angle, expected.Cells[i].angle) << i;
    EXPECT_EQ(r.grid.Cells[i].x, kNoHeight) << i;
  }
  EXPECT_EQ(WriteMasterFile(kPath, r.grid, &r.files, &r.ui), 1);
  EXPECT_EQ(r.files.Bytes(kPath), SmallFile());
}

TEST(MasterFile, LookupsAreTheSameAfterwards) {
  std::mt19937 random(7);
  MasterGrid grid = EmptyGrid(201, 150, 0.3F);
  for (size_t i = 0; i < 201 * 150; ++i) {
    grid.Cells[i].z =
        std::bit_cast<float>(0x40000000U + static_cast<uint32_t>(random() % 0x1000000));
    grid.Cells[i].angle = static_cast<int16_t>(random() % 91);
  }
  Reading r;
  ASSERT_EQ(WriteMasterFile(kPath, grid, &r.files, &r.ui), 1);
  ASSERT_EQ(r.Read(), 1);
  for (int i = 0; i < 300; ++i) {
    const Vec3 point = {static_cast<float>(random() % 60), static_cast<float>(random() % 45),
                        2.0F + static_cast<float>(random() % 60) / 10};
    const float radius = static_cast<float>(random() % 100) / 10;
    int32_t angle = 0;
    MasterLookup(r.grid, point, radius, &angle);
    ASSERT_EQ(angle, PlainLookup(grid, point, radius)) << i;
  }
}

template <typename T>
std::string With(size_t offset, T value) {
  std::string bytes = SmallFile();
  for (size_t i = 0; i < sizeof(T); ++i) bytes[offset + i] = reinterpret_cast<char*>(&value)[i];
  return bytes;
}

TEST(MasterFile, RefusesWhatIsNoMasterFile) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  std::string sevenCells = With(132, 7);
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
      {"a count that does not fit the sides", sevenCells},
      {"the same with the bytes for it", sevenCells + "123456"},
      {"sides that do not fit the count", With(136, 2)},
      {"negative sides", negativeCounts},
      {"no cells", noCells},
      {"more cells than a count can hold", overflow},
      {"a huge count", With(132, 0x7fffffff)},
      {"origin is no number", With(100, std::nanf(""))},
      {"endless origin", With(104, kInfinity)},
      {"endless tool", With(124, -kInfinity)},
      {"no cell size", With(128, 0.0F)},
      {"negative cell size", With(128, -0.5F)},
      {"cell size is no number", With(128, std::nanf(""))},
      {"endless height", With(156 + 6, kInfinity)},
      {"the last height is no number", With(186, std::nanf(""))},
  };
  for (const auto& c : cases) {
    Reading r;
    r.grid = SmallModel();
    r.files.Put(kPath, c.bytes);
    EXPECT_EQ(r.Read(), 0) << c.about;
    ExpectCannotOpen(r.ui, c.about);
    EXPECT_EQ(r.grid.CellCount, 6) << c.about;
    EXPECT_EQ(r.grid.At(1, 1).angle, 90) << c.about;
  }
}

TEST(MasterFile, ReportsWhatCannotBeOpened) {
  Reading r;
  EXPECT_EQ(r.Read(), 0);
  ExpectCannotOpen(r.ui, "no such file");
  EXPECT_FALSE(r.files.Exists(kPath));
}

TEST(MasterFile, RefusesWithoutMemory) {
  Reading r;
  allocationsLeft = 1;
  r.grid = MasterGrid(AllocateWhileAllowed);
  r.files.Put(kPath, SmallFile());
  ASSERT_EQ(r.Read(), 1);
  EXPECT_EQ(r.Read(), 0);
  ASSERT_EQ(r.ui.messages.size(), 1U);
  EXPECT_EQ(r.ui.messages[0].text, "Memory를 할당할 수 없습니다!!!");
  EXPECT_EQ(r.ui.messages[0].caption, " Message");
  EXPECT_EQ(r.grid.CellCount, 6);
}

TEST(MasterFile, AFailedWriteKeepsTheOlderFile) {
  const std::function<void(MemoryFiles*)> faults[] = {
      [](MemoryFiles* files) { files->RefuseCreation(kPath); },
      [](MemoryFiles* files) { files->RefuseWrite(1); },
      [](MemoryFiles* files) { files->RefuseWrite(2); },
      [](MemoryFiles* files) { files->RefuseCommit(1); },
  };
  for (const auto& fault : faults) {
    Reading r;
    r.files.Put(kPath, "older");
    fault(&r.files);
    EXPECT_EQ(WriteMasterFile(kPath, SmallModel(), &r.files, &r.ui), 0);
    ExpectCannotOpen(r.ui, "a failed write");
    EXPECT_EQ(r.files.Bytes(kPath), "older");
  }
}

TEST(MasterFile, DoesNotWriteWithoutAModel) {
  Reading r;
  r.files.Put(kPath, "older");
  EXPECT_EQ(WriteMasterFile(kPath, MasterGrid(), &r.files, &r.ui), 0);
  EXPECT_EQ(r.files.Bytes(kPath), "older");
}

}  // namespace
}  // namespace tvx
