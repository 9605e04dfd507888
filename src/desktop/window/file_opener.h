// Opens NC programs in the main window, one after the other, and remembers those opened last.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <string>

#include "platform/files/drives.h"

namespace tvx {

class CTVXApp;
class MainWindow;
class ViewWidget;

// Drive paths, the latest first, kept from one run of the program to the next.
class RecentFiles {
 public:
  static constexpr qsizetype kMost = 4;

  // Kept in this file of the host; an empty path keeps them for the run of the program only.
  explicit RecentFiles(const QString& path);

  const QStringList& Paths() const { return paths_; }

  // Puts a file first and saves the list. A failed save is ignored.
  void Add(const QString& drivePath);

 private:
  QString file_;
  QStringList paths_;
};

class FileOpener : public QObject {
  Q_OBJECT

 public:
  // All outlive the object. `settingsFile` keeps the recent files (RecentFiles).
  FileOpener(MainWindow* window, CTVXApp* app, const Drives* drives, const QString& settingsFile);

  // Loads a file of the host into the view in work if that is still empty, else into a new one,
  // after the files that are still waiting. A message if it is on no drive or does not exist.
  void LoadHostFile(const QString& path);

  // Loads a file of the drives into this view, or into a new one if it is null. A message if the
  // file does not exist.
  void Open(const std::string& drivePath, ViewWidget* widget);

  // Asks for a file and opens it in a new view.
  void AskAndOpen();

  RecentFiles recent;

 private:
  void LoadWaiting();
  void LoadInto(ViewWidget* widget, const std::string& drivePath);

  MainWindow* window_;
  CTVXApp* app_;
  const Drives* drives_;
  QStringList waiting_;           // files of the host still to be loaded
  QPointer<ViewWidget> loading_;  // loads its file after its first paint
};

}  // namespace tvx
