// Subprograms, variables, expressions and statements of word-address programs.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "control/expression.h"
#include "control/program_text.h"
#include "control/run_limit.h"
#include "control/test_reading.h"

namespace tvx {
namespace {

TEST(Subprograms, CallsAndReturns) {
  const ReadingCase cases[] = {
      {"O1\nM98 P2\nX9\nM30\nO2\nX1\nM99\nX5", "rapid 1 0 0; rapid 9 0 0"},
      {"O1\nX5 M98 P2 L3\nX9\nM30\nO2\nG91 X1\nG90",
       "rapid 5 0 0; rapid 6 0 0; rapid 7 0 0; "
       "rapid 8 0 0; rapid 9 0 0"},
      {"O1\nM98 P20003\nM98 P12\nM30\n:3\nG91 X1\nM99\nO12\nY1\nM99",
       "rapid 1 0 0; rapid 2 0 0; rapid 2 1 0"},
      {"O1\nM98 P20003\nM98 P20003 L1\nM30\nO20003\nG91 X1\nM99\nO3\nX50",
       "rapid 1 0 0; rapid 2 0 0"},
      {"O1\nM98 P2 L0\nM98 P9\nM98\nM97 P4\nX1\nM30\nO2\nN4 X5", "rapid 1 0 0",
       "3 subprogram, 4 subprogram, 5 subprogram"},
      // M97: the next N below, else the first of the program.
      {"N5 Y1\nM97 P7 L2\nM97 P5\nM30\nN5 X5\nN7 G91 X1\nM99",
       "rapid 0 1 0; rapid 1 1 0; rapid 2 1 0; rapid 7 1 0; rapid 8 1 0"},
      // Of M97, M98 and M99 the last one counts, after the move of the line.
      {"O1\nX1 M98 P2 M99\nX2\nO2\nX3", "rapid 1 0 0"},
      // M30 ends the run from a subprogram too.
      {"O1\nM98 P2\nX9\nO2\nX1\nM30", "rapid 1 0 0"},
      // The first program with the lines before it; or these alone, if they end or call something.
      {"X1\nX2\nO5\nX3\nO6\nX4", "rapid 1 0 0; rapid 2 0 0; rapid 3 0 0"},
      {"X1\nM98 P5\nX2\nO5\nX3\nM99", "rapid 1 0 0; rapid 3 0 0; rapid 2 0 0"},
      {"X1\nM30\nO5\nX3", "rapid 1 0 0"},
      {"IF [1 EQ 0] GOTO 5\nX1\nG65 P5\nO5\nX3", "rapid 1 0 0; rapid 3 0 0"},
      {"X1 GOTO 9\nX2\nO5\nN9 X3", "rapid 2 0 0; rapid 3 0 0", "1 macro"},
      {"GOTO 9\nX2\nO5\nN9 X3\nO6\nN9", "rapid 3 0 0"},
      {"X1 O5 Y1\nG91 X1\nO6\nX9", "rapid 1 1 0; rapid 2 1 0"},
      // Other forms of subroutines.
      {"X1\nO<a b> SUB\nX2\nO<AB>ENDSUB\nO<ab> CALL\nX3", "rapid 1 0 0; rapid 3 0 0",
       "2 macro, 5 macro"},
      {"O7 SUB\nO8\nN5 X2\nM30\nO7 ENDSUB\nX1\nGOTO 5\nO9 IF [1]\nO9 ENDIF", "rapid 1 0 0",
       "1 macro, 7 macro, 8 macro, 9 macro"},
      {"O7 SUB\nX1\nO6 ENDSUB\nX2", "rapid 1 0 0; rapid 2 0 0", "1 macro, 3 macro"},
  };
  EXPECT_READINGS(cases);
}

TEST(Subprograms, DepthIsLimited) {
  // O1 calls itself after its own move: 16 calls below the main program.
  TestReading reading("G91\nO1\nX1\nM98 P1");
  EXPECT_EQ(reading.receiver.moves.size(), 17U);
  EXPECT_EQ(reading.Remarks(), "4 subprogram");
  EXPECT_EQ(TestReading("O1\nG65 P1 A1 X1\nG91 X1").Remarks(), "2 subprogram");
}

TEST(Subprograms, ArgumentsAreVariablesOfTheCall) {
  const ReadingCase cases[] = {
      {"O1\n#1=9\nG65 P2 A1 B2 X5 F100 L2\nG1 X#1\nM30\nO2\nG1 X#1 Y#2 Z#24 F#9\n#1=7\nX0\nM99",
       "cut 1 2 5 F100; cut 0 2 5 F100; cut 1 2 5 F100; cut 0 2 5 F100; cut 9 2 5 F100"},
      {"O1\nG65 P2 C3. D4 E5 H6 I7 J8 K9 M10 Q11 R12 S13 T14 U15 V16 W17 Y18 Z19\nM30\nO2\n"
       "X#3 Y#7 Z#8\nX#11 Y#4 Z#5\nX#6 Y#13 Z#17\nX#18 Y#19 Z#20\nX#21 Y#22 Z#23\nX#25 Y#26 Z0",
       "rapid 3 4 5; rapid 6 7 8; rapid 9 10 11; rapid 12 13 14; rapid 15 16 17; rapid 18 19 0"},
      // What is not given is vacant; M98 has the variables of its caller.
      {"O1\n#2=4\nG65 P2 A1\nM98 P2\nM30\nO2\nX#2 Y#1 Z1\nZ0",
       "rapid 0 1 1; rapid 0 1 0; rapid 4 1 1; rapid 4 1 0"},
      {"O1\nG91 G20 G65 P2 X1.\nX1 G21\nG65 P5\nO2\nG1 X#24", "cut 25.4 0 0 F0; cut 26.4 0 0 F0",
       "4 subprogram"},
  };
  EXPECT_READINGS(cases);
}

TEST(Expressions, Values) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"1+2*3-4/2", 5},
      {"[1+2]*3", 9},
      {"10-3-2", 5},
      {"24/4/3", 2},
      {"-2*-3+-[-1]", 7},
      {"--5", 5},
      {"7 MOD 3 + -7 MOD 3 + 7 MOD -3", 1},
      {"SIN[30]+COS[60]+TAN[45]", 2},
      {"ASIN[1]+ACOS[0]+ATAN[1]/[1]+ATAN[1]", 270},
      {"ATAN[-1]/[-1]", -135},
      {"ATAN[1]/5", 9},
      {"SQRT[16]+ABS[-2]+EXP[0]+LN[1]", 7},
      {"ROUND[2.5]+ROUND[-2.5]+ROUND[2.4]", 2},
      {"FIX[2.9]+FIX[-2.9]+FIX[2.9999999999]", 3},
      {"FUP[2.1]+FUP[-2.1]+FUP[3.0000000001]", 3},
      {"6 AND 3 OR 8 XOR 1", 11},
      {"2.4 AND 2.6", 2},
      {"1 EQ 1 AND 2 GT 1", 1},
      {"1+1 EQ 2", 1},
      {"2 NE 3", 1},
      {"2 LT 2", 0},
      {"2 LE 2", 1},
      {"2 GE 3", 0},
      {"0.1+0.2 EQ 0.3", 1},
      {"0.1+0.2 GT 0.3", 0},
      {"1000000 EQ 1000000.0005", 1},
      {"1000000 EQ 1000000.005", 0},
      {"#7+#7", 0},
      {"#7 EQ #7", 1},
      {"#7 EQ 0", 0},
      {"#7 NE 0", 1},
      {"#7 GE 0", 1},
      {"[1 . 5](a)+ 1 0", 11.5},
  };
  const Variables variables;
  for (const auto& row : cases) {
    const std::string text = std::string(row.text) + "\n";
    const char* next = text.c_str();
    double value = 0;
    Expressions expressions(&variables);
    ASSERT_TRUE(expressions.TakeExpression(&next, &value)) << row.text;
    EXPECT_EQ(*next, '\n') << row.text;
    EXPECT_NEAR(value, row.value, 1e-12) << row.text;
    EXPECT_FALSE(expressions.HasFault()) << row.text;
  }
}

TEST(Expressions, OperationsWithoutAValueAreZero) {
  for (const char* const text : {"1/0", "1 MOD 0", "SQRT[-1]", "LN[0]", "LN[-1]", "ASIN[2]",
                                 "ACOS[-2]", "EXP[1000]", "[1/0]*5"}) {
    const std::string program = std::string("#100=1\n#100=") + text + "\nX#100 Y1";
    EXPECT_EQ(Moves(program), "rapid 0 1 0") << text;
    EXPECT_EQ(TestReading(program).Remarks(), "2 macro") << text;
  }
}

TEST(Expressions, DeepBracketsEndTheLineOnly) {
  const auto brackets = [](int depth) {
    return "X" + std::string(static_cast<size_t>(depth), '[') + "1" +
           std::string(static_cast<size_t>(depth), ']') + "\nY1";
  };
  EXPECT_EQ(Moves(brackets(50)), "rapid 1 0 0; rapid 1 1 0");
  for (const int depth : {51, 10'000, 500'000}) {
    EXPECT_EQ(Moves(brackets(depth)), "rapid 0 1 0") << depth;
    EXPECT_EQ(TestReading(brackets(depth)).Remarks(), "1 macro") << depth;
  }
  EXPECT_EQ(Moves("X" + std::string(10'000, '-') + "[1]"), "rapid 1 0 0");
}

TEST(Macros, VariablesAndWords) {
  const ReadingCase cases[] = {
      {"#1=5\n#2=#1*2\nG#500X#1Y-#2Z[#1+#2]", "rapid 5 -10 15"},
      {"X#101 #101=3 Y[#101] #101=#101+1", "rapid 4 4 0"},
      {"#5=7\n#6=5\n#[#6-0.2]=#5+1 \nX#5 Y#[#6]", "rapid 8 8 0"},
      {"#1=#0\nX#1 Y[#0] Z-#0\nX5", "rapid 5 0 0"},
      {"#1=2\n#1=#0\nX4 X#1", "rapid 4 0 0"},
      {"X#200 Y1\nX#150 X#999 X#33\n#200=3\nX#200", "rapid 0 1 0; rapid 3 1 0", "1 macro"},
      {"#0=5\n#[-3]=1 X1\nX2", "rapid 1 0 0; rapid 2 0 0", "1 macro, 2 macro"},
      {"#5000=2 X#5000\n#5000=#0\nX#5000", "rapid 2 0 0"},
      // What a line computes is computed once.
      {"#1=ACOS[#1]\nX#1 Y[1/#2] #2=2\nIF [1 MOD #1 EQ 5] GOTO 9", "rapid 90 0.5 0"},
      {"N#1 G[0+1] M[3] F[2*5] X1", "code 3; cut 1 0 0 F10"},
      {"X[2000000000] Y1", "rapid 0 1 0", "1 not-read"},
      // Lines that are wholly of another form are not run.
      {"X5 #1\nX#1=5\n#1=\nX[1\nX1 Y#\nX[1]]\nX SIN[1]\nX##1\nX#1.5\nX[1 2]\nX[+]\nX[1 FOO 2]",
       "rapid 12 0 0",
       "1 macro, 2 macro, 3 macro, 4 macro, 5 macro, 6 macro, 7 macro, 8 macro, 9 macro, "
       "11 macro, 12 macro"},
      {"X5 [\nG1 Y#1 $\nY[5] Y\nY[5],R1\nO#1\nX5 ] Y2", "rapid 5 2 0",
       "1 macro, 2 macro, 3 macro, 4 macro, 5 macro, 6 not-read"},
      {"X[5] O7\nX6\nO8\nX7", "rapid 5 0 0; rapid 6 0 0"},
  };
  EXPECT_READINGS(cases);
}

TEST(Macros, Statements) {
  const ReadingCase cases[] = {
      {"#1=1\nIF [#1 EQ 1] GOTO 5\nX1\nN5 X2", "rapid 2 0 0"},
      {"IF [#1 EQ 1] GOTO 5\nX1\nN5 X2\ni f[1]then#2=7\nIF [0] THEN #2=8\nX#2",
       "rapid 1 0 0; rapid 2 0 0; rapid 7 0 0"},
      {"#1=5\nGOTO #1\nX1\nN5 GOTO[#1+1]\nX2\n/N6 X3", "rapid 3 0 0"},
      {"#1=0\nN1 WHILE [#1 LT 2] DO 1\n#2=0\nWHILE [#2 LT 2] DO 2\nX#2 Y#1\n#2=#2+1\nEND 2\n"
       "#1=#1+1\nEND 1\nX9",
       "rapid 1 0 0; rapid 0 1 0; rapid 1 1 0; rapid 9 1 0"},
      {"WHILE [0] DO1\nX1\nEND1\nX2", "rapid 2 0 0"},
      // The next N below, else the first of the program.
      {"#1=#1+1\nN5 X#1\nIF [#1 EQ 2] GOTO 9\nN5 Y#1\nGOTO 5\nN9 Z1\nM30\nN5 X7\n#1=2\nGOTO 9",
       "rapid 1 0 0; rapid 1 1 0; rapid 7 1 0; rapid 7 1 1"},
      // Without a target the run goes on.
      {"GOTO 5\nEND 1\nWHILE [1] DO 2\nX1\nM30\nO2\nN5\nWHILE [1] DO 1\nEND 2", "rapid 1 0 0",
       "1 macro, 2 macro, 3 macro"},
      {"GOTO\nIF [1] X1\nIF 1 GOTO 5\nIF [1] THEN X1\nDO 1\nWHILE [1]\nX1 GOTO 5\nGOTO 5 X1\n"
       "END OF PROGRAM\nN5 X2",
       "rapid 2 0 0",
       "1 macro, 2 macro, 3 macro, 4 macro, 5 macro, 6 macro, 7 macro, 8 macro, 9 macro"},
  };
  EXPECT_READINGS(cases);
}

TEST(Macros, PocketSpiral) {
  // Half circles whose radius grows by 2 mm each, around the middle of a pocket.
  const TestReading reading(
      "G90 G17 G1 Z-1 F200\n#1=0\n#2=1\nWHILE [#1 LT 10] DO1\n#1=#1+2\n"
      "G3 X[#2*#1] I[#2*#1-#2]\n#2=0-#2\nEND1\nG0 Z5\n");
  EXPECT_EQ(reading.receiver.list,
            "cut 0 0 -1 F200; arc 2 0 -1 F200 XY 1 0 180; arc -4 0 -1 F200 XY -1 0 180; "
            "arc 6 0 -1 F200 XY 1 0 180; arc -8 0 -1 F200 XY -1 0 180; "
            "arc 10 0 -1 F200 XY 1 0 180; rapid 10 0 5");
  double length = 0;
  for (const ControlMove& move : reading.receiver.moves) {
    if (move.kind == MoveKind::kArc) length += move.length;
  }
  EXPECT_NEAR(length, std::numbers::pi * (1 + 3 + 5 + 7 + 9), 1e-9);
}

TEST(RunLimit, EndlessProgramsEnd) {
  for (const char* const program :
       {"N1 GOTO 1", "WHILE [1] DO1\nEND1", "M98 P1 L999999999\nO1\nM99",
        "G81 Z-1 R0 K999999999 X1 M98", "G83 Z-900000000. R0 Q.001"}) {
    TestReading reading(program, {.stepsBeyondLines = 1000});
    EXPECT_NE(reading.Remarks().find("endless"), std::string::npos) << program;
    EXPECT_TRUE(reading.result.ok());
    EXPECT_LE(reading.receiver.moves.size(), 3100U);
  }
}

TEST(RunLimit, LinesOfTheFileComeOnTop) {
  MemoryFiles files;
  files.Put("c:\\a.nc", "1\n2\n3");
  const auto file = files.OpenForReading("c:\\a.nc").value;
  ProgramText text(file.get());
  RunLimit limit(&text, 100'000);
  uint64_t taken = 0;
  while (limit.Take()) ++taken;
  EXPECT_EQ(taken, 100'003U);
  EXPECT_TRUE(limit.IsExceeded());
}

TEST(ProgramText, LinesAndJumpsOfAnyLength) {
  std::string text = "first\r\n";
  std::vector<std::string> lines = {"first\r"};
  for (size_t i = 0; i < 400; ++i) {
    lines.push_back(std::string(i * i % 5000, static_cast<char>('a' + i % 26)));
    text += lines.back() + "\n";
  }
  lines.push_back("last");
  text += "last";
  MemoryFiles files;
  files.mostBytesOfARead = 4000;
  files.Put("c:\\a.nc", text);
  const auto file = files.OpenForReading("c:\\a.nc").value;
  ProgramText reader(file.get());
  EXPECT_EQ(reader.CountLines(), lines.size());

  std::vector<TextPlace> places;
  std::string_view line;
  for (size_t i = 0; i < lines.size(); ++i) {
    ASSERT_TRUE(reader.Next(&line)) << i;
    ASSERT_EQ(line, lines[i]) << i;
    EXPECT_EQ(*line.end(), '\n');
    EXPECT_EQ(reader.Here().line, i + 1);
    places.push_back(reader.Here());
  }
  EXPECT_FALSE(reader.Next(&line));
  for (size_t i = 0; i < 2000; ++i) {
    const size_t at = i * 7919 % lines.size();
    reader.Seek(places[at]);
    for (size_t k = at; k < std::min(at + 3, lines.size()); ++k) {
      ASSERT_TRUE(reader.Next(&line));
      ASSERT_EQ(line, lines[k]);
      ASSERT_EQ(reader.Here().line, k + 1);
    }
  }
}

TEST(ProgramText, ALongLineIsReadUpToItsLimit) {
  const std::string longest = "G1 X5" + std::string(ProgramText::kLongestLine - 8, ' ') + "Y7";
  ASSERT_EQ(longest.size(), ProgramText::kLongestLine - 1);
  EXPECT_EQ(Moves(longest + "\nX6"), "cut 5 7 0 F0; cut 6 7 0 F0");
  TestReading cut("N1\n" + longest + "Z9" + std::string(100'000, '1') + "\nX6");
  EXPECT_EQ(cut.receiver.list, "cut 5 7 0 F0; cut 6 7 0 F0");
  EXPECT_EQ(cut.receiver.lines, "2 3");
  EXPECT_EQ(cut.Remarks(), "2 not-read");
}

}  // namespace
}  // namespace tvx
