#include "feed/master_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

#include "base/numbers.h"

namespace tvx {

namespace {

// The largest grid that memory is asked for: what a model of 14 bytes per cell may take in 2 GB.
// Only a path that leaves its part by far comes here, and it would hold up the whole machine.
constexpr int64_t kMostCells = std::numeric_limits<int32_t>::max() / 14;

// Blocks of the pyramid's level 0 have 8 cells along a side, those of each further level join 4 by
// 4 of the level below. Lookups divide by the side very often, so it is kept as a shift.
constexpr int32_t kFan = 4;
constexpr int SideShift(size_t level) {
  return 3 + 2 * static_cast<int>(level);
}
constexpr int32_t Side(size_t level) {
  return 1 << SideShift(level);
}

// Below this number of cells a square is visited as it is: the blocks would cost more than they
// save.
constexpr int64_t kSmallSquare = 64;

void* AllocateMemory(size_t bytes) {
  return std::malloc(bytes);
}

bool Empty(const CellRange& range) {
  return range.lastX < range.firstX || range.lastY < range.firstY;
}

inline CellRange Intersection(const CellRange& a, const CellRange& b) {
  return {std::max(a.firstX, b.firstX), std::min(a.lastX, b.lastX), std::max(a.firstY, b.firstY),
          std::min(a.lastY, b.lastY)};
}

inline bool Contains(const CellRange& outer, const CellRange& inner) {
  return outer.firstX <= inner.firstX && inner.lastX <= outer.lastX &&
         outer.firstY <= inner.firstY && inner.lastY <= outer.lastY;
}

// The cells that lookups may visit.
CellRange VisitedCells(const MasterGrid& grid) {
  return {1, grid.NX - 1, 1, grid.NY - 1};
}

inline CellRange CellsOfBlock(const MasterGrid& grid, size_t level, int32_t column, int32_t row) {
  const int32_t side = Side(level);
  const int32_t firstX = 1 + column * side;
  const int32_t firstY = 1 + row * side;
  return Intersection({firstX, firstX + side - 1, firstY, firstY + side - 1}, VisitedCells(grid));
}

const CellBlock& BlockAt(const CellPyramid::Level& level, int32_t column, int32_t row) {
  return level.blocks[static_cast<size_t>(row) * static_cast<size_t>(level.columns) +
                      static_cast<size_t>(column)];
}

// Builds the pyramid of a grid.
class PyramidBuilder {
 public:
  PyramidBuilder(const MasterGrid& grid, CellPyramid* pyramid) : grid_(grid), pyramid_(pyramid) {}

  void Build() {
    auto& levels = pyramid_->levels;
    do {
      AddLevel(((grid_.NX - 2) >> SideShift(levels.size())) + 1,
               ((grid_.NY - 2) >> SideShift(levels.size())) + 1);
    } while (levels.back().blocks.size() > 1);
  }

 private:
  void AddLevel(int32_t columns, int32_t rows) {
    CellPyramid::Level level = {.columns = columns, .rows = rows, .blocks = {}};
    level.blocks.reserve(static_cast<size_t>(columns) * static_cast<size_t>(rows));
    for (int32_t row = 0; row < rows; ++row) {
      for (int32_t column = 0; column < columns; ++column) {
        candidates_.clear();
        if (pyramid_->levels.empty()) {
          TakeCells(CellsOfBlock(grid_, 0, column, row));
        } else {
          TakeBlocks(pyramid_->levels.back(), column, row);
        }
        level.blocks.push_back(JoinCandidates());
      }
    }
    pyramid_->levels.push_back(std::move(level));
  }

  void TakeCells(const CellRange& cells) {
    for (int32_t iy = cells.firstY; iy <= cells.lastY; ++iy) {
      for (int32_t ix = cells.firstX; ix <= cells.lastX; ++ix) {
        const MasterCell& cell = grid_.At(ix, iy);
        if (cell.angle > 0 && !std::isnan(cell.z)) candidates_.push_back({cell.z, cell.angle});
      }
    }
  }

  void TakeBlocks(const CellPyramid::Level& below, int32_t column, int32_t row) {
    for (int32_t y = row * kFan; y < std::min((row + 1) * kFan, below.rows); ++y) {
      for (int32_t x = column * kFan; x < std::min((column + 1) * kFan, below.columns); ++x) {
        const CellBlock& block = BlockAt(below, x, y);
        if (block.steepest == 0) continue;
        for (size_t i = block.firstStep;; ++i) {
          candidates_.push_back(pyramid_->steps[i]);
          if (pyramid_->steps[i].z == block.highest) break;
        }
      }
    }
  }

  CellBlock JoinCandidates() {
    std::sort(candidates_.begin(), candidates_.end(), [](const AngleStep& a, const AngleStep& b) {
      return a.angle != b.angle ? a.angle > b.angle : a.z > b.z;
    });
    CellBlock block = {.highest = -std::numeric_limits<float>::infinity(),
                       .steepest = candidates_.empty() ? int16_t{0} : candidates_.front().angle,
                       .firstStep = static_cast<uint32_t>(pyramid_->steps.size())};
    for (const AngleStep& step : candidates_) {
      if (!(step.z > block.highest)) continue;
      pyramid_->steps.push_back(step);
      block.highest = step.z;
    }
    return block;
  }

  const MasterGrid& grid_;
  CellPyramid* pyramid_;
  std::vector<AngleStep> candidates_;  // of the block in work
};

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
    // From the level of which four blocks reach across the square. Those inside it come first: what
    // they give rules most of the others out.
    size_t level = 0;
    while (level + 1 < levels.size() && Side(level) * 4 < std::max(width, height)) ++level;
    VisitBlocks(level, InnerBlocks(level));
    VisitBlocks(level, square_);
    VisitEdge();
    return best_;
  }

 private:
  void VisitCells(const CellRange& cells) {
    // Copies, which unlike the members can stay in registers.
    const float z = z_;
    int16_t best = best_;
    for (int32_t iy = cells.firstY; iy <= cells.lastY; ++iy) {
      const MasterCell* cell = &grid_.At(cells.firstX, iy);
      for (int32_t ix = cells.firstX; ix <= cells.lastX; ++ix, ++cell) {
        if (cell->angle > best && cell->z > z) best = cell->angle;
      }
    }
    best_ = best;
  }

  // The cells of the blocks of a level that lie wholly inside the square.
  CellRange InnerBlocks(size_t level) const {
    const int shift = SideShift(level);
    const auto first = [&](int32_t cell) {
      return ((cell - 2 + Side(level)) >> shift << shift) + 1;
    };
    const auto last = [&](int32_t cell) { return cell >> shift << shift; };
    return {first(square_.firstX), last(square_.lastX), first(square_.firstY), last(square_.lastY)};
  }

  // The blocks of a level that share cells with `cells`.
  void VisitBlocks(size_t level, const CellRange& cells) {
    const int shift = SideShift(level);
    const int32_t lastColumn = (cells.lastX - 1) >> shift;
    const int32_t lastRow = (cells.lastY - 1) >> shift;
    for (int32_t row = (cells.firstY - 1) >> shift; row <= lastRow; ++row) {
      for (int32_t column = (cells.firstX - 1) >> shift; column <= lastColumn; ++column) {
        VisitBlock(level, column, row);
      }
    }
  }

  // The largest angle of a whole block above the point: that of its first step there.
  int16_t SteepestAbove(const CellBlock& block) const {
    const AngleStep* step = &grid_.Pyramid.steps[block.firstStep];
    while (!(step->z > z_)) ++step;
    return step->angle;
  }

  void VisitBlock(size_t level, int32_t column, int32_t row) {
    const CellBlock& block = BlockAt(grid_.Pyramid.levels[level], column, row);
    if (block.steepest <= best_ || !(block.highest > z_)) return;
    const int16_t steepest = SteepestAbove(block);
    if (steepest <= best_) return;
    const CellRange cells = CellsOfBlock(grid_, level, column, row);
    const CellRange inSquare = Intersection(cells, square_);
    if (Contains(square_, cells)) {
      best_ = steepest;
    } else if (level > 0) {
      VisitBlocks(level - 1, inSquare);
    } else if (edgeCount_ < edge_.size()) {
      edge_[edgeCount_++] = {inSquare, steepest};
    } else {
      VisitCells(inSquare);
    }
  }

  // The smallest blocks on the edge of the square have to be visited cell by cell. They come last,
  // the steepest ones first, so that what was found before rules most of them out.
  void VisitEdge() {
    for (;;) {
      EdgeBlock* next = nullptr;
      int16_t steepest = best_;
      for (size_t i = 0; i < edgeCount_; ++i) {
        if (edge_[i].steepest <= steepest) continue;
        next = &edge_[i];
        steepest = next->steepest;
      }
      if (next == nullptr) return;
      VisitCells(next->cells);
      next->steepest = 0;
    }
  }

  struct EdgeBlock {
    CellRange cells;   // those inside the square
    int16_t steepest;  // largest angle above the point of the whole block; 0 once it was visited
  };

  const MasterGrid& grid_;
  const CellRange square_;
  const float z_;
  int16_t best_ = 0;
  std::array<EdgeBlock, 64> edge_;  // filled up to edgeCount_
  size_t edgeCount_ = 0;
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

void IndexCells(MasterGrid* grid) {
  grid->Pyramid = {};
  if (grid->NX < 2 || grid->NY < 2) return;
  // The pyramid is a help, not a need: a lookup answers the same without it.
  try {
    PyramidBuilder(*grid, &grid->Pyramid).Build();
  } catch (const std::bad_alloc&) {
    grid->Pyramid = {};
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
