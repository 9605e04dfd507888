// One window's picture and everything that it shows: the widget owns the window's working state.
#pragma once

#include <QImage>
#include <QWidget>
#include <array>
#include <vector>

#include "shell/tvx_view.h"
#include "shell/view_operations.h"
#include "view/raster_device.h"

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
  // The picture has been drawn anew: program, feeds or view may have changed.
  void Drawn();
  // The command pad has closed and its command has run.
  void CommandPadClosed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void DrawPicture();
  Pixel AreaPoint(const QMouseEvent& event) const;
  bool IsInside(const QMouseEvent& event) const;
  // The options that affect the picture; a dialog can change them without a redraw.
  using PictureOptions = std::array<int32_t, 3>;
  PictureOptions Options() const;

  CTVXView view_;
  ViewCommands commands_;
  QImage image_;  // the picture as drawn last; an exposure only shows it again
  std::vector<RasterDevice::PlacedText> texts_;
  Pixel origin_;  // logical coordinates of the image's first pixel
  bool isStale_ = true;
  PictureOptions shownOptions_{};
};

}  // namespace tvx
