// The steps of one program from its file to its result: load, adjust, count, and what else is
// wanted. The commands of a window, the run over a job list and the tool all take these. They need
// no window and show nothing.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "evaluate/program_checks.h"
#include "evaluate/program_result.h"
#include "feed/feed_pass.h"
#include "insight/feed_causes.h"
#include "master/master_grid.h"
#include "model/job_record.h"
#include "model/loader.h"
#include "model/nc_program.h"
#include "model/parser_state.h"
#include "platform/files/files.h"
#include "platform/progress.h"
#include "view/path_drawing.h"

namespace tvx {

// What the steps work on, owned by the caller. The pointers without a default must be set.
struct ProgramWork {
  NcProgram* program;
  JobRecord* job;                      // the options; a load corrects an InputFileType that is none
  FeedPassMemory* feedPassMemory;      // what one pass leaves for the next
  const MasterGrid* master = nullptr;  // null is the same as a grid without a model
  Progress* progress = NoProgress();
  unsigned threads = 1;  // that an adjustment may use at most; the result does not depend on it
  FeedCauses* causes = nullptr;             // follow each adjustment
  const MachineProfile* machine = nullptr;  // the one that was chosen
  const ViewState* view = nullptr;          // that pictures show; required only if they are wanted
  // For ReadProgram only.
  ParserStates* parserStates = nullptr;
  ProgramChecks* checks = nullptr;  // begin with each load; null if no program is checked
  Files* files = nullptr;
};

// Reads an NC file into the store, by its drive path or relative to the current directory. The
// causes are cleared, and the check of the program can begin. Returns what LoadNcFile returned.
Status ReadProgram(const std::string& path, const ProgramWork& work);

// Copies what the other steps read of a program, not where its lines are: an adjustment overwrites
// the programmed feeds, so that each set of options needs a copy. Returns false, with a part of the
// program, if no memory can be had.
bool CopyProgram(const NcProgram& from, NcProgram* to);

// Adjusts the feeds by the options and the master model. The trace receives each change; without
// one, the causes do. Returns false if the user stopped it, which leaves a part of the feeds as
// they were.
bool AdjustFeeds(const ProgramWork& work, const FeedTrace& trace = {});

struct Evaluation {
  bool adjusts = false;  // the feeds first
  Wanted wanted = {};
  std::shared_ptr<const FileCheck> check = {};  // of the program, done or not; null for none
  // Called once the feeds are in force, before the figures, which end with the register on the last
  // block.
  std::function<void()> onAdjusted = {};
};

// Makes the result of the program in the store. Its names are empty. Returns nothing if the user
// stopped it, as AdjustFeeds.
std::optional<ProgramResult> Evaluate(const ProgramWork& work, const Evaluation& evaluation);

// Adds what is wanted beside the figures to a result of the program in the store, whose feeds are
// those of the result. Evaluate does it; call it where only the figures were made at first. The
// program, its register and the view stay as they are.
void AddWanted(const ProgramWork& work, const Wanted& wanted, ProgramResult* result);

}  // namespace tvx
