// The automatic feed adjustment: replaces the programmed feeds by the job's MaxFeed and lowers it
// at slopes, near steep walls of the master model, at corners and on small arcs.
#pragma once

#include <cstdint>

#include "feed/corner_search.h"
#include "feed/feed_trace.h"
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

// How the work of a pass is divided. The result does not depend on it.
//
// A pass on several threads cuts the program into parts at edges of batches. A thread begins a part
// without waiting for the part before it: it runs the rules over the last batch before the edge, in
// a copy, and takes what that batch hands on (see PassState). The parts are joined in their order.
// Where a part began with something else than the part before it has left, it is done again.
struct FeedPassDivision {
  unsigned threads = 1;      // at most; a program of less than 20,000 blocks is done by one
  uint32_t partBatches = 0;  // batches in a part, for tests; 0: as many as suit the program

  // What happened, for tests and benchmarks.
  struct Seams {
    uint32_t parts = 0;
    uint32_t redone = 0;
  };
  Seams* seams = nullptr;
};

// Rewrites feedProgrammed, feed and the zones of the stored moves, and sets FeedBase to MaxFeed.
// Zones of an earlier run over the same load stay and can only become longer or slower. `master`
// may be null, which is the same as a grid without a model. The result does not depend on `trace`,
// which is called in the same order for any division, by one thread at a time. `progress` is called
// by the calling thread only.
// Returns false if it was stopped: a part of the blocks then has the feeds of before, and `memory`
// is as it was.
bool FeedPass(NcProgram* program, const JobRecord& job, const MasterGrid* master,
              FeedPassMemory* memory, const FeedTrace& trace = {},
              Progress* progress = NoProgress(), const FeedPassDivision& division = {});

}  // namespace tvx
