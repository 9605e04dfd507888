// The records whose feeds the rules change.
#pragma once

#include <cstdint>
#include <span>

#include "feed/path_index.h"
#include "model/block_store.h"

namespace tvx {

// The blocks from `first` up to but not including `end`, in the store or in a copy, and a copy of
// the first move from `end` on: it belongs to another part of the pass, but the rules of the last
// move here change it too.
class FeedRecords {
 public:
  // In the store of the path, which has to outlive the object.
  FeedRecords(const PathIndex& path, uint32_t first, uint32_t end)
      : path_(path), first_(first), end_(end), nextMove_(path.FirstMove(end)) {
    if (nextMove_ != PathIndex::kNoMove) Next = path.Block(nextMove_);
  }
  // In a copy of the blocks, with a copy of the next move, if there is one.
  FeedRecords(const PathIndex& path, uint32_t first, uint32_t end, std::span<MotionBlock> copy,
              const MotionBlock& next)
      : Next(next),
        path_(path),
        first_(first),
        end_(end),
        nextMove_(path.FirstMove(end)),
        copy_(copy) {}

  MotionBlock Next;                                // the record of the next move
  uint32_t NextMove() const { return nextMove_; }  // its index, or kNoMove if there is none

  // Whether At can be called for a block from `first` on.
  bool Has(uint32_t i) const { return i < end_ || i == nextMove_; }
  MotionBlock* At(uint32_t i) {
    if (i >= end_) return &Next;
    return copy_.empty() ? path_.Record(i) : &copy_[i - first_];
  }

 private:
  const PathIndex& path_;
  uint32_t first_, end_;
  uint32_t nextMove_;
  std::span<MotionBlock> copy_;
};

}  // namespace tvx
