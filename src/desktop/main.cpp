// tvx, the desktop program.

#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <clocale>
#include <memory>

#include "desktop/main_window.h"
#include "desktop/qt_text.h"
#include "desktop/qt_user_interface.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/host_programs.h"
#include "shell/application.h"

int main(int argc, char** argv) {
  QApplication qt(argc, argv);
  // The application takes the user's locale; numbers are read and printed alike everywhere.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("TVX");

  const std::filesystem::path home = tvx::Drives::DefaultHome();
  const tvx::Drives drives(home);
  const std::unique_ptr<tvx::Files> files = tvx::MakeHostFiles(&drives);
  tvx::QtUserInterface ui(&drives, files.get());
  tvx::HostPrograms programs(&drives, [] { QTimer::singleShot(0, qApp, &QApplication::quit); });
  tvx::CTVXApp app(files.get(), &ui, &programs);
  app.InitApplication();

  tvx::MainWindow window(&app, &drives, tvx::ToQt((home / "desktop.ini").string()));
  ui.SetWindow(&window);
  window.NewView();
  window.showMaximized();
  const QStringList arguments = QApplication::arguments();
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    window.LoadHostFile(QFileInfo(arguments[i]).absoluteFilePath());
  }
  return QApplication::exec();
}
