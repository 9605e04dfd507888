// Builds actions from the command tables and keeps them enabled and checked.
#include "desktop/window/menus.h"

#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <set>
#include <string>

#include "desktop/language.h"
#include "desktop/window/icons.h"
#include "desktop/window/main_window.h"

namespace tvx {

Menus::Menus(MainWindow* window, const MenuAdditions& additions)
    : QObject(window), window_(window) {
  AddRows(EmptyMenu(), &emptyMenus_, additions);
  AddRows(WorkingMenu(), &workingMenus_, additions);
  BuildToolBar();
  BindKeys();
}

QWidget* Menus::BarOf(CommandId id) const {
  if (id == CommandId::kToolBar) return toolBar_;
  return id == CommandId::kStatusBar ? window_->statusBar() : nullptr;
}

// A text after a tab is printed at the right of the entry and binds no key.
QAction* Menus::Add(QWidget* place, CommandId id, const QString& text) {
  QAction* const action = place->addAction(text);
  action->setStatusTip(Translated(window_->PromptOf(id)));
  action->setCheckable(id == CommandId::kToolBar || id == CommandId::kStatusBar ||
                       id == CommandId::kToggleRapids);
  connect(action, &QAction::triggered, window_, [this, id] { window_->RunCommand(id); });
  actions_[id].push_back(action);
  return action;
}

void Menus::AddRows(std::span<const MenuRow> rows, QList<QAction*>* menus,
                    const MenuAdditions& additions) {
  QMenu* menu = nullptr;
  QMenu* submenu = nullptr;
  std::string title;
  std::string subtitle;
  for (const MenuRow& row : rows) {
    if (menu == nullptr || title != row.menu) {
      title = row.menu;
      subtitle.clear();
      menu = new QMenu(Translated(row.menu), window_->menuBar());
      connect(menu, &QMenu::aboutToShow, this, &Menus::ShowState);
      menus->push_back(menu->menuAction());
    }
    QMenu* place = menu;
    if (*row.submenu != '\0') {
      if (subtitle != row.submenu) submenu = menu->addMenu(Translated(row.submenu));
      subtitle = row.submenu;
      place = submenu;
    }
    QAction* const entry = Add(place, row.id, Translated(row.text));
    if (row.id == CommandId::kStatusBar) place->addActions(additions.view);
    if (row.id == CommandId::kAbout) place->addActions(additions.help);
    if (row.id == CommandId::kRecentFiles) {
      recentPlace_ = entry;
      recentMenu_ = place;
    }
  }
}

void Menus::BuildToolBar() {
  toolBar_ = window_->addToolBar(tr("Toolbar"));
  toolBar_->setObjectName("toolBar");
  for (const ToolButton& button : tvx::ToolBar()) {
    if (button.id == CommandId::kNone) {
      toolBar_->addSeparator();
      continue;
    }
    QAction* const action = Add(toolBar_, button.id, ToQt(button.text));
    action->setData(static_cast<int>(button.id));
    if (button.id == CommandId::kLoad) {
      auto* const opening = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
      opening->setMenu(openMenu_ = new QMenu(window_));
      opening->setPopupMode(QToolButton::MenuButtonPopup);
    }
    if (button.id != CommandId::kPrint) continue;
    auto* const printer = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
    printer->setMenu(BuildPrinterMenu());
    printer->setPopupMode(QToolButton::MenuButtonPopup);
  }
  ShowToolIcons();
}

QMenu* Menus::BuildPrinterMenu() {
  auto* const menu = new QMenu(window_);
  for (const MenuRow& row : PrinterMenu()) Add(menu, row.id, Translated(row.text));
  return menu;
}

void Menus::ShowToolIcons() {
  for (QAction* const action : toolBar_->actions()) {
    if (action->isSeparator()) continue;
    action->setIcon(ToolIcon(static_cast<CommandId>(action->data().toInt())));
  }
}

// The keys of the view come first: F6 turns the view and has no meaning for the frame.
void Menus::BindKeys() {
  std::set<QString> bound;
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const Accelerator& accelerator : table) {
      if (!window_->HasCommand(accelerator.id)) continue;
      if (!bound.insert(accelerator.key).second) continue;
      auto* const shortcut = new QShortcut(QKeySequence(accelerator.key), window_);
      connect(shortcut, &QShortcut::activated, window_,
              [this, id = accelerator.id] { window_->RunCommand(id); });
    }
  }
}

// They are no children of the window: they can go while it shows its children.
void Menus::ShowRecentFiles(const QStringList& paths) {
  qDeleteAll(recentEntries_);
  recentEntries_.clear();
  recentPlace_->setVisible(paths.isEmpty());
  for (qsizetype i = 0; i < paths.size(); ++i) {
    auto* const entry = new QAction(
        QString("&%1 %2").arg(i + 1).arg(QString(paths[i]).replace("&", "&&")), recentMenu_);
    connect(entry, &QAction::triggered, this,
            [this, path = paths[i]] { emit RecentFileChosen(path); });
    recentMenu_->insertAction(recentPlace_, entry);
    openMenu_->addAction(entry);
    recentEntries_.push_back(entry);
  }
}

void Menus::ShowState() {
  // Out of the bar and not just hidden: a hidden menu keeps its letter, and with two menus for
  // Alt+F neither opens.
  const QList<QAction*>& menus = window_->ActiveView() != nullptr ? workingMenus_ : emptyMenus_;
  QMenuBar* const bar = window_->menuBar();
  if (bar->actions() != menus) {
    bar->clear();
    bar->addActions(menus);
  }
  ViewWidget* const active = window_->ActiveView();
  const bool showsRapids = active != nullptr && active->view().view.RapidVisible == 1;
  for (const auto& [id, actions] : actions_) {
    const QWidget* const toggled = BarOf(id);
    for (QAction* const action : actions) {
      action->setEnabled(window_->IsReady(id));
      if (toggled != nullptr) action->setChecked(toggled->isVisible());
      if (id == CommandId::kToggleRapids) action->setChecked(showsRapids);
    }
  }
}

}  // namespace tvx
