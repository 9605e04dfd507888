#include "feed/master_grid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

#include "platform/numbers.h"

namespace tvx {

namespace {

// The largest grid that memory is asked for: what a model of 14 bytes per cell may take in 2 GB.
// Only a path that leaves its part by far comes here, and it would hold up the whole machine.
constexpr int64_t kMostCells = std::numeric_limits<int32_t>::max() / 14;

// Smallest block of the pyramid, cells along a side.
constexpr int32_t kSmallestBlock = 8;

// Below this number of cells a square is visited as it is: the blocks would cost more than they
// save.
constexpr int64_t kSmallSquare = 256;

void* AllocateMemory(size_t bytes) {
  return std::malloc(bytes);
}

bool Empty(const CellRange& range) {
  return range.lastX < range.firstX || range.lastY < range.firstY;
}

CellRange Intersection(const CellRange& a, const CellRange& b) {
  return {std::max(a.firstX, b.firstX), std::min(a.lastX, b.lastX), std::max(a.firstY, b.firstY),
          std::min(a.lastY, b.lastY)};
}

bool Contains(const CellRange& outer, const CellRange& inner) {
  return outer.firstX <= inner.firstX && inner.lastX <= outer.lastX &&
         outer.firstY <= inner.firstY && inner.lastY <= outer.lastY;
}

// The cells that lookups may visit.
CellRange VisitedCells(const MasterGrid& grid) {
  return {1, grid.NX - 1, 1, grid.NY - 1};
}

CellRange CellsOfBlock(const MasterGrid& grid, int32_t side, int32_t column, int32_t row) {
  const int32_t firstX = 1 + column * side;
  const int32_t firstY = 1 + row * side;
  return Intersection({firstX, firstX + side - 1, firstY, firstY + side - 1}, VisitedCells(grid));
}

constexpr CellBlock kNoAnswer = {-std::numeric_limits<float>::infinity(),
                                 -std::numeric_limits<float>::infinity(), 0};

void Join(CellBlock* block, const CellBlock& other) {
  block->highest = std::max(block->highest, other.highest);
  if (other.steepest > block->steepest) {
    block->steepest = other.steepest;
    block->steepestZ = other.steepestZ;
  } else if (other.steepest == block->steepest) {
    block->steepestZ = std::max(block->steepestZ, other.steepestZ);
  }
}

CellBlock SummaryOfCells(const MasterGrid& grid, const CellRange& cells) {
  CellBlock block = kNoAnswer;
  for (int32_t iy = cells.firstY; iy <= cells.lastY; ++iy) {
    for (int32_t ix = cells.firstX; ix <= cells.lastX; ++ix) {
      const MasterCell& cell = grid.At(ix, iy);
      if (cell.angle > 0 && !std::isnan(cell.z)) Join(&block, {cell.z, cell.z, cell.angle});
    }
  }
  return block;
}

CellPyramid::Level LevelOfCells(const MasterGrid& grid) {
  CellPyramid::Level level = {.side = kSmallestBlock,
                              .columns = (grid.NX - 2) / kSmallestBlock + 1,
                              .rows = (grid.NY - 2) / kSmallestBlock + 1,
                              .blocks = {}};
  level.blocks.reserve(static_cast<size_t>(level.columns) * static_cast<size_t>(level.rows));
  for (int32_t row = 0; row < level.rows; ++row) {
    for (int32_t column = 0; column < level.columns; ++column) {
      level.blocks.push_back(SummaryOfCells(grid, CellsOfBlock(grid, level.side, column, row)));
    }
  }
  return level;
}

const CellBlock& BlockAt(const CellPyramid::Level& level, int32_t column, int32_t row) {
  return level.blocks[static_cast<size_t>(row) * static_cast<size_t>(level.columns) +
                      static_cast<size_t>(column)];
}

CellPyramid::Level LevelAbove(const CellPyramid::Level& below) {
  CellPyramid::Level level = {.side = below.side * 2,
                              .columns = (below.columns + 1) / 2,
                              .rows = (below.rows + 1) / 2,
                              .blocks = {}};
  level.blocks.reserve(static_cast<size_t>(level.columns) * static_cast<size_t>(level.rows));
  for (int32_t row = 0; row < level.rows; ++row) {
    for (int32_t column = 0; column < level.columns; ++column) {
      CellBlock block = kNoAnswer;
      for (int32_t y = row * 2; y < std::min(row * 2 + 2, below.rows); ++y) {
        for (int32_t x = column * 2; x < std::min(column * 2 + 2, below.columns); ++x) {
          Join(&block, BlockAt(below, x, y));
        }
      }
      level.blocks.push_back(block);
    }
  }
  return level;
}

// One lookup under way.
class Search {
 public:
  Search(const MasterGrid& grid, const CellRange& square, float z)
      : grid_(grid), square_(square), z_(z) {}

  // The largest angle found in the square, 0 for none.
  int16_t Best() {
    if (Empty(square_)) return 0;
    const int32_t width = square_.lastX - square_.firstX + 1;
    const int32_t height = square_.lastY - square_.firstY + 1;
    const auto& levels = grid_.Pyramid.levels;
    if (levels.empty() || static_cast<int64_t>(width) * height <= kSmallSquare) {
      VisitCells(square_);
      return best_;
    }
    // From the level whose blocks are about as large as the square.
    size_t level = 0;
    while (level + 1 < levels.size() && levels[level].side < std::max(width, height)) ++level;
    VisitBlocks(level, square_);
    return best_;
  }

 private:
  void VisitCells(const CellRange& cells) {
    for (int32_t iy = cells.firstY; iy <= cells.lastY; ++iy) {
      for (int32_t ix = cells.firstX; ix <= cells.lastX; ++ix) {
        const MasterCell& cell = grid_.At(ix, iy);
        if (cell.z > z_ && cell.angle > best_) best_ = cell.angle;
      }
    }
  }

  // The blocks of a level that share cells with `cells`.
  void VisitBlocks(size_t level, const CellRange& cells) {
    const int32_t side = grid_.Pyramid.levels[level].side;
    for (int32_t row = (cells.firstY - 1) / side; row <= (cells.lastY - 1) / side; ++row) {
      for (int32_t column = (cells.firstX - 1) / side; column <= (cells.lastX - 1) / side;
           ++column) {
        VisitBlock(level, column, row);
      }
    }
  }

  void VisitBlock(size_t level, int32_t column, int32_t row) {
    const CellPyramid::Level& blocks = grid_.Pyramid.levels[level];
    const CellBlock& block = BlockAt(blocks, column, row);
    if (block.steepest <= best_ || !(block.highest > z_)) return;
    const CellRange cells = CellsOfBlock(grid_, blocks.side, column, row);
    if (block.steepestZ > z_ && Contains(square_, cells)) {
      best_ = block.steepest;
      return;
    }
    const CellRange inSquare = Intersection(cells, square_);
    if (level == 0) {
      VisitCells(inSquare);
    } else {
      VisitBlocks(level - 1, inSquare);
    }
  }

  const MasterGrid& grid_;
  const CellRange square_;
  const float z_;
  int16_t best_ = 0;
};

// The grid line nearest to a position of the grid, mm; the lower one on a tie.
double NearestLine(double position, double cellSize) {
  const double line = TruncateToInt(position / cellSize);
  const double low = line * cellSize;
  const double high = (line + 1) * cellSize;
  return high - position < position - low ? high : low;
}

CellRange SearchSquare(const MasterGrid& grid, const Vec3& point, float radius) {
  const double c = grid.CellSize;
  const double x = NearestLine(static_cast<double>(point.x) - grid.OriginX, c);
  const double y = NearestLine(static_cast<double>(point.y) - grid.OriginY, c);
  return Intersection({TruncateToInt((x - radius) / c), TruncateToInt((x + radius) / c),
                       TruncateToInt((y - radius) / c), TruncateToInt((y + radius) / c)},
                      VisitedCells(grid));
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
  grid->Pyramid.levels.clear();
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

void IndexCells(MasterGrid* grid) {
  grid->Pyramid.levels.clear();
  if (grid->NX < 2 || grid->NY < 2) return;
  // The pyramid is a help, not a need: a lookup answers the same without it.
  try {
    auto& levels = grid->Pyramid.levels;
    levels.push_back(LevelOfCells(*grid));
    while (levels.back().blocks.size() > 1) levels.push_back(LevelAbove(levels.back()));
  } catch (const std::bad_alloc&) {
    grid->Pyramid.levels.clear();
  }
}

bool MasterLookup(const MasterGrid& grid, const Vec3& point, float radius, int32_t* angle) {
  // Not "<= 0", so that a cell size that is no number does not pass.
  if (grid.Cells.Empty() || !(grid.CellSize > 0)) return false;
  const int16_t best = Search(grid, SearchSquare(grid, point, radius), point.z).Best();
  if (best == 0) return false;
  *angle = best;
  return true;
}

}  // namespace tvx
