// The feed adjustment written the plain way: every walk goes block by block through the register.
// Far too slow for real programs, and the measure of the fast one, which has to leave the same
// bytes.
#pragma once

#include "feed/feed_pass.h"
#include "model/block_store.h"
#include "model/job_record.h"

namespace tvx {

// FeedPass without a master model. The rules of the master model themselves are not written anew.
void ReferencePass(BlockStore* store, const JobRecord& job, FeedPassMemory* memory);

}  // namespace tvx
