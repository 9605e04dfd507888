// The time of each rule, the costliest places, and moves in words.
#include "insight/feed_causes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"
#include "insight/move_text.h"
#include "stats/cut_time.h"
#include "support/memory_files.h"
#include "support/random_program.h"
#include "support/rows.h"

namespace tvx {
namespace {

// A second pass finds the zones of the first.
TEST(FeedCauses, RulesAndTheHighestFeedAddUpToTheTimeOfTheStraightCuts) {
  for (uint32_t seed = 0; seed < 500; ++seed) {
    Random random(seed);
    NcProgram program;
    Fill(&program.store, RandomProgram(&random, 1 + seed, false));
    JobRecord job;
    job.SafetyDistance = static_cast<float>(random.OneOf({0.5, 3.0, 5.0, 20.0}));
    job.PlungeFeed = random.OneOf({300, 5000});
    job.UpDownChk = random.OneOf({0, 1});
    bool hadZones = false;
    for (uint32_t i = 0; i < program.store.blockCount; ++i) {
      const MotionBlock& block = *program.store.Peek(i);
      hadZones = hadZones || block.headFeed != 0 || block.tailFeed != 0;
    }
    FeedCauses causes;
    FeedPassMemory memory;
    for (int run = 0; run < 2; ++run) {
      FeedPass(&program, job, nullptr, &memory, causes.Follow(program.store.blockCount));
      const CauseMinutes minutes = CountCauses(&program.store, program.FeedBase, causes);
      const double all = minutes.straightCuts;
      double sum = minutes.unexplained + minutes.atHighestFeed;
      for (const double rule : minutes.byRule) sum += rule;
      EXPECT_NEAR(sum, all, 1e-9 * std::abs(all)) << seed;
      EXPECT_TRUE(hadZones || std::abs(minutes.unexplained) < 1e-12) << seed;
      for (uint32_t i = 0; i < program.store.blockCount; ++i) {
        const MotionBlock& block = *program.store.Peek(i);
        const bool isSlowed = IsCutType(block.type) && block.feed != job.MaxFeed;
        const bool isArc = IsArcType(block.type);
        ASSERT_TRUE(isArc || causes.RulesOf(i, block)[0].has_value() == isSlowed)
            << seed << " " << i;
      }
      CutTimeEntry entry;
      ComputeCutTime(&program.store, job, &entry);
      EXPECT_NEAR(entry.cutMinutes, all, 1e-4 * std::abs(all)) << seed;
      const RangeOfFeed slowAndFast = [&](int32_t feed) { return feed < job.MaxFeed ? 0 : 1; };
      const std::vector<double> ranges = MinutesByFeed(&program.store, 2, slowAndFast);
      EXPECT_NEAR(ranges[0] + ranges[1], all, 1e-9 * std::abs(all));
    }
  }
}

struct Adjusted {
  explicit Adjusted(const std::string& text) {
    files.Put("c:\\a.nc", text);
    ParserStates states;
    JobRecord job;
    job.PlungeFeed = 200;
    LoadNcFile("c:\\a.nc", &program, &states, &job, &files);
    FeedPassMemory memory;
    FeedPass(&program, job, nullptr, &memory, causes.Follow(program.store.blockCount));
  }

  // "XY corner 0.09 min lines 2-3 at 2", the costliest first.
  std::string Places() {
    std::string text;
    for (const SlowPlace& place :
         CostliestPlaces(&program.store, program.FeedBase, causes, /*count=*/3)) {
      const auto line = [&](uint32_t block) { return program.source.lines.LineOf(block); };
      text += text.empty() ? "" : "; ";
      text += Format("%s %.3f min lines %u-%u at %u", RuleName(place.rule), place.minutes,
                     line(place.firstBlock), line(place.lastBlock), line(place.costliestBlock));
    }
    return text;
  }

  MemoryFiles files;
  NcProgram program;
  FeedCauses causes;
};

// Cuts of 100 mm along an axis.
std::string Along(char axis, int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::string("G91 ") + axis + "100\n";
  return text;
}

// Zones of 5 mm at 100 instead of 1000 mm/min: 0.045 minutes before and after a corner.
TEST(FeedCauses, PlacesAreRunsOfLinesThatOneRuleSlows) {
  const std::string start = "G0 X0 Y0 Z0\nG1 F500\n";
  const Rows<std::string, const char*> rows = {
      {start + Along('X', 50) + Along('Y', 50), "XY corner 0.090 min lines 52-53 at 52"},
      {start + Along('X', 5) + Along('Y', 5) + Along('X', 5),
       "XY corner 0.180 min lines 7-13 at 7"},
      {start + Along('X', 5) + Along('Y', 6) + Along('X', 5),
       "XY corner 0.090 min lines 7-8 at 7; XY corner 0.090 min lines 13-14 at 13"},
      {start + Along('X', 5) + Along('Z', 2) + Along('X', 5),
       "slope 1.800 min lines 8-9 at 8; Z corner 0.090 min lines 7-10 at 7"},
      {start + Along('X', 9), ""},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(Adjusted(text).Places(), expected) << text;
}

TEST(FeedCauses, RuleThatLengthensZoneIsItsRule) {
  FeedCauses causes;
  const FeedTrace trace = causes.Follow(1);
  MotionBlock shortZone;
  shortZone.tailPercent = 6;
  shortZone.tailFeed = 570;
  MotionBlock longZone = shortZone;
  longZone.tailPercent = 23;
  trace(FeedRule::kXyCorner, 0, MotionBlock{}, shortZone);
  trace(FeedRule::kZCorner, 0, shortZone, longZone);
  EXPECT_EQ(causes.RulesOf(0, longZone)[static_cast<size_t>(MovePart::kTail)], FeedRule::kZCorner);
}

TEST(MoveText, ShowsLineEndFeedsAndRulesOfEachMove) {
  Adjusted adjusted(
      "G0 X0 Y0 Z1\nG1 Z-5 F700\n(\xB0\xA1)\nX200\nY50 F1000\nG2 X250 Y50 I25 J0\nG1 X900\nX950\n");
  SourceLines lines(&adjusted.program.source, &adjusted.files);
  const Rows<uint32_t, const char*, const char*> rows = {
      {0, "line 1: G0 X0 Y0 Z1 | to 0 0 1 | rapid", "1번 줄: G0 X0 Y0 Z1 | 끝점 0 0 1 | 급속이송"},
      {1, "line 2: G1 Z-5 F700 | to 0 0 -5 | programmed 700, adjusted 100 | Z corner",
       "2번 줄: G1 Z-5 F700 | 끝점 0 0 -5 | 프로그램 피드 700, 조정된 피드 100 | Z 코너"},
      {2, "line 3: (가)", "3번 줄: (가)"},
      {3,
       "line 4: X200 | to 200 0 -5 | programmed 700, adjusted 1000 head 2% 100 tail 2% 100 | "
       "head Z corner, tail XY corner",
       "4번 줄: X200 | 끝점 200 0 -5 | 프로그램 피드 700, 조정된 피드 1000 앞 2% 100 뒤 2% 100 | "
       "앞 Z 코너, 뒤 XY 코너"},
      {8, "line 8: X950 | to 950 50 -5 | feed 1000", "8번 줄: X950 | 끝점 950 50 -5 | 피드 1000"},
  };
  for (const auto& [block, english, korean] : rows) {
    const MoveFacts facts = FactsOf(adjusted.program.store, block, &adjusted.causes, &lines);
    EXPECT_EQ(MoveText(facts, Language::kEnglish), english);
    EXPECT_EQ(MoveText(facts, Language::kKorean), korean);
  }
}

}  // namespace
}  // namespace tvx
