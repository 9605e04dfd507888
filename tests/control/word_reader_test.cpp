// Word-address lines: words, modes, coordinates, arcs and events.
#include <gtest/gtest.h>

#include "control/test_reading.h"

namespace tvx {
namespace {

TEST(WordReader, CharactersAndWords) {
  const ReadingCase cases[] = {
      {"G1 X1 0 Y-.5 F1 0 0", "cut 10 -0.5 0 F100"},
      {"g1x1\ty2\rz3f100", "cut 1 2 3 F100"},
      {"G1 X1(a)2(b) (Y9) F1;Y7\nX3(open Y9\nY5", "cut 12 0 0 F1; cut 3 0 0 F1; cut 3 5 0 F1"},
      {"G1 X--5 Y+-5 Z-+-+5", "cut 5 -5 5 F0"},
      {"G1 X1. Y.5 Z0001.50", "cut 1 0.5 1.5 F0"},
      {"\xEF\xBB\xBFG1 X5", "cut 5 0 0 F0"},
      {"  % G1 X9\nG1 X5", "cut 5 0 0 F0"},
      {"/G1 X5\n/2 X6\nN10/3X7\nN20 / X8",
       "cut 5 0 0 F0; cut 6 0 0 F0; cut 7 0 0 F0; cut 8 0 0 F0"},
      {"G1 X5 X6 Y1 Y2", "cut 6 2 0 F0"},
      {"F300 Y2 X1 G0 G1", "cut 1 2 0 F300"},
      {"G1 X5 E1 S2 D3 H4 L5 P6 Q7", "cut 5 0 0 F0"},
      {"G1 X1.23456789012345678901", "cut 1.23457 0 0 F0"},
      {"G1 X5", "cut 5 0 0 F0"},
      {"", ""},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, WhatIsNotReadLeavesTheRestOfTheLine) {
  const ReadingCase cases[] = {
      {"G1 X Y5", "cut 0 5 0 F0", "1 not-read"},
      {"G1 X5 X- Y.", "cut 5 0 0 F0", "1 not-read"},
      {"G1 X1.2.3 Y4", "cut 1.2 4 0 F0", "1 not-read"},
      {"G1 $X5 =7", "cut 5 0 0 F0", "1 not-read"},
      {"G1 X5,R2 Y1, C-3. Z1", "cut 5 1 1 F0", "1 not-read"},
      {"G1 X5 / Y3", "cut 5 3 0 F0", "1 not-read"},
      {"G1 X1000000001 Y1000000000", "cut 0 1e+09 0 F0", "1 not-read"},
      {"G1 X99999999999999999999999999 Y1", "cut 0 1 0 F0", "1 not-read"},
      {"G1 G96 X5\nG61.1\nG-1", "cut 5 0 0 F0", "1 not-read, 2 not-read, 3 not-read"},
      {"G1 X5 \xB0\xA1", "cut 5 0 0 F0", "1 not-read"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, ModesLastAndTheLastOfAGroupCounts) {
  const ReadingCase cases[] = {
      {"X5\nG1 X6\nX7\nG0 X8", "rapid 5 0 0; cut 6 0 0 F0; cut 7 0 0 F0; rapid 8 0 0"},
      {"G91 X5\nX5\nG90 X5 G91", "rapid 5 0 0; rapid 10 0 0; rapid 15 0 0"},
      {"G1 G20 X1 F10\nG21 X1\nG70 Y1 F1\nG71 Y1",
       "cut 25.4 0 0 F254; cut 1 0 0 F254; cut 1 25.4 0 F25.4; cut 1 1 0 F25.4"},
      {"G1 X5 F-3", "cut 5 0 0 F0"},
      {"G1 G95 F0.1 S1000 X5\nS500 X6\nG94 F80 X7", "cut 5 0 0 F100; cut 6 0 0 F50; cut 7 0 0 F80"},
      {"G1 F100 G93 X5\nX6\nG93 F2 X10\nG94 X11",
       "cut 5 0 0 F500; cut 6 0 0 F0; cut 10 0 0 F8; cut 11 0 0 F0"},
      {"G1 F100 X1\nG93 F2 X3\nG94 X4", "cut 1 0 0 F100; cut 3 0 0 F4; cut 4 0 0 F100"},
      {"G40 G43 G49 G61 G64 G5 G5.1 G8 G9 G11 G50 G67 G97 G103 G187 G1 X5", "cut 5 0 0 F0"},
      {"G1 X5 A3\nG4 U1\nB2\nX6 C1 W2", "cut 5 0 0 F0; dwell 1; cut 6 0 0 F0",
       "1 rotary, 3 rotary, 4 rotary"},
      {"G1 G41 D1 X5\nG42 X6\nG40 X7 G41 G40", "cut 5 0 0 F0; cut 6 0 0 F0; cut 7 0 0 F0",
       "1 compensation, 2 compensation"},
      {"G0 X5\nG31 X6\nX7\nG38.2 Z1", "rapid 5 0 0; cut 6 0 0 F0; rapid 7 0 0; cut 7 0 1 F0"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, IntegerDataAreLengthsWithoutAPoint) {
  const ReadingOptions integer{.isIntegerData = true};
  EXPECT_EQ(Moves("G1 X1500 Y2. Z-500 F100", integer), "cut 1.5 2 -0.5 F100");
  EXPECT_EQ(Moves("G20 G1 X1000", integer), "cut 25.4 0 0 F0");
  EXPECT_EQ(Moves("#1=2000\nG1 X#1 Y[500]\nG4 X2", integer), "cut 2 0.5 0 F0; dwell 2");
  EXPECT_EQ(Moves("G16 X1000 Y90\nG15 G68 X0 Y0 R90\nG1 X1000 Y0", integer),
            "rapid 0 1 0");  // the turned end is where the polar one was
  EXPECT_EQ(Moves("G81 Z-1000 R1000 K2 G91 X1000 F1", integer),
            "rapid 0 0 1; rapid 1 0 1; cut 1 0 0 F1; rapid 1 0 1; "
            "rapid 2 0 1; cut 2 0 0 F1; rapid 2 0 1");
}

TEST(WordReader, EventsComeBeforeTheMoveStopsAndEndsAfterIt) {
  const ReadingCase cases[] = {
      {"T5\nX1 M3 M8 M6 M0 T7", "tool 7; code 3; code 8; rapid 1 0 0; stop 0"},
      {"X1 M1 M0\nM05 X2 M198", "rapid 1 0 0; stop 1; stop 0; code 5; code 198; rapid 2 0 0"},
      {"M30 X1\nX2", "rapid 1 0 0"},
      {"X1\nM2\nX2", "rapid 1 0 0"},
      {"G4 P500\nG4 P0.5\nG4 X2\nG4 U3 P1\nG4 X0\nG4\nG4 X-1",
       "dwell 0.5; dwell 0.5; dwell 2; dwell 3"},
      {"G1 G4 X2 M3 M0\nX5", "code 3; dwell 2; stop 0; cut 5 0 0 F0"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, ShiftsTurnsAndPolarCoordinates) {
  const ReadingCase cases[] = {
      // The shifts add up, and axes that are not given keep theirs.
      {"G52 X10 Y5\nX0 Y0\nG52 X20\nX0\nG91 X1\nG52 X0 Y0\nG90 X0 Y0",
       "rapid 10 5 0; rapid 20 5 0; rapid 21 5 0; rapid 0 0 0"},
      {"X10 Y10\nG92 X0\nX5 Y5\nG52 X100\nX0\nG92.1\nX0\nG92.3",
       "rapid 10 10 0; rapid 15 5 0; rapid 110 5 0; rapid 100 5 0", "8 not-read"},
      {"G68 X0 Y0 R90\nX10\nY10\nG91 X5\nZ1\nG69 G90 X0",
       "rapid 0 10 0; rapid -10 10 0; rapid -10 15 0; rapid -10 15 1; rapid 0 15 1"},
      {"G1 X10 F5\nG68 R90\nX20 Y0\nG3 X10 Y10 I-10\nG90.1 G2 X20 Y0 I10 J0",
       "cut 10 0 0 F5; cut 10 10 0 F5; arc 0 0 0 F5 XY 10 0 90; arc 10 10 0 F5 XY 10 0 -90"},
      {"G18 G68 X0 Z0 R90\nZ10\nG17 G2 X5 I1", "rapid 10 0 0; cut 10 0 -5 F0", "3 not-read"},
      {"G92 X5\nG68 X0 Y0 R90\nX10 Y0", "rapid -5 10 0"},
      {"G16 X10 Y0\nY90\nG91 Y90\nX10\nG90 Z5\nG15 X1",
       "rapid 10 0 0; rapid 0 10 0; rapid -10 0 0; rapid -20 0 0; rapid -20 0 5; rapid 1 0 5"},
      {"G18 G16 Z10 X90", "rapid 10 0 0"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, PlacesOnlyTheMachineKnows) {
  const ReadingCase cases[] = {
      {"X5 Y5 Z5\nG28 Z10 X0\nG30\nG91 G28 Z0\nG90 X1", "rapid 5 5 5; rapid 0 5 10; rapid 1 5 10",
       "2 machine-position, 3 machine-position, 4 machine-position"},
      {"G1 X5\nG53 G0 Z0 X9\nX6", "cut 5 0 0 F0; rapid 6 0 0", "2 machine-position"},
      {"G55\nX1\nG55\nG54\nG54.1 P1\nG54.1 P1\nG54.1 P2", "rapid 1 0 0",
       "4 work-offset, 5 work-offset, 7 work-offset"},
      {"G10 L2 P1 X5\nG51 X1 P2\nG50.1 X0\nX1", "rapid 1 0 0", "1 shift, 2 shift, 3 shift"},
      {"G76 X5\nG12 I5\nG33 Z1\nG68.2 X1\nG66 P1\nG43.1 X1\nX2", "rapid 2 0 0",
       "1 not-read, 2 not-read, 3 not-read, 4 not-read, 5 not-read, 6 not-read"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, ArcsInThreePlanes) {
  const ReadingCase cases[] = {
      {"G1 X10 F5\nG3 X0 Y10 I-10\nG2 X10 Y0 J-10",
       "cut 10 0 0 F5; arc 0 10 0 F5 XY 0 0 90; arc 10 0 0 F5 XY 0 0 -90"},
      {"G18 G1 Z10 F5\nG3 Z0 X10 K-10\nG2 X0 Z10 I-10",
       "cut 0 0 10 F5; arc 10 0 0 F5 ZX 0 0 90; arc 0 0 10 F5 ZX 0 0 -90"},
      {"G19 G1 Y10 F5\nG3 Y0 Z10 J-10\nG2 Y10 Z0 K-10",
       "cut 0 10 0 F5; arc 0 0 10 F5 YZ 0 0 90; arc 0 10 0 F5 YZ 0 0 -90"},
      // A helix, a full circle, whole turns, and a spiral.
      {"G3 X10 Y10 Z4 I10 F5", "arc 10 10 4 F5 XY 10 0 270"},
      {"G2 I5", "arc 0 0 0 F0 XY 5 0 -360"},
      {"G3 I5 P3 Z9", "arc 0 0 9 F0 XY 5 0 1080"},
      {"G3 I5 P1.5\nG3 I5 P2 G64\nG3 I5 P0",
       "arc 0 0 0 F0 XY 5 0 360; arc 0 0 0 F0 XY 5 0 360; "
       "arc 0 0 0 F0 XY 5 0 360"},
      {"X10\nG3 X-20 I-10", "rapid 10 0 0; arc -20 0 0 F0 XY 0 0 180", "2 arc-ends-elsewhere"},
      {"X10\nG3 X-10.009 I-10", "rapid 10 0 0; arc -10.009 0 0 F0 XY 0 0 180"},
      // By radius.
      {"G2 X10 R5\nG3 X0 R5", "arc 10 0 0 F0 XY 5 0 -180; arc 0 0 0 F0 XY 5 0 180"},
      {"G2 X10 Y10 R10\nG0 X0 Y0\nG2 X10 Y10 R-10",
       "arc 10 10 0 F0 XY 10 0 -90; rapid 0 0 0; arc 10 10 0 F0 XY 0 10 -270"},
      {"G3 X10 Y10 R10\nG0 X0 Y0\nG3 X10 Y10 R-10",
       "arc 10 10 0 F0 XY 0 10 90; rapid 0 0 0; arc 10 10 0 F0 XY 10 0 270"},
      {"G2 X10 R4.995\nX0 R4", "arc 10 0 0 F0 XY 5 0 -180; arc 0 0 0 F0 XY 5 0 -180",
       "2 arc-radius-short"},
      {"G19 G2 Y10 R5 Z0 X3", "arc 3 10 0 F0 YZ 5 0 -180"},
      {"G2 X10 R5 I99 J99", "arc 10 0 0 F0 XY 5 0 -180"},
      // What is no arc.
      {"G2 X10", "cut 10 0 0 F0", "1 not-read"},
      {"G2 X10 K5", "cut 10 0 0 F0", "1 not-read"},
      {"G2 X10 I0 J0", "cut 10 0 0 F0", "1 not-read"},
      {"G2 X10 I10", "cut 10 0 0 F0", "1 not-read"},
      {"G2 R5\nZ3 R5", "", "1 not-read, 2 not-read"},
      {"G2 M5\nF100 S3", "code 5"},
      // Centres of the program, missing ones 0.
      {"X10 Y5\nG90.1 G3 X-10 J5\nG91.1 G2 X10 I10",
       "rapid 10 5 0; arc -10 5 0 F0 XY 0 5 180; arc 10 5 0 F0 XY 0 5 -180"},
      {"G20 G2 X1 R.5 F1", "arc 25.4 0 0 F25.4 XY 12.7 0 -180"},
      {"G93 G3 X0 I5 F2", "arc 0 0 0 F62.8319 XY 5 0 360"},
  };
  EXPECT_READINGS(cases);
}

TEST(WordReader, OneRemarkForALineAndId) {
  EXPECT_EQ(TestReading("N1 G96 G96 X X A1 B1\nM98 P1\nM98 P1\nG53 X1\n").Remarks(),
            "1 not-read, 1 rotary, 2 subprogram, 3 subprogram, 4 machine-position");
  EXPECT_EQ(TestReading("#1=0\nWHILE [#1 LT 9] DO1\nG96 #1=#1+1\nEND1").Remarks(), "3 not-read");
}

TEST(WordReader, MovesOfOneRunOfALineHaveTheSameNumber) {
  const TestReading reading("G81 X1 Z-1 R1\nG80\n#1=1\nWHILE[#1LT3]DO1\n#1=#1+1 G1 X#1\nEND1\n");
  std::string runs;
  for (const ControlMove& move : reading.receiver.moves) runs += Format("%d ", int(move.run));
  EXPECT_EQ(reading.receiver.lines, "1 1 1 1 5 5");
  EXPECT_EQ(runs, "1 1 1 1 5 8 ");
}

TEST(WordReader, FailuresOfTheFile) {
  MemoryFiles files;
  KeepingReceiver receiver;
  ReadingRemarks remarks;
  EXPECT_EQ(ReadAsControl("c:\\none.nc", {}, &files, &receiver, &remarks).kind(),
            StatusKind::kMissing);
  files.Put("c:\\a.nc", "G1 X5\n");
  files.RefuseRead(1);
  EXPECT_EQ(ReadAsControl("c:\\a.nc", {}, &files, &receiver, &remarks).kind(),
            StatusKind::kReadFailed);
  EXPECT_EQ(receiver.list, "");
}

}  // namespace
}  // namespace tvx
