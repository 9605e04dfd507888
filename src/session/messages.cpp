// The texts of the failures; each is fixed to the byte.

#include "session/messages.h"

#include <utility>

#include "base/format.h"
#include "platform/files/user_files.h"
#include "session/application.h"

namespace tvx {

namespace {

constexpr char kCannotOpen[] = "화일을 열수 없습니다.\n";  // a master file

void ShowNoMemory(UserInterface* ui) {
  ui->ShowMessage({.text = "Memory를 할당할 수 없습니다!!!", .caption = " Message"});
}

void ShowNotLoaded(const std::string& path, UserInterface* ui) {
  ui->ShowStatus("불러오지 못했습니다.", path);
}

}  // namespace

void ShowLoadFailure(const Status& load, const NcProgram& program, const std::string& path,
                     UserInterface* ui) {
  switch (load.kind()) {
    case StatusKind::kOk:
      break;
    case StatusKind::kStopped:
      ui->ShowStatus("중지했습니다. 불러온 프로그램이 없습니다.", path);
      break;
    case StatusKind::kReadFailed:
    case StatusKind::kChanged:
      ui->ShowMessage({.text = "화일을 끝까지 읽지 못했습니다. 시간과 그림이 맞지 않습니다.",
                       .path = path,
                       .icon = MessageIcon::kExclamation});
      break;
    case StatusKind::kStoreFull:
    case StatusKind::kBlocksLost:
      ui->ShowMessage({.text = Format("메모리가 모자라서 블록 %.0f개를 넣지 못했습니다.",
                                      static_cast<double>(program.lostBlocks)),
                       .path = path,
                       .icon = MessageIcon::kExclamation});
      break;
    default:
      ShowNotLoaded(path, ui);
      ShowCannotOpen(ui);
  }
}

void ShowBuildFailure(const Status& build, UserInterface* ui) {
  if (build.kind() != StatusKind::kNoMemory) return;
  ShowNoMemory(ui);
  ui->ShowStatus("프로그램을 다시 불러와야 합니다.");
}

void ShowMasterUnread(const Status& read, const std::string& path, UserInterface* ui) {
  if (read.ok()) return;
  ShowNotLoaded(path, ui);
  if (read.kind() == StatusKind::kNoMemory) {
    ShowNoMemory(ui);
  } else {
    ui->ShowMessage({.text = kCannotOpen});
  }
}

void ShowMasterUnwritten(const Status& written, const std::string& path, UserInterface* ui) {
  if (written.ok() || written.kind() == StatusKind::kNoContent) return;
  ShowWritten(written, path, ui);
  const bool isCreated = written.kind() == StatusKind::kWriteFailed;
  ui->ShowMessage({.text = isCreated ? "디스크가 가득 찼거나 쓸 수 없습니다." : kCannotOpen});
}

void ShowUnread(CTVXApp* app) {
  for (const Status& file : std::exchange(app->unread, {})) {
    app->ui->ShowMessage({.text = "설정 화일을 읽지 못해서 기본값을 사용합니다.",
                          .path = file.path() + ": " + file.Text(),
                          .icon = MessageIcon::kExclamation});
  }
}

void ShowTableFull(UserInterface* ui) {
  ui->ShowStatus("결과 목록이 가득 차서 기록하지 않았습니다.");
}

}  // namespace tvx
