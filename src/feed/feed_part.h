// One part of a feed pass that several threads share.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "feed/batch_rules.h"
#include "feed/feed_records.h"
#include "feed/feed_trace.h"
#include "feed/path_index.h"

namespace tvx {

// Everything of a record that the rules change.
struct BlockFeeds {
  int32_t feedProgrammed, feed;
  int16_t headPercent, headFeed, tailPercent, tailFeed;
};

// The zones of a record.
struct BlockZones {
  int16_t headPercent, headFeed, tailPercent, tailFeed;
  bool operator==(const BlockZones&) const = default;
};

// The blocks from an edge of batches up to but not including another one.
class FeedPart {
 public:
  // What a part hands to the next one.
  struct Handover {
    PassState state;
    BlockZones zones{};  // of the first move from the edge on
  };
  // Called before each batch; returns false if the pass has been stopped.
  using Step = std::function<bool(const Batch& batch)>;

  // Copies the records that it will need from before the pass: all parts are made before the first
  // one runs. The path has to outlive the part.
  FeedPart(const PathIndex& path, uint32_t first, uint32_t end);

  // The zones of the first move from the edge on, before the pass.
  BlockZones FirstZones() const;

  // Begins with what the batch before the part hands on if nothing is known of those before. If
  // that is not enough the part is left to Join. `lastNextBlock`: of the pass before. Changes are
  // noted for the trace if `traces`. Returns false if it was stopped.
  bool RunAhead(uint32_t lastNextBlock, BatchRules* rules, bool traces, const Step& step);

  // Joins the part to those before it: keeps what RunAhead has done if it began with `before`, else
  // undoes it and does it again. Sets *before to what the part hands on. Calls the trace, which may
  // be null. Returns false if it was stopped.
  bool Join(Handover* before, BatchRules* rules, const FeedTrace* trace, const Step& step);

  bool WasRedone() const { return wasRedone_; }
  // Releases the memory that Join may need.
  void Release();

 private:
  struct Change {
    FeedRule rule;
    uint32_t block;
    BlockFeeds before, after;
  };

  bool Run(BatchRules* rules, const FeedTrace* trace, const Step& step);
  void Keep();
  void Restore();
  void SetFirstZones(const BlockZones& zones);
  void Replay(const FeedTrace& trace) const;

  const PathIndex& path_;
  const uint32_t first_, end_;
  const uint32_t firstMove_;            // from `first_` on
  MotionBlock firstBefore_;             // its record before the pass
  std::vector<MotionBlock> lastBatch_;  // the records before the part, before the pass
  FeedRecords records_;
  const MotionBlock nextBefore_;  // the record behind the part, before the pass

  // The zones of all blocks before the pass, and the feeds of the first move of each batch, which
  // the batch before compares with its own.
  std::vector<BlockZones> zonesBefore_;
  std::vector<BlockFeeds> firstFeedsBefore_;

  bool ranAhead_ = false;  // with the zones below
  bool wasRedone_ = false;
  BlockZones firstZones_{};
  PassState state_;
  std::vector<Change> changes_;
};

}  // namespace tvx
