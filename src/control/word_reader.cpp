#include "control/word_reader.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>

#include "base/format.h"
#include "control/degrees.h"
#include "control/macro_statement.h"
#include "control/program_index.h"
#include "control/variables.h"
#include "control/word_calls.h"
#include "control/word_modes.h"
#include "control/word_scanner.h"

namespace tvx {
namespace {

using enum ReadingRemarkId;

constexpr std::string_view kAxisLetters = "XYZ";
constexpr std::string_view kCentreLetters = "IJK";  // of the same axes
constexpr uint32_t kAxes = Letters("XYZ");
constexpr uint32_t kArcWords = Letters("XYZIJKR");
constexpr uint32_t kCycleWords = Letters("XYZR");
constexpr uint32_t kRotaryAxes = Letters("ABCUVW");

// A radius may be written with few digits, mm.
constexpr double kRadiusTolerance = 0.01;

constexpr double kInch = 25.4;

// The variable of each word of G65, by its letter; 0 if it has none.
constexpr std::array<uint8_t, 26> kArgumentOf = [] {
  struct Row {
    char letter;
    uint8_t variable;
  };
  constexpr Row kRows[] = {{'A', 1},  {'B', 2},  {'C', 3},  {'D', 7},  {'E', 8},  {'F', 9},
                           {'H', 11}, {'I', 4},  {'J', 5},  {'K', 6},  {'M', 13}, {'Q', 17},
                           {'R', 18}, {'S', 19}, {'T', 20}, {'U', 21}, {'V', 22}, {'W', 23},
                           {'X', 24}, {'Y', 25}, {'Z', 26}};
  std::array<uint8_t, 26> variables{};
  for (const Row& row : kRows) variables[WordLine::Index(row.letter)] = row.variable;
  return variables;
}();

bool IsWhole(double value) {
  return value == std::floor(value);
}

std::string WordText(char letter, double value) {
  return letter + ShortestDouble(value);
}

// M words that change the run; all others are codes.
bool IsRunCode(double m) {
  return m == 0 || m == 1 || m == 2 || m == 30 || m == 97 || m == 98 || m == 99;
}

class WordReader {
 public:
  WordReader(ProgramRun* run, bool isIntegerData)
      : text_(run->text),
        path_(run->path),
        limit_(run->limit),
        integerUnit_(isIntegerData ? 0.001 : 1),
        calls_(&text_, &limit_, &variables_) {}

  void Run() {
    std::string_view line;
    for (;;) {
      if (text_.Next(&line)) [[likely]] {
        path_.BeginLine(text_.Here().line);
        if (!limit_.Take() || !Line(line)) return;
      } else if (!text_.StepProgress() || !calls_.Return()) {
        return;
      }
    }
  }

 private:
  // Each of the functions that run something returns false if the run ends there.

  bool Line(std::string_view line) {
    words_.Clear();
    OKeyword keyword;
    const LineForm form = ScanWords(line.data(), &words_, &keyword);
    if (form == LineForm::kOKeyword) return SkipSub(keyword);
    if (words_.Has('O') && !EntersProgram()) [[unlikely]]
      return calls_.Return();
    if (text_.IsCut()) Remark(kNotRead, "");
    if (form == LineForm::kMacro) [[unlikely]]
      return Macro(line);
    return form == LineForm::kPassedOver || Words();
  }

  // --- Programs of the file

  // False if the O word of the line begins another program than the one that is run.
  bool EntersProgram() {
    const uint64_t here = text_.Here().offset;
    if (calls_.Heading() == here) return true;
    if (!calls_.IsMain() || calls_.Heading() != kNoHeading || headIsProgram_) return false;
    calls_.SetMainHeading(here);
    return true;
  }

  const ProgramIndex& Index() {
    if (!index_) {
      index_.emplace(text_.Another());
      calls_.SetMainHeading(index_->Main().heading);
      headIsProgram_ = index_->Main().heading == kNoHeading;
    }
    return *index_;
  }

  bool SkipSub(const OKeyword& keyword) {
    Remark(kMacro, "O");
    if (keyword.kind == OKeyword::Kind::kSub) SkipTo(Index().FindSubEnd(text_.Here().offset));
    return true;
  }

  // Goes on behind a line. False if there is none.
  bool SkipTo(const std::optional<TextPlace>& place) {
    if (!place) return false;
    text_.Seek(*place);
    std::string_view line;
    text_.Next(&line);
    return true;
  }

  // --- Statements

  bool Macro(std::string_view line) {
    MacroStatement statement;
    words_.Clear();
    if (!CheckMacro(line.data(), &statement)) {
      Remark(kMacro, "");
      return true;
    }
    RunMacro(line.data(), &variables_, &statement, &words_);
    if (statement.hasFault) Remark(kMacro, "");
    switch (statement.kind) {
      case MacroStatement::Kind::kWords:
        return words_.Has('O') && !EntersProgram() ? calls_.Return() : Words();
      case MacroStatement::Kind::kGoto:
        if (statement.isTrue) GoTo(Index().FindNumber(statement.number, text_.Here().offset));
        return true;
      case MacroStatement::Kind::kWhile:
        While(statement);
        return true;
      case MacroStatement::Kind::kEnd:
        GoTo(Index().FindLoopBegin(statement.number, text_.Here().offset));
        return true;
    }
    return true;
  }

  void GoTo(const std::optional<TextPlace>& place) {
    if (place) {
      text_.Seek(*place);
    } else {
      Remark(kMacro, "");
    }
  }

  void While(const MacroStatement& statement) {
    const std::optional<TextPlace> end = Index().FindLoopEnd(statement.number, text_.Here().offset);
    if (!end) {
      Remark(kMacro, "WHILE");
    } else if (!statement.isTrue) {
      SkipTo(end);
    }
  }

  // --- Lines of words

  bool Words() {
    if (words_.fault.data() != nullptr) [[unlikely]]
      Remark(kNotRead, words_.fault);
    if (calls_.Heading() == kNoHeading && !headIsProgram_) headIsProgram_ = EndsHead(words_);
    groups_.Clear();
    for (const double g : words_.gWords) {
      const GWord& word = FindGWord(g);
      if (word.group == GGroup::kUnknown) Remark(kNotRead, WordText('G', g));
      groups_.Add(word);
    }
    // The words of such a line are arguments.
    if (groups_.Is(GGroup::kLine, 650)) [[unlikely]] {
      UnitsAndFeedMode();
      Modes();
      return CallWithArguments();
    }
    UnitsAndFeedMode();
    Values();
    if (!groups_.IsEmpty()) Modes();
    if (!words_.mWords.empty()) Codes();
    if (words_.HasAny(kRotaryAxes) && !groups_.Is(GGroup::kLine, 40)) [[unlikely]]
      Rotary();
    if (groups_.Has(GGroup::kLine)) [[unlikely]] {
      LineWord(groups_[GGroup::kLine]);
    } else if (groups_.Has(GGroup::kMachineMove)) [[unlikely]] {
      Remark(kMachinePosition, "G53");
    } else if (!Move()) {
      return false;
    }
    return words_.mWords.empty() || RunCodes();
  }

  void UnitsAndFeedMode() {
    if (groups_.IsEmpty()) return;
    if (groups_.Has(GGroup::kUnits)) {
      const uint16_t g = groups_[GGroup::kUnits].tenths;
      modes_.unit = g == 200 || g == 700 ? kInch : 1;
    }
    if (groups_.Has(GGroup::kFeedMode)) {
      const uint16_t g = groups_[GGroup::kFeedMode].tenths;
      modes_.feedMode = g == 930   ? FeedMode::kInverseTime
                        : g == 950 ? FeedMode::kPerTurn
                                   : FeedMode::kPerMinute;
    }
  }

  void Values() {
    if (!words_.HasAny(Letters("FST"))) return;
    if (words_.Has('F') && modes_.feedMode != FeedMode::kInverseTime) {
      modes_.feed = words_['F'] * modes_.unit;
    }
    modes_.spindle = words_.Or('S', modes_.spindle);
    modes_.tool = words_.Or('T', modes_.tool);
  }

  CutFeed Feed() const {
    switch (modes_.feedMode) {
      case FeedMode::kInverseTime:
        return {words_.Or('F', 0), true};
      case FeedMode::kPerTurn:
        return {modes_.feed * modes_.spindle, false};
      default:
        return {modes_.feed, false};
    }
  }

  void Modes() {
    using enum GGroup;
    if (groups_.Has(kPlane)) modes_.plane = static_cast<Plane>((groups_[kPlane].tenths - 170) / 10);
    if (groups_.Has(kDistance)) modes_.isIncremental = groups_.Is(kDistance, 910);
    if (groups_.Has(kArcDistance)) modes_.isCentreAbsolute = groups_.Is(kArcDistance, 901);
    if (groups_.Has(kRetractLevel)) modes_.toInitialLevel = groups_.Is(kRetractLevel, 980);
    if (groups_.Has(kPolar)) modes_.polar = {.isOn = groups_.Is(kPolar, 160)};
    if (groups_.Has(kTurnEnd)) modes_.coordinates.EndTurn();
    if (groups_.Has(kOriginReset)) SetShift(&modes_.originShift, {});
    if (groups_.Has(kOffset)) WorkOffset(groups_[kOffset].tenths);
    if (groups_.Has(kCutterSide) && !groups_.Is(kCutterSide, 400)) {
      Remark(ReadingRemarkId::kCompensation, WordText('G', groups_[kCutterSide].tenths / 10));
    }
    if (groups_.Has(kCycleEnd) && modes_.cycle.kind != nullptr) {
      modes_.cycle = {};
      if (modes_.motion != Motion::kCut) modes_.motion = Motion::kRapid;
    }
    if (groups_.Has(kMotion)) MotionWord(groups_[kMotion].tenths);
  }

  void MotionWord(uint16_t tenths) {
    const CycleKind* const cycle = FindCycle(tenths);
    if (cycle == nullptr) {
      modes_.motion = static_cast<Motion>(tenths / 10);
      modes_.cycle = {};
      return;
    }
    if (modes_.cycle.kind == nullptr) modes_.cycle.initialLevel = path_.Position()[2];
    modes_.cycle.kind = cycle;
  }

  // All offsets are taken as equal, which a program that changes them knows better.
  void WorkOffset(uint16_t tenths) {
    const bool hasNumber = tenths == 541 || tenths == 1540;
    const std::pair offset(tenths, hasNumber ? words_.Or('P', 0) : 0);
    if (path_.HasMoved() && offset != modes_.workOffset) {
      Remark(kWorkOffset, WordText('G', tenths / 10.0));
    }
    modes_.workOffset = offset;
  }

  void Rotary() {
    for (const char letter : std::string_view("ABCUVW")) {
      if (words_.Has(letter)) return Remark(kRotary, WordText(letter, words_[letter]));
    }
  }

  void SetShift(Point* shift, const Point& value) {
    *shift = value;
    for (size_t axis = 0; axis < 3; ++axis) {
      modes_.coordinates.Shift(axis, modes_.localShift[axis] + modes_.originShift[axis]);
    }
  }

  // --- Words that take the line

  void LineWord(const GWord& word) {
    switch (word.tenths) {
      case 40:
        return path_.Dwell(DwellSeconds());
      case 280:
      case 300:
        Remark(kMachinePosition, WordText('G', word.tenths / 10));
        if (words_.HasAny(kAxes)) path_.Rapid(EndPoint(modes_.plane, kAxes));
        return;
      case 520:
        return LocalShift();
      case 680:
        return Turn();
      case 920:
        return OriginShift();
      default:
        Remark(word.remark, WordText('G', word.tenths / 10.0));
    }
  }

  double DwellSeconds() const {
    if (words_.Has('X')) return words_['X'];
    if (words_.Has('U')) return words_['U'];
    return words_.Has('P') ? PSeconds() : 0;
  }

  double PSeconds() const { return words_.HasPoint('P') ? words_['P'] : words_['P'] / 1000; }

  void LocalShift() {
    Point shift = modes_.localShift;
    for (size_t axis = 0; axis < 3; ++axis) {
      if (words_.Has(kAxisLetters[axis])) shift[axis] = Length(kAxisLetters[axis]);
    }
    SetShift(&modes_.localShift, shift);
  }

  void OriginShift() {
    Point shift = modes_.originShift;
    for (size_t axis = 0; axis < 3; ++axis) {
      if (!words_.Has(kAxisLetters[axis])) continue;
      shift[axis] = path_.Position()[axis] - modes_.localShift[axis] - Length(kAxisLetters[axis]);
    }
    SetShift(&modes_.originShift, shift);
  }

  void Turn() {
    const PlaneAxes axes = AxesOf(modes_.plane);
    const auto centre = [&](size_t axis) {
      return words_.Has(kAxisLetters[axis]) ? Length(kAxisLetters[axis])
                                            : modes_.coordinates.LessShift(path_.Position(), axis);
    };
    modes_.coordinates.Turn(modes_.plane, {centre(axes.first), centre(axes.second)},
                            words_.Or('R', 0));
  }

  // --- Moves

  double Length(char letter) const {
    const double value = words_[letter] * modes_.unit;
    return words_.HasPoint(letter) ? value : value * integerUnit_;
  }

  // The end of a move with those of the given axes that the line has.
  Point EndPoint(Plane polarPlane, uint32_t axes) {
    const Point start = path_.Position();
    const bool isPlain = modes_.coordinates.ArePlain() && !modes_.polar.isOn;
    Point end = isPlain ? start : modes_.coordinates.ToProgram(start);
    unsigned given = 0;
    for (size_t axis = 0; axis < 3; ++axis) {
      const char letter = kAxisLetters[axis];
      if ((words_.given & axes & WordLine::Bit(letter)) == 0) continue;
      given |= 1U << axis;
      end[axis] = modes_.isIncremental ? end[axis] + Length(letter) : Length(letter);
    }
    if (isPlain) [[likely]]
      return end;
    if (modes_.polar.isOn) Polar(polarPlane, &end, &given);
    return modes_.coordinates.EndOnPath(start, end, given);
  }

  // In the plane, the words of the axes are a radius and an angle.
  void Polar(Plane plane, Point* end, unsigned* given) {
    const PlaneAxes axes = AxesOf(plane);
    const unsigned inPlane = 1U << axes.first | 1U << axes.second;
    if ((*given & inPlane) == 0) return;
    PolarMode& polar = modes_.polar;
    if ((*given >> axes.first & 1) != 0) {
      const double radius = Length(kAxisLetters[axes.first]);
      polar.radius = modes_.isIncremental ? polar.radius + radius : radius;
    }
    if ((*given >> axes.second & 1) != 0) {
      const double angle = words_[kAxisLetters[axes.second]];
      polar.angle = modes_.isIncremental ? polar.angle + angle : angle;
    }
    (*end)[axes.first] = polar.radius * CosineOf(polar.angle);
    (*end)[axes.second] = polar.radius * SineOf(polar.angle);
    *given |= inPlane;
  }

  bool Move() {
    if (groups_.Has(GGroup::kProbe)) [[unlikely]] {
      if (words_.HasAny(kAxes)) path_.Cut(EndPoint(modes_.plane, kAxes), Feed());
      return true;
    }
    if (modes_.cycle.kind != nullptr) [[unlikely]]
      return Cycle();
    if (modes_.motion == Motion::kRapid) {
      if (words_.HasAny(kAxes)) path_.Rapid(EndPoint(modes_.plane, kAxes));
    } else if (modes_.motion == Motion::kCut) {
      if (words_.HasAny(kAxes)) path_.Cut(EndPoint(modes_.plane, kAxes), Feed());
    } else if (words_.HasAny(kArcWords)) {
      ArcMove();
    }
    return true;
  }

  void ArcMove() {
    const Plane plane = modes_.plane;
    const PlaneAxes axes = AxesOf(plane);
    const Point end = EndPoint(plane, kAxes);
    const bool hasCentre =
        words_.Has(kCentreLetters[axes.first]) || words_.Has(kCentreLetters[axes.second]);
    const bool hasRadius = words_.Has('R');
    if (!(hasCentre || hasRadius) || !modes_.coordinates.HasPlane(plane)) {
      Remark(kNotRead, WordText('G', static_cast<int>(modes_.motion)));
      path_.Cut(end, Feed());
    } else if (hasRadius) {
      ArcByRadius(end);
    } else {
      ArcByCentre(end);
    }
  }

  bool IsClockwise() const { return modes_.motion == Motion::kClockwise; }

  void ArcByRadius(const Point& end) {
    const PlanePoint from = path_.PositionIn(modes_.plane);
    const PlanePoint to = PathWriter::InPlane(modes_.plane, end);
    if (Distance(from, to) <= kNoLength) return Remark(kNotRead, WordText('R', words_['R']));
    double missing = 0;
    const Arc arc = ArcOfRadius(Length('R'), from, to, IsClockwise(), &missing);
    if (missing > kRadiusTolerance) Remark(kArcRadiusShort, WordText('R', words_['R']));
    path_.CutArc(modes_.plane, arc, end, Feed());
  }

  void ArcByCentre(const Point& end) {
    const PlanePoint from = path_.PositionIn(modes_.plane);
    const PlanePoint to = PathWriter::InPlane(modes_.plane, end);
    const PlanePoint centre = Centre();
    Arc arc = ArcAbout(centre, from, to, IsClockwise());
    const double p = TakesP() ? 0 : words_.Or('P', 0);
    if (p >= 2 && IsWhole(p)) arc.sweep += std::copysign(2 * std::numbers::pi * (p - 1), arc.sweep);
    const double startRadius = Distance(centre, from), endRadius = Distance(centre, to);
    if (std::min(startRadius, endRadius) > kNoLength && EndsElsewhere(startRadius, endRadius)) {
      Remark(kArcEndsElsewhere, Format("%.3f/%.3f", startRadius, endRadius));
    }
    path_.CutArc(modes_.plane, arc, end, Feed());
  }

  // The centre of the line's arc on the path.
  PlanePoint Centre() const {
    const PlaneAxes axes = AxesOf(modes_.plane);
    const auto length = [&](size_t axis) {
      return words_.Has(kCentreLetters[axis]) ? Length(kCentreLetters[axis]) : 0;
    };
    const double first = length(axes.first), second = length(axes.second);
    if (modes_.isCentreAbsolute) {
      Point centre{};
      centre[axes.first] = first;
      centre[axes.second] = second;
      return PathWriter::InPlane(modes_.plane, modes_.coordinates.ToPath(centre));
    }
    const PlanePoint start = path_.PositionIn(modes_.plane);
    const PlanePoint offset = modes_.coordinates.TurnedOffset({first, second});
    return {start[0] + offset[0], start[1] + offset[1]};
  }

  // True if the P word of the line belongs to another word of it.
  bool TakesP() const {
    if (groups_.TakesP()) return true;
    for (const double m : words_.mWords) {
      if (m == 97 || m == 98) return true;
    }
    return false;
  }

  // --- Cycles

  bool Cycle() {
    CannedCycle& cycle = modes_.cycle;
    if (words_.Has('Q')) cycle.peck = std::abs(Length('Q'));
    if (words_.Has('P') && !TakesP()) cycle.dwell = PSeconds();
    if (words_.Has('R')) cycle.retractLevel = Level('R', cycle.initialLevel);
    if (words_.Has('Z')) cycle.bottom = Level('Z', cycle.Retract());
    if (!words_.HasAny(kCycleWords)) return true;
    const double times = CycleTimes();
    if (times < 1) return true;
    if (!cycle.bottom || !modes_.coordinates.HasPlane(Plane::kXY)) {
      Remark(kNotRead, WordText('G', cycle.kind->tenths / 10));
      return true;
    }
    for (double time = 0; time + 1 <= times; ++time) {
      if (time > 0 && !limit_.Take()) return false;
      const Point place = EndPoint(Plane::kXY, Letters("XY"));
      if (!RunCycle(cycle, place, Feed(), modes_.toInitialLevel, &path_, &limit_)) return false;
    }
    return true;
  }

  // A value of Z on the path; incremental ones are measured from `base`.
  double Level(char letter, double base) const {
    return modes_.isIncremental ? base + Length(letter)
                                : modes_.coordinates.Shifted(Length(letter), 2);
  }

  double CycleTimes() const {
    if (words_.Has('L')) return words_['L'];
    const bool isCount = words_.Has('K') && !words_.HasAny(Letters("IJ")) && IsWhole(words_['K']);
    return isCount ? words_['K'] : 1;
  }

  // --- M words

  void Codes() {
    for (const double m : words_.mWords) {
      if (m == 6) path_.Event(EventKind::kTool, modes_.tool);
    }
    for (const double m : words_.mWords) {
      if (m != 6 && !IsRunCode(m)) path_.Event(EventKind::kCode, m);
    }
  }

  bool RunCodes() {
    double call = 0;
    bool isEnd = false;
    for (const double m : words_.mWords) {
      if (m == 0 || m == 1) path_.Event(EventKind::kStop, m);
      if (m == 2 || m == 30) isEnd = true;
      if (m >= 97 && IsRunCode(m)) call = m;
    }
    if (isEnd) return false;
    if (call == 97) CallNumber();
    if (call == 98) CallProgram();
    return call != 99 || calls_.Return();
  }

  void CallNumber() {
    const double times = words_.Or('L', 1);
    const uint64_t here = text_.Here().offset;
    std::optional<TextPlace> place;
    if (words_.Has('P')) place = Index().FindNumber(words_['P'], here);
    Call(place ? std::optional(CallTarget{*place, calls_.Heading(), times}) : std::nullopt, {});
  }

  void CallProgram() {
    double times = words_.Or('L', 1);
    double number = words_.Or('P', -1);
    // P 00051000: five times O 1000.
    constexpr double kFourDigits = 10000;
    const bool hasTimes = number >= kFourDigits && IsWhole(number) && !words_.Has('L') &&
                          Index().Find(number) == nullptr;
    if (hasTimes) {
      times = std::floor(number / kFourDigits);
      number = std::fmod(number, kFourDigits);
    }
    Call(Target(number, times), {});
  }

  bool CallWithArguments() {
    LocalVariables arguments = VacantLocals();
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const size_t variable = kArgumentOf[WordLine::Index(letter)];
      if (variable != 0 && words_.Has(letter)) arguments[variable] = words_[letter];
    }
    Call(Target(words_.Or('P', -1), words_.Or('L', 1)), arguments);
    return true;
  }

  std::optional<CallTarget> Target(double number, double times) {
    const IndexedProgram* const program = number >= 0 ? Index().Find(number) : nullptr;
    if (program == nullptr) return {};
    return CallTarget{program->begin, program->heading, times};
  }

  void Call(const std::optional<CallTarget>& target,
            const std::optional<LocalVariables>& arguments) {
    if (!target || !calls_.Call(*target, arguments)) {
      Remark(kSubprogram, WordText('P', words_.Or('P', 0)));
    }
  }

  void Remark(ReadingRemarkId id, std::string_view detail) { path_.Remark(id, detail); }

  ProgramText& text_;
  PathWriter& path_;
  RunLimit& limit_;
  double integerUnit_;  // of a length without a decimal point
  Variables variables_;
  WordCalls calls_;
  std::optional<ProgramIndex> index_;
  bool headIsProgram_ = false;  // the lines before the first O word are the main program
  WordModes modes_;
  WordLine words_;
  LineGroups groups_;
};

}  // namespace

void RunWordProgram(ProgramRun* run, bool isIntegerData) {
  WordReader(run, isIntegerData).Run();
}

}  // namespace tvx
