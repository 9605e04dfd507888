// The main window: menus, keys and tool buttons from the command table, child windows with a view
// each, and the status bar.
#pragma once

#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QPrinter>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/legend_dock.h"
#include "desktop/qt_user_interface.h"
#include "desktop/recent_files.h"
#include "desktop/view_widget.h"
#include "shell/command_table.h"

class QLabel;

namespace tvx {

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
  void LoadHostFile(const QString& path);

  // Prints the picture of the view in work. False, with a message, if the printer cannot be used.
  bool PrintTo(QPrinter* printer);

  // Carries out a command of the table. Does nothing for one that is shown disabled.
  void RunCommand(int id);
  // False for a command that is shown disabled.
  bool IsReady(int id) const;

  QWidget* DialogParent() override;
  void RepaintActiveView() override;
  void ShowStatusText(const QString& text) override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // A command of the frame or of the application.
  struct Operation {
    Action action;
    void (*run)(MainWindow* window, int argument);
  };
  static const Operation* FindOperation(Action action);

  void LoadWaitingFiles();
  void NamePrintedDocument();
  void OpenDocument();
  void Print();
  void PreviewPrint();
  void SetUpPrinter();
  void ArrangeIcons();
  void ShowAbout();

  // Opens a file of the drives, in a new view if none is given.
  void OpenFile(const std::string& drivePath, ViewWidget* widget);
  void Cascade();
  void Tile(Qt::Orientation direction);
  QPrinter* Printer();
  void ShowToolIcons();
  void ShowRecentFiles();
  void ShowLockKeys();
  void LoadInto(ViewWidget* widget, const std::string& drivePath);
  void BuildMenus();
  void AddRows(std::span<const MenuRow> rows, QList<QAction*>* menus);
  void BindKeys();
  void BuildToolBar();
  QMenu* BuildPrinterMenu();
  void BuildStatusBar();
  void ShowMenuOfState();
  void ShowFileName();
  void ShowFilePath(const QString& path);
  void ShowFilePathAnew();
  void ShowProgram();

  CTVXApp* app_;
  const Drives* drives_;
  QMdiArea* area_;
  QToolBar* toolBar_ = nullptr;
  LegendDock* legend_;
  QList<QAction*> emptyMenus_;    // menus of the bar while no view is open
  QList<QAction*> workingMenus_;  // and with a view
  std::map<int, std::vector<QAction*>> menuActions_;
  QLabel* text_ = nullptr;
  QString shownPath_;  // of the file that the text pane named last
  std::array<QLabel*, 3> lockKeys_{};
  RecentFiles recent_;
  QMenu* recentMenu_ = nullptr;
  QAction* recentPlace_ = nullptr;  // the entry of the menu where the files stand
  std::vector<QAction*> recentEntries_;
  std::unique_ptr<QPrinter> printer_;  // made at its first use, which takes its time
  int views_ = 0;                      // opened so far
  QStringList waiting_;                // files of the host still to be loaded
  QPointer<ViewWidget> loading_;       // waits for its first paint to load one
};

}  // namespace tvx
