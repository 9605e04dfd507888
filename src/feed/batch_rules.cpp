// Which rule comes first, and which value is a float, is part of the result.
#include "feed/batch_rules.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/numbers.h"
#include "feed/directions.h"
#include "feed/zones.h"

namespace tvx {

namespace {

// Shorter moves, in mm, and moves with less rise than this are no slopes.
constexpr double kLeastSlope = 0.0001;
// A move that starts a run of cuts more steeply than this, in degrees, is a plunge.
constexpr double kPlungeAngle = 89.0;

bool SameFeeds(const MotionBlock& a, const MotionBlock& b) {
  return a.feed == b.feed && a.headPercent == b.headPercent && a.headFeed == b.headFeed &&
         a.tailPercent == b.tailPercent && a.tailFeed == b.tailFeed;
}

// Carries out rules that nobody follows.
struct Untraced {
  template <typename Rule>
  void ApplyToBatch(FeedRule, const Batch&, Rule rule) {
    rule();
  }
  template <typename Rule>
  void ApplyToCorner(FeedRule, uint32_t, Rule rule) {
    rule();
  }
};

// Carries out rules and traces what they change.
class Traced {
 public:
  // `blocks`: the records of the batch.
  Traced(const PathIndex& path, const BatchBlocks& blocks, const FeedTrace& trace,
         FeedRecords* records)
      : path_(path), blocks_(blocks), trace_(trace), records_(*records) {}

  // A rule that changes the blocks of a batch and the first move of the next one.
  template <typename Rule>
  void ApplyToBatch(FeedRule name, const Batch& batch, Rule rule) {
    const uint32_t count = batch.end - batch.first;
    for (uint32_t i = 0; i < count; ++i) before_[i] = *blocks_[i];
    const bool hasNext = records_.Has(batch.end);
    const MotionBlock next = hasNext ? *records_.At(batch.end) : MotionBlock();
    rule();
    for (uint32_t i = 0; i < count; ++i) {
      if (!SameFeeds(before_[i], *blocks_[i])) {
        trace_(name, batch.first + i, before_[i], *blocks_[i]);
      }
    }
    if (hasNext) Trace(name, batch.end, next);
  }

  // A rule that changes two moves at most, those that meet at the end of move i.
  template <typename Rule>
  void ApplyToCorner(FeedRule name, uint32_t i, Rule rule) {
    const uint32_t next = path_.NextMove(i);
    if (next == PathIndex::kNoMove) {
      rule();
      return;
    }
    const MotionBlock first = *records_.At(i);
    const MotionBlock second = *records_.At(next);
    rule();
    Trace(name, i, first);
    Trace(name, next, second);
  }

 private:
  void Trace(FeedRule name, uint32_t i, const MotionBlock& before) const {
    const MotionBlock& after = *records_.At(i);
    if (!SameFeeds(before, after)) trace_(name, i, before, after);
  }

  const PathIndex& path_;
  const BatchBlocks& blocks_;
  const FeedTrace& trace_;
  FeedRecords& records_;
  std::array<MotionBlock, kBatchBlocks> before_;
};

// Degrees of a direction out of the XY plane, the same going up or down.
float SlopeAngle(const Vec3& unit) {
  float angle = Elevation(unit);
  if (angle > 180.0F) angle = 360.0F - angle;
  return angle > 90.0F ? 90.0F : angle;
}

}  // namespace

const char* RuleName(FeedRule rule) {
  constexpr const char* kNames[] = {"slope", "master", "XY corner", "Z corner", "arc"};
  return kNames[static_cast<size_t>(rule)];
}

BatchRules::BatchRules(const PathIndex& path, const JobRecord& job, const MasterGrid& master)
    : path_(path),
      job_(job),
      slopeCurve_(job.SideWeight0, job.SideWeight30, job.SideWeight60, job.SlopeMaxRatio,
                  job.MaxFeed),
      flatRise_(SurelyFlatRise(job.SlopeMinAngle)),
      corners_(path, job),
      master_(path, job, master) {}

void BatchRules::Begin(const PassState& state) {
  corners_.headings = state.headings;
  master_.last = state.lastNext;
  corners_.missedHeading = master_.missedLast = false;
}

void BatchRules::Run(const Batch& batch, FeedRecords* records, const FeedTrace* trace) {
  if (trace == nullptr) {
    RunAll(batch, records, Untraced());
  } else {
    RunAll(batch, records, Traced(path_, blocks_, *trace, records));
  }
}

template <typename Traced>
void BatchRules::RunAll(const Batch& batch, FeedRecords* records, Traced traced) {
  for (uint32_t i = batch.first; i < batch.end; ++i) blocks_[i - batch.first] = records->At(i);
  ResetFeeds(batch);
  traced.ApplyToBatch(FeedRule::kSlope, batch, [&] { SlowSlopes(batch); });
  if (job_.AfaByMaster == 1) {
    traced.ApplyToBatch(FeedRule::kMaster, batch,
                        [&] { master_.SlowMoves(batch.first, batch.end, records); });
  }
  SearchCorners(batch, records, &traced);
  traced.ApplyToBatch(FeedRule::kArc, batch, [&] { FlattenArcs(batch); });
}

void BatchRules::ResetFeeds(const Batch& batch) const {
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    MotionBlock* const block = blocks_[i - batch.first];
    if (IsMoveType(block->type)) block->feedProgrammed = block->feed = job_.MaxFeed;
  }
}

// The feed of a sloping move, before it is rounded.
int32_t BatchRules::SlopeFeed(const MotionBlock& block, const Vec3& unit, float angle) const {
  int32_t feed = job_.PlungeFeed;
  if (block.type != BlockCutStart || !(angle > kPlungeAngle)) {
    feed = slopeCurve_.At(angle, BandEdges::kStrict);
    const double lowest = static_cast<double>(block.feedProgrammed) * job_.SlopeMaxRatio;
    if (feed < lowest) feed = TruncateToInt(lowest);
  }
  if (job_.UpDownChk == 1) {
    if (unit.z < 0) feed = TruncateToInt(static_cast<double>(feed) * job_.ZupZdown);
    const double lowest = static_cast<double>(job_.MaxFeed) * job_.SlopeMaxRatio;
    if (feed > job_.MaxFeed) {
      feed = job_.MaxFeed;
    } else if (feed < lowest) {
      feed = TruncateToInt(lowest);
    }
  }
  return feed;
}

// A move without length ends the rule for the rest of its batch.
void BatchRules::SlowSlopes(const Batch& batch) const {
  // Most moves are told from slopes by squares: they are long enough and surely flat. The bound is
  // a little lower, since the squares are those of a vector that is not rounded to a unit.
  constexpr float kSurelyLong = 1e-8F;
  const auto flatSquared = static_cast<float>(flatRise_ > 0 ? flatRise_ * flatRise_ * 0.99999 : -1);
  Vec3 end = path_.Point(path_.PrevMove(batch.first));  // of the move before
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    MotionBlock* const block = blocks_[i - batch.first];
    if (!IsMoveType(block->type)) continue;
    const Vec3 start = std::exchange(end, EndPoint(*block));
    if (!IsCutType(block->type)) continue;
    if (i == 0) return;  // block 0 has no start
    const float dx = end.x - start.x, dy = end.y - start.y, dz = end.z - start.z;
    const float squared = dx * dx + dy * dy + dz * dz;
    if (dz * dz <= flatSquared * squared && squared > kSurelyLong && squared < kMostSquared) {
      continue;
    }
    const Difference way = Subtract(end, start);
    if (way.length == 0) return;
    const Vec3 unit = Chord(way).Unit();
    const double rise = std::fabs(static_cast<double>(unit.z));
    if (way.length <= kLeastSlope || rise <= kLeastSlope || rise <= flatRise_) continue;
    const float angle = SlopeAngle(unit);
    if (!(angle > job_.SlopeMinAngle)) continue;
    block->feed = RoundDownToStep(SlopeFeed(*block, unit, angle), job_.FeedChgAng);
  }
}

template <typename Traced>
void BatchRules::SearchCorners(const Batch& batch, FeedRecords* records, Traced* traced) {
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    const uint32_t type = blocks_[i - batch.first]->type;
    if (!IsCutType(type) && !IsArcType(type)) continue;
    traced->ApplyToCorner(FeedRule::kXyCorner, i, [&] { corners_.XyCornerSearch(i, records); });
    if (!IsCutType(type)) continue;
    traced->ApplyToCorner(FeedRule::kZCorner, i, [&] { corners_.ZCornerSearch(i, records); });
  }
}

// An arc has one feed: the lowest of its own and those of its zones.
void BatchRules::FlattenArcs(const Batch& batch) const {
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    MotionBlock* const block = blocks_[i - batch.first];
    if (!IsArcType(block->type)) continue;
    for (const int32_t zoneFeed : {block->headFeed, block->tailFeed}) {
      if (0 < zoneFeed && zoneFeed < block->feed) block->feed = zoneFeed;
    }
    DropZones(block);
    block->feedProgrammed = block->feed;
  }
}

}  // namespace tvx
