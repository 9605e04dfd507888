// Walks over the moves of a stored program. All of them read through the register of the store.
#pragma once

#include <cstdint>

#include "model/block_store.h"
#include "model/vectors.h"

namespace tvx {

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

// Box of the straight cuts: their end points, and the start point of each run unless it opens with
// a pure plunge. Starts at +10000 / -10000, so without a cut the minimum stays above the maximum.
// Returns 0 for an empty store, else 1.
int PathExtents(BlockStore* store, Vec3* minimum, Vec3* maximum);

}  // namespace tvx
