// Properties of random word-address programs: ways to write the same program, and what both
// readings agree on.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "control/test_reading.h"
#include "model/block_store.h"
#include "model/loader.h"

namespace tvx {
namespace {

using Words = std::vector<std::string>;
using Program = std::vector<Words>;

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  size_t Below(size_t count) {
    return std::uniform_int_distribution<size_t>(0, count - 1)(engine_);
  }
  bool Chance(double share) { return std::bernoulli_distribution(share)(engine_); }
  std::string Length() {
    const double value = std::uniform_real_distribution<double>(-20, 20)(engine_);
    return Format(Chance(0.5) ? "%.3f" : "%.0f", value);
  }
  const char* OneOf(std::initializer_list<const char*> choices) {
    return choices.begin()[Below(choices.size())];
  }
  void Shuffle(Words* words) { std::shuffle(words->begin(), words->end(), engine_); }

 private:
  std::mt19937 engine_;
};

// A line without two words of one modal group or letter.
Words RandomLine(Random* random) {
  Words line;
  const auto maybe = [&](double share, const std::string& word) {
    if (random->Chance(share)) line.push_back(word);
  };
  maybe(0.3, random->OneOf({"G0", "G1", "G02", "G3", "G81", "G83", "G73", "G85"}));
  maybe(0.1, random->OneOf({"G17", "G18", "G19"}));
  maybe(0.1, random->OneOf({"G90", "G91", "G90"}));
  maybe(0.05, random->OneOf({"G20", "G21", "G21"}));
  maybe(0.05, random->OneOf({"G93", "G94", "G95"}));
  maybe(0.05, random->OneOf({"G98", "G99"}));
  maybe(0.05, random->OneOf({"G90.1", "G91.1"}));
  maybe(0.05, random->OneOf({"G15", "G16"}));
  maybe(0.05, random->OneOf({"G69", "G80", "G92.1", "G54", "G96"}));
  maybe(0.1, random->OneOf({"G4", "G28", "G52", "G68", "G92", "G53", "G31"}));
  for (const char* const letter : {"X", "Y", "Z"}) maybe(0.4, letter + random->Length());
  for (const char* const letter : {"I", "J", "K", "R"}) maybe(0.15, letter + random->Length());
  maybe(0.1, "F" + random->Length());
  maybe(0.1, "Q" + random->Length());
  maybe(0.1, random->OneOf({"P2", "P500", "P1.5"}));
  maybe(0.1, random->OneOf({"L2", "L0", "L1"}));
  maybe(0.1, random->OneOf({"S100", "T3", "A5", "H1"}));
  maybe(0.1, random->OneOf({"M0", "M3", "M6", "M41"}));
  return line;
}

Program RandomProgram(unsigned seed) {
  Random random(seed);
  Program program;
  for (size_t i = 0; i < 40; ++i) program.push_back(RandomLine(&random));
  return program;
}

std::string Join(const Program& program) {
  std::string text;
  for (const Words& line : program) {
    for (const std::string& word : line) text += word;
    text += '\n';
  }
  return text;
}

// The same program in other letters, with blanks and comments between any two characters.
std::string Disguised(const std::string& text, Random* random) {
  std::string result;
  for (const char c : text) {
    if (random->Chance(0.2)) result += random->OneOf({" ", "\t", "  ", "\r", "\x01"});
    if (random->Chance(0.05)) result += random->OneOf({"(X9)", "()", "(;G1 \xC7\xD1)"});
    if (c == '\n') {
      result += random->OneOf({"", "\r", ";X5(", "(Y7"});
    }
    const bool isUpper = c >= 'A' && c <= 'Z';
    result += isUpper && random->Chance(0.5) ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  return result;
}

struct Outcome {
  std::string list, remarks;
  bool operator==(const Outcome&) const = default;
};

Outcome OutcomeOf(const std::string& text) {
  TestReading reading(text);
  return {reading.receiver.list + reading.receiver.lines, reading.Remarks()};
}

TEST(ReadingProperties, OrderOfTheWordsDoesNotCount) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Program program = RandomProgram(seed);
    const std::string text = Join(program);
    Random random(seed);
    for (Words& line : program) random.Shuffle(&line);
    ASSERT_TRUE(OutcomeOf(Join(program)) == OutcomeOf(text)) << text << "\n\n" << Join(program);
  }
}

TEST(ReadingProperties, BlanksCommentsAndCaseDoNotCount) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    const std::string text = Join(RandomProgram(seed));
    Random random(seed);
    const std::string other = Disguised(text, &random);
    ASSERT_TRUE(OutcomeOf(other) == OutcomeOf(text)) << text << "\n\n" << other;
  }
}

TEST(ReadingProperties, LinesInALoopOrACallAreTheSameMoves) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    const std::string body = Join(RandomProgram(seed));
    const std::string twice = Moves(body + body);
    EXPECT_EQ(Moves("#100=0\nWHILE[#100LT2]DO1\n#100=#100+1\n" + body + "END1"), twice) << body;
    EXPECT_EQ(Moves("O1\nM98 P2 L2\nM30\nO2\n" + body + "M99"), twice) << body;
    EXPECT_EQ(Moves("N1\n" + body + "#1=#1+1\nIF[#1LT2]GOTO1"), twice) << body;
  }
}

// Lines with a motion word each, absolute, in XY, with numbers of few digits.
std::string PlainProgram(unsigned seed) {
  Random random(seed);
  std::string text = "G0X-1Y-1\n";
  for (size_t i = 0; i < 40; ++i) {
    const std::string motion = random.OneOf({"G0", "G1", "G1", "G2", "G3"});
    text += motion + Format("X%.3fY", static_cast<double>(i) + 0.125) + random.Length();
    if (random.Chance(0.3)) text += "Z" + random.Length();
    if (motion == "G2" || motion == "G3") text += "I" + random.Length() + "J7.25";
    if (motion != "G0") text += random.OneOf({"F100", "F850", "F2000"});
    text += '\n';
  }
  return text;
}

TEST(ReadingProperties, PlainWordsAreTheSameMovesInBothReadings) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    const std::string text = PlainProgram(seed);
    TestReading reading(text);
    NcProgram program;
    ParserStates states;
    JobRecord job;
    ASSERT_TRUE(LoadNcFile("c:\\a.nc", &program, &states, &job, &reading.files).ok());
    size_t at = 0;
    for (uint32_t i = 0; i < program.store.blockCount; ++i) {
      const MotionBlock& block = *program.store.Peek(i);
      if (!IsMoveType(block.type)) continue;
      ASSERT_LT(at, reading.receiver.moves.size()) << text;
      const ControlMove& move = reading.receiver.moves[at++];
      ASSERT_EQ(IsArcType(block.type), move.kind == MoveKind::kArc) << text;
      ASSERT_EQ(IsRapidType(block.type), move.kind == MoveKind::kRapid) << text;
      ASSERT_EQ(block.x, static_cast<float>(move.end[0])) << text;
      ASSERT_EQ(block.y, static_cast<float>(move.end[1])) << text;
      ASSERT_EQ(block.z, static_cast<float>(move.end[2])) << text;
      if (move.kind != MoveKind::kRapid) {
        ASSERT_EQ(block.feed, move.feed) << text;
      }
    }
    EXPECT_EQ(at, reading.receiver.moves.size());
  }
}

}  // namespace
}  // namespace tvx
