#include "model/parser.h"

#include <array>
#include <cstring>
#include <initializer_list>
#include <utility>

#include "model/arc_geometry.h"
#include "model/number_token.h"
#include "platform/numbers.h"

namespace tvx {

namespace {

// Above this feed a conversational line is a rapid, mm/min.
constexpr int32_t kConversationalRapidFeed = 2000;
// Size of one step of integer NC data, in program units.
constexpr double kIntegerDataUnit = 0.001;

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

constexpr WordTable MakeTable(std::initializer_list<std::pair<char, Word>> words) {
  WordTable table{};
  table.fill(kPassedOver);
  for (const auto& [character, word] : words) table[static_cast<unsigned char>(character)] = word;
  return table;
}

// clang-format off
constexpr WordTable kWordAddress = MakeTable({
    {'X', kX}, {'x', kX}, {'Y', kY}, {'y', kY}, {'Z', kZ}, {'z', kZ},
    {'I', kArcI}, {'i', kArcI}, {'J', kArcJ}, {'j', kArcJ},
    {'F', kFeed}, {'f', kFeed}, {'G', kMotion}, {'R', kRadius},
    {'c', kSmallC}, {'\0', kZeroByte},
});

constexpr WordTable kConversational = MakeTable({
    {'X', kX}, {'x', kX}, {'Y', kY}, {'y', kY}, {'Z', kZ}, {'z', kZ},
    {'F', kFeed}, {'f', kFeed}, {'G', kMotion}, {'R', kRadius},
    {'L', kLine}, {'C', kCentre}, {'B', kBegin}, {'T', kTool}, {'E', kEnd}, {'D', kDirection},
    {'c', kSmallC}, {'\0', kZeroByte},
});
// clang-format on

// One of the characters stands in the line, before a zero byte if it has one. Looks at eight bytes
// at a time, since this is asked for every line and nearly every line holds none of them.
template <char... wanted>
bool Holds(std::string_view line) {
  constexpr uint64_t kLow = 0x0101010101010101;
  constexpr uint64_t kHigh = 0x8080808080808080;
  const auto zeros = [](uint64_t bytes) { return (bytes - kLow) & ~bytes & kHigh; };
  uint64_t found = 0;
  for (size_t i = 0; i < line.size(); i += sizeof(uint64_t)) {
    uint64_t bytes = 0;
    std::memcpy(&bytes, line.data() + i, sizeof bytes);
    found |= (zeros(bytes ^ (kLow * static_cast<unsigned char>(wanted))) | ...);
  }
  if (found == 0) [[likely]]
    return false;
  // Perhaps: it may stand behind the line or behind a zero byte.
  const std::string_view text = line.substr(0, line.find('\0'));
  return ((text.find(wanted) != std::string_view::npos) || ...);
}

uint32_t ContinuedType(uint32_t modalType) {
  switch (modalType) {
    case BlockCutStart:
      return BlockCut;
    case BlockRapidStart:
      return BlockRapid;
    default:
      return modalType;
  }
}

// G0 to G3: the type that the word gives after `type`. Other numbers leave it.
uint32_t MotionType(int32_t g, uint32_t type) {
  switch (g) {
    case 0:
      return type == BlockRapid ? BlockRapid : BlockRapidStart;
    case 1:
      return type == BlockCut ? BlockCut : BlockCutStart;
    case 2:
      return BlockArcCw;
    case 3:
      return BlockArcCcw;
    default:
      return type;
  }
}

// One line at work on the register and the modal state. Words act at once, in reading order.
class Line {
 public:
  Line(const ParserContext& context, ParserState* state)
      : context_(context),
        state_(*state),
        block_(*context.CurrentBlock),
        type_(ContinuedType(state->modalType)) {
    if (*context.incrementalMode == 0) {
      SetPosition(state->savedPos);
      state->lastPos = state->savedPos;
    } else {
      SetPosition({});
    }
    lengths_[kArcI] = state->modalArcOffset.x;
    lengths_[kArcJ] = state->modalArcOffset.y;
  }

 protected:
  void SetPosition(const Vec3& position) {
    lengths_[kX] = position.x;
    lengths_[kY] = position.y;
    lengths_[kZ] = position.z;
  }
  bool IsIncremental() const { return *context_.incrementalMode != 0; }
  void SetFeed(int32_t feed) { block_.feedProgrammed = block_.feed = feed; }
  void LatchType() { state_.modalType = type_; }

  [[gnu::noinline]] void FindCentre() {
    const Vec3& last = state_.lastPos;
    Vec3 end{lengths_[kX], lengths_[kY], lengths_[kZ]};
    if (IsIncremental()) end = {last.x + end.x, last.y + end.y, last.z + end.z};
    Vec3 offset{lengths_[kArcI], lengths_[kArcJ], 0};
    ArcCentreFromRadius(last, end, *context_.arcRadius, type_, &offset);
    lengths_[kArcI] = offset.x;
    lengths_[kArcJ] = offset.y;
  }

  // What every line leaves in the register and in the loader's arc offset.
  int Leave(int result, Vec3* arcOffset) {
    block_.x = lengths_[kX];
    block_.y = lengths_[kY];
    block_.z = lengths_[kZ];
    block_.type = type_;
    arcOffset->x = lengths_[kArcI];
    arcOffset->y = lengths_[kArcJ];
    arcOffset->z = state_.modalArcOffset.z;
    return result;
  }

  // A valid line ends: what it said becomes modal, and the result tells whether it moves. An arc
  // moves also where it ends at its start: that is a full circle.
  int Finish() {
    const float x = lengths_[kX], y = lengths_[kY], z = lengths_[kZ];
    state_.savedPos = {x, y, z};
    state_.modalArcOffset.x = lengths_[kArcI];
    state_.modalArcOffset.y = lengths_[kArcJ];
    Vec3& last = state_.lastPos;
    bool moves = false;
    if (!IsIncremental()) {
      moves = x != last.x || y != last.y || z != last.z;
    } else {
      moves = x != 0 || y != 0 || z != 0;
      const Vec3 end{last.x + x, last.y + y, last.z + z};
      SetPosition(end);
      if (moves) last = end;
    }
    return moves || IsArcType(type_) ? 1 : 0;
  }

  const ParserContext& context_;
  ParserState& state_;
  MotionBlock& block_;
  uint32_t type_;
  float lengths_[kLengths];
};

class WordLine : Line {
 public:
  explicit WordLine(const ParserContext& context)
      : Line(context, &context.states->word), isInteger_(context.job->IntNcdataFlg != 0) {}

  int Parse(const PaddedLine& line, Vec3* arcOffset) {
    const bool ended = Scan(line.text.data(), line.text.data() + line.text.size());
    return Leave(ended && line.hasLineFeed && isValid_ ? Finish() : 0, arcOffset);
  }

 private:
  // False if the scan stopped before the end.
  bool Scan(const char* next, const char* end) {
    while (next != end) {
      const Word word = kWordAddress[static_cast<unsigned char>(*next++)];
      if (word > kLastNumberWord) {
        if (word == kPassedOver) continue;
        return false;  // behind a small c the line is text; a zero byte cuts it
      }
      // A letter without a number takes effect as 0 and makes the line invalid.
      const NumberToken number = TakeNumber<false>(&next, end);
      if (number.empty) isValid_ = false;
      if (word < kLengths) {
        lengths_[word] = Length(number.value);
      } else {
        Act(word, number.value);
      }
    }
    return true;
  }

  float Length(double value) const {
    return static_cast<float>(isInteger_ ? value * kIntegerDataUnit : value);
  }

  void Act(Word word, double value) {
    if (word == kFeed) {
      FeedWord(TruncateToInt(value));
    } else if (word == kMotion) {
      MotionWord(TruncateToInt(value));
    } else {
      // The radius acts at once: X, Y and the G word have to stand before it.
      *context_.arcRadius = Length(value);
      FindCentre();
    }
  }

  // A feed tells cut from rapid for this line; it is not latched.
  void FeedWord(int32_t feed) {
    SetFeed(feed);
    if (feed >= context_.job->RapidFeed) {
      type_ = BlockRapidStart;
    } else if (IsRapidType(type_) || type_ == BlockCut) {
      type_ = BlockCutStart;
    }
  }

  void MotionWord(int32_t g) {
    type_ = MotionType(g, type_);
    if (g >= 0 && g <= 3) {
      lengths_[kArcI] = lengths_[kArcJ] = 0;
    } else if (g == 90) {
      *context_.incrementalMode = 0;
      SetPosition(state_.lastPos);
    } else if (g == 91) {
      *context_.incrementalMode = 1;
      SetPosition({});
    }
    LatchType();
  }

  bool isInteger_;
  bool isValid_ = true;
};

class ConversationalLine : Line {
 public:
  explicit ConversationalLine(const ParserContext& context)
      : Line(context, &context.states->conversational) {}

  int Parse(const PaddedLine& line, Vec3* arcOffset) {
    const Ending ending = Scan(line.text.data(), line.text.data() + line.text.size());
    int result = ending == Ending::kBlock ? 1 : 0;
    if (ending == Ending::kLineEnd) result = state_.centreLine ? FinishCentre() : Finish();
    return Leave(result, arcOffset);
  }

 private:
  // How the scan of a line ended.
  enum class Ending {
    kLineEnd,
    kNoMove,  // at a word that takes the move away
    kBlock,   // at a word that leaves the block as it stands
  };

  static bool Sees(const char* next, const char* end, std::string_view text) {
    return std::string_view(next, static_cast<size_t>(end - next)).starts_with(text);
  }
  static bool Accept(const char** next, const char* end, char character) {
    if (*next == end || **next != character) return false;
    ++*next;
    return true;
  }
  // Passes over one character, whatever it is, but for the end of the line.
  static void Skip(const char** next, const char* end) {
    if (*next != end && **next != '\0') ++*next;
  }

  Ending Scan(const char* next, const char* end) {
    const auto sees = [&](std::string_view text) { return Sees(next, end, text); };
    while (next != end) {
      const Word word = kConversational[static_cast<unsigned char>(*next++)];
      switch (word) {
        case kX:
        case kY:
        case kZ:
          Coordinate(word, TakeNumber<true>(&next, end).value);
          break;
        case kFeed:
          if (const NumberToken feed = TakeNumber<true>(&next, end); !feed.empty) {
            FeedWord(TruncateToInt(feed.value));
          }
          break;
        case kRadius:
          if (const NumberToken radius = TakeNumber<true>(&next, end); !radius.empty) {
            *context_.arcRadius = static_cast<float>(radius.value);
          }
          break;
        case kMotion:
          MotionWord(TruncateToInt(TakeNumber<false>(&next, end).value));
          break;
        case kLine:
          LineWord();
          break;
        case kBegin:  // BEGIN, BLK FORM
          if (sees("EG") || sees("LK") || sees("OO") || sees("ND")) return Ending::kNoMove;
          CentreWord(&next, end);
          break;
        case kTool:  // TOOL
          if (sees("OO") || sees("ND")) return Ending::kNoMove;
          CentreWord(&next, end);
          break;
        case kEnd:  // END
          if (sees("ND")) return Ending::kNoMove;
          CentreWord(&next, end);
          break;
        case kCentre:
          CentreWord(&next, end);
          break;
        case kDirection:
          if (Accept(&next, end, 'R')) DirectionWord(&next, end);
          break;
        case kSmallC:
          return Ending::kBlock;
        case kZeroByte:
          return Ending::kLineEnd;
        default:
          break;
      }
    }
    return Ending::kLineEnd;
  }

  // On a centre line X and Y give the centre, from the position so far. The difference is rounded
  // once: a value rounded before it would show in the radius.
  void Coordinate(Word word, double value) {
    if (state_.centreLine && word == kX) {
      state_.centreDx = static_cast<float>(value - lengths_[kX]);
    } else if (state_.centreLine && word == kY) {
      state_.centreDy = static_cast<float>(value - lengths_[kY]);
    } else {
      lengths_[word] = static_cast<float>(value);
    }
  }

  // CC opens a centre line; CR is an arc whose radius word follows.
  void CentreWord(const char** next, const char* end) {
    if (Accept(next, end, 'R')) return;
    if (Accept(next, end, 'C')) state_.centreLine = true;
  }

  // CC only sets the radius of the arcs that follow.
  int FinishCentre() {
    state_.centreLine = false;
    *context_.arcRadius =
        static_cast<float>(SafeSqrt(Square(state_.centreDx) + Square(state_.centreDy)));
    return 0;
  }

  // The direction of rotation closes an arc, from the last radius read. Two characters behind the
  // sign belong to the word, whatever they are.
  void DirectionWord(const char** next, const char* end) {
    if (Accept(next, end, '-')) {
      type_ = BlockArcCw;
    } else if (Accept(next, end, '+')) {
      type_ = BlockArcCcw;
    } else {
      Skip(next, end);
    }
    if (*context_.arcRadius > 0) {
      LatchType();
      FindCentre();
    } else {
      type_ = BlockCutStart;
      LatchType();
    }
    Skip(next, end);
    Skip(next, end);
  }

  void LineWord() {
    switch (type_) {
      case BlockCutStart:
        type_ = BlockCut;
        break;
      case BlockRapidStart:
        type_ = BlockRapid;
        break;
      case BlockArcCw:
      case BlockArcCcw:
        type_ = block_.feed <= kConversationalRapidFeed ? BlockCutStart : BlockRapidStart;
        break;
      case BlockNone:
        type_ = BlockRapidStart;
        break;
      default:
        break;
    }
    LatchType();
  }

  void FeedWord(int32_t feed) {
    SetFeed(feed);
    if (feed > kConversationalRapidFeed) {
      type_ = type_ == BlockRapid ? BlockRapid : BlockRapidStart;
    } else {
      type_ = type_ == BlockCut ? BlockCut : BlockCutStart;
    }
    LatchType();
  }

  void MotionWord(int32_t g) {
    type_ = MotionType(g, type_);
    if (g == 90) {
      *context_.incrementalMode = 0;
    } else if (g == 91) {
      *context_.incrementalMode = 1;
      SetPosition({});
    }
    LatchType();
  }
};

}  // namespace

int ParseWordLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset) {
  if (Holds<'(', '#'>(line.text)) return 0;
  return WordLine(context).Parse(line, arcOffset);
}

int ParseConversationalLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset) {
  if (Holds<'('>(line.text)) return 0;
  return ConversationalLine(context).Parse(line, arcOffset);
}

int ParseBlockLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset) {
  constexpr int32_t kConversationalType = 2;
  constexpr int32_t kWordAddressType = 1;
  if (context.job->InputFileType == kConversationalType) {
    return ParseConversationalLine(context, line, arcOffset);
  }
  context.job->InputFileType = kWordAddressType;
  return ParseWordLine(context, line, arcOffset);
}

}  // namespace tvx
