// The parser of word-address programs.
#pragma once

#include "model/job_record.h"
#include "model/line_parser.h"
#include "model/line_reader.h"

namespace tvx {

// The word-address format.
class WordParser final : public LineParser {
 public:
  WordParser(NcProgram* program, ParserStates* states, const JobRecord& job)
      : LineParser(program, &states->word),
        rapidFeed_(job.RapidFeed),
        unit_(job.IntNcdataFlg != 0 ? kIntegerDataUnit : 1.0) {}

  // A line with "#" changes nothing either. A line that was cut acts but makes no move.
  int Parse(const NcLine& line) {
    if (line.hasComment && Holds(line.text, "(#")) return 0;
    Begin();
    isValid_ = true;
    const bool ended = Scan(line.text);
    return ended && !line.isCut && isValid_ ? Finish() : 0;
  }

 private:
  // Size of one step of integer NC data, in program units.
  static constexpr double kIntegerDataUnit = 0.001;

  // clang-format off
  static constexpr WordTable kWords = MakeTable({
      {'X', kX}, {'x', kX}, {'Y', kY}, {'y', kY}, {'Z', kZ}, {'z', kZ},
      {'I', kArcI}, {'i', kArcI}, {'J', kArcJ}, {'j', kArcJ},
      {'F', kFeed}, {'f', kFeed}, {'G', kMotion}, {'R', kRadius},
      {'c', kSmallC}, {'\n', kLineFeed}, {'\0', kZeroByte},
  });
  // clang-format on

  // False if the scan stopped before the end.
  bool Scan(const char* next) {
    for (;;) {
      const Word word = kWords[static_cast<unsigned char>(*next++)];
      if (word > kLastNumberWord) {
        if (word == kPassedOver) continue;
        return word == kLineFeed;  // after a small c the line is text; a zero byte cuts it
      }
      // A letter without a number takes effect as 0 and makes the line invalid.
      const NumberToken number = TakeNumber<false>(&next);
      if (number.empty) [[unlikely]]
        isValid_ = false;
      if (word < kLengths) {
        lengths_[word] = Length(number.value);
      } else {
        Act(word, number.value);
      }
    }
  }

  float Length(double value) const { return static_cast<float>(value * unit_); }

  void Act(Word word, double value) {
    if (word == kFeed) {
      FeedWord(TruncateToInt(value));
    } else if (word == kMotion) {
      MotionWord(TruncateToInt(value));
    } else {
      // The radius acts at once: X, Y and the G word have to stand before it.
      arcRadius_ = Length(value);
      FindCentre();
    }
  }

  // A feed tells cut from rapid for this line; it is not latched.
  void FeedWord(int32_t feed) {
    SetFeed(feed);
    if (feed >= rapidFeed_) {
      type_ = BlockRapidStart;
    } else if (IsRapidType(type_) || type_ == BlockCut) {
      type_ = BlockCutStart;
    }
  }

  void MotionWord(int32_t g) {
    SetMotionType(g);
    if (g >= 0 && g <= 3) {
      lengths_[kArcI] = lengths_[kArcJ] = 0;
    } else if (g == 90) {
      incrementalMode_ = 0;
      SetPosition(state_.lastPos);
    } else if (g == 91) {
      incrementalMode_ = 1;
      SetPosition({});
    }
    LatchType();
  }

  int32_t rapidFeed_;
  double unit_;  // of a length, in program units
  bool isValid_ = true;
};

}  // namespace tvx
