#include "model/job_record.h"

#include <gtest/gtest.h>

#include "model/result_entry.h"

namespace tvx {
namespace {

TEST(JobRecord, CopyLeavesTheFiveFieldsThatStay) {
  JobRecord source;
  source.AfaEnabled = 1;
  source.FirstEditable = 4;
  source.KeyCodeText = "G1\r\n";
  source.ConditionDir = "c:\\x";
  source.RapidShown = 0;
  source.MaxFeed = 4321;
  source.RestartTolerance = 7;
  source.KeyCodes = {"A", "B"};
  source.FileNames[0] = "a.nc";
  source.AfaMasterFile = "c:\\m.mma";
  JobRecord copy;
  EXPECT_EQ(CopyJobRecord(1, &copy, source), 1);
  EXPECT_EQ(copy.AfaEnabled, 0);
  EXPECT_EQ(copy.FirstEditable, -1);
  EXPECT_EQ(copy.KeyCodeText, "");
  EXPECT_EQ(copy.ConditionDir, "");
  EXPECT_EQ(copy.RapidShown, 1);
  EXPECT_EQ(copy.MaxFeed, 4321);
  EXPECT_EQ(copy.RestartTolerance, 7);
  EXPECT_EQ(copy.KeyCodes, source.KeyCodes);
  EXPECT_EQ(copy.FileNames, source.FileNames);
  EXPECT_EQ(copy.AfaMasterFile, "c:\\m.mma");
}

TEST(JobRecord, SetsFieldsByName) {
  JobRecord record;
  EXPECT_TRUE(SetJobField(&record, "MaxFeed", "2000"));
  EXPECT_TRUE(SetJobField(&record, "CornerMaxRatio", "0.25"));
  EXPECT_TRUE(SetJobField(&record, "AfaMasterFile", "c:\\my models\\a.mma"));
  EXPECT_EQ(record.MaxFeed, 2000);
  EXPECT_EQ(record.CornerMaxRatio, 0.25F);
  EXPECT_EQ(record.AfaMasterFile, "c:\\my models\\a.mma");
  for (const auto& [name, text] : {std::pair{"maxfeed", "1"},
                                   {"MaxFeed", "12x"},
                                   {"MaxFeed", ""},
                                   {"MaxFeed", "1.5"},
                                   {"FileNames", "a"},
                                   {"ToolDiameter", "nan"},
                                   {"ToolDiameter", "1 2"}}) {
    EXPECT_FALSE(SetJobField(&record, name, text)) << name << ' ' << text;
  }
  EXPECT_EQ(record.MaxFeed, 2000);
}

TEST(ResultEntry, TakesTheOptionsAndKeepsTheFigures) {
  JobRecord record;
  record.MaxFeed = 1234;
  record.SideWeight60 = 0.5F;
  record.AfaMasterFile = "c:\\m.mma";
  CutTimeEntry entry;
  entry.cutLength = 5;
  entry.fileName = "a.nc";
  CopyOptions(record, &entry);
  EXPECT_EQ(entry.MaxFeed, 1234);
  EXPECT_EQ(entry.SideWeight60, 0.5F);
  EXPECT_EQ(entry.AfaMasterFile, "c:\\m.mma");
  EXPECT_EQ(entry.RestartNumber, 200);
  EXPECT_EQ(entry.cutLength, 5);
  EXPECT_EQ(entry.fileName, "a.nc");
}

}  // namespace
}  // namespace tvx
