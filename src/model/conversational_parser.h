// The parser of conversational programs.
#pragma once

#include "model/job_record.h"
#include "model/line_parser.h"
#include "model/line_reader.h"

namespace tvx {

// The conversational format.
class ConversationalParser final : public LineParser {
 public:
  // Above this feed a line is a rapid, mm/min.
  static constexpr int32_t kRapidFeed = 2000;

  ConversationalParser(NcProgram* program, ParserStates* states, const JobRecord& /*job*/)
      : LineParser(program, &states->conversational) {}

  // A line that was cut is parsed like any other.
  int Parse(const NcLine& line) {
    if (line.hasComment && Holds(line.text, "(")) return 0;
    Begin();
    const Ending ending = Scan(line.text);
    if (ending != Ending::kLineEnd) return ending == Ending::kBlock ? 1 : 0;
    return state_.centreLine ? FinishCentre() : Finish();
  }

 private:
  // clang-format off
  static constexpr WordTable kWords = MakeTable({
      {'X', kX}, {'x', kX}, {'Y', kY}, {'y', kY}, {'Z', kZ}, {'z', kZ},
      {'F', kFeed}, {'f', kFeed}, {'G', kMotion}, {'R', kRadius},
      {'L', kLine}, {'C', kCentre}, {'B', kBegin}, {'T', kTool}, {'E', kEnd}, {'D', kDirection},
      {'c', kSmallC}, {'\n', kLineFeed}, {'\0', kZeroByte},
  });
  // clang-format on

  // How the scan of a line ended.
  enum class Ending {
    kLineEnd,
    kNoMove,  // at a word after which the line makes no move
    kBlock,   // at a word that leaves the block as it stands
  };

  static bool Accept(const char** next, char character) {
    if (**next != character) return false;
    ++*next;
    return true;
  }
  // Passes over one character, whatever it is, but for the end of the line.
  static void Skip(const char** next) {
    if (**next != '\n' && **next != '\0') ++*next;
  }

  Ending Scan(const char* next) {
    const auto sees = [&](const char* text) { return next[0] == text[0] && next[1] == text[1]; };
    for (;;) {
      const Word word = kWords[static_cast<unsigned char>(*next++)];
      if (word == kPassedOver) continue;
      switch (word) {
        case kX:
        case kY:
        case kZ:
          Coordinate(word, TakeNumber<true>(&next).value);
          break;
        case kFeed:
          if (const NumberToken feed = TakeNumber<true>(&next); !feed.empty) {
            FeedWord(TruncateToInt(feed.value));
          }
          break;
        case kRadius:
          if (const NumberToken radius = TakeNumber<true>(&next); !radius.empty) {
            arcRadius_ = static_cast<float>(radius.value);
          }
          break;
        case kMotion:
          MotionWord(TruncateToInt(TakeNumber<false>(&next).value));
          break;
        case kLine:
          LineWord();
          break;
        case kBegin:  // BEGIN, BLK FORM
          if (sees("EG") || sees("LK") || sees("OO") || sees("ND")) return Ending::kNoMove;
          CentreWord(&next);
          break;
        case kTool:  // TOOL
          if (sees("OO") || sees("ND")) return Ending::kNoMove;
          CentreWord(&next);
          break;
        case kEnd:  // END
          if (sees("ND")) return Ending::kNoMove;
          CentreWord(&next);
          break;
        case kCentre:
          CentreWord(&next);
          break;
        case kDirection:
          if (Accept(&next, 'R')) DirectionWord(&next);
          break;
        case kSmallC:
          return Ending::kBlock;
        case kLineFeed:
        case kZeroByte:
          return Ending::kLineEnd;
        default:
          break;
      }
    }
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
  void CentreWord(const char** next) {
    if (Accept(next, 'R')) return;
    if (Accept(next, 'C')) state_.centreLine = true;
  }

  // CC only sets the radius of the arcs that follow.
  int FinishCentre() {
    state_.centreLine = false;
    arcRadius_ = static_cast<float>(SafeSqrt(Square(state_.centreDx) + Square(state_.centreDy)));
    return 0;
  }

  // The direction of rotation closes an arc, from the last radius read. Two characters after the
  // sign belong to the word, whatever they are.
  void DirectionWord(const char** next) {
    if (Accept(next, '-')) {
      type_ = BlockArcCw;
    } else if (Accept(next, '+')) {
      type_ = BlockArcCcw;
    } else {
      Skip(next);
    }
    if (arcRadius_ > 0) {
      LatchType();
      FindCentre();
    } else {
      type_ = BlockCutStart;
      LatchType();
    }
    Skip(next);
    Skip(next);
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
        type_ = block_.feed <= kRapidFeed ? BlockCutStart : BlockRapidStart;
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
    if (feed > kRapidFeed) {
      type_ = type_ == BlockRapid ? BlockRapid : BlockRapidStart;
    } else {
      type_ = type_ == BlockCut ? BlockCut : BlockCutStart;
    }
    LatchType();
  }

  void MotionWord(int32_t g) {
    SetMotionType(g);
    if (g == 90) {
      incrementalMode_ = 0;
    } else if (g == 91) {
      incrementalMode_ = 1;
      SetPosition({});
    }
    LatchType();
  }
};

}  // namespace tvx
