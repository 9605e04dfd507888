// Generates the NC programs of the benchmarks: one tool path, written in two line formats.
#include "programs.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <numbers>

namespace tvx::bench {

namespace {

constexpr size_t kPieceBytes = size_t{64} * 1024;

// The part, in mm: a wavy block that is milled in rows, level by level.
constexpr double kRowLength = 100;
constexpr double kStepOver = 0.5;
constexpr int kRows = 200;
constexpr double kSafeHeight = 20;
constexpr double kMeanHeight = -5;
constexpr double kWaveHeight = 2;
constexpr double kWaveLength = 25;
constexpr double kLevelDepth = 0.1;
constexpr int kLevels = 50;
constexpr int kPlungeFeed = 300;  // mm/min
constexpr int kCutFeed = 1200;    // mm/min
constexpr int kRapidWord = 9999;  // in the conversational format a high feed makes a rapid

// Positions in thousandths of a millimetre, as printed.
struct Point {
  int64_t x = 0, y = 0, z = 0;
};

int64_t Thousandths(double millimetres) {
  return std::llround(millimetres * 1000);
}

double Wave(double place) {
  return std::sin(place * 2 * std::numbers::pi / kWaveLength);
}

enum class MoveKind { kRapid, kCut, kArcCw, kArcCcw };

struct Move {
  MoveKind kind = MoveKind::kCut;
  Point end;
  int feed = kCutFeed;               // of a cut
  int64_t centreX = 0, centreY = 0;  // relative to the start of the arc
  int64_t Radius() const { return std::llround(std::hypot(centreX, centreY)); }
};

// Collects the lines and passes them to the sink in large pieces.
class LineSink {
 public:
  LineSink(uint64_t lines, const std::function<void(std::string_view)>& sink)
      : left_(lines), sink_(sink) {}

  uint64_t Left() const { return left_; }
  LineSink& Text(std::string_view text) {
    piece_.append(text);
    return *this;
  }
  LineSink& Whole(int64_t number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return Text({digits, static_cast<size_t>(end - digits)});
  }
  LineSink& Decimal(int64_t thousandths) {
    if (thousandths < 0) Text("-");
    const int64_t value = std::abs(thousandths);
    const char fraction[] = {'.', Digit(value / 100), Digit(value / 10), Digit(value)};
    return Whole(value / 1000).Text({fraction, sizeof fraction});
  }
  void EndLine() {
    Text("\r\n");
    --left_;
    if (piece_.size() >= kPieceBytes) Flush();
  }
  void Flush() {
    sink_(piece_);
    piece_.clear();
  }

 private:
  static char Digit(int64_t value) { return static_cast<char>('0' + value % 10); }

  uint64_t left_;
  const std::function<void(std::string_view)>& sink_;
  std::string piece_;
};

// One of the two line formats.
class Format {
 public:
  explicit Format(LineSink* sink) : sink_(*sink) {}
  virtual ~Format() = default;
  virtual void Begin() = 0;
  virtual void Add(const Move& move) = 0;
  virtual void End() = 0;
  // True if there is room for one more move before the last line.
  bool HasRoom() const { return sink_.Left() > 1; }

 protected:
  LineSink& sink_;
  Point last_{-1, -1, -1};  // not on the tool path, so the first move writes all words
};

class WordFormat final : public Format {
 public:
  using Format::Format;

  void Begin() override {
    for (const std::string_view line : {"%", "O0001", "G90G54", "T1M6", "S8000M3"}) {
      sink_.Text(line).EndLine();
    }
  }

  void Add(const Move& move) override {
    static constexpr std::string_view kMotions[] = {"G00", "G01", "G02", "G03"};
    const std::string_view motion = kMotions[static_cast<size_t>(move.kind)];
    if (motion != motion_) sink_.Text(motion);
    motion_ = motion;
    Coordinate("X", move.end.x, last_.x);
    Coordinate("Y", move.end.y, last_.y);
    Coordinate("Z", move.end.z, last_.z);
    if (move.kind == MoveKind::kArcCw || move.kind == MoveKind::kArcCcw) {
      sink_.Text("I").Decimal(move.centreX).Text("J").Decimal(move.centreY);
    } else if (move.kind == MoveKind::kCut && move.feed != feed_) {
      feed_ = move.feed;
      sink_.Text("F").Whole(feed_);
    }
    sink_.EndLine();
    last_ = move.end;
  }

  void End() override { sink_.Text("M30").EndLine(); }

 private:
  void Coordinate(std::string_view word, int64_t value, int64_t before) {
    if (value != before) sink_.Text(word).Decimal(value);
  }

  std::string_view motion_;
  int feed_ = 0;
};

class ConversationalFormat final : public Format {
 public:
  using Format::Format;

  void Begin() override {
    Number().Text("BEGIN PGM WAVES MM").EndLine();
    Number().Text("TOOL CALL 1 Z S8000").EndLine();
  }

  void Add(const Move& move) override {
    const bool isArc = move.kind == MoveKind::kArcCw || move.kind == MoveKind::kArcCcw;
    Number().Text(isArc ? "CR" : "L");
    Coordinate(" X", move.end.x, last_.x);
    Coordinate(" Y", move.end.y, last_.y);
    Coordinate(" Z", move.end.z, last_.z);
    if (isArc) {
      Signed(" R", move.Radius());
      sink_.Text(move.kind == MoveKind::kArcCw ? " DR-" : " DR+");
    } else {
      const int feed = move.kind == MoveKind::kRapid ? kRapidWord : move.feed;
      if (feed != feed_) sink_.Text(" F").Whole(feed);
      feed_ = feed;
    }
    sink_.EndLine();
    last_ = move.end;
  }

  void End() override { Number().Text("END PGM WAVES MM").EndLine(); }

 private:
  LineSink& Number() { return sink_.Whole(number_++).Text(" "); }
  void Coordinate(std::string_view word, int64_t value, int64_t before) {
    if (value != before) Signed(word, value);
  }
  void Signed(std::string_view word, int64_t value) {
    sink_.Text(word).Text(value >= 0 ? "+" : "").Decimal(value);
  }

  int64_t number_ = 0;
  int feed_ = 0;
};

// The tool path: rows in alternating directions, level by level.
class Path {
 public:
  Path(const ProgramOptions& options, Format* format)
      : kind_(options.kind), format_(*format), spacing_(std::max(options.spacing, 0.001)) {}

  void Run() {
    for (int level = 0; format_.HasRoom(); level = (level + 1) % kLevels) {
      height_ = kMeanHeight - level * kLevelDepth;
      const Point start = PointOf(0, 0);
      Add({.kind = MoveKind::kRapid, .end = {start.x, start.y, Thousandths(kSafeHeight)}});
      Add({.end = start, .feed = kPlungeFeed});
      for (int row = 0; row < kRows && format_.HasRoom(); ++row) MillRow(row);
      Add({.kind = MoveKind::kRapid, .end = {here_.x, here_.y, Thousandths(kSafeHeight)}});
    }
  }

 private:
  void MillRow(int row) {
    const auto points = std::max<int64_t>(1, std::llround(kRowLength / spacing_));
    const bool forth = row % 2 == 0;
    if (row > 0) Turn(row, forth);
    for (int64_t i = 1; i <= points && format_.HasRoom(); ++i) {
      const Point end = PointOf(static_cast<double>(forth ? i : points - i) * spacing_, row);
      if (kind_ == ProgramKind::kArcs && i % 2 == 0) {
        Add(ShortArc(end, i % 4 == 0));
      } else {
        Add({.end = end});
      }
    }
  }

  // The move from the end of a row to the start of the next one.
  void Turn(int row, bool forth) {
    const int64_t y = PointOf(0, row).y - PointOf(0, row - 1).y;
    const Point end{here_.x, here_.y + y, here_.z};
    if (kind_ == ProgramKind::kConversational) {
      const MoveKind kind = forth ? MoveKind::kArcCw : MoveKind::kArcCcw;
      Add({.kind = kind, .end = end, .centreX = 0, .centreY = y / 2});
    } else {
      Add({.end = end});
    }
  }

  // An arc of 60 degrees.
  Move ShortArc(const Point& end, bool clockwise) const {
    const double dx = static_cast<double>(end.x - here_.x);
    const double dy = static_cast<double>(end.y - here_.y);
    const double side = (clockwise ? -0.5 : 0.5) * std::numbers::sqrt3;
    return {.kind = clockwise ? MoveKind::kArcCw : MoveKind::kArcCcw,
            .end = end,
            .centreX = std::llround(dx / 2 - side * dy),
            .centreY = std::llround(dy / 2 + side * dx)};
  }

  Point PointOf(double x, int row) const {
    const double y = row * kStepOver;
    if (kind_ == ProgramKind::kArcs) {
      return {Thousandths(x), Thousandths(y + kWaveHeight * Wave(x)), Thousandths(height_)};
    }
    const double z = height_ + kWaveHeight * Wave(x + y / 2) * Wave(y + kWaveLength / 3);
    return {Thousandths(x), Thousandths(y), Thousandths(z)};
  }

  void Add(const Move& move) {
    if (!format_.HasRoom()) return;
    format_.Add(move);
    here_ = move.end;
  }

  ProgramKind kind_;
  Format& format_;
  double spacing_;
  double height_ = 0;
  Point here_;
};

constexpr std::string_view kKindNames[] = {"raster", "arcs", "conversational"};

}  // namespace

std::string_view KindName(ProgramKind kind) {
  return kKindNames[static_cast<size_t>(kind)];
}

bool FindKind(std::string_view name, ProgramKind* kind) {
  for (const ProgramKind candidate : kProgramKinds) {
    if (KindName(candidate) != name) continue;
    *kind = candidate;
    return true;
  }
  return false;
}

void GenerateProgram(const ProgramOptions& options,
                     const std::function<void(std::string_view)>& sink) {
  LineSink lines(options.lines, sink);
  WordFormat word(&lines);
  ConversationalFormat conversational(&lines);
  Format* const format = options.kind == ProgramKind::kConversational
                             ? static_cast<Format*>(&conversational)
                             : static_cast<Format*>(&word);
  format->Begin();
  Path(options, format).Run();
  format->End();
  lines.Flush();
}

std::string ProgramText(const ProgramOptions& options) {
  std::string text;
  GenerateProgram(options, [&](std::string_view piece) { text += piece; });
  return text;
}

bool WriteProgram(const ProgramOptions& options, const std::filesystem::path& file) {
  std::ofstream out(file, std::ios::binary);
  GenerateProgram(options, [&](std::string_view piece) {
    out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
  });
  return static_cast<bool>(out.flush());
}

}  // namespace tvx::bench
