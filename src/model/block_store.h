// The records of stored moves and the store that contains them.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <span>

#include "model/vectors.h"
#include "platform/page_memory.h"

namespace tvx {

// Types of a stored block. No other value is ever stored.
enum BlockType : uint32_t {
  BlockNone = 0,         // a source line that makes no move
  BlockRapidStart = 1,   // rapid that begins a run of rapids
  BlockRapid = 2,        // rapid that continues a run
  BlockCutStart = 3,     // straight cut that begins a run or carries a feed word
  BlockCut = 4,          // straight cut that continues a run
  BlockArcCcw = 6,       // counter-clockwise arc; x, y, z are its end point
  BlockArcCw = 8,        // clockwise arc
  BlockArcCentre = 101,  // second record of an arc, directly after it
};

constexpr bool IsRapidType(uint32_t type) {
  return type == BlockRapidStart || type == BlockRapid;
}
constexpr bool IsCutType(uint32_t type) {
  return type == BlockCutStart || type == BlockCut;
}
constexpr bool IsArcType(uint32_t type) {
  return type == BlockArcCcw || type == BlockArcCw;
}
constexpr bool IsMoveType(uint32_t type) {
  return IsRapidType(type) || IsCutType(type) || IsArcType(type);
}

// One stored record. The page arithmetic depends on its 32 bytes.
struct MotionBlock {
  float x = 0, y = 0,
        z = 0;  // end point, absolute; of a BlockArcCentre: I, J and the end point's Z
  int32_t feedProgrammed = 0;  // mm/min, before the adjustment
  int32_t feed = 0;            // mm/min, in force after the adjustment
  int16_t headPercent = 0;  // share of the move from its start, in per cent, that runs at headFeed
  int16_t headFeed = 0;     // mm/min; 0 for not set
  int16_t tailPercent = 0;  // share of the move up to its end
  int16_t tailFeed = 0;     // mm/min; 0 for not set
  uint32_t type = BlockNone;
};
static_assert(sizeof(MotionBlock) == 32);

inline Vec3 EndPoint(const MotionBlock& block) {
  return {block.x, block.y, block.z};
}

// The stored moves of one program, read through the register CurrentBlock.
// Every read replaces the register: copy what you need before the next one.
//
// Pages are allocated when first written and kept until the store ends; a new program reuses them
// by setting blockCount to 0.
class BlockStore {
 public:
  static constexpr uint32_t blocksPerPage = 2041;
  static constexpr uint32_t kMaxPages = 4000;
  static constexpr uint32_t kMaxBlocks = kMaxPages * blocksPerPage;
  // |x| or |z| above this makes a record bad. y is not tested.
  static constexpr float kCoordinateLimit = 32700.0F;
  // What a repaired record says beside a place at the limit: a harmless feed, mm/min.
  static constexpr int32_t kRepairFeed = 300;

  // `memory` has to outlive the store.
  explicit BlockStore(PageMemory* memory = ProcessPageMemory());
  ~BlockStore();
  BlockStore(const BlockStore&) = delete;
  BlockStore& operator=(const BlockStore&) = delete;

  // Copies CurrentBlock to the block at the index. Returns 1, or 0 beyond the last possible page
  // and when no page can be had. Does not change blockCount or the register.
  int WriteBlock(uint32_t index) {
    MotionBlock* record = WritableRecord(index);
    if (record == nullptr) return 0;
    CopyFields(CurrentBlock, record);
    return 1;
  }

  // Copies the stored block to CurrentBlock. Returns 1 if a block was read and its type is not 0.
  // An index from blockCount on returns 0 and leaves the register as it was. A bad record is
  // repaired in the store for good: x = y = z = 32700, feeds 300, type 0; it reaches the register
  // and the result is 0.
  int ReadBlock(uint32_t index) {
    MotionBlock* record = StoredRecord(index);
    if (record == nullptr) return 0;
    RepairIfBad(record);
    CurrentBlock = *record;
    return CurrentBlock.type != BlockNone ? 1 : 0;
  }

  // The stored record as it stands, without the repair and without touching the register; null for
  // an index that ReadBlock would not read. For listings and for walks over millions of blocks
  // whose records are known to have been read before.
  const MotionBlock* Peek(uint32_t index) const { return StoredRecord(index); }

  // The stored record after the repair that a read would make, without touching the register; null
  // as for Peek. For walks over whole programs: a look costs less than a copy.
  const MotionBlock* PeekRepaired(uint32_t index) { return RepairedRecord(index); }

  // The same for a change in place. The type and the coordinates of a record that a PathIndex knows
  // must stay.
  MotionBlock* RepairedRecord(uint32_t index) {
    MotionBlock* record = StoredRecord(index);
    if (record != nullptr) RepairIfBad(record);
    return record;
  }

  // All records of a page, for writing; empty as WriteBlock would fail for one of them.
  std::span<MotionBlock> WritablePage(uint32_t page) {
    MotionBlock* const first = page < kMaxPages ? WritableRecord(page * blocksPerPage) : nullptr;
    return {first, first != nullptr ? blocksPerPage : 0};
  }

  // Takes over the blocks and the register of another store. Returns false, with a part of the
  // blocks, if no memory can be had.
  bool CopyFrom(const BlockStore& other);

  // True for a record that a read would repair.
  static bool IsBad(const MotionBlock& block) {
    return IsOutOfRange(block.x) || IsOutOfRange(block.z);
  }
  // The repair that a read makes.
  static void RepairIfBad(MotionBlock* record) {
    if (IsBad(*record)) Repair(record);
  }
  static bool IsOutOfRange(float coordinate) { return std::abs(coordinate) > kCoordinateLimit; }

  MotionBlock CurrentBlock;  // the register
  uint32_t blockCount = 0;   // number of valid blocks; owned by the callers of WriteBlock

 private:
  // Field by field: the parser has just stored the register's fields one by one, and a wide copy
  // would have to wait for them.
  static void CopyFields(const MotionBlock& from, MotionBlock* to) {
    to->x = from.x;
    to->y = from.y;
    to->z = from.z;
    to->feedProgrammed = from.feedProgrammed;
    to->feed = from.feed;
    to->headPercent = from.headPercent;
    to->headFeed = from.headFeed;
    to->tailPercent = from.tailPercent;
    to->tailFeed = from.tailFeed;
    to->type = from.type;
  }
  // In place, so that a walk that may have to repair makes no call and keeps its sums in registers.
  static void Repair(MotionBlock* block) {
    block->x = block->y = block->z = kCoordinateLimit;
    block->feedProgrammed = block->feed = kRepairFeed;
    block->type = BlockNone;
  }

  MotionBlock* StoredRecord(uint32_t index) const {
    if (index >= blockCount) return nullptr;
    const uint32_t page = index / blocksPerPage;
    // A count can run one ahead of the pages when an arc's second record found no memory.
    if (page >= kMaxPages || pages_[page] == nullptr) return nullptr;
    return pages_[page] + index % blocksPerPage;
  }
  MotionBlock* WritableRecord(uint32_t index) {
    const uint32_t page = index / blocksPerPage;
    if (page >= kMaxPages) return nullptr;
    if (pages_[page] == nullptr && !AllocatePage(page)) return nullptr;
    return pages_[page] + index % blocksPerPage;
  }
  bool AllocatePage(uint32_t page);

  PageMemory* memory_;
  std::array<MotionBlock*, kMaxPages> pages_{};
};

}  // namespace tvx
