// The base of the two parsers.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "base/numbers.h"
#include "model/arc_geometry.h"
#include "model/nc_program.h"
#include "model/number_token.h"
#include "model/parser_state.h"

namespace tvx {

// What the parsers of both formats share. A parser works on copies of the program's register and
// settings and of the modal state, so that line after line finds them at hand; Save writes them
// back.
//
// The Parse of each format takes one line, up to its first zero byte. It returns 1 if the register
// holds a block to store, whose I and J are the centre's offset from the start point for an arc,
// and 0 if the line makes no move. A line with "(" changes nothing.
class LineParser {
 public:
  // A copy parses on from the same state and can be thrown away.
  LineParser(const LineParser&) = default;
  LineParser& operator=(const LineParser&) = delete;

  // The register as the last line left it.
  MotionBlock Block() const {
    MotionBlock block = block_;
    block.x = lengths_[kX];
    block.y = lengths_[kY];
    block.z = lengths_[kZ];
    block.type = type_;
    return block;
  }

  // Parts of it: the copy of the whole would wait for the stores of its fields.
  uint32_t Type() const { return type_; }
  int32_t Feed() const { return block_.feed; }
  Vec3 End() const { return {lengths_[kX], lengths_[kY], lengths_[kZ]}; }

  // Where the move of the last line starts.
  Vec3 Start() const {
    const Vec3& last = state_.lastPos;
    if (!IsIncremental()) return last;
    const Vec3& increment = state_.savedPos;
    return {last.x - increment.x, last.y - increment.y, last.z - increment.z};
  }
  // I and J of the last line.
  Vec3 ArcOffset() const { return {lengths_[kArcI], lengths_[kArcJ], 0}; }
  // The last radius read.
  float Radius() const { return arcRadius_; }

  // Turns the register of an arc into the arc's second record.
  void ToArcCentre() {
    lengths_[kX] = lengths_[kArcI];
    lengths_[kY] = lengths_[kArcJ];
    type_ = BlockArcCentre;
  }

  void Save() const {
    *stateHome_ = state_;
    program_->store.CurrentBlock = Block();
    program_->incrementalMode = incrementalMode_;
    program_->arcRadius = arcRadius_;
  }

 protected:
  // What a character of a line stands for. The lengths come first: their values have places in the
  // order X, Y, Z, I, J.
  enum Word : uint8_t {
    kX,
    kY,
    kZ,
    kArcI,
    kArcJ,
    kLengths,  // how many
    kFeed = kLengths,
    kMotion,
    kRadius,
    kLastNumberWord = kRadius,  // up to here a number follows
    kPassedOver,
    kLineFeed,
    kZeroByte,
    kSmallC,
    kLine,
    kCentre,
    kBegin,
    kTool,
    kEnd,
    kDirection,
  };
  using WordTable = std::array<Word, 256>;

  static constexpr WordTable MakeTable(std::initializer_list<std::pair<char, Word>> words) {
    WordTable table{};
    table.fill(kPassedOver);
    for (const auto& [character, word] : words) table[static_cast<unsigned char>(character)] = word;
    return table;
  }

  // One of the characters stands in the line, before a zero byte if it has one.
  static bool Holds(const char* text, std::string_view wanted) {
    for (; *text != '\n' && *text != '\0'; ++text) {
      if (wanted.find(*text) != std::string_view::npos) return true;
    }
    return false;
  }

  LineParser(NcProgram* program, ParserState* state)
      : block_(program->store.CurrentBlock),
        state_(*state),
        incrementalMode_(program->incrementalMode),
        arcRadius_(program->arcRadius),
        type_(block_.type),
        lengths_{block_.x, block_.y, block_.z, 0, 0},
        program_(program),
        stateHome_(state) {}

  // The start of a line.
  void Begin() {
    type_ = ContinuedType(state_.modalType);
    if (incrementalMode_ == 0) {
      SetPosition(state_.savedPos);
      state_.lastPos = state_.savedPos;
    } else {
      SetPosition({});
    }
    lengths_[kArcI] = state_.modalArcOffset.x;
    lengths_[kArcJ] = state_.modalArcOffset.y;
  }

  void SetPosition(const Vec3& position) {
    lengths_[kX] = position.x;
    lengths_[kY] = position.y;
    lengths_[kZ] = position.z;
  }
  bool IsIncremental() const { return incrementalMode_ != 0; }
  void SetFeed(int32_t feed) { block_.feedProgrammed = block_.feed = feed; }
  void LatchType() { state_.modalType = type_; }

  // G0 to G3 give the type. Other numbers leave it.
  void SetMotionType(int32_t g) {
    switch (g) {
      case 0:
        if (type_ != BlockRapid) type_ = BlockRapidStart;
        break;
      case 1:
        if (type_ != BlockCut) type_ = BlockCutStart;
        break;
      case 2:
        type_ = BlockArcCw;
        break;
      case 3:
        type_ = BlockArcCcw;
        break;
      default:
        break;
    }
  }

  void FindCentre() {
    const Vec3 last = state_.lastPos;
    Vec3 end{lengths_[kX], lengths_[kY], lengths_[kZ]};
    if (IsIncremental()) end = {last.x + end.x, last.y + end.y, last.z + end.z};
    Vec3 offset{lengths_[kArcI], lengths_[kArcJ], 0};
    ArcCentreFromRadius(last, end, arcRadius_, type_, &offset);
    lengths_[kArcI] = offset.x;
    lengths_[kArcJ] = offset.y;
  }

  // Ends a valid line: its values become modal, and the result is 1 if it moves, else 0. An arc
  // moves also where it ends at its start: that is a full circle.
  int Finish() {
    const Vec3 given{lengths_[kX], lengths_[kY], lengths_[kZ]};
    Vec3& last = state_.lastPos;
    state_.savedPos = given;
    state_.modalArcOffset.x = lengths_[kArcI];
    state_.modalArcOffset.y = lengths_[kArcJ];
    bool moves = false;
    if (!IsIncremental()) {
      moves = given.x != last.x || given.y != last.y || given.z != last.z;
    } else {
      const Vec3& increment = given;
      moves = increment.x != 0 || increment.y != 0 || increment.z != 0;
      const Vec3 end{last.x + increment.x, last.y + increment.y, last.z + increment.z};
      SetPosition(end);
      if (moves) last = end;
    }
    return moves || IsArcType(type_) ? 1 : 0;
  }

  MotionBlock block_;  // of the register: all but the end point and the type
  ParserState state_;
  uint32_t incrementalMode_;
  float arcRadius_;
  uint32_t type_;            // of the register
  float lengths_[kLengths];  // end point of the register, and the arc offset

 private:
  static uint32_t ContinuedType(uint32_t modalType) {
    if (modalType == BlockCutStart) return BlockCut;
    if (modalType == BlockRapidStart) return BlockRapid;
    return modalType;
  }

  NcProgram* const program_;
  ParserState* const stateHome_;
};

}  // namespace tvx
