// What the golden cases of the calculator do not show: steps without the dialog around them.
#include "getfeed/calculation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"

namespace tvx {
namespace {

// The three results as the dialog shows them.
std::string Results(const GetFeedState& state) {
  return Format("%d %.0f %.0f", state.spindleOut, state.feedOut, state.removalOut);
}

GetFeedState Started() {
  GetFeedState state;
  StartCalculation(&state);
  return state;
}

TEST(Calculation, ImpossibleDivisionLeavesTheLastResults) {
  const struct {
    const char* what;
    void (*change)(GetFeedState*);
  } cases[] = {
      {"diameter 0", [](GetFeedState* s) { s->toolDiameter = 0, RecalcTool(s); }},
      {"stepover 0", [](GetFeedState* s) { s->stepover = 0, RecalcResult(s); }},
      {"depth 0", [](GetFeedState* s) { s->cutDepth = 0, RecalcResult(s); }},
      {"section too small for a float",
       [](GetFeedState* s) { s->stepover = s->cutDepth = 1e-30F, RecalcResult(s); }},
      {"spindle 0", [](GetFeedState* s) { s->maxSpindle = 0, RecalcResult(s); }},
      {"no flutes", [](GetFeedState* s) { s->fluteCount = 0, RecalcResult(s); }},
      {"power over none",
       [](GetFeedState* s) { s->maxFeedRate = 0, s->ncPower = 0, RecalcResult(s); }},
      {"endless diameter", [](GetFeedState* s) { s->toolDiameter = INFINITY, RecalcTool(s); }},
      {"no number", [](GetFeedState* s) { s->stepover = NAN, RecalcResult(s); }},
      {"endless section", [](GetFeedState* s) { s->stepover = INFINITY, RecalcResult(s); }},
  };
  for (const auto& c : cases) {
    GetFeedState state = Started();
    c.change(&state);
    EXPECT_EQ(Results(state), "1375 440 18") << c.what;
  }
}

TEST(Calculation, FactorsFollowOnlyTheirOwnStep) {
  GetFeedState state = Started();

  state.fluteCount = 4;
  RecalcResult(&state);
  EXPECT_EQ(state.toolFormFactor, 0.8F);  // until the next change of the tool
  RecalcTool(&state);
  EXPECT_EQ(state.toolFormFactor, 1.2F);

  state.toolDiameter = 20;
  state.workMaterial = "흑연";
  RecalcTool(&state);
  RecalcSpeed(&state);
  EXPECT_EQ(state.materialFactor, 14.2F);
  EXPECT_EQ(state.toothFeed, 0.36F);

  state.toolLength = 170;  // 8.5 diameters, then more than the table knows
  RecalcTool(&state);
  EXPECT_EQ(state.speedEffective, 140 * 0.5F);
  state.toolLength = 500;
  RecalcTool(&state);
  EXPECT_EQ(state.lengthRatio, 25.0F);
  EXPECT_EQ(state.lengthFactor, 0.5F);

  state.toolDiameter = 0;  // no ratio, but carbide goes by its flutes
  state.fluteCount = 2;
  RecalcTool(&state);
  EXPECT_EQ(state.toolFormFactor, 0.8F);
  EXPECT_EQ(state.lengthRatio, 25.0F);

  state.toolDiameter = 10;
  state.highSpeedRough = 1;
  RecalcToothFeed(&state);
  EXPECT_EQ(state.toothFeed, 0.32F);
}

}  // namespace
}  // namespace tvx
