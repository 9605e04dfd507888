// The commands of a view: what each action does, from its dialog to its result.

#include "session/view_operations.h"

#include "base/path_text.h"
#include "platform/files/drives.h"
#include "platform/files/user_files.h"
#include "session/cut_time_commands.h"
#include "session/job_list_run.h"
#include "session/master_commands.h"
#include "session/messages.h"
#include "view/picture.h"

namespace tvx {

namespace {

// The save form lets a name be typed that does not exist. The only place that creates an NC file,
// and not without a question: most such names are typing errors.
bool CreateIfMissing(const std::string& path, const CTVXApp& app) {
  if (app.files->Exists(path)) return true;
  if (!app.ui->ShowMessage({.text = app.ui->Say({"화일이 없습니다. 만들겠습니까?",
                                                 "The file does not exist. Create it?"}),
                            .path = path,
                            .caption = app.ui->Say({"불러오기", "Load"}),
                            .icon = MessageIcon::kQuestion,
                            .buttons = MessageButtons::kYesNo})) {
    return false;
  }
  // If this fails, so does the load, which shows it.
  static_cast<void>(app.files->OpenOrCreateForReading(path));
  return true;
}

// The chooser leaves the current directory at the chosen file.
void Load(CTVXView* view, int /*argument*/) {
  std::string path;
  const FileQuestion question{.save = true,
                              .defaultExtension = "*",
                              .fileName = "",
                              .filter = "Nc file (*.nc)|*.nc|모든 화일(*.*)|*.*||",
                              .directory = "",
                              .title = "불러오기",
                              .acceptLabel = "불러오기",
                              .opens = true};
  if (!view->app->ui->ChooseFile(question, &path)) return;
  if (CreateIfMissing(path, *view->app)) static_cast<void>(LoadProgram(view, path));
}

// Only the name of the chosen path is used: the picture is written into the current directory.
void MakePicture(CTVXView* view, int /*argument*/) {
  std::string path;
  const FileQuestion question{.save = true,
                              .defaultExtension = "emf",
                              .fileName = "*.emf",
                              .filter = "Meta file (*.emf)|*.emf|모든 화일(*.*)|*.*||",
                              .directory = ""};
  if (!view->app->ui->ChooseFile(question, &path)) return;
  const std::string name = NameOfPath(path, kAnySlash);
  if (!MayReplace(name, IsMetafile, view->app->files, view->app->ui)) return;
  const WorkScope work(view->app->ui->LongWork(), Work::kWritePicture, name);
  const Status written =
      WritePictureFile(PictureFormat::kMetafile, name, view->Picture(), view->app->files);
  ShowWritten(written, AbsoluteDrivePath(view->app->files->CurrentDirectory(), name),
              view->app->ui);
}

void ShowResultList(CTVXView* view, int /*argument*/) {
  view->dialogs.results.Open();
  view->app->ui->RunModal(&view->dialogs.results);
  view->changes.Note(Change::kResult);
}

template <void (*command)(const MasterContext&)>
void RunMaster(CTVXView* view, int /*argument*/) {
  command(MasterContextOf(view));
  // The moves of a model that is shown come from no file.
  if (view->program.source.path.empty()) view->SetNames("", "");
}

template <void (ViewCommands::*command)()>
void RunPicture(CTVXView* view, int /*argument*/) {
  (ViewCommandsOf(view).*command)();
}

void ShowViewMode(CTVXView* view, int mode) {
  ViewCommandsOf(view).ShowViewMode(mode);
}

constexpr bool kPictureOnly = false;

const ViewCommand kCommands[] = {
    {CommandId::kLoad, &Load, 0, "Nc data 화일 불러오기."},
    {CommandId::kWritePicture, &MakePicture},
    {CommandId::kPlainCutTime, [](CTVXView*, int) {}},
    {CommandId::kSingleCutTime, [](CTVXView* view, int) { SingleCutTimeCommand(view); }},
    {CommandId::kRunJobList, [](CTVXView* view, int) { RunJobList(view); }},
    {CommandId::kResultList, &ShowResultList},
    {CommandId::kMasterBuild, &RunMaster<MakeMasterCommand>, 0, "AFA를 위한 마스터 모델 생성"},
    {CommandId::kMasterDelete,
     [](CTVXView* view, int) { DeleteMaster(&view->masterGrid, view->app->ui); }, 0,
     "AFA를 위한 마스터 모델 삭제"},
    {CommandId::kMasterSave, &RunMaster<SaveMasterCommand>, 0, "AFA를 위한 마스터 모델 저장"},
    {CommandId::kMasterLoad, &RunMaster<LoadMasterCommand>, 0, "AFA를 위한 마스터 모델 불러오기"},
    {CommandId::kViewTop, &ShowViewMode, 1, "", kPictureOnly},
    {CommandId::kViewFront, &ShowViewMode, 2, "", kPictureOnly},
    {CommandId::kViewRight, &ShowViewMode, 3, "", kPictureOnly},
    {CommandId::kViewIsometric, &ShowViewMode, 4, "", kPictureOnly},
    {CommandId::kViewIsometric2, &ShowViewMode, 5, "", kPictureOnly},
    {CommandId::kViewIsometric3, &ShowViewMode, 6, "", kPictureOnly},
    {CommandId::kViewIsometric4, &ShowViewMode, 7, "", kPictureOnly},
    {CommandId::kFit, &RunPicture<&ViewCommands::Fit>, 0, "", kPictureOnly},
    {CommandId::kRedraw, &RunPicture<&ViewCommands::Redraw>, 0, "", kPictureOnly},
    {CommandId::kToggleRapids, &RunPicture<&ViewCommands::ToggleRapids>, 0, "", kPictureOnly},
};

}  // namespace

ViewCommands ViewCommandsOf(CTVXView* view) {
  return {&view->program, &view->job, &view->view, &view->changes, view->app->ui};
}

const ViewCommand* FindViewCommand(CommandId id) {
  for (const ViewCommand& command : kCommands) {
    if (command.id == id) return &command;
  }
  return nullptr;
}

void RunViewCommand(CTVXView* view, CommandId id) {
  const ViewCommand* const command = FindViewCommand(id);
  if (command == nullptr) return;
  command->run(view, command->argument);
  view->changes.Settle();
}

Status LoadProgram(CTVXView* view, const std::string& path) {
  view->UseFormatOf(path);
  Status loaded = view->Load(path);
  ShowLoadFailure(loaded, view->program, path, view->app->ui);
  ViewCommandsOf(view).Fit();
  return loaded;
}

void OpenCommandPad(CTVXView* view) {
  const auto run = [view](CommandId id) { return [view, id] { RunViewCommand(view, id); }; };
  const PadActions actions{.runJobList = run(CommandId::kRunJobList),
                           .showResultList = run(CommandId::kResultList),
                           .showOptions = [view] {
                             COptionDlg& options = view->dialogs.options;
                             options.Open(&view->job, view->app->configuration.EnvDir);
                             view->app->ui->RunModal(&options);
                             view->changes.Note(Change::kOptions);
                           }};
  ViewCommandsOf(view).PressLeft(&view->dialogs.commandPad, actions);
  view->changes.Settle();
}

}  // namespace tvx
