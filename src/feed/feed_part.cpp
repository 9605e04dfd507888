#include "feed/feed_part.h"

#include <algorithm>

namespace tvx {

namespace {

BlockFeeds FeedsOf(const MotionBlock& b) {
  return {b.feedProgrammed, b.feed, b.headPercent, b.headFeed, b.tailPercent, b.tailFeed};
}

BlockZones ZonesOf(const MotionBlock& b) {
  return {b.headPercent, b.headFeed, b.tailPercent, b.tailFeed};
}

template <typename Zones>
void SetZones(const Zones& zones, MotionBlock* block) {
  block->headPercent = zones.headPercent;
  block->headFeed = zones.headFeed;
  block->tailPercent = zones.tailPercent;
  block->tailFeed = zones.tailFeed;
}

// Only the members that do not change: another thread may be changing the others.
MotionBlock WithFeeds(const MotionBlock& stored, const BlockFeeds& feeds) {
  MotionBlock block;
  block.x = stored.x;
  block.y = stored.y;
  block.z = stored.z;
  block.type = stored.type;
  block.feedProgrammed = feeds.feedProgrammed;
  block.feed = feeds.feed;
  SetZones(feeds, &block);
  return block;
}

}  // namespace

FeedPart::FeedPart(const PathIndex& path, uint32_t first, uint32_t end)
    : path_(path),
      first_(first),
      end_(end),
      firstMove_(path.FirstMove(first)),
      records_(path, first, end),
      nextBefore_(records_.Next) {
  if (firstMove_ != PathIndex::kNoMove) firstBefore_ = path.Block(firstMove_);
  if (first == 0) return;
  for (uint32_t i = first - kBatchBlocks; i < first; ++i) lastBatch_.push_back(path.Block(i));
}

BlockZones FeedPart::FirstZones() const {
  return ZonesOf(firstBefore_);
}

bool FeedPart::RunAhead(uint32_t lastNextBlock, BatchRules* rules, bool traces, const Step& step) {
  Keep();
  const Batch lead{first_ - kBatchBlocks, first_};
  FeedRecords records(path_, lead.first, lead.end, lastBatch_, firstBefore_);
  PassState unknown;
  unknown.headings = {KeptHeading(), KeptHeading()};
  unknown.lastNext = {lastNextBlock, false};
  rules->Begin(unknown);
  rules->Run(lead, &records, nullptr);
  if (rules->MissedState()) return true;
  firstZones_ = ZonesOf(records.Next);
  SetFirstZones(firstZones_);
  const FeedTrace note = [this](FeedRule rule, uint32_t block, const MotionBlock& before,
                                const MotionBlock& after) {
    changes_.push_back({rule, block, FeedsOf(before), FeedsOf(after)});
  };
  if (!Run(rules, traces ? &note : nullptr, step)) return false;
  ranAhead_ = !rules->MissedState();
  state_ = rules->State();
  return true;
}

bool FeedPart::Join(Handover* before, BatchRules* rules, const FeedTrace* trace, const Step& step) {
  if (ranAhead_ && firstZones_ == before->zones) {
    if (trace != nullptr) Replay(*trace);
    if (state_.headings.forward.IsKnown()) before->state.headings.forward = state_.headings.forward;
    if (state_.headings.backward.IsKnown()) {
      before->state.headings.backward = state_.headings.backward;
    }
    if (state_.lastNext.isKnown) before->state.lastNext = state_.lastNext;
  } else {
    wasRedone_ = !zonesBefore_.empty();
    if (wasRedone_) Restore();
    SetFirstZones(before->zones);
    rules->Begin(before->state);
    if (!Run(rules, trace, step)) return false;
    before->state = rules->State();
  }
  before->zones = ZonesOf(records_.Next);
  return true;
}

// An empty list that is assigned to a vector leaves it its memory.
void FeedPart::Release() {
  lastBatch_ = std::vector<MotionBlock>();
  zonesBefore_ = std::vector<BlockZones>();
  firstFeedsBefore_ = std::vector<BlockFeeds>();
  changes_ = std::vector<Change>();
}

bool FeedPart::Run(BatchRules* rules, const FeedTrace* trace, const Step& step) {
  for (Batch batch{first_, first_}; batch.end < end_; batch.first = batch.end) {
    batch.end = std::min(batch.first + kBatchBlocks, end_);
    if (!step(batch)) return false;
    rules->Run(batch, &records_, trace);
    if (rules->MissedState()) return true;
  }
  return true;
}

// Only the first move of a batch is changed before its feeds are set anew.
void FeedPart::Keep() {
  zonesBefore_.reserve(end_ - first_);
  for (uint32_t i = first_; i < end_; ++i) zonesBefore_.push_back(ZonesOf(path_.Block(i)));
  for (uint32_t edge = first_; edge < end_; edge += kBatchBlocks) {
    const uint32_t move = path_.FirstMove(edge);
    firstFeedsBefore_.push_back(move < end_ ? FeedsOf(path_.Block(move)) : BlockFeeds{});
  }
}

void FeedPart::Restore() {
  for (uint32_t i = first_; i < end_; ++i) SetZones(zonesBefore_[i - first_], path_.Record(i));
  for (uint32_t edge = first_; edge < end_; edge += kBatchBlocks) {
    const uint32_t move = path_.FirstMove(edge);
    if (move >= end_) continue;
    const BlockFeeds& feeds = firstFeedsBefore_[(edge - first_) / kBatchBlocks];
    path_.Record(move)->feedProgrammed = feeds.feedProgrammed;
    path_.Record(move)->feed = feeds.feed;
  }
  records_.Next = nextBefore_;
  changes_.clear();
}

void FeedPart::SetFirstZones(const BlockZones& zones) {
  if (firstMove_ != PathIndex::kNoMove) SetZones(zones, records_.At(firstMove_));
}

void FeedPart::Replay(const FeedTrace& trace) const {
  for (const Change& change : changes_) {
    const MotionBlock& stored = path_.Block(change.block);
    trace(change.rule, change.block, WithFeeds(stored, change.before),
          WithFeeds(stored, change.after));
  }
}

}  // namespace tvx
