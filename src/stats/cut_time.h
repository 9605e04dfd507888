// Lengths and times of the stored program.
#pragma once

#include "model/block_store.h"
#include "model/job_record.h"
#include "model/result_entry.h"

namespace tvx {

// Works out how far the tool travels in the stored program and how long that takes, cutting and
// rapid apart, by the feeds in force: distance over feed is the whole model. Arcs stand in none of
// the sums; they only move the point from which the next move is measured.
//
// First copies the options of `job` into *entry, then writes its six figures (mm, minutes, mm/min);
// the names in *entry stay as they are. Of `job` the figures use RapidFeed alone. A term whose feed
// is 0 is left out, and without a cutting time averageFeed is 0.
// Looks at every block once, which repairs bad records as reading them does, and leaves the
// register on the last block, or on the move before it if the last one is a straight move.
// Returns 1.
int ComputeCutTime(BlockStore* store, const JobRecord& job, CutTimeEntry* entry);

}  // namespace tvx
