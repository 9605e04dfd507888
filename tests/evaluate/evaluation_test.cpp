// Results of programs that are in a store, without a window.
#include "evaluate/evaluation.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "stats/cut_time.h"
#include "support/memory_files.h"
#include "support/random_program.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

// A program with cuts in both directions round corners, a dwell of 6 s and a tool change.
constexpr char kProgram[] =
    "G0 X0 Y0 Z10\nT2 M6\nG1 Z0 F500\nX100\nG4 X6.\nY100\nX0\nG0 Z10\nM30\n";

struct Workshop {
  Workshop() {
    job.AfaEnabled = 1;
    files.Put("c:\\a.nc", kProgram);
  }

  ProgramWork Work() {
    return {.program = &program,
            .job = &job,
            .feedPassMemory = &memory,
            .causes = &causes,
            .machine = &machine,
            .view = &view,
            .parserStates = &states,
            .checks = &checks,
            .files = &files};
  }
  ProgramResult Evaluated(const Wanted& wanted) {
    EXPECT_TRUE(ReadProgram("c:\\a.nc", Work()).ok());
    return *Evaluate(Work(), {.adjusts = true, .wanted = wanted, .check = checks.Keep()});
  }

  MemoryFiles files;
  NcProgram program;
  JobRecord job;
  FeedPassMemory memory;
  FeedCauses causes;
  MachineProfile machine;
  ViewState view;
  ParserStates states;
  ProgramChecks checks;
};

std::string PartsOf(const ProgramResult& result) {
  std::string parts;
  if (result.programmed) parts += "programmed ";
  if (result.causes) parts += "causes ";
  if (result.machine) parts += "machine ";
  if (!result.pictures.svg.empty()) parts += "svg ";
  if (!result.pictures.png.empty()) parts += "png ";
  if (!result.pictures.workbookPng.empty()) parts += "workbookPng ";
  return parts;
}

TEST(Evaluation, ResultHasTheWantedPartsAndLeavesTheProgramAsItIs) {
  const std::pair<Wanted, const char*> cases[] = {
      {{}, ""},
      {{.programmed = true}, "programmed "},
      {{.causes = true}, "causes "},
      {{.machine = true}, "machine "},
      {{.sheetPicture = true}, "svg "},
      {{.workbookPicture = true}, "workbookPng "},
      {{.programmed = true, .causes = true, .sheetPicture = true}, "programmed causes svg "},
  };
  MotionBlock reg;
  for (const auto& [wanted, parts] : cases) {
    Workshop shop;
    const ProgramResult result = shop.Evaluated(wanted);
    EXPECT_EQ(PartsOf(result), parts);
    EXPECT_EQ(result.entry.cutLength, 310) << parts;
    EXPECT_EQ(result.entry.AfaEnabled, 1) << parts;
    if (parts == std::string()) reg = shop.program.store.CurrentBlock;
    EXPECT_EQ(shop.program.store.CurrentBlock.x, reg.x) << parts;
    EXPECT_EQ(shop.program.store.CurrentBlock.type, reg.type) << parts;
  }
}

TEST(Evaluation, ProgrammedFiguresAreThoseBeforeTheFirstAdjustment) {
  Workshop shop;
  const Wanted wanted{.programmed = true};
  ASSERT_TRUE(ReadProgram("c:\\a.nc", shop.Work()).ok());
  for (const int32_t feed : {2000, 4000}) {
    shop.job.MaxFeed = feed;
    const auto result = Evaluate(shop.Work(), {.adjusts = true, .wanted = wanted});
    ASSERT_TRUE(result && result->programmed);
    EXPECT_FLOAT_EQ(result->programmed->cutMinutes, 310.0F / 500);
    EXPECT_EQ(result->programmed->averageFeed, 500);
    EXPECT_EQ(result->programmed->highestFeed, 500);
    EXPECT_FLOAT_EQ(*MinutesBefore(*result), 310.0F / 500 + result->entry.rapidMinutes);
    EXPECT_LT(result->entry.totalMinutes, *MinutesBefore(*result));
  }
}

TEST(Evaluation, CheckThatEndsAfterTheResultReachesIt) {
  Workshop shop;
  shop.machine.ToolChange = 30;
  const ProgramResult result = shop.Evaluated({.machine = true});
  EXPECT_EQ(RemarksOf(result), std::nullopt);
  EXPECT_EQ(MachineTimeOf(result)->dwellMinutes, 0);
  const double moves = MachineTimeOf(result)->totalMinutes;
  shop.checks.Finish(&shop.files, NoProgress());
  EXPECT_EQ(RemarksOf(result)->at(static_cast<size_t>(RemarkId::kToolChange)), 1U);
  EXPECT_DOUBLE_EQ(MachineTimeOf(result)->dwellMinutes, 0.1);
  EXPECT_DOUBLE_EQ(MachineTimeOf(result)->toolMinutes, 0.5);
  EXPECT_DOUBLE_EQ(MachineTimeOf(result)->totalMinutes, moves + 0.6);
}

TEST(Evaluation, ResultOfWhatCouldNotBeReadOrCheckedIsIncomplete) {
  const struct {
    bool isProgramIncomplete;
    CheckState check;
    bool wantsCheck;
    bool expected;
  } cases[] = {{false, CheckState::kDone, true, false},
               {true, CheckState::kDone, false, true},
               {false, CheckState::kCannotRead, true, true},
               {false, CheckState::kCannotRead, false, false},
               {false, CheckState::kUnderWay, true, false}};
  for (const auto& c : cases) {
    Workshop shop;
    shop.program.isIncomplete = c.isProgramIncomplete;
    auto check = std::make_shared<FileCheck>();
    check->state = c.check;
    const auto result = Evaluate(shop.Work(), {.wanted = {.check = c.wantsCheck}, .check = check});
    EXPECT_EQ(result->isIncomplete, c.expected);
    EXPECT_EQ(HasIncomplete(std::vector<ProgramResult>{{}, *result}), c.expected);
  }
}

// Options are tried on copies: neither the order nor what was tried before shows in a result.
TEST(Evaluation, CopiesOfOneProgramGiveTheResultsOfSingleRuns) {
  const std::vector<std::string> options = {
      "MaxFeed=2000", "MaxFeed=500 PlungeFeed=100", "MaxFeed=2000 SafetyDistance=20",
      "MaxFeed=2000 ConCorChk=0 UpDownChk=0 FeedChgSmoothCheck=1", "MaxFeed=2000"};
  for (uint32_t seed = 0; seed < 40; ++seed) {
    Random random(seed);
    const auto blocks = RandomProgram(&random, 10 * seed, false);
    NcProgram original;
    Fill(&original.store, blocks);
    NcProgram copy;
    for (const std::string& changes : options) {
      JobRecord job = Record(changes);
      ASSERT_TRUE(CopyProgram(original, &copy));
      FeedPassMemory memory;
      const auto result =
          Evaluate({.program = &copy, .job = &job, .feedPassMemory = &memory}, {.adjusts = true});
      NcProgram single;
      Fill(&single.store, blocks);
      FeedPassMemory fresh;
      FeedPass(&single, job, nullptr, &fresh);
      CutTimeEntry entry;
      ComputeCutTime(&single.store, job, &entry);
      ASSERT_TRUE(result);
      EXPECT_EQ(result->entry.cutMinutes, entry.cutMinutes) << seed << " " << changes;
      EXPECT_EQ(result->entry.totalMinutes, entry.totalMinutes) << seed << " " << changes;
    }
  }
}

TEST(Evaluation, CopyWithoutMemoryIsRefused) {
  class NoMemory final : public PageMemory {
   public:
    void* Allocate() override { return nullptr; }
    void Free(void*) override {}
  };
  NoMemory memory;
  NcProgram copy{.store = BlockStore(&memory)};
  NcProgram original;
  EXPECT_TRUE(CopyProgram(original, &copy)) << "no blocks";
  original.store.blockCount = 1;
  original.store.WriteBlock(0);
  EXPECT_FALSE(CopyProgram(original, &copy));
}

}  // namespace
}  // namespace tvx
