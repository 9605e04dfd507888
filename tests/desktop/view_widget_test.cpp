// The picture and what the user does in it.

#include "desktop/view_widget.h"

#include <QImage>
#include <QSignalSpy>

#include "desktop_test.h"

namespace tvx {
namespace {

// A rapid and two cuts: at the highest feed, drawn white, and at a fifth of it, drawn red.
constexpr char kProgram[] = "G90 G0 X-40 Y-40 Z9\nG0 X10\nG1 X60 F1000\nX60 Y30 F200\n";

class ViewWidgetTest : public DesktopTest {
 protected:
  ViewWidgetTest() : widget(window->ActiveView()) {
    window->LoadHostFile(ToQt(PutProgram("part.nc", kProgram).string()));
    Settle();
  }

  ViewTransform& Transform() { return View().view.transform; }

  int PixelsOf(QColor colour) {
    const QImage picture = widget->grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour;
    }
    return count;
  }

  void DragRight(QPoint from, QPoint by) {
    QTest::mousePress(widget, Qt::RightButton, {}, from);
    QTest::mouseMove(widget, from + by / 2);
    QTest::mouseMove(widget, from + by);
    QTest::mouseRelease(widget, Qt::RightButton, {}, from + by);
  }

  ViewWidget* widget;
};

TEST_F(ViewWidgetTest, ShowsThePathInTheColoursOfItsFeeds) {
  EXPECT_GT(PixelsOf(Qt::white), 100);
  const int red = PixelsOf(Qt::red);
  EXPECT_GT(red, 100);
  Press(Qt::Key_F10);
  EXPECT_LT(PixelsOf(Qt::red), red) << "without the rapids";
}

TEST_F(ViewWidgetTest, ActsOnKeysWhateverModifiersAreDown) {
  const struct {
    Qt::Key key;
    int32_t ViewTransform::*value;
    int sign;
  } keys[] = {
      {Qt::Key_Up, &ViewTransform::panY, 1},       {Qt::Key_Down, &ViewTransform::panY, -1},
      {Qt::Key_Right, &ViewTransform::panX, -1},   {Qt::Key_Left, &ViewTransform::panX, 1},
      {Qt::Key_PageUp, &ViewTransform::rotZ, 10},  {Qt::Key_PageDown, &ViewTransform::rotZ, -10},
      {Qt::Key_Home, &ViewTransform::rotY, 10},    {Qt::Key_Insert, &ViewTransform::rotX, 10},
      {Qt::Key_Delete, &ViewTransform::rotX, -10},
  };
  Transform().viewScale = 20.0F;  // pans by one unit
  for (const auto& row : keys) {
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
      QSignalSpy drawn(widget, &ViewWidget::Drawn);
      const int32_t before = Transform().*row.value;
      QTest::keyClick(widget, row.key, modifiers);
      EXPECT_EQ(Transform().*row.value - before, row.sign) << row.key;
      EXPECT_EQ(drawn.count(), 1) << row.key;
    }
  }
  Transform().rotY = 0;
  QTest::keyClick(widget, Qt::Key_End);
  EXPECT_EQ(Transform().rotY, 350);
  QSignalSpy drawn(widget, &ViewWidget::Drawn);
  QTest::keyClick(widget, Qt::Key_A);
  EXPECT_EQ(drawn.count(), 0);
}

TEST_F(ViewWidgetTest, ARightDragZoomsWhenItIsMoreThanTenPixelsBothWays) {
  Press(Qt::Key_F8);
  const float fitted = Transform().viewScale;
  const struct {
    QPoint by;
    bool zooms;
  } drags[] = {{{11, 11}, true},  {{-11, 11}, true}, {{11, -11}, true}, {{-11, -11}, true},
               {{11, 10}, false}, {{10, 11}, false}, {{0, 0}, false},   {{200, 10}, false}};
  for (const auto& drag : drags) {
    DragRight({300, 200}, drag.by);
    EXPECT_EQ(Transform().viewScale > 2 * fitted, drag.zooms) << drag.by.x() << " " << drag.by.y();
    Press(Qt::Key_F8);
    EXPECT_EQ(Transform().viewScale, fitted);
  }
  DragRight({300, 200}, {11, 11});
  DragRight({20, 20}, {-60, -60});  // a button that goes up outside does neither
  EXPECT_GT(Transform().viewScale, 2 * fitted);
}

TEST_F(ViewWidgetTest, TheRubberBandIsShownAndLeavesThePictureIntact) {
  const QImage before = widget->grab().toImage();
  QTest::mousePress(widget, Qt::RightButton, {}, {20, 20});
  QTest::mouseMove(widget, {120, 90});
  const QImage during = widget->grab().toImage();
  for (const QPoint point : {QPoint(70, 20), QPoint(120, 50), QPoint(70, 90), QPoint(20, 50)}) {
    EXPECT_EQ(during.pixelColor(point), QColor(0, 255, 0)) << point.x() << " " << point.y();
  }
  QTest::mouseMove(widget, {20, 20});
  const QImage after = widget->grab().toImage();
  EXPECT_EQ(after.pixelColor(120, 50), before.pixelColor(120, 50));
  EXPECT_EQ(after.pixelColor(70, 90), before.pixelColor(70, 90));
  QTest::mouseRelease(widget, Qt::RightButton, {}, {20, 20});
}

TEST_F(ViewWidgetTest, AnExposureShowsThePictureWithoutDrawingItAgain) {
  QSignalSpy drawn(widget, &ViewWidget::Drawn);
  widget->update();
  Settle();
  window->repaint();
  EXPECT_EQ(drawn.count(), 0);
  Press(Qt::Key_F9);
  EXPECT_EQ(drawn.count(), 1);
  window->resize(800, 500);
  Settle();
  EXPECT_GT(drawn.count(), 1) << "another size is another picture";
}

}  // namespace
}  // namespace tvx
