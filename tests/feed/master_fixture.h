// What the tests of the master model share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "feed/master_grid.h"
#include "model/block_store.h"
#include "platform/format.h"
#include "platform/numbers.h"

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
  store->CurrentBlock = {};
  store->CurrentBlock.x = x;
  store->CurrentBlock.y = y;
  store->CurrentBlock.z = z;
  store->CurrentBlock.feedProgrammed = store->CurrentBlock.feed = feed;
  store->CurrentBlock.type = type;
  store->WriteBlock(store->blockCount++);
}

// Memory that can be had a given number of times.
inline int allocationsLeft = 0;
inline void* AllocateWhileAllowed(size_t bytes) {
  return allocationsLeft-- > 0 ? std::malloc(bytes) : nullptr;
}

}  // namespace tvx
