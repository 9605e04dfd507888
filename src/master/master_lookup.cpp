// Searches a square of the master grid, through the pyramid where the square is large enough for
// it to pay.
#include "master/master_lookup.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"

namespace tvx {

namespace {

// Up to this number of cells a square is visited cell by cell: blocks would cost more than they
// save.
constexpr int64_t kSmallSquare = 64;

// One lookup.
class Search {
 public:
  Search(const MasterGrid& grid, const CellRange& square, float z)
      : grid_(grid), pyramid_(grid.Pyramid), square_(square), z_(z) {}

  // The largest angle found in the square, 0 for none.
  int16_t Best() {
    if (square_.IsEmpty()) return 0;
    const int32_t width = square_.lastX - square_.firstX + 1;
    const int32_t height = square_.lastY - square_.firstY + 1;
    const size_t levels = pyramid_.levels.size();
    if (levels == 0 || static_cast<int64_t>(width) * height <= kSmallSquare) {
      VisitCells(square_);
      return best_;
    }
    // Starts at the level of which four blocks reach across the square. The blocks inside the
    // square come first: their angles rule out most of the others.
    size_t level = 0;
    while (level + 1 < levels && CellPyramid::Side(level) * 4 < std::max(width, height)) ++level;
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

  // The cells of the blocks of a level that are wholly inside the square.
  CellRange InnerBlocks(size_t level) const {
    const int shift = CellPyramid::SideShift(level);
    const auto first = [&](int32_t cell) {
      return ((cell - 2 + CellPyramid::Side(level)) >> shift << shift) + 1;
    };
    const auto last = [&](int32_t cell) { return cell >> shift << shift; };
    return {first(square_.firstX), last(square_.lastX), first(square_.firstY), last(square_.lastY)};
  }

  // Visits the blocks of a level that share cells with `cells`.
  void VisitBlocks(size_t level, const CellRange& cells) {
    const int32_t lastColumn = CellPyramid::BlockOf(level, cells.lastX);
    const int32_t lastRow = CellPyramid::BlockOf(level, cells.lastY);
    for (int32_t row = CellPyramid::BlockOf(level, cells.firstY); row <= lastRow; ++row) {
      for (int32_t column = CellPyramid::BlockOf(level, cells.firstX); column <= lastColumn;
           ++column) {
        VisitBlock(level, column, row);
      }
    }
  }

  // The largest angle of a whole block above the point. The block reaches above the point.
  int16_t SteepestAbove(const CellBlock& block) const {
    const AngleStep* step = &pyramid_.steps[block.firstStep];
    while (!(step->z > z_)) ++step;
    return step->angle;
  }

  void VisitBlock(size_t level, int32_t column, int32_t row) {
    const CellBlock& block = pyramid_.levels[level].At(column, row);
    if (block.steepest <= best_ || !(block.highest > z_)) return;
    const int16_t steepest = SteepestAbove(block);
    if (steepest <= best_) return;
    const CellRange cells = pyramid_.CellsOf(level, column, row);
    const CellRange inSquare = cells.Intersection(square_);
    if (square_.Contains(cells)) {
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
  // the steepest first, so that what was found before rules out most of them.
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
    int16_t steepest;  // largest angle of the whole block above the point; 0 after its visit
  };

  const MasterGrid& grid_;
  const CellPyramid& pyramid_;
  const CellRange square_;
  const float z_;
  int16_t best_ = 0;
  std::array<EdgeBlock, 64> edge_;  // filled up to edgeCount_
  size_t edgeCount_ = 0;
};

// The grid line nearest to a position on the grid, mm; the lower one on a tie.
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
  const CellRange square = {TruncateToInt((x - radius) / c), TruncateToInt((x + radius) / c),
                            TruncateToInt((y - radius) / c), TruncateToInt((y + radius) / c)};
  return square.Intersection(LookupCells(grid));
}

}  // namespace

bool MasterLookup(const MasterGrid& grid, const Vec3& point, float radius, int32_t* angle) {
  // Not "<= 0", so that a cell size that is no number does not pass.
  if (grid.Cells.Empty() || !(grid.CellSize > 0)) return false;
  const int16_t best = Search(grid, SearchSquare(grid, point, radius), point.z).Best();
  if (best == 0) return false;
  *angle = best;
  return true;
}

}  // namespace tvx
