// For each straight cut: the steepest walls at its end and along it, and the feeds that follow.
#include "feed/master_pass.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "feed/zones.h"
#include "master/master_lookup.h"

namespace tvx {

namespace {

constexpr double kLongMove = 1.2;      // times the distance: the move has room for a zone or sample
constexpr double kVeryLongMove = 6.0;  // times the radius: the move has room for many samples
constexpr int64_t kSamplesLeftOut = 3;  // the first sample, counted from the end of the move
constexpr int32_t kSteepest = 90;       // degrees
constexpr int32_t kWholeMove = 100;     // per cent

// The point k n-ths of a move before its end; `back` is its end point minus its start point.
Vec3 PointBefore(const Vec3& end, const Difference& back, int64_t k, int64_t n) {
  const auto before = [&](float from, float by) {
    return static_cast<float>(from - static_cast<double>(k) * by / static_cast<double>(n));
  };
  return {before(end.x, back.dx), before(end.y, back.dy), before(end.z, back.dz)};
}

void LowerFeed(MotionBlock* block, int32_t feed) {
  block->feed = std::min(block->feed, feed);
}

}  // namespace

MasterPass::MasterPass(const PathIndex& path, const JobRecord& job, const MasterGrid& master)
    : path_(path),
      job_(job),
      master_(master),
      curve_(job.SideWeight0, job.SideWeight30, job.SideWeight60, job.SlopeMaxRatio, job.MaxFeed),
      radius_(job.SafetyDistance >= 1 ? job.SafetyDistance : 1.0F) {}

void MasterPass::SlowMoves(uint32_t first, uint32_t end, FeedRecords* records) {
  for (uint32_t i = first; i < end; ++i) {
    if (IsCutType(path_.Block(i).type)) SlowMove(i, records);
  }
}

void MasterPass::SlowMove(uint32_t i, FeedRecords* records) {
  const Reach move = Measure(i);
  const int32_t angleAtEnd = SteepestAt(move.end);
  const int32_t angleAlong = SteepestAlong(move);
  const int32_t angle = std::max(angleAtEnd, angleAlong);
  if (!IsSteep(angle)) return;
  MotionBlock* const block = records->At(i);
  const int32_t wholeAngle = move.percent == 0 ? angle : angleAlong;
  if (IsSteep(wholeAngle)) LowerFeed(block, FeedOfAngle(wholeAngle));
  // A move without room for a tail zone is slowed as a whole and does not slow the next one.
  if (move.percent == 0 || move.percent >= kWholeMove) return;
  const int32_t zoneFeed = ZoneFeed(angleAtEnd, *block);
  WidenTailZone(block, move.percent, zoneFeed);
  if (ZonesCoverMove(*block)) CollapseZones(block, zoneFeed, true);
  if (0 < move.nextPercent && move.nextPercent < kWholeMove) {
    SlowHeadOfNext(move, zoneFeed, records);
  } else {
    SlowShortNext(move, angleAtEnd, records);
  }
}

MasterPass::Reach MasterPass::Measure(uint32_t i) const {
  Reach move{};
  move.end = path_.Point(i);
  const uint32_t previous = path_.PrevMove(i);
  if (previous != i) move.back = Subtract(move.end, path_.Point(previous));
  move.next = path_.NextMove(i);
  const bool hasNext = move.next != PathIndex::kNoMove;
  const float ahead = hasNext ? Subtract(move.end, path_.Point(move.next)).length : 0.0F;
  move.percent = PercentWithinReach(move.back.length);
  move.nextPercent = PercentWithinReach(ahead);
  return move;
}

bool MasterPass::IsSteep(int32_t angle) const {
  return static_cast<float>(angle) > job_.SlopeMinAngle;
}

int16_t MasterPass::PercentWithinReach(float length) const {
  const float reach = job_.SafetyDistance;
  return length > kLongMove * reach ? ZonePercent(reach, length) : int16_t{0};
}

// Angles are limited to 90: a file may hold larger ones, which are outside the curve of the feeds.
int32_t MasterPass::SteepestAt(const Vec3& point) const {
  int32_t angle = 0;
  MasterLookup(master_, point, radius_, &angle);
  return std::min(angle, kSteepest);
}

int32_t MasterPass::SteepestAlong(const Reach& move) const {
  const float length = move.back.length;
  if (length > kVeryLongMove * radius_) return SteepestOfSamples(move);
  if (length > kLongMove * radius_) return SteepestAt(PointBefore(move.end, move.back, 1, 2));
  return 0;
}

// Samples one radius apart, without those near the ends of the move and those whose search square
// cannot touch the grid.
int32_t MasterPass::SteepestOfSamples(const Reach& move) const {
  const int64_t n = TruncateToInt(static_cast<double>(move.back.length) / radius_);
  SampleRange samples = {kSamplesLeftOut, n - kSamplesLeftOut};
  const double margin = radius_ + 2.0 * master_.CellSize;
  const auto clip = [&](float end, float back, float origin, int32_t cells) {
    samples = SamplesWithin(samples, end, -static_cast<double>(back) / static_cast<double>(n),
                            origin - margin,
                            origin + static_cast<double>(cells) * master_.CellSize + margin);
  };
  clip(move.end.x, move.back.dx, master_.OriginX, master_.NX);
  clip(move.end.y, move.back.dy, master_.OriginY, master_.NY);

  int32_t steepest = 0;
  for (int64_t k = samples.first; k <= samples.last && steepest < kSteepest; ++k) {
    steepest = std::max(steepest, SteepestAt(PointBefore(move.end, move.back, k, n)));
  }
  return steepest;
}

int32_t MasterPass::FeedOfAngle(int32_t angle) const {
  return curve_.At(static_cast<float>(angle), BandEdges::kInclusive);
}

// Feed near a wall of this angle, not below the lowest feed of the block. Always a multiple of 10,
// whatever the feed step.
int32_t MasterPass::ZoneFeed(int32_t angle, const MotionBlock& block) const {
  const int32_t feed = FeedOfAngle(angle);
  const double lowest = static_cast<double>(block.feedProgrammed) * job_.SlopeMaxRatio;
  return (feed < lowest ? TruncateToInt(lowest) : feed) / 10 * 10;
}

void MasterPass::SlowHeadOfNext(const Reach& move, int32_t feed, FeedRecords* records) {
  last = {move.next};
  MotionBlock* const next = records->At(move.next);
  if (next->feed > feed) WidenHeadZone(next, move.nextPercent, feed);
  if (ZonesCoverMove(*next)) CollapseZones(next, feed, false);
}

// A next move without room for a head zone takes the lower feed over its whole length, once.
void MasterPass::SlowShortNext(const Reach& move, int32_t angleAtEnd, FeedRecords* records) {
  if (move.next == PathIndex::kNoMove) return;
  if (move.next == last.block) {
    missedLast = missedLast || !last.isKnown;
    return;
  }
  last = {move.next};
  MotionBlock* const next = records->At(move.next);
  LowerFeed(next, ZoneFeed(angleAtEnd, *next));
}

}  // namespace tvx
