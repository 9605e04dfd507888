// The table of the frame's commands, and the updates of title, status bar and docks.
#include "desktop/window/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <iterator>

#include "desktop/display_options.h"
#include "desktop/language.h"
#include "desktop/window/child_windows.h"
#include "desktop/window/help.h"
#include "desktop/window/icons.h"
#include "desktop/window/leaving.h"
#include "desktop/window/reload.h"
#include "insight/move_text.h"
#include "reports/report_table.h"
#include "session/messages.h"
#include "session/view_operations.h"
#include "settings/configuration.h"
#include "settings/lists.h"
#include "settings/user_keys.h"

namespace tvx {

namespace {

constexpr char kTitle[] = "TVX";

// Keys of the settings file of the window.
constexpr char kGeometryKey[] = "windowGeometry";
constexpr char kStateKey[] = "windowState";
constexpr int kStateVersion = 1;  // another set of docks and bars needs another one

// Under some desktops the toolkit leaves the faint texts of a dark theme black.
void KeepFaintTextsReadable() {
  constexpr float kOpacity = 0.6F;
  QColor faint = QApplication::palette().color(QPalette::Text);
  faint.setAlphaF(kOpacity);
  if (QApplication::palette().color(QPalette::PlaceholderText) == faint) return;
  QPalette palette;
  palette.setColor(QPalette::PlaceholderText, faint);
  QApplication::setPalette(palette);
}

QList<QAction*> EntriesOf(const std::vector<ViewDock*>& docks) {
  QList<QAction*> entries;
  for (const ViewDock* const dock : docks) entries.push_back(dock->toggleViewAction());
  return entries;
}

}  // namespace

MainWindow::MainWindow(CTVXApp* app, const Drives* drives, const QString& settingsFile)
    : app_(app),
      area_(new QMdiArea(this)),
      docks_(AddDocks({.app = app,
                       .settingsFile = settingsFile,
                       .activeView =
                           [this] {
                             ViewWidget* const active = ActiveView();
                             return active == nullptr ? nullptr : &active->view();
                           },
                       .changes = &changes_.notifier},
                      this)),
      statusBar_(new StatusBar(this)),
      opener_(new FileOpener(this, app, drives, settingsFile)),
      printing_(this, app->ui),
      settingsFile_(settingsFile) {
  KeepFaintTextsReadable();
  setWindowIcon(ProgramIcon());
  setAcceptDrops(true);
  resize(1100, 760);
  setCentralWidget(area_);
  setStatusBar(statusBar_);
  reload_ = new Reload(this, drives, settingsFile);
  leaving_ = new Leaving(settingsFile, this);
  auto* const display = new DisplayOptions(settingsFile, this);
  menus_ = new Menus(this, {.view = EntriesOf(docks_) + display->MenuEntries(),
                            .help = (new Help(this))->MenuEntries()});
  BindChildWindowKeys();
  connect(&checkSteps_, &QTimer::timeout, this, &MainWindow::CheckMore);
  connect(display, &DisplayOptions::PensChanged, this, [this] {
    for (QMdiSubWindow* const child : area_->subWindowList()) {
      qobject_cast<ViewWidget*>(child->widget())->Redraw();
    }
    update();  // the legend
  });
  app->cores = display->Cores();
  connect(display, &DisplayOptions::CoresChosen, this,
          [app](unsigned cores) { app->cores = cores; });
  connect(display, &DisplayOptions::LanguageChosen, this,
          [this] { ShowStatusText("다음에 시작할 때 바뀝니다. / Changes at the next start."); });
  connect(menus_, &Menus::RecentFileChosen, this,
          [this](const QString& path) { opener_->Open(FromQt(path), nullptr); });
  connect(area_, &QMdiArea::subWindowActivated, this, &MainWindow::ShowActiveView);
  Listen(Change::kName, &MainWindow::ShowFileName, Timing::kAtOnce);
  Listen(Change::kFeeds | Change::kHovered, &MainWindow::ShowHoveredMove);
  Listen(Change::kKept, &MainWindow::ShowKeptMove);
  Listen(Change::kCheck, &MainWindow::StartCheck);
  menus_->ShowState();
  ShowFileName();
  EnterWorkDirectory();
}

void MainWindow::EnterWorkDirectory() {
  static_cast<void>(app_->files->SetCurrentDirectory(app_->configuration.WorkDir));
  workDirectory_ = app_->files->CurrentDirectory();
}

// The child windows are destroyed after the members of this one, and must not call it meanwhile.
MainWindow::~MainWindow() {
  area_->disconnect(this);
}

// The usual keys of windows within a window, which the area leaves to the frame of each child.
void MainWindow::BindChildWindowKeys() {
  const auto bind = [this](const char* keys, void (QMdiArea::*operation)()) {
    connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, area_, operation);
  };
  bind("Ctrl+F4", &QMdiArea::closeActiveSubWindow);
  bind("Ctrl+F6", &QMdiArea::activateNextSubWindow);
  bind("Ctrl+Shift+F6", &QMdiArea::activatePreviousSubWindow);
}

ViewWidget* MainWindow::NewView() {
  auto* const widget = new ViewWidget(app_);
  widget->view().wanted = WantedInWindow();
  QMdiSubWindow* const child = area_->addSubWindow(widget);
  child->setAttribute(Qt::WA_DeleteOnClose);
  child->installEventFilter(this);
  widget->setObjectName(kTitle + QString::number(++views_));
  child->setWindowTitle(widget->objectName());
  QTimer::singleShot(0, this, [this] { ShowUnread(app_); });
  child->setWindowIcon(ProgramIcon());
  // Ctrl+F4 in its menu belongs to the frame alone; two owners of a key make it dead.
  for (QAction* const action : child->systemMenu()->actions()) action->setShortcuts({});
  child->showMaximized();
  widget->setFocus();
  return widget;
}

ViewWidget* MainWindow::ActiveView() const {
  // The child window that keeps the menus also while a dialog or another program is in front.
  QMdiSubWindow* const child = area_->currentSubWindow();
  return child == nullptr ? nullptr : qobject_cast<ViewWidget*>(child->widget());
}

const MainWindow::FrameCommand* MainWindow::FindFrameCommand(CommandId id) {
  static constexpr auto newView = [](MainWindow* window, int) { window->NewView(); };
  static constexpr auto toggleToolBar = [](MainWindow* window, int) {
    QWidget* const bar = window->menus_->BarOf(CommandId::kToolBar);
    bar->setVisible(!bar->isVisible());
  };
  static constexpr auto toggleStatusBar = [](MainWindow* window, int) {
    window->statusBar_->setVisible(!window->statusBar_->isVisible());
  };
  static constexpr auto editUserKey = [](MainWindow* window, int key) {
    EditUserKey(static_cast<size_t>(key), &window->app_->UserKeys, window->app_->ui);
  };
  static constexpr FrameCommand kCommands[] = {
      {CommandId::kNewDocument, newView},
      {CommandId::kNewWindow, newView},
      {CommandId::kOpenDocument, [](MainWindow* window, int) { window->opener_->AskAndOpen(); }},
      {CommandId::kPrint,
       [](MainWindow* window, int) { window->printing_.Print(&window->ActiveView()->view()); }, 0,
       "", true},
      {CommandId::kPrintPreview,
       [](MainWindow* window, int) { window->printing_.Preview(&window->ActiveView()->view()); }, 0,
       "", true},
      {CommandId::kPrintSetup, [](MainWindow* window, int) { window->printing_.SetUp(); }},
      {CommandId::kExit, [](MainWindow* window, int) { window->close(); }},
      {CommandId::kToolBar, toggleToolBar},
      {CommandId::kStatusBar, toggleStatusBar},
      {CommandId::kCascade, [](MainWindow* window, int) { Cascade(window->area_); }},
      {CommandId::kTileHorizontally,
       [](MainWindow* window, int) { Tile(window->area_, Qt::Vertical); }},
      {CommandId::kTileVertically,
       [](MainWindow* window, int) { Tile(window->area_, Qt::Horizontal); }},
      {CommandId::kArrangeIcons, [](MainWindow* window, int) { ArrangeIcons(window->area_); }},
      {CommandId::kAbout, [](MainWindow* window, int) { window->ShowAbout(); }},
      {CommandId::kConfiguration,
       [](MainWindow* window, int) {
         CTVXApp* const app = window->app_;
         const bool isAtWork = app->files->CurrentDirectory() == window->workDirectory_;
         EditConfiguration(&app->configuration, app->files, app->ui);
         if (isAtWork) window->EnterWorkDirectory();
       }},
      {CommandId::kDirectoryList,
       [](MainWindow* window, int) {
         CTVXApp* const app = window->app_;
         EditDirectoryList(app->configuration.EnvDir, &app->DirectoryList, app->files, app->ui);
       }},
      {CommandId::kUserKey1, editUserKey, 1},
      {CommandId::kUserKey2, editUserKey, 2},
      {CommandId::kUserKey3, editUserKey, 3},
      {CommandId::kUserKey4, editUserKey, 4},
      {CommandId::kUserKey5, editUserKey, 5},
      {CommandId::kUserKey6, editUserKey, 6},
      {CommandId::kUserKey7, editUserKey, 7},
      {CommandId::kUserKey8, editUserKey, 8},
      {CommandId::kUserKey9, editUserKey, 9},
      {CommandId::kUserKey10, editUserKey, 10},
      {CommandId::kUserKey11, editUserKey, 11},
      {CommandId::kUserKey12, editUserKey, 12},
      {CommandId::kWriteUserKeys,
       [](MainWindow* window, int) {
         CTVXApp* const app = window->app_;
         SaveUserKeys(app->configuration.EnvDir, app->UserKeys, app->files, app->ui);
       }},
  };
  const auto* const found = std::ranges::find(kCommands, id, &FrameCommand::id);
  return found == std::end(kCommands) ? nullptr : found;
}

bool MainWindow::HasCommand(CommandId id) {
  return FindFrameCommand(id) != nullptr || FindViewCommand(id) != nullptr;
}

const char* MainWindow::PromptOf(CommandId id) {
  if (const FrameCommand* const command = FindFrameCommand(id)) return command->prompt;
  const ViewCommand* const command = FindViewCommand(id);
  return command == nullptr ? "" : command->prompt;
}

bool MainWindow::IsReady(CommandId id) const {
  const FrameCommand* const command = FindFrameCommand(id);
  if (command != nullptr && !command->needsView) return true;
  return HasCommand(id) && ActiveView() != nullptr;
}

void MainWindow::RunCommand(CommandId id) {
  if (!IsReady(id)) return;
  if (const FrameCommand* const command = FindFrameCommand(id)) {
    command->run(this, command->argument);
    menus_->ShowState();
    return;
  }
  CTVXView* const view = &ActiveView()->view();
  const bool changesProgram = FindViewCommand(id)->changesProgram;
  if (changesProgram) ShowPathInStatusBar();
  const uint32_t loads = view->loads();
  RunViewCommand(view, id);
  if (id == CommandId::kLoad && view->loads() != loads) {
    opener_->recent.Add(ToQt(view->filePath()));
  }
  if (changesProgram) reload_->ShowProgram(ActiveView());
}

void MainWindow::Listen(ChangeSet changes, void (MainWindow::*listener)(), Timing timing) {
  subscriptions_.push_back(changes_.notifier.Subscribe(
      changes, timing, [this, listener](ChangeSet, Timing) { (this->*listener)(); }));
}

void MainWindow::ShowActiveView() {
  menus_->ShowState();
  menus_->ShowRecentFiles(opener_->recent.Paths());
  ViewWidget* const active = ActiveView();
  const QString name = active == nullptr ? QString() : active->objectName();
  if (name == shown_) return reload_->ShowProgram(active);
  shown_ = name;
  changes_.Follow(active == nullptr ? nullptr : &active->view());
  statusBar_->ShowPath();  // the text belongs to the window before
}

// A window without a program has its number as its name.
void MainWindow::ShowFileName() {
  ViewWidget* const active = ActiveView();
  if (active == nullptr) {
    setWindowTitle(kTitle);
    statusBar_->SetPath({});
    reload_->ShowProgram(nullptr);
    return;
  }
  const QString file = ToQt(active->view().fileName());
  const QString name = file.isEmpty() ? active->objectName() : file;
  active->parentWidget()->setWindowTitle(name);
  // In the form of the area for a window that fills it, so that the area does not add the name.
  setWindowTitle(QString("%1 - [%2]").arg(kTitle, name));
  statusBar_->SetPath(ToQt(active->view().filePath()));
  reload_->ShowProgram(active);
}

QString MainWindow::MoveTextOf(CTVXView* view, Mark mark) const {
  const auto block = view->MarkedBlock(mark);
  if (!block) return {};
  const MoveFacts facts = FactsOf(view->program.store, *block, view->causes(), view->Lines());
  return Printable(ToQt(MoveText(facts, LanguageInUse())));
}

void MainWindow::ShowHoveredMove() {
  ViewWidget* const active = ActiveView();
  statusBar_->ShowHint(active == nullptr ? QString() : MoveTextOf(&active->view(), Mark::kHovered));
}

void MainWindow::ShowKeptMove() {
  ViewWidget* const active = ActiveView();
  if (active == nullptr) return;
  if (!active->view().MarkedBlock(Mark::kKept)) return statusBar_->ShowPath();
  statusBar_->ShowText(MoveTextOf(&active->view(), Mark::kKept));
}

void MainWindow::StartCheck() {
  ViewWidget* const active = ActiveView();
  if (active == nullptr || !active->view().checks().IsUnderWay()) {
    return reload_->ShowProgram(active);
  }
  if (!checkSteps_.isActive()) checkSteps_.start(0);
}

void MainWindow::CheckMore() {
  constexpr uint64_t kLinesPerStep = 20'000;  // a few milliseconds
  ViewWidget* const active = ActiveView();
  if (active == nullptr) return checkSteps_.stop();
  // A question in the middle of a run: the docks would show a program in part.
  constexpr int kWait = 100;  // ms
  const bool isAtWork = app_->ui->LongWork()->IsUnderWay();
  checkSteps_.setInterval(isAtWork ? kWait : 0);
  if (isAtWork) return;
  if (!active->view().CheckMore(kLinesPerStep)) checkSteps_.stop();
}

void MainWindow::ShowAbout() {
  QMessageBox box(this);
  box.setWindowTitle("About TVX");
  box.setIconPixmap(ProgramIcon().pixmap(48, 48));
  box.setText("TVX Afa Version " TVX_VERSION);
  box.exec();
}

QWidget* MainWindow::ParentOfNewDialog() {
  if (ViewWidget* const active = ActiveView()) active->view().changes.SettleShown();
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog == nullptr ? this : dialog;
}

void MainWindow::ShowAsLeft() {
  if (settingsFile_.isEmpty()) return showMaximized();
  const QSettings settings(settingsFile_, QSettings::IniFormat);
  restoreState(settings.value(kStateKey).toByteArray(), kStateVersion);
  if (!restoreGeometry(settings.value(kGeometryKey).toByteArray())) return showMaximized();
  show();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  for (QMdiSubWindow* const child : area_->subWindowList()) {
    if (leaving_->MayClose(qobject_cast<ViewWidget*>(child->widget())->view())) continue;
    event->ignore();
    return;
  }
  if (!settingsFile_.isEmpty()) {
    QSettings settings(settingsFile_, QSettings::IniFormat);
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState(kStateVersion));
  }
  QMainWindow::closeEvent(event);
}

// Of the child windows.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) {
    const auto* const child = qobject_cast<QMdiSubWindow*>(watched);
    auto* const widget = child == nullptr ? nullptr : qobject_cast<ViewWidget*>(child->widget());
    if (widget != nullptr && !leaving_->MayClose(widget->view())) {
      event->ignore();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && menus_ != nullptr) {
    KeepFaintTextsReadable();
    menus_->ShowToolIcons();
  }
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
