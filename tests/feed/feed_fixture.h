// What the tests of the feed adjustment and of the master model share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

#include "base/numbers.h"
#include "feed/feed_pass.h"
#include "feed/master_grid.h"
#include "model/block_store.h"
#include "model/job_record.h"

namespace tvx {

// A grid of empty cells.
inline MasterGrid EmptyGrid(int32_t NX, int32_t NY, float cellSize) {
  MasterGrid grid;
  AllocateGrid(&grid, NX, NY);
  grid.CellSize = cellSize;
  grid.ModelBuilt = 1;
  return grid;
}

inline void SetCell(MasterGrid* grid, int32_t ix, int32_t iy, float z, int angle) {
  grid->At(ix, iy).z = z;
  grid->At(ix, iy).angle = static_cast<int16_t>(angle);
}

// A lookup by its rule and nothing else: every cell of the square is visited. 0 for none. The fast
// lookup has to give the same answers.
inline int32_t PlainLookup(const MasterGrid& grid, const Vec3& point, double radius) {
  const double c = grid.CellSize;
  const auto snapped = [&](double position) {
    const int32_t line = TruncateToInt(position / c);
    const double low = line * c;
    const double high = (line + 1.0) * c;
    return high - position < position - low ? high : low;
  };
  const double sx = snapped(static_cast<double>(point.x) - grid.OriginX);
  const double sy = snapped(static_cast<double>(point.y) - grid.OriginY);
  int32_t best = 0;
  for (int32_t iy = std::max(1, TruncateToInt((sy - radius) / c));
       iy <= std::min(grid.NY - 1, TruncateToInt((sy + radius) / c)); ++iy) {
    for (int32_t ix = std::max(1, TruncateToInt((sx - radius) / c));
         ix <= std::min(grid.NX - 1, TruncateToInt((sx + radius) / c)); ++ix) {
      const MasterCell& cell = grid.At(ix, iy);
      if (cell.z > point.z && cell.angle > best) best = cell.angle;
    }
  }
  return best;
}

// Appends a move to a store.
inline void Append(BlockStore* store, BlockType type, float x, float y, float z,
                   int32_t feed = 1000) {
  store->CurrentBlock = {
      .x = x, .y = y, .z = z, .feedProgrammed = feed, .feed = feed, .type = type};
  store->WriteBlock(store->blockCount++);
}

// Replaces the program in the store.
inline void Fill(BlockStore* store, const std::vector<MotionBlock>& blocks) {
  store->blockCount = 0;
  for (const MotionBlock& block : blocks) {
    store->CurrentBlock = block;
    store->WriteBlock(store->blockCount++);
  }
}

using Random = std::mt19937;

// At least `moves` blocks of runs of every kind: straight, turning and circling moves from much
// shorter to much longer than the look distance, lattices whose distances are exact, doubled
// points, plunges, rapids, arcs, lines without a move, bad records and places far off.
std::vector<MotionBlock> RandomProgram(Random* random, size_t moves);

// Whether no coordinate is farther than this from 0, in mm.
bool StaysWithin(float reach, const std::vector<MotionBlock>& blocks);

// A parameter set, now and then with values that no dialog would give.
JobRecord RandomJob(Random* random);

// FeedPass written the plain way: every walk goes block by block through the register, and a lookup
// visits every cell. Far too slow for real programs, and the measure of the fast one, which has to
// leave the same bytes.
void ReferencePass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
                   FeedPassMemory* memory);

// Memory that can be had a given number of times.
inline int allocationsLeft = 0;
inline void* AllocateWhileAllowed(size_t bytes) {
  return allocationsLeft-- > 0 ? std::malloc(bytes) : nullptr;
}

}  // namespace tvx
