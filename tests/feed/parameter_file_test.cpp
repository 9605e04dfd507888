// The parameter file: 16 lines are written, four are read.
#include "feed/parameter_file.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\marlo\\tvx.par";

TEST(ParameterFile, TheBytesWritten) {
  MemoryFiles files;
  ScriptedUi ui;
  JobRecord record;
  record.IntNcdataFlg = 1;
  record.NcdataExt = "*.가공";
  record.AfaByMaster = 1;
  record.InputFileType = 2;
  record.RapidFeed = 12000;
  record.FeedChgAng = 50;
  record.CorWeight30 = 0.65F;
  record.ZupZdown = 1.5F;
  ASSERT_TRUE(WriteParameterFile("c:\\marlo", record, &files, &ui));
  EXPECT_EQ(DecodeCp949(files.Bytes(kPath)),
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
  EXPECT_NE(files.Bytes(kPath).find("NCDATA\xC8\xAE\xC0\xE5\xC0\xDA *.\xB0\xA1\xB0\xF8\r\n"),
            std::string::npos);  // CP949

  // Of all that, four values come back.
  JobRecord read;
  ASSERT_TRUE(ReadParameterFile("c:\\marlo", &read, &files));
  EXPECT_EQ(read.IntNcdataFlg, 1);
  EXPECT_EQ(read.NcdataExt, "*.가공");
  EXPECT_EQ(read.InputFileType, 2);
  EXPECT_EQ(read.RapidFeed, 12000);
  EXPECT_EQ(read.AfaByMaster, 0);
  EXPECT_EQ(read.FeedChgAng, 10);
  EXPECT_EQ(read.CorWeight30, 0.7F);
  EXPECT_EQ(read.ZupZdown, 1.0F);
}

TEST(ParameterFile, ReadsPairsInAnyOrder) {
  struct {
    const char* text;
    int32_t rapidFeed, inputFileType, intNcdata;
    const char* extension;
  } const cases[] = {
      {"", 5000, 1, 0, "*.nc"},
      {"inputfiletype 2 ncdata확장자 *.H rapidfeed 7 INTNCDATAFLG 1", 7, 2, 1, "*.H"},
      {"RapidFeed\n6000\nRapidFeed 9e3", 9, 1, 0, "*.nc"},
      {"RapidFeed fast", 0, 1, 0, "*.nc"},
      {"IntNcdataFlg 1 InputFileType", 5000, 1, 1, "*.nc"},
      {"RapidFeed 6000 mm InputFileType 2", 6000, 1, 0, "*.nc"},  // out of step
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    files.Put(kPath, EncodeCp949(c.text));
    JobRecord record;
    EXPECT_TRUE(ReadParameterFile("c:\\marlo", &record, &files)) << c.text;
    EXPECT_EQ(record.RapidFeed, c.rapidFeed) << c.text;
    EXPECT_EQ(record.InputFileType, c.inputFileType) << c.text;
    EXPECT_EQ(record.IntNcdataFlg, c.intNcdata) << c.text;
    EXPECT_EQ(record.NcdataExt, c.extension) << c.text;
  }
}

TEST(ParameterFile, Failures) {
  MemoryFiles files;
  ScriptedUi ui;
  JobRecord record;
  record.RapidFeed = 8000;
  EXPECT_FALSE(ReadParameterFile("c:\\none", &record, &files));
  EXPECT_EQ(record.RapidFeed, 8000);

  EXPECT_FALSE(WriteParameterFile("c:\\none", record, &files, &ui));
  files.Put(kPath, "old");
  files.RefuseWrite(1);
  EXPECT_FALSE(WriteParameterFile("c:\\marlo", record, &files, &ui));
  EXPECT_EQ(files.Bytes(kPath), "old");
  ASSERT_EQ(ui.messages.size(), 2U);
  for (const Message& message : ui.messages) {
    EXPECT_EQ(message.text, "화일을 열수 없읍니다.\n");
    EXPECT_EQ(message.caption, "Error message");
    EXPECT_EQ(message.icon, MessageIcon::kInformation);
  }
}

}  // namespace
}  // namespace tvx
