#include "shell/cut_time_commands.h"

#include "feed/feed_pass.h"
#include "stats/cut_time.h"
#include "view/picture.h"
#include "view/view_transform.h"

namespace tvx {

int32_t RecordResultEntry(CTVXView* view) {
  ResultTable& results = view->results;
  const auto index = static_cast<size_t>(results.entryCount);
  if (index >= results.entries.size()) {
    view->app->ui->ShowStatus("결과 목록이 가득 차서 기록하지 않았습니다.");
    return results.entryCount;
  }
  CutTimeEntry& entry = results.entries[index];
  entry = view->fileInfo.current;
  entry.pictureName.clear();
  if (view->job.MetafileCreateChk == 1) {
    entry.pictureName = entry.fileName + ".emf";
    WritePicture(entry.pictureName, {&view->program, &view->job, &view->view}, view->app->files);
  }
  return ++results.entryCount;
}

void SingleCutTimeCommand(CTVXView* view) {
  CTVXApp* const app = view->app;
  app->sendOptions.Open(&view->job);
  if (!app->ui->RunModal(&app->sendOptions)) return;
  FeedPass(&view->program, view->job, &view->masterGrid, &app->feedPassMemory);
  FitToPath(&view->view.transform, &view->program.store);
  app->ui->Repaint();
  ComputeCutTime(&view->program.store, view->job, &view->fileInfo.current);
  view->fileInfo.current.fileName = view->fileName;
  if (!app->ui->RunModal(&view->fileInfo)) return;
  RecordResultEntry(view);
}

}  // namespace tvx
