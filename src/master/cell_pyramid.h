// The index over the cells of a master grid. A lookup asks for the steepest cell above a height in
// a square; the index answers for a whole block of cells at once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvx {

struct MasterGrid;

// Cells from first to last in both directions, the ends included.
struct CellRange {
  int32_t firstX, lastX, firstY, lastY;

  bool IsEmpty() const { return lastX < firstX || lastY < firstY; }
  bool Contains(const CellRange& other) const {
    return firstX <= other.firstX && other.lastX <= lastX && firstY <= other.firstY &&
           other.lastY <= lastY;
  }
  CellRange Intersection(const CellRange& other) const {
    return {std::max(firstX, other.firstX), std::min(lastX, other.lastX),
            std::max(firstY, other.firstY), std::min(lastY, other.lastY)};
  }
};

// The cells that a lookup may visit: all but row 0 and column 0.
CellRange LookupCells(const MasterGrid& grid);

// The largest angle of a block above a height falls in steps as the height rises. A step holds the
// height of the highest cell of its angle; a smaller angle has a step only if it is found higher
// than all larger ones.
struct AngleStep {
  float z;        // mm
  int16_t angle;  // degrees, above 0
};

struct CellBlock {
  float highest;       // z of its last step, mm
  int16_t steepest;    // angle of its first step; 0 for a block without steps
  uint32_t firstStep;  // index of its first step in CellPyramid::steps
};

// Square blocks over the lookup cells of a grid. Level 0 has the smallest blocks; each further
// level joins kFan x kFan blocks of the level below, up to a single block.
struct CellPyramid {
  struct Level {
    int32_t columns, rows;
    std::vector<CellBlock> blocks;  // row after row

    const CellBlock& At(int32_t column, int32_t row) const {
      return blocks[static_cast<size_t>(row) * static_cast<size_t>(columns) +
                    static_cast<size_t>(column)];
    }
  };

  static constexpr int32_t kFan = 4;
  // Cells along the side of a block: 8 at level 0, kFan times more at each further level. Lookups
  // divide by the side very often, so it is a shift.
  static constexpr int SideShift(size_t level) { return 3 + 2 * static_cast<int>(level); }
  static constexpr int32_t Side(size_t level) { return 1 << SideShift(level); }

  // The column or row of the block that holds a lookup cell, by the cell's ix or iy.
  static int32_t BlockOf(size_t level, int32_t cell) { return (cell - 1) >> SideShift(level); }
  // The lookup cells of a block.
  CellRange CellsOf(size_t level, int32_t column, int32_t row) const {
    const int32_t firstX = 1 + column * Side(level);
    const int32_t firstY = 1 + row * Side(level);
    return cells.Intersection({firstX, firstX + Side(level) - 1, firstY, firstY + Side(level) - 1});
  }

  CellRange cells{};             // those that the blocks cover
  std::vector<Level> levels;     // none without an index
  std::vector<AngleStep> steps;  // of all blocks, from the largest angle of a block down
};

// Builds the pyramid of a grid whose cells are complete. Has to be called again after a change of
// cells. The pyramid stays empty for a grid without lookup cells and if memory runs out: a lookup
// then visits every cell and answers the same.
void IndexCells(MasterGrid* grid);

}  // namespace tvx
