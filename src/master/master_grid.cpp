// The memory of the cells, and which samples along a move can touch them.
#include "master/master_grid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>

#include "base/numbers.h"

namespace tvx {

namespace {

// The largest grid that memory is requested for: 2 GB at 14 bytes per cell. Only a path that leaves
// its part by far needs more, and the request would slow down the whole machine.
constexpr int64_t kMostCells = std::numeric_limits<int32_t>::max() / 14;

void* AllocateMemory(size_t bytes) {
  return std::malloc(bytes);
}

}  // namespace

MasterCells::MasterCells() : MasterCells(AllocateMemory) {}

void MasterCells::Free::operator()(MasterCell* cells) const {
  std::free(cells);
}

bool MasterCells::Allocate(int64_t count) {
  Release();
  if (count <= 0 || count > kMostCells) return false;
  const auto cells = static_cast<size_t>(count);
  void* memory = allocate_(cells * sizeof(MasterCell));
  if (memory == nullptr) return false;
  cells_.reset(static_cast<MasterCell*>(memory));
  std::uninitialized_fill_n(cells_.get(), cells, MasterCell{});
  return true;
}

void MasterCells::Shrink(int64_t count) {
  const auto cells = static_cast<size_t>(count);
  void* memory = allocate_(cells * sizeof(MasterCell));
  if (memory == nullptr) return;
  auto* smaller = static_cast<MasterCell*>(memory);
  std::uninitialized_copy_n(cells_.get(), cells, smaller);
  cells_.reset(smaller);
}

bool AllocateGrid(MasterGrid* grid, int64_t NX, int64_t NY) {
  grid->Pyramid = {};
  // Each count is held below the limit first, so their product cannot overflow.
  if (NX <= 0 || NY <= 0 || NX > kMostCells || NY > kMostCells || !grid->Cells.Allocate(NX * NY)) {
    DropMaster(grid);
    return false;
  }
  grid->NX = static_cast<int32_t>(NX);
  grid->NY = static_cast<int32_t>(NY);
  grid->CellCount = grid->NX * grid->NY;
  return true;
}

void DropMaster(MasterGrid* grid) {
  *grid = MasterGrid(grid->Cells.allocator());
}

SampleRange SamplesWithin(const SampleRange& range, double from, double step, double low,
                          double high) {
  constexpr double kFloatRounding = 1e-6;  // more than half of the last place of a float
  low -= std::abs(low) * kFloatRounding;
  high += std::abs(high) * kFloatRounding;
  constexpr SampleRange kNone = {0, -1};
  if (!std::isfinite(from) || !std::isfinite(step)) return kNone;
  if (step == 0) return low <= from && from <= high ? range : kNone;
  const double atLow = (low - from) / step;
  const double atHigh = (high - from) / step;
  return {std::max(range.first, TruncateTo<int64_t>(std::floor(std::min(atLow, atHigh)) - 1)),
          std::min(range.last, TruncateTo<int64_t>(std::ceil(std::max(atLow, atHigh)) + 1))};
}

}  // namespace tvx
