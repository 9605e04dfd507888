#include "control/word_reader.h"

#include <cmath>
#include <optional>

#include "control/macro_statement.h"
#include "control/program_index.h"
#include "control/variables.h"
#include "control/word_calls.h"
#include "control/word_scanner.h"
#include "control/word_state.h"

namespace tvx {
namespace {

using enum ReadingRemarkId;

constexpr uint32_t kArcWords = Letters("XYZIJKR");
constexpr uint32_t kRotaryAxes = Letters("ABCUVW");
// Lines without these do nothing but move.
constexpr uint32_t kWordsBesideMoves = kRotaryAxes | Letters("GMFST");

// G words, in tenths.
constexpr uint16_t kDwellWord = 40;
constexpr uint16_t kCallWord = 650;

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
        state_(run, isIntegerData),
        words_(state_.words),
        groups_(state_.groups),
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
    if (text_.IsCut()) state_.Remark(kNotRead, "");
    if (form == LineForm::kMacro) [[unlikely]]
      return Macro(line);
    return form == LineForm::kIgnored || Words();
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
    state_.Remark(kMacro, "O");
    if (keyword.kind == OKeyword::Kind::kSub) SkipTo(Index().FindSubEnd(text_.Here().offset));
    return true;
  }

  // Continues after a line. False if there is none.
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
      state_.Remark(kMacro, "");
      return true;
    }
    RunMacro(line.data(), &variables_, &statement, &words_);
    if (statement.hasFault) state_.Remark(kMacro, "");
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
      state_.Remark(kMacro, "");
    }
  }

  void While(const MacroStatement& statement) {
    const std::optional<TextPlace> end = Index().FindLoopEnd(statement.number, text_.Here().offset);
    if (!end) {
      state_.Remark(kMacro, "WHILE");
    } else if (!statement.isTrue) {
      SkipTo(end);
    }
  }

  // --- Lines of words

  bool Words() {
    if (!words_.HasAny(kWordsBesideMoves) && words_.fault.data() == nullptr) {
      groups_.Clear();
      return Move();
    }
    if (words_.fault.data() != nullptr) [[unlikely]]
      state_.Remark(kNotRead, words_.fault);
    if (calls_.Heading() == kNoHeading && !headIsProgram_) headIsProgram_ = EndsHead(words_);
    FindGroups(&state_);
    if (!groups_.IsEmpty()) SetUnitsAndFeedMode(&state_);
    // The words of a call with arguments do nothing else.
    const bool isCall = groups_.Is(GGroup::kLine, kCallWord);
    if (!isCall) SetFeeds(&state_);
    if (!groups_.IsEmpty()) SetModes(&state_);
    if (isCall) [[unlikely]] {
      CallWithArguments();
      return true;
    }
    if (!words_.mWords.empty()) Codes();
    if (words_.HasAny(kRotaryAxes) && !groups_.Is(GGroup::kLine, kDwellWord)) [[unlikely]]
      Rotary();
    if (groups_.Has(GGroup::kLine)) [[unlikely]] {
      LineWord(groups_[GGroup::kLine]);
    } else if (!Move()) {
      return false;
    }
    return words_.mWords.empty() || RunCodes();
  }

  void Rotary() {
    for (const char letter : std::string_view("ABCUVW")) {
      if (words_.Has(letter)) return state_.Remark(kRotary, WordText(letter, words_[letter]));
    }
  }

  // A word that takes the line, which makes no move of its own.
  void LineWord(const GWord& word) {
    switch (word.tenths) {
      case kDwellWord:
        return path_.Dwell(DwellSeconds());
      case 280:
      case 300:
        state_.Remark(kMachinePosition, WordText('G', word.tenths / 10.0));
        if (words_.HasAny(kAxisWords)) path_.Rapid(End());
        return;
      case 520:
        return ShiftLocally(&state_);
      case 680:
        return TurnCoordinates(&state_);
      case 920:
        return ShiftOrigin(&state_);
      default:
        state_.Remark(word.remark, WordText('G', word.tenths / 10.0));
    }
  }

  double DwellSeconds() const {
    if (words_.Has('X')) return words_['X'];
    if (words_.Has('U')) return words_['U'];
    return words_.Has('P') ? state_.DwellOfP() : 0;
  }

  Point End() { return EndPoint(&state_, state_.modes.plane, kAxisWords); }

  bool Move() {
    const WordModes& modes = state_.modes;
    const bool isMachineMove = groups_.Has(GGroup::kMachineMove);
    const bool isProbe = groups_.Has(GGroup::kProbe) && !isMachineMove;
    if (isMachineMove) [[unlikely]]
      state_.Remark(kMachinePosition, "G53");
    if (modes.cycle.kind != nullptr && !isProbe) [[unlikely]]
      return RunCycleLine(&state_);
    if (isMachineMove) [[unlikely]]
      return true;
    const bool hasAxis = words_.HasAny(kAxisWords);
    if (isProbe || modes.motion == Motion::kCut) {
      if (hasAxis) path_.Cut(End(), state_.Feed());
    } else if (modes.motion == Motion::kRapid) {
      if (hasAxis) path_.Rapid(End());
    } else if (words_.HasAny(kArcWords)) {
      RunArc(&state_);
    }
    return true;
  }

  // --- M words

  void Codes() {
    for (const double m : words_.mWords) {
      if (m == 6) path_.Event(EventKind::kTool, state_.modes.tool);
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
    const bool hasTimes = number >= kFourDigits && number == std::floor(number) &&
                          !words_.Has('L') && Index().Find(number) == nullptr;
    if (hasTimes) {
      times = std::floor(number / kFourDigits);
      number = std::fmod(number, kFourDigits);
    }
    Call(Target(number, times), {});
  }

  void CallWithArguments() {
    LocalVariables arguments = VacantLocals();
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const size_t variable = kArgumentOf[WordLine::Index(letter)];
      if (variable != 0 && words_.Has(letter)) arguments[variable] = words_[letter];
    }
    Call(Target(words_.Or('P', -1), words_.Or('L', 1)), arguments);
  }

  std::optional<CallTarget> Target(double number, double times) {
    const IndexedProgram* const program = number >= 0 ? Index().Find(number) : nullptr;
    if (program == nullptr) return {};
    return CallTarget{program->begin, program->heading, times};
  }

  void Call(const std::optional<CallTarget>& target,
            const std::optional<LocalVariables>& arguments) {
    if (!target || !calls_.Call(*target, arguments)) {
      state_.Remark(kSubprogram, WordText('P', words_.Or('P', 0)));
    }
  }

  ProgramText& text_;
  PathWriter& path_;
  RunLimit& limit_;
  WordState state_;
  WordLine& words_;
  LineGroups& groups_;
  Variables variables_;
  WordCalls calls_;
  std::optional<ProgramIndex> index_;
  bool headIsProgram_ = false;  // the lines before the first O word are the main program
};

}  // namespace

void RunWordProgram(ProgramRun* run, bool isIntegerData) {
  WordReader(run, isIntegerData).Run();
}

}  // namespace tvx
