// Master model files: a finished grid without the points of its build.
#pragma once

#include <string>

#include "feed/master_grid.h"
#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

// Writes the model of a grid, in place of an older file of that name, which stays whole until the
// new one is complete. Returns 1; 0 with a message if the file cannot be written. A grid without a
// model is not written: 0 without a message, and an older file stays.
int WriteMasterFile(const std::string& path, const MasterGrid& grid, Files* files,
                    UserInterface* ui);

// Reads a model in place of the one in the grid. The points of the build are not in a file: x and y
// of the cells are -9999. Returns 1; 0 with a message and the grid as it was if the file cannot be
// opened, is no master file, or there is no memory for its cells. A master file has counts that fit
// each other and the size of the file, a cell size above 0, and only finite values.
int ReadMasterFile(const std::string& path, MasterGrid* grid, Files* files, UserInterface* ui);

}  // namespace tvx
