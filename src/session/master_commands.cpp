// The commands ask, call the feed layer and show its results.
#include "session/master_commands.h"

#include "master/master_file.h"
#include "master/master_picture.h"
#include "platform/files/user_files.h"
#include "session/messages.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

bool ChooseMasterFile(const MasterContext& context, bool save, std::string* path) {
  FileQuestion question;
  question.save = save;
  question.filter = " AFA MASTER FILE (*.mma)|*.mma||";
  question.defaultExtension = "mma";  // the choosers list no other files
  return context.ui->ChooseFile(question, path);
}

constexpr Message kShort{"마스터 모델을 만들 수 없습니다: 프로그램이 너무 짧습니다.",
                         "No master model can be made: the program is too short."};
constexpr Message kNoCut{"마스터 모델을 만들 수 없습니다: 직선 절삭이 없습니다.",
                         "No master model can be made: there is no straight cut."};
constexpr Message kWide{"마스터 모델을 만들 수 없습니다: 가공 범위가 너무 넓습니다.",
                        "No master model can be made: the part is too wide."};
constexpr Message kTolerance{"마스터 모델을 만들 수 없습니다: 공차가 맞지 않습니다.",
                             "No master model can be made: the tolerance does not fit."};

// Why a program gives no model; null for what is no refusal.
const Message* RefusalText(const Status& build) {
  switch (build.kind()) {
    case StatusKind::kFewBlocks:
      return &kShort;
    case StatusKind::kNoCut:
      return &kNoCut;
    case StatusKind::kTooWide:
      return &kWide;
    case StatusKind::kBadSizes:
      return &kTolerance;
    default:
      return nullptr;
  }
}

// The picture of the model is in the store.
void ShowWithoutRapids(const MasterContext& context) {
  *context.RapidVisible = 0;
  context.changes->Note(Change::kView);
  context.changes->Show();
}

}  // namespace

MasterContext MasterContextOf(CTVXView* view) {
  return {.program = &view->program,
          .grid = &view->masterGrid,
          .dialog = &view->dialogs.master,
          .RapidVisible = &view->view.RapidVisible,
          .files = view->app->files,
          .ui = view->app->ui,
          .changes = &view->changes};
}

Status BuildAndShowMaster(const MasterContext& context) {
  Progress* const progress = context.ui->LongWork();
  const WorkScope work(progress, Work::kBuildMaster, context.program->source.path);
  Status built = BuildMaster(*context.dialog, context.program, context.grid, progress);
  if (RefusalText(built) == nullptr) context.changes->Note(kNewProgram);
  if (built.ok()) ShowWithoutRapids(context);
  return built;
}

void MakeMasterCommand(const MasterContext& context) {
  CMasterDlg edited = *context.dialog;
  if (!context.ui->RunModal(&edited)) return;
  *context.dialog = edited;
  const Status built = BuildAndShowMaster(context);
  ShowBuildFailure(built, context.ui);
  const Message* const refusal = RefusalText(built);
  if (refusal != nullptr) context.ui->ShowStatus(context.ui->Say(*refusal));
}

void DeleteMaster(MasterGrid* grid, UserInterface* ui) {
  if (!ui->ShowMessage(
          {.text = ui->Say({"마스터 모텔을 삭제 하겠읍니까?", "Delete the master model?"}),
           .caption = " Optimizer message ",
           .buttons = MessageButtons::kOkCancel})) {
    return;
  }
  DropMaster(grid);
  // Its picture stays until the next program is loaded.
  ui->ShowStatus(ui->Say(
      {"마스터 모델을 메모리에서 지웠습니다.", "The master model is no longer in memory."}));
}

void SaveMasterCommand(const MasterContext& context) {
  std::string path;
  if (!ChooseMasterFile(context, true, &path)) return;
  if (!MayReplace(path, IsMasterFile, context.files, context.ui)) return;
  const Status written = WriteMasterFile(path, *context.grid, context.files);
  if (written.kind() == StatusKind::kNoContent) {
    context.ui->ShowStatus(
        context.ui->Say({"저장할 마스터 모델이 없습니다.", "There is no master model to save."}));
  } else if (written.ok()) {
    context.grid->path = path;
    ShowWritten(written, path, context.ui);
  }
  ShowMasterUnwritten(written, path, context.ui);
}

void LoadMasterCommand(const MasterContext& context) {
  std::string path;
  if (!ChooseMasterFile(context, false, &path)) return;
  DropMaster(context.grid);
  const Status read = ReadMasterFile(path, context.grid, context.files);
  ShowMasterUnread(read, path, context.ui);
  if (!read.ok()) return;
  ShowMaster(*context.grid, context.program);
  context.changes->Note(kNewProgram);
  ShowWithoutRapids(context);
}

}  // namespace tvx
