// The question that the feed pass asks the master model.
#pragma once

#include <cstdint>

#include "master/master_grid.h"
#include "model/vectors.h"

namespace tvx {

// The steepest surface around a point of the world and above it: the largest angle, in degrees, of
// the cells higher than point.z in the square of `radius` mm around the grid line nearest to the
// point. Returns true and sets *angle, or false with *angle unchanged if no such cell has an angle
// above 0, or the grid has no cells.
bool MasterLookup(const MasterGrid& grid, const Vec3& point, float radius, int32_t* angle);

}  // namespace tvx
