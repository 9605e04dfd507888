// Finds where the path leaves the surroundings of a point. On a dense path a walk from move to move
// takes hundreds of steps for each corner, and on one that circles in a small space it never ends;
// a tree of bounds over runs of blocks lets a search skip whole runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/block_store.h"
#include "model/walks.h"

namespace tvx {

// An index over the moves of one store, valid as long as no coordinate and no type changes. It
// takes about two bytes for each block.
//
// Every result equals that of a walk over all blocks: the bounds only skip runs that are surely
// nearer than the distance, and DiffVectors measures the others. The register is not used.
class PathIndex {
 public:
  static constexpr uint32_t kNoMove = UINT32_MAX;

  // Reads every block once, which repairs bad records. The register holds the last block
  // afterwards.
  explicit PathIndex(BlockStore* store);

  // The first move after block i, or kNoMove.
  uint32_t NextMove(uint32_t i) const;
  // The last move before block i, or 0 if there is none: block 0 also represents a missing move.
  uint32_t PrevMove(uint32_t i) const;

  // The first move from `first` on (the last one from `last` down) whose end is at least
  // `distance`, a length above 0, from the point, or that is a rapid, whatever its end. kNoMove if
  // there is none.
  uint32_t FirstAway(uint32_t first, const Vec3& point, float distance) const;
  uint32_t LastAway(uint32_t last, const Vec3& point, float distance) const;

  // The blocks that can be read: all, or all but one where memory for the last one ran out.
  uint32_t BlockCount() const { return count_; }
  // The stored block, below BlockCount.
  const MotionBlock& Block(uint32_t i) const { return *store_->Peek(i); }
  Vec3 Point(uint32_t i) const;
  // BlockVector without the register.
  int Vector(uint32_t i, uint32_t j, Difference* difference, Vec3* unit) const;

 private:
  // Bounds of the end points of a run of moves: a box, and the smallest circle in plan view about
  // the middle of the box. A run of circling moves fills its circle, but not the corners of its
  // box.
  struct Bounds {
    float lowX, lowY, lowZ;  // low above high: no move in the run
    float highX, highY, highZ;
    float radius;

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

  void AddLevels();
  void MeasureRadii();

  // Visits the blocks from `first` on (from `last` down) and returns the first one that `hit`
  // accepts, or kNoMove; skips every run of the tree that `skip` accepts.
  template <typename Skip, typename Hit>
  uint32_t SearchForward(uint32_t first, Skip skip, Hit hit) const;
  template <typename Skip, typename Hit>
  uint32_t SearchBackward(uint32_t last, Skip skip, Hit hit) const;
  template <typename Hit>
  uint32_t ScanForward(uint32_t first, uint32_t end, Hit hit) const;
  template <typename Hit>
  uint32_t ScanBackward(uint32_t last, uint32_t begin, Hit hit) const;

  const BlockStore* store_;
  uint32_t count_ = 0;
  std::vector<std::vector<Bounds>> levels_;
};

}  // namespace tvx
