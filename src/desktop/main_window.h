// The main window: menus, keys and tool buttons from the command table, child windows with a view
// each, and the status bar.
#pragma once

#include <QMainWindow>
#include <QMdiArea>
#include <map>
#include <string>
#include <vector>

#include "desktop/legend_dock.h"
#include "desktop/qt_user_interface.h"
#include "desktop/view_widget.h"
#include "shell/command_table.h"

class QLabel;

namespace tvx {

class MainWindow : public QMainWindow, public InterfaceWindow {
  Q_OBJECT

 public:
  // Application, interface and drives outlive the window.
  MainWindow(CTVXApp* app, const Drives* drives);

  // A new child window with a view of its own: own program, record and tables.
  ViewWidget* NewView();
  // The view in work, or null if no child window is open.
  ViewWidget* ActiveView() const;

  // Loads a file of the host into the view in work, or a new one.
  void LoadHostFile(const QString& path);

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

 private:
  void LoadInto(ViewWidget* widget, const std::string& drivePath);
  void BuildMenus();
  void AddRows(std::span<const MenuRow> rows, std::vector<QAction*>* menus);
  void BindKeys();
  void BuildToolBar();
  void BuildStatusBar();
  void ShowKeyStates();
  void ShowMenuOfState();
  void ShowFileName();
  void ShowProgram();
  void ShowAbout();

  CTVXApp* app_;
  const Drives* drives_;
  QMdiArea* area_;
  QToolBar* toolBar_ = nullptr;
  LegendDock* legend_;
  std::vector<QAction*> emptyMenus_;    // menus of the bar while no view is open
  std::vector<QAction*> workingMenus_;  // and with a view
  std::map<int, std::vector<QAction*>> menuActions_;
  QLabel* text_ = nullptr;
  QLabel* file_ = nullptr;
  std::vector<QLabel*> keyStates_;
};

}  // namespace tvx
