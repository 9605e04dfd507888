// Mouse, marks and docks of the main window: what is pointed at in the picture is shown in the
// text, and the other way round.
#include <gtest/gtest.h>

#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTreeWidget>
#include <QWheelEvent>

#include "base/message.h"
#include "desktop/desktop_test.h"
#include "desktop/docks/bar_list.h"
#include "desktop/docks/program_text.h"

namespace tvx {
namespace {

constexpr char kCorners[] =
    "G90 G0 X0 Y0 Z5\nG1 Z0 F500\nX40 F1000\n(\xbb\xe7)\nX60 Y20\nX40 Y40\nG2 X60 Y60 I10 J10\n"
    "G1 X90 Y62\nX60 Y64\n";

class DocksTest : public DesktopTest {
 protected:
  DocksTest() : DesktopTest(Language::kEnglish) {}

  void LoadAndAdjust() {
    Load("part.nc", kCorners);
    View().EvaluateAndShow({.adjusts = true, .wanted = View().wanted});
    View().changes.Settle();
    Settle();
  }
  ViewWidget* Picture() { return window->ActiveView(); }
  ProgramText* Text() { return window->findChild<ProgramText*>(); }
  QString Status() { return window->statusBar()->findChild<QLabel*>()->text(); }
  // In the middle of the straight move of a line.
  QPoint PixelOf(uint32_t line) {
    ViewTransform* const transform = &View().view.transform;
    const uint32_t block = *View().program.source.lines.FirstBlockOf(line);
    const Pixel from = Project(transform, EndPoint(*View().program.store.Peek(block - 1)));
    const Pixel to = Project(transform, EndPoint(*View().program.store.Peek(block)));
    return QPoint((from.x + to.x) / 2, (from.y + to.y) / 2) + Picture()->rect().center();
  }
};

TEST_F(DocksTest, RestingMouseShowsTheMoveAndCtrlClickKeepsIt) {
  LoadAndAdjust();
  const QString path = Status();
  QTest::mouseMove(Picture(), PixelOf(6));
  QTRY_VERIFY(Status().startsWith("line 6: X40 Y40 | "));
  EXPECT_EQ(Text()->line(), 1U) << "not kept";
  QTest::mouseMove(Picture(), QPoint(3, 3));
  QTRY_COMPARE(Status(), path);
  QTest::mouseClick(Picture(), Qt::LeftButton, Qt::ControlModifier, PixelOf(9));
  EXPECT_EQ(Text()->line(), 9U);
  EXPECT_TRUE(Status().startsWith("line 9: X60 Y64 | "));
  Load("next.nc", "G1 X9 F100\nX8\n");
  EXPECT_EQ(Text()->line(), 1U);
  EXPECT_FALSE(View().MarkedBlock(Mark::kKept));
}

TEST_F(DocksTest, WalkByLinesShowsWhatTheToolExplains) {
  LoadAndAdjust();
  QProcess tool;
  tool.start(TVX_CLI, {"blocks", "--afa", "--explain", ToQt((programs / "part.nc").string())});
  ASSERT_TRUE(tool.waitForFinished());
  // The last change of each line: rule, feeds after it, line with its text.
  std::map<uint64_t, QStringList> explained;
  const QRegularExpression change(": block \\d+: (.*): .* -> (.*), (line (\\d+): .*)");
  for (const QString& row : QString::fromUtf8(tool.readAllStandardError()).split('\n')) {
    const QRegularExpressionMatch match = change.match(row);
    if (match.hasMatch()) {
      explained[match.captured(4).toULongLong()] = match.capturedTexts().mid(1, 3);
    }
  }
  EXPECT_GE(explained.size(), 4U);
  Press(Qt::CTRL | Qt::Key_G);
  QTest::keyClicks(QApplication::focusWidget(), "1");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  for (uint64_t line = 1; line <= 9; ++line) {
    EXPECT_EQ(Text()->line(), line);
    EXPECT_EQ(View().MarkedBlock(Mark::kKept), View().program.source.lines.FirstBlockOf(line));
    for (const QString& part : explained[line]) {
      EXPECT_TRUE(Status().contains(part)) << FromQt(Status() + ", expected: " + part);
    }
    QTest::keyClick(Text(), Qt::Key_Down);
  }
  EXPECT_EQ(Text()->line(), 9U) << "the last one";

  // The dock of the causes names the same lines, and centres them.
  window->findChild<QDockWidget*>("causes")->raise();
  auto* const places = window->findChild<QDockWidget*>("causes")->findChild<QTreeWidget*>();
  QTRY_VERIFY(places->topLevelItemCount() > 0);
  places->setCurrentItem(places->topLevelItem(0));
  const auto kept = View().MarkedBlock(Mark::kKept);
  ASSERT_TRUE(kept);
  EXPECT_EQ(explained.count(Text()->line()), 1U);
  const Pixel end = Project(&View().view.transform, EndPoint(*View().program.store.Peek(*kept)));
  EXPECT_EQ(end, Pixel{});
}

TEST_F(DocksTest, WheelAndMiddleButtonMoveThePictureAndOpenNoPad) {
  LoadAndAdjust();
  const auto wheel = [&](int units) {
    QWheelEvent event(QPointF(50, 60), Picture()->mapToGlobal(QPointF(50, 60)), {}, {0, units},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Picture(), &event);
  };
  const auto drag = [&](Qt::KeyboardModifier modifier) {
    const QPoint from = Picture()->rect().center();
    QTest::mousePress(Picture(), Qt::MiddleButton, modifier, from);
    QMouseEvent move(QEvent::MouseMove, from + QPoint(40, 0),
                     Picture()->mapToGlobal(from + QPoint(40, 0)), Qt::NoButton, Qt::MiddleButton,
                     modifier);
    QApplication::sendEvent(Picture(), &move);
    QTest::mouseRelease(Picture(), Qt::MiddleButton, modifier, from + QPoint(40, 0));
  };
  const ViewTransform start = View().view.transform;
  ViewTransform& now = View().view.transform;
  wheel(120);
  EXPECT_GT(now.viewScale, start.viewScale);
  wheel(-120);
  EXPECT_NEAR(now.viewScale, start.viewScale, 1e-3);
  drag(Qt::NoModifier);
  EXPECT_EQ(std::pair(now.rotX, now.rotZ), std::pair(start.rotX, start.rotZ + 20));
  const Pixel before = Project(&now, {});
  drag(Qt::ShiftModifier);
  EXPECT_NEAR(Project(&now, {}).x - before.x, 40, 1);
  Press(Qt::Key_F4);
  Press(Qt::Key_F8);
  EXPECT_EQ(std::tuple(now.rotZ, now.panX, now.finePanX, now.viewScale),
            std::tuple(start.rotZ, start.panX, 0.0, start.viewScale));
}

TEST_F(DocksTest, DocksAndSizeComeBackAtTheNextStart) {
  const QString settings = ToQt((home / "desktop.ini").string());
  OpenWindow(settings);
  window->resize(870, 590);
  window->findChild<QDockWidget*>("program")->close();
  Settle();
  window->close();
  OpenWindow(settings);
  window->ShowAsLeft();
  Settle();
  EXPECT_EQ(window->size(), QSize(870, 590));
  EXPECT_FALSE(window->findChild<QDockWidget*>("program")->isVisible());
  EXPECT_TRUE(window->findChild<QDockWidget*>("legend")->isVisible());
}

}  // namespace
}  // namespace tvx
