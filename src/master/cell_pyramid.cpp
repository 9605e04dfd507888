// Builds the blocks level by level: those of level 0 from the cells, all others from the blocks
// below.
#include "master/cell_pyramid.h"

#include <cmath>
#include <limits>
#include <new>
#include <utility>

#include "master/master_grid.h"

namespace tvx {

namespace {

class PyramidBuilder {
 public:
  PyramidBuilder(const MasterGrid& grid, CellPyramid* pyramid) : grid_(grid), pyramid_(pyramid) {}

  void Build() {
    pyramid_->cells = LookupCells(grid_);
    auto& levels = pyramid_->levels;
    do {
      AddLevel(CellPyramid::BlockOf(levels.size(), pyramid_->cells.lastX) + 1,
               CellPyramid::BlockOf(levels.size(), pyramid_->cells.lastY) + 1);
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
          TakeCells(pyramid_->CellsOf(0, column, row));
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
    constexpr int32_t kFan = CellPyramid::kFan;
    for (int32_t y = row * kFan; y < std::min((row + 1) * kFan, below.rows); ++y) {
      for (int32_t x = column * kFan; x < std::min((column + 1) * kFan, below.columns); ++x) {
        const CellBlock& block = below.At(x, y);
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
  std::vector<AngleStep> candidates_;  // of the block being built
};

}  // namespace

CellRange LookupCells(const MasterGrid& grid) {
  return {1, grid.NX - 1, 1, grid.NY - 1};
}

void IndexCells(MasterGrid* grid) {
  grid->Pyramid = {};
  if (LookupCells(*grid).IsEmpty()) return;
  try {
    PyramidBuilder(*grid, &grid->Pyramid).Build();
  } catch (const std::bad_alloc&) {
    grid->Pyramid = {};
  }
}

}  // namespace tvx
