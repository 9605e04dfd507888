// The steps, each a call of the layer that does the work.

#include "shell/program_steps.h"

#include "stats/cut_time.h"

namespace tvx {

ProgramContext ProgramContextOf(CTVXView* view) {
  CTVXApp* const app = view->app;
  return {.program = &view->program,
          .job = &view->job,
          .master = &view->masterGrid,
          .transform = &view->view.transform,
          .current = &view->fileInfo.current,
          .parserStates = &app->parserStates,
          .feedPassMemory = &app->feedPassMemory,
          .files = app->files,
          .ui = app->ui};
}

Scene SceneOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view};
}

LoadResult LoadFile(const ProgramContext& context, const std::string& path) {
  return LoadNcFile(path, context.program, context.parserStates, context.job, context.files);
}

void AdjustFeeds(const ProgramContext& context, const FeedTrace& trace) {
  FeedPass(context.program, *context.job, context.master, context.feedPassMemory, trace);
}

void CountTimes(const ProgramContext& context) {
  ComputeCutTime(&context.program->store, *context.job, context.current);
}

void AdjustFitCount(const ProgramContext& context, bool adjusts) {
  if (adjusts) AdjustFeeds(context);
  FitToPath(context.transform, &context.program->store);
  context.ui->Repaint();
  CountTimes(context);
}

}  // namespace tvx
