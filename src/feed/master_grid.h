// The master model: a height map of the finished part with a surface angle at each cell. The feed
// pass asks it how steep the surface is near a point and above it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "model/vectors.h"

namespace tvx {

// Height of a cell without surface, and the position of a cell without a stored point.
inline constexpr float kNoHeight = -9999.0F;

struct MasterCell {
  float x = kNoHeight, y = kNoHeight;  // point stored during a build, grid coordinates, mm
  float z = kNoHeight;                 // surface height, mm
  int16_t angle = 0;                   // surface angle, whole degrees
};

constexpr bool HasHeight(const MasterCell& cell) {
  return cell.z != kNoHeight;
}

// The memory of the cells. Moves, but does not copy.
class MasterCells {
 public:
  // Where the memory comes from, to be given back with std::free; returns null when there is none
  // left. Tests inject failures here.
  using Allocator = void* (*)(size_t bytes);

  MasterCells();
  explicit MasterCells(Allocator allocate) : allocate_(allocate) {}

  // Gives the array `count` empty cells in place of those it has. Returns false, and holds none, if
  // there is no memory for them or the count is not positive.
  bool Allocate(int64_t count);

  // Gives the memory beyond the first `count` cells back, as far as that can be done; the cells
  // stay.
  void Shrink(int64_t count);

  void Release() { cells_.reset(); }
  bool Empty() const { return cells_ == nullptr; }
  Allocator allocator() const { return allocate_; }

  MasterCell& operator[](size_t index) { return cells_[index]; }
  const MasterCell& operator[](size_t index) const { return cells_[index]; }

 private:
  struct Free {
    void operator()(MasterCell* cells) const;
  };

  Allocator allocate_;
  std::unique_ptr<MasterCell[], Free> cells_;
};

// Cells from first to last in both directions, the ends included; empty if a last is below its
// first.
struct CellRange {
  int32_t firstX, lastX, firstY, lastY;
};

// What a lookup has to know of the cells of a square block to answer for them without a visit: for
// each angle that can be the answer, from the steepest down, the highest cell that stands at it. A
// less steep angle has its step only if it reaches higher than all steeper ones.
struct AngleStep {
  float z;        // mm
  int16_t angle;  // degrees, above 0
};

struct CellBlock {
  float highest;       // z of its last step, mm
  int16_t steepest;    // angle of its first step; 0 for a block without steps
  uint32_t firstStep;  // index of its first step
};

// Blocks over blocks over the cells of one grid: level 0 has the smallest blocks, each further
// level joins four by four of the one below, up to a single block. Row 0 and column 0 of the grid,
// which no lookup visits, are left out.
struct CellPyramid {
  struct Level {
    int32_t columns, rows;
    std::vector<CellBlock> blocks;  // row after row
  };
  std::vector<Level> levels;
  std::vector<AngleStep> steps;  // of all blocks
};

struct MasterGrid {
  MasterGrid() = default;
  explicit MasterGrid(MasterCells::Allocator allocate) : Cells(allocate) {}

  float OriginX = 0, OriginY = 0;      // world position of grid index (0, 0), mm
  float MinZ = 0;                      // lowest z of the source path
  float MaxX = 0, MaxY = 0, MaxZ = 0;  // highest point of it, x and y relative to the origin
  float ToolSize = 0;                  // tool diameter + 2 x allowance
  float CellSize = 0;                  // distance of neighbouring cells, mm
  int32_t CellCount = 0;               // NX x NY; 0 without a model
  int32_t NX = 0, NY = 0;              // cells along X and along Y
  int32_t ModelBuilt = 0;              // 1 for a model, 0 after a delete
  MasterCells Cells;                   // row after row: cell (ix, iy) at iy x NX + ix
  CellPyramid Pyramid;                 // made by IndexCells; without it a lookup visits every cell

  MasterCell& At(int32_t ix, int32_t iy) { return Cells[Index(ix, iy)]; }
  const MasterCell& At(int32_t ix, int32_t iy) const { return Cells[Index(ix, iy)]; }

 private:
  size_t Index(int32_t ix, int32_t iy) const {
    return static_cast<size_t>(iy) * static_cast<size_t>(NX) + static_cast<size_t>(ix);
  }
};

// Gives the grid NX x NY empty cells of the given counts in place of those it has, and drops the
// pyramid. Returns false if there is no memory for them; the grid then has no model.
bool AllocateGrid(MasterGrid* grid, int64_t NX, int64_t NY);

// Leaves the grid without a model: no cells, counts and ModelBuilt 0.
void DropMaster(MasterGrid* grid);

// Prepares the lookups of a grid whose cells are complete. To be called again after a change of
// cells; only the speed of a lookup depends on it.
void IndexCells(MasterGrid* grid);

// The steepest surface around a point of the world and above it: the largest angle, in degrees, of
// the cells higher than point.z in the square of `radius` mm around the grid line nearest to the
// point. Returns true and sets *angle, or false with *angle unchanged if no such cell has an angle
// above 0, or the grid has no cells.
bool MasterLookup(const MasterGrid& grid, const Vec3& point, float radius, int32_t* angle);

}  // namespace tvx
