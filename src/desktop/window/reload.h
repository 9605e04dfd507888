// Offers for the program in work: to read it again when its file has changed, and to read it in the
// other format when it is plainly of that. Nothing is read without a click.
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSettings>

#include "platform/files/drives.h"

class QToolButton;

namespace tvx {

class MainWindow;
class ViewWidget;

class Reload : public QObject {
  Q_OBJECT

 public:
  // All outlive the object. The settings file keeps the formats that the user has chosen for the
  // endings of files.
  Reload(MainWindow* window, const Drives* drives, const QString& settingsFile);

  // The program that the window shows, or its check, may have changed; null if there is none.
  void ShowProgram(ViewWidget* active);

  // Reads the program in work again.
  void Run();

 private:
  void ShowOffers();
  void ReadInOtherFormat();
  QToolButton* AddButton(const char* text, void (Reload::*press)());

  MainWindow* window_;
  const Drives* drives_;
  QString settingsFile_;
  QFileSystemWatcher watcher_;
  ViewWidget* active_ = nullptr;
  QToolButton* reload_;
  QToolButton* otherFormat_;
};

}  // namespace tvx
