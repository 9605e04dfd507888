// The steps, each with what the window shows of it.
#include "session/program_steps.h"

#include "base/path_text.h"

namespace tvx {

ProgramWork ProgramWorkOf(CTVXView* view) {
  CTVXApp* const app = view->app;
  return {.program = &view->program,
          .job = &view->job,
          .feedPassMemory = &app->feedPassMemory,
          .master = &view->masterGrid,
          .progress = app->ui->LongWork(),
          .causes = view->causes.get(),
          .machine = app->machine ? &*app->machine : nullptr,
          .view = &view->view,
          .parserStates = &app->parserStates,
          .checks = &view->check,
          .files = app->files};
}

Scene SceneOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view, view->app->ui->LongWork()};
}

Status LoadFile(CTVXView* view, const std::string& path) {
  const Status loaded = ReadProgram(path, ProgramWorkOf(view));
  view->filePath = view->program.source.path.empty() ? "" : path;
  view->fileName = NameOfPath(view->filePath, kAnySlash);
  return loaded;
}

std::optional<ProgramResult> EvaluateAndShow(CTVXView* view, Evaluation evaluation) {
  evaluation.onAdjusted = [view] {
    FitToPath(&view->view.transform, &view->program.store);
    view->app->ui->Repaint();
  };
  return Evaluate(ProgramWorkOf(view), evaluation);
}

}  // namespace tvx
