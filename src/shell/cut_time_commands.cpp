// Adjusts, counts and records the program in the store, with a dialog before each decision.

#include "shell/cut_time_commands.h"

#include "shell/messages.h"
#include "shell/program_steps.h"
#include "view/picture.h"

namespace tvx {

bool RecordResultEntry(const CutTimeEntry& result, const Scene& scene, Files* files,
                       ResultTable* results) {
  const auto index = static_cast<size_t>(results->entryCount);
  if (index >= results->entries.size()) return false;
  CutTimeEntry& entry = results->entries[index];
  entry = result;
  entry.pictureName.clear();
  if (scene.job->MetafileCreateChk == 1) {
    entry.pictureName = entry.fileName + ".emf";
    WritePicture(entry.pictureName, scene, files);
  }
  ++results->entryCount;
  return true;
}

void SingleCutTimeCommand(CTVXView* view) {
  CTVXApp* const app = view->app;
  app->sendOptions.Open(&view->job);
  if (!app->ui->RunModal(&app->sendOptions)) return;
  AdjustFitCount(ProgramContextOf(view), /*adjusts=*/true);
  CutTimeEntry& result = view->fileInfo.current;
  result.fileName = view->fileName;
  if (!app->ui->RunModal(&view->fileInfo)) return;
  if (!RecordResultEntry(result, SceneOf(view), app->files, &view->results)) {
    ShowTableFull(app->ui);
  }
}

}  // namespace tvx
