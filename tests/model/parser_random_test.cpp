// The parser takes short cuts and keeps its values out of the register. That must not show: over
// lines of any content it has to do what the plain reference does.

#include <gtest/gtest.h>

#include <bit>
#include <iomanip>
#include <random>
#include <sstream>

#include "model/parser.h"
#include "model/reference_parser.h"

namespace tvx {
namespace {

constexpr size_t kParserLineBytes = 80;

using Random = std::mt19937;

int Below(int limit, Random* random) {
  return static_cast<int>((*random)() % static_cast<unsigned>(limit));
}

template <size_t size>
std::string Pick(const char* const (&texts)[size], Random* random) {
  return texts[Below(static_cast<int>(size), random)];
}

std::string RandomNumber(Random* random) {
  static constexpr const char* kTexts[] = {
      "0",      "1",    "2",     "3",   "90",    "91",   "54",          "91.1", "",      "-",
      ".",      "+5",   "--1",   "1-2", "1.2.3", "-0",   "+-2",         "2000", "2001",  "5000",
      "4999.9", "20.1", "10.05", ".5",  "5.",    "-7.5", "99999999999", "0.1",  "33.333"};
  if (Below(3, random) > 0) return Pick(kTexts, random);
  std::string text = Below(2, random) == 0 ? "" : "-";
  for (int length = Below(24, random); length > 0; --length) {
    text += Below(8, random) == 0 ? '.' : static_cast<char>('0' + Below(10, random));
  }
  return text;
}

std::string RandomWord(Random* random) {
  static constexpr const char* kLetters[] = {"G", "G", "G", "F", "X", "Y", "Z", "X", "Y", "I", "J",
                                             "R", "x", "y", "z", "f", "g", "i", "j", "r", "N", "M"};
  static constexpr const char* kTexts[] = {
      "L ", "L ", "DR+", "DR-", "DR", "D",   "DR+ R0 ",  "CC ",   "CC",    "CR ",   "C ", "B",
      "E",  "T",  "CRC", "ND",  "OO", "END", "BLK",      "BEGIN", "TOOL ", "TC",    " ",  "\t",
      "\r", "+",  "%",   "S",   "K5", "DRX", "CC X20.1", "ER",    "G1 ",   "G3X9 ", "G91"};
  // What ends a line is rare, so that most lines run to their end.
  static constexpr char kEnds[] = {'(', '#', 'c', '\0'};
  const size_t rare = static_cast<size_t>(Below(60, random));
  if (rare < std::size(kEnds)) return std::string(1, kEnds[rare]);
  if (rare == 4) return std::string(1, static_cast<char>(11 + Below(245, random)));
  if (Below(3, random) == 0) return Pick(kTexts, random);
  return Pick(kLetters, random) + RandomNumber(random) + (Below(2, random) == 0 ? " " : "");
}

std::string RandomLine(Random* random) {
  std::string line;
  // A few are longer than what the parser is given.
  const int words = Below(Below(20, random) == 0 ? 40 : 8, random);
  for (int i = 0; i < words; ++i) line += RandomWord(random);
  return line;
}

// Everything that a line may change, floats by their bits.
std::string StateText(int result, const MotionBlock& block, const Vec3& arcOffset,
                      const ParserStates& states, uint32_t incrementalMode, float arcRadius,
                      const JobRecord& job) {
  std::ostringstream text;
  const auto put = [&](float value) {
    text << ' ' << std::setprecision(9) << value << '=' << std::bit_cast<uint32_t>(value);
  };
  const auto putPoint = [&](const char* name, const Vec3& point) {
    text << '\n' << name;
    put(point.x);
    put(point.y);
    put(point.z);
  };
  text << "result " << result << " type " << block.type << " feeds " << block.feedProgrammed << ' '
       << block.feed << " G9" << incrementalMode << " format " << job.InputFileType << " radius";
  put(arcRadius);
  putPoint("block", {block.x, block.y, block.z});
  putPoint("offset", arcOffset);
  for (const ParserState* state : {&states.word, &states.conversational}) {
    text << "\nmodal " << state->modalType << " centre " << state->centreLine;
    put(state->centreDx);
    put(state->centreDy);
    putPoint("saved", state->savedPos);
    putPoint("last", state->lastPos);
    putPoint("modal offset", state->modalArcOffset);
  }
  return text.str();
}

// Lines of one program, with the state carried from line to line.
void CompareProgram(unsigned seed) {
  Random random(seed);
  ReferenceParser reference;
  reference.job.IntNcdataFlg = Below(4, &random) == 0 ? 1 : 0;
  reference.job.RapidFeed = Below(2, &random) == 0 ? 5000 : 2000;
  reference.CurrentBlock.feedProgrammed = reference.CurrentBlock.feed = 100;

  ParserStates states;
  MotionBlock block = reference.CurrentBlock;
  uint32_t incrementalMode = 0;
  float arcRadius = 0;
  JobRecord job = reference.job;
  Vec3 arcOffset, expectedOffset;
  const ParserContext context{&states, &block, &incrementalMode, &arcRadius, &arcOffset, &job};

  for (int i = 0; i < 100; ++i) {
    if (i == 0 || Below(30, &random) == 0) {
      reference.job.InputFileType = job.InputFileType =
          Below(2, &random) == 0 ? 2 : Below(4, &random);
    }
    const std::string line = RandomLine(&random);
    const std::string given = line.substr(0, kParserLineBytes);
    const bool hasLineFeed = line.size() <= kParserLineBytes;
    const int expected =
        reference.ParseBlockLine(hasLineFeed ? given + "\n" : given, &expectedOffset);

    // What lies behind the line must not count.
    std::string text = given + "\n";
    for (int k = 0; k < 16; ++k) text += "9(#c5X\n"[Below(7, &random)];
    const bool hasComment = given.find_first_of("(#") != std::string::npos;
    const int result = ParseBlockLine(context, {text.data(), !hasLineFeed, hasComment});
    ASSERT_EQ(StateText(result, block, arcOffset, states, incrementalMode, arcRadius, job),
              StateText(expected, reference.CurrentBlock, expectedOffset, reference.states,
                        reference.incrementalMode, reference.arcRadius, reference.job))
        << "program " << seed << ", line " << i << ": " << line;
  }
}

TEST(Parser, DoesWhatThePlainReferenceDoes) {
  for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFatalFailure(); ++seed) {
    CompareProgram(seed);
  }
}

}  // namespace
}  // namespace tvx
