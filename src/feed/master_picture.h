// The wire picture by which the user sees the master model.
#pragma once

#include <cstdint>

#include "feed/master_grid.h"
#include "model/nc_program.h"

namespace tvx {

// Lays the picture into the store, in place of the program there: every fifth row and column of the
// grid, in world coordinates, rapids 500 mm high between the pieces of surface and FeedBase on
// every block. The command that shows it hides the rapids, so that only the surface is drawn. What
// finds no room in the store is left out. A grid without cells leaves everything as it is.
void ShowMaster(const MasterGrid& grid, NcProgram* program);

}  // namespace tvx
