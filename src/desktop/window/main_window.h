// The main window: child windows with a view each, the commands of the frame, and what the title,
// the status bar and the docks show of the view in work.
#pragma once

#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QTimer>
#include <string>
#include <vector>

#include "desktop/docks/docks.h"
#include "desktop/window/active_changes.h"
#include "desktop/window/file_opener.h"
#include "desktop/window/menus.h"
#include "desktop/window/printing.h"
#include "desktop/window/qt_user_interface.h"
#include "desktop/window/status_bar.h"
#include "desktop/window/view_widget.h"

namespace tvx {

class Leaving;
class Reload;

class MainWindow : public QMainWindow, public InterfaceWindow {
  Q_OBJECT

 public:
  // Application and drives outlive the window. The settings file, a path of the host, keeps the
  // files opened last; without one they last for the run of the program.
  MainWindow(CTVXApp* app, const Drives* drives, const QString& settingsFile = {});
  ~MainWindow() override;

  // A new child window with a view of its own: own program, record and tables.
  ViewWidget* NewView();
  // The view in work, or null if no child window is open.
  ViewWidget* ActiveView() const;

  // Loads a file of the host into the view in work if that is still empty, else into a new one.
  // The user gets a message if there is no such file.
  void LoadHostFile(const QString& path) { opener_->LoadHostFile(path); }

  // Prints the picture of the view in work. False, with a message, if the printer cannot be used.
  bool PrintTo(QPrinter* printer) { return printing_.PrintTo(printer, &ActiveView()->view()); }

  CTVXApp* app() const { return app_; }

  // Carries out a command. Does nothing for one that is not ready.
  void RunCommand(CommandId id);
  // False for a command that is shown disabled: without a row, or without the view that it needs.
  bool IsReady(CommandId id) const;
  // False for a command without a row.
  static bool HasCommand(CommandId id);
  // The text in the status bar while an entry of the command is marked, in Korean; "" for none.
  static const char* PromptOf(CommandId id);

  // Shows the window with the size, the place and the docks that it had when it was closed last; at
  // the first start as large as the screen.
  void ShowAsLeft();

  // Shows the path of the file in work in place of the text of the last command.
  void ShowPathInStatusBar() { statusBar_->ShowPath(); }

  QWidget* ParentOfNewDialog() override;
  void ShowStatusText(const QString& text) override { statusBar_->ShowText(text); }
  ProgressBar* WorkBar() override { return statusBar_->progress(); }
  void OfferToOpen(const QString& file) override { statusBar_->OfferToOpen(file); }

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // A command of the frame or of the application.
  struct FrameCommand {
    CommandId id;
    void (*run)(MainWindow* window, int argument);
    int argument = 0;
    const char* prompt = "";
    bool needsView = false;
  };
  static const FrameCommand* FindFrameCommand(CommandId id);

  // The choosers start in the configured work directory, until a file is opened elsewhere.
  void EnterWorkDirectory();
  void BindChildWindowKeys();
  // Another child window, or none, or the same again has come to the front.
  void ShowActiveView();
  void ShowFileName();
  // What is known of a marked move, in words; empty for no mark.
  QString MoveTextOf(CTVXView* view, Mark mark) const;
  void ShowHoveredMove();
  void ShowKeptMove();
  // Has the programs of the view in work checked in steps, when nothing else is to be done.
  void StartCheck();
  void CheckMore();
  void Listen(ChangeSet changes, void (MainWindow::*listener)(), Timing timing = Timing::kSettled);
  void ShowAbout();

  Menus* menus_ = nullptr;
  CTVXApp* app_;
  QMdiArea* area_;
  ActiveChanges changes_;
  std::vector<Subscription> subscriptions_;
  std::vector<ViewDock*> docks_;
  StatusBar* statusBar_;
  FileOpener* opener_;
  Reload* reload_;
  Leaving* leaving_;
  Printing printing_;
  QString settingsFile_;
  QTimer checkSteps_;
  std::string workDirectory_;  // as the files report it
  int views_ = 0;              // opened so far
  QString shown_;  // name of the view that title, status bar and docks show; "" for none
};

}  // namespace tvx
