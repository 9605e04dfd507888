#include "platform/files/user_files.h"

#include <array>

namespace tvx {

bool MayReplace(const std::string& path, bool (*isOfKind)(std::string_view start), Files* files,
                UserInterface* ui) {
  const Result<std::unique_ptr<InputFile>> opened = files->OpenForReading(path);
  if (!opened.ok()) return true;  // the write itself reports what is no plain file
  InputFile* const file = opened.value.get();
  std::array<char, 4096> bytes;
  const size_t size = file->ReadAt(0, bytes.data(), bytes.size());
  if ((size == 0 && file->status().ok()) || isOfKind({bytes.data(), size})) return true;
  return ui->ShowMessage({.text = "다른 종류의 화일이 있습니다. 바꾸겠습니까?",
                          .path = path,
                          .caption = "화일 바꾸기",
                          .icon = MessageIcon::kQuestion,
                          .buttons = MessageButtons::kYesNo});
}

void ShowWritten(const Status& written, const std::string& path, UserInterface* ui) {
  ui->ShowStatus(written.ok() ? "저장했습니다." : "저장하지 못했습니다.", path);
}

void ShowCannotOpen(UserInterface* ui) {
  ui->ShowMessage({.text = "화일을 열수 없읍니다.\n"});
}

}  // namespace tvx
