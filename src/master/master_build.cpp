// The stages of a build in their order, each after its helpers; BuildMaster at the end runs them.
#include "master/master_build.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "master/master_picture.h"
#include "model/walks.h"

namespace tvx {

namespace {

constexpr MasterDlgField kFields[] = {
    {"공구 직경", &CMasterDlg::MasterToolDiameter},
    {"가공 여유", &CMasterDlg::MasterAllowance},
    {"마스터 모델 공차", &CMasterDlg::MasterTolerance},
};

// The vector to block i from the one before it. A vector without length has the unit vector 0.
struct Move {
  Vec3 start;
  Difference difference;
  Vec3 unit;
};

Move MoveOf(BlockStore* store, uint32_t i) {
  Move move;
  const uint32_t previous = PrevMove(store, i);
  move.start = EndPoint(store->CurrentBlock);
  BlockVector(store, i, previous, &move.difference, &move.unit);
  return move;
}

bool GoesStraightDown(const Vec3& unit) {
  return unit.z == -1.0F;
}
bool GoesStraightUp(const Vec3& unit) {
  return unit.z == 1.0F;
}

}  // namespace

std::span<const MasterDlgField> MasterDlgFields() {
  return kFields;
}

// Stage 1: the plan, with all sizes that are known before anything changes.

namespace {

constexpr uint32_t kFewestBlocks = 5;
constexpr double kMemoryBudget = 60'000'000;  // bytes that the fine cells of a build may take
constexpr double kCellCost = 14;              // bytes of a fine cell in the budget
constexpr int32_t kFinest = 5;

struct BuildPlan {
  float ToolSize;
  float OriginX, OriginY;
  Vec3 minimum, maximum;  // of the path, world
  int32_t refinement;
};

Status PlanBuild(const CMasterDlg& input, BlockStore* store, BuildPlan* plan) {
  if (store->blockCount < kFewestBlocks) return StatusKind::kFewBlocks;
  PathExtents(store, &plan->minimum, &plan->maximum);
  if (plan->minimum.x > plan->maximum.x) return StatusKind::kNoCut;
  const double tolerance = input.MasterTolerance;
  if (!(tolerance > 0)) return StatusKind::kBadSizes;
  plan->ToolSize = static_cast<float>(input.MasterToolDiameter + 2.0 * input.MasterAllowance);
  plan->OriginX = static_cast<float>(plan->minimum.x - tolerance);
  plan->OriginY = static_cast<float>(plan->minimum.y - tolerance);
  const double width = static_cast<double>(plan->maximum.x) - plan->OriginX;
  const double depth = static_cast<double>(plan->maximum.y) - plan->OriginY;
  if (!std::isfinite(plan->ToolSize) || !std::isfinite(width) || !std::isfinite(depth)) {
    return StatusKind::kBadSizes;
  }
  // The store repairs a block beyond its limit: a part shifted there would be lost.
  if (width > BlockStore::kCoordinateLimit) return StatusKind::kTooWide;
  plan->refinement = Refinement(std::trunc(width / tolerance), std::trunc(depth / tolerance));
  return plan->refinement > 0 ? StatusKind::kOk : StatusKind::kBadSizes;
}

}  // namespace

int32_t Refinement(double columns, double rows) {
  const double cells = columns * rows;
  if (kCellCost * kFinest * kFinest * cells <= kMemoryBudget) return kFinest;
  return TruncateToInt(std::sqrt(kMemoryBudget / (kCellCost * cells)));
}

// Stage 2: from world to grid coordinates.

void ShiftPath(BlockStore* store, float OriginX, float OriginY) {
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    if (!IsMoveBlock(store, i)) continue;
    store->CurrentBlock.x -= OriginX;
    store->CurrentBlock.y -= OriginY;
    store->WriteBlock(i);
  }
}

// Stage 3: the plunges are removed from the path.

namespace {

// Blocks that the clean-up searches in vain for a move that leaves a plunge, over all plunges. A
// program that ends in thousands of moves straight down would otherwise take the square of their
// number.
constexpr uint64_t kMostSearchedInVain = 10'000'000;

// True for a rapid or the start of a cut that goes straight down.
bool IsPlunge(BlockStore* store, uint32_t i) {
  store->ReadBlock(i);
  const uint32_t type = store->CurrentBlock.type;
  return (IsRapidType(type) || type == BlockCutStart) && GoesStraightDown(MoveOf(store, i).unit);
}

// The move that leaves the line of the plunge that ends at block i; 0 if there is none.
uint32_t MoveAfterPlunge(BlockStore* store, uint32_t i) {
  uint32_t n = NextMove(store, i);
  while (n != 0 && n < store->blockCount) {
    Difference difference;
    Vec3 unit;
    BlockVector(store, n, i, &difference, &unit);
    if (!GoesStraightDown(unit)) return n;
    n = NextMove(store, n);
  }
  return 0;
}

void SetType(BlockStore* store, uint32_t i, BlockType type) {
  store->ReadBlock(i);
  store->CurrentBlock.type = type;
  store->WriteBlock(i);
}

// Removes the plunge from block i to the move after it from the path. Returns the block to go on
// from.
uint32_t RemovePlunge(BlockStore* store, uint32_t i, uint32_t after) {
  SetType(store, after, BlockCutStart);
  const uint32_t last = PrevMove(store, after);
  SetType(store, last, BlockRapid);
  for (uint32_t block = i; block < last; ++block) SetType(store, block, BlockNone);
  return last + 1;
}

}  // namespace

void CleanPlunges(BlockStore* store) {
  store->ReadBlock(0);
  uint64_t searchedInVain = 0;
  for (uint32_t i = NextMove(store, 0); i < store->blockCount;) {
    const uint32_t after = IsPlunge(store, i) ? MoveAfterPlunge(store, i) : i;
    if (after == i) {
      ++i;
    } else if (after != 0) {
      i = RemovePlunge(store, i, after);
    } else {
      searchedInVain += store->blockCount - i;
      if (searchedInVain > kMostSearchedInVain) return;
      ++i;
    }
  }
}

// Stage 4: the fine grid, still empty.

bool SizeGrid(BlockStore* store, int32_t k, MasterGrid* grid) {
  Vec3 minimum, maximum;
  if (PathExtents(store, &minimum, &maximum)) {
    grid->MaxX = maximum.x;
    grid->MaxY = maximum.y;
    grid->MaxZ = maximum.z;
  }
  const double c = grid->CellSize;
  // A part as thin as the rounding of its position could get less than one finished cell.
  const auto cells = [&](double length) {
    return std::max<int64_t>(TruncateTo<int64_t>(length / c + 1), k);
  };
  return AllocateGrid(grid, cells(grid->MaxX), cells(grid->MaxY));
}

// Stage 5: heights along the path.

namespace {

constexpr double kStillAxis = 0.001;  // mm; a move does not follow an axis on which it is shorter

// Position of grid line `index`, as it is stored in a cell.
float Node(int32_t index, float cellSize) {
  return static_cast<float>(static_cast<double>(index) * cellSize);
}

// Distance in the plan view, as DiffVectors measures it.
float PlanDistance(float x, float y, float otherX, float otherY) {
  return static_cast<float>(SafeSqrt(Square(x - otherX) + Square(y - otherY)));
}

// A cell takes its first point, and from then on keeps the one nearest to its node.
void Deposit(const Vec3& point, MasterGrid* grid) {
  const double c = grid->CellSize;
  const int32_t ix = TruncateToInt(point.x / c);
  const int32_t iy = TruncateToInt(point.y / c);
  if (ix < 0 || ix >= grid->NX || iy < 0 || iy >= grid->NY) return;
  const float nodeX = Node(ix, grid->CellSize);
  const float nodeY = Node(iy, grid->CellSize);
  MasterCell& cell = grid->At(ix, iy);
  if (PlanDistance(nodeX, nodeY, point.x, point.y) < PlanDistance(nodeX, nodeY, cell.x, cell.y)) {
    cell.x = point.x;
    cell.y = point.y;
    cell.z = point.z;
  }
}

float SamplePosition(float start, float length, int64_t j, int64_t count) {
  if (std::abs(length) <= kStillAxis) return start;
  return static_cast<float>(start + static_cast<double>(j) * length / static_cast<double>(count));
}

// Step from sample to sample on one axis, mm.
double SampleStep(float length, int64_t count) {
  return std::abs(length) <= kStillAxis ? 0.0 : length / static_cast<double>(count);
}

// Deposits points along a move, two to a cell, without its end point.
void SampleMove(const Move& move, MasterGrid* grid) {
  const Vec3& start = move.start;
  const Difference& d = move.difference;
  const double c = grid->CellSize;
  const double longest = std::max(std::abs(d.dx), std::abs(d.dy));
  const int64_t count = 2 * int64_t{TruncateToInt(longest / c)} + 1;
  // Positions down to one cell below 0 still truncate to cell 0.
  SampleRange range = {0, count - 1};
  range = SamplesWithin(range, start.x, SampleStep(d.dx, count), -c, grid->NX * c);
  range = SamplesWithin(range, start.y, SampleStep(d.dy, count), -c, grid->NY * c);
  for (int64_t j = range.first; j <= range.last; ++j) {
    Deposit({SamplePosition(start.x, d.dx, j, count), SamplePosition(start.y, d.dy, j, count),
             SamplePosition(start.z, d.dz, j, count)},
            grid);
  }
}

}  // namespace

bool SamplePath(BlockStore* store, MasterGrid* grid, Progress* progress) {
  constexpr uint32_t kBlocksPerStep = 1 << 6;  // a move can have thousands of samples
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    if (i % kBlocksPerStep == 0 && !progress->Step(i, store->blockCount)) return false;
    if (!IsCutBlock(store, i)) continue;
    const Vec3 end = EndPoint(store->CurrentBlock);
    const Move move = MoveOf(store, i);
    if (GoesStraightDown(move.unit)) {
      Deposit(end, grid);
    } else if (GoesStraightUp(move.unit)) {
      Deposit(move.start, grid);
    } else {
      SampleMove(move, grid);
    }
  }
  return true;
}

// Stage 6: heights between the samples.

namespace {

constexpr double kGapReach = 4.0;  // mm

// A line of cells through a grid, backwards from one cell, along X or along Y.
struct RowAxis {
  static constexpr float MasterCell::*position = &MasterCell::x;
  static MasterCell& Cell(MasterGrid* grid, int32_t along, int32_t across) {
    return grid->At(along, across);
  }
};
struct ColumnAxis {
  static constexpr float MasterCell::*position = &MasterCell::y;
  static MasterCell& Cell(MasterGrid* grid, int32_t along, int32_t across) {
    return grid->At(across, along);
  }
};

// Moves a cell to its node, at the height of the line through two stored points. A filled cell has
// no stored position: the line then uses its -9999.
void PutOnNode(float MasterCell::*position, float node, float p0, float z0, float p1, float z1,
               MasterCell* cell) {
  cell->*position = node;
  cell->z = static_cast<float>((static_cast<double>(node) - p0) * (static_cast<double>(z1) - z0) /
                                   (static_cast<double>(p1) - p0) +
                               z0);
}

// Fills the gap between a cell and the nearest one before it that has a height, if that is less
// than `reach` cells away.
template <typename Axis>
void FillGap(int32_t along, int32_t across, int32_t reach, MasterGrid* grid) {
  MasterCell& a = Axis::Cell(grid, along, across);
  for (int32_t g = 1; g < reach && along - g >= 1; ++g) {
    MasterCell& b = Axis::Cell(grid, along - g, across);
    if (!HasHeight(b)) continue;
    const float p0 = a.*Axis::position, z0 = a.z;
    const float p1 = b.*Axis::position, z1 = b.z;
    PutOnNode(Axis::position, Node(along, grid->CellSize), p0, z0, p1, z1, &a);
    PutOnNode(Axis::position, Node(along - g, grid->CellSize), p0, z0, p1, z1, &b);
    for (int32_t m = 1; m < g; ++m) {
      Axis::Cell(grid, along - m, across).z =
          static_cast<float>((static_cast<double>(b.z) - a.z) * m / g + a.z);
    }
    return;
  }
}

}  // namespace

void FillGaps(MasterGrid* grid) {
  const int32_t reach = TruncateToInt(kGapReach / grid->CellSize);
  for (int32_t iy = 1; iy < grid->NY; ++iy) {
    for (int32_t ix = 1; ix < grid->NX; ++ix) {
      if (!HasHeight(grid->At(ix, iy))) continue;
      FillGap<RowAxis>(ix, iy, reach, grid);
      FillGap<ColumnAxis>(iy, ix, reach, grid);
    }
  }
}

// Stage 7: the finished grid and its angles.

void ThinOut(MasterGrid* grid, int32_t k, float CellSize) {
  const int32_t NX = grid->NX / k;
  const int32_t NY = grid->NY / k;
  size_t kept = 0;
  for (int32_t iy = 0; iy < NY; ++iy) {
    for (int32_t ix = 0; ix < NX; ++ix) grid->Cells[kept++] = grid->At(ix * k, iy * k);
  }
  grid->NX = NX;
  grid->NY = NY;
  grid->CellCount = NX * NY;
  grid->CellSize = CellSize;
  grid->Cells.Shrink(grid->CellCount);
}

namespace {

// Slope between two cells in degrees, 0 to 90. Returns false, with 0, if the second is outside the
// grid or one of them has no height.
bool Slope(const MasterGrid& grid, const MasterCell& cell, int32_t ix, int32_t iy, float* slope) {
  *slope = 0;
  if (ix < 0 || ix >= grid.NX || iy < 0 || iy >= grid.NY) return false;
  const MasterCell& other = grid.At(ix, iy);
  if (!HasHeight(cell) || !HasHeight(other)) return false;
  Difference difference;
  Vec3 unit;
  DiffVectors({0, 0, cell.z}, {grid.CellSize, 0, other.z}, &difference, &unit);
  float degrees = Angle(unit.z, unit.x);
  if (degrees > 180) degrees -= 180;
  if (degrees > 90) degrees = 180 - degrees;
  *slope = degrees;
  return true;
}

// The slope to the cell before, or to the next cell where that is missing. The first cell that has
// an angle uses the next cell only.
float SlopeAlongX(const MasterGrid& grid, int32_t ix, int32_t iy) {
  const MasterCell& cell = grid.At(ix, iy);
  float slope = 0;
  if (ix == 1) {
    Slope(grid, cell, 2, iy, &slope);
  } else if (!Slope(grid, cell, ix - 1, iy, &slope) && ix < grid.NX - 1) {
    Slope(grid, cell, ix + 1, iy, &slope);
  }
  return slope;
}

float SlopeAlongY(const MasterGrid& grid, int32_t ix, int32_t iy) {
  const MasterCell& cell = grid.At(ix, iy);
  float slope = 0;
  if (iy == 1) {
    Slope(grid, cell, ix, 2, &slope);
  } else if (!Slope(grid, cell, ix, iy - 1, &slope) && iy < grid.NY - 1) {
    Slope(grid, cell, ix, iy + 1, &slope);
  }
  return slope;
}

}  // namespace

void MasterAngles(MasterGrid* grid) {
  for (int32_t iy = 1; iy < grid->NY; ++iy) {
    for (int32_t ix = 1; ix < grid->NX; ++ix) {
      grid->At(ix, iy).angle =
          TruncateTo<int16_t>(std::max(SlopeAlongX(*grid, ix, iy), SlopeAlongY(*grid, ix, iy)));
    }
  }
}

Status BuildMaster(const CMasterDlg& input, NcProgram* program, MasterGrid* grid,
                   Progress* progress) {
  BlockStore* store = &program->store;
  BuildPlan plan{};
  if (Status planned = PlanBuild(input, store, &plan); !planned.ok()) return planned;
  DropMaster(grid);  // first, so that two grids never share the memory
  grid->ToolSize = plan.ToolSize;
  grid->OriginX = plan.OriginX;
  grid->OriginY = plan.OriginY;
  grid->MinZ = plan.minimum.z;
  grid->ModelBuilt = 1;
  grid->CellSize = input.MasterTolerance / static_cast<float>(plan.refinement);
  ShiftPath(store, grid->OriginX, grid->OriginY);
  CleanPlunges(store);
  if (!SizeGrid(store, plan.refinement, grid)) return StatusKind::kNoMemory;
  if (!SamplePath(store, grid, progress)) {
    DropMaster(grid);
    return StatusKind::kStopped;
  }
  FillGaps(grid);
  ThinOut(grid, plan.refinement, input.MasterTolerance);
  MasterAngles(grid);
  IndexCells(grid);
  ShowMaster(*grid, program);
  return {};
}

}  // namespace tvx
