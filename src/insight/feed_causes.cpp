// One walk over the straight cuts, in parts that have a rule, a length and a feed.
#include "insight/feed_causes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/arc_geometry.h"
#include "model/vectors.h"

namespace tvx {

namespace {

constexpr unsigned kRuleBits = 3;
constexpr uint16_t kRuleMask = (1U << kRuleBits) - 1;

constexpr unsigned ShiftOf(MovePart part) {
  return static_cast<unsigned>(part) * kRuleBits;
}

// A share of a move, from per cent to a fraction; the same single-precision value as in the cut
// time.
double Fraction(int16_t percent) {
  return static_cast<float>(percent) * 0.01F;
}

// The part of a straight cut that runs at one feed.
struct Stretch {
  MovePart part;
  double length;  // mm
  int32_t feed;   // mm/min, not 0

  double Minutes() const { return length / feed; }
  // What the feed costs beside the highest one.
  double LostMinutes(int32_t highestFeed) const { return Minutes() - MinutesAt(highestFeed); }
  double MinutesAt(int32_t highestFeed) const {
    return highestFeed != 0 ? length / highestFeed : 0;
  }
};

// Calls visit(stretch) for the parts that the cut time counts: one without a feed has no time.
template <typename Visit>
void VisitStretches(const MotionBlock& block, double length, Visit visit) {
  const double head = Fraction(block.headPercent);
  const double tail = Fraction(block.tailPercent);
  if (block.headFeed > 0) visit(Stretch{MovePart::kHead, length * head, block.headFeed});
  if (block.tailFeed > 0) visit(Stretch{MovePart::kTail, length * tail, block.tailFeed});
  if (block.feed != 0) {
    visit(Stretch{MovePart::kMiddle, (1.0 - head - tail) * length, block.feed});
  }
}

// Calls visit(index, block, start) for each move. The first one starts at block 0, in place of an
// earlier move that is missing.
template <typename Visit>
void VisitMoves(BlockStore* store, Visit visit) {
  Vec3 start;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    const MotionBlock* const block = store->PeekRepaired(i);
    if (block == nullptr) continue;
    const Vec3 point = EndPoint(*block);
    if (i == 0) start = point;
    if (!IsMoveType(block->type)) continue;
    visit(i, *block, start);
    start = point;
  }
}

double LengthOf(const MotionBlock& block, const Vec3& start) {
  return Subtract(EndPoint(block), start).length;
}

// Of an arc and its height, mm. `centre` is its second record.
double ArcLength(const MotionBlock& arc, const MotionBlock& centre, const Vec3& start) {
  ArcMeasures measures;
  ArcGeometry(start, EndPoint(arc), {start.x + centre.x, start.y + centre.y, arc.z}, arc.type,
              &measures);
  return std::hypot(static_cast<double>(measures.length), static_cast<double>(arc.z) - start.z);
}

// The places of one rule, while they are found in the order of the program.
class PlaceSearch {
 public:
  PlaceSearch(FeedRule rule, size_t count, std::vector<SlowPlace>* places)
      : rule_(rule), count_(count), places_(*places) {}

  // `move` counts the moves of the program.
  void Add(uint64_t move, uint32_t block, double minutes) {
    if (!isOpen_ || move - lastMove_ > SlowPlace::kMostBetween + 1) {
      Close();
      open_ = {rule_, 0, block, block, block};
      mostMinutes_ = minutes;
      isOpen_ = true;
    }
    if (minutes > mostMinutes_) {
      mostMinutes_ = minutes;
      open_.costliestBlock = block;
    }
    open_.minutes += minutes;
    open_.lastBlock = block;
    lastMove_ = move;
  }

  // Ends the place at hand. The list stays a heap with the cheapest place at its front.
  void Close() {
    if (!isOpen_ || count_ == 0) return;
    isOpen_ = false;
    if (places_.size() == count_) {
      if (!IsCostlier(open_, places_.front())) return;
      std::ranges::pop_heap(places_, IsCostlier);
      places_.pop_back();
    }
    places_.push_back(open_);
    std::ranges::push_heap(places_, IsCostlier);
  }

  static bool IsCostlier(const SlowPlace& a, const SlowPlace& b) {
    if (a.minutes != b.minutes) return a.minutes > b.minutes;
    return a.firstBlock < b.firstBlock;
  }

 private:
  FeedRule rule_;
  size_t count_;
  std::vector<SlowPlace>& places_;
  bool isOpen_ = false;
  SlowPlace open_;
  double mostMinutes_ = 0;  // of one move
  uint64_t lastMove_ = 0;
};

}  // namespace

const Message& TextOf(FeedRule rule) {
  static constexpr Message kTexts[kFeedRules] = {
      {"경사", "slope"},      {"마스터 모델", "master"}, {"XY 코너", "XY corner"},
      {"Z 코너", "Z corner"}, {"원호", "arc"},
  };
  return kTexts[static_cast<size_t>(rule)];
}

FeedTrace FeedCauses::Follow(uint32_t blockCount) {
  // The pass sets the feeds of all moves anew, but not their zones.
  constexpr uint16_t kZones =
      kRuleMask << ShiftOf(MovePart::kHead) | kRuleMask << ShiftOf(MovePart::kTail);
  if (rules_.size() != blockCount) Clear();
  rules_.resize(blockCount);
  for (uint16_t& rules : rules_) rules &= kZones;
  return [this](FeedRule rule, uint32_t block, const MotionBlock& before,
                const MotionBlock& after) { Note(rule, block, before, after); };
}

void FeedCauses::Note(FeedRule rule, uint32_t block, const MotionBlock& before,
                      const MotionBlock& after) {
  const auto set = [&](MovePart part, bool changed) {
    if (!changed) return;
    const unsigned shift = ShiftOf(part);
    const unsigned others = rules_[block] & ~(static_cast<unsigned>(kRuleMask) << shift);
    rules_[block] = static_cast<uint16_t>(others | (static_cast<unsigned>(rule) + 1) << shift);
  };
  set(MovePart::kMiddle, before.feed != after.feed);
  // A zone that becomes longer lowers the feed of what it takes in.
  const auto headOf = [](const MotionBlock& b) { return std::pair(b.headPercent, b.headFeed); };
  const auto tailOf = [](const MotionBlock& b) { return std::pair(b.tailPercent, b.tailFeed); };
  set(MovePart::kHead, headOf(before) != headOf(after));
  set(MovePart::kTail, tailOf(before) != tailOf(after));
}

MoveRules FeedCauses::RulesOf(uint32_t block, const MotionBlock& stored) const {
  MoveRules rules;
  if (block >= rules_.size()) return rules;
  // The first move of a batch may have been lowered by the batch before, and set anew since.
  const bool isLowered = IsCutType(stored.type) && stored.feed != stored.feedProgrammed;
  const bool exists[kMoveParts] = {isLowered || IsArcType(stored.type), stored.headPercent > 0,
                                   stored.tailPercent > 0};
  for (size_t part = 0; part < kMoveParts; ++part) {
    const unsigned rule = rules_[block] >> ShiftOf(static_cast<MovePart>(part)) & kRuleMask;
    if (exists[part] && rule != 0) rules[part] = static_cast<FeedRule>(rule - 1);
  }
  return rules;
}

void FeedCauses::Clear() {
  rules_.clear();
  rules_.shrink_to_fit();
}

CauseMinutes CountCauses(BlockStore* store, int32_t highestFeed, const FeedCauses& causes) {
  CauseMinutes minutes;
  VisitMoves(store, [&](uint32_t index, const MotionBlock& block, const Vec3& start) {
    if (IsRapidType(block.type)) return;
    const MoveRules rules = causes.RulesOf(index, block);
    if (IsArcType(block.type)) {
      const MotionBlock* const centre = store->Peek(index + 1);
      if (centre == nullptr) return;
      const double length = ArcLength(block, *centre, start);
      minutes.arcLength += length;
      const auto rule = rules[static_cast<size_t>(MovePart::kMiddle)];
      if (rule) minutes.arcLengthByRule[static_cast<size_t>(*rule)] += length;
      return;
    }
    VisitStretches(block, LengthOf(block, start), [&](const Stretch& stretch) {
      minutes.straightCuts += stretch.Minutes();
      minutes.atHighestFeed += stretch.MinutesAt(highestFeed);
      const auto rule = rules[static_cast<size_t>(stretch.part)];
      double& lost = rule ? minutes.byRule[static_cast<size_t>(*rule)] : minutes.unexplained;
      lost += stretch.LostMinutes(highestFeed);
    });
  });
  return minutes;
}

std::vector<double> MinutesByFeed(BlockStore* store, size_t ranges, const RangeOfFeed& rangeOf) {
  std::vector<double> minutes(ranges);
  VisitMoves(store, [&](uint32_t, const MotionBlock& block, const Vec3& start) {
    if (!IsCutType(block.type)) return;
    VisitStretches(block, LengthOf(block, start), [&](const Stretch& stretch) {
      const auto range = rangeOf(stretch.feed);
      if (range && *range < ranges) minutes[*range] += stretch.Minutes();
    });
  });
  return minutes;
}

std::vector<SlowPlace> CostliestPlaces(BlockStore* store, int32_t highestFeed,
                                       const FeedCauses& causes, size_t count) {
  std::vector<SlowPlace> places;
  std::vector<PlaceSearch> searches;
  for (size_t rule = 0; rule < kFeedRules; ++rule) {
    searches.emplace_back(static_cast<FeedRule>(rule), count, &places);
  }
  uint64_t move = 0;
  VisitMoves(store, [&](uint32_t index, const MotionBlock& block, const Vec3& start) {
    ++move;
    if (!IsCutType(block.type)) return;
    const MoveRules rules = causes.RulesOf(index, block);
    std::array<double, kFeedRules> lost{};
    VisitStretches(block, LengthOf(block, start), [&](const Stretch& stretch) {
      const auto rule = rules[static_cast<size_t>(stretch.part)];
      if (rule) lost[static_cast<size_t>(*rule)] += stretch.LostMinutes(highestFeed);
    });
    for (size_t rule = 0; rule < kFeedRules; ++rule) {
      if (lost[rule] > 0) searches[rule].Add(move, index, lost[rule]);
    }
  });
  for (PlaceSearch& search : searches) search.Close();
  std::ranges::sort(places, PlaceSearch::IsCostlier);
  return places;
}

}  // namespace tvx
