// The check follows the load line by line; lines without anything to report take a short path.
#include "insight/program_check.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

#include "insight/line_rules.h"
#include "insight/plain_lines.h"
#include "model/conversational_parser.h"
#include "model/line_reader.h"
#include "model/word_parser.h"

namespace tvx {

namespace {

// Of a longer line this much is looked at, bytes.
constexpr size_t kLongestLine = size_t{64} * 1024;

// The parser has made a move that its store can hold and that takes time.
bool IsOrdinary(const LineParser& parser) {
  const Vec3 end = parser.End();
  return parser.Feed() > 0 && !BlockStore::IsOutOfRange(end.x) && !BlockStore::IsOutOfRange(end.z);
}

// The line as the parser gets it, with F words that make no rapid: without any in the word-address
// format, with zeros for their digits in the conversational one, where the last rapid is in force
// for a line without F.
class LineWithoutFeeds {
 public:
  LineWithoutFeeds(const NcLine& line, bool isConversational) : line_(line) {
    const char* const end = static_cast<const char*>(std::memchr(line.text, '\n', sizeof text_));
    std::copy(line.text, end + 1, text_);
    line_.text = text_;
    constexpr std::string_view kNumber = "0123456789.+-";
    bool isFeed = false;
    for (char& c : text_) {
      if (c == '\n') break;
      isFeed = c == 'F' || c == 'f' || (isFeed && kNumber.find(c) != std::string_view::npos);
      if (isFeed && !isConversational) c = ' ';
      if (isFeed && c >= '0' && c <= '9') c = '0';
    }
  }

  const NcLine& line() const { return line_; }

 private:
  NcLine line_;
  char text_[LineReader::kParserLineBytes + 1];
};

}  // namespace

LoadStart TakeLoadStart(const NcProgram& program, const ParserStates& states) {
  return {states, program.arcRadius};
}

// Follows the load line by line: the same parser from the same start, and counts in place of a
// store.
class ProgramChecker::Work {
 public:
  virtual ~Work() = default;
  virtual bool CheckMore(uint64_t lines) = 0;
  virtual LoadStart NextStart() const = 0;

  ProgramCheck check;
};

namespace {

// Of the format that the parser reads.
template <typename Parser>
class FormatWork final : public ProgramChecker::Work {
 public:
  FormatWork(std::unique_ptr<InputFile> file, const LoadStart& start, const JobRecord& job,
             const CheckOptions& options)
      : file_(std::move(file)),
        reader_(file_.get(), kLongestLine, options.progress),
        states_(start.states),
        job_(job),
        plainLines_(&reader_, LowestRapidFeed(job)),
        writer_(&check, options.storedPerId),
        capacity_(options.storeCapacity) {
    check.stamp = file_->Stamp();
    BeginProgram(&program_);
    program_.arcRadius = start.arcRadius;
    rules_.remarks = &writer_;
    rules_.isConversational = kConversational;
  }

  bool CheckMore(uint64_t lines) override {
    if (!hasEnded_ && !CheckLines(lines)) End();
    return !hasEnded_;
  }

  LoadStart NextStart() const override { return TakeLoadStart(program_, states_); }

 private:
  static constexpr bool kConversational = std::is_same_v<Parser, ConversationalParser>;

  // Why a run of plain lines stopped.
  enum class Stop {
    kRead,    // all lines in memory
    kLimit,   // of the lines
    kWords,   // at a line that is not parsed yet
    kOutcome  // after a line whose outcome the rules have to see
  };

  // What a run of plain lines found.
  struct PlainRun {
    Stop stop = Stop::kLimit;
    uint64_t lines = 0;     // read, the one at which it stopped included
    NcLine line;            // at which it stopped, of kWords and kOutcome
    LineOutcome outcome{};  // of that line, of kOutcome
  };

  // mm/min
  static int64_t LowestRapidFeed(const JobRecord& job) {
    return kConversational ? ConversationalParser::kRapidFeed + 1 : job.RapidFeed;
  }

  bool CheckLines(uint64_t lines);
  bool CheckLinesOfFullStore(uint64_t lines);
  // Reads at most `limit` lines.
  PlainRun RunPlainLines(uint64_t limit);
  LineOutcome ParseLine(const NcLine& line);
  void CheckLine(const NcLine& line, LineOutcome outcome);
  void End();
  bool IsFull() const { return blocks_ >= capacity_; }

  const std::unique_ptr<InputFile> file_;
  LineReader reader_;
  NcProgram program_;  // only for what the parsers keep there
  ParserStates states_;
  const JobRecord job_;
  PlainLines<kConversational> plainLines_;
  LineWords words_;
  RemarkWriter writer_;
  RuleState rules_;
  ArcBatch arcs_;
  const uint64_t capacity_;   // of the store, blocks
  uint64_t blocks_ = 0;       // stored so far
  uint64_t linesBehind_ = 0;  // a full store
  uint64_t firstBehind_ = 0;
  bool hasEnded_ = false;
};

// Nearly all lines of a program end here. The parser stays local, and the rest of the check is far
// from it, so that a line costs little more than its parsing.
template <typename Parser>
[[gnu::flatten, gnu::noinline]] typename FormatWork<Parser>::PlainRun
FormatWork<Parser>::RunPlainLines(uint64_t limit) {
  Parser parser(&program_, &states_, job_);
  PlainRun run;
  NcLine line;
  const char* const nextWord = plainLines_.NextWord();
  uint64_t left = limit;
  uint64_t arcs = 0;
  for (; left > 0; --left) {
    if (!reader_.NextInMemory(&line)) {
      run.stop = Stop::kRead;
      break;
    }
    if (reader_.LineFeed() > nextWord || !PlainLines<kConversational>::IsPlain(line)) {
      run.stop = Stop::kWords;
      break;
    }
    const bool moves = parser.Parse(line) != 0;
    const uint32_t type = parser.Type();
    if (moves && IsOrdinary(parser)) {
      if (IsCutType(type) || IsRapidType(type)) continue;
      const Vec3 centre = parser.ArcOffset();
      const Vec3 start = parser.Start(), end = parser.End();
      // The first move of a program is a rapid in any case. A full circle needs no word.
      const bool isFirst = rules_.moves + limit == left;
      const bool isCircle = start.x == end.x && start.y == end.y && start.z == end.z;
      if (IsArcType(type) && !BlockStore::IsOutOfRange(centre.x) && !isFirst && !isCircle) {
        ++arcs;
        arcs_.Add(check.lines + limit - left + 1, line.text, type, parser.Radius(), start, end,
                  centre);
        if (arcs_.count == ArcBatch::kSize) ApplyArcRules(&arcs_, &rules_);
        continue;
      }
    }
    run.outcome = {moves,          false, false, parser.Block(), parser.Start(), parser.ArcOffset(),
                   parser.Radius()};
    run.stop = Stop::kOutcome;
    break;
  }
  ApplyArcRules(&arcs_, &rules_);
  parser.Save();
  const uint64_t moves = limit - left;
  run.lines = moves + (run.stop == Stop::kWords || run.stop == Stop::kOutcome ? 1 : 0);
  run.line = line;
  rules_.moves += moves;
  rules_.motionLines += moves;
  blocks_ += moves + arcs;
  check.lines += run.lines;
  return run;
}

// Returns false at the end of the program.
template <typename Parser>
bool FormatWork<Parser>::CheckLines(uint64_t lines) {
  while (lines > 0) {
    // Each line of a run may be an arc.
    const uint64_t limit = IsFull() ? 0 : std::min(lines, (capacity_ - blocks_) / 2);
    if (limit == 0) return CheckLinesOfFullStore(lines);
    const PlainRun run = RunPlainLines(limit);
    lines -= run.lines;
    if (run.stop == Stop::kRead) {
      if (!reader_.Refill()) return false;
      plainLines_.Search();
    } else if (run.stop != Stop::kLimit) {
      CheckLine(run.line, run.stop == Stop::kWords ? ParseLine(run.line) : run.outcome);
      plainLines_.Pass();
    }
  }
  return true;
}

// The same from the line on that may take the last block.
template <typename Parser>
bool FormatWork<Parser>::CheckLinesOfFullStore(uint64_t lines) {
  NcLine line;
  for (; lines > 0; --lines) {
    if (!reader_.Next(&line)) return false;
    ++check.lines;
    if (!IsFull()) {
      CheckLine(line, ParseLine(line));
    } else if (linesBehind_++ == 0) {
      firstBehind_ = check.lines;
    }
  }
  return true;
}

template <typename Parser>
LineOutcome FormatWork<Parser>::ParseLine(const NcLine& line) {
  Parser parser(&program_, &states_, job_);
  Parser trial(parser);
  LineOutcome outcome;
  outcome.moves = parser.Parse(line) != 0;
  outcome.block = parser.Block();
  outcome.start = parser.Start();
  outcome.arcOffset = parser.ArcOffset();
  outcome.radius = parser.Radius();
  parser.Save();
  if (!outcome.moves) return outcome;
  if (IsRapidType(outcome.block.type)) {
    const LineWithoutFeeds without(line, kConversational);
    trial.Parse(without.line());
    const uint32_t type = trial.Block().type;
    outcome.isRapidByFeed = IsCutType(type) || IsArcType(type);
  }
  return outcome;
}

template <typename Parser>
void FormatWork<Parser>::CheckLine(const NcLine& line, LineOutcome outcome) {
  outcome.isCut = line.isCut;
  ApplyLineRules(check.lines, reader_.Whole(line), outcome, &words_, &rules_);
  const MotionBlock& block = outcome.block;
  const bool isArc = outcome.moves && IsArcType(block.type);
  blocks_ += isArc ? 2 : 1;
  if (!outcome.moves || !IsMoveType(block.type) || BlockStore::IsBad(block)) return;
  // The first move of a program is a rapid in any case.
  const bool staysArc = isArc && rules_.moves > 0;
  ++rules_.moves;
  if (!staysArc || BlockStore::IsOutOfRange(outcome.arcOffset.x) || blocks_ > capacity_) return;
  arcs_.Add(check.lines, reader_.Whole(line).data(), block.type, outcome.radius, outcome.start,
            {block.x, block.y, block.z}, outcome.arcOffset);
  ApplyArcRules(&arcs_, &rules_);
}

template <typename Parser>
void FormatWork<Parser>::End() {
  hasEnded_ = true;
  check.read = file_->status();
  const std::string_view rest = reader_.Rest();
  if (!rest.empty()) {
    ++check.lines;
    if (!IsFull()) ApplyLastLineRule(check.lines, rest, &words_, &rules_);
  }
  if (linesBehind_ > 0)
    writer_.Add(RemarkId::kStoreFull, firstBehind_, std::to_string(linesBehind_));
  ApplyProgramRules(&rules_);
}

}  // namespace

ProgramChecker::ProgramChecker(const std::string& path, const LoadStart& start,
                               const JobRecord& job, Files* files, const CheckOptions& options) {
  auto file = files->OpenForReading(path);
  status_ = file.status;
  if (!file.ok()) return;
  JobRecord settings = job;
  if (IsConversational(&settings)) {
    work_ = std::make_unique<FormatWork<ConversationalParser>>(std::move(file.value), start, job,
                                                               options);
  } else {
    work_ = std::make_unique<FormatWork<WordParser>>(std::move(file.value), start, job, options);
  }
}

ProgramChecker::~ProgramChecker() = default;

bool ProgramChecker::CheckMore(uint64_t lines) {
  return work_ != nullptr && work_->CheckMore(lines);
}

const ProgramCheck& ProgramChecker::Result() const {
  static const ProgramCheck kNothing;
  return work_ != nullptr ? work_->check : kNothing;
}

LoadStart ProgramChecker::NextStart() const {
  return work_ != nullptr ? work_->NextStart() : LoadStart();
}

Result<ProgramCheck> CheckProgram(const std::string& path, const LoadStart& start,
                                  const JobRecord& job, Files* files, const CheckOptions& options) {
  ProgramChecker checker(path, start, job, files, options);
  if (!checker.status().ok()) return checker.status();
  checker.CheckMore(std::numeric_limits<uint64_t>::max());
  return checker.Result();
}

}  // namespace tvx
