#include "desktop/qt_user_interface.h"

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <memory>

#include "desktop/dialog_faces.h"
#include "desktop/qt_text.h"

namespace tvx {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kInformation:
      return QMessageBox::Information;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kStop:
      return QMessageBox::Critical;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

}  // namespace

bool QtUserInterface::ShowMessage(const Message& message) {
  QMessageBox box(IconOf(message.icon), ToQt(message.caption), ToQt(message.text),
                  ButtonsOf(message.buttons), Parent());
  const int answer = box.exec();
  return answer == QMessageBox::Ok || answer == QMessageBox::Yes;
}

bool QtUserInterface::RunModal(Dialog* dialog) {
  const std::unique_ptr<QDialog> face = MakeFace(dialog, Parent());
  return face != nullptr && face->exec() == QDialog::Accepted;
}

QString QtUserInterface::StartDirectory(const FileQuestion& question) const {
  const std::string directory =
      question.directory.empty() ? files_->CurrentDirectory() : question.directory;
  const std::optional<std::filesystem::path> host = drives_->ToHost(directory);
  return host.has_value() ? ToQt(host->string()) : QString();
}

bool QtUserInterface::ChooseFile(const FileQuestion& question, std::string* path) {
  QFileDialog chooser(Parent());
  chooser.setDirectory(StartDirectory(question));
  chooser.setAcceptMode(question.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  chooser.setFileMode(question.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // Whether an older file may be replaced is for the command to ask, where it does.
  chooser.setOption(QFileDialog::DontConfirmOverwrite);
  if (!question.filter.empty()) chooser.setNameFilter(ToQtFilter(question.filter));
  // A mask as the preset name would only stand in the way here: the filter shows it.
  if (!ToQt(question.fileName).contains('*')) chooser.selectFile(ToQt(question.fileName));
  if (question.defaultExtension != "*") chooser.setDefaultSuffix(ToQt(question.defaultExtension));
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) return false;

  const QFileInfo chosen(chooser.selectedFiles().constFirst());
  const std::optional<std::string> drivePath = drives_->FromHost(FromQt(chosen.absoluteFilePath()));
  if (!drivePath.has_value()) {
    ShowMessage({.text = FromQt(chosen.absoluteFilePath()) + "\n\n드라이브에 없는 화일입니다."});
    return false;
  }
  if (const auto directory = drives_->FromHost(FromQt(chosen.absolutePath()))) {
    files_->SetCurrentDirectory(*directory);
  }
  *path = *drivePath;
  return true;
}

void QtUserInterface::Repaint() {
  if (window_ != nullptr) window_->RepaintActiveView();
}

void QtUserInterface::ShowStatus(const std::string& text) {
  if (window_ != nullptr) window_->ShowStatusText(ToQt(text));
}

}  // namespace tvx
