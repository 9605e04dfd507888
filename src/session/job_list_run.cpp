// A run reads an entry's options from its line, and then works like the command of a single cut
// time without its dialogs.

#include "session/job_list_run.h"

#include "jobs/option_line.h"
#include "master/master_build.h"
#include "master/master_file.h"
#include "platform/files/drives.h"
#include "platform/files/user_files.h"
#include "session/cut_time_commands.h"
#include "session/master_commands.h"
#include "session/messages.h"

namespace tvx {

namespace {

// Window class of the transfer program.
constexpr char kTransferWindow[] = "TRNW";
constexpr int32_t kDefaultSpindle = 1000;  // 1/min

// The NC file that a missing model is built from: the model's path up to its first ending.
std::string ProgramOfMaster(const std::string& masterPath) {
  return masterPath.substr(0, masterPath.find(kMasterEnding));
}

// The messages of a run in a window.
class RunMessages final : public RunObserver {
 public:
  RunMessages(const NcProgram* program, UserInterface* ui) : program_(*program), ui_(ui) {}

  void OnLoadFailed(const std::string& path, const Status& load) override {
    ShowLoadFailure(load, program_, path, ui_);
  }
  void OnMasterFailed(const std::string& path, const MasterOutcome& outcome) override {
    switch (outcome.step) {
      case MasterStep::kRead:
        ShowMasterUnread(outcome.status, path, ui_);
        break;
      case MasterStep::kLoad:
        ShowLoadFailure(outcome.status, program_, ProgramOfMaster(path), ui_);
        break;
      case MasterStep::kBuild:
        ShowBuildFailure(outcome.status, ui_);
        break;
      case MasterStep::kWrite:
        ShowMasterUnwritten(outcome.status, path, ui_);
        break;
    }
  }
  void OnMasterBuilt(const std::string& path) override {
    ui_->ShowStatus(ui_->Say({"마스터 모델을 만들었습니다.", "The master model was built."}), path);
  }
  void OnPictureFailed(const std::string& path, const Status& written) override {
    ShowWritten(written, path, ui_);
  }
  void OnTableFull() override { ShowTableFull(ui_); }
  void OnStopped(const RunEnd& end) override { ui_->ShowStatus(StoppedText(end, ui_->language())); }

 private:
  const NcProgram& program_;
  UserInterface* ui_;
};

size_t EntryCount(const JobRecord& job) {
  size_t count = 0;
  while (count < job.FileNames.size() && !job.FileNames[count].empty()) ++count;
  return count;
}

// What an entry leaves for those after it.
struct RunState {
  std::string lastMaster;  // that an entry named
  // A program or a master model could not be read whole. It affects the entries after it too: a
  // model is kept, and a program starts with the modal state that the one before it left.
  bool isIncomplete = false;
};

// An entry without a model leaves the last one in memory, for the entry after it.
bool NeedsMaster(const JobRecord& job, const std::string& lastMaster) {
  return job.AfaByMaster == 1 && NamesMasterFile(job.AfaMasterFile) &&
         job.AfaMasterFile != lastMaster;
}

MasterOutcome LoadOrBuildMaster(const std::string& path, CTVXView* view, RunObserver* observer) {
  const MasterContext master = MasterContextOf(view);
  DropMaster(master.grid);
  const std::string masterPath =
      NormalDrivePath(AbsoluteDrivePath(master.files->CurrentDirectory(), path));
  if (master.files->Exists(masterPath)) {
    return {ReadMasterFile(masterPath, master.grid, master.files), MasterStep::kRead};
  }
  // The list names the file to be written, and may come from elsewhere.
  if (!IsMasterName(masterPath)) {
    return {{StatusKind::kRefusedName, masterPath}, MasterStep::kWrite};
  }
  const std::string program = ProgramOfMaster(masterPath);
  observer->OnLoad(program);
  const Status loaded = view->Load(program);
  if (!loaded.ok()) return {loaded, MasterStep::kLoad};
  const Status built = BuildAndShowMaster(master);
  if (!built.ok()) return {built, MasterStep::kBuild};
  const Status written = WriteMasterFile(masterPath, *master.grid, master.files);
  if (!written.ok()) return {written, MasterStep::kWrite};
  master.grid->path = masterPath;
  observer->OnMasterBuilt(path);
  return {};
}

// Everything that happens to one entry, from its line to its result. Returns false if the user
// stopped it: nothing is recorded then.
bool RunEntry(const std::string& name, const std::string& line, CTVXView* view, RunState* state,
              RunObserver* observer) {
  const Progress& progress = *view->app->ui->LongWork();
  JobRecord& job = view->job;

  ParseOptionLine(&job, line, view->dialogs.jobList.LastLineFile());
  view->changes.Note(Change::kOptions);
  std::string directory;
  LineDirectory(line, &directory);
  const std::string path = directory + "\\" + name;

  if (NeedsMaster(job, state->lastMaster)) {
    state->lastMaster = job.AfaMasterFile;
    const MasterOutcome outcome = LoadOrBuildMaster(state->lastMaster, view, observer);
    if (progress.IsStopped()) return false;
    const bool isUnread = outcome.step == MasterStep::kRead && outcome.status.IsReadFailure();
    const bool isProgramIncomplete =
        outcome.step == MasterStep::kLoad && view->program.isIncomplete;
    state->isIncomplete = state->isIncomplete || isUnread || isProgramIncomplete;
    if (!outcome.status.ok()) observer->OnMasterFailed(state->lastMaster, outcome);
  }

  auto check = observer->OnLoad(path);
  const Status loaded = view->Load(path);
  if (progress.IsStopped()) return false;
  state->isIncomplete = view->program.isIncomplete =
      view->program.isIncomplete || state->isIncomplete;
  if (!loaded.ok()) observer->OnLoadFailed(path, loaded);

  if (check == nullptr) check = view->KeepCheck();
  auto result = view->EvaluateAndShow(
      {.adjusts = job.AfaEnabled == 1, .wanted = view->wanted, .check = check});
  if (!result) return false;
  result->entry.fileName = name;
  result->entry.optionLine = line;
  result->entry.dirName = directory;
  const Status recorded =
      RecordProgramResult(std::move(*result), view->Picture(), view->app->files, &view->results);
  view->changes.Note(Change::kResult);
  if (recorded.kind() == StatusKind::kStopped) return false;
  view->lastRun = {view->program.source.path, directory, line};
  if (!IsRecorded(recorded)) {
    observer->OnTableFull();
    return true;
  }
  const ProgramResult& last = view->results.recorded.back();
  if (!recorded.ok()) observer->OnPictureFailed(last.entry.pictureName, recorded);
  observer->OnRecorded(path, last);
  return true;
}

// A negative speed comes from a condition file.
int32_t SpindleSpeedOf(const CTVXApp& app) {
  return app.rememberedSpindle < 0 ? kDefaultSpindle : app.rememberedSpindle;
}

}  // namespace

void RunJobList(CTVXView* view) {
  CTVXApp* const app = view->app;
  JobRecord* const slot = &app->JobSlots[kJobSlot];
  CTransferDlg& dialog = view->dialogs.jobList;
  view->job.KeyCodeOn = view->job.KeyCodeCount = view->job.FirstEditable = 0;
  CopyJobRecord(kJobSlot, slot, view->job);
  if (app->programs->HasWindowOfClass(kTransferWindow)) {
    app->programs->Quit();
    return;
  }
  // The browser of the dialog moves it. Pictures and reports of later commands are written into it.
  const std::string directory = app->files->CurrentDirectory();
  dialog.Open({.slot = slot,
               .working = &view->job,
               .environmentDir = app->configuration.EnvDir,
               .editor = app->configuration.Editor,
               .extensions = &app->ExtensionList,
               .programs = app->programs,
               .spindleSpeed = SpindleSpeedOf(*app),
               .labelLanguage = app->LabelLanguage});
  const bool isAccepted = app->ui->RunModal(&dialog);
  view->changes.Note(Change::kOptions);
  if (!isAccepted) {
    static_cast<void>(app->files->SetCurrentDirectory(directory));
    return;
  }

  app->rememberedSpindle = dialog.SpindleSpeed();
  CopyJobRecord(kJobSlot, &view->job, *slot);
  RunMessages messages(&view->program, app->ui);
  RunAcceptedList(view, &messages);
}

void RunAcceptedList(CTVXView* view, RunObserver* observer) {
  const JobRecord& job = view->job;
  const size_t count = EntryCount(job);
  RunEnd& end = view->results.runEnd;
  end = {0, count};
  RunState state;
  Progress* const progress = view->app->ui->LongWork();
  const WorkScope work(progress, Work::kRead, "", Stopping::kAllowed);
  for (; end.done < count; ++end.done) {
    const std::string& name = job.FileNames[end.done];
    progress->SetFile(end.done + 1, count);
    observer->OnEntry(end.done, count, name);
    if (!RunEntry(name, job.OptionLines[end.done], view, &state, observer)) break;
  }
  if (!end.WasStopped()) return;
  view->DropProgram();  // what a stop leaves in the store is none
  view->changes.Show();
  observer->OnStopped(end);
}

}  // namespace tvx
