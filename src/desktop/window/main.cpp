// tvx, the desktop program.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTimer>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#include "base/text.h"
#include "desktop/display_options.h"
#include "desktop/language.h"
#include "desktop/window/main_window.h"
#include "desktop/window/qt_user_interface.h"
#include "platform/files/drives.h"
#include "platform/files/files.h"
#include "platform/processes/host_programs.h"
#include "platform/termination.h"
#include "platform/vector_registers.h"
#include "reports/calc_client.h"
#include "session/application.h"

namespace {

// The handler of any event may have painted, and left the vector registers in use.
class WindowApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool isAccepted = QApplication::notify(receiver, event);
    tvx::ReleaseVectorRegisters();
    return isAccepted;
  }
};

struct Arguments {
  tvx::Language language = tvx::Language::kKorean;
  QStringList files;
};

// The option chooses the language, else the environment, else the choice in the window's settings.
// An unknown language is an error in the option and is ignored in the environment.
Arguments ReadArguments(const QString& settingsFile) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Shows tool paths and their machining times.");
  const bool choseEnglish = tvx::ChosenLanguage(settingsFile) == tvx::Language::kEnglish;
  const QString environment = qEnvironmentVariable("TVX_LANGUAGE", choseEnglish ? "en" : "ko");
  const QCommandLineOption language("language", "The language of the windows: ko or en.",
                                    "language", environment);
  parser.addOption(language);
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument("files", "NC programs, each of which gets a window.", "[files...]");
  parser.process(*qApp);
  const QString asked = parser.value(language);
  if (parser.isSet(language) && asked != "ko" && asked != "en") {
    std::fprintf(stderr, "tvx: no language \"%s\": ko or en\n", qPrintable(asked));
    std::exit(2);
  }
  return {asked == "en" ? tvx::Language::kEnglish : tvx::Language::kKorean,
          parser.positionalArguments()};
}

}  // namespace

int main(int argc, char** argv) {
  tvx::PrepareProcess();
  // The toolkit passes no exception on, and the only one that nobody catches is that of a failed
  // allocation.
  tvx::SetProgramName("tvx");
  std::set_terminate(tvx::EndOutOfMemory);
  const WindowApplication qt(argc, argv);
  // QApplication sets the user's locale; numbers are read and printed with a point in any locale.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("TVX");
  QApplication::setApplicationVersion(TVX_VERSION);
  QApplication::setDesktopFileName("tvx");  // by which a desktop finds the icon of the windows
  const std::filesystem::path home = tvx::Drives::DefaultHome();
  const QString settingsFile = tvx::ToQt((home / "desktop.ini").string());
  const Arguments arguments = ReadArguments(settingsFile);
  tvx::UseLanguage(arguments.language);
  if (arguments.language == tvx::Language::kKorean) tvx::SetUpKorean();

  const tvx::Drives drives(home);
  const std::unique_ptr<tvx::Files> files = tvx::MakeHostFiles(&drives);
  tvx::QtUserInterface ui(&drives, files.get());
  if (!tvx::HasCp949()) {
    // What is read or written without it is not what the files hold.
    ui.ShowMessage({.text = ui.Say({"시스템에 CP949 변환기가 없습니다. libc6 꾸러미를, 있으면 "
                                    "libc-gconv-modules-extra 꾸러미를 설치하십시오.",
                                    "The system has no converter for CP949. Install the package "
                                    "libc6, or libc-gconv-modules-extra where that exists."}),
                    .icon = tvx::MessageIcon::kStop});
    return 1;
  }
  tvx::HostPrograms programs(&drives, [] { QTimer::singleShot(0, qApp, &QApplication::quit); });
  tvx::CalcSpreadsheets spreadsheets(&drives);
  tvx::CTVXApp app(files.get(), &ui, &programs, &spreadsheets);
  app.InitApplication(arguments.language);
  app.NoteUnread(drives.tableStatus().For((home / "drives.txt").string()));

  tvx::MainWindow window(&app, &drives, settingsFile);
  ui.SetWindow(&window);
  window.NewView();
  window.ShowAsLeft();
  for (const QString& file : arguments.files) {
    window.LoadHostFile(QFileInfo(file).absoluteFilePath());
  }
  return QApplication::exec();
}
