// Checks that are done after the loads of their programs.
#include "evaluate/program_checks.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/memory_files.h"

namespace tvx {
namespace {

class ProgramChecksTest : public testing::Test {
 protected:
  void Load(const std::string& path) {
    files.Put(path, "G0 X1 Y1\nM98\n");
    checks.Restart({.path = path, .stamp = files.OpenForReading(path).value->Stamp(), .lines = {}},
                   {}, JobRecord());
  }

  MemoryFiles files;
  ProgramChecks checks;
};

TEST_F(ProgramChecksTest, OnlyTheProgramInTheStoreAndThoseOfResultsAreChecked) {
  Load("c:\\dropped.nc");
  Load("c:\\kept.nc");
  auto kept = checks.Keep();
  Load("c:\\forgotten.nc");
  checks.Keep().reset();
  Load("c:\\last.nc");
  EXPECT_EQ(checks.Pending(), 2U);
  EXPECT_EQ(checks.Loaded()->path, "c:\\last.nc");
  checks.Finish(&files, NoProgress());
  EXPECT_EQ(checks.Pending(), 0U);
  EXPECT_EQ(checks.State(), CheckState::kDone);
  ASSERT_EQ(kept->state, CheckState::kDone);
  EXPECT_EQ(kept->result->Count(RemarkClass::kLost), 1U);
}

TEST_F(ProgramChecksTest, WithoutAProgramThereIsNothingToKeep) {
  checks.Restart({}, {}, JobRecord());
  EXPECT_EQ(checks.Keep(), nullptr);
  EXPECT_EQ(checks.State(), CheckState::kNoProgram);
  EXPECT_FALSE(checks.CheckMore(1, &files));
  EXPECT_EQ(PausesOf(nullptr).toolChanges, 0U);
}

}  // namespace
}  // namespace tvx
