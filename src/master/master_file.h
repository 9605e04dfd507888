// Master model files: a finished grid without the points of its build.
#pragma once

#include <string>
#include <string_view>

#include "master/master_grid.h"
#include "platform/files/files.h"

namespace tvx {

// How the name of a master file ends, in any letter case.
inline constexpr std::string_view kMasterEnding = ".mma";
bool IsMasterName(std::string_view path);

// Writes the model of a grid, in place of an older file of that name, which stays whole until the
// new one is complete. Fails with kNoContent for a grid without a model. An older file stays as it
// was if anything fails.
Status WriteMasterFile(const std::string& path, const MasterGrid& grid, Files* files);

// True for the first bytes of a master file.
bool IsMasterFile(std::string_view start);

// Reads a model in place of the one in the grid. The points of the build are not in a file: x and y
// of the cells are -9999. Fails with kWrongFormat for a file that is damaged, cut off or of another
// kind, and with kNoMemory if there is none for its cells; the grid is then as it was. A master
// file has counts that fit each other and the size of the file, a cell size above 0, and only
// finite values.
Status ReadMasterFile(const std::string& path, MasterGrid* grid, Files* files);

}  // namespace tvx
