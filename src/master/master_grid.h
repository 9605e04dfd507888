// The master model: a height map of the finished part with a surface angle at each cell.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "master/cell_pyramid.h"

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
  // Allocates memory that std::free releases; null when there is none left. Tests inject failures
  // here.
  using Allocator = void* (*)(size_t bytes);

  MasterCells();
  explicit MasterCells(Allocator allocate) : allocate_(allocate) {}

  // Replaces the cells by `count` empty ones. Returns false, and holds no cells, if there is no
  // memory for them or the count is not positive.
  bool Allocate(int64_t count);

  // Keeps the first `count` cells and releases the memory of the others if that is possible.
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
  std::string path;     // of the file it was read from or saved to; empty if there is none
  MasterCells Cells;    // row after row: cell (ix, iy) at iy x NX + ix
  CellPyramid Pyramid;  // index for MasterLookup, built by IndexCells

  MasterCell& At(int32_t ix, int32_t iy) { return Cells[Index(ix, iy)]; }
  const MasterCell& At(int32_t ix, int32_t iy) const { return Cells[Index(ix, iy)]; }

 private:
  size_t Index(int32_t ix, int32_t iy) const {
    return static_cast<size_t>(iy) * static_cast<size_t>(NX) + static_cast<size_t>(ix);
  }
};

// Replaces the cells by NX x NY empty ones and drops the pyramid. Returns false, without a model,
// if there is no memory for them or a count is not positive.
bool AllocateGrid(MasterGrid* grid, int64_t NX, int64_t NY);

// Leaves the grid without a model: no cells, counts and ModelBuilt 0.
void DropMaster(MasterGrid* grid);

// Indexes of samples along a move; empty if last is below first.
struct SampleRange {
  int64_t first, last;
};

// Narrows a range to the samples from + j x step that are between low and high on one axis, mm. The
// coordinates of a program have no limit in Y, so a move may have more samples off the grid than
// could ever be visited. The result is never too narrow: it allows for the rounding of a sample to
// a float.
SampleRange SamplesWithin(const SampleRange& range, double from, double step, double low,
                          double high);

}  // namespace tvx
