// The texts of the failures; each is fixed to the byte.

#include "session/messages.h"

#include <utility>

#include "base/format.h"
#include "platform/files/user_files.h"
#include "session/application.h"

namespace tvx {

namespace {

// A master file.
constexpr Message kCannotOpen{"화일을 열수 없습니다.\n", "The file cannot be opened.\n"};
constexpr Message kNotWritten{"디스크가 가득 찼거나 쓸 수 없습니다.",
                              "The disk is full or cannot be written."};

void ShowNoMemory(UserInterface* ui) {
  ui->ShowMessage(
      {.text = ui->Say({"Memory를 할당할 수 없습니다!!!", "Memory cannot be allocated!!!"}),
       .caption = " Message"});
}

void ShowNotLoaded(const std::string& path, UserInterface* ui) {
  ui->ShowStatus(ui->Say({"불러오지 못했습니다.", "The file was not loaded."}), path);
}

}  // namespace

void ShowLoadFailure(const Status& load, const NcProgram& program, const std::string& path,
                     UserInterface* ui) {
  switch (load.kind()) {
    case StatusKind::kOk:
      break;
    case StatusKind::kStopped:
      ui->ShowStatus(
          ui->Say({"중지했습니다. 불러온 프로그램이 없습니다.", "Stopped. No program is loaded."}),
          path);
      break;
    case StatusKind::kReadFailed:
    case StatusKind::kChanged:
      ui->ShowMessage(
          {.text = ui->Say(
               {"화일을 끝까지 읽지 못했습니다. 시간과 그림이 맞지 않습니다.",
                "The file could not be read to its end. Times and picture are not complete."}),
           .path = path,
           .icon = MessageIcon::kExclamation});
      break;
    case StatusKind::kStoreFull:
    case StatusKind::kBlocksLost:
      ui->ShowMessage(
          {.text = ui->Say({"메모리가 모자라서 블록 {count}개를 넣지 못했습니다.",
                            "There is not enough memory: {count} blocks were left out."},
                           {{"count", program.lostBlocks}}),
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
  ui->ShowStatus(
      ui->Say({"프로그램을 다시 불러와야 합니다.", "The program has to be loaded again."}));
}

void ShowMasterUnread(const Status& read, const std::string& path, UserInterface* ui) {
  if (read.ok()) return;
  ShowNotLoaded(path, ui);
  if (read.kind() == StatusKind::kNoMemory) {
    ShowNoMemory(ui);
  } else {
    ui->ShowMessage({.text = ui->Say(kCannotOpen)});
  }
}

void ShowMasterUnwritten(const Status& written, const std::string& path, UserInterface* ui) {
  if (written.ok() || written.kind() == StatusKind::kNoContent) return;
  ShowWritten(written, path, ui);
  const bool isCreated = written.kind() == StatusKind::kWriteFailed;
  ui->ShowMessage({.text = ui->Say(isCreated ? kNotWritten : kCannotOpen)});
}

void ShowUnread(CTVXApp* app) {
  for (const Status& file : std::exchange(app->unread, {})) {
    app->ui->ShowMessage(
        {.text = app->ui->Say({"설정 화일을 읽지 못해서 기본값을 사용합니다.",
                               "A settings file could not be read; the defaults are used."}),
         .path = file.path() + ": " + file.Text(),
         .icon = MessageIcon::kExclamation});
  }
}

void ShowTableFull(UserInterface* ui) {
  ui->ShowStatus(ui->Say({"결과 목록이 가득 차서 기록하지 않았습니다.",
                          "The list of results is full; nothing was recorded."}));
}

}  // namespace tvx
