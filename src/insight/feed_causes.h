// Why the cuts of a program are as slow as they are: the rule of the feed pass behind each slow
// part of a move, and the time that each rule takes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "feed/feed_pass.h"
#include "model/block_store.h"

namespace tvx {

// A rule as the user reads it; in English as RuleName.
const Message& TextOf(FeedRule rule);

// The parts of a straight cut that have feeds of their own.
enum class MovePart : uint8_t { kMiddle, kHead, kTail };
inline constexpr size_t kMoveParts = 3;

// The rule that last lowered the feed of each part of a move, or made a zone longer, by MovePart;
// none for a part that no rule lowered.
using MoveRules = std::array<std::optional<FeedRule>, kMoveParts>;

// Follows feed passes over one program. It takes 2 bytes for each block from the first pass that it
// follows until it is cleared.
class FeedCauses {
 public:
  // Begins with a pass over a program of so many blocks; pass the result to FeedPass. The rules of
  // zones that a pass before has left in the store stay known. The object has to outlive the pass.
  FeedTrace Follow(uint32_t blockCount);

  // True if it has followed a pass over a program of so many blocks.
  bool Knows(uint32_t blockCount) const { return !rules_.empty() && rules_.size() == blockCount; }

  // The rules behind the feeds of a block, as stored now. A part without length has no rule.
  MoveRules RulesOf(uint32_t block, const MotionBlock& stored) const;

  void Clear();

 private:
  void Note(FeedRule rule, uint32_t block, const MotionBlock& before, const MotionBlock& after);

  std::vector<uint16_t> rules_;  // of a block: 1 + rule, or 0, in kRuleBits for each part
};

// Minutes of the straight cuts, as ComputeCutTime counts them, but in double precision. The time of
// a part of a cut is its time at the highest feed, and a rest that belongs to the rule behind its
// feed; a part that runs faster than that has a rest below 0.
//
// atHighestFeed, the minutes of all rules and `unexplained` add up to straightCuts.
struct CauseMinutes {
  std::array<double, kFeedRules> byRule{};  // by FeedRule
  // Of zones from a pass that was not followed, and of programmed feeds.
  double unexplained = 0;
  double atHighestFeed = 0;
  double straightCuts = 0;

  // Arcs are in none of the times. Their lengths, mm: of all, and of those that a rule slowed.
  double arcLength = 0;
  std::array<double, kFeedRules> arcLengthByRule{};

  double Of(FeedRule rule) const { return byRule[static_cast<size_t>(rule)]; }
};

// Looks at every block once, which repairs bad records. `highestFeed`: the MaxFeed of the pass,
// which is the FeedBase of the program after it, mm/min.
CauseMinutes CountCauses(BlockStore* store, int32_t highestFeed, const FeedCauses& causes);

// The minutes of the straight cuts by ranges of their feed. `rangeOf` returns the index of the
// range of a feed, below `ranges`; nothing for a feed in none.
using RangeOfFeed = std::function<std::optional<size_t>(int32_t feed)>;
std::vector<double> MinutesByFeed(BlockStore* store, size_t ranges, const RangeOfFeed& rangeOf);

// Moves that one rule slowed, with at most kMostBetween other moves between two of them.
struct SlowPlace {
  static constexpr uint32_t kMostBetween = 3;

  FeedRule rule = FeedRule::kSlope;
  double minutes = 0;       // that the rule takes there
  uint32_t firstBlock = 0;  // of the first and the last of the moves
  uint32_t lastBlock = 0;
  uint32_t costliestBlock = 0;  // the move that takes most of the minutes; the first of several
};

// The places that take most time, at most `count`, the costliest first; of equal ones the first in
// the program.
std::vector<SlowPlace> CostliestPlaces(BlockStore* store, int32_t highestFeed,
                                       const FeedCauses& causes, size_t count);

}  // namespace tvx
