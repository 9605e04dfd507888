// The automatic feed adjustment: forgets the programmed feeds, gives every move the job's MaxFeed,
// and lowers it at slopes, near steep walls of the master model, at corners and on small arcs.
#pragma once

#include <cstdint>
#include <functional>

#include "feed/corner_search.h"
#include "feed/master_grid.h"
#include "model/job_record.h"
#include "model/nc_program.h"

namespace tvx {

// What a run of the pass leaves for the next one, for as long as the process lives: neither a load
// nor another window resets it.
struct FeedPassMemory {
  uint32_t LastNextBlock = 0;  // the next move that the master model's rules handled last
  CornerHeadings headings;
};

enum class FeedRule { kSlope, kMaster, kXyCorner, kZCorner, kArc };

// "slope", "master", "xy corner", "z corner", "arc".
const char* RuleName(FeedRule rule);

// Is told which rule changed the feed or the zones of which block, for those who ask why a move
// came out as slow as it did.
using FeedTrace = std::function<void(FeedRule rule, uint32_t block, const MotionBlock& before,
                                     const MotionBlock& after)>;

// Rewrites feedProgrammed, feed and the zones of the stored moves, and sets FeedBase to MaxFeed.
// Zones of an earlier run over the same load stay and can only grow or slow further. `master` may
// be null: there is no model then, and none of its surface is found.
void FeedPass(NcProgram* program, const JobRecord& job, const MasterGrid* master,
              FeedPassMemory* memory, const FeedTrace& trace = {});

}  // namespace tvx
