// Menus, keys, tool buttons and windows.

#include "desktop/main_window.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QToolBar>
#include <map>

#include "desktop/condition_faces.h"
#include "desktop/master_face.h"
#include "desktop/picture_printer.h"
#include "desktop/settings_faces.h"
#include "desktop_test.h"

namespace tvx {
namespace {

constexpr char kProgram[] = "G90 G0 X0 Y0 Z0\nG1 X60 F1000\nY30\n";

struct Angles {
  int32_t x, y, z;
  friend bool operator==(const Angles&, const Angles&) = default;
};

class MainWindowTest : public DesktopTest {
 protected:
  void Load(const char* name = "part.nc") {
    window->LoadHostFile(ToQt(PutProgram(name, kProgram).string()));
    Settle();
  }

  static QAction* Named(const QList<QAction*>& actions, const char* text) {
    for (QAction* const action : actions) {
      if (action->isVisible() && action->text() == ToQt(text)) return action;
    }
    return nullptr;
  }

  // The entry of a row, in the menus that are shown.
  QAction* Entry(const MenuRow& row) {
    const QAction* menu = Named(window->menuBar()->actions(), row.menu);
    if (menu != nullptr && *row.submenu != '\0') menu = Named(menu->menu()->actions(), row.submenu);
    return menu == nullptr ? nullptr : Named(menu->menu()->actions(), row.text);
  }

  Angles ViewAngles() {
    const ViewTransform& view = View().view.transform;
    return {view.rotX, view.rotY, view.rotZ};
  }

  QList<QMdiSubWindow*> Children() { return window->findChild<QMdiArea*>()->subWindowList(); }

  // What shows that a command has reached its operation. `run` carries the command out.
  using Run = std::function<void()>;
  using Effect = std::function<void(const Run& run)>;

  template <typename Window>
  Effect Opens() {
    return [this](const Run& run) {
      bool opened = false;
      user.On<Window>([&](Window* dialog) {
        opened = true;
        dialog->reject();
      });
      run();
      EXPECT_TRUE(opened);
    };
  }

  Effect Turns(const Angles& angles) {
    return [this, angles](const Run& run) {
      View().view.transform.rotX = 17;
      run();
      EXPECT_EQ(ViewAngles(), angles);
    };
  }

  Effect Opens(int windows) {
    return [this, windows](const Run& run) {
      const auto before = Children().size();
      run();
      EXPECT_EQ(Children().size() - before, windows);
    };
  }

  std::map<int, Effect> Effects() {
    const Effect toggleRapids = [this](const Run& run) {
      const int32_t before = View().view.RapidVisible;
      run();
      EXPECT_NE(View().view.RapidVisible, before);
      EXPECT_EQ(View().job.RapidShown, View().view.RapidVisible);
    };
    const Effect fit = [this](const Run& run) {
      View().view.transform.viewScale = 1.25F;
      run();
      EXPECT_NE(View().view.transform.viewScale, 1.25F);
    };
    const auto draws = [this](const Run& run) {
      int drawn = 0;
      const auto connection = QObject::connect(window->ActiveView(), &ViewWidget::Drawn,
                                               window.get(), [&] { ++drawn; });
      run();
      QObject::disconnect(connection);
      EXPECT_EQ(drawn, 1);
    };
    const auto toggles = [this](QWidget* widget) {
      return [this, widget](const Run& run) {
        run();
        EXPECT_FALSE(widget->isVisible());
        run();
        EXPECT_TRUE(widget->isVisible());
      };
    };
    const Effect nothing = [](const Run& run) { run(); };
    const Effect writesKeys = [this](const Run& run) {
      run();
      EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/UserKey.txt"));
    };
    const Effect tiles = [this](const Run& run) {
      run();
      for (QMdiSubWindow* const child : Children()) EXPECT_FALSE(child->isMaximized());
    };
    std::map<int, Effect> effects = {
        {32771, Opens<QFileDialog>()},
        {32791, Opens<QFileDialog>()},
        {32772, Opens<SendOptionFace>()},
        {32773, nothing},
        {32792, Opens<MasterFace>()},
        {32794, Opens<QMessageBox>()},
        {32795, Opens<QFileDialog>()},
        {32802, Opens<QFileDialog>()},
        {32775, Turns({0, 0, 0})},
        {32776, Turns({270, 0, 0})},
        {32777, Turns({0, 90, 270})},
        {32778, Turns({300, 0, 330})},
        {32779, Turns({300, 0, 240})},
        {32786, Turns({300, 0, 150})},
        {32780, Turns({300, 0, 60})},
        {32781, fit},
        {32782, draws},
        {32783, toggleRapids},
        {32789, Opens<DirSetupFace>()},
        {32796, Opens<DirListFace>()},
        {32813, writesKeys},
        {59392, toggles(window->findChild<QToolBar*>())},
        {59393, toggles(window->statusBar())},
        {57600, Opens(1)},
        {57601, Opens<QFileDialog>()},
        {57648, Opens(1)},
        {57650, tiles},
        {57651, tiles},
        {57652, tiles},
        {57649, nothing},
        {57664, Opens<QMessageBox>()},
        {32785, Opens<QDialog>()},
        {57606, Opens<QPageSetupDialog>()},
        {57607, Opens<QPrintDialog>()},
    };
    for (const MenuRow& row : WorkingMenu()) {
      if (FindCommand(row.id).action == Action::kEditUserKey) effects[row.id] = Opens<QDialog>();
    }
    return effects;
  }
};

constexpr int kExit = 57665;

TEST_F(MainWindowTest, EveryEntryReachesItsOperationOrIsDisabled) {
  Load();
  const std::map<int, Effect> effects = Effects();
  for (const MenuRow& row : WorkingMenu()) {
    SCOPED_TRACE(row.text);
    QAction* const entry = Entry(row);
    ASSERT_NE(entry, nullptr);
    if (row.id == kExit) continue;
    const auto effect = effects.find(row.id);
    ASSERT_EQ(entry->isEnabled(), effect != effects.end());
    if (entry->isEnabled()) effect->second([entry] { entry->trigger(); });
  }
}

TEST_F(MainWindowTest, TheMenuWithoutADocumentOpensOne) {
  for (QMdiSubWindow* const child : Children()) child->close();
  Settle();
  EXPECT_EQ(Children().size(), 0);
  for (const MenuRow& row : EmptyMenu()) {
    SCOPED_TRACE(row.text);
    QAction* const entry = Entry(row);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->isEnabled(), window->IsReady(row.id));
  }
  EXPECT_EQ(Entry(WorkingMenu()[0]), nullptr) << "its menus are hidden";
  Press(Qt::Key_F1);
  Press(Qt::Key_T, Qt::ControlModifier);

  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Children().size(), 1);
  EXPECT_NE(Entry(WorkingMenu()[0]), nullptr);
}

TEST_F(MainWindowTest, EveryKeyReachesItsCommand) {
  Load();
  const std::map<int, Effect> effects = Effects();
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const Accelerator& accelerator : table) {
      SCOPED_TRACE(accelerator.key);
      // A view in the view's table, a command without action in the frame's.
      if (accelerator.id == 57680) continue;
      const QKeyCombination key = QKeySequence(accelerator.key)[0];
      const Run press = [&] { Press(key.key(), key.keyboardModifiers()); };
      const auto effect = effects.find(accelerator.id);
      if (effect != effects.end()) {
        effect->second(press);
      } else {
        const Angles before = ViewAngles();
        press();
        EXPECT_EQ(ViewAngles(), before);
      }
    }
  }
  // A key that is printed in a menu and is none.
  const int32_t rapids = View().view.RapidVisible;
  Press(Qt::Key_F12);
  EXPECT_EQ(View().view.RapidVisible, rapids);
}

TEST_F(MainWindowTest, EveryToolButtonReachesItsCommandOrIsDisabled) {
  Load();
  const std::map<int, Effect> effects = Effects();
  const QList<QAction*> actions = window->findChild<QToolBar*>()->actions();
  ASSERT_EQ(static_cast<size_t>(actions.size()), ToolBar().size());
  for (size_t i = 0; i < ToolBar().size(); ++i) {
    QAction* const action = actions[static_cast<qsizetype>(i)];
    SCOPED_TRACE(ToolBar()[i].text);
    EXPECT_EQ(action->isSeparator(), ToolBar()[i].id == 0);
    if (action->isSeparator()) continue;
    EXPECT_FALSE(action->icon().isNull());
    const auto effect = effects.find(ToolBar()[i].id);
    ASSERT_EQ(action->isEnabled(), effect != effects.end());
    if (action->isEnabled()) effect->second([action] { action->trigger(); });
  }
}

TEST_F(MainWindowTest, AnotherWindowHasAProgramAndAViewOfItsOwn) {
  Load();
  ViewWidget* const first = window->ActiveView();
  first->view().job.MaxFeed = 1234;
  Press(Qt::Key_F1);
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  ViewWidget* const second = window->ActiveView();
  ASSERT_NE(second, first);
  EXPECT_EQ(second->view().program.store.blockCount, 0U);
  EXPECT_NE(second->view().job.MaxFeed, 1234);
  Press(Qt::Key_F6);
  EXPECT_EQ(second->view().view.transform.rotZ, 150);
  EXPECT_EQ(first->view().view.transform.rotZ, 0);
  Load("other.nc");
  EXPECT_EQ(second->view().fileName, "other.nc");
  EXPECT_EQ(first->view().fileName, "part.nc");
  EXPECT_NE(window->windowTitle().indexOf("other.nc"), -1);

  second->parentWidget()->close();
  Settle();
  EXPECT_EQ(window->ActiveView(), first);
  EXPECT_NE(window->windowTitle().indexOf("part.nc"), -1);
}

TEST_F(MainWindowTest, ADroppedFileIsLoaded) {
  const std::filesystem::path path = PutProgram("dropped.nc", kProgram);
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(ToQt(path.string()))});
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window.get(), &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window.get(), &drop);
  Settle();
  EXPECT_EQ(View().fileName, "dropped.nc");
  EXPECT_EQ(View().program.store.blockCount, 3U);
}

TEST_F(MainWindowTest, TheLoadCommandTakesAFileAndFitsIt) {
  const std::filesystem::path path = PutProgram("하나.nc", kProgram);
  user.OnFile(path);
  window->RunCommand(32771);
  Settle();
  EXPECT_EQ(View().fileName, "하나.nc");
  EXPECT_EQ(View().program.store.blockCount, 3U);
  EXPECT_NE(View().view.transform.viewScale, 30.0F);
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
}

TEST_F(MainWindowTest, ThePictureIsWrittenWhereTheUserChose) {
  Load();
  user.OnFile(home / "drive_c/marlo/part.emf");
  window->RunCommand(32791);
  EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/part.emf"));
}

TEST_F(MainWindowTest, AFileThatIsNotThereIsNotCreated) {
  user.On<QMessageBox>([](QMessageBox* message) { message->accept(); });
  window->LoadHostFile(ToQt((home / "drive_c/marlo/missing.nc").string()));
  EXPECT_FALSE(std::filesystem::exists(home / "drive_c/marlo/missing.nc"));
  EXPECT_EQ(View().fileName, "");
}

TEST_F(MainWindowTest, SeveralFilesGetAWindowEach) {
  for (const char* const name : {"a.nc", "b.nc", "c.nc"}) {
    window->LoadHostFile(ToQt(PutProgram(name, kProgram).string()));
  }
  Settle();
  ASSERT_EQ(Children().size(), 3);
  for (QMdiSubWindow* const child : Children()) {
    window->findChild<QMdiArea*>()->setActiveSubWindow(child);
    Settle();
    EXPECT_EQ(View().program.store.blockCount, 3U);
  }
}

TEST_F(MainWindowTest, TheFourFilesOpenedLastAreOffered) {
  const QString settings = ToQt((home / "desktop.ini").string());
  for (const char* const name : {"a.nc", "b.nc", "c.nc", "d.nc", "e & f.nc", "b.nc"}) {
    RecentFiles(settings).Add(ToQt("c:\\marlo\\ncdata\\" + std::string(name)));
  }
  PutProgram("e & f.nc", kProgram);
  window = std::make_unique<MainWindow>(&app, &drives, settings);
  ui.SetWindow(window.get());
  window->show();
  QApplication::setActiveWindow(window.get());
  window->NewView();
  for (QMdiSubWindow* const child : Children()) child->close();
  Settle();
  QStringList offered;
  QAction* second = nullptr;
  for (QAction* const entry : Named(window->menuBar()->actions(), "&File")->menu()->actions()) {
    if (!entry->isVisible() || !entry->text().contains("ncdata")) continue;
    offered << entry->text();
    if (offered.size() == 2) second = entry;
  }
  EXPECT_EQ(offered, QStringList({"&1 c:\\marlo\\ncdata\\b.nc", "&2 c:\\marlo\\ncdata\\e && f.nc",
                                  "&3 c:\\marlo\\ncdata\\d.nc", "&4 c:\\marlo\\ncdata\\c.nc"}));
  second->trigger();
  Settle();
  EXPECT_EQ(View().fileName, "e & f.nc");
}

TEST_F(MainWindowTest, TilesLieOneBelowTheOtherOrSideBySide) {
  window->NewView();
  Settle();
  window->RunCommand(57651);
  EXPECT_EQ(Children()[0]->width(), Children()[1]->width());
  EXPECT_EQ(Children()[0]->geometry().bottom() + 1, Children()[1]->geometry().top());
  window->RunCommand(57652);
  EXPECT_EQ(Children()[0]->height(), Children()[1]->height());
  EXPECT_EQ(Children()[0]->geometry().right() + 1, Children()[1]->geometry().left());
}

TEST_F(MainWindowTest, ThePageHasThePictureOfTheScreen) {
  Load();
  QImage page(1600, 500, QImage::Format_RGB32);
  page.fill(Qt::yellow);
  QPainter painter(&page);
  CTVXView& view = View();
  PaintOnPage({&view.program, &view.job, &view.view}, page.rect(), &painter);
  painter.end();
  EXPECT_EQ(page.pixelColor(2, 250), QColor(Qt::yellow)) << "beside the picture";
  const int width = 500 * view.view.transform.clientWidth / view.view.transform.clientHeight;
  EXPECT_EQ(page.pixelColor((1600 - width) / 2 + 3, 3), QColor(Qt::black));
  int white = 0;
  for (int y = 0; y < 500; ++y) {
    for (int x = 0; x < 1600; ++x) white += page.pixelColor(x, y).blue() > 200;
  }
  EXPECT_GT(white, 100);

  QPrinter printer;
  printer.setOutputFileName(ToQt((home / "page.pdf").string()));
  EXPECT_TRUE(window->PrintTo(&printer));
  EXPECT_EQ(HostBytes(home / "page.pdf").substr(0, 5), "%PDF-");
  user.On<QMessageBox>([](QMessageBox* message) { message->accept(); });
  printer.setOutputFileName(ToQt((home / "no/such/folder/page.pdf").string()));
  EXPECT_FALSE(window->PrintTo(&printer));
}

TEST_F(MainWindowTest, AMarkedEntryShowsItsPrompt) {
  for (const MenuRow& row : WorkingMenu()) {
    const QString prompt = ToQt(FindCommand(row.id).prompt);
    if (prompt.isEmpty()) continue;
    Entry(row)->hover();
    Entry(row)->showStatusText(window.get());
    EXPECT_EQ(window->statusBar()->currentMessage(), prompt);
  }
}

TEST_F(MainWindowTest, ExitClosesTheWindow) {
  window->RunCommand(kExit);
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace tvx
