// One window's picture and everything that it shows: the widget owns the window's working state.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "session/tvx_view.h"
#include "session/view_operations.h"
#include "view/mouse_view.h"
#include "view/raster_device.h"

class QSinglePointEvent;

namespace tvx {

// The drawing area is measured in physical pixels. On a screen of twice the density a line is still
// one pixel wide, and the picture has twice as many pixels in each direction.
class ViewWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ViewWidget(CTVXApp* app, QWidget* parent = nullptr);

  CTVXView& view() { return view_; }
  bool HasBeenDrawn() const { return !image_.isNull(); }

  // The size of a window that neither fills the area nor has been sized by the user.
  QSize sizeHint() const override { return {720, 480}; }

  // Draws the picture from the store and shows it before it returns.
  void Redraw();

 signals:
  // The picture has been drawn.
  void Drawn();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void OnChange(ChangeSet changes, Timing timing);
  void DrawPicture(Progress* progress);
  void DrawOutdated();
  void PaintMark(Mark mark, QPainter* painter);
  void NoteMove();
  void BeginDrag(const QMouseEvent& event);
  Pixel AreaPoint(const QSinglePointEvent& event) const;
  bool IsInside(const QMouseEvent& event) const;
  // The options that affect the picture.
  using PictureOptions = std::array<int32_t, 3>;
  PictureOptions Options() const;

  CTVXView view_;
  ViewCommands commands_;
  MouseDrag drag_;
  QTimer rest_;  // since the last move of the mouse
  Pixel restsAt_;
  QImage image_;  // the picture as drawn last; an exposure only shows it again
  std::vector<RasterDevice::PlacedText> texts_;
  Pixel origin_;          // logical coordinates of the image's first pixel
  bool isEmpty_ = false;  // the picture shows no program
  bool isStale_ = true;
  bool isMoving_ = false;  // a turn or zoom of the mouse waits for its picture
  PictureOptions shownOptions_{};
  Subscription subscription_;
};

}  // namespace tvx
