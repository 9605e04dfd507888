#include "shell/job_list_run.h"

#include "feed/feed_pass.h"
#include "jobs/option_line.h"
#include "shell/cut_time_commands.h"
#include "shell/master_commands.h"
#include "shell/program_loading.h"
#include "stats/cut_time.h"
#include "view/view_transform.h"

namespace tvx {

namespace {

// Window class of the transfer program.
constexpr char kTransferWindow[] = "TRNW";
constexpr char kMasterEnding[] = ".mma";
constexpr int32_t kDefaultSpindle = 1000;  // 1/min

size_t EntryCount(const JobRecord& job) {
  size_t count = 0;
  while (count < job.FileNames.size() && !job.FileNames[count].empty()) ++count;
  return count;
}

bool Load(CTVXView* view, const std::string& path, RunObserver* observer) {
  if (!observer->MayLoad(path)) {
    EmptyProgram(&view->program);
    return false;
  }
  return LoadIntoView(view, path) == LoadResult::kLoaded;
}

// The NC file that a missing model is built from: the model's path up to its first ending.
std::string ProgramOfMaster(const std::string& masterPath) {
  return masterPath.substr(0, masterPath.find(kMasterEnding));
}

// The model of an entry: read, or built from its NC file and written. Returns false if there is
// none afterwards.
bool BringMaster(CTVXView* view, const std::string& masterPath, RunObserver* observer) {
  const MasterContext context = MasterContextOf(view);
  DropMaster(context.grid);
  if (context.files->Exists(masterPath)) return ReadMaster(masterPath, context);
  if (!Load(view, ProgramOfMaster(masterPath), observer)) return false;
  if (BuildAndShowMaster(context) != BuildResult::kBuilt) return false;
  return WriteMaster(masterPath, context);
}

// A negative speed comes from the condition file only.
int32_t SpindleSpeedOf(const CTVXApp& app) {
  return app.rememberedSpindle < 0 ? kDefaultSpindle : app.rememberedSpindle;
}

void RunEntry(CTVXView* view, size_t index, std::string* lastMaster, RunObserver* observer) {
  const std::string line = view->job.OptionLines[index];
  ParseOptionLine(&view->job, line, view->transferDialog.LastLineFile());
  std::string directory;
  LineDirectory(line, &directory);
  const std::string name = view->job.FileNames[index];
  const std::string path = directory + "\\" + name;

  const std::string& master = view->job.AfaMasterFile;
  if (view->job.AfaByMaster == 1 && NamesMasterFile(master) && master != *lastMaster) {
    if (!BringMaster(view, master, observer)) observer->OnMasterFailed(master);
    *lastMaster = master;
  }
  if (!Load(view, path, observer)) observer->OnLoadFailed(path);
  if (view->job.AfaEnabled == 1) {
    FeedPass(&view->program, view->job, &view->masterGrid, &view->app->feedPassMemory);
  }
  FitToPath(&view->view.transform, &view->program.store);
  view->app->ui->Repaint();
  CutTimeEntry& current = view->fileInfo.current;
  ComputeCutTime(&view->program.store, view->job, &current);
  current.fileName = name;
  current.optionLine = line;
  current.dirName = directory;
  RecordResultEntry(view);
}

}  // namespace

void RunJobList(CTVXView* view, RunObserver* observer) {
  CTVXApp* const app = view->app;
  CTransferDlg& dialog = view->transferDialog;
  view->job.KeyCodeOn = view->job.KeyCodeCount = view->job.FirstEditable = 0;
  CopyJobRecord(kJobSlot, &app->JobSlots[kJobSlot], view->job);
  if (app->programs->HasWindowOfClass(kTransferWindow)) {
    app->programs->Quit();
    return;
  }
  dialog.Open({.slot = &app->JobSlots[kJobSlot],
               .working = &view->job,
               .environmentDir = app->configuration.EnvDir,
               .editor = app->configuration.Editor,
               .extensions = &app->ExtensionList,
               .programs = app->programs,
               .spindleSpeed = SpindleSpeedOf(*app)});
  if (!app->ui->RunModal(&dialog)) return;

  app->rememberedSpindle = dialog.SpindleSpeed();
  CopyJobRecord(kJobSlot, &view->job, app->JobSlots[kJobSlot]);
  RunAcceptedList(view, observer);
}

void RunAcceptedList(CTVXView* view, RunObserver* observer) {
  RunObserver nobody;
  if (observer == nullptr) observer = &nobody;
  const size_t count = EntryCount(view->job);
  std::string lastMaster;
  for (size_t i = 0; i < count; ++i) {
    observer->OnEntry(i, count, view->job.FileNames[i]);
    RunEntry(view, i, &lastMaster, observer);
  }
}

}  // namespace tvx
