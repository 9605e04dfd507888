#include "shell/view_operations.h"

#include "base/path_text.h"
#include "shell/cut_time_commands.h"
#include "shell/job_list_run.h"
#include "shell/master_commands.h"
#include "shell/program_loading.h"
#include "view/picture.h"

namespace tvx {

namespace {

Scene SceneOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view};
}

// The save form lets a name be typed that does not exist; the load then creates that file. The
// chooser leaves the current directory at the chosen file.
void Load(CTVXView* view, int /*argument*/) {
  std::string path;
  const FileQuestion question{.save = true,
                              .defaultExtension = "*",
                              .fileName = "",
                              .filter = "Nc file (*.nc)|*.nc|모든 화일(*.*)|*.*||",
                              .directory = "",
                              .title = "불러오기",
                              .acceptLabel = "불러오기"};
  if (view->app->ui->ChooseFile(question, &path)) LoadProgram(view, path);
}

// The picture lands in the current directory, under the name alone.
void MakePicture(CTVXView* view, int /*argument*/) {
  std::string path;
  const FileQuestion question{.save = true,
                              .defaultExtension = "",
                              .fileName = "*.emf",
                              .filter = "Meta file (*.emf)|*.emf|모든 화일(*.*)|*.*||",
                              .directory = ""};
  if (!view->app->ui->ChooseFile(question, &path)) return;
  WritePicture(NameOfPath(path, kAnySlash), SceneOf(view), view->app->files);
}

void ShowResultList(CTVXView* view, int /*argument*/) {
  view->cutTimeList.Open();
  view->app->ui->RunModal(&view->cutTimeList);
}

struct Operation {
  Action action;
  void (*run)(CTVXView* view, int argument);
};

const Operation kOperations[] = {
    {Action::kNothing, [](CTVXView*, int) {}},
    {Action::kLoad, &Load},
    {Action::kWritePicture, &MakePicture},
    {Action::kRunJobList, [](CTVXView* view, int) { RunJobList(view); }},
    {Action::kSingleCutTime, [](CTVXView* view, int) { SingleCutTimeCommand(view); }},
    {Action::kResultList, &ShowResultList},
    {Action::kMasterBuild, [](CTVXView* view, int) { MakeMasterCommand(MasterContextOf(view)); }},
    {Action::kMasterDelete,
     [](CTVXView* view, int) { DeleteMaster(&view->masterGrid, view->app->ui); }},
    {Action::kMasterSave, [](CTVXView* view, int) { SaveMasterCommand(MasterContextOf(view)); }},
    {Action::kMasterLoad, [](CTVXView* view, int) { LoadMasterCommand(MasterContextOf(view)); }},
    {Action::kViewMode, [](CTVXView* view, int mode) { ViewCommandsOf(view).ShowViewMode(mode); }},
    {Action::kFit, [](CTVXView* view, int) { ViewCommandsOf(view).Fit(); }},
    {Action::kRedraw, [](CTVXView* view, int) { ViewCommandsOf(view).Redraw(); }},
    {Action::kToggleRapids, [](CTVXView* view, int) { ViewCommandsOf(view).ToggleRapids(); }},
};

const Operation* FindOperation(Action action) {
  for (const Operation& operation : kOperations) {
    if (operation.action == action) return &operation;
  }
  return nullptr;
}

}  // namespace

ViewCommands ViewCommandsOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view, view->app->ui};
}

bool IsViewAction(Action action) {
  return FindOperation(action) != nullptr;
}

void RunViewAction(CTVXView* view, Action action, int argument) {
  const Operation* const operation = FindOperation(action);
  if (operation != nullptr) operation->run(view, argument);
}

LoadResult LoadProgram(CTVXView* view, const std::string& path) {
  view->fileName = NameOfPath(path, kAnySlash);
  view->filePath = path;
  const LoadResult result = LoadIntoView(view, path);
  if (result == LoadResult::kLoaded) ++view->loads;
  FitToPath(&view->view.transform, &view->program.store, view->app->ui);
  return result;
}

void OpenCommandPad(CTVXView* view) {
  const auto run = [view](Action action) {
    return [view, action] { RunViewAction(view, action); };
  };
  const PadActions actions{.runJobList = run(Action::kRunJobList),
                           .showResultList = run(Action::kResultList),
                           .showOptions = [view] {
                             view->optionDialog.Open(&view->job, view->app->configuration.EnvDir);
                             view->app->ui->RunModal(&view->optionDialog);
                           }};
  ViewCommandsOf(view).PressLeft(&view->commandPad, actions);
}

}  // namespace tvx
