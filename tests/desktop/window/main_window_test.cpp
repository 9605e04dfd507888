// The main window: titles, child windows, opening of files, printing, and the language of its
// texts.

#include "desktop/window/main_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "base/format.h"
#include "desktop/desktop_test.h"
#include "desktop/display_options.h"

namespace tvx {
namespace {

using enum CommandId;
using namespace std::string_literals;

// A rapid and two cuts: at the highest feed, drawn white, and at a fifth of it, drawn red.
constexpr char kProgram[] = "G90 G0 X-40 Y-40 Z9\nG0 X10\nG1 X60 F1000\nX60 Y30 F200\n";

class MainWindowTest : public DesktopTest {
 protected:
  void ExpectShown(const std::string& title, const std::string& statusText) {
    EXPECT_EQ(FromQt(window->windowTitle()), "TVX - [" + title + "]");
    EXPECT_EQ(FromQt(window->statusBar()->findChild<QLabel*>()->text()), statusText);
  }
  ViewTransform& Transform() { return View().view.transform; }
};

TEST_F(MainWindowTest, TitleAndStatusBarNameProgramOfActiveWindow) {
  files->SetCurrentDirectory("c:\\marlo");
  Load("part.nc", kProgram);
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
  ui.ShowStatus("a text", "");
  Press(Qt::Key_F9);
  ExpectShown("part.nc", "a text");
  window->RunCommand(kPlainCutTime);
  ExpectShown("part.nc", "c:\\marlo\\ncdata\\part.nc");
  Press(Qt::CTRL | Qt::Key_N);
  Settle();
  ExpectShown("TVX2", "Ready");
  Press(Qt::CTRL | Qt::Key_F6);
  EXPECT_EQ(View().fileName(), "part.nc");
  Press(Qt::CTRL | Qt::SHIFT | Qt::Key_F6);
  EXPECT_EQ(View().fileName(), "");
  Press(Qt::CTRL | Qt::Key_F4);
  Settle();
  ExpectShown("part.nc", "c:\\marlo\\ncdata\\part.nc");
}

TEST_F(MainWindowTest, ChoosersStartInWorkDirectoryUntilFileIsOpened) {
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
  RunCommand(kConfiguration, "작업=c:\\marlo | 저장");
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo");
  Load("part.nc", kProgram);
  RunCommand(kConfiguration, "작업=c:\\windows | 저장");
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
  user.Next("?화일을 열수 없읍니다.\n | 확인");
  window->LoadHostFile(ToQt((home / "drive_c").string()));
  Settle();
  ExpectShown("TVX2", "c:\\: 불러오지 못했습니다.");
}

TEST_F(MainWindowTest, CheckOfLoadedProgramListsLinesLeftOut) {
  auto* const dock = window->findChild<QDockWidget*>("programCheck");
  dock->raise();
  Settle();
  auto* const rows = dock->findChild<QTreeWidget*>();
  const auto* const remark = dock->findChild<QTextEdit*>();
  const auto shows = [&](const char* text) {
    EXPECT_TRUE(remark->toPlainText().contains(text)) << FromQt(remark->toPlainText());
  };
  const auto click = [&](QTreeWidgetItem* row) {
    rows->scrollToItem(row);
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualItemRect(row).center());
  };
  // "사이클" in the code of Korean shops.
  Load("part.nc", "G1 X9 F0\nG4 P500\nM98 P1 (\xbb\xe7\xc0\xcc\xc5\xac)\nG20\nM98 P2\n");
  QTRY_COMPARE(rows->topLevelItemCount(), 4);
  user.Do(window.get(), "?빠짐 3, 다름 1");
  QTreeWidgetItem* const calls = rows->topLevelItem(1);
  EXPECT_EQ(FromQt(calls->text(0)), "빠짐 · 보조 프로그램은 호출되지 않습니다");
  click(calls);
  shows("줄 3\nM98 P1 (사이클)\n");
  shows("시간을 따로 더하십시오");
  calls->setExpanded(true);
  click(calls->child(1));
  shows("줄 5\nM98 P2\n");
  home.Put(programs / "part.nc", "G1 X9 F0\n");
  click(calls->child(1));  // once more
  shows("줄 5\n불러온 뒤에 화일이 바뀌었습니다.");

  // A check that is under way when the next program comes.
  std::string inches;
  for (int i = 0; i < 200'000; ++i) inches += "G20\n";
  home.Put(programs / "long.nc", inches);
  LoadProgram(&View(), "c:\\marlo\\ncdata\\long.nc");
  user.Do(window.get(), "?검사 중입니다...");
  home.Put(programs / "clean.nc", kProgram);
  LoadProgram(&View(), "c:\\marlo\\ncdata\\clean.nc");
  QTRY_VERIFY(TextsIn(window.get()).contains("빠짐 0, 다름 0"));
  EXPECT_EQ(rows->topLevelItemCount(), 0);

  // The programs of recorded results can be chosen beside the one in the picture.
  auto* const choice = window->findChild<QDockWidget*>("programCheck")->findChild<QComboBox*>();
  EXPECT_FALSE(choice->isVisible());
  Load("inch.nc", "G20\nG1 X1 F100\n");
  View().results.recorded.push_back({.check = View().KeepCheck()});
  LoadProgram(&View(), "c:\\marlo\\ncdata\\clean.nc");
  QTRY_COMPARE(choice->currentText(), ToQt("clean.nc · 빠짐 0, 다름 0"));
  EXPECT_EQ(FromQt(choice->itemText(0)), "inch.nc · 빠짐 0, 다름 1");
  choice->setCurrentIndex(0);
  View().changes.Note(Change::kResult);
  View().changes.Settle();
  EXPECT_EQ(rows->topLevelItemCount(), 1) << "the choice stays";
}

TEST_F(MainWindowTest, EachDroppedFileGetsWindow) {
  QList<QUrl> urls;
  for (const char* const name : {"a.nc", "b.nc", "c.nc"}) {
    urls << QUrl::fromLocalFile(ToQt(home.Put(programs / name, kProgram).string()));
  }
  QMimeData data;
  data.setUrls(urls);
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QApplication::sendEvent(window.get(), &drop);
  Settle();
  QString shown;
  for (const QMdiSubWindow* const child : Children()) {
    const auto& store = qobject_cast<ViewWidget*>(child->widget())->view().program.store;
    shown += QString("%1 %2 ").arg(child->windowTitle()).arg(store.blockCount);
  }
  EXPECT_EQ(FromQt(shown), "a.nc 4 b.nc 4 c.nc 4 ");
}

TEST_F(MainWindowTest, LastFourFilesAreOffered) {
  const QString settings = ToQt((home / "desktop.ini").string());
  for (const char* const name : {"a", "c", "b", "d", "e & f", "b"}) {
    RecentFiles(settings).Add(ToQt("c:\\marlo\\ncdata\\" + std::string(name)));
  }
  home.Put(programs / "e & f", kProgram);
  OpenWindow(settings);
  delete window->NewView()->parentWidget();
  Settle();
  auto entries = window->menuBar()->actions()[0]->menu()->actions();
  entries.removeIf([](QAction* entry) { return !entry->isVisible(); });
  QString offered;
  for (const QAction* const entry : entries) offered += entry->text().remove("c:\\marlo\\ncdata\\");
  EXPECT_TRUE(offered.contains("...&1 b&2 e && f&3 d&4 cE&xit")) << FromQt(offered);
  entries.at(4)->trigger();
  Settle();
  EXPECT_EQ(View().fileName(), "e & f");
}

TEST_F(MainWindowTest, LegendShowsTimeOfMachineUntilItIsCleared) {
  const auto choose = [&](const char* content) {
    home.Put(programs / "mill.machine", content);
    user.Do(window.get(), "... > c:\\marlo\\ncdata\\mill.machine");
    Settle();
  };
  const auto open = [&] {
    OpenWindow(ToQt((home / "desktop.ini").string()));
    window->NewView();
    Settle();
    Load("part.nc", "G90 G0 X0 Y0 Z0\nT1 M6\nG1 X6000 F100\n");
  };
  const auto shows = [&](const QStringList& texts) {
    const QStringList shown = TextsIn(window.get());
    return std::ranges::all_of(texts, [&](const QString& text) { return shown.contains(text); });
  };
  open();
  files->SetCurrentDirectory("c:\\marlo");
  choose("Factor 0\n");
  EXPECT_TRUE(shows({"mill.machine: line 1: Factor: value out of range", "-"}));
  EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo");
  choose("Name Mill\nToolChange 60\nFactor 2\n");
  EXPECT_TRUE(shows({"Mill", "122.0 min"}));
  open();
  EXPECT_TRUE(shows({"Mill", "122.0 min"}));
  choose("Factor\n");
  ExpectShown("part.nc",
              "기계 화일을 사용할 수 없습니다: mill.machine: line 1: Factor: a value is missing");
  EXPECT_TRUE(shows({"Mill", "122.0 min"}));
  user.Do(window.get(), "×");
  EXPECT_FALSE(shows({"Mill"}) || shows({"122.0 min"}));
  choose("");
  user.Do(window.get(), "×");
  open();
  EXPECT_FALSE(shows({"mill.machine"}));
}

TEST_F(MainWindowTest, LegendIsCurrentBesideDialogAndLeavesKeysToView) {
  Load("part.nc", "G90 G0 X0 Y0 Z0\nG1 X6000 F100\n");
  user.Do(window.get(), "절삭시간?60.0 min | 기준피드?100");
  user.Next("1=2000 | OK");
  user.Next([&](QDialog* face) {
    user.Do(window.get(), "절삭시간?3.0 min | 기준피드?2000");
    face->reject();
  });
  window->RunCommand(kSingleCutTime);
  for (QLabel* const value : window->findChild<QDockWidget*>("legend")->findChildren<QLabel*>()) {
    QTest::mouseClick(value, Qt::LeftButton);
    EXPECT_EQ(window->focusWidget(), window->ActiveView()) << FromQt(value->text());
  }
}

TEST_F(MainWindowTest, LanguageColoursAndCoresAreKeptForNextStart) {
  const QString settings = ToQt((home / "desktop.ini").string());
  const auto entry = [&](const QString& text) {
    for (QAction* const action : window->findChildren<QAction*>()) {
      if (action->text() == text) return action;
    }
    return static_cast<QAction*>(nullptr);
  };
  OpenWindow(settings);
  EXPECT_EQ(ChosenLanguage(settings), std::nullopt);
  entry("English")->trigger();
  EXPECT_EQ(ChosenLanguage(settings), kEnglishLabels);
  entry("잘 보이는 색")->trigger();
  app.cores = 77;
  if (CoreCount() > 1) entry("1")->trigger();
  EXPECT_EQ(app.cores, CoreCount() > 1 ? 1U : 77U);
  app.cores = 77;
  OpenWindow(settings);
  EXPECT_EQ(app.cores, 1U);
  window->NewView();
  Settle();
  Load("part.nc", kProgram);
  const QImage shown = window->ActiveView()->grab().toImage();
  std::set<QRgb> colours;
  for (int i = 0; i < shown.width() * shown.height(); ++i) {
    colours.insert(shown.pixel(i % shown.width(), i / shown.width()));
  }
  EXPECT_TRUE(colours.contains(0xFFFFB040)) << "a fifth of the highest feed";
  EXPECT_FALSE(colours.contains(0xFFFF0000));
  entry("잘 보이는 색")->trigger();  // belongs to the process
}

TEST_F(MainWindowTest, PageHasPictureOfScreen) {
  Load("part.nc", kProgram);
  QImage page(1600, 500, QImage::Format_RGB32);
  page.fill(Qt::yellow);
  QPainter painter(&page);
  PaintOnPage({&View().program, &View().job, &View().view}, page.rect(), &painter);
  const int left = (1600 - 500 * Transform().clientWidth / Transform().clientHeight) / 2;
  EXPECT_NE(page.pixelColor(left - 3, 3), page.pixelColor(left + 3, 3)) << "the edge";
  int white = 0;
  for (int i = 0; i < 1600 * 500; ++i) white += page.pixelColor(i % 1600, i / 1600).blue() > 200;
  EXPECT_GT(white, 100);

  QPrinter printer;
  printer.setOutputFileName(ToQt((home / "page.pdf").string()));
  EXPECT_TRUE(window->PrintTo(&printer));
  EXPECT_TRUE(HostBytes(home / "page.pdf").starts_with("%PDF-"));
  for (const std::string& file : {(home / "no/such/folder/page.pdf").string(), "/dev/full"s}) {
    user.Next("확인");
    printer.setOutputFileName(ToQt(file));
    printer.setOutputFormat(QPrinter::PdfFormat);
    EXPECT_FALSE(window->PrintTo(&printer)) << file;
  }
}

TEST_F(MainWindowTest, KeysMoveViewWhateverModifiersAreDown) {
  const std::tuple<Qt::Key, int32_t ViewTransform::*, int32_t> keys[] = {
      {Qt::Key_Up, &ViewTransform::panY, 1},      {Qt::Key_Down, &ViewTransform::panY, -1},
      {Qt::Key_Right, &ViewTransform::panX, -1},  {Qt::Key_Left, &ViewTransform::panX, 1},
      {Qt::Key_PageUp, &ViewTransform::rotZ, 10}, {Qt::Key_PageDown, &ViewTransform::rotZ, -10},
      {Qt::Key_Insert, &ViewTransform::rotX, 10}, {Qt::Key_Delete, &ViewTransform::rotX, -10},
      {Qt::Key_Home, &ViewTransform::rotY, 10},   {Qt::Key_End, &ViewTransform::rotY, -10},
      {Qt::Key_A, &ViewTransform::rotY, 0}};
  Transform().viewScale = 20.0F;  // pans by one unit
  for (const auto& [key, value, change] : keys) {
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
      const QSignalSpy drawn(window->ActiveView(), &ViewWidget::Drawn);
      const int32_t before = Transform().*value = 100;
      QTest::keyClick(window->ActiveView(), key, modifier);
      EXPECT_EQ(Transform().*value - before, change) << key;
      EXPECT_EQ(drawn.count(), change != 0) << key;
    }
  }
}

TEST_F(MainWindowTest, ExposureShowsPictureWithoutDrawingIt) {
  const QSignalSpy drawn(window->ActiveView(), &ViewWidget::Drawn);
  window->ActiveView()->repaint();
  EXPECT_EQ(drawn.count(), 0);
  Press(Qt::Key_F9);
  EXPECT_EQ(drawn.count(), 1);
  window->resize(800, 500);
  Settle();
  EXPECT_GT(drawn.count(), 1) << "another size is another picture";
}

TEST_F(MainWindowTest, ChangedFileAndOtherFormatAreOfferedAndReadOnRequestOnly) {
  const auto button = [&](const char* text) {
    for (QToolButton* const each : window->findChildren<QToolButton*>()) {
      if (each->text() == QString::fromUtf8(text)) return each;
    }
    return static_cast<QToolButton*>(nullptr);
  };
  Load("part.nc", "G1 X9 F500\n");
  home.Put(programs / "part.nc", "G1 X9 F500\nX20\n");
  QTRY_VERIFY(button("다시 불러오기 (Ctrl+R)")->isVisible());
  EXPECT_EQ(View().program.store.blockCount, 1U);
  button("다시 불러오기 (Ctrl+R)")->click();
  EXPECT_EQ(View().program.store.blockCount, 2U);
  EXPECT_FALSE(button("다시 불러오기 (Ctrl+R)")->isVisible());

  Load("plain", "1 L X+10 Y+0 FMAX\n2 L X+20 Y+5 F500\n3 L X+30 Y+9\n");
  QTRY_VERIFY(button("다른 형식으로 읽기")->isVisible());
  EXPECT_NE(View().job.InputFileType, 2);
  button("다른 형식으로 읽기")->click();
  EXPECT_EQ(View().job.InputFileType, 2);
  EXPECT_TRUE(app.FormatOfEnding.empty());

  app.FormatOfEnding["nc"] = 2;
  View().job.InputFileType = 1;
  Load("nc", "G1 X9 F500\n");
  EXPECT_EQ(View().job.InputFileType, 1) << "a name without an ending";
}

// Watches the bar of long work, and presses Escape once it shows the third file.
class BarWatcher : public QObject {
 public:
  explicit BarWatcher(QWidget* window) : window_(window), bar_(window->findChild<QProgressBar*>()) {
    bar_->installEventFilter(this);
  }

  std::set<std::pair<QString, int>> shown;  // "1/3", per cent
  bool wasUnderDialog = false;

 private:
  bool eventFilter(QObject* /*bar*/, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    const QString file = bar_->parent()->findChild<QLabel*>()->text().left(3);
    shown.insert({file, bar_->value()});
    wasUnderDialog = wasUnderDialog || QApplication::activeModalWidget() != nullptr;
    const auto press = [&](const QKeyCombination& key) {
      QCoreApplication::postEvent(
          window_, new QKeyEvent(QEvent::KeyPress, key.key(), key.keyboardModifiers()));
    };
    press(Qt::CTRL | Qt::Key_N);
    if (file == "3/3") press(Qt::Key_Escape);
    return false;
  }

  QWidget* window_;
  QProgressBar* bar_;
};

TEST_F(MainWindowTest, EscapeStopsRunWhoseBarMovedAndKeepsItsResults) {
  constexpr int kLines = 3'000'000;
  std::string program = "G1 F500\n";
  for (int i = 0; i < kLines; ++i) program += Format("X%dY%d\n", i % 1000, i / 1000);
  JobRecord& job = View().job;
  job.WorkDir = "c:\\marlo\\ncdata";
  for (size_t i = 0; i < 3; ++i) {
    job.FileNames[i] = Format("long%zu.nc", i);
    job.OptionLines[i] = "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa ON TD 10.0 MAF 2000 ";
    home.Put(programs / job.FileNames[i], program);
  }
  BarWatcher bar(window.get());
  RunCommand(kRunJobList, "전송");
  EXPECT_GT(bar.shown.size(), 3U) << "the bar moves within a file";
  EXPECT_NE(bar.shown.lower_bound({"2/3", 0}), bar.shown.lower_bound({"3/3", 0}));
  EXPECT_FALSE(bar.wasUnderDialog);
  EXPECT_EQ(Children().size(), 1) << "other keys start nothing";
  EXPECT_EQ(View().results.recorded.size(), 2U);
  ExpectShown("TVX1", "화일 3개 중 2개를 끝내고 중지했습니다.");
  EXPECT_FALSE(window->findChild<QProgressBar*>()->isVisible());
  user.Next("화일 이름?long0.nc, long1.nc | ?화일 3개 중 2개를 끝내고 중지했습니다. | OK");
  window->RunCommand(kResultList);
}

TEST_F(MainWindowTest, ClosingWithResultsInNoReportAsksUntilToldNotTo) {
  const QString settings = ToQt((home / "desktop.ini").string());
  const auto close = [&](bool isReported, const std::string& steps) {
    OpenWindow(settings);
    window->NewView();
    Settle();
    View().results.recorded.resize(1);
    View().results.isReported = isReported;
    if (!steps.empty()) user.Next(steps);
    return window->close();
  };
  EXPECT_TRUE(close(true, ""));
  EXPECT_FALSE(close(false, "?기록한 결과가 아직 출력되지 않았습니다. 창을 닫겠습니까? | Esc"));
  EXPECT_FALSE(close(false, "다시 묻지 않음 | 아니오"));
  EXPECT_TRUE(close(false, "예"));
  EXPECT_TRUE(close(false, "다시 묻지 않음 | 예"));
  EXPECT_TRUE(close(false, ""));
}

}  // namespace
}  // namespace tvx
