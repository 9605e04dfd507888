#include "model/parser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/block_list.h"

namespace tvx {
namespace {

// A parser with everything that it works on, fresh as at the start of the process.
struct Machine {
  ParserStates states;
  MotionBlock block;
  uint32_t incrementalMode = 0;
  float arcRadius = 0;
  JobRecord job;
  Vec3 arcOffset;

  explicit Machine(int32_t inputFileType = 1) {
    job.InputFileType = inputFileType;
    block.feed = block.feedProgrammed = 100;
  }

  int Parse(std::string_view line, bool hasLineFeed = true) {
    const std::string text = std::string(line) + "\n99";
    const bool hasComment = line.find_first_of("(#") != std::string_view::npos;
    return ParseBlockLine({&states, &block, &incrementalMode, &arcRadius, &arcOffset, &job},
                          {text.data(), !hasLineFeed, hasComment});
  }

  // What the line makes: "none" or the block, an arc with its centre offset.
  std::string Make(std::string_view line) {
    if (Parse(line) == 0) return "none";
    if (block.type == BlockNone) return "type 0 at " + ShortestFloat(block.x);
    std::string text = BlockText(block);
    if (IsArcType(block.type)) {
      text += " I" + ShortestFloat(arcOffset.x) + " J" + ShortestFloat(arcOffset.y);
    }
    return text;
  }
};

struct Step {
  const char* line;
  const char* made;
};

void RunStory(const char* story, Machine* machine, const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    EXPECT_EQ(machine->Make(step.line), step.made) << story << ": " << step.line;
  }
}

TEST(WordParser, Stories) {
  const struct {
    const char* name;
    std::vector<Step> steps;
  } stories[] = {
      {"runs of rapids and cuts",
       {{"G00 X10 Y10", "rapidStart 10 10 0 F100"},
        {"G01 Z-5 F300", "cutStart 10 10 -5 F300"},
        {"X20", "cut 20 10 -5 F300"},
        {"Y20 F500", "cutStart 20 20 -5 F500"},
        {"Y20", "none"},
        {"G00 Z10", "rapidStart 20 20 10 F500"},
        {"X0", "rapid 0 20 10 F500"},
        {"G00 X5", "rapid 5 20 10 F500"},
        {"G01 X6 F5000", "rapidStart 6 20 10 F5000"},
        {"X7", "cut 7 20 10 F5000"},
        {"G01 X10 (CUT)", "none"},
        {"X 10", "none"},
        {"X+10.", "none"},
        {"X7.5", "cut 7.5 20 10 F5000"},
        {"g00x8", "cut 8 20 10 F5000"},
        {"N10 M3 S4000", "none"}}},
      {"arcs with I and J",
       {{"G02 X10 Y0 I5 J0", "cw 10 0 0 F100 I5 J0"},
        {"X0", "cw 0 0 0 F100 I5 J0"},
        {"M08", "cw 0 0 0 F100 I5 J0"},
        {"G02 X0 Y0 I5 J0", "cw 0 0 0 F100 I5 J0"},
        {"G3 J-4", "ccw 0 0 0 F100 I0 J-4"},
        {"X1 F400", "ccw 1 0 0 F400 I0 J-4"},
        {"X2 F5000", "rapidStart 2 0 0 F5000"},
        {"G1", "none"}}},
      {"radius, at once and with what the line has said so far",
       {{"G02 X10 R5", "cw 10 0 0 F100 I5 J0"},
        {"G02 R5 X20", "cw 20 0 0 F100 I-5 J-0.00005"},
        {"G03 X10 R5", "ccw 10 0 0 F100 I-5 J0"},
        {"G02 X20 R", "none"}}},
      {"before any G word", {{"X10", "type 0 at 10"}, {"X10", "none"}}},
      {"other G words latch the type",
       {{"G01 X1", "cutStart 1 0 0 F100"},
        {"G54 X2", "cut 2 0 0 F100"},
        {"G01 X3", "cut 3 0 0 F100"},
        {"G-1 X4", "cut 4 0 0 F100"},
        {"G91.1 X5", "cut 9 0 0 F100"}}},
      {"incremental",
       {{"G01 X10 Y5", "cutStart 10 5 0 F100"},
        {"G91 X1", "cut 11 5 0 F100"},
        {"X1 Y1", "cut 12 6 0 F100"},
        {"X0", "none"},
        {"Z-2", "cut 12 6 -2 F100"},
        {"X3 G91 Y1", "cut 12 7 -2 F100"},
        {"G02 X10 R5", "cw 22 7 -2 F100 I5 J0"},
        {"I-5", "cw 22 7 -2 F100 I-5 J0"},
        {"G1 X9 G90 Y1", "cutStart 22 1 -2 F100"},
        {"X0", "cut 0 1 -2 F100"}}},
      {"text and numbers at the edge",
       {{"G01 X1.5.7", "cutStart 1.5 0 0 F100"},
        {"X-.5", "cut -0.5 0 0 F100"},
        {"X--3 Y1", "cut 0 1 0 F100"},
        {"X1-2", "cut 1 1 0 F100"},
        {"X1.", "none"},
        {"X.", "cut 0 1 0 F100"},
        {"X-", "none"},
        {"X2 c X9", "none"},
        {"X3", "cut 3 1 0 F100"},
        {"X4 #1", "none"},
        {"F1500.9 X5", "cutStart 5 1 0 F1500"},
        {"F99999999999 X6", "rapidStart 6 1 0 F2147483647"},
        {"X0000000000000000123Y2", "cut 123 2 0 F2147483647"},
        {"X00000000000000001239Y3", "cut 123 3 0 F2147483647"},
        {"", "none"}}},
  };
  for (const auto& story : stories) {
    Machine machine;
    RunStory(story.name, &machine, story.steps);
  }
}

TEST(WordParser, IntegerDataIsInThousandths) {
  Machine machine;
  machine.job.IntNcdataFlg = 1;
  RunStory("integer", &machine,
           {{"G01 X1500 Y-1500. F300", "cutStart 1.5 -1.5 0 F300"},
            {"G02 X2500 I500 J0", "cw 2.5 -1.5 0 F300 I0.5 J0"},
            {"X1500 R500", "cw 1.5 -1.5 0 F300 I-0.5 J0"}});
}

TEST(WordParser, LinesThatChangeNothing) {
  Machine machine;
  machine.Parse("G01 X10 F300");
  for (const char* line : {"G00 X99 F9 (text)", "G0 G91 X1 #"}) {
    const MotionBlock before = machine.block;
    EXPECT_EQ(machine.Parse(line), 0);
    EXPECT_EQ(BlockText(machine.block), BlockText(before)) << line;
    EXPECT_EQ(machine.incrementalMode, 0U) << line;
  }
  // A cut line acts and makes no move; its position is not kept.
  EXPECT_EQ(machine.Parse("G00 X50 F77", false), 0);
  EXPECT_EQ(machine.states.word.modalType, BlockRapidStart);
  EXPECT_EQ(machine.Make("Y1"), "rapid 10 1 0 F77");
  // A zero byte ends the line in the same way.
  EXPECT_EQ(machine.Parse(std::string_view("X60\0Y7", 6)), 0);
  EXPECT_EQ(machine.Parse(std::string_view("Y3\0(", 4)), 0);
  EXPECT_EQ(machine.Make("Y2"), "rapid 10 2 0 F77");
}

TEST(WordParser, AnyOtherInputTypeBecomesWordAddress) {
  for (const int32_t type : {-3, 0, 7}) {
    Machine machine(type);
    machine.Parse("X1");
    EXPECT_EQ(machine.job.InputFileType, 1);
  }
  Machine machine(2);
  machine.Parse("L X1");
  EXPECT_EQ(machine.job.InputFileType, 2);
  EXPECT_EQ(machine.states.word.savedPos.x, 0) << "the formats share no modal state";
}

TEST(ConversationalParser, Stories) {
  const struct {
    const char* name;
    std::vector<Step> steps;
  } stories[] = {
      {"a program",
       {{"0 BEGIN PGM 1 MM", "none"},
        {"1 BLK FORM 0.1 Z X+0 Y+0 Z-20", "none"},
        {"3 TOOL CALL 1 Z", "none"},
        {"5 L X10 Y0 F500", "cutStart 10 0 0 F500"},
        {"6 L X20", "cut 20 0 0 F500"},
        {"7 CC X20 Y10", "none"},
        {"8 C X30 Y10 DR+", "ccw 30 10 0 F500 I0 J10"},
        {"9 L X30 Y20", "cutStart 30 20 0 F500"},
        {"10 CR X40 Y20 R+5 DR-", "cw 40 20 0 F500 I5 J0"},
        {"11 END PGM 1 MM", "none"}}},
      {"rapids by the feed of 2000",
       {{"L X1", "rapidStart 1 0 0 F100"},
        {"L X2 F2000", "cutStart 2 0 0 F2000"},
        {"L X3 F2001", "rapidStart 3 0 0 F2001"},
        {"L X4", "rapid 4 0 0 F2001"},
        {"L X5 F9000", "rapid 5 0 0 F9000"},
        {"CR X7 R1 DR+", "ccw 7 0 0 F9000 I1 J0"},
        {"L X8", "rapidStart 8 0 0 F9000"},
        {"CR X10 R1 DR-  F300", "cutStart 10 0 0 F300"}}},
      {"a radius of 0 or less makes a straight cut",
       {{"C X5 Y5 DR+", "cutStart 5 5 0 F100"}, {"CR X6 R-2 DR-", "cutStart 6 5 0 F100"}}},
      {"CC with one axis keeps the other offset",
       {{"CC X3 Y4", "none"},
        {"C X10 DR-", "cw 10 0 0 F100 I5 J0"},
        {"CC X10", "none"},
        {"C X18 DR-", "cw 18 0 0 F100 I4 J0"}}},
      {"G words, empty numbers and plus signs",
       {{"G1 X+5 I9 J9", "cutStart 5 0 0 F100"},
        {"X6 # Y", "cut 6 0 0 F100"},
        {"L X7 R F", "cut 7 0 0 F100"},
        {"G91 X1 Y+1", "cut 8 1 0 F100"},
        {"G90 X1", "cut 1 0 0 F100"},
        {"G X2", "rapidStart 2 0 0 F100"}}},
      {"what follows the direction word is passed over",
       {{"CR X10 R5 DR+RX9Y4", "ccw 10 4 0 F100 I5 J0"},
        {"CR X20 R5 DR- F300", "cw 20 4 0 F100 I5 J0"},
        {"CR X30 R5 DR", "cw 30 4 0 F100 I5 J0"},
        {"DX1", "cw 1 4 0 F100 I5 J0"}}},
  };
  for (const auto& story : stories) {
    Machine machine(2);
    RunStory(story.name, &machine, story.steps);
  }
}

TEST(ConversationalParser, SmallCEndsTheLineWithTheBlockAndWithoutItsPosition) {
  Machine machine(2);
  EXPECT_EQ(machine.Make("L X1 F500"), "cutStart 1 0 0 F500");
  EXPECT_EQ(machine.Make("L X2 c Y9"), "cut 2 0 0 F500");
  EXPECT_EQ(machine.Make("L Y1"), "cut 1 1 0 F500");
  // A line cut before its line feed still makes its block.
  EXPECT_EQ(machine.Parse("L X5", false), 1);
}

// A radius a bit off moves the centres of all arcs that follow, so the numbers of a drawing have to
// come through: 20.1 less 4.32 is 15.78.
TEST(ConversationalParser, TheOffsetOfACentreIsRoundedOnce) {
  Machine machine(2);
  machine.Parse("L X4.32 F500");
  machine.Parse("CC X20.1");
  EXPECT_EQ(machine.arcRadius, 15.78F);
}

}  // namespace
}  // namespace tvx
