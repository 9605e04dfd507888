// The wire picture that shows the master model.
#pragma once

#include <cstdint>

#include "master/master_grid.h"
#include "model/nc_program.h"

namespace tvx {

// Replaces the program in the store by the picture: every fifth row and column of the grid, in
// world coordinates, with rapids at 500 mm between the pieces of surface and FeedBase on every
// block. The caller hides the rapids, so that only the surface is drawn. Blocks that do not fit
// into the store are left out. A grid without cells changes nothing.
void ShowMaster(const MasterGrid& grid, NcProgram* program);

}  // namespace tvx
