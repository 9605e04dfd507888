// Fuzzes the reader of master model files. A model that was read is written, looked up, shown, and
// used by the feed pass. The input is a master model file.

#include "feed/master_pass.h"
#include "fuzz_world.h"
#include "master/master_file.h"
#include "master/master_lookup.h"
#include "master/master_picture.h"
#include "model/nc_program.h"

namespace {

using namespace tvx;

// A model that was read is complete, and writing it reproduces the file except for reserved bytes.
void CheckFile(const MasterGrid& grid, std::string_view bytes, FuzzFiles* files) {
  Require(grid.CellCount > 0 && grid.CellCount == grid.NX * grid.NY && grid.CellSize > 0);
  Require(WriteMasterFile("c:\\fuzz.mma", grid, files).ok());
  const std::string_view written = files->written;
  Require(written.size() == bytes.size());
  Require(written.substr(100, 44) == bytes.substr(100, 44));
  Require(written.substr(148, 4) == bytes.substr(148, 4));
  Require(written.substr(156) == bytes.substr(156));
}

// Lookups near the middle of the grid and far away give the same angle with and without the
// pyramid.
void CheckLookups(MasterGrid* grid) {
  const float size = grid->CellSize;
  const float middleX = grid->OriginX + size * static_cast<float>(grid->NX / 2);
  const float middleY = grid->OriginY + size * static_cast<float>(grid->NY / 2);
  const float z = grid->Cells[static_cast<size_t>(grid->CellCount) / 2].z;
  for (const float radius : {0.0F, size, 20 * size, 5.0F, 3e38F}) {
    for (const Vec3& point : {Vec3{middleX, middleY, z - 1}, Vec3{middleX, middleY, z},
                              Vec3{0, 0, -1e9F}, Vec3{-3e38F, 3e38F, 0}}) {
      const auto lookup = [&] {
        int32_t angle = 0;
        MasterLookup(*grid, point, radius, &angle);
        return angle;
      };
      IndexCells(grid);
      const int32_t fast = lookup();
      grid->Pyramid.levels.clear();
      Require(lookup() == fast);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes = AsText(data, size);
  FuzzFiles files(bytes);
  MasterGrid grid;
  if (!ReadMasterFile("c:\\fuzz.mma", &grid, &files).ok()) {
    Require(grid.Cells.Empty() && grid.CellCount == 0);
    return 0;
  }
  CheckFile(grid, bytes, &files);
  CheckLookups(&grid);
  NcProgram program;
  ShowMaster(grid, &program);
  const JobRecord job;
  const PathIndex path(&program.store);
  FeedRecords records(path, 0, path.BlockCount());
  MasterPass(path, job, grid).SlowMoves(0, path.BlockCount(), &records);
  return 0;
}
