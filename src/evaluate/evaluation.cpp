// The steps, each a call of the layer that does the work.
#include "evaluate/evaluation.h"

#include "evaluate/result_pictures.h"
#include "stats/cut_time.h"

namespace tvx {

Status ReadProgram(const std::string& path, const ProgramWork& work) {
  const LoadStart start = TakeLoadStart(*work.program, *work.parserStates);
  const WorkScope scope(work.progress, Work::kRead, path, Stopping::kAllowed);
  const Status loaded =
      LoadNcFile(path, work.program, work.parserStates, work.job, work.files, work.progress);
  if (work.causes != nullptr) work.causes->Clear();
  if (work.checks != nullptr) work.checks->Restart(work.program->source, start, *work.job);
  return loaded;
}

bool CopyProgram(const NcProgram& from, NcProgram* to) {
  EmptyProgram(to);
  to->FeedBase = from.FeedBase;
  to->incrementalMode = from.incrementalMode;
  to->arcRadius = from.arcRadius;
  to->lostBlocks = from.lostBlocks;
  to->isIncomplete = from.isIncomplete;
  to->programmed = from.programmed;
  to->source.path = from.source.path;
  to->source.stamp = from.source.stamp;
  to->source.isConversational = from.source.isConversational;
  return to->store.CopyFrom(from.store);
}

bool AdjustFeeds(const ProgramWork& work, const FeedTrace& trace) {
  const bool follows = !trace && work.causes != nullptr;
  const WorkScope scope(work.progress, Work::kAdjust, work.program->source.path);
  return FeedPass(work.program, *work.job, work.master, work.feedPassMemory,
                  follows ? work.causes->Follow(work.program->store.blockCount) : trace,
                  work.progress, {.threads = work.threads});
}

namespace {

// The first adjustment of a program replaces the programmed feeds in the store.
void KeepProgrammed(const ProgramWork& work) {
  NcProgram& program = *work.program;
  if (program.programmed) return;
  const MotionBlock reg = program.store.CurrentBlock;
  CutTimeEntry figures;
  ComputeCutTime(&program.store, *work.job, &figures);
  program.store.CurrentBlock = reg;
  program.programmed = {figures.cutMinutes, figures.averageFeed, program.FeedBase};
}

}  // namespace

std::optional<ProgramResult> Evaluate(const ProgramWork& work, const Evaluation& evaluation) {
  if (evaluation.adjusts) {
    if (evaluation.wanted.programmed) KeepProgrammed(work);
    if (!AdjustFeeds(work)) return std::nullopt;
  }
  if (evaluation.onAdjusted) evaluation.onAdjusted();
  ProgramResult result;
  ComputeCutTime(&work.program->store, *work.job, &result.entry);
  // Without work under way the stop is that of an earlier one.
  if (work.progress->IsUnderWay() && work.progress->IsStopped()) return std::nullopt;
  result.programmed = work.program->programmed;
  result.check = evaluation.check;
  const bool isUnchecked = evaluation.wanted.check && result.check != nullptr &&
                           result.check->state == CheckState::kCannotRead;
  result.isIncomplete = work.program->isIncomplete || isUnchecked;
  AddWanted(work, evaluation.wanted, &result);
  return result;
}

void AddWanted(const ProgramWork& work, const Wanted& wanted, ProgramResult* result) {
  NcProgram& program = *work.program;
  const bool isFollowed = work.job->AfaEnabled == 1 && work.causes != nullptr &&
                          work.causes->Knows(program.store.blockCount);
  if (wanted.causes && isFollowed) {
    result->causes = CountCauses(&program.store, program.FeedBase, *work.causes);
  }
  if (wanted.machine && work.machine != nullptr) {
    result->machine = {*work.machine, ComputeMachineTime(&program.store, *work.machine)};
  }
  if (wanted.sheetPicture) DrawSheetPicture(work, &result->pictures);
  if (wanted.workbookPicture) DrawWorkbookPicture(work, &result->pictures);
}

}  // namespace tvx
