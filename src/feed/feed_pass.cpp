// The pass runs all rules over a batch of blocks before it starts the next batch.
#include "feed/feed_pass.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/numbers.h"
#include "feed/angle_feed.h"
#include "feed/directions.h"
#include "feed/master_pass.h"
#include "feed/path_index.h"
#include "feed/zones.h"

namespace tvx {

namespace {

// Blocks are handled in batches by index. The edge of a batch shows in the result: what its last
// move did to the first move of the next batch is reset there, except a head zone.
constexpr uint32_t kBatchBlocks = 200;

// Shorter moves, in mm, and moves with less rise than this are no slopes.
constexpr double kLeastSlope = 0.0001;
// A move that starts a run of cuts more steeply than this, in degrees, is a plunge.
constexpr double kPlungeAngle = 89.0;

struct Batch {
  uint32_t first;
  uint32_t end;
};

bool SameFeeds(const MotionBlock& a, const MotionBlock& b) {
  return a.feed == b.feed && a.headPercent == b.headPercent && a.headFeed == b.headFeed &&
         a.tailPercent == b.tailPercent && a.tailFeed == b.tailFeed;
}

// Carries out rules and traces what they change.
class TracedRules {
 public:
  TracedRules(const PathIndex& path, const FeedTrace& trace) : path_(path), trace_(trace) {}

  // A rule that changes blocks from first to last, the last one included.
  template <typename Rule>
  void Apply(FeedRule name, uint32_t first, uint32_t last, Rule rule) {
    if (!trace_) {
      rule();
      return;
    }
    last = std::min(last, path_.BlockCount() - 1);
    before_.clear();
    for (uint32_t i = first; i <= last; ++i) before_.push_back(path_.Block(i));
    rule();
    for (uint32_t i = first; i <= last; ++i) Trace(name, i, before_[i - first]);
  }

  // A rule that changes two blocks at most; `next` may be none.
  template <typename Rule>
  void ApplyToPair(FeedRule name, uint32_t i, uint32_t next, Rule rule) {
    if (!trace_ || next == PathIndex::kNoMove) {
      rule();
      return;
    }
    const MotionBlock first = path_.Block(i);
    const MotionBlock second = path_.Block(next);
    rule();
    Trace(name, i, first);
    Trace(name, next, second);
  }

 private:
  void Trace(FeedRule name, uint32_t i, const MotionBlock& before) const {
    const MotionBlock& after = path_.Block(i);
    if (!SameFeeds(before, after)) trace_(name, i, before, after);
  }

  const PathIndex& path_;
  const FeedTrace& trace_;
  std::vector<MotionBlock> before_;
};

void ResetFeeds(BlockStore* store, Batch batch, int32_t maxFeed) {
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    if (IsMoveBlock(store, i) == 0) continue;
    store->CurrentBlock.feedProgrammed = store->CurrentBlock.feed = maxFeed;
    store->WriteBlock(i);
  }
}

// Degrees of a direction out of the XY plane, the same going up or down.
float SlopeAngle(const Vec3& unit) {
  float angle = Elevation(unit);
  if (angle > 180.0F) angle = 360.0F - angle;
  return angle > 90.0F ? 90.0F : angle;
}

// The feed of a sloping move, before it is rounded.
int32_t SlopeFeed(const JobRecord& job, const MotionBlock& block, const Vec3& unit, float angle) {
  int32_t feed = job.PlungeFeed;
  if (block.type != BlockCutStart || !(angle > kPlungeAngle)) {
    feed = AngleFeed(job.SideWeight0, job.SideWeight30, job.SideWeight60, job.SlopeMaxRatio,
                     job.MaxFeed, angle, BandEdges::kStrict);
    const double lowest = static_cast<double>(block.feedProgrammed) * job.SlopeMaxRatio;
    if (feed < lowest) feed = TruncateToInt(lowest);
  }
  if (job.UpDownChk == 1) {
    if (unit.z < 0) feed = TruncateToInt(static_cast<double>(feed) * job.ZupZdown);
    const double lowest = static_cast<double>(job.MaxFeed) * job.SlopeMaxRatio;
    if (feed > job.MaxFeed) {
      feed = job.MaxFeed;
    } else if (feed < lowest) {
      feed = TruncateToInt(lowest);
    }
  }
  return feed;
}

// A move without length ends the rule for the rest of its batch.
void SlowSlopes(BlockStore* store, const PathIndex& path, Batch batch, const JobRecord& job) {
  const double flatRise = SurelyFlatRise(job.SlopeMinAngle);
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    if (!IsCutType(path.Block(i).type)) continue;
    Difference difference;
    Vec3 unit;
    if (path.Vector(i, path.PrevMove(i), &difference, &unit) == 0) return;
    const double rise = std::fabs(static_cast<double>(unit.z));
    if (difference.length <= kLeastSlope || rise <= kLeastSlope || rise <= flatRise) continue;
    const float angle = SlopeAngle(unit);
    if (!(angle > job.SlopeMinAngle)) continue;
    store->ReadBlock(i);
    store->CurrentBlock.feed =
        RoundDownToStep(SlopeFeed(job, store->CurrentBlock, unit, angle), job.FeedChgAng);
    store->WriteBlock(i);
  }
}

void SearchCorners(const PathIndex& path, Batch batch, CornerSearch* search, TracedRules* rules) {
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    const uint32_t type = path.Block(i).type;
    if (!IsCutType(type) && !IsArcType(type)) continue;
    const uint32_t next = path.NextMove(i);
    rules->ApplyToPair(FeedRule::kXyCorner, i, next, [&] { search->XyCornerSearch(i); });
    if (!IsCutType(type)) continue;
    rules->ApplyToPair(FeedRule::kZCorner, i, next, [&] { search->ZCornerSearch(i); });
  }
}

// An arc has one feed: the lowest of its own and those of its zones.
void FlattenArcs(BlockStore* store, const PathIndex& path, Batch batch) {
  MotionBlock* block = &store->CurrentBlock;
  for (uint32_t i = batch.first; i < batch.end; ++i) {
    if (!IsArcType(path.Block(i).type)) continue;
    store->ReadBlock(i);
    for (const int32_t zoneFeed : {block->headFeed, block->tailFeed}) {
      if (0 < zoneFeed && zoneFeed < block->feed) block->feed = zoneFeed;
    }
    DropZones(block);
    block->feedProgrammed = block->feed;
    store->WriteBlock(i);
  }
}

}  // namespace

const char* RuleName(FeedRule rule) {
  constexpr const char* kNames[] = {"slope", "master", "XY corner", "Z corner", "arc"};
  return kNames[static_cast<size_t>(rule)];
}

bool FeedPass(NcProgram* program, const JobRecord& job, const MasterGrid* master,
              FeedPassMemory* memory, const FeedTrace& trace, Progress* progress) {
  static const MasterGrid kNoMaster;
  BlockStore* store = &program->store;
  program->FeedBase = job.MaxFeed;
  const FeedPassMemory memoryBefore = *memory;

  const PathIndex path(store);
  CornerSearch search(store, path, job, memory->headings);
  TracedRules rules(path, trace);
  for (Batch batch{0, 0}; batch.end < path.BlockCount(); batch.first = batch.end) {
    if (!progress->Step(batch.first, path.BlockCount())) {
      *memory = memoryBefore;
      return false;
    }
    batch.end = std::min(batch.first + kBatchBlocks, path.BlockCount());
    const auto apply = [&](FeedRule name, auto rule) {
      // A rule may change the first move of the next batch.
      rules.Apply(name, batch.first, batch.end, rule);
    };
    ResetFeeds(store, batch, job.MaxFeed);
    apply(FeedRule::kSlope, [&] { SlowSlopes(store, path, batch, job); });
    if (job.AfaByMaster == 1) {
      apply(FeedRule::kMaster, [&] {
        MasterSubPass(store, job, master != nullptr ? *master : kNoMaster, batch.first, batch.end,
                      &memory->LastNextBlock);
      });
    }
    SearchCorners(path, batch, &search, &rules);
    apply(FeedRule::kArc, [&] { FlattenArcs(store, path, batch); });
  }
  memory->headings = search.Headings();
  // The register must not depend on the blocks that the rules read last.
  store->ReadBlock(store->blockCount - 1);
  return true;
}

}  // namespace tvx
