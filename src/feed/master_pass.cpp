// For each straight cut: the steepest walls at its end and along it, and the feeds that follow.
#include "feed/master_pass.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "feed/angle_feed.h"
#include "feed/zones.h"
#include "master/master_lookup.h"
#include "model/walks.h"

namespace tvx {

namespace {

constexpr double kLongMove = 1.2;      // times the distance: the move has room for a zone or sample
constexpr double kVeryLongMove = 6.0;  // times the radius: the move has room for many samples
constexpr int64_t kSamplesLeftOut = 3;  // the first sample, counted from the end of the move
constexpr int32_t kSteepest = 90;       // degrees
constexpr int32_t kWholeMove = 100;     // per cent

// One sub-pass over one batch.
class MasterPass {
 public:
  MasterPass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
             uint32_t* lastNextBlock)
      : store_(store),
        job_(job),
        master_(master),
        lastNextBlock_(lastNextBlock),
        radius_(job.SafetyDistance >= 1 ? job.SafetyDistance : 1.0F) {}

  void SlowMove(uint32_t i) {
    const Reach move = Measure(i);
    const int32_t angleAtEnd = SteepestAt(move.end);
    const int32_t angleAlong = SteepestAlong(move);
    const int32_t angle = std::max(angleAtEnd, angleAlong);
    if (!IsSteep(angle)) return;
    store_->ReadBlock(i);
    const int32_t wholeAngle = move.percent == 0 ? angle : angleAlong;
    if (IsSteep(wholeAngle)) LowerFeed(i, FeedOfAngle(wholeAngle));
    // A move without room for a tail zone is slowed as a whole and does not slow the next one.
    if (move.percent == 0 || move.percent >= kWholeMove) return;
    const int32_t zoneFeed = ZoneFeed(angleAtEnd);
    SlowTail(i, move.percent, zoneFeed);
    if (0 < move.nextPercent && move.nextPercent < kWholeMove) {
      SlowHeadOfNext(i, move.nextPercent, zoneFeed);
    } else {
      SlowShortNext(i, angleAtEnd);
    }
  }

 private:
  // A move, and how much of it and of the next one lies within the reach of its end point.
  struct Reach {
    Vec3 end;
    Difference back;      // end point minus start point
    int16_t percent;      // 0 for a move too short for a zone
    int16_t nextPercent;  // the same for the next move; 0 without one
  };

  bool IsMove(uint32_t n) const { return n != 0 && n < store_->blockCount; }

  bool IsSteep(int32_t angle) const { return static_cast<float>(angle) > job_.SlopeMinAngle; }

  int16_t PercentWithinReach(float length) const {
    const float reach = job_.SafetyDistance;
    return length > kLongMove * reach ? ZonePercent(reach, length) : int16_t{0};
  }

  Reach Measure(uint32_t i) {
    Reach move{};
    Vec3 unit;
    BlockVector(store_, i, PrevMove(store_, i), &move.back, &unit);
    store_->ReadBlock(i);
    move.end = EndPoint(store_->CurrentBlock);
    const uint32_t next = NextMove(store_, i);
    Difference ahead;
    const bool hasNext = IsMove(next) && BlockVector(store_, i, next, &ahead, &unit);
    move.percent = PercentWithinReach(move.back.length);
    move.nextPercent = PercentWithinReach(hasNext ? ahead.length : 0.0F);
    return move;
  }

  // Angles are limited to 90: a file may hold larger ones, which are outside the curve of the
  // feeds.
  int32_t SteepestAt(const Vec3& point) const {
    int32_t angle = 0;
    MasterLookup(master_, point, radius_, &angle);
    return std::min(angle, kSteepest);
  }

  int32_t SteepestAlong(const Reach& move) const {
    const float length = move.back.length;
    if (length > kVeryLongMove * radius_) return SteepestOfSamples(move);
    if (length > kLongMove * radius_) return SteepestAt(PointBefore(move, 1, 2));
    return 0;
  }

  // Samples one radius apart, without those near the ends of the move.
  int32_t SteepestOfSamples(const Reach& move) const {
    const int64_t n = TruncateToInt(static_cast<double>(move.back.length) / radius_);
    int32_t steepest = 0;
    const SampleRange samples = SamplesNearGrid(move, n, {kSamplesLeftOut, n - kSamplesLeftOut});
    for (int64_t k = samples.first; k <= samples.last && steepest < kSteepest; ++k) {
      steepest = std::max(steepest, SteepestAt(PointBefore(move, k, n)));
    }
    return steepest;
  }

  // The samples whose search square can touch the grid.
  SampleRange SamplesNearGrid(const Reach& move, int64_t n, SampleRange samples) const {
    const double margin = radius_ + 2.0 * master_.CellSize;
    const auto clip = [&](float end, float back, float origin, int32_t cells) {
      samples = SamplesWithin(samples, end, -static_cast<double>(back) / static_cast<double>(n),
                              origin - margin,
                              origin + static_cast<double>(cells) * master_.CellSize + margin);
    };
    clip(move.end.x, move.back.dx, master_.OriginX, master_.NX);
    clip(move.end.y, move.back.dy, master_.OriginY, master_.NY);
    return samples;
  }

  // The point k n-ths of the move before its end.
  static Vec3 PointBefore(const Reach& move, int64_t k, int64_t n) {
    const auto before = [&](float end, float back) {
      return static_cast<float>(end - static_cast<double>(k) * back / static_cast<double>(n));
    };
    return {before(move.end.x, move.back.dx), before(move.end.y, move.back.dy),
            before(move.end.z, move.back.dz)};
  }

  int32_t FeedOfAngle(int32_t angle) const {
    return AngleFeed(job_.SideWeight0, job_.SideWeight30, job_.SideWeight60, job_.SlopeMaxRatio,
                     job_.MaxFeed, static_cast<float>(angle), BandEdges::kInclusive);
  }

  // Feed near a wall of this angle, not below the lowest feed of the block in the register. Always
  // a multiple of 10, whatever the feed step.
  int32_t ZoneFeed(int32_t angle) const {
    const int32_t feed = FeedOfAngle(angle);
    const double lowest =
        static_cast<double>(store_->CurrentBlock.feedProgrammed) * job_.SlopeMaxRatio;
    return (feed < lowest ? TruncateToInt(lowest) : feed) / 10 * 10;
  }

  // The feed of the whole of block i, which is in the register.
  void LowerFeed(uint32_t i, int32_t feed) {
    if (store_->CurrentBlock.feed <= feed) return;
    store_->CurrentBlock.feed = feed;
    store_->WriteBlock(i);
  }

  // Block i is in the register.
  void SlowTail(uint32_t i, int16_t percent, int32_t feed) {
    WidenTailZone(&store_->CurrentBlock, percent, feed);
    if (ZonesCoverMove(store_->CurrentBlock)) CollapseZones(&store_->CurrentBlock, feed, true);
    store_->WriteBlock(i);
  }

  void SlowHeadOfNext(uint32_t i, int16_t percent, int32_t feed) {
    const uint32_t next = NextMove(store_, i);
    *lastNextBlock_ = next;
    store_->ReadBlock(next);
    if (store_->CurrentBlock.feed > feed) WidenHeadZone(&store_->CurrentBlock, percent, feed);
    if (ZonesCoverMove(store_->CurrentBlock)) CollapseZones(&store_->CurrentBlock, feed, false);
    store_->WriteBlock(next);
  }

  // A next move without room for a head zone takes the lower feed over its whole length, once.
  void SlowShortNext(uint32_t i, int32_t angleAtEnd) {
    const uint32_t next = NextMove(store_, i);
    if (!IsMove(next) || next == *lastNextBlock_) return;
    store_->ReadBlock(next);
    *lastNextBlock_ = next;
    LowerFeed(next, ZoneFeed(angleAtEnd));
  }

  BlockStore* store_;
  const JobRecord& job_;
  const MasterGrid& master_;
  uint32_t* lastNextBlock_;
  float radius_;
};

}  // namespace

void MasterSubPass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
                   uint32_t first, uint32_t end, uint32_t* lastNextBlock) {
  MasterPass pass(store, job, master, lastNextBlock);
  for (uint32_t i = first; i < end; ++i) {
    if (IsCutBlock(store, i)) pass.SlowMove(i);
  }
}

}  // namespace tvx
