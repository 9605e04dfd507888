// The rules of the program check.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "insight/line_words.h"
#include "insight/remarks.h"
#include "model/block_store.h"
#include "model/vectors.h"

namespace tvx {

// What the parser made of a line.
struct LineOutcome {
  bool moves = false;          // it left a block, perhaps of type 0
  bool isCut = false;          // it is longer than what the parser gets
  bool isRapidByFeed = false;  // a rapid that would be a cut or an arc without its F words
  MotionBlock block;           // the register after the line
  Vec3 start;                  // where the move begins
  Vec3 arcOffset;              // I, J
  float radius = 0;            // the last radius read
};

// Adds remarks to lists of bounded length, at most one of an id for a line.
class RemarkWriter {
 public:
  RemarkWriter(ProgramCheck* check, size_t storedPerId)
      : check_(*check), storedPerId_(storedPerId) {}

  // `line` is at least that of the calls before for this id. Of the detail the first characters are
  // stored, up to one that is not ASCII. Returns false for a second remark of the line.
  bool Add(RemarkId id, uint64_t line, std::string_view detail);
  // Replaces the detail of the last remark of an id.
  void SetLastDetail(RemarkId id, const std::string& detail);

  ProgramCheck& check() { return check_; }

 private:
  ProgramCheck& check_;
  size_t storedPerId_;
  std::array<uint64_t, kRemarkIds> lastLine_{};
};

// Arcs that are in the store with both of their records, in the order of their lines. Each member
// has an array, because the lengths of several arcs are computed at once.
struct ArcBatch {
  static constexpr size_t kSize = 64;

  size_t count = 0;
  std::array<uint64_t, kSize> line;
  std::array<const char*, kSize> text;  // of the line, up to its line feed
  std::array<float, kSize> radius;      // the last one read
  std::array<float, kSize> turn{};      // 1: counter-clockwise, -1: clockwise
  std::array<float, kSize> startX{}, startY{}, startZ{};
  std::array<float, kSize> endX{}, endY{}, endZ{};
  std::array<float, kSize> i{}, j{};  // from the start to the centre

  // There has to be room for one more.
  void Add(uint64_t lineNumber, const char* lineText, uint32_t arcType, float lastRadius,
           const Vec3& start, const Vec3& end, const Vec3& centre) {
    const size_t n = count++;
    line[n] = lineNumber;
    text[n] = lineText;
    radius[n] = lastRadius;
    turn[n] = arcType == BlockArcCcw ? 1.0F : -1.0F;
    startX[n] = start.x;
    startY[n] = start.y;
    startZ[n] = start.z;
    endX[n] = end.x;
    endY[n] = end.y;
    endZ[n] = end.z;
    i[n] = centre.x;
    j[n] = centre.y;
  }
};

// What the rules carry from line to line.
struct RuleState {
  RemarkWriter* remarks = nullptr;
  bool isConversational = false;
  uint64_t moves = 0;             // good move blocks so far
  uint64_t motionLines = 0;       // that hold a motion word
  uint64_t otherFormat = 0;       // of these
  uint64_t movesAtEarlyLine = 0;  // at the last line of before-motion; with 0 moves none yet
  bool hasEarlyLine = false;
  std::string tool;        // the last T word, without its letter
  bool isInPlane = false;  // G18 or G19 is in force
  std::string planeWord;
  uint64_t planeArcs = 0;  // under it
  uint64_t arcs = 0;
  double arcLength = 0;  // mm
  uint64_t firstArcLine = 0;
};

// Applies all rules to a line. `text` is the whole line without its line feed.
void ApplyLineRules(uint64_t line, std::string_view text, const LineOutcome& outcome,
                    LineWords* words, RuleState* state);

// Applies the rules of arcs to a batch and empties it.
void ApplyArcRules(ArcBatch* arcs, RuleState* state);

// The rule of a last line without a line feed.
void ApplyLastLineRule(uint64_t line, std::string_view text, LineWords* words, RuleState* state);

// The rules of a whole program.
void ApplyProgramRules(RuleState* state);

}  // namespace tvx
