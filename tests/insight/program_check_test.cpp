// The program check: planted lines, whole programs, generated programs.
#include "insight/program_check.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/memory_files.h"

namespace tvx {
namespace {

enum Format { kWord = 1, kConversational = 2 };

struct Checked {
  Checked(const std::string& text, Format format, const CheckOptions& options = {},
          uint64_t step = UINT64_MAX) {
    files.Put("c:\\a.nc", text);
    job.InputFileType = format;
    ProgramChecker checker("c:\\a.nc", {}, job, &files, options);
    while (checker.CheckMore(step)) {
    }
    check = checker.Result();
  }

  // "id line detail" of every stored remark, with "; " between them.
  std::string Text() const {
    std::string text;
    for (const RemarkKind& kind : RemarkKinds()) {
      for (const Remark& remark : check.Of(kind.id).stored) {
        text += text.empty() ? "" : "; ";
        text += std::string(kind.name) + " " + std::to_string(remark.line);
        if (!remark.detail.empty()) text += " " + remark.detail;
      }
    }
    return text;
  }

  MemoryFiles files;
  JobRecord job;
  ProgramCheck check;
};

// Five lines, so a planted line is the sixth; every line leaves a move.
constexpr char kWordHead[] = "G0 X1 Y1 Z50\nG1 Z-1 F300\nX10\nY10 F800\nX0 Y0\n";
constexpr char kConversationalHead[] =
    "1 L X+1 Y+1 Z+50 F9999\n2 L Z-1 F300\n3 L X+10\n4 L Y+10 F800\n5 L X+0 Y+0\n";
constexpr char kWordTail[] = "G1 X77 F500\n";
constexpr char kConversationalTail[] = "99 L X+77 F500\n";

TEST(ProgramCheck, APlantedLineHasItsRemarkAndNoOther) {
  const std::string k70(70, ' ');
  const struct {
    Format format;
    std::string planted;
    std::string expected;
  } kCases[] = {
      {kWord, "G1 X5. F800 (ROUGH)", "comment-hides-line 6 G1"},
      {kWord, "X5. (T1) Y2", "comment-hides-line 6 X5."},
      {kWord, "G1 X#5", "comment-hides-line 6 G1"},
      {kWord, "(X5 G1 F800)", ""},
      {kWord, "M8 (X5) M9", ""},
      {kWord, "X5. cut", "cut-off-by-c 6 cut"},
      {kWord, "cut X5.", "cut-off-by-c 6 cut X5."},
      {kWord, "call sub", ""},
      {kWord, "X 5.", "word-without-number 6 X 5."},
      {kWord, "G1 Y+5.", "word-without-number 6 Y+5."},
      {kWord, "X5. FMAX", "word-without-number 6 F"},
      {kWord, "FINISH SURFACE R", ""},
      {kWord, "X5." + k70 + "Y2. Z-2.5", "line-too-long 6 X5."},
      {kWord, k70 + k70 + "X5.", "line-too-long 6 X5."},
      {kWord, k70 + k70 + "M8", ""},
      {kWord, "X40000.", "block-replaced 6 X40000"},
      {kWord, "X5. F0", "feed-zero 6 F0"},
      {kWord, "M98 P1234", "subprogram 6 M98"},
      {kWord, "M198 P1", "subprogram 6 M198"},
      {kWord, "G65 P9010 A1", "subprogram 6 G65; rotary 6 A1"},
      {kWord, "G66 P1", "subprogram 6 G66"},
      {kWord, "G81 X5. Z-3. R2. F100", "cycle 6 G81"},
      {kWord, "G80", ""},
      {kWord, "#100=250", "macro 6 #100=250"},
      {kWord, "IF[#1EQ2]GOTO10", "macro 6 #1EQ2]GOTO10"},
      {kWord, "(TOOL #5)", ""},
      {kWord, "X5. A90.", "rotary 6 A90."},
      {kWord, "B-4.5 C2", "rotary 6 B-4.5"},
      {kWord, "G20", "inch 6 G20"},
      {kWord, "G70", "inch 6 G70"},
      {kWord, "G18\nG2 X10 Y0 I5 J0\nG1 X20\nG17\nG3 X10 Y0 I-5 J0\nG1 X1",
       "plane 6 G18: 1; arcs-not-timed 7 2, 31.4 mm"},
      {kWord, "G19", "plane 6 G19: 0"},
      {kWord, "G52 X0 Y0 Z0", "shift 6 G52"},
      {kWord, "G51.1 X0.", "shift 6 G51.1"},
      {kWord, "G50", ""},
      {kWord, "G91.1", ""},
      {kWord, "G041 D1", "compensation 6 G041"},
      {kWord, "G42 D1 X5.", "compensation 6 G42"},
      {kWord, "G1 X5. F6000", "rapid-by-feed 6 F6000"},
      {kWord, "X5. F5000", "rapid-by-feed 6 F5000"},
      {kWord, "G0 X5. F6000", ""},
      {kWord, "G2 X10 Y0 I5.6 J0\nG1 X1",
       "arc-ends-elsewhere 6 R5.6 / 4.4; arcs-not-timed 6 1, 17.6 mm"},
      {kWord, "G3 X100 Y0 I49.98 J0\nG1 X1", "arcs-not-timed 6 1, 157.0 mm"},
      {kWord, "G2 X10 Y0 R4.\nG1 X1", "arc-radius-short 6 R4 < 5; arcs-not-timed 6 1, 15.7 mm"},
      {kWord, "G2 X10 Y0 Z-5 R5.\nG1 X1", "arcs-not-timed 6 1, 16.2 mm"},
      {kWord, "G3 X0 Y0 I3 J4\nG1 X1", "arcs-not-timed 6 1, 31.4 mm"},
      {kWord, "G2 X1 Y1 I1 J0\nG3 X2 Y2 I0 J1\nG1 X1", "arcs-not-timed 6 2, 3.1 mm"},
      {kWord, "G04 P500", "dwell 6 0.5"},
      {kWord, "G4 P1.5", "dwell 6 1.5"},
      {kWord, "G4 U2", "dwell 6 2"},
      {kWord, "T5 M6", "tool-change 6 5"},
      {kWord, "T07\nM06 (CHANGE)", "tool-change 7 7"},
      {kWord, "T5", ""},
      {kWord, "M00", "stop 6 M00"},
      {kWord, "M1", "stop 6 M1"},
      {kWord, "M30", ""},

      {kConversational, "6 L X+5 (ROUGH)", "comment-hides-line 6 L"},
      {kConversational, "6 BLK FORM 0.1 Z X+0 (RAW)", ""},
      {kConversational, "6 L X+5    " + k70 + "Z-5", "line-too-long 6 Z-5"},
      {kConversational, "6 L X+5 Y+3" + k70 + "M8", ""},
      {kConversational, "6 L X+40000", "block-replaced 6 X40000"},
      {kConversational, "6 L X+5 F0", "feed-zero 6 F0"},
      {kConversational, "6 CALL LBL 1 REP 3", "subprogram 6 CALL LBL 1"},
      {kConversational, "6 CALL PGM 12", "subprogram 6 CALL PGM 12"},
      {kConversational, "6 LBL 3", "subprogram 6 LBL 3"},
      {kConversational, "6 LBL 0", ""},
      {kConversational, "6 CYCL DEF 1.0 PECKING", "cycle 6 CYCL DEF 1.0"},
      {kConversational, "6 CYCL CALL M3", "cycle 6 CYCL CALL"},
      {kConversational, "6 L X+5 C+90", "rotary 6 C+90"},
      {kConversational, "6 BEGIN PGM A5 INCH", "inch 6 INCH"},
      {kConversational, "6 BEGIN PGM A5 MM", ""},
      {kConversational, "6 L X+5 Y+5 RL F200", "compensation 6 RL"},
      {kConversational, "6 L X+5 Y+5 R0 F200", ""},
      {kConversational, "6 L X+5 F2001\n7 L Y+5 F3000\n8 L X+6",
       "rapid-by-feed 6 F2001; rapid-by-feed 7 F3000"},
      {kConversational, "6 L X+5 F9999", ""},
      {kConversational, "6 CR X+10 Y+0 R+4 DR-",
       "arc-radius-short 6 R4 < 5; arcs-not-timed 6 1, 15.7 mm"},
      {kConversational, "6 CC X+5 Y+0\n7 C X+10 Y+0 DR-", "arcs-not-timed 7 1, 15.7 mm"},
      {kConversational, "6 CYCL DEF 9.0 DWELL TIME\n7 CYCL DEF 9.1 DWELL 1.5", "dwell 7 1.5"},
      {kConversational, "6 CYCL DEF 9.1 V.ZEIT 2", "dwell 6 2"},
      {kConversational, "6 TOOL CALL 12 Z S8000", "tool-change 6 12"},
      {kConversational, "6 TOOL CALL S8000", ""},
      {kConversational, "6 STOP M2", "stop 6 STOP"},
  };
  for (const auto& c : kCases) {
    const bool isWord = c.format == kWord;
    const std::string text = (isWord ? kWordHead : kConversationalHead) + c.planted + "\r\n" +
                             (isWord ? kWordTail : kConversationalTail);
    EXPECT_EQ(Checked(text, c.format).Text(), c.expected) << c.planted;
  }
}

TEST(ProgramCheck, RemarksOfWholePrograms) {
  const struct {
    Format format;
    std::string text;
    std::string expected;
  } kCases[] = {
      {kWord, "", "no-moves 1"},
      {kWord, "%\nM30\n", "no-moves 1"},
      {kWord, std::string(300, '\0'), "no-moves 1"},
      {kWord, std::string(100'000, 'X') + "1", "no-moves 1"},
      {kWord, "X1." + std::string(100'000, ' '), "no-moves 1; last-line 1 X1."},
      {kWord, "G1 X1 F100\nX2", "last-line 2 X2"},
      {kWord, "G1 X1 F100\nM30", ""},
      {kConversational, "1 L X+1 F100\n2 END PGM R5 MM", ""},
      {kConversational, "1 L X+1 F100\n2 L X+2", "last-line 2 L"},
      {kWord, "X1\nX2\nM8\nX3\nG1 X4 F100\n", "before-motion 1 X1"},
      {kConversational, "X+1\nX+2\nL X+4\n", "before-motion 1 X+1"},
      {kWord, "1 L X+1\n2 CC X+0 Y+0\n3 C X+2 DR+\nG1 X5 F100\n",
       "other-format 1 3 / 4; word-without-number 1 X+1; word-without-number 2 X+0; "
       "word-without-number 3 X+2"},
      {kConversational, "G1 X1 F100\nX2.\n1 L X+5\n", "other-format 1 2 / 3"},
      {kConversational, "G1 X1 F100\n1 L X+5\n", ""},
      // The first arc is the program's first move, which is stored as a rapid.
      {kWord, "G2 X1 I9\nX2 I9\nG1 X3 F100\n",
       "arc-ends-elsewhere 2 R9 / 8; arcs-not-timed 2 1, 56.5 mm"},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(Checked(c.text, c.format).Text(), c.expected) << c.text.substr(0, 60);
}

TEST(ProgramCheck, LinesBehindAFullStoreAreCounted) {
  const std::string text = "G1 X1 F100\nX2\nG2 X3 I1\nX4 I1\nX5 I1\nM98\n";
  EXPECT_EQ(Checked(text, kWord, {.storeCapacity = 7}).Text(),
            "store-full 6 1; arc-ends-elsewhere 3 R1 / 0; arc-ends-elsewhere 4 R1 / 0; "
            "arcs-not-timed 3 2, 12.6 mm");
}

TEST(ProgramCheck, ListsAreBoundedAndCountsAndSumsAreNot) {
  std::string text = kWordHead;
  for (int i = 0; i < 100; ++i) text += "G4 P250\nT1 M6\nM0\n";
  const Checked all(text, kWord), few(text, kWord, {.storedPerId = 3});
  for (const RemarkId id : {RemarkId::kDwell, RemarkId::kToolChange, RemarkId::kStop}) {
    EXPECT_EQ(all.check.Of(id).stored.size(), 100U);
    EXPECT_EQ(few.check.Of(id).stored.size(), 3U);
    EXPECT_EQ(few.check.Of(id).count, 100U);
  }
  EXPECT_EQ(few.check.dwellSeconds, 25);
  EXPECT_EQ(few.check.toolChanges, 100U);
  EXPECT_EQ(few.check.Count(RemarkClass::kNote), 300U);
}

// Random programs of both formats. Each line of motion words names a position of its own, and many
// are spoilt in one of the ways that take a move away.
class RandomPrograms : public testing::TestWithParam<Format> {
 protected:
  std::string Line(int number) {
    const bool isWord = GetParam() == kWord;
    const std::string plus = isWord ? "" : "+";
    std::string line = isWord ? "" : std::to_string(number) + " ";
    line += isWord ? Pick({"", "G1 ", "G01", "G0 ", "N5 G1 ", "G54 ", "g1 "}) : "L ";
    line += "X" + plus + std::to_string(number) + Pick({"", ".", ".5"});
    if (Below(2) == 0) line += Pick({" Y", "Y", "\tY"}) + plus + std::to_string(Below(90));
    line += Pick({"", "", "", " F500", " F1500.", " F6000", " M8", " S900M3", " T5 M6", " A5"});
    if (Below(3) > 0) return line;
    if (!isWord) return line + Pick({" (NOTE)", " (X5", " F0", "(", "  ", "#"});
    return line + Pick({" (NOTE)", "(", " # 5", " cut", "c", " Z 5", " Z+5", " Z", " FMAX", " G",
                        "  ", ";", std::string(90, ' '), " Z40000", std::string("\0M8", 3)});
  }

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::string Pick(std::initializer_list<std::string> texts) {
    return *(texts.begin() + Below(static_cast<int>(texts.size())));
  }

  std::mt19937 random_{7};
};

INSTANTIATE_TEST_SUITE_P(Formats, RandomPrograms, testing::Values(kWord, kConversational));

TEST_P(RandomPrograms, EveryMoveThatIsMissingHasALostRemarkAndNoMoveThatIsThere) {
  for (int program = 0; program < 60; ++program) {
    std::string text;
    std::vector<std::string> lines;
    const int count = 1 + Below(40);
    for (int i = 1; i <= count; ++i) {
      lines.push_back(Line(100 * program % 3000 + i));
      text += lines.back() + Pick({"\n", "\r\n"});
    }
    if (Below(2) == 0) text.erase(text.rfind('\n'));

    const Checked checked(text, GetParam());
    MemoryFiles files;
    files.Put("c:\\a.nc", text);
    NcProgram loaded;
    ParserStates states;
    JobRecord job;
    job.InputFileType = GetParam();
    LoadNcFile("c:\\a.nc", &loaded, &states, &job, &files);

    std::vector<bool> isLost(lines.size() + 1), isUnread(lines.size() + 1);
    for (const RemarkKind& kind : RemarkKinds()) {
      for (const Remark& remark : checked.check.Of(kind.id).stored) {
        if (kind.remarkClass == RemarkClass::kLost) isLost[remark.line] = true;
        using enum RemarkId;
        isUnread[remark.line] = isUnread[remark.line] || kind.id == kCommentHidesLine ||
                                kind.id == kWordWithoutNumber || kind.id == kLastLine ||
                                (kind.id == kLineTooLong && GetParam() == kWord);
      }
    }
    bool isEarly = false;  // in a run of before-motion
    for (size_t line = 1; line <= lines.size(); ++line) {
      const auto block = loaded.source.lines.FirstBlockOf(line);
      const bool moves = block && IsMoveType(loaded.store.Peek(*block)->type);
      isEarly = (isEarly || isLost[line]) && !moves;
      EXPECT_TRUE(moves || isLost[line] || isEarly) << line << ": " << lines[line - 1] << "\n"
                                                    << text;
      EXPECT_FALSE(moves && isUnread[line]) << line << ": " << lines[line - 1] << "\n" << text;
    }
    EXPECT_EQ(Checked(text, GetParam(), {}, 1).Text(), checked.Text()) << "line by line";
  }
}

}  // namespace
}  // namespace tvx
