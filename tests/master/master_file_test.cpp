// Master model files: round trips, damaged files, failed writes.
#include "master/master_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/memory_files.h"
#include "support/random_program.h"
#include "support/rows.h"

namespace tvx {
namespace {

using enum StatusKind;

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

// The file of SmallModel, byte for byte, with the bytes at an offset replaced.
template <typename... T>
std::string SmallFile(size_t offset = 0, T... values) {
  std::string bytes(100, '\0');
  const std::string hex =
      "000080bf00000040000040c00000c03f0000803f00008040000020410000003f"
      "060000000300000002000000000000000100000004000000"
      "003c1cc600000000803f0000003c1cc60000003c1cc600000000a03f5a00000000bf0201";
  for (size_t i = 0; i < hex.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  std::string change;
  (change.append(reinterpret_cast<const char*>(&values), sizeof(values)), ...);
  return bytes.replace(offset, change.size(), change);
}

class MasterFile : public testing::Test {
 protected:
  StatusKind Read(const std::string& bytes) {
    files.Put(kPath, bytes);
    return ReadMasterFile(kPath, &grid, &files).kind();
  }
  std::string Written() {
    EXPECT_TRUE(WriteMasterFile(kPath, grid, &files).ok());
    return files.Bytes(kPath);
  }

  MemoryFiles files;
  MasterGrid grid = SmallModel();
};

TEST_F(MasterFile, HoldsTheModelByteForByte) {
  EXPECT_EQ(Written(), SmallFile());
  std::string bytes = SmallFile();
  for (const size_t reserved : {0, 99, 145, 153}) bytes[reserved] = 'x';
  grid = MasterGrid();
  ASSERT_EQ(Read(bytes), kOk);
  EXPECT_EQ(grid.Cells[4].x, kNoHeight);
  EXPECT_EQ(Written(), SmallFile());
}

// Cells are read and written in pieces.
TEST_F(MasterFile, HoldsALargeModel) {
  grid = EmptyGrid(201, 150, 0.3F);
  for (int32_t i = 0; i < 201 * 150; ++i) {
    SetCell(&grid, i % 201, i / 201, static_cast<float>(i) * 0.7F, i % 91);
  }
  const std::string bytes = Written();
  grid = SmallModel();
  ASSERT_EQ(Read(bytes), kOk);
  EXPECT_TRUE(Written() == bytes);
  EXPECT_EQ(grid.At(0, 50).z, 10050 * 0.7F);
  EXPECT_EQ(grid.At(0, 50).angle, 10050 % 91);
}

TEST_F(MasterFile, RefusesWhatIsNoMasterFile) {
  const Rows<const char*, std::string> rows = {
      {"nothing", ""},
      {"one byte", "x"},
      {"reserved bytes only", SmallFile().substr(0, 100)},
      {"header cut off", SmallFile().substr(0, 155)},
      {"header only", SmallFile().substr(0, 156)},
      {"cell cut off", SmallFile().substr(0, 191)},
      {"one byte too many", SmallFile() + "x"},
      {"count that does not fit the sides", SmallFile(132, 7)},
      {"the same with the bytes for it", SmallFile(132, 7) + "123456"},
      {"sides that do not fit the count", SmallFile(136, 2)},
      {"negative sides", SmallFile(136, -3, -2)},
      {"no cells", SmallFile(132, 0, 0, 0).substr(0, 156)},
      {"65536 x 65536 cells: 0 in 32 bits", SmallFile(132, 0, 65536, 65536).substr(0, 156)},
      {"huge count", SmallFile(132, 0x7fffffff)},
      {"origin is no number", SmallFile(100, std::nanf(""))},
      {"infinite origin", SmallFile(104, HUGE_VALF)},
      {"infinite tool", SmallFile(124, -HUGE_VALF)},
      {"no cell size", SmallFile(128, 0.0F)},
      {"negative cell size", SmallFile(128, -0.5F)},
      {"cell size is no number", SmallFile(128, std::nanf(""))},
      {"infinite height", SmallFile(156 + 6, HUGE_VALF)},
      {"last height is no number", SmallFile(186, std::nanf(""))},
  };
  for (const auto& [about, bytes] : rows) {
    EXPECT_EQ(Read(bytes), kWrongFormat) << about;
    EXPECT_EQ(Written(), SmallFile()) << about;
  }
}

TEST_F(MasterFile, FailedReadKeepsTheModel) {
  EXPECT_EQ(ReadMasterFile(kPath, &grid, &files).kind(), kMissing);
  EXPECT_FALSE(files.Exists(kPath));
  allocationsLeft = 1;
  grid = MasterGrid(AllocateWhileAllowed);
  ASSERT_EQ(Read(SmallFile()), kOk);
  EXPECT_EQ(Read(SmallFile()), kNoMemory);
  EXPECT_EQ(grid.CellCount, 6);
}

TEST_F(MasterFile, FailedWriteKeepsTheOlderFile) {
  files.Put(kPath, "older");
  EXPECT_EQ(WriteMasterFile(kPath, MasterGrid(), &files).kind(), kNoContent);
  for (const int failing : {1, 2, 3, 4}) {
    if (failing <= 2) files.RefuseWrite(failing);
    if (failing == 3) files.RefuseCommit(1);
    if (failing == 4) files.RefuseCreation(kPath);
    EXPECT_EQ(WriteMasterFile(kPath, grid, &files).kind(), failing < 4 ? kWriteFailed : kCannotOpen)
        << failing;
    EXPECT_EQ(files.Bytes(kPath), "older") << failing;
  }
}

}  // namespace
}  // namespace tvx
