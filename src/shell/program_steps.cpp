// The steps, each a call of the layer that does the work.

#include "shell/program_steps.h"

#include "base/path_text.h"
#include "stats/cut_time.h"

namespace tvx {

ProgramContext ProgramContextOf(CTVXView* view) {
  CTVXApp* const app = view->app;
  return {.program = &view->program,
          .job = &view->job,
          .master = &view->masterGrid,
          .transform = &view->view.transform,
          .current = &view->fileInfo.current,
          .feedPassMemory = &app->feedPassMemory,
          .ui = app->ui,
          .causes = view->causes.get(),
          .keepsProgrammed = view->results.wanted.sheet};
}

Scene SceneOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view, view->app->ui->LongWork()};
}

LoadResult LoadFile(CTVXView* view, const std::string& path) {
  ParserStates* const states = &view->app->parserStates;
  const LoadStart start = TakeLoadStart(view->program, *states);
  Progress* const progress = view->app->ui->LongWork();
  const WorkScope work(progress, Work::kRead, path, Stopping::kAllowed);
  const LoadResult result =
      LoadNcFile(path, &view->program, states, &view->job, view->app->files, progress);
  if (view->causes != nullptr) view->causes->Clear();
  view->check.Restart(view->program.source, start, view->job);
  view->filePath = view->program.source.path.empty() ? "" : path;
  view->fileName = NameOfPath(view->filePath, kAnySlash);
  return result;
}

// An adjustment replaces the programmed feeds in the store.
static void KeepProgrammed(const ProgramContext& context) {
  NcProgram& program = *context.program;
  if (!context.keepsProgrammed || program.programmed) return;
  const MotionBlock reg = program.store.CurrentBlock;
  CutTimeEntry figures;
  ComputeCutTime(&program.store, *context.job, &figures);
  program.store.CurrentBlock = reg;
  program.programmed = {figures.cutMinutes, figures.averageFeed};
}

bool AdjustFeeds(const ProgramContext& context, const FeedTrace& trace) {
  KeepProgrammed(context);
  const bool follows = !trace && context.causes != nullptr;
  Progress* const progress = context.ui->LongWork();
  const WorkScope work(progress, Work::kAdjust, context.program->source.path);
  return FeedPass(context.program, *context.job, context.master, context.feedPassMemory,
                  follows ? context.causes->Follow(context.program->store.blockCount) : trace,
                  progress);
}

void CountTimes(const ProgramContext& context) {
  ComputeCutTime(&context.program->store, *context.job, context.current);
}

bool AdjustFitCount(const ProgramContext& context, bool adjusts) {
  const Progress* const progress = context.ui->LongWork();
  if (progress->IsStopped() || (adjusts && !AdjustFeeds(context))) return false;
  FitToPath(context.transform, &context.program->store);
  context.ui->Repaint();
  CountTimes(context);
  return !progress->IsStopped();
}

}  // namespace tvx
