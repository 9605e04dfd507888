// How often an operation draws the picture, and whether it paints a dock.
#include <QApplication>
#include <QDockWidget>
#include <QWheelEvent>

#include "base/format.h"
#include "desktop/desktop_test.h"

namespace tvx {
namespace {

using enum CommandId;

// Counts the paint events inside docks.
class DockPaints : public QObject {
 public:
  DockPaints() { qApp->installEventFilter(this); }
  int count = 0;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    for (const QObject* each = watched; each != nullptr; each = each->parent()) {
      if (each->inherits("QDockWidget")) return ++count < 0;
    }
    return false;
  }
};

class RepaintTest : public DesktopTest {
 protected:
  // Until nothing is pending, a check of the program in particular.
  static void SettleAll() {
    for (int round = 0; round < 10; ++round) {
      QTest::qWait(2);
      Settle();
    }
  }
  void Wheel() {
    ViewWidget* const picture = window->ActiveView();
    QWheelEvent event(QPointF(50, 60), picture->mapToGlobal(QPointF(50, 60)), {}, {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(picture, &event);
  }
};

TEST_F(RepaintTest, PictureIsDrawnOnceForAChangeAndDocksOnlyIfTheyShowIt) {
  std::string program = "G90 G0 X0 Y0 Z9\nG4 P5\nG1 Z1 F1000\n";
  for (int y = 0; y < 60; ++y) program += Format("X%d\nY%d\n", y % 2 == 0 ? 60 : 0, y + 1);
  for (const char* const name : {"a.nc", "b.nc"}) home.Put(programs / name, program);
  constexpr char kTwoFiles[] = "화일 리#a.nc | 삽입 | 화일 리#b.nc | 삽입 | 전송";
  const struct {
    const char* name;
    std::function<void()> act;
    int draws;
    bool paintsDock;
  } rows[] = {
      {"load", [&] { Load("part.nc", program); }, 1, true},
      {"key", [&] { QTest::keyClick(window->ActiveView(), Qt::Key_Up); }, 1, false},
      {"view", [&] { Press(Qt::Key_F1); }, 1, false},
      {"rapids", [&] { Press(Qt::Key_F10); }, 1, false},
      {"wheel", [&] { Wheel(); }, 1, false},
      {"line inside", [&] { View().GoToLine(40, Centring::kIfOutside); }, 0, true},
      {"line in the middle", [&] { View().GoToLine(41, Centring::kAlways); }, 1, true},
      {"cut time", [&] { RunCommand(kSingleCutTime, "1=2000 | OK > Info list에추가"); }, 1, true},
      {"results", [&] { RunCommand(kResultList, "Esc"); }, 0, false},
      {"cancelled options", [&] { RunCommand(kSingleCutTime, "Esc"); }, 1, true},
      {"list", [&] { RunCommand(kRunJobList, kTwoFiles); }, 2, true},
      {"nothing", [&] { window->RunCommand(kPlainCutTime); }, 0, false},
  };
  int draws = 0;
  DockPaints docks;
  QObject::connect(window->ActiveView(), &ViewWidget::Drawn, window.get(), [&] { ++draws; });
  for (const auto& row : rows) {
    SettleAll();
    draws = docks.count = 0;
    row.act();
    SettleAll();
    EXPECT_EQ(std::pair(draws, docks.count > 0), std::pair(row.draws, row.paintsDock)) << row.name;
  }
}

}  // namespace
}  // namespace tvx
