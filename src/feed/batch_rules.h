// The rules of the feed adjustment over one batch of blocks, and what one batch hands to the next.
#pragma once

#include <array>
#include <cstdint>

#include "feed/angle_feed.h"
#include "feed/corner_search.h"
#include "feed/feed_records.h"
#include "feed/feed_trace.h"
#include "feed/master_pass.h"
#include "feed/path_index.h"
#include "model/job_record.h"

namespace tvx {

// Blocks are handled in batches by index. The edge of a batch shows in the result: what its last
// move did to the first move of the next batch is reset there, except a head zone.
inline constexpr uint32_t kBatchBlocks = 200;

struct Batch {
  uint32_t first;
  uint32_t end;
};

// The records of a batch.
using BatchBlocks = std::array<MotionBlock*, kBatchBlocks>;

// What the rules of the batches so far leave for those of the next one, beside the records.
//
// The feeds of a batch depend on the coordinates and types of the whole path, on its own records,
// and on nothing else of the batches before it than
//   - the zones of the first move from its edge on: the last move before the edge widens, slows or
//     drops them, and may not be in the batch directly before it. What that move does to the feed
//     is undone by the reset of the batch that has the move;
//   - the two kept headings, which are those of the last chords of the path that were long enough,
//     whatever was done to the feeds;
//   - the next move that the rule of the master model handled last, which is compared with moves
//     that follow it only, so that it matters once in a pass at most: where it is one of a pass
//     before.
// Each of the last two is known from the coordinates and the model alone once it has been set.
struct PassState {
  CornerHeadings headings;
  LastNextMove lastNext;
};

class BatchRules {
 public:
  // The arguments have to outlive the rules.
  BatchRules(const PathIndex& path, const JobRecord& job, const MasterGrid& master);

  // Runs all rules over a batch. `records` have its blocks. The trace may be null.
  void Run(const Batch& batch, FeedRecords* records, const FeedTrace* trace);

  PassState State() const { return {corners_.headings, master_.last}; }
  // The rules go on from this state. What is not known in it is found out only if it matters.
  void Begin(const PassState& state);
  // True if something mattered that was not known: the records since Begin are wrong then.
  bool MissedState() const { return corners_.missedHeading || master_.missedLast; }

 private:
  template <typename Traced>
  void RunAll(const Batch& batch, FeedRecords* records, Traced traced);
  void ResetFeeds(const Batch& batch) const;
  int32_t SlopeFeed(const MotionBlock& block, const Vec3& unit, float angle) const;
  void SlowSlopes(const Batch& batch) const;
  template <typename Traced>
  void SearchCorners(const Batch& batch, FeedRecords* records, Traced* traced);
  void FlattenArcs(const Batch& batch) const;

  const PathIndex& path_;
  const JobRecord& job_;
  const FeedCurve slopeCurve_;
  const double flatRise_;  // a unit vector with no more rise than this is no slope
  CornerSearch corners_;
  MasterPass master_;
  BatchBlocks blocks_{};
};

}  // namespace tvx
