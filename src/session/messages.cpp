// The texts of the failures; each is fixed to the byte.

#include "session/messages.h"

#include <utility>

#include "base/format.h"
#include "platform/files/user_files.h"
#include "session/application.h"

namespace tvx {

namespace {

void ShowNoMemory(UserInterface* ui) {
  ui->ShowMessage({.text = "Memory를 할당할 수 없습니다!!!", .caption = " Message"});
}

void ShowNotLoaded(const std::string& path, UserInterface* ui) {
  ui->ShowStatus("불러오지 못했습니다.", path);
}

}  // namespace

void ShowFailure(LoadResult result, const NcProgram& program, const std::string& path,
                 UserInterface* ui) {
  if (result == LoadResult::kCannotOpen) {
    ShowNotLoaded(path, ui);
    ShowCannotOpen(ui);
  } else if (result == LoadResult::kStopped) {
    ui->ShowStatus("중지했습니다. 불러온 프로그램이 없습니다.", path);
  } else if (result == LoadResult::kReadFailed) {
    ui->ShowMessage({.text = "화일을 끝까지 읽지 못했습니다. 시간과 그림이 맞지 않습니다.",
                     .path = path,
                     .icon = MessageIcon::kExclamation});
  } else if (program.lostBlocks > 0) {
    ui->ShowMessage({.text = Format("메모리가 모자라서 블록 %.0f개를 넣지 못했습니다.",
                                    static_cast<double>(program.lostBlocks)),
                     .path = path,
                     .icon = MessageIcon::kExclamation});
  }
}

void ShowFailure(BuildResult result, UserInterface* ui) {
  if (result != BuildResult::kNoMemory) return;
  ShowNoMemory(ui);
  ui->ShowStatus("프로그램을 다시 불러와야 합니다.");
}

void ShowFailure(MasterFileResult result, const std::string& path, UserInterface* ui) {
  const bool writing =
      result == MasterFileResult::kCannotWrite || result == MasterFileResult::kDiskFull;
  if (writing) ShowWritten(false, path, ui);
  if (!writing && result != MasterFileResult::kDone && result != MasterFileResult::kNoModel) {
    ShowNotLoaded(path, ui);
  }
  switch (result) {
    case MasterFileResult::kDone:
    case MasterFileResult::kNoModel:
      break;
    case MasterFileResult::kNoMemory:
      ShowNoMemory(ui);
      break;
    case MasterFileResult::kCannotOpen:
    case MasterFileResult::kNoMasterFile:
    case MasterFileResult::kCannotWrite:
      ui->ShowMessage({.text = "화일을 열수 없습니다.\n"});
      break;
    case MasterFileResult::kDiskFull:
      ui->ShowMessage({.text = "디스크가 가득 찼거나 쓸 수 없습니다."});
      break;
  }
}

void ShowUnread(CTVXApp* app) {
  for (const UnreadFile& file : std::exchange(app->unread, {})) {
    app->ui->ShowMessage({.text = "설정 화일을 읽지 못해서 기본값을 사용합니다.",
                          .path = file.path + ": " + FileErrorText(file.error),
                          .icon = MessageIcon::kExclamation});
  }
}

void ShowTableFull(UserInterface* ui) {
  ui->ShowStatus("결과 목록이 가득 차서 기록하지 않았습니다.");
}

}  // namespace tvx
