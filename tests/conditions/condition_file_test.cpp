// What reading takes from odd condition files. Golden cases hold the bytes that are written.
#include "conditions/condition_file.h"

#include <gtest/gtest.h>

#include "base/format.h"
#include "base/text.h"
#include "support/memory_files.h"
#include "support/record_changes.h"
#include "support/rows.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\marlo\\afa\\a.afa";

// What reading a text changes on the defaults.
std::string Read(const std::string& text) {
  MemoryFiles files;
  files.Put(kPath, EncodeCp949(text));
  JobRecord record;
  int32_t spindle = 1000;
  EXPECT_TRUE(ReadConditionFile(kPath, &record, &spindle, &files).ok());
  const std::string changes = Changes(JobRecord{}, record);
  return spindle == 1000 ? changes : changes + Format(" Spindle=%d", spindle);
}

// Values of every field, a syllable that only the extended code has, and the six decimals of the
// print. A condition does not switch the master model.
TEST(ConditionFile, ReadsBackWhatItWrites) {
  const std::string all =
      "ToolDiameter=0.1 SafetyDistance=1.234568 CornerMinAngle=-3 CornerMaxRatio=123456.79 "
      "SlopeMinAngle=15 SlopeMaxRatio=0.25 ConCorChk=0 UpDownChk=2 MaxFeed=2147483647 "
      "PlungeFeed=-2147483648 Material=뷁강 FeedChgSmoothCheck=1 XyChgReduceCheck=3 FeedChgAng=0 "
      "CorWeight0=0.9 CorWeight30=0.8 CorWeight60=0.75 SideWeight0=0.6 SideWeight30=0.5 "
      "SideWeight60=0.4 SideCorRat=2.5 ZupZdown=1.5";
  MemoryFiles files;
  EXPECT_TRUE(WriteConditionFile(kPath, Record(all + " AfaByMaster=1"), 3200, &files).ok());
  EXPECT_EQ(Read(DecodeCp949(files.Bytes(kPath))), all + " Spindle=3200");
  EXPECT_TRUE(WriteConditionFile(kPath, Record("ConCorChk=0 Material="), 1000, &files).ok());
  EXPECT_EQ(Read(DecodeCp949(files.Bytes(kPath))), "ConCorChk=0 Material=");
}

TEST(ConditionFile, FirstNineValuesByPlaceTheOthersByKey) {
  const std::string nine = "a 10 b 5 c 10 d .1 e 10 f .1 g 1000 h 1000 i STEEL(S45C) ";
  const Rows<std::string, const char*> rows = {
      {"", ""},
      {"x 8.0", "ToolDiameter=8"},
      {"x\r\n\r\n8\ty\v9", "ToolDiameter=8 SafetyDistance=9"},
      {"a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700 h 800 i",
       "ToolDiameter=1 SafetyDistance=2 CornerMinAngle=3 CornerMaxRatio=0.4 SlopeMinAngle=5 "
       "SlopeMaxRatio=0.6 MaxFeed=800 PlungeFeed=700"},
      {"Spindle 8 CorWeight0 9", "ToolDiameter=8 SafetyDistance=9"},  // keys count from the tenth
      // A value that is no number becomes the key of the next pair.
      {"a 1 b zwei c 3 d 0.4 e 5",
       "ToolDiameter=1 CornerMaxRatio=3 SlopeMinAngle=0.4 SlopeMaxRatio=5"},
      // The rest of a fraction where a whole number is due becomes the next key.
      {"a 10 b 5 c 10 d .1 e 10 f .1 g 700.5 h 800 i SKD11 SideCorRat 2",
       "PlungeFeed=700 Material=800 SideCorRat=2"},
      {nine + "Spindle 5 UPDOWNCHK 0 concorchk 0", "ConCorChk=0 UpDownChk=0 Spindle=5"},
      {nine + "AfaByMaster 1 공구직경 99 MaxFeed 5 nothing 7 ConCorChk 0", "ConCorChk=0"},
      {nine + "FeedChgAng", ""},
      {nine + "FeedChgAng 50x", "FeedChgAng=50"},
      {nine + "FeedChgAng 5 Spindle -5 Spindle 99999999999", "FeedChgAng=5 Spindle=2147483647"},
      {nine + "CorWeight0 .5 CorWeight30 5e-1 SideWeight0 0,5",
       "CorWeight0=0.5 CorWeight30=0.5 SideWeight0=0"},
      {nine + "SideCorRat 2 SideCorRat x y ZupZdown 2", "SideCorRat=0"},
      // Decimal prefixes; what overflows leaves the field.
      {nine + "CorWeight0 nan CorWeight30 0x10 CorWeight60 2e SideWeight0 - SideWeight30 . "
              "SideWeight60 1e999 ZupZdown -inf",
       "CorWeight0=0 CorWeight30=0 CorWeight60=2 SideWeight0=0 SideWeight30=0 ZupZdown=0"},
  };
  for (const auto& [text, changes] : rows) EXPECT_EQ(Read(text), changes) << text;
}

TEST(ConditionFile, BytesThatAreNoTextSurvive) {
  MemoryFiles files;
  JobRecord record;
  int32_t spindle = 0;
  WriteConditionFile(kPath, record, 1000, &files);
  std::string bytes = files.Bytes(kPath);
  bytes.replace(bytes.find(record.Material), record.Material.size(), "\xFF\x80\xC7");
  files.Put(kPath, bytes);
  ReadConditionFile(kPath, &record, &spindle, &files);
  WriteConditionFile(kPath, record, spindle, &files);
  EXPECT_EQ(files.Bytes(kPath), bytes);
}

TEST(ConditionFile, FailuresChangeNothing) {
  MemoryFiles files;
  files.Put(kPath, "old");
  JobRecord record;
  int32_t spindle = 42;
  for (const char* path : {"c:\\marlo\\afa\\none.afa", "c:\\marlo\\afa", "q:\\a.afa", ""}) {
    EXPECT_FALSE(ReadConditionFile(path, &record, &spindle, &files).ok()) << path;
  }
  EXPECT_EQ(Changes(JobRecord{}, record) + Format("%d", spindle), "42");
  EXPECT_FALSE(WriteConditionFile("c:\\none\\a.afa", record, 0, &files).ok());
  files.RefuseWrite(1);
  EXPECT_FALSE(WriteConditionFile(kPath, record, 0, &files).ok());
  files.RefuseCommit(1);
  EXPECT_FALSE(WriteConditionFile(kPath, record, 0, &files).ok());
  EXPECT_EQ(files.Bytes(kPath), "old");
}

}  // namespace
}  // namespace tvx
