// The menus, the keys and the tool bar of the main window, built from the tables of
// session/command_table.h.
#pragma once

#include <QAction>
#include <QStringList>
#include <map>
#include <span>
#include <vector>

#include "session/command_table.h"

class QMenu;
class QToolBar;

namespace tvx {

class MainWindow;

// Entries that follow the commands of both View menus and of both Help menus.
struct MenuAdditions {
  QList<QAction*> view;
  QList<QAction*> help;
};

class Menus : public QObject {
  Q_OBJECT

 public:
  // Builds them on a window, which carries out the commands.
  Menus(MainWindow* window, const MenuAdditions& additions);

  // The bar that a command shows or hides; null for any other command.
  QWidget* BarOf(CommandId id) const;

  // Shows the menus that belong to the state of the window, and which of their commands are ready
  // and switched on.
  void ShowState();

  // Shows the files opened last, drive paths, in the empty menu.
  void ShowRecentFiles(const QStringList& paths);

  // Draws the icons of the tool bar in the colours of the desktop, which can change from light to
  // dark while the program runs.
  void ShowToolIcons();

 signals:
  // The user has chosen one of the files opened last.
  void RecentFileChosen(const QString& path);

 private:
  QAction* Add(QWidget* place, CommandId id, const QString& text);
  void AddRows(std::span<const MenuRow> rows, QList<QAction*>* menus,
               const MenuAdditions& additions);
  void BuildToolBar();
  QMenu* BuildPrinterMenu();
  void BindKeys();

  MainWindow* window_;
  QToolBar* toolBar_ = nullptr;
  QList<QAction*> emptyMenus_;    // menus of the bar while no view is open
  QList<QAction*> workingMenus_;  // and with a view
  std::map<CommandId, std::vector<QAction*>> actions_;
  QMenu* recentMenu_ = nullptr;
  QMenu* openMenu_ = nullptr;       // of the tool button: the recent files again
  QAction* recentPlace_ = nullptr;  // the entry that the recent files replace
  std::vector<QAction*> recentEntries_;
};

}  // namespace tvx
