#include "shell/program_loading.h"

namespace tvx {

LoadResult LoadIntoView(CTVXView* view, const std::string& path) {
  const CTVXApp& app = *view->app;
  const LoadResult result =
      LoadNcFile(path, &view->program, &view->app->parserStates, &view->job, app.files);
  if (result == LoadResult::kCannotOpen) app.ui->ShowMessage({.text = "화일을 열수 없읍니다.\n"});
  return result;
}

}  // namespace tvx
