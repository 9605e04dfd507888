#include "getfeed/calculation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/format.h"

namespace tvx {
namespace {

// The three results as the dialog shows them.
std::string Results(const GetFeedState& state) {
  return Format("%d %.0f %.0f", state.spindleOut, state.feedOut, state.removalOut);
}

// A started calculation with changes made beforehand.
template <typename Change>
GetFeedState Started(Change change) {
  GetFeedState state;
  change(&state);
  StartCalculation(&state);
  return state;
}

TEST(Calculation, StartValues) {
  const GetFeedState state = Started([](GetFeedState*) {});
  EXPECT_EQ(state.toolFormFactor, 0.8F);
  EXPECT_EQ(state.materialFactor, 14.2F);
  EXPECT_EQ(state.speedBase, 43.2F);
  EXPECT_EQ(state.toothFeed, 0.16F);
  EXPECT_EQ(state.lengthFactor, 1.0F);
  EXPECT_EQ(state.powerCoefficient, 12.11F);  // not yet that of the material
  EXPECT_EQ(Results(state), "1375 440 18");
}

// What the limits of tooth feed, machine and power make of the inputs.
TEST(Calculation, Limits) {
  const struct {
    const char* what;
    void (*change)(GetFeedState*);
    const char* results;
  } cases[] = {
      {"spindle down to the tooth feed", [](GetFeedState* s) { s->stepover = s->cutDepth = 5; },
       "613 196 4908"},
      {"sliders", [](GetFeedState* s) { s->speedPercent = 120, s->feedPercent = 80; },
       "1650 422 14"},
      {"3.14 for pi", [](GetFeedState* s) { s->speedPercent = 150; }, "2063 660 26"},
      {"feed slider counts twice in the removal", [](GetFeedState* s) { s->feedPercent = 150; },
       "1375 660 40"},
      {"spindle of the machine", [](GetFeedState* s) { s->maxSpindle = 1000; }, "1000 320 13"},
      {"feed of the machine brings the spindle down",
       [](GetFeedState* s) { s->stepover = s->cutDepth = 5, s->maxFeedRate = 100; },
       "312 100 2500"},
      {"no power to spare", [](GetFeedState* s) { s->idlePower = s->ncPower; }, "0 0 0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Results(Started(c.change)), c.results) << c.what;
}

TEST(Calculation, PowerBringsSpindleAndFeedDownTogether) {
  const auto deepCut = [](GetFeedState* s) { s->stepover = s->cutDepth = 5; };
  const GetFeedState free = Started(deepCut);
  const GetFeedState held = Started([&](GetFeedState* s) {
    deepCut(s);
    s->ncPower = 3.05F;
  });
  EXPECT_EQ(Results(free), "613 196 4908");
  EXPECT_EQ(Results(held), "73 23 585");
  // Both fall in one ratio; the shown speed has lost its fraction.
  EXPECT_NEAR(held.feedOut / free.feedOut, 1.0 * held.spindleOut / free.spindleOut, 2e-3);
  // Half the power to spare gives half the speed.
  const GetFeedState half = Started([&](GetFeedState* s) {
    deepCut(s);
    s->ncPower = 3.025F;
  });
  EXPECT_NEAR(half.feedOut, held.feedOut / 2, held.feedOut * 1e-4);
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
    GetFeedState state = Started([](GetFeedState*) {});
    c.change(&state);
    EXPECT_EQ(Results(state), "1375 440 18") << c.what;
  }
}

TEST(Calculation, FactorsFollowOnlyTheirOwnStep) {
  GetFeedState state = Started([](GetFeedState*) {});

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

TEST(Calculation, MaterialWithoutAFactor) {
  EXPECT_EQ(Started([](GetFeedState* s) { s->toolDiameter = 60; }).materialFactor, 1.0F);
  EXPECT_EQ(Started([](GetFeedState* s) { s->workMaterial = "얄처리SKD61"; }).materialFactor, 1.0F);
}

}  // namespace
}  // namespace tvx
