// Sub-pass of the feed adjustment that slows moves near steep walls of the master model.
#pragma once

#include <cstdint>

#include "master/master_grid.h"
#include "model/block_store.h"
#include "model/job_record.h"

namespace tvx {

// Lowers the feeds of the straight cuts among the blocks `first` up to but not including `end`, and
// of the moves that follow them, where the master model is steep near the move and above it.
//
// Reads SafetyDistance (reach of the zones, mm; as the search radius and the sampling step at least
// 1), SlopeMinAngle, SlopeMaxRatio, the three SideWeights and MaxFeed of the job. The caller tests
// AfaByMaster. Without a model every lookup finds nothing.
//
// *lastNextBlock is the following move that was handled last. It is 0 when the process starts and
// is kept from batch to batch and from pass to pass.
void MasterSubPass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
                   uint32_t first, uint32_t end, uint32_t* lastNextBlock);

}  // namespace tvx
