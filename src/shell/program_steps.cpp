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
          .ui = app->ui};
}

Scene SceneOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view};
}

LoadResult LoadFile(CTVXView* view, const std::string& path) {
  ParserStates* const states = &view->app->parserStates;
  const LoadStart start = TakeLoadStart(view->program, *states);
  const LoadResult result = LoadNcFile(path, &view->program, states, &view->job, view->app->files);
  view->check.Restart(view->program.source, start, view->job);
  view->filePath = result == LoadResult::kCannotOpen ? "" : path;
  view->fileName = NameOfPath(view->filePath, kAnySlash);
  return result;
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
