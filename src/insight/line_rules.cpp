// One function for each rule of the program check.
#include "insight/line_rules.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/format.h"
#include "base/scan.h"
#include "insight/nc_codes.h"
#include "model/line_reader.h"

namespace tvx {

namespace {

using enum RemarkId;

constexpr size_t kNowhere = std::string_view::npos;
constexpr std::string_view kAxes = "XYZ";

// A conversational feed from this on is how such programs write a rapid; controls without FMAX take
// no higher one. mm/min.
constexpr double kWrittenRapidFeed = 9999;

// How far the two radii of an arc may differ: both have to be exceeded.
constexpr double kRadiusTolerance = 0.01;  // mm
constexpr double kRadiusShare = 0.001;

// A line with all that the rules look at.
struct CheckedLine {
  uint64_t number;
  const LineWords& words;
  const LineOutcome& outcome;
  std::string_view seen;   // the part that the parser gets
  bool isHidden;           // "(" or, word-address, "#" keeps the parser from reading it
  const LineWord* motion;  // the first motion word; null for none
};

bool IsOneOf(char letter, std::string_view letters) {
  return letter != 0 && letters.find(letter) != kNowhere;
}

bool IsMotionName(std::string_view name) {
  constexpr std::string_view kNames[] = {"L", "C", "CC", "CR", "DR"};
  return std::ranges::find(kNames, name) != std::end(kNames);
}

bool IsMotion(const LineWord& word, bool isConversational) {
  if (IsOneOf(word.letter, "XYZIJRF")) return true;
  if (word.letter == 'G') {
    const double g = word.Value();
    return g == 0 || g == 1 || g == 2 || g == 3;
  }
  return isConversational && word.letter == 0 && IsMotionName(word.text);
}

// The conversational parser passes over the words of such a line.
bool IsIgnored(const LineWords& words) {
  return words.Has("BEGIN") || words.Has("BLK") || words.Has("TOOL") || words.Has("END");
}

// The words of the line may be parts of the name of a program.
bool HoldsProgramName(const LineWords& words) {
  return words.Has("PGM");
}

// The first motion word outside comments and before a "#" that starts a macro.
const LineWord* FirstMotion(const LineWords& words, bool isConversational) {
  if (isConversational && IsIgnored(words)) return nullptr;
  for (const LineWord& word : words.All()) {
    if (word.start > words.Macro()) break;
    if (IsMotion(word, isConversational)) return &word;
  }
  return nullptr;
}

// The part of a line that the parser gets, up to a zero byte.
std::string_view SeenPart(std::string_view text) {
  text = text.substr(0, LineReader::kParserLineBytes);
  return text.substr(0, text.find('\0'));
}

// Numbered, and begins with L, C, CC or CR.
bool LooksConversational(const LineWords& words) {
  const std::vector<LineWord>& all = words.All();
  return all.size() > 1 && all[0].IsNumber() && all[1].IsName() && all[1].text != "DR" &&
         IsMotionName(all[1].text);
}

// Has a G word, or a motion word whose number has no "+", and no word of the other format.
bool LooksWordAddress(const LineWords& words) {
  bool looks = false;
  for (const LineWord& word : words.All()) {
    if (word.IsNumber() || (word.IsName() && IsMotionName(word.text))) return false;
    const bool hasPlus = word.text.size() > 1 && word.text[1] == '+';
    looks |= word.letter == 'G' || (IsOneOf(word.letter, "XYZIJRF") && !hasPlus);
  }
  return looks;
}

void CountFormat(const CheckedLine& line, RuleState* state) {
  if (line.motion == nullptr) return;
  ++state->motionLines;
  const bool isOther =
      state->isConversational ? LooksWordAddress(line.words) : LooksConversational(line.words);
  if (isOther) ++state->otherFormat;
}

// Lines that are not read, or in part.

void CheckCommentHidesLine(const CheckedLine& line, RuleState* state) {
  if (!line.isHidden || line.motion == nullptr) return;
  state->remarks->Add(kCommentHidesLine, line.number, line.motion->text);
}

void CheckCutOffByC(const CheckedLine& line, RuleState* state) {
  if (line.outcome.moves || line.isHidden || line.motion == nullptr) return;
  const size_t c = line.seen.find('c');
  const bool hasZeroByte =
      line.seen.size() < std::min<size_t>(line.words.Text().size(), LineReader::kParserLineBytes);
  if (c != kNowhere) {
    state->remarks->Add(kCutOffByC, line.number, line.seen.substr(c));
  } else if (hasZeroByte) {
    state->remarks->Add(kCutOffByC, line.number, "\\0");
  }
}

void CheckWordWithoutNumber(const CheckedLine& line, RuleState* state) {
  if (line.outcome.moves || line.isHidden) return;
  const std::string_view read = line.seen.substr(0, line.seen.find('c'));
  size_t found = kNowhere;
  for (size_t at = 0; (at = read.find_first_of("FfGIiJjRXxYyZz", at)) != kNowhere; ++at) {
    constexpr std::string_view kNumber = "0123456789.-";
    const size_t behind = at + 1;
    if (behind < read.size() && kNumber.find(read[behind]) != kNowhere) continue;
    if (found == kNowhere && line.motion != nullptr) found = at;
    const size_t number = read.find_first_not_of(" \t+", behind);
    if (number == behind || number == kNowhere || kNumber.find(read[number]) == kNowhere) continue;
    found = at;
    break;
  }
  if (found == kNowhere) return;
  const size_t number = std::min(read.find_first_not_of(" \t+", found + 1), read.size());
  const size_t end = std::min(read.find_first_not_of("0123456789.-", number), read.size());
  state->remarks->Add(kWordWithoutNumber, line.number, read.substr(found, end - found));
}

void CheckLineTooLong(const CheckedLine& line, RuleState* state) {
  if (!line.outcome.isCut) return;
  const LineWord* lost = line.motion;
  if (state->isConversational && lost != nullptr) {
    const auto isLost = [](const LineWord& word) {
      return word.End() > LineReader::kParserLineBytes && IsMotion(word, true);
    };
    const auto word = std::ranges::find_if(line.words.All(), isLost);
    lost = word == line.words.All().end() ? nullptr : &*word;
  }
  if (lost != nullptr) state->remarks->Add(kLineTooLong, line.number, lost->text);
}

void CheckMacro(const CheckedLine& line, RuleState* state) {
  const size_t macro = line.words.Macro();
  if (macro == kNowhere || (line.isHidden && line.motion != nullptr)) return;
  state->remarks->Add(kMacro, line.number, line.words.Text().substr(macro));
}

// Lines that leave a block.

void CheckBeforeMotion(const CheckedLine& line, RuleState* state) {
  if (!line.outcome.moves || line.outcome.block.type != BlockNone) return;
  const auto isCoordinate = [](const LineWord& word) { return IsOneOf(word.letter, kAxes); };
  const auto word = std::ranges::find_if(line.words.All(), isCoordinate);
  if (word == line.words.All().end()) return;
  const bool isNewRun = !state->hasEarlyLine || state->movesAtEarlyLine != state->moves;
  state->hasEarlyLine = true;
  state->movesAtEarlyLine = state->moves;
  if (isNewRun) state->remarks->Add(kBeforeMotion, line.number, word->text);
}

void CheckBlockReplaced(const CheckedLine& line, RuleState* state) {
  const MotionBlock& block = line.outcome.block;
  if (!line.outcome.moves || block.type == BlockNone) return;
  const auto check = [&](char letter, float value) {
    if (!BlockStore::IsOutOfRange(value)) return;
    state->remarks->Add(kBlockReplaced, line.number, letter + ShortestFloat(value));
  };
  check('X', block.x);
  check('Z', block.z);
  if (IsArcType(block.type)) check('I', line.outcome.arcOffset.x);
}

void CheckFeedZero(const CheckedLine& line, RuleState* state) {
  const MotionBlock& block = line.outcome.block;
  // The first move of a program is a rapid if it is an arc.
  const bool isCut = IsCutType(block.type) || (IsArcType(block.type) && state->moves > 0);
  if (!line.outcome.moves || !isCut || block.feed > 0) return;
  state->remarks->Add(kFeedZero, line.number, "F" + std::to_string(block.feed));
}

void CheckRapidByFeed(const CheckedLine& line, RuleState* state) {
  if (!line.outcome.isRapidByFeed) return;
  const LineWord* const feed = line.words.Letter('F');
  if (feed == nullptr) return;
  if (state->isConversational && feed->Value() >= kWrittenRapidFeed) return;
  state->remarks->Add(kRapidByFeed, line.number, feed->text);
}

// Words that only machines understand.

void CheckRotary(const CheckedLine& line, RuleState* state) {
  const bool isConversational = state->isConversational;
  if (isConversational && (IsIgnored(line.words) || HoldsProgramName(line.words))) return;
  if (!isConversational && line.words.Letter('G', 4) != nullptr) return;
  for (const LineWord& word : line.words.All()) {
    // A small c ends the line, and that has a remark of its own.
    if (word.text.front() == 'c' || !IsOneOf(word.letter, isConversational ? "ABC" : "ABCUVW")) {
      continue;
    }
    state->remarks->Add(kRotary, line.number, word.text);
    return;
  }
}

void EndPlane(RuleState* state) {
  if (!state->isInPlane) return;
  state->remarks->SetLastDetail(kPlane, Format("%s: %llu", state->planeWord.c_str(),
                                               static_cast<unsigned long long>(state->planeArcs)));
  state->isInPlane = false;
}

void StartPlane(const CheckedLine& line, const LineWord& word, RuleState* state) {
  EndPlane(state);
  state->remarks->Add(kPlane, line.number, word.text);
  state->isInPlane = true;
  state->planeWord = word.text;
  state->planeArcs = 0;
}

void AddDwell(const CheckedLine& line, double seconds, RuleState* state) {
  if (!(seconds > 0)) seconds = 0;
  if (!state->remarks->Add(kDwell, line.number, ShortestFloat(static_cast<float>(seconds)))) return;
  state->remarks->check().dwellSeconds += seconds;
}

// X and U are seconds, P milliseconds unless it has a point.
void GDwell(const CheckedLine& line, RuleState* state) {
  constexpr double kSecondsPerMillisecond = 0.001;
  double seconds = 0;
  for (const LineWord& word : line.words.All()) {
    if (!IsOneOf(word.letter, "XUP")) continue;
    const bool isWhole = word.letter == 'P' && word.text.find('.') == kNowhere;
    seconds = word.Value() * (isWhole ? kSecondsPerMillisecond : 1);
  }
  AddDwell(line, seconds, state);
}

void AddToolChange(const CheckedLine& line, RuleState* state) {
  if (state->remarks->Add(kToolChange, line.number, state->tool)) {
    ++state->remarks->check().toolChanges;
  }
}

void CheckCodes(const CheckedLine& line, RuleState* state) {
  if (const LineWord* const tool = line.words.Letter('T')) {
    state->tool = ShortestFloat(static_cast<float>(tool->Value()));
  }
  for (const LineWord& word : line.words.All()) {
    if (!IsOneOf(word.letter, "GM")) continue;
    const double number = word.Value();
    if (word.letter == 'G' && number == kXyPlane) EndPlane(state);
    for (const NcCode& code : kNcCodes) {
      if (code.letter != word.letter || code.number != number) continue;
      if (code.id == kPlane) {
        StartPlane(line, word, state);
      } else if (code.id == kDwell) {
        GDwell(line, state);
      } else if (code.id == kToolChange) {
        AddToolChange(line, state);
      } else {
        state->remarks->Add(code.id, line.number, word.text);
      }
    }
  }
}

// The rules of conversational lines, by the words of the line.

const LineWord* WordAt(const CheckedLine& line, std::optional<size_t> index, size_t further = 0) {
  if (!index || *index + further >= line.words.All().size()) return nullptr;
  return &line.words.All()[*index + further];
}

// The text from one word to the end of another.
std::string_view Span(const CheckedLine& line, const LineWord& first, const LineWord& last) {
  return line.words.Text().substr(first.start, last.End() - first.start);
}

void CheckCalls(const CheckedLine& line, RuleState* state) {
  const auto call = line.words.Find("CALL");
  const LineWord* const called = WordAt(line, call, 1);
  if (called != nullptr && (called->text == "LBL" || called->text == "PGM")) {
    const LineWord* const name = WordAt(line, call, 2);
    state->remarks->Add(kSubprogram, line.number,
                        Span(line, *WordAt(line, call), name != nullptr ? *name : *called));
  }
  const auto label = line.words.Find("LBL");
  const LineWord* const number = WordAt(line, label, 1);
  if (number != nullptr && number->IsNumber() && number->Value() > 0) {
    state->remarks->Add(kSubprogram, line.number, Span(line, *WordAt(line, label), *number));
  }
}

// The value of the dwell cycle, whose second line says "V.ZEIT" or "DWELL" and seconds.
std::optional<double> CycleDwell(const CheckedLine& line) {
  for (const std::string_view name : {"ZEIT", "DWELL"}) {
    const auto index = line.words.Find(name);
    const LineWord* const value = WordAt(line, index, 1);
    if (value != nullptr && value->IsNumber()) return value->Value();
  }
  return std::nullopt;
}

void CheckCycles(const CheckedLine& line, RuleState* state) {
  const auto cycle = line.words.Find("CYCL");
  const LineWord* const kind = WordAt(line, cycle, 1);
  if (kind == nullptr || (kind->text != "DEF" && kind->text != "CALL")) return;
  const LineWord* const number = WordAt(line, cycle, 2);
  constexpr double kDwellCycle = 9;
  const bool isDwell = kind->text == "DEF" && number != nullptr && number->IsNumber() &&
                       std::floor(number->Value()) == kDwellCycle;
  if (!isDwell) {
    const LineWord& last = number != nullptr && number->IsNumber() ? *number : *kind;
    state->remarks->Add(kCycle, line.number, Span(line, *WordAt(line, cycle), last));
  } else if (const auto seconds = CycleDwell(line)) {
    AddDwell(line, *seconds, state);
  }
}

void CheckToolCalls(const CheckedLine& line, RuleState* state) {
  const auto tool = line.words.Find("TOOL");
  const LineWord* const call = WordAt(line, tool, 1);
  const LineWord* const number = WordAt(line, tool, 2);
  if (call == nullptr || call->text != "CALL" || number == nullptr || !number->IsNumber()) return;
  state->tool = number->text;
  AddToolChange(line, state);
}

void CheckNames(const CheckedLine& line, RuleState* state) {
  const LineWords& words = line.words;
  if (words.Has("BEGIN") && words.Has("PGM") && words.Has("INCH")) {
    state->remarks->Add(kInch, line.number, "INCH");
  }
  if (IsIgnored(words) || HoldsProgramName(words)) return;
  for (const std::string_view name : {"RL", "RR"}) {
    if (words.Has(name)) state->remarks->Add(kCompensation, line.number, name);
  }
  if (words.Has("STOP")) state->remarks->Add(kStop, line.number, "STOP");
}

using Rule = void (*)(const CheckedLine& line, RuleState* state);

constexpr Rule kWordRules[] = {
    CountFormat,      CheckCommentHidesLine, CheckCutOffByC,     CheckWordWithoutNumber,
    CheckLineTooLong, CheckBeforeMotion,     CheckBlockReplaced, CheckFeedZero,
    CheckMacro,       CheckRotary,           CheckRapidByFeed,   CheckCodes};
constexpr Rule kConversationalRules[] = {CountFormat,       CheckCommentHidesLine, CheckLineTooLong,
                                         CheckBeforeMotion, CheckBlockReplaced,    CheckFeedZero,
                                         CheckRotary,       CheckRapidByFeed,      CheckCalls,
                                         CheckCycles,       CheckToolCalls,        CheckNames};

std::string Millimetres(double value) {
  return ShortestFloat(static_cast<float>(value));
}

// One arc of a batch, seen from its centre: the vectors to both ends, in the plane.
struct ArcSides {
  ArcSides(const ArcBatch& arcs, size_t n)
      : dx(static_cast<double>(arcs.endX[n]) - arcs.startX[n]),
        dy(static_cast<double>(arcs.endY[n]) - arcs.startY[n]),
        dz(static_cast<double>(arcs.endZ[n]) - arcs.startZ[n]),
        startX(-static_cast<double>(arcs.i[n])),
        startY(-static_cast<double>(arcs.j[n])),
        turn(arcs.turn[n]) {}

  // Radians; a full circle if start and end agree.
  double Sweep() const {
    constexpr double kFullCircle = 6.283185307179586;
    if (dx == 0 && dy == 0) return kFullCircle;
    const double sine = turn * (startX * dy - startY * dx);
    const double cosine = startX * startX + startY * startY + startX * dx + startY * dy;
    const double sweep = std::atan2(sine, cosine);
    return sweep > 0 ? sweep : sweep + kFullCircle;
  }

  double dx, dy, dz;      // from start to end
  double startX, startY;  // from the centre to the start
  double turn;
};

// For the text of a line up to its line feed.
bool HasRadius(const char* text) {
  while (*text != 'R' && *text != '\n') ++text;
  return *text == 'R';
}

double Length(double x, double y) {
  return std::sqrt(x * x + y * y);
}

// An arc of any sweep, and with any radii.
void CheckArc(const ArcBatch& arcs, size_t n, RuleState* state) {
  const ArcSides sides(arcs, n);
  const double startRadius = Length(sides.startX, sides.startY);
  const double endRadius = Length(sides.startX + sides.dx, sides.startY + sides.dy);
  state->arcLength += Length(startRadius * sides.Sweep(), sides.dz);
  if (state->isConversational || HasRadius(arcs.text[n])) {
    const double halfChord = Length(sides.dx, sides.dy) / 2;
    const double radius = std::abs(static_cast<double>(arcs.radius[n]));
    if (radius < halfChord - kRadiusTolerance) {
      state->remarks->Add(kArcRadiusShort, arcs.line[n],
                          "R" + Millimetres(radius) + " < " + Millimetres(halfChord));
    }
    return;
  }
  const double apart = std::abs(endRadius - startRadius);
  if (apart > kRadiusTolerance && apart > kRadiusShare * std::max(startRadius, endRadius)) {
    state->remarks->Add(kArcEndsElsewhere, arcs.line[n],
                        "R" + Millimetres(startRadius) + " / " + Millimetres(endRadius));
  }
}

// Length of an arc over that of its chord: asin(q) / q, where q is half the chord over the radius,
// by its series. An angle for each of the millions of short arcs of a finished surface would take
// as long as parsing the line.
constexpr float kLargestSquare = 0.3F;  // of q; what is left out is below 2e-6
float ArcOverChord(float s) {
  constexpr float k1 = 1.0F / 6, k2 = 3.0F / 40, k3 = 5.0F / 112, k4 = 35.0F / 1152,
                  k5 = 63.0F / 2816, k6 = 231.0F / 13312;
  return 1 + s * (k1 + s * (k2 + s * (k3 + s * (k4 + s * (k5 + s * k6)))));
}

// So many arcs are measured at once, without branches, in single precision as the store has them.
constexpr size_t kGroup = 8;
static_assert(ArcBatch::kSize % kGroup == 0);

struct MeasuredArcs {
  // Whether an arc turns by less than some 66 degrees and ends on the circle that it starts on.
  bool IsPlain(size_t k) const {
    return excess[k] <= 0 && sine[k] > 0 && square[k] < kLargestSquare;
  }

  std::array<float, kGroup> length;  // of a plain arc
  std::array<float, kGroup> excess;  // above 0: the two radii differ
  std::array<float, kGroup> sine;    // above 0: less than half a circle
  std::array<float, kGroup> square;  // of half the chord over the radius
};

void Measure(const ArcBatch& arcs, size_t first, MeasuredArcs* measured) {
  // A margin for the rounding is left to the tolerance.
  constexpr auto kTolerance = static_cast<float>(kRadiusTolerance / 2);
  for (size_t k = 0; k < kGroup; ++k) {
    const size_t n = first + k;
    const float x = -arcs.i[n], y = -arcs.j[n];  // from the centre to the start
    const float dx = arcs.endX[n] - arcs.startX[n];
    const float dy = arcs.endY[n] - arcs.startY[n];
    const float dz = arcs.endZ[n] - arcs.startZ[n];
    const float startSquare = x * x + y * y;
    const float chordSquare = dx * dx + dy * dy;
    // Of the squared radii. Over the sum of the radii it is that of the radii.
    const float difference = chordSquare + 2 * (x * dx + y * dy);
    const float square = chordSquare / (4 * startSquare);
    const float ratio = ArcOverChord(square);
    measured->length[k] = std::sqrt(chordSquare * ratio * ratio + dz * dz);
    measured->excess[k] = difference * difference - kTolerance * kTolerance * startSquare;
    measured->sine[k] = arcs.turn[n] * (x * dy - y * dx);
    measured->square[k] = square;
  }
}

}  // namespace

bool RemarkWriter::Add(RemarkId id, uint64_t line, std::string_view detail) {
  uint64_t& lastLine = lastLine_[static_cast<size_t>(id)];
  if (lastLine == line) return false;
  lastLine = line;
  RemarkList& list = check_.Of(id);
  if (list.count++ >= storedPerId_) return true;
  constexpr size_t kLongestDetail = 40;
  const auto isOdd = [](char c) { return c < ' ' || c > '~'; };
  detail = detail.substr(0, kLongestDetail);
  list.stored.push_back({line, {detail.begin(), std::ranges::find_if(detail, isOdd)}});
  return true;
}

void RemarkWriter::SetLastDetail(RemarkId id, const std::string& detail) {
  RemarkList& list = check_.Of(id);
  if (list.count == list.stored.size()) list.stored.back().detail = detail;
}

void ApplyLineRules(uint64_t line, std::string_view text, const LineOutcome& outcome,
                    LineWords* words, RuleState* state) {
  words->Read(text, !state->isConversational);
  const std::string_view seen = SeenPart(text);
  const bool isHidden = seen.find_first_of(state->isConversational ? "(" : "(#") != kNowhere;
  const CheckedLine checked{line, *words,   outcome,
                            seen, isHidden, FirstMotion(*words, state->isConversational)};
  const std::span<const Rule> rules = state->isConversational
                                          ? std::span<const Rule>(kConversationalRules)
                                          : std::span<const Rule>(kWordRules);
  for (const Rule rule : rules) rule(checked, state);
}

void ApplyArcRules(ArcBatch* arcs, RuleState* state) {
  if (arcs->count == 0) return;
  if (state->arcs == 0) state->firstArcLine = arcs->line[0];
  state->arcs += arcs->count;
  if (state->isInPlane) state->planeArcs += arcs->count;
  for (size_t first = 0; first < arcs->count; first += kGroup) {
    MeasuredArcs measured;
    Measure(*arcs, first, &measured);
    const size_t count = std::min(kGroup, arcs->count - first);
    for (size_t k = 0; k < count; ++k) {
      if (measured.IsPlain(k)) [[likely]] {
        state->arcLength += measured.length[k];
      } else {
        CheckArc(*arcs, first + k, state);
      }
    }
  }
  arcs->count = 0;
}

void ApplyLastLineRule(uint64_t line, std::string_view text, LineWords* words, RuleState* state) {
  words->Read(text, !state->isConversational);
  if (const LineWord* const motion = FirstMotion(*words, state->isConversational)) {
    state->remarks->Add(kLastLine, line, motion->text);
  }
}

void ApplyProgramRules(RuleState* state) {
  EndPlane(state);
  const auto whole = [](uint64_t value) { return static_cast<unsigned long long>(value); };
  if (state->otherFormat * 2 > state->motionLines) {
    state->remarks->Add(
        kOtherFormat, 1,
        Format("%llu / %llu", whole(state->otherFormat), whole(state->motionLines)));
  }
  if (state->moves == 0) state->remarks->Add(kNoMoves, 1, "");
  if (state->arcs > 0) {
    state->remarks->Add(kArcsNotTimed, state->firstArcLine,
                        Format("%llu, %.1f mm", whole(state->arcs), state->arcLength));
  }
}

}  // namespace tvx
