// Adjusts, counts and records the program in the store, with a dialog before each decision.

#include "session/cut_time_commands.h"

#include "base/scan.h"
#include "master/master_file.h"
#include "platform/files/drives.h"
#include "platform/files/user_files.h"
#include "session/messages.h"
#include "stats/file_information.h"
#include "view/picture.h"

namespace tvx {

std::string PictureName(const CutTimeEntry& result) {
  return result.fileName + ".emf";
}

Status RecordProgramResult(ProgramResult result, const Scene& scene, Files* files,
                           ResultTable* results) {
  if (results->IsFull()) return StatusKind::kTableFull;
  CutTimeEntry& entry = result.entry;
  entry.pictureName.clear();
  Status drawn;
  if (scene.job->MetafileCreateChk == 1 && !entry.fileName.empty()) {
    entry.pictureName = PictureName(entry);
    const WorkScope work(scene.progress, Work::kWritePicture, entry.pictureName);
    drawn = result.isIncomplete ? Status(StatusKind::kPartSource, entry.pictureName)
                                : WritePictureFile(PictureFormat::kMetafile, entry.pictureName,
                                                   scene, files, /*isSynced=*/false);
    if (scene.progress->IsStopped()) return {StatusKind::kStopped, entry.pictureName};
  }
  results->recorded.push_back(std::move(result));
  results->isReported = false;
  return drawn;
}

bool IsRecorded(const Status& record) {
  return record.kind() != StatusKind::kTableFull && record.kind() != StatusKind::kStopped;
}

namespace {

// The result of a single cut time has the directory and the option line of the last run only if
// that ended with the same file: those of another would be recorded as its own.
void SetNames(const CTVXView& view, CutTimeEntry* result) {
  const std::string& path = view.program.source.path;
  const bool isOfLastRun = !path.empty() && path == view.lastRun.path;
  result->fileName = view.fileName();
  result->dirName = isOfLastRun ? view.lastRun.directory : "";
  result->optionLine = isOfLastRun ? view.lastRun.line : "";
}

bool IsSameFile(const std::string& a, const std::string& b, const std::string& directory) {
  return EqualNoCase(NormalDrivePath(AbsoluteDrivePath(directory, a)),
                     NormalDrivePath(AbsoluteDrivePath(directory, b)));
}

constexpr Message kUsesOther{"메모리에 있는 다른 마스터 모델을 사용합니다.",
                             "The other master model, which is in memory, is used."};
constexpr Message kUsesNone{"마스터 모델이 메모리에 없어서 사용하지 않습니다.",
                            "The master model is not in memory and is not used."};
constexpr Message kReadInPlace{"메모리에 다른 마스터 모델이 있습니다. 이 화일을 읽겠습니까?",
                               "Another master model is in memory. Read this file?"};
constexpr Message kReadMaster{"마스터 모델이 메모리에 없습니다. 읽겠습니까?",
                              "The master model is not in memory. Read it?"};

// The adjustment takes the master model that is in memory, or none: the times are then those of
// another part, or too short. A model that was built and not saved may well be the wanted one.
void OfferMaster(CTVXView* view) {
  const std::string& path = view->job.AfaMasterFile;
  if (view->job.AfaByMaster != 1) return;
  CTVXApp* const app = view->app;
  const MasterGrid& grid = view->masterGrid;
  const bool isOther = !grid.Cells.Empty();
  if (isOther &&
      (grid.path.empty() || IsSameFile(grid.path, path, app->files->CurrentDirectory()))) {
    return;
  }
  UserInterface* const ui = app->ui;
  MessageBox message{.text = ui->Say(isOther ? kUsesOther : kUsesNone),
                     .path = path,
                     .caption = ui->Say({"마스터 모델", "Master model"}),
                     .icon = MessageIcon::kExclamation};
  if (app->files->Exists(path)) {
    message.text = ui->Say(isOther ? kReadInPlace : kReadMaster);
    message.buttons = MessageButtons::kYesNo;
  }
  if (!app->ui->ShowMessage(message) || message.buttons == MessageButtons::kOk) return;
  ShowMasterUnread(ReadMasterFile(path, &view->masterGrid, app->files), path, app->ui);
}

}  // namespace

void SingleCutTimeCommand(CTVXView* view) {
  CTVXApp* const app = view->app;
  app->sendOptions.Open(&view->job);
  const bool isAccepted = app->ui->RunModal(&app->sendOptions);
  view->changes.Note(Change::kOptions);  // a dialog that is cancelled switches the adjustment off
  if (!isAccepted) return;
  OfferMaster(view);
  auto result =
      view->EvaluateAndShow({.adjusts = true, .wanted = {.programmed = view->wanted.programmed}});
  if (!result) return;
  SetNames(*view, &result->entry);
  CFileInfoDlg information;
  information.entry = result->entry;
  information.timeBefore = MinutesBefore(*result);
  if (!app->ui->RunModal(&information)) return;
  result->check = view->KeepCheck();
  AddWanted(view->Work(), view->wanted, &*result);
  const CutTimeEntry entry = result->entry;
  const Status recorded =
      RecordProgramResult(std::move(*result), view->Picture(), app->files, &view->results);
  view->changes.Note(Change::kResult);
  if (recorded.kind() == StatusKind::kTableFull) {
    ShowTableFull(app->ui);
  } else if (view->job.MetafileCreateChk != 1) {
    return;
  } else if (entry.fileName.empty()) {
    app->ui->ShowStatus(app->ui->Say({"프로그램이 없어서 그림화일을 만들지 않았습니다.",
                                      "There is no program; no picture file was made."}));
  } else {
    ShowWritten(recorded, AbsoluteDrivePath(app->files->CurrentDirectory(), PictureName(entry)),
                app->ui);
  }
}

}  // namespace tvx
