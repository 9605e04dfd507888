// The steps on a bare record. The results of the user's changes are in calculator_dialog_test.
#include "getfeed/calculation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"

namespace tvx {
namespace {

TEST(Calculation, ImpossibleDivisionKeepsTheLastResults) {
  const struct {
    const char* what;
    void (*change)(GetFeedState*);
  } cases[] = {
      {"diameter 0", [](GetFeedState* s) { s->toolDiameter = 0, RecalcTool(s); }},
      {"stepover 0", [](GetFeedState* s) { s->stepover = 0, RecalcResult(s); }},
      {"depth 0", [](GetFeedState* s) { s->cutDepth = 0, RecalcResult(s); }},
      {"section below the smallest float",
       [](GetFeedState* s) { s->stepover = s->cutDepth = 1e-30F, RecalcResult(s); }},
      {"spindle 0", [](GetFeedState* s) { s->maxSpindle = 0, RecalcResult(s); }},
      {"no flutes", [](GetFeedState* s) { s->fluteCount = 0, RecalcResult(s); }},
      {"power limit without power",
       [](GetFeedState* s) { s->maxFeedRate = 0, s->ncPower = 0, RecalcResult(s); }},
      {"infinite diameter", [](GetFeedState* s) { s->toolDiameter = INFINITY, RecalcTool(s); }},
      {"NaN", [](GetFeedState* s) { s->stepover = NAN, RecalcResult(s); }},
      {"infinite section", [](GetFeedState* s) { s->stepover = INFINITY, RecalcResult(s); }},
  };
  for (const auto& c : cases) {
    GetFeedState state;
    StartCalculation(&state);
    c.change(&state);
    EXPECT_EQ(Format("%d %.0f %.0f", state.spindleOut, state.feedOut, state.removalOut),
              "1375 440 18")
        << c.what;
  }
}

TEST(Calculation, DiameterZeroKeepsTheLengthRatioButUpdatesTheFormFactor) {
  GetFeedState state;
  StartCalculation(&state);
  state.toolDiameter = 0;
  state.fluteCount = 4;
  RecalcTool(&state);
  EXPECT_EQ(state.lengthRatio, 5);
  EXPECT_EQ(state.toolFormFactor, 1.2F);
}

}  // namespace
}  // namespace tvx
