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
  return ui->ShowMessage({.text = ui->Say({"다른 종류의 화일이 있습니다. 바꾸겠습니까?",
                                           "There is a file of another kind. Replace it?"}),
                          .path = path,
                          .caption = ui->Say({"화일 바꾸기", "Replace a file"}),
                          .icon = MessageIcon::kQuestion,
                          .buttons = MessageButtons::kYesNo});
}

void ShowWritten(const Status& written, const std::string& path, UserInterface* ui) {
  ui->ShowStatus(written.ok() ? ui->Say({"저장했습니다.", "Saved."})
                              : ui->Say({"저장하지 못했습니다.", "Not saved."}),
                 path);
}

void ShowCannotOpen(UserInterface* ui) {
  ui->ShowMessage({.text = ui->Say({"화일을 열수 없읍니다.\n", "The file cannot be opened.\n"})});
}

}  // namespace tvx
