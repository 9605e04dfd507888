// Random programs and parameter sets that reach the odd corners of the feed adjustment.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "model/block_store.h"
#include "model/job_record.h"

namespace tvx {

using Random = std::mt19937;

// At least `moves` blocks of runs of every kind: straight, turning and circling moves from much
// shorter to much longer than the look distance, lattices whose distances are exact, doubled
// points, plunges, rapids, arcs, lines without a move, bad records and places far off.
std::vector<MotionBlock> RandomProgram(Random* random, size_t moves);

// A parameter set, now and then with values that no dialog would give.
JobRecord RandomJob(Random* random);

// Replaces the program in the store.
void Fill(BlockStore* store, const std::vector<MotionBlock>& blocks);

// All stored blocks as they stand.
std::vector<MotionBlock> Contents(const BlockStore& store);

}  // namespace tvx
