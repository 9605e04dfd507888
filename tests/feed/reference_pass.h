// The feed adjustment written the plain way: every walk goes block by block through the register.
// Far too slow for real programs, and the measure of the fast one, which has to leave the same
// bytes.
#pragma once

#include "feed/feed_pass.h"
#include "model/block_store.h"
#include "model/job_record.h"

namespace tvx {

// FeedPass, with a lookup in the master model that visits every cell.
void ReferencePass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
                   FeedPassMemory* memory);

}  // namespace tvx
