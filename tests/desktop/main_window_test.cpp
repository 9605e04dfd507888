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
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QToolBar>

#include "desktop/printing.h"
#include "desktop_test.h"

namespace tvx {
namespace {

constexpr char kProgram[] = "G90 G0 X0 Y0 Z0\nG1 X60 F1000\nY30\n";

class MainWindowTest : public DesktopTest {
 protected:
  void Load(const char* name = "part.nc") {
    window->LoadHostFile(ToQt(PutProgram(name, kProgram).string()));
    Settle();
  }
};

TEST_F(MainWindowTest, EachWindowHasAProgramOfItsOwnThatTitleAndStatusBarName) {
  const auto pane = [this] { return window->statusBar()->findChild<QLabel*>()->text(); };
  ViewWidget* const first = window->ActiveView();
  EXPECT_EQ(window->windowTitle(), "TVX - [TVX1]");
  EXPECT_EQ(pane(), "Ready");
  Load();
  EXPECT_EQ(window->windowTitle(), "TVX - [part.nc]");
  EXPECT_EQ(pane(), "c:\\marlo\\ncdata\\part.nc");
  ui.ShowStatus("says something");
  Press(Qt::Key_F9);
  EXPECT_EQ(pane(), "says something");
  window->RunCommand(CommandId::kPlainCutTime);
  EXPECT_EQ(pane(), "c:\\marlo\\ncdata\\part.nc");

  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(pane(), "Ready");
  ViewWidget* const second = window->ActiveView();
  ASSERT_NE(second, first);
  EXPECT_EQ(second->view().program.store.blockCount, 0U);
  Press(Qt::Key_F6);
  EXPECT_EQ(second->view().view.transform.rotZ, 150);
  EXPECT_NE(first->view().view.transform.rotZ, 150);
  Load("other.nc");
  EXPECT_EQ(second->view().fileName + first->view().fileName, "other.ncpart.nc");
  EXPECT_EQ(window->windowTitle(), "TVX - [other.nc]");

  second->parentWidget()->close();
  Settle();
  EXPECT_EQ(window->ActiveView(), first);
  EXPECT_EQ(window->windowTitle(), "TVX - [part.nc]");
}

TEST_F(MainWindowTest, KeysOfTheChildrenGoThroughThemAndCloseThem) {
  ViewWidget* const first = window->ActiveView();
  ViewWidget* const second = window->NewView();
  Settle();
  Press(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_EQ(window->ActiveView(), first);
  Press(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window->ActiveView(), second);
  Press(Qt::Key_F4, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(window->ActiveView(), first);
  Press(Qt::Key_F4, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(window->ActiveView(), nullptr);
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

TEST_F(MainWindowTest, SeveralFilesGetAWindowEachAndOneThatIsNotThereNone) {
  user.Does<QMessageBox>({{"OK"}});
  window->LoadHostFile(ToQt((home / "drive_c/marlo/missing.nc").string()));
  EXPECT_FALSE(std::filesystem::exists(home / "drive_c/marlo/missing.nc"));
  EXPECT_EQ(View().fileName, "");
  for (const char* const name : {"a.nc", "b.nc", "c.nc"}) {
    window->LoadHostFile(ToQt(PutProgram(name, kProgram).string()));
  }
  Settle();
  QStringList titles;
  for (QMdiSubWindow* const child : Children()) {
    titles.push_back(child->windowTitle());
    EXPECT_EQ(qobject_cast<ViewWidget*>(child->widget())->view().program.store.blockCount, 3U);
  }
  EXPECT_EQ(titles, (QStringList{"a.nc", "b.nc", "c.nc"}));
}

TEST_F(MainWindowTest, TheDirectoryOfAnOpenedFileBecomesTheCurrentOne) {
  files->SetCurrentDirectory("c:\\marlo");
  Load();
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
}

TEST_F(MainWindowTest, TheFourFilesOpenedLastAreOffered) {
  const QString settings = ToQt((home / "desktop.ini").string());
  for (const char* const name : {"a.nc", "c.nc", "b.nc", "d.nc", "e & f.nc", "b.nc"}) {
    RecentFiles(settings).Add(ToQt("c:\\marlo\\ncdata\\" + std::string(name)));
  }
  PutProgram("e & f.nc", kProgram);
  OpenWindow(settings);
  window->NewView()->parentWidget()->close();
  Settle();
  QStringList offered;
  QAction* second = nullptr;
  for (QAction* const entry :
       ShownAction(window->menuBar()->actions(), "&File")->menu()->actions()) {
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
  user.Does<QMessageBox>({{"OK"}});
  printer.setOutputFileName(ToQt((home / "no/such/folder/page.pdf").string()));
  EXPECT_FALSE(window->PrintTo(&printer));
}

TEST_F(MainWindowTest, AMarkedEntryShowsItsPrompt) {
  for (const MenuRow& row : WorkingMenu()) {
    const QString prompt = ToQt(MainWindow::PromptOf(row.id));
    if (prompt.isEmpty()) continue;
    Entry(row)->hover();
    Entry(row)->showStatusText(window.get());
    EXPECT_EQ(window->statusBar()->currentMessage(), prompt);
  }
}

}  // namespace
}  // namespace tvx
