// Canned cycles of word-address programs: the moves of a hole, and what is kept from line to line.
#include <gtest/gtest.h>

#include "control/test_reading.h"

namespace tvx {
namespace {

// All from X0 Y0 Z10 to a hole at X5 Y2, with the retract level 1 and the bottom -3.
TEST(CannedCycle, MovesOfEachCycle) {
  const struct {
    const char* words;
    const char* hole;  // from the retract level and back to it
  } cases[] = {
      {"G81", "cut 5 2 -3 F50; rapid 5 2 1"},
      {"G82 P500", "cut 5 2 -3 F50; dwell 0.5; rapid 5 2 1"},
      {"G82 P2.", "cut 5 2 -3 F50; dwell 2; rapid 5 2 1"},
      {"G83 Q1.5",
       "cut 5 2 -0.5 F50; rapid 5 2 1; rapid 5 2 0; cut 5 2 -2 F50; rapid 5 2 1; "
       "rapid 5 2 -1.5; cut 5 2 -3 F50; rapid 5 2 1"},
      // A last cut of the rest alone, and a clearance that ends at the retract level.
      {"G83 Q4", "cut 5 2 -3 F50; rapid 5 2 1"},
      {"G83 Q-2", "cut 5 2 -1 F50; rapid 5 2 1; rapid 5 2 -0.5; cut 5 2 -3 F50; rapid 5 2 1"},
      {"G83", "cut 5 2 -3 F50; rapid 5 2 1"},
      {"G73 Q1.6",
       "cut 5 2 -0.6 F50; rapid 5 2 -0.1; cut 5 2 -2.2 F50; rapid 5 2 -1.7; cut 5 2 -3 F50; "
       "rapid 5 2 1"},
      {"G74", "cut 5 2 -3 F50; cut 5 2 1 F50"},
      {"G84 P300", "cut 5 2 -3 F50; dwell 0.3; cut 5 2 1 F50"},
      {"G85", "cut 5 2 -3 F50; cut 5 2 1 F50"},
      {"G86 P1", "cut 5 2 -3 F50; dwell 0.001; rapid 5 2 1"},
      {"G89 P1.5", "cut 5 2 -3 F50; dwell 1.5; cut 5 2 1 F50"},
  };
  for (const auto& row : cases) {
    const std::string words = std::string("Z10\n") + row.words + " X5 Y2 Z-3 R1 F50 ";
    const std::string there = "rapid 0 0 10; rapid 5 2 10; rapid 5 2 1; ";
    EXPECT_EQ(Moves(words), there + row.hole + "; rapid 5 2 10") << row.words;
    EXPECT_EQ(Moves(words + "G99"), there + row.hole) << row.words;
  }
  EXPECT_EQ(Moves("G73 R.3 Z-.2 Q.4 F1"),
            "rapid 0 0 0.3; cut 0 0 -0.1 F1; rapid 0 0 0.3; cut 0 0 -0.2 F1; rapid 0 0 0.3");
}

TEST(CannedCycle, LevelsAndRepeats) {
  const ReadingCase cases[] = {
      // Below the retract level: first up. The initial level stays that of the first cycle word.
      {"G99 G81 X5 Z-2 R3 F1\nG98 G82 X6",
       "rapid 0 0 3; rapid 5 0 3; cut 5 0 -2 F1; rapid 5 0 3; "
       "rapid 6 0 3; cut 6 0 -2 F1; rapid 6 0 3"},
      {"Z9\nG99 G81 X5 Z-2 R3\nG98 X6",
       "rapid 0 0 9; rapid 5 0 9; rapid 5 0 3; cut 5 0 -2 F0; rapid 5 0 3; "
       "rapid 6 0 3; cut 6 0 -2 F0; rapid 6 0 3; rapid 6 0 9"},
      // Incremental: R from the initial level, Z from R, and each time moves on.
      {"Z10\nG91 G99 G81 X5 Y1 Z-4 R-8 K2\nX1\nG90 X0 R4",
       "rapid 0 0 10; rapid 5 1 10; rapid 5 1 2; cut 5 1 -2 F0; rapid 5 1 2; "
       "rapid 10 2 2; cut 10 2 -2 F0; rapid 10 2 2; "
       "rapid 11 2 2; cut 11 2 -2 F0; rapid 11 2 2; "
       "rapid 11 2 4; rapid 0 2 4; cut 0 2 -2 F0; rapid 0 2 4"},
      {"G90 G99 G81 X5 Z-1 R0 L2 K9",
       "rapid 5 0 0; cut 5 0 -1 F0; rapid 5 0 0; cut 5 0 -1 F0; rapid 5 0 0"},
      // None of the times: the values are kept. A K with I or J, or a broken one, is no number.
      {"G81 X5 Z-1 R0 K0\nX6 L0\nX7", "rapid 7 0 0; cut 7 0 -1 F0; rapid 7 0 0"},
      {"G81 Z-1 R0 I1 K3\nY1 K1.5",
       "cut 0 0 -1 F0; rapid 0 0 0; rapid 0 1 0; cut 0 1 -1 F0; rapid 0 1 0"},
      // Without R the initial level, without Z no move.
      {"Z3\nG81 X5 Z1", "rapid 0 0 3; rapid 5 0 3; cut 5 0 1 F0; rapid 5 0 3"},
      {"G81 X5 R1\nX6 L0\nM5", "code 5", "1 not-read"},
      // Values alone do not run it; Q and P count from then on.
      {"G83 G99 F7\nZ-2 R0 L0\nQ1\nP1.\nX1",
       "rapid 1 0 0; cut 1 0 -1 F7; rapid 1 0 0; rapid 1 0 -0.5; cut 1 0 -2 F7; dwell 1; "
       "rapid 1 0 0"},
      {"G82 Z-1 R0 L0 P9.\nM98 P7\nX1 P200 M98\nO7\nP5\nM99",
       "rapid 1 0 0; cut 1 0 -1 F0; dwell 0.005; rapid 1 0 0", "3 subprogram"},
      {"G91 G81 Z-1\nR1", "cut 0 0 -1 F0; rapid 0 0 0; rapid 0 0 1; cut 0 0 -1 F0; rapid 0 0 1"},
  };
  EXPECT_READINGS(cases);
}

TEST(CannedCycle, WhatEndsACycle) {
  const ReadingCase cases[] = {
      {"G1 F1\nG81 X1 Z-1 R0\nG80\nX2", "rapid 1 0 0; cut 1 0 -1 F1; rapid 1 0 0; cut 2 0 0 F1"},
      {"G3\nG81 X1 Z-1 R0\nG80 X2", "rapid 1 0 0; cut 1 0 -1 F0; rapid 1 0 0; rapid 2 0 0"},
      {"G81 X1 Z-1 R0\nX3 G1 G80 F9", "rapid 1 0 0; cut 1 0 -1 F0; rapid 1 0 0; cut 3 0 0 F9"},
      {"G1 G80 X3 F9\nX4", "cut 3 0 0 F9; cut 4 0 0 F9"},
      // The motion word also ends the values that are kept.
      {"G81 X1 Z-1 R0\nG0 X2\nG81 X3", "rapid 1 0 0; cut 1 0 -1 F0; rapid 1 0 0; rapid 2 0 0",
       "3 not-read"},
      {"G81 X1 Z-1 R0 K0\nG80 G82 X2 Z-2", "rapid 2 0 0; cut 2 0 -2 F0; rapid 2 0 0"},
      // A dwell, a call or a line without these words leaves it alone.
      {"G81 Z-1 R0 L0\nG4 X2\nM5\nG53 X5\nY1",
       "dwell 2; code 5; rapid 0 1 0; cut 0 1 -1 F0; rapid 0 1 0", "4 machine-position"},
  };
  EXPECT_READINGS(cases);
}

TEST(CannedCycle, CoordinatesAndUnits) {
  const ReadingCase cases[] = {
      {"G20 G81 X1 Z-1 R1 F1 G99",
       "rapid 0 0 25.4; rapid 25.4 0 25.4; cut 25.4 0 -25.4 F25.4; "
       "rapid 25.4 0 25.4"},
      // A shift moves the levels too.
      {"G81 G99 Z-1 R0 L0\nG52 Z10\nX1", "rapid 0 0 10; rapid 1 0 10; cut 1 0 9 F0; rapid 1 0 10"},
      {"G81 Z-1 R0 L0\nG53 Z-2 X5\nX1", "rapid 1 0 0; cut 1 0 -2 F0; rapid 1 0 0",
       "2 machine-position"},
      {"G52 Z10 X1\nG81 X0 Z-1 R0 G99", "rapid 0 0 10; rapid 1 0 10; cut 1 0 9 F0; rapid 1 0 10"},
      {"G68 X0 Y0 R90\nG81 X5 Z-1 R0", "rapid 0 5 0; cut 0 5 -1 F0; rapid 0 5 0"},
      {"G18 G68 X0 Z0 R90\nG81 X5 Z-1 R0", "", "2 not-read"},
      // A circle of holes.
      {"G16 G81 X10 Y0 Z-1 R0\nG91 Y90 K2",
       "rapid 10 0 0; cut 10 0 -1 F0; rapid 10 0 0; rapid 0 10 0; cut 0 10 -1 F0; rapid 0 10 0; "
       "rapid -10 0 0; cut -10 0 -1 F0; rapid -10 0 0"},
      {"G94 F100 G93 F2 G81 X0 Z-5 R0", "cut 0 0 -5 F10; rapid 0 0 0"},
      {"G19 G81 X1 Z-1 R0", "rapid 1 0 0; cut 1 0 -1 F0; rapid 1 0 0"},
  };
  EXPECT_READINGS(cases);
}

}  // namespace
}  // namespace tvx
