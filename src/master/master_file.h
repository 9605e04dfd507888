// Master model files: a finished grid without the points of its build.
#pragma once

#include <string>
#include <string_view>

#include "master/master_grid.h"
#include "platform/files/files.h"

namespace tvx {

// What happened to a master file that was read or written.
enum class MasterFileResult {
  kDone,
  kCannotOpen,
  kNoMasterFile,  // damaged, cut off, or a file of another kind
  kNoMemory,      // none for its cells
  kNoModel,       // there is nothing to write
  kCannotWrite,   // the file cannot be created
  kDiskFull,      // it was created, and not all bytes could be written
};

// How the name of a master file ends, in any letter case.
inline constexpr std::string_view kMasterEnding = ".mma";
bool IsMasterName(std::string_view path);

// Writes the model of a grid, in place of an older file of that name, which stays whole until the
// new one is complete. Returns kDone, kCannotWrite, kDiskFull, or kNoModel for a grid without a
// model. An older file stays as it was unless the result is kDone.
MasterFileResult WriteMasterFile(const std::string& path, const MasterGrid& grid, Files* files);

// True for the first bytes of a master file.
bool IsMasterFile(std::string_view start);

// Reads a model in place of the one in the grid. The points of the build are not in a file: x and y
// of the cells are -9999. Returns kDone, or kCannotOpen, kNoMasterFile or kNoMemory with the grid
// as it was. A master file has counts that fit each other and the size of the file, a cell size
// above 0, and only finite values.
MasterFileResult ReadMasterFile(const std::string& path, MasterGrid* grid, Files* files);

}  // namespace tvx
