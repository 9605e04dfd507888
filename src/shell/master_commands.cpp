#include "shell/master_commands.h"

#include "feed/master_file.h"
#include "feed/master_picture.h"

namespace tvx {

namespace {

bool ChooseMasterFile(const MasterContext& context, bool save, std::string* path) {
  FileQuestion question;
  question.save = save;
  question.filter = " AFA MASTER FILE (*.mma)|*.mma||";
  question.defaultExtension = "mma";  // the choosers list no other files
  return context.ui->ChooseFile(question, path);
}

// What the status bar says of a program that gives no model.
const char* StatusText(BuildProblem problem) {
  switch (problem) {
    case BuildProblem::kFewBlocks:
      return "마스터 모델을 만들 수 없습니다: 프로그램이 너무 짧습니다.";
    case BuildProblem::kNoCut:
      return "마스터 모델을 만들 수 없습니다: 직선 절삭이 없습니다.";
    case BuildProblem::kTooWide:
      return "마스터 모델을 만들 수 없습니다: 가공 범위가 너무 넓습니다.";
    case BuildProblem::kSizes:
      return "마스터 모델을 만들 수 없습니다: 공차가 맞지 않습니다.";
    case BuildProblem::kNone:
      break;
  }
  return "";
}

}  // namespace

void MakeMasterCommand(const MasterContext& context) {
  CMasterDlg edited = *context.dialog;
  if (!context.ui->RunModal(&edited)) return;
  *context.dialog = edited;
  const BuildProblem problem = CheckBuild(edited, &context.program->store);
  if (problem != BuildProblem::kNone) context.ui->ShowStatus(StatusText(problem));
  BuildMaster(edited, context.program, context.grid, context.RapidVisible, context.ui);
}

void DeleteMaster(MasterGrid* grid, UserInterface* ui) {
  if (ui->ShowMessage({.text = "마스터 모텔을 삭제 하겠읍니까?",
                       .caption = " Optimizer message ",
                       .buttons = MessageButtons::kOkCancel})) {
    DropMaster(grid);
  }
}

void SaveMasterCommand(const MasterContext& context) {
  std::string path;
  if (!ChooseMasterFile(context, true, &path)) return;
  if (context.grid->Cells.Empty()) context.ui->ShowStatus("저장할 마스터 모델이 없습니다.");
  WriteMasterFile(path, *context.grid, context.files, context.ui);
}

void LoadMasterCommand(const MasterContext& context) {
  std::string path;
  if (!ChooseMasterFile(context, false, &path)) return;
  DropMaster(context.grid);
  if (!ReadMasterFile(path, context.grid, context.files, context.ui)) return;
  ShowMaster(*context.grid, context.program, context.RapidVisible);
  context.ui->Repaint();
}

}  // namespace tvx
