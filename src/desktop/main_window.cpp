#include "desktop/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <iterator>
#include <set>

#include "base/path_text.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/language.h"
#include "desktop/picture_printer.h"
#include "desktop/qt_text.h"
#include "platform/lock_keys.h"
#include "platform/vector_registers.h"
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
  return Translated(text);
}

}  // namespace

MainWindow::MainWindow(CTVXApp* app, const Drives* drives, const QString& settingsFile)
    : app_(app), drives_(drives), recent_(settingsFile) {
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
    ShowRecentFiles();
    ShowFileName();
    ShowProgram();
  });
  ShowMenuOfState();
  ShowFileName();
}

// The child windows go after the members of this one, and their going must not reach it.
MainWindow::~MainWindow() {
  area_->disconnect(this);
}

ViewWidget* MainWindow::NewView() {
  auto* const widget = new ViewWidget(app_);
  QMdiSubWindow* const child = area_->addSubWindow(widget);
  child->setAttribute(Qt::WA_DeleteOnClose);
  widget->setObjectName(kTitle + QString::number(++views_));
  child->setWindowTitle(widget->objectName());
  child->setWindowIcon(ProgramIcon());
  // Its menu has the key that closes it for the frame alone; two owners of a key make it dead.
  for (QAction* const action : child->systemMenu()->actions()) action->setShortcuts({});
  connect(widget, &ViewWidget::Drawn, this, [this, widget] {
    if (widget != ActiveView()) return;
    ShowFileName();
    legend_->ShowColours(&widget->view());
  });
  connect(widget, &ViewWidget::CommandPadClosed, this, [this] { ShowProgram(); });
  child->showMaximized();
  widget->setFocus();
  return widget;
}

ViewWidget* MainWindow::ActiveView() const {
  // The child window that keeps the menus also while a dialog or another program is in front.
  QMdiSubWindow* const child = area_->currentSubWindow();
  return child == nullptr ? nullptr : qobject_cast<ViewWidget*>(child->widget());
}

void MainWindow::LoadHostFile(const QString& path) {
  waiting_.append(path);
  LoadWaitingFiles();
}

// One after the other: a view gets its size by its first paint, and only the one in front is
// painted. The file behind may also count on what this one leaves in the parser.
void MainWindow::LoadWaitingFiles() {
  while (!waiting_.isEmpty() && loading_.isNull()) {
    const QString path = waiting_.takeFirst();
    const std::optional<std::string> drivePath = drives_->FromHost(FromQt(path));
    if (!drivePath.has_value()) {
      app_->ui->ShowMessage(
          {.text = FromQt(path + "\n\n" + Translated("드라이브에 없는 화일입니다."))});
      continue;
    }
    ViewWidget* const active = ActiveView();
    const bool isFree = active != nullptr && active->view().fileName.empty();
    OpenFile(*drivePath, isFree ? active : nullptr);
  }
}

// Only the load command creates a file that is not there: its chooser lets a new name be typed.
void MainWindow::OpenFile(const std::string& drivePath, ViewWidget* widget) {
  if (!app_->files->Exists(drivePath)) {
    app_->ui->ShowMessage(
        {.text = drivePath + "\n\n" + FromQt(Translated("화일을 열수 없읍니다.\n"))});
    return;
  }
  // As a chooser does: pictures and reports go where the program lies.
  app_->files->SetCurrentDirectory(PathBeforeName(drivePath, kBackslash));
  LoadInto(widget == nullptr ? NewView() : widget, drivePath);
}

void MainWindow::LoadInto(ViewWidget* widget, const std::string& drivePath) {
  if (widget->HasBeenDrawn()) {
    ShowFilePathAnew();
    if (LoadProgram(&widget->view(), drivePath) == LoadResult::kLoaded) {
      recent_.Add(ToQt(drivePath));
    }
    ShowProgram();
    return;
  }
  // Only the first paint gives the drawing area its size, which the fit needs. The name says that
  // the view is taken.
  widget->view().fileName = NameOfPath(drivePath, kBackslash);
  loading_ = widget;
  const auto load = [this, widget, drivePath] {
    LoadInto(widget, drivePath);
    loading_.clear();
    LoadWaitingFiles();
  };
  connect(widget, &ViewWidget::Drawn, this, load,
          static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  connect(widget, &QObject::destroyed, this, &MainWindow::LoadWaitingFiles, Qt::QueuedConnection);
}

namespace {

void Toggle(QWidget* bar) {
  bar->setVisible(!bar->isVisible());
}

// Commands of the frame that have no picture to show while no view is open.
bool ShowsPicture(Action action) {
  return action == Action::kPrint || action == Action::kPrintPreview;
}

// Commands that change what is shown of a program, and not the program.
bool ChangesPictureOnly(Action action) {
  return action == Action::kViewMode || action == Action::kFit || action == Action::kRedraw ||
         action == Action::kToggleRapids;
}

}  // namespace

const MainWindow::Operation* MainWindow::FindOperation(Action action) {
  static constexpr Operation kOperations[] = {
      {Action::kNewDocument, [](MainWindow* window, int) { window->NewView(); }},
      {Action::kNewWindow, [](MainWindow* window, int) { window->NewView(); }},
      {Action::kOpenDocument, [](MainWindow* window, int) { window->OpenDocument(); }},
      {Action::kPrint, [](MainWindow* window, int) { window->Print(); }},
      {Action::kPrintPreview, [](MainWindow* window, int) { window->PreviewPrint(); }},
      {Action::kPrintSetup, [](MainWindow* window, int) { window->SetUpPrinter(); }},
      {Action::kExit, [](MainWindow* window, int) { window->close(); }},
      {Action::kToolbar, [](MainWindow* window, int) { Toggle(window->toolBar_); }},
      {Action::kStatusBar, [](MainWindow* window, int) { Toggle(window->statusBar()); }},
      {Action::kCascade, [](MainWindow* window, int) { window->Cascade(); }},
      {Action::kTileHorizontally, [](MainWindow* window, int) { window->Tile(Qt::Vertical); }},
      {Action::kTileVertically, [](MainWindow* window, int) { window->Tile(Qt::Horizontal); }},
      {Action::kArrangeIcons, [](MainWindow* window, int) { window->ArrangeIcons(); }},
      {Action::kAbout, [](MainWindow* window, int) { window->ShowAbout(); }},
      {Action::kEditConfiguration,
       [](MainWindow* window, int) {
         EditConfiguration(&window->app_->configuration, window->app_->files, window->app_->ui);
       }},
      {Action::kEditDirectoryList,
       [](MainWindow* window, int) {
         CTVXApp* const app = window->app_;
         EditDirectoryList(app->configuration.EnvDir, &app->DirectoryList, app->files, app->ui);
       }},
      {Action::kEditUserKey,
       [](MainWindow* window, int key) {
         EditUserKey(static_cast<size_t>(key), &window->app_->UserKeys, window->app_->ui);
       }},
      {Action::kWriteUserKeys,
       [](MainWindow* window, int) {
         CTVXApp* const app = window->app_;
         WriteUserKeys(app->configuration.EnvDir, app->UserKeys, app->files);
       }},
  };
  const Operation* const end = std::end(kOperations);
  const Operation* const found = std::ranges::find(kOperations, action, &Operation::action);
  return found == end ? nullptr : found;
}

bool MainWindow::IsReady(int id) const {
  const Action action = FindCommand(id).action;
  if (IsViewAction(action)) return ActiveView() != nullptr;
  return FindOperation(action) != nullptr && (!ShowsPicture(action) || ActiveView() != nullptr);
}

void MainWindow::RunCommand(int id) {
  if (!IsReady(id)) return;
  const Command command = FindCommand(id);
  if (const Operation* const operation = FindOperation(command.action)) {
    operation->run(this, command.argument);
    ShowMenuOfState();
    return;
  }
  CTVXView* const view = &ActiveView()->view();
  if (!ChangesPictureOnly(command.action)) ShowFilePathAnew();
  ReleaseVectorRegisters();  // the menus have been painted
  const uint32_t loads = view->loads;
  RunViewAction(view, command.action, command.argument);
  if (command.action == Action::kLoad && view->loads != loads) recent_.Add(ToQt(view->filePath));
  if (!ChangesPictureOnly(command.action)) ShowProgram();
}

void MainWindow::OpenDocument() {
  std::string path;
  const FileQuestion question{.save = false,
                              .defaultExtension = "",
                              .fileName = "",
                              .filter = "Nc file (*.nc)|*.nc|모든 화일(*.*)|*.*||",
                              .directory = ""};
  if (app_->ui->ChooseFile(question, &path)) OpenFile(path, nullptr);
}

QPrinter* MainWindow::Printer() {
  if (printer_ == nullptr) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setPageOrientation(QPageLayout::Landscape);
  }
  return printer_.get();
}

void MainWindow::SetUpPrinter() {
  QPageSetupDialog(Printer(), this).exec();
}

// A file that the last program was printed to is not offered for another one.
void MainWindow::NamePrintedDocument() {
  const QString name = ToQt(ActiveView()->view().fileName);
  if (name == Printer()->docName()) return;
  Printer()->setDocName(name);
  Printer()->setOutputFileName({});
}

void MainWindow::Print() {
  NamePrintedDocument();
  if (QPrintDialog(Printer(), this).exec() == QDialog::Accepted) PrintTo(Printer());
}

void MainWindow::PreviewPrint() {
  NamePrintedDocument();
  QPrintPreviewDialog preview(Printer(), this);
  connect(&preview, &QPrintPreviewDialog::paintRequested, this, &MainWindow::PrintTo);
  preview.exec();
}

bool MainWindow::PrintTo(QPrinter* printer) {
  CTVXView& view = ActiveView()->view();
  QPainter painter;
  if (!painter.begin(printer)) {
    app_->ui->ShowMessage({.text = "인쇄할 수 없습니다."});
    return false;
  }
  PaintOnPage({&view.program, &view.job, &view.view},
              QRectF(QPointF(0, 0), printer->pageRect(QPrinter::DevicePixel).size()), &painter);
  return painter.end();
}

// One behind the other, none of them larger than the area leaves room for.
void MainWindow::Cascade() {
  area_->cascadeSubWindows();
  QList<QMdiSubWindow*> open = area_->subWindowList();
  open.removeIf([](const QMdiSubWindow* child) { return child->isMinimized(); });
  QPoint last;
  for (const QMdiSubWindow* const child : open) {
    last = {std::max(last.x(), child->x()), std::max(last.y(), child->y())};
  }
  const QSize room = area_->viewport()->size() - QSize(last.x(), last.y());
  for (QMdiSubWindow* const child : open) child->resize(child->size().boundedTo(room));
}

// One below the other, or side by side.
void MainWindow::Tile(Qt::Orientation direction) {
  QList<QMdiSubWindow*> open = area_->subWindowList();
  open.removeIf([](const QMdiSubWindow* child) { return child->isMinimized(); });
  const QRect all = area_->viewport()->rect();
  const int count = static_cast<int>(open.size());
  for (int i = 0; i < count; ++i) {
    open[i]->showNormal();
    if (direction == Qt::Vertical) {
      const int top = all.height() * i / count;
      open[i]->setGeometry(0, top, all.width(), all.height() * (i + 1) / count - top);
    } else {
      const int left = all.width() * i / count;
      open[i]->setGeometry(left, 0, all.width() * (i + 1) / count - left, all.height());
    }
  }
}

// Along the foot of the area, from the left.
void MainWindow::ArrangeIcons() {
  QPoint place = area_->viewport()->rect().bottomLeft();
  for (QMdiSubWindow* const child : area_->subWindowList()) {
    if (!child->isMinimized()) continue;
    child->move(place.x(), place.y() + 1 - child->height());
    place.rx() += child->width();
  }
}

void MainWindow::AddRows(std::span<const MenuRow> rows, QList<QAction*>* menus) {
  QMenu* menu = nullptr;
  QMenu* submenu = nullptr;
  std::string title;
  std::string subtitle;
  for (const MenuRow& row : rows) {
    if (menu == nullptr || title != row.menu) {
      title = row.menu;
      subtitle.clear();
      menu = new QMenu(MenuText(row.menu), menuBar());
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
    if (FindCommand(row.id).action == Action::kRecentFiles) {
      recentPlace_ = entry;
      recentMenu_ = place;
    }
    const Command command = FindCommand(row.id);
    entry->setStatusTip(Translated(command.prompt));
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
  // The usual keys of windows within a window, which the area leaves to the child's own frame.
  const auto bind = [this](const char* keys, void (QMdiArea::*operation)()) {
    connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, area_, operation);
  };
  bind("Ctrl+F4", &QMdiArea::closeActiveSubWindow);
  bind("Ctrl+F6", &QMdiArea::activateNextSubWindow);
  bind("Ctrl+Shift+F6", &QMdiArea::activatePreviousSubWindow);
}

void MainWindow::BuildToolBar() {
  toolBar_ = addToolBar(tr("Toolbar"));
  toolBar_->setObjectName("toolBar");
  for (const ToolButton& button : ToolBar()) {
    if (button.id == 0) {
      toolBar_->addSeparator();
      continue;
    }
    QAction* const action = toolBar_->addAction(ToQt(button.text));
    action->setData(button.id);
    action->setStatusTip(Translated(FindCommand(button.id).prompt));
    connect(action, &QAction::triggered, this, [this, id = button.id] { RunCommand(id); });
    menuActions_[button.id].push_back(action);
    if (FindCommand(button.id).action != Action::kPrint) continue;
    auto* const printer = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
    printer->setMenu(BuildPrinterMenu());
    printer->setPopupMode(QToolButton::MenuButtonPopup);
  }
  ShowToolIcons();
}

QMenu* MainWindow::BuildPrinterMenu() {
  auto* const menu = new QMenu(this);
  for (const MenuRow& row : PrinterMenu()) {
    QAction* const entry = menu->addAction(MenuText(row.text));
    connect(entry, &QAction::triggered, this, [this, id = row.id] { RunCommand(id); });
    menuActions_[row.id].push_back(entry);
  }
  return menu;
}

// In the colours of the desktop, which can change from light to dark while the program runs.
void MainWindow::ShowToolIcons() {
  for (QAction* const action : toolBar_->actions()) {
    if (!action->isSeparator()) action->setIcon(ToolIcon(action->data().toInt()));
  }
}

void MainWindow::BuildStatusBar() {
  text_ = new ElidedLabel(kReadyText, this);
  text_->setTextFormat(Qt::PlainText);
  statusBar()->addWidget(text_, 1);
  constexpr std::array kNames = {"CAP", "NUM", "SCRL"};
  for (size_t i = 0; i < kNames.size(); ++i) {
    lockKeys_[i] = new QLabel(kNames[i], this);
    statusBar()->addPermanentWidget(lockKeys_[i]);
  }
  ShowLockKeys();
  qApp->installEventFilter(this);
}

// The files opened last stand where the entry of the menu does, with their numbers as keys. They
// are no children of the window: they can go while it shows its children.
void MainWindow::ShowRecentFiles() {
  qDeleteAll(recentEntries_);
  recentEntries_.clear();
  const QStringList& paths = recent_.Paths();
  recentPlace_->setVisible(paths.isEmpty());
  for (qsizetype i = 0; i < paths.size(); ++i) {
    auto* const entry = new QAction(
        QString("&%1 %2").arg(i + 1).arg(QString(paths[i]).replace("&", "&&")), recentMenu_);
    connect(entry, &QAction::triggered, this,
            [this, path = FromQt(paths[i])] { OpenFile(path, nullptr); });
    recentMenu_->insertAction(recentPlace_, entry);
    recentEntries_.push_back(entry);
  }
}

void MainWindow::ShowMenuOfState() {
  // Out of the bar and not just hidden: a hidden menu keeps its letter, and with two menus for
  // Alt+F neither opens.
  const QList<QAction*>& menus = ActiveView() != nullptr ? workingMenus_ : emptyMenus_;
  if (menuBar()->actions() != menus) {
    menuBar()->clear();
    menuBar()->addActions(menus);
  }
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

// A window without a program goes by its number.
void MainWindow::ShowFileName() {
  ViewWidget* const active = ActiveView();
  if (active == nullptr) {
    setWindowTitle(kTitle);
    ShowFilePath({});
    return;
  }
  const QString file = ToQt(active->view().fileName);
  const QString name = file.isEmpty() ? active->objectName() : file;
  active->parentWidget()->setWindowTitle(name);
  // As the area itself names a window that fills it, which it then does not do once more.
  setWindowTitle(QString("%1 - [%2]").arg(kTitle, name));
  ShowFilePath(ToQt(active->view().filePath));
}

// Stands in the text pane until something else is to be said there.
void MainWindow::ShowFilePath(const QString& path) {
  if (path == shownPath_) return;
  shownPath_ = path;
  text_->setText(path.isEmpty() ? kReadyText : path);
}

// In place of what the last command had to say.
void MainWindow::ShowFilePathAnew() {
  text_->setText(shownPath_.isEmpty() ? kReadyText : shownPath_);
}

// The program or its feeds may have changed.
void MainWindow::ShowProgram() {
  ViewWidget* const active = ActiveView();
  if (active != nullptr) active->update();
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

void MainWindow::ShowLockKeys() {
  const std::array<bool, 3> lit = LockKeys();
  for (size_t i = 0; i < lit.size(); ++i) lockKeys_[i]->setEnabled(lit[i]);
}

// The keys that lock are asked for when any key has gone up, and when the window comes to the
// front.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched->isWindowType() &&
      (event->type() == QEvent::KeyRelease || event->type() == QEvent::FocusIn)) {
    ShowLockKeys();
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && toolBar_ != nullptr) ShowToolIcons();
  if (event->type() == QEvent::ActivationChange) ShowLockKeys();
  QMainWindow::changeEvent(event);
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
