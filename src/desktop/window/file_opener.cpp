// Loads files one after the other, each after the first paint of its view.
#include "desktop/window/file_opener.h"

#include <QSettings>
#include <optional>

#include "base/path_text.h"
#include "desktop/language.h"
#include "desktop/window/main_window.h"
#include "desktop/window/view_widget.h"

namespace tvx {

namespace {

constexpr char kKey[] = "recentFiles";

}  // namespace

RecentFiles::RecentFiles(const QString& path) : file_(path) {
  if (file_.isEmpty()) return;
  paths_ = QSettings(file_, QSettings::IniFormat).value(kKey).toStringList().mid(0, kMost);
}

void RecentFiles::Add(const QString& drivePath) {
  paths_.removeAll(drivePath);
  paths_.prepend(drivePath);
  paths_ = paths_.mid(0, kMost);
  if (!file_.isEmpty()) QSettings(file_, QSettings::IniFormat).setValue(kKey, paths_);
}

FileOpener::FileOpener(MainWindow* window, CTVXApp* app, const Drives* drives,
                       const QString& settingsFile)
    : QObject(window), recent(settingsFile), window_(window), app_(app), drives_(drives) {}

void FileOpener::LoadHostFile(const QString& path) {
  waiting_.append(path);
  LoadWaiting();
}

// One after the other: a view gets its size by its first paint, and only the one in front is
// painted. A file may also depend on what the one before it left in the parser.
void FileOpener::LoadWaiting() {
  while (!waiting_.isEmpty() && loading_.isNull()) {
    const QString path = waiting_.takeFirst();
    const std::optional<std::string> drivePath = drives_->FromHost(FromQt(path));
    if (!drivePath.has_value()) {
      app_->ui->ShowMessage(
          {.text = FromQt(path + "\n\n" + Translated("드라이브에 없는 화일입니다."))});
      continue;
    }
    ViewWidget* const active = window_->ActiveView();
    const bool isFree = active != nullptr && active->view().fileName().empty();
    Open(*drivePath, isFree ? active : nullptr);
  }
}

// Only the load command creates a file that does not exist: its chooser accepts a new name.
void FileOpener::Open(const std::string& drivePath, ViewWidget* widget) {
  if (!app_->files->Exists(drivePath)) {
    app_->ui->ShowMessage(
        {.text = drivePath + "\n\n" + FromQt(Translated("화일을 열수 없읍니다.\n"))});
    return;
  }
  // As a chooser does: pictures and reports are written beside the program.
  static_cast<void>(app_->files->SetCurrentDirectory(PathBeforeName(drivePath, kBackslash)));
  LoadInto(widget == nullptr ? window_->NewView() : widget, drivePath);
}

void FileOpener::AskAndOpen() {
  std::string path;
  const FileQuestion question{.save = false,
                              .defaultExtension = "",
                              .fileName = "",
                              .filter = "Nc file (*.nc)|*.nc|모든 화일(*.*)|*.*||",
                              .directory = ""};
  if (app_->ui->ChooseFile(question, &path)) Open(path, nullptr);
}

void FileOpener::LoadInto(ViewWidget* widget, const std::string& drivePath) {
  if (widget->HasBeenDrawn()) {
    window_->ShowPathInStatusBar();
    if (IsLoaded(LoadProgram(&widget->view(), drivePath))) {
      recent.Add(ToQt(drivePath));
    }
    return;
  }
  // Only the first paint gives the drawing area its size, which the fit needs. The name marks the
  // view as taken.
  widget->view().SetNames("", NameOfPath(drivePath, kBackslash));
  widget->view().changes.Settle();
  loading_ = widget;
  const auto load = [this, widget, drivePath] {
    LoadInto(widget, drivePath);
    loading_.clear();
    LoadWaiting();
  };
  connect(widget, &ViewWidget::Drawn, this, load,
          static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  connect(widget, &QObject::destroyed, this, &FileOpener::LoadWaiting, Qt::QueuedConnection);
}

}  // namespace tvx
