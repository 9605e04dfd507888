// Rows and columns of the grid as runs of cuts, with rapids over the cells without surface.
#include "master/master_picture.h"

#include "model/walks.h"

namespace tvx {

namespace {

constexpr float kAbovePart = 500.0F;  // mm
constexpr int32_t kLineStep = 5;      // cells between the lines, and between their points

// Appends the blocks of the picture to the store. The register holds the last one.
class Picture {
 public:
  Picture(const MasterGrid& grid, NcProgram* program) : grid_(grid), store_(&program->store) {
    program->source = {};
    program->programmed.reset();
    ++program->edition;
    store_->blockCount = 0;
    store_->CurrentBlock = {};
    store_->CurrentBlock.feedProgrammed = store_->CurrentBlock.feed = program->FeedBase;
    Append(BlockRapidStart, kAbovePart);
  }

  void Row(int32_t iy) {
    Approach(1, iy);
    for (int32_t ix = 1; ix < grid_.NX; ix += kLineStep) Point(ix, iy);
    Append(BlockRapidStart, kAbovePart);
  }

  void Column(int32_t ix) {
    Approach(ix, 1);
    for (int32_t iy = 1; iy < grid_.NY; iy += kLineStep) Point(ix, iy);
    Append(BlockRapidStart, kAbovePart);
  }

  // From the coordinates of the grid to those of the world.
  void MoveToOrigin() {
    for (uint32_t i = 0; i < store_->blockCount; ++i) {
      if (!IsMoveBlock(store_, i)) continue;
      store_->CurrentBlock.x += grid_.OriginX;
      store_->CurrentBlock.y += grid_.OriginY;
      store_->WriteBlock(i);
    }
  }

 private:
  void Append(BlockType type, float z) {
    store_->CurrentBlock.type = type;
    store_->CurrentBlock.z = z;
    if (store_->WriteBlock(store_->blockCount)) ++store_->blockCount;
  }

  // A grid of a single row or column has no cell where a line starts.
  bool SurfaceAt(int32_t ix, int32_t iy, float* z) const {
    if (ix >= grid_.NX || iy >= grid_.NY || !HasHeight(grid_.At(ix, iy))) return false;
    *z = grid_.At(ix, iy).z;
    return true;
  }

  void GoTo(int32_t ix, int32_t iy) {
    store_->CurrentBlock.x = static_cast<float>(static_cast<double>(ix) * grid_.CellSize);
    store_->CurrentBlock.y = static_cast<float>(static_cast<double>(iy) * grid_.CellSize);
  }

  void Approach(int32_t ix, int32_t iy) {
    GoTo(ix, iy);
    Append(BlockRapidStart, kAbovePart);
    float z = kAbovePart;
    SurfaceAt(ix, iy, &z);
    Append(BlockRapid, z);
  }

  void Point(int32_t ix, int32_t iy) {
    GoTo(ix, iy);
    float z = kAbovePart;
    if (!SurfaceAt(ix, iy, &z)) {
      Append(BlockRapidStart, z);
    } else if (IsRapidType(store_->CurrentBlock.type)) {
      Append(BlockRapid, z);
      Append(BlockCutStart, z);
    } else {
      Append(BlockCut, z);
    }
  }

  const MasterGrid& grid_;
  BlockStore* store_;
};

}  // namespace

void ShowMaster(const MasterGrid& grid, NcProgram* program) {
  if (grid.Cells.Empty()) return;
  Picture picture(grid, program);
  for (int32_t iy = 1; iy < grid.NY; iy += kLineStep) picture.Row(iy);
  for (int32_t ix = 1; ix < grid.NX; ix += kLineStep) picture.Column(ix);
  picture.MoveToOrigin();
}

}  // namespace tvx
