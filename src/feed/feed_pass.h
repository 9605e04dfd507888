// The automatic feed adjustment: replaces the programmed feeds by the job's MaxFeed and lowers it
// at slopes, near steep walls of the master model, at corners and on small arcs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "feed/corner_search.h"
#include "master/master_grid.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "platform/progress.h"

namespace tvx {

// State that a run of the pass leaves for the next one. It lives as long as the process: neither a
// load nor another window resets it.
struct FeedPassMemory {
  uint32_t LastNextBlock = 0;  // the next move that the master model's rules handled last
  CornerHeadings headings;
};

enum class FeedRule { kSlope, kMaster, kXyCorner, kZCorner, kArc };
inline constexpr size_t kFeedRules = 5;

// "slope", "master", "XY corner", "Z corner", "arc".
const char* RuleName(FeedRule rule);

// Callback for each change that a rule makes to the feed or the zones of a block. It explains why a
// move is as slow as it is.
using FeedTrace = std::function<void(FeedRule rule, uint32_t block, const MotionBlock& before,
                                     const MotionBlock& after)>;

// Rewrites feedProgrammed, feed and the zones of the stored moves, and sets FeedBase to MaxFeed.
// Zones of an earlier run over the same load stay and can only become longer or slower. `master`
// may be null, which is the same as a grid without a model. The result does not depend on `trace`.
// Returns false if it was stopped: a part of the blocks then has the feeds of before, and `memory`
// is as it was.
bool FeedPass(NcProgram* program, const JobRecord& job, const MasterGrid* master,
              FeedPassMemory* memory, const FeedTrace& trace = {},
              Progress* progress = NoProgress());

}  // namespace tvx
