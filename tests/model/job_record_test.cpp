#include "model/job_record.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tvx
