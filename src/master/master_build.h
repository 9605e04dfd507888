// Builds a master model: converts the moves of the program that cuts the final surface to a regular
// grid of heights with a surface angle at each cell.
#pragma once

#include <cstdint>
#include <span>

#include "master/master_grid.h"
#include "model/nc_program.h"
#include "platform/progress.h"
#include "platform/user_interface.h"

namespace tvx {

// Input of a build. Keeps its values from one use to the next.
class CMasterDlg : public Dialog {
 public:
  float MasterToolDiameter = 10.0F;  // mm
  float MasterAllowance = 0.0F;      // mm
  float MasterTolerance = 1.0F;      // cell size of the finished grid, mm
};

struct MasterDlgField {
  const char* label;
  float CMasterDlg::*member;
};

// The fields of the dialog in their order.
std::span<const MasterDlgField> MasterDlgFields();

// Builds the model from the program in the store, drops an older one, and leaves the wire picture
// of the model in the store (see ShowMaster).
//
// It is refused, with everything unchanged, with
// - kFewBlocks for fewer than 5 blocks in the store;
// - kNoCut for a program without a straight cut;
// - kTooWide for a part that would leave the range of coordinates;
// - kBadSizes for a tolerance that is not positive or so small that the part gives no refinement,
//   or for sizes that are not finite.
// It is given up with kNoMemory or kStopped: there is no model, and the program in the store is in
// grid coordinates and has lost its plunges, so that it has to be loaded again.
Status BuildMaster(const CMasterDlg& input, NcProgram* program, MasterGrid* grid,
                   Progress* progress = NoProgress());

// The stages of a build, in their order. Until ThinOut the grid's CellSize is the fine one; from
// ShiftPath on the program in the store is in grid coordinates.

// How many times finer than the finished grid the grid is built: at most 5, less where the fine
// cells would exceed the budget of memory, 0 if even the finished grid exceeds it. `columns` and
// `rows` are those of the finished grid.
int32_t Refinement(double columns, double rows);

// Subtracts an origin, mm, from the coordinates of all moves.
void ShiftPath(BlockStore* store, float OriginX, float OriginY);

// Removes the straight plunges: the last block of a plunge becomes a rapid, those before it become
// no moves, and the next move starts a cut. A plunge that no move leaves stays as it is.
void CleanPlunges(BlockStore* store);

// Allocates the fine cells that the path needs, at least k in each direction, and stores the path's
// highest point. Returns false, without a model, if there is no memory for the cells.
bool SizeGrid(BlockStore* store, int32_t k, MasterGrid* grid);

// Stores in each cell the path's point nearest to the cell's node. Returns false if it was stopped.
bool SamplePath(BlockStore* store, MasterGrid* grid, Progress* progress = NoProgress());

// Fills the empty cells between two cells of a row or column that lie less than 4 mm apart.
void FillGaps(MasterGrid* grid);

// Keeps every k-th cell of every k-th row. CellSize becomes the finished one.
void ThinOut(MasterGrid* grid, int32_t k, float CellSize);

// Sets the surface angle of each cell except those of row 0 and column 0.
void MasterAngles(MasterGrid* grid);

}  // namespace tvx
