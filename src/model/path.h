#pragma once

#include <cmath>
#include <cstdint>

#include "model/block_store.h"

namespace tvx {

struct Vec3 {
  float x = 0, y = 0, z = 0;
};

struct Difference {
  float dx = 0, dy = 0, dz = 0;
  float length = 0;
};

// Block tests. Each reads the block into CurrentBlock.
// IsMoveBlock asks for a successful read; the other two look at the register's type whatever the
// read gave, so after a failed read the old type decides.
int IsMoveBlock(BlockStore* store, uint32_t index);
int IsRapidBlock(BlockStore* store, uint32_t index);
int IsCutBlock(BlockStore* store, uint32_t index);

// Index of the last move block before `index`, or 0 if there is none. 0 thus has two meanings, and
// block 0 also stands for a missing earlier move. Leaves the register on the block it stopped at.
uint32_t PrevMove(BlockStore* store, uint32_t index);

// Index of the first move block after `index`. 0, or any value from blockCount on, means that there
// is none: the last step looks at the register after a failed read, and a caller that stands on the
// last block, a move, gets blockCount.
uint32_t NextMove(BlockStore* store, uint32_t index);

// End point of block i minus that of block j. Returns 1; 0 with everything zero and nothing read
// for equal indices; 0 with the unit vector left alone if the length is 0. The register is left on
// j.
int BlockVector(BlockStore* store, uint32_t i, uint32_t j, Difference* difference, Vec3* unit);

inline double Square(float value) {
  return static_cast<double>(value) * value;
}

// 0 for arguments below 1e-9, negative ones included.
inline double SafeSqrt(double value) {
  return value < 1e-9 ? 0.0 : std::sqrt(value);
}

// Point a minus point b without the unit vector.
inline Difference Subtract(const Vec3& a, const Vec3& b) {
  Difference difference{a.x - b.x, a.y - b.y, a.z - b.z, 0};
  difference.length = static_cast<float>(
      SafeSqrt(Square(difference.dx) + Square(difference.dy) + Square(difference.dz)));
  return difference;
}

// Point a minus point b, in the same way as BlockVector. Here, so that the feed pass, which
// measures millions of lengths, does not pay for unit vectors that it does not use.
inline int DiffVectors(const Vec3& a, const Vec3& b, Difference* difference, Vec3* unit) {
  difference->dx = a.x - b.x;
  difference->dy = a.y - b.y;
  difference->dz = a.z - b.z;
  difference->length = static_cast<float>(
      SafeSqrt(Square(difference->dx) + Square(difference->dy) + Square(difference->dz)));
  if (difference->length == 0) return 0;
  unit->x = difference->dx / difference->length;
  unit->y = difference->dy / difference->length;
  unit->z = difference->dz / difference->length;
  return 1;
}

// Degrees from 0 up to but not including 360 of the direction with the y-like component a and the
// x-like component b. The factor is 180 / 3.1415, so angles between the axes are stretched a
// little.
float Angle(float a, float b);

// Box of the straight cuts: their end points, and the start point of each run unless it opens with
// a pure plunge. Starts at +10000 / -10000, so without a cut the minimum stays above the maximum.
// Returns 0 for an empty store, else 1.
int PathExtents(BlockStore* store, Vec3* minimum, Vec3* maximum);

}  // namespace tvx
