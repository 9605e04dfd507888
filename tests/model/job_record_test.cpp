#include "model/job_record.h"

#include <gtest/gtest.h>

#include "model/result_entry.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

TEST(JobRecord, CopyLeavesTheFiveFieldsThatStay) {
  JobRecord source = Record(
      "AfaEnabled=1 FirstEditable=4 MaxFeed=4321 KeyCodeText=G1 ConditionDir=c:\\x RapidShown=0 "
      "AfaMasterFile=c:\\m.mma RestartTolerance=7");
  source.KeyCodes = {"A", "B"};
  source.FileNames = {"a.nc"};
  JobRecord copy;
  EXPECT_EQ(CopyJobRecord(1, &copy, source), 1);
  EXPECT_EQ(Changes(copy, source),
            "AfaEnabled=1 FirstEditable=4 KeyCodeText=G1 ConditionDir=c:\\x RapidShown=0");
}

TEST(JobRecord, SetsFieldsByName) {
  const struct {
    const char* name;
    const char* text;
    bool set;
  } cases[] = {
      {"MaxFeed", "2000", true},          {"CornerMaxRatio", "0.25", true},
      {"AfaMasterFile", "c:\\a b", true}, {"maxfeed", "1", false},
      {"MaxFeed", "12x", false},          {"MaxFeed", "", false},
      {"MaxFeed", "1.5", false},          {"FileNames", "a", false},
      {"ToolDiameter", "nan", false},     {"ToolDiameter", "1 2", false},
  };
  for (const auto& c : cases) {
    JobRecord record;
    const std::string change = std::string(c.name) + "=" + c.text;
    EXPECT_EQ(SetJobField(&record, c.name, c.text), c.set) << change;
    EXPECT_EQ(Changes(JobRecord(), record), c.set ? change : "");
  }
}

TEST(ResultEntry, TakesTheOptionsAndKeepsTheFigures) {
  CutTimeEntry entry;
  entry.cutLength = 5;
  entry.fileName = "a.nc";
  CopyOptions(Record("MaxFeed=1234 SideWeight60=0.5 AfaMasterFile=c:\\m.mma"), &entry);
  EXPECT_EQ(entry.MaxFeed, 1234);
  EXPECT_EQ(entry.SideWeight60, 0.5F);
  EXPECT_EQ(entry.CorWeight0 + entry.cutLength, 1 + 5);
  EXPECT_EQ(entry.AfaMasterFile + entry.fileName, "c:\\m.mmaa.nc");
}

}  // namespace
}  // namespace tvx
