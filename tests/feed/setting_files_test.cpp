// Condition files: what reading takes from odd files. Golden cases hold the bytes that are written.

#include <gtest/gtest.h>

#include <sstream>

#include "base/format.h"
#include "base/text.h"
#include "feed/condition_file.h"
#include "shell/parameter_file.h"
#include "support/memory_files.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\marlo\\afa\\a.afa";
constexpr char kParameterPath[] = "c:\\marlo\\tvx.par";

// A record with other values in some fields, "NAME=VALUE NAME=VALUE".
JobRecord With(const std::string& changes) {
  JobRecord record;
  std::istringstream words(changes);
  for (std::string word; words >> word;) {
    const size_t sign = word.find('=');
    EXPECT_TRUE(SetJobField(&record, word.substr(0, sign), word.substr(sign + 1))) << word;
  }
  return record;
}

class ConditionFile : public testing::Test {
 protected:
  // What reading a text changes on the defaults.
  std::string Read(const std::string& text) {
    files.Put(kPath, EncodeCp949(text));
    JobRecord record;
    int32_t spindle = 1000;
    EXPECT_EQ(ReadConditionFile(kPath, &record, &spindle, &files), SettingsResult::kDone);
    std::string changes = Changes(JobRecord{}, record);
    if (spindle != 1000) changes += (changes.empty() ? "" : " ") + Format("Spindle=%d", spindle);
    return changes;
  }

  MemoryFiles files;
};

// Values of every field, a syllable that only the extended code has, and the six decimals of the
// print. A condition does not switch the master model.
TEST_F(ConditionFile, ReadsBackWhatItWrites) {
  const std::string all =
      "ToolDiameter=0.1 SafetyDistance=1.234568 CornerMinAngle=-3 CornerMaxRatio=123456.79 "
      "SlopeMinAngle=15 SlopeMaxRatio=0.25 ConCorChk=0 UpDownChk=2 MaxFeed=2147483647 "
      "PlungeFeed=-2147483648 Material=뷁강 FeedChgSmoothCheck=1 XyChgReduceCheck=3 FeedChgAng=0 "
      "CorWeight0=0.9 CorWeight30=0.8 CorWeight60=0.75 SideWeight0=0.6 SideWeight30=0.5 "
      "SideWeight60=0.4 SideCorRat=2.5 ZupZdown=1.5";
  ASSERT_EQ(WriteConditionFile(kPath, With(all + " AfaByMaster=1"), 3200, &files),
            SettingsResult::kDone);
  EXPECT_EQ(Read(DecodeCp949(files.Bytes(kPath))), all + " Spindle=3200");
}

// The first nine values count by their place, whatever the words before them.
TEST_F(ConditionFile, ValuesByPlace) {
  const struct {
    const char* text;
    const char* changes;
  } cases[] = {
      {"", ""},
      {"x 8.0", "ToolDiameter=8"},
      {"x\r\n\r\n8\ty\v9", "ToolDiameter=8 SafetyDistance=9"},
      {"a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700 h 800 i",
       "ToolDiameter=1 SafetyDistance=2 CornerMinAngle=3 CornerMaxRatio=0.4 SlopeMinAngle=5 "
       "SlopeMaxRatio=0.6 MaxFeed=800 PlungeFeed=700"},
      // A keyed line counts from the tenth pair on only.
      {"Spindle 8 CorWeight0 9", "ToolDiameter=8 SafetyDistance=9"},
      // A value that is no number is the key of the next pair: three pairs later all is in step.
      {"a 1 b zwei c 3 d 0.4 e 5",
       "ToolDiameter=1 CornerMaxRatio=3 SlopeMinAngle=0.4 SlopeMaxRatio=5"},
      // A fraction where a whole number is due: the rest of the word is the next key.
      {"a 10 b 5 c 10 d .1 e 10 f .1 g 700.5 h 800 i SKD11 SideCorRat 2",
       "PlungeFeed=700 Material=800 SideCorRat=2"},
  };
  for (const auto& c : cases) EXPECT_EQ(Read(c.text), c.changes) << c.text;
}

// Behind them pairs in any order.
TEST_F(ConditionFile, ValuesByKey) {
  const struct {
    const char* text;
    const char* changes;
  } cases[] = {
      {"Spindle 5 UPDOWNCHK 0 concorchk 0", "ConCorChk=0 UpDownChk=0 Spindle=5"},
      {"AfaByMaster 1 공구직경 99 MaxFeed 5 nothing 7 ConCorChk 0", "ConCorChk=0"},
      {"FeedChgAng", ""},
      {"FeedChgAng 50x", "FeedChgAng=50"},
      {"Spindle -5 Spindle 99999999999", "Spindle=2147483647"},
      {"CorWeight0 .5 CorWeight30 5e-1 CorWeight60 +0.5\nSideWeight0 0,5",
       "CorWeight0=0.5 CorWeight30=0.5 CorWeight60=0.5 SideWeight0=0"},
      {"SideCorRat 2 SideCorRat 3", "SideCorRat=3"},
      {"SideCorRat x y ZupZdown 2", "SideCorRat=0"},
  };
  const std::string places = "a 10 b 5 c 10 d .1 e 10 f .1 g 1000 h 1000 i STEEL(S45C) ";
  for (const auto& c : cases) EXPECT_EQ(Read(places + c.text), c.changes) << c.text;
}

TEST_F(ConditionFile, AFileThatDoesNotOpenChangesNothing) {
  JobRecord record = With("SideCorRat=7 RapidFeed=8000");
  int32_t spindle = 42;
  for (const char* path : {"c:\\marlo\\afa\\none.afa", "c:\\marlo\\afa", "q:\\a.afa", ""}) {
    EXPECT_EQ(ReadConditionFile(path, &record, &spindle, &files), SettingsResult::kCannotOpen)
        << path;
    EXPECT_EQ(ReadParameterFile(path, &record, &files), SettingsResult::kCannotOpen) << path;
  }
  EXPECT_EQ(Changes(JobRecord{}, record), "RapidFeed=8000 SideCorRat=7");
  EXPECT_EQ(spindle, 42);
}

// Bytes that are no text of any kind survive as a material that is passed on.
TEST_F(ConditionFile, ForeignBytesInTheMaterialComeBack) {
  JobRecord record;
  ASSERT_EQ(WriteConditionFile(kPath, record, 1000, &files), SettingsResult::kDone);
  std::string bytes = files.Bytes(kPath);
  bytes.replace(bytes.find(record.Material), record.Material.size(), "\xFF\x80\xC7");
  files.Put(kPath, bytes);
  int32_t spindle = 0;
  ASSERT_EQ(ReadConditionFile(kPath, &record, &spindle, &files), SettingsResult::kDone);
  ASSERT_EQ(WriteConditionFile(kPath, record, spindle, &files), SettingsResult::kDone);
  EXPECT_EQ(files.Bytes(kPath), bytes);
}

TEST_F(ConditionFile, FailedWriteKeepsTheOlderFile) {
  files.Put(kPath, "old");
  const struct {
    const char* what;
    const char* path;
    void (*prepare)(MemoryFiles*);
  } cases[] = {
      {"no directory", "c:\\none\\a.afa", [](MemoryFiles*) {}},
      {"no name", "", [](MemoryFiles*) {}},
      {"disk full", kPath, [](MemoryFiles* f) { f->RefuseWrite(1); }},
      {"not put in place", kPath, [](MemoryFiles* f) { f->RefuseCommit(1); }},
      {"write protected", kPath, [](MemoryFiles* f) { f->RefuseCreation(kPath); }},
  };
  for (const auto& c : cases) {
    c.prepare(&files);
    EXPECT_EQ(WriteConditionFile(c.path, JobRecord{}, 0, &files), SettingsResult::kCannotWrite)
        << c.what;
    EXPECT_EQ(files.Bytes(kPath), "old") << c.what;
  }
}

using ParameterFile = ConditionFile;

TEST_F(ParameterFile, TheBytesWritten) {
  const JobRecord record = With(
      "IntNcdataFlg=1 NcdataExt=*.가공 AfaByMaster=1 InputFileType=2 RapidFeed=12000 FeedChgAng=50 "
      "CorWeight30=0.65 ZupZdown=1.5");
  ASSERT_EQ(WriteParameterFile("c:\\marlo", record, &files), SettingsResult::kDone);
  EXPECT_EQ(DecodeCp949(files.Bytes(kParameterPath)),
            "IntNcdataFlg 1\r\n"
            "NCDATA확장자 *.가공\r\n"
            "AfaByMasterFlg 1\r\n"
            "MetafileCreateChk 1\r\n"
            "InputFileType 2\r\n"
            "RapidFeed 12000\r\n"
            "FeedChgSmoothCheck 0\r\n"
            "XyChgReduceCheck 0\r\n"
            "FeedChgAng 50\r\n"
            "CorWeight0 1.000000\r\n"
            "CorWeight30 0.650000\r\n"
            "CorWeight60 0.300000\r\n"
            "SideWeight0 1.000000\r\n"
            "SideWeight30 0.700000\r\n"
            "SideWeight60 0.300000\r\n"
            "ZupZdown 1.500000\r\n");
  EXPECT_NE(
      files.Bytes(kParameterPath).find("NCDATA\xC8\xAE\xC0\xE5\xC0\xDA *.\xB0\xA1\xB0\xF8\r\n"),
      std::string::npos);  // CP949

  // Of all that, four values come back.
  JobRecord read;
  ASSERT_EQ(ReadParameterFile("c:\\marlo", &read, &files), SettingsResult::kDone);
  EXPECT_EQ(Changes(JobRecord{}, read),
            "RapidFeed=12000 InputFileType=2 IntNcdataFlg=1 NcdataExt=*.가공");
}

TEST_F(ParameterFile, ReadsPairsInAnyOrder) {
  const struct {
    const char* text;
    const char* changes;
  } cases[] = {
      {"", ""},
      {"inputfiletype 2 ncdata확장자 *.H rapidfeed 7 INTNCDATAFLG 1",
       "RapidFeed=7 InputFileType=2 IntNcdataFlg=1 NcdataExt=*.H"},
      {"RapidFeed\n6000\nRapidFeed 9e3", "RapidFeed=9"},
      {"RapidFeed fast", "RapidFeed=0"},
      {"IntNcdataFlg 1 InputFileType", "IntNcdataFlg=1"},
      {"RapidFeed 6000 mm InputFileType 2", "RapidFeed=6000"},  // out of step
  };
  for (const auto& c : cases) {
    files.Put(kParameterPath, EncodeCp949(c.text));
    JobRecord record;
    EXPECT_EQ(ReadParameterFile("c:\\marlo", &record, &files), SettingsResult::kDone) << c.text;
    EXPECT_EQ(Changes(JobRecord{}, record), c.changes) << c.text;
  }
}

TEST_F(ParameterFile, FailedWriteKeepsTheOlderFile) {
  files.Put(kParameterPath, "old");
  files.RefuseWrite(1);
  EXPECT_EQ(WriteParameterFile("c:\\none", JobRecord{}, &files), SettingsResult::kCannotWrite);
  EXPECT_EQ(WriteParameterFile("c:\\marlo", JobRecord{}, &files), SettingsResult::kCannotWrite);
  EXPECT_EQ(files.Bytes(kParameterPath), "old");
}

}  // namespace
}  // namespace tvx
