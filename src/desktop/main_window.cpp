#include "desktop/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <set>

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "shell/configuration.h"
#include "shell/lists.h"
#include "shell/user_keys.h"
#include "shell/view_operations.h"

namespace tvx {

namespace {

constexpr char kTitle[] = "TVX";

// What the status bar says while nothing else is to be said.
constexpr char kReadyText[] = "Ready";

// A menu text in Qt's form. A text behind a tab stands on the right of the entry and binds no key.
QString MenuText(const char* text) {
  return QString::fromUtf8(text);
}

}  // namespace

MainWindow::MainWindow(CTVXApp* app, const Drives* drives) : app_(app), drives_(drives) {
  setWindowIcon(ProgramIcon());
  setAcceptDrops(true);
  resize(1100, 760);
  area_ = new QMdiArea(this);
  setCentralWidget(area_);
  legend_ = new LegendDock(this);
  addDockWidget(Qt::RightDockWidgetArea, legend_);
  BuildMenus();
  BuildToolBar();
  BuildStatusBar();
  BindKeys();
  connect(area_, &QMdiArea::subWindowActivated, this, [this] {
    ShowMenuOfState();
    ShowFileName();
    ShowProgram();
  });
  ShowMenuOfState();
  ShowFileName();
}

ViewWidget* MainWindow::NewView() {
  auto* const widget = new ViewWidget(app_);
  QMdiSubWindow* const child = area_->addSubWindow(widget);
  child->setAttribute(Qt::WA_DeleteOnClose);
  child->setWindowTitle(kTitle);
  child->setWindowIcon(ProgramIcon());
  connect(widget, &ViewWidget::Drawn, this, [this, widget] {
    if (widget != ActiveView()) return;
    ShowFileName();
    legend_->ShowColours(&widget->view());
  });
  child->showMaximized();
  widget->setFocus();
  return widget;
}

ViewWidget* MainWindow::ActiveView() const {
  QMdiSubWindow* const child = area_->activeSubWindow();
  return child == nullptr ? nullptr : qobject_cast<ViewWidget*>(child->widget());
}

void MainWindow::LoadHostFile(const QString& path) {
  const std::optional<std::string> drivePath = drives_->FromHost(FromQt(path));
  if (!drivePath.has_value()) return;
  ViewWidget* const active = ActiveView();
  LoadInto(active == nullptr ? NewView() : active, *drivePath);
}

void MainWindow::LoadInto(ViewWidget* widget, const std::string& drivePath) {
  if (widget->HasBeenDrawn()) {
    LoadProgram(&widget->view(), drivePath);
    ShowProgram();
    return;
  }
  // Only the first paint gives the drawing area its size, which the fit needs.
  connect(
      widget, &ViewWidget::Drawn, this, [this, widget, drivePath] { LoadInto(widget, drivePath); },
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

bool MainWindow::IsReady(int id) const {
  const Action action = FindCommand(id).action;
  if (IsViewAction(action)) return ActiveView() != nullptr;
  static const std::set<Action> kFrameActions = {
      Action::kNewDocument,    Action::kOpenDocument, Action::kExit,    Action::kToolbar,
      Action::kStatusBar,      Action::kNewWindow,    Action::kCascade, Action::kTileHorizontally,
      Action::kTileVertically, Action::kArrangeIcons, Action::kAbout,
  };
  return kFrameActions.contains(action);
}

void MainWindow::RunCommand(int id) {
  if (!IsReady(id)) return;
  const Command command = FindCommand(id);
  if (IsViewAction(command.action)) {
    RunViewAction(&ActiveView()->view(), command.action, command.argument);
    ShowProgram();
    return;
  }
  switch (command.action) {
    case Action::kNewDocument:
    case Action::kNewWindow:
      NewView();
      break;
    case Action::kOpenDocument: {
      std::string path;
      const FileQuestion question{.save = false,
                                  .defaultExtension = "",
                                  .fileName = "",
                                  .filter = "Nc file (*.nc)|*.nc|모든 화일(*.*)|*.*||",
                                  .directory = ""};
      if (app_->ui->ChooseFile(question, &path)) LoadInto(NewView(), path);
      break;
    }
    case Action::kExit:
      close();
      break;
    case Action::kToolbar:
      toolBar_->setVisible(!toolBar_->isVisible());
      break;
    case Action::kStatusBar:
      statusBar()->setVisible(!statusBar()->isVisible());
      break;
    case Action::kCascade:
      area_->cascadeSubWindows();
      break;
    case Action::kTileHorizontally:
    case Action::kTileVertically:
      area_->tileSubWindows();
      break;
    case Action::kAbout:
      ShowAbout();
      break;
    case Action::kEditConfiguration:
      EditConfiguration(&app_->configuration, app_->files, app_->ui);
      break;
    case Action::kEditDirectoryList:
      EditDirectoryList(app_->configuration.EnvDir, &app_->DirectoryList, app_->files, app_->ui);
      break;
    case Action::kEditUserKey:
      EditUserKey(static_cast<size_t>(command.argument), &app_->UserKeys, app_->ui);
      break;
    case Action::kWriteUserKeys:
      WriteUserKeys(app_->configuration.EnvDir, app_->UserKeys, app_->files);
      break;
    default:
      break;
  }
  ShowMenuOfState();
}

void MainWindow::AddRows(std::span<const MenuRow> rows, std::vector<QAction*>* menus) {
  QMenu* menu = nullptr;
  QMenu* submenu = nullptr;
  std::string title;
  std::string subtitle;
  for (const MenuRow& row : rows) {
    if (menu == nullptr || title != row.menu) {
      title = row.menu;
      subtitle.clear();
      menu = menuBar()->addMenu(MenuText(row.menu));
      connect(menu, &QMenu::aboutToShow, this, &MainWindow::ShowMenuOfState);
      menus->push_back(menu->menuAction());
    }
    QMenu* place = menu;
    if (*row.submenu != '\0') {
      if (subtitle != row.submenu) submenu = menu->addMenu(MenuText(row.submenu));
      subtitle = row.submenu;
      place = submenu;
    }
    QAction* const entry = place->addAction(MenuText(row.text));
    const Command command = FindCommand(row.id);
    entry->setStatusTip(ToQt(command.prompt));
    entry->setCheckable(command.action == Action::kToolbar || command.action == Action::kStatusBar);
    connect(entry, &QAction::triggered, this, [this, id = row.id] { RunCommand(id); });
    menuActions_[row.id].push_back(entry);
  }
}

void MainWindow::BuildMenus() {
  AddRows(EmptyMenu(), &emptyMenus_);
  AddRows(WorkingMenu(), &workingMenus_);
  // The legend is this program's own and has no command of the table.
  for (QAction* const entry : menuActions_[59393]) {
    const auto menus = entry->associatedObjects();
    for (QObject* const menu : menus) {
      if (auto* const place = qobject_cast<QMenu*>(menu))
        place->addAction(legend_->toggleViewAction());
    }
  }
}

// The keys of the view come first: F6 is a view there and nothing in the frame.
void MainWindow::BindKeys() {
  std::set<QString> bound;
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const Accelerator& accelerator : table) {
      if (FindCommand(accelerator.id).action == Action::kNone) continue;
      if (!bound.insert(accelerator.key).second) continue;
      auto* const shortcut = new QShortcut(QKeySequence(accelerator.key), this);
      connect(shortcut, &QShortcut::activated, this,
              [this, id = accelerator.id] { RunCommand(id); });
    }
  }
}

void MainWindow::BuildToolBar() {
  toolBar_ = addToolBar(tr("Toolbar"));
  toolBar_->setObjectName("toolBar");
  for (const ToolButton& button : ToolBar()) {
    if (button.id == 0) {
      toolBar_->addSeparator();
      continue;
    }
    QAction* const action = toolBar_->addAction(ToolIcon(button.id), ToQt(button.text));
    action->setStatusTip(ToQt(FindCommand(button.id).prompt));
    connect(action, &QAction::triggered, this, [this, id = button.id] { RunCommand(id); });
    menuActions_[button.id].push_back(action);
  }
}

void MainWindow::BuildStatusBar() {
  text_ = new QLabel(kReadyText, this);
  file_ = new QLabel(this);
  statusBar()->addWidget(text_, 1);
  statusBar()->addPermanentWidget(file_);
  for (const char* const name : {"CAP", "NUM", "SCRL"}) {
    auto* const pane = new QLabel(name, this);
    pane->setEnabled(false);
    statusBar()->addPermanentWidget(pane);
    keyStates_.push_back(pane);
  }
}

void MainWindow::ShowMenuOfState() {
  const bool working = ActiveView() != nullptr;
  for (QAction* const menu : emptyMenus_) menu->setVisible(!working);
  for (QAction* const menu : workingMenus_) menu->setVisible(working);
  for (const auto& [id, actions] : menuActions_) {
    for (QAction* const action : actions) {
      action->setEnabled(IsReady(id));
      if (FindCommand(id).action == Action::kToolbar) action->setChecked(toolBar_->isVisible());
      if (FindCommand(id).action == Action::kStatusBar) {
        action->setChecked(statusBar()->isVisible());
      }
    }
  }
}

void MainWindow::ShowFileName() {
  ViewWidget* const active = ActiveView();
  const QString name = active == nullptr ? QString() : ToQt(active->view().fileName);
  setWindowTitle(name.isEmpty() ? kTitle : name + " - " + kTitle);
  file_->setText(name);
  if (active != nullptr) active->parentWidget()->setWindowTitle(name.isEmpty() ? kTitle : name);
}

// The program or its feeds may have changed.
void MainWindow::ShowProgram() {
  ViewWidget* const active = ActiveView();
  legend_->ShowProgram(active == nullptr ? nullptr : &active->view());
}

void MainWindow::ShowAbout() {
  QMessageBox box(this);
  box.setWindowTitle("About TVX");
  box.setIconPixmap(ProgramIcon().pixmap(48, 48));
  box.setText("TVX Afa Version 3.1");
  box.exec();
}

QWidget* MainWindow::DialogParent() {
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog == nullptr ? this : dialog;
}

void MainWindow::RepaintActiveView() {
  if (ViewWidget* const active = ActiveView()) active->Redraw();
}

void MainWindow::ShowStatusText(const QString& text) {
  text_->setText(text);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) LoadHostFile(url.toLocalFile());
  }
}

}  // namespace tvx
