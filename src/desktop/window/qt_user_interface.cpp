// Maps dialogs to their faces, messages to message boxes, and file questions to choosers.
#include "desktop/window/qt_user_interface.h"

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <memory>
#include <utility>

#include "base/path_text.h"
#include "desktop/faces/calculator_face.h"
#include "desktop/faces/condition_faces.h"
#include "desktop/faces/face.h"
#include "desktop/faces/job_faces.h"
#include "desktop/faces/restart_face.h"
#include "desktop/faces/result_faces.h"
#include "desktop/faces/settings_faces.h"
#include "desktop/language.h"
#include "desktop/window/command_pad_face.h"

namespace tvx {

namespace {

struct FaceMaker {
  bool (*fits)(const Dialog& dialog);
  std::unique_ptr<QDialog> (*make)(Dialog* dialog, QWidget* parent);
};

// A face class F takes the logic of class L and a parent.
template <typename L, typename F>
FaceMaker MakerOf() {
  return {[](const Dialog& dialog) { return dynamic_cast<const L*>(&dialog) != nullptr; },
          [](Dialog* dialog, QWidget* parent) -> std::unique_ptr<QDialog> {
            return std::make_unique<F>(dynamic_cast<L*>(dialog), parent);
          }};
}

const FaceMaker kFaces[] = {
    MakerOf<CCommandPadDlg, CommandPadFace>(),   MakerOf<CFileInfoDlg, FileInfoFace>(),
    MakerOf<CDirSetupDlg, DirSetupFace>(),       MakerOf<CTextInputDlg, TextInputFace>(),
    MakerOf<CDirListDlg, DirListFace>(),         MakerOf<COptionDlg, OptionFace>(),
    MakerOf<CMasterDlg, MasterFace>(),           MakerOf<CAutoFeedDlg, AutoFeedFace>(),
    MakerOf<CAfaSetupDlg, AfaSetupFace>(),       MakerOf<CSendOptionDlg, SendOptionFace>(),
    MakerOf<CTransferDlg, TransferFace>(),       MakerOf<CKeyCodeDlg, KeyCodeFace>(),
    MakerOf<CRestartDlg, RestartFace>(),         MakerOf<CGetFeedDlg, CalculatorFace>(),
    MakerOf<CCutTimeListDlg, CutTimeListFace>(),
};

// The face of a dialog, by the class of its logic.
std::unique_ptr<QDialog> MakeFace(Dialog* dialog, QWidget* parent) {
  for (const FaceMaker& face : kFaces) {
    if (face.fits(*dialog)) return face.make(dialog, parent);
  }
  return nullptr;
}

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

// A preset name such as "c:\\marlo\\afa\\*.afa" in its two parts; a name alone has no directory.
std::string DirectoryOf(const std::string& preset) {
  return PathBeforeName(preset, kAnySlash);
}
std::string NameOf(const std::string& preset) {
  return NameOfPath(preset, kAnySlash);
}

// A mask selects the files that match it; "*.", for names without an ending, means any file.
bool IsMask(const std::string& name) {
  return name.find('*') != std::string::npos;
}
bool IsFilter(const std::string& name) {
  return IsMask(name) && name.back() != '.';
}

// A filter of the form "Nc file (*.nc, *.tap)|*.nc;*.tap|모든 화일(*.*)|*.*||" as Qt spells it:
// "Nc file (*.nc *.tap);;모든 화일 (*)".
QString ToQtFilter(std::string_view filter) {
  // Here blanks, not semicolons, stand between the masks of a filter.
  const QStringList parts = ToQt(filter).replace(';', ' ').split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
    const qsizetype bracket = parts[i].indexOf('(');
    const QString label = Translated(FromQt(parts[i].left(bracket).trimmed()));
    // "*.*" means every file, also one without an ending.
    const QString mask = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
    filters << label + " (" + mask.trimmed() + ")";
  }
  return filters.join(";;");
}

// Shows sizes and dates beside the names in full. The desktop's native chooser has no such view.
void ShowWholeColumns(QFileDialog* chooser) {
  ResizeOnScreen(chooser, {820, 520});
  if (const auto* const files = chooser->findChild<QTreeView*>("treeView")) {
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
}

// A box takes its width from its text, and the frame would cut a longer caption.
void MakeRoomForCaption(QMessageBox* box) {
  constexpr int kFrameButtons = 160;  // pixels, with the icon
  auto* const grid = qobject_cast<QGridLayout*>(box->layout());
  if (grid == nullptr) return;
  const int width = box->fontMetrics().horizontalAdvance(box->windowTitle()) + kFrameButtons;
  grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

void QtUserInterface::SetWindow(InterfaceWindow* window) {
  window_ = window;
  progress_.SetBar(window == nullptr ? nullptr : window->WorkBar());
}

bool QtUserInterface::ShowMessage(const MessageBox& message) {
  const QString about = message.path.empty() ? QString() : ToQt(message.path) + "\n\n";
  QMessageBox box(IconOf(message.icon), ToQt(message.caption), about + ToQt(message.text),
                  ButtonsOf(message.buttons), Parent());
  box.setTextFormat(Qt::PlainText);  // a name in it may look like a tag
  NameButtons(&box);
  MakeRoomForCaption(&box);
  const InputCursor cursor;
  const int answer = box.exec();
  return answer == QMessageBox::Ok || answer == QMessageBox::Yes;
}

bool QtUserInterface::RunModal(Dialog* dialog) {
  const std::unique_ptr<QDialog> face = MakeFace(dialog, Parent());
  return face != nullptr && face->exec() == QDialog::Accepted;
}

// The preset name may be a directory, or hold one.
QString QtUserInterface::StartDirectory(const FileQuestion& question) const {
  const std::string& name = question.fileName;
  std::string directory = question.directory;
  if (directory.empty()) directory = files_->IsDirectory(name) ? name : DirectoryOf(name);
  if (!files_->IsDirectory(directory)) directory = files_->CurrentDirectory();
  const std::optional<std::filesystem::path> host = drives_->ToHost(directory);
  return host.has_value() ? ToQt(host->string()) : QString();
}

bool QtUserInterface::ChooseFile(const FileQuestion& question, std::string* path) {
  QFileDialog chooser(Parent());
  ShowWholeColumns(&chooser);
  chooser.setDirectory(StartDirectory(question));
  const bool showsSave = question.save && !question.opens && !question.mustExist;
  chooser.setAcceptMode(showsSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  const bool takesNewNames = question.save && !question.mustExist;
  chooser.setFileMode(takesNewNames ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!question.title.empty()) chooser.setWindowTitle(Translated(question.title));
  if (!question.acceptLabel.empty()) {
    chooser.setLabelText(QFileDialog::Accept, Translated(question.acceptLabel));
  }
  chooser.setOption(QFileDialog::DontConfirmOverwrite, !question.confirmsOverwrite);
  const std::string name = NameOf(question.fileName);
  if (!question.filter.empty()) chooser.setNameFilter(ToQtFilter(question.filter));
  if (question.filter.empty() && IsFilter(name)) chooser.setNameFilter(ToQt(name));
  // A mask or a directory is of no use as the preset name.
  if (!IsMask(name) && !files_->IsDirectory(question.fileName)) chooser.selectFile(ToQt(name));
  // When opening, the chooser would append it to the name of an existing file, and not find that.
  if (takesNewNames && question.defaultExtension != "*") {
    chooser.setDefaultSuffix(ToQt(question.defaultExtension));
  }
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) return false;

  const QFileInfo chosen(chooser.selectedFiles().constFirst());
  const std::optional<std::string> drivePath = drives_->FromHost(FromQt(chosen.absoluteFilePath()));
  if (!drivePath.has_value()) {
    ShowMessage({.text = FromQt(chosen.absoluteFilePath() + "\n\n" +
                                Translated("드라이브에 없는 화일입니다."))});
    return false;
  }
  if (const auto directory = drives_->FromHost(FromQt(chosen.absolutePath()))) {
    static_cast<void>(files_->SetCurrentDirectory(*directory));
  }
  *path = *drivePath;
  return true;
}

void QtUserInterface::ShowStatus(const std::string& text, const std::string& path) {
  const QString about = path.empty() ? QString() : ToQt(path) + ": ";
  if (window_ != nullptr) window_->ShowStatusText(about + ToQt(text));
}

void QtUserInterface::OfferToOpen(const std::string& path) {
  const std::string whole = AbsoluteDrivePath(files_->CurrentDirectory(), path);
  const std::optional<std::filesystem::path> host = drives_->ToHost(whole);
  if (window_ != nullptr && host) window_->OfferToOpen(ToQt(host->string()));
}

}  // namespace tvx
