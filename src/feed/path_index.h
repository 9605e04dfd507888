// Finds where the path leaves the surroundings of a point. On a dense path a walk from move to move
// takes hundreds of steps for each corner, and on one that circles in a small space it never ends;
// a tree of bounds over runs of blocks lets a search skip whole runs.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "model/block_store.h"

namespace tvx {

// Whether a search for a distance from a point ends at a block: at a move whose end is at least
// that distance from the point, or at a rapid, whatever its end. Squares in single precision, good
// to a few parts in ten million, decide where they prove the answer; the others are measured as all
// rules measure.
class AwayTest {
 public:
  // A length above 0, mm.
  explicit AwayTest(float distance)
      : distance_(distance),
        nearSquared_(distance * distance * kSurelyNear),
        farSquared_(std::max(distance * distance * kSurelyFar, kSurelyALength)) {}

  bool operator()(const MotionBlock& block, const Vec3& point) const {
    if (IsRapidType(block.type)) return true;
    const float dx = block.x - point.x, dy = block.y - point.y, dz = block.z - point.z;
    const float squared = dx * dx + dy * dy + dz * dz;
    if (squared < nearSquared_) return false;
    if (!IsMoveType(block.type)) return false;
    return squared > farSquared_ || !(Subtract(EndPoint(block), point).length < distance_);
  }

  // A squared distance below this is surely near. Tiny squares may lose digits: all lengths below
  // 0.00003 count as 0, and 0 is near.
  float NearSquared() const { return nearSquared_; }

 private:
  static constexpr float kSurelyNear = 0.99999F, kSurelyFar = 1.00001F;
  static constexpr float kSurelyALength = 2e-9F;  // lengths with a square below 1e-9 count as 0

  float distance_;
  float nearSquared_, farSquared_;
};

// An index over the moves of one store, valid as long as no coordinate and no type changes. It
// takes about two bytes for each block.
//
// Every result equals that of a walk over all blocks: the bounds only skip runs that are surely
// nearer than the distance, and DiffVectors measures the others. The register is not used. Several
// threads may search at the same time, also while the feeds of the blocks change.
class PathIndex {
 public:
  static constexpr uint32_t kNoMove = UINT32_MAX;

  // Looks at every block once, with so many threads, which repairs bad records. Searches up to
  // `reach`, mm, are fast; those for a larger distance may visit more blocks.
  explicit PathIndex(BlockStore* store, float reach = std::numeric_limits<float>::infinity(),
                     unsigned workers = 1);

  // The first move after block i, or kNoMove.
  uint32_t NextMove(uint32_t i) const {
    if (i + 1 < count_ && IsMoveType(Block(i + 1).type)) return i + 1;
    // The second record of an arc lies between it and the next move.
    if (i + 2 < count_ && IsMoveType(Block(i + 2).type)) return i + 2;
    return FirstMove(i + 1);
  }
  // The last move before block i, or 0 if there is none: block 0 also represents a missing move.
  uint32_t PrevMove(uint32_t i) const {
    if (i > 0 && IsMoveType(Block(i - 1).type)) return i - 1;
    if (i > 1 && IsMoveType(Block(i - 2).type)) return i - 2;
    return LastMove(i);
  }
  // The first move from block i on, or kNoMove.
  uint32_t FirstMove(uint32_t i) const;

  // The first block from `first` on (the last one from `last` down) that ends a search by the test
  // for the point. kNoMove if there is none.
  uint32_t FirstAway(uint32_t first, const Vec3& point, const AwayTest& test) const;
  uint32_t LastAway(uint32_t last, const Vec3& point, const AwayTest& test) const;

  // The same results, and faster if they are within a few blocks.
  uint32_t FirstAwaySoon(uint32_t first, const Vec3& point, const AwayTest& test) const {
    if (first >= count_) return kNoMove;
    const uint32_t onPage = BlockStore::blocksPerPage - first % BlockStore::blocksPerPage;
    const uint32_t soon = std::min({kSoonBlocks, onPage, count_ - first});
    const MotionBlock* const block = Record(first);
    for (uint32_t i = 0; i < soon; ++i) {
      if (test(block[i], point)) return first + i;
    }
    return FirstAway(first + soon, point, test);
  }
  uint32_t LastAwaySoon(uint32_t last, const Vec3& point, const AwayTest& test) const {
    if (last >= count_) return kNoMove;
    const uint32_t soon = std::min(kSoonBlocks, last % BlockStore::blocksPerPage + 1);
    const MotionBlock* const block = Record(last);
    for (uint32_t i = 0; i < soon; ++i) {
      if (test(*(block - i), point)) return last - i;
    }
    return last < soon ? kNoMove : LastAway(last - soon, point, test);
  }

  // The blocks that can be read: all, or all but one where memory for the last one ran out.
  uint32_t BlockCount() const { return count_; }
  // The stored block, below BlockCount.
  const MotionBlock& Block(uint32_t i) const { return *Record(i); }
  Vec3 Point(uint32_t i) const { return EndPoint(Block(i)); }
  // The same for a change of its feeds.
  MotionBlock* Record(uint32_t i) const {
    return pages_[i / BlockStore::blocksPerPage] + i % BlockStore::blocksPerPage;
  }

 private:
  // Bounds of the end points of a run of moves: a box, and the smallest circle in plan view about
  // the middle of the box. A run of circling moves fills its circle, but not the corners of its
  // box.
  struct Bounds {
    float lowX, lowY, lowZ;  // low above high: no move in the run
    float highX, highY, highZ;
    float radius;  // infinite: not measured

    static Bounds Empty();
    bool IsEmpty() const { return lowX > highX; }
    float MiddleX() const { return (lowX + highX) * 0.5F; }
    float MiddleY() const { return (lowY + highY) * 0.5F; }
    void Add(const MotionBlock& block);
    void Add(const Bounds& other);
    // Whether the whole run is surely nearer to the point than the root of nearSquared.
    bool IsNear(const Vec3& point, float nearSquared) const;
  };

  // A level of the tree groups the one below by kFan; the lowest level groups blocks by
  // kLeafBlocks.
  static constexpr uint32_t kLeafBlocks = 16;
  static constexpr uint32_t kFan = 8;
  // Blocks that a search looks at before it asks the tree if its end is near.
  static constexpr uint32_t kSoonBlocks = 16;
  // The tree is made in pieces, which are the nodes of one level and can be made in any order; the
  // levels above are small.
  static constexpr size_t kPieceLevel = 3;
  static constexpr uint32_t kPieceBlocks = kLeafBlocks * kFan * kFan * kFan;

  void FindPages(BlockStore* store);
  void MakePiece(uint32_t piece, float reach);
  void MakeUpperLevels(float reach, unsigned workers);
  bool WantsCircle(const Bounds& bounds, float reach) const;
  float FarthestSquared(const Bounds& bounds, uint32_t first, uint32_t end) const;
  uint32_t LastMove(uint32_t i) const;

  // Visits the blocks from `first` on (from `last` down) and returns the first one that `hit`
  // accepts, or kNoMove; skips every run of the tree that `skip` accepts.
  template <typename Skip, typename Hit>
  uint32_t SearchForward(uint32_t first, const Skip& skip, const Hit& hit) const;
  template <typename Skip, typename Hit>
  uint32_t SearchBackward(uint32_t last, const Skip& skip, const Hit& hit) const;
  template <typename Hit>
  uint32_t ScanForward(uint32_t first, uint32_t end, const Hit& hit) const;
  template <typename Hit>
  uint32_t ScanBackward(uint32_t last, uint32_t begin, const Hit& hit) const;

  uint32_t count_ = 0;
  std::vector<MotionBlock*> pages_;
  std::vector<std::vector<Bounds>> levels_;
};

}  // namespace tvx
