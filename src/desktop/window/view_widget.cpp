// Draws the picture into an image when it has changed, and forwards keys and mouse to the commands.
#include "desktop/window/view_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <cmath>
#include <optional>
#include <utility>

#include "desktop/display_options.h"
#include "desktop/language.h"
#include "desktop/window/empty_page.h"

namespace tvx {

namespace {

const struct {
  int key;
  ViewKey action;
} kKeys[] = {
    {Qt::Key_Up, ViewKey::kUp},         {Qt::Key_Down, ViewKey::kDown},
    {Qt::Key_Right, ViewKey::kRight},   {Qt::Key_Left, ViewKey::kLeft},
    {Qt::Key_PageUp, ViewKey::kPageUp}, {Qt::Key_PageDown, ViewKey::kPageDown},
    {Qt::Key_Home, ViewKey::kHome},     {Qt::Key_End, ViewKey::kEnd},
    {Qt::Key_Insert, ViewKey::kInsert}, {Qt::Key_Delete, ViewKey::kDelete},
};

constexpr int kRestMilliseconds = 100;  // until the move under the mouse is marked
// In pixels of a common screen, by Mark.
constexpr double kMarkWidths[kMarks] = {2, 4};
constexpr double kMarkEnds[kMarks] = {3, 4};  // half the side of the square at the end
constexpr QColor kMarkColour(255, 225, 0);    // as no pen

}  // namespace

ViewWidget::ViewWidget(CTVXApp* app, QWidget* parent)
    : QWidget(parent), view_(app), commands_(ViewCommandsOf(&view_)) {
  view_.FollowCauses();
  subscription_ = view_.changes.Subscribe(
      Change::kFeeds | Change::kOptions | Change::kView | Change::kHovered | Change::kKept,
      Timing::kAtOnce, [this](ChangeSet changes, Timing timing) { OnChange(changes, timing); });
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  setMinimumSize(160, 120);
  // Without it, the cursor of the child window's border would remain.
  setCursor(Qt::ArrowCursor);
  // After a release outside the widget, the rubber band follows the mouse without a button.
  setMouseTracking(true);
  rest_.setSingleShot(true);
  rest_.setInterval(kRestMilliseconds);
  connect(&rest_, &QTimer::timeout, this,
          [this] { view_.SetMark(Mark::kHovered, view_.MoveAt(restsAt_)); });
}

// What no operation has shown at once is drawn at the next idle moment: of several changes only the
// last one.
void ViewWidget::OnChange(ChangeSet changes, Timing timing) {
  if (timing == Timing::kAtOnce) return Redraw();
  const bool hasOtherOptions = shownOptions_ != Options();
  if (changes.HasAny(Change::kView) && !changes.HasAny(Change::kFeeds)) isMoving_ = true;
  isStale_ = isStale_ || hasOtherOptions || changes.HasAny(Change::kFeeds | Change::kView);
  update();
}

void ViewWidget::Redraw() {
  isStale_ = true;
  // Not visible: the next paint event draws. Visible: at once, not at the next idle moment.
  if (!isVisible()) return;
  if (HasBeenDrawn()) {
    {
      Progress* const progress = view_.app->ui->LongWork();
      const WorkScope work(progress, Work::kDraw, view_.filePath());
      DrawPicture(progress);
    }
    emit Drawn();
  }
  repaint();
}

// Of the picture by the mouse.
void ViewWidget::NoteMove() {
  view_.changes.Note(Change::kView);
  view_.changes.Settle();
}

ViewWidget::PictureOptions ViewWidget::Options() const {
  return {view_.job.AfaEnabled, view_.job.FeedChgSmoothCheck, view_.view.RapidVisible};
}

void ViewWidget::DrawPicture(Progress* progress) {
  const DevicePreparation preparation = PrepareDevice(&view_.view.transform);
  const ViewTransform& transform = view_.view.transform;
  const QSize size(transform.clientWidth, transform.clientHeight);
  if (image_.size() != size) image_ = QImage(size, QImage::Format_RGB32);
  if (image_.isNull()) return;
  origin_ = preparation.origin;
  RasterDevice device({reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(),
                       image_.bytesPerLine() / 4},
                      origin_, ScreenPens());
  isEmpty_ = view_.fileName().empty() && view_.program.store.blockCount == 0;
  isStale_ = false;  // a resize during the drawing makes it stale again
  shownOptions_ = Options();
  Paint({&view_.program, &view_.job, &view_.view, progress}, &device);
  texts_ = device.texts();
}

// A picture that takes long is drawn after the paint event, since its progress paints too, and
// takes the input: not while the mouse turns or zooms. While work is under way, the picture stays
// as it is: the store may hold a part of a program.
void ViewWidget::DrawOutdated() {
  constexpr uint32_t kQuickBlocks = 500'000;
  const Progress* const progress = view_.app->ui->LongWork();
  if (progress->IsUnderWay()) return;
  if (!HasBeenDrawn() || view_.program.store.blockCount < kQuickBlocks || isMoving_) {
    isMoving_ = false;
    DrawPicture(NoProgress());
    emit Drawn();
    return;
  }
  QTimer::singleShot(0, this, [this, progress] {
    if (isStale_ && !progress->IsUnderWay()) Redraw();
  });
}

void ViewWidget::paintEvent(QPaintEvent* /*event*/) {
  if (isStale_) DrawOutdated();
  QPainter painter(this);
  const double ratio = devicePixelRatioF();
  image_.setDevicePixelRatio(ratio);
  painter.drawImage(0, 0, image_);

  painter.setPen(QColor(0, 255, 0));
  const int ascent = painter.fontMetrics().ascent();
  for (const RasterDevice::PlacedText& text : texts_) {
    const QPointF corner((text.point.x - origin_.x) / ratio, (text.point.y - origin_.y) / ratio);
    painter.drawText(corner + QPointF(0, ascent), ToQt(text.text));
  }
  if (isEmpty_) PaintEmptyPage(rect(), &painter);
  if (!view_.app->ui->LongWork()->IsUnderWay()) {
    for (const Mark mark : {Mark::kKept, Mark::kHovered}) PaintMark(mark, &painter);
  }
  if (const auto corners = commands_.RubberBand()) {
    painter.setPen(QColor(0, 255, 0));
    const QPointF press((*corners)[0].x / ratio, (*corners)[0].y / ratio);
    const QPointF last((*corners)[1].x / ratio, (*corners)[1].y / ratio);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(press, last).normalized());
  }
}

// With a square at the end point, where the text of the move says that it ends.
void ViewWidget::PaintMark(Mark mark, QPainter* painter) {
  const double ratio = devicePixelRatioF();
  QPolygonF line;
  for (const Pixel point : view_.LineOf(mark)) {
    line << QPointF((point.x - origin_.x + 0.5) / ratio, (point.y - origin_.y + 0.5) / ratio);
  }
  if (line.isEmpty()) return;
  // The edge separates the mark from white lines around it.
  for (const auto& [colour, edge] : {std::pair(QColor(Qt::black), 1.5), {kMarkColour, 0.0}}) {
    painter->setPen(QPen(colour, kMarkWidths[static_cast<int>(mark)] + 2 * edge));
    painter->drawPolyline(line);
    const double half = kMarkEnds[static_cast<int>(mark)] + edge;
    painter->fillRect(QRectF(line.last() - QPointF(half, half), QSizeF(2 * half, 2 * half)),
                      colour);
  }
}

void ViewWidget::resizeEvent(QResizeEvent* /*event*/) {
  const double ratio = devicePixelRatioF();
  OnResize(&view_.view.transform, static_cast<int32_t>(std::lround(width() * ratio)),
           static_cast<int32_t>(std::lround(height() * ratio)));
  isStale_ = true;
}

bool ViewWidget::event(QEvent* event) {
  // The window has moved to a screen of another density.
  if (event->type() == QEvent::ScreenChangeInternal) {
    resizeEvent(nullptr);
    update();
  }
  return QWidget::event(event);
}

void ViewWidget::keyPressEvent(QKeyEvent* event) {
  for (const auto& key : kKeys) {
    if (event->key() == key.key) {
      commands_.PressKey(key.action);
      return;
    }
  }
  QWidget::keyPressEvent(event);
}

Pixel ViewWidget::AreaPoint(const QSinglePointEvent& event) const {
  const double ratio = devicePixelRatioF();
  return {static_cast<int32_t>(std::floor(event.position().x() * ratio)),
          static_cast<int32_t>(std::floor(event.position().y() * ratio))};
}

void ViewWidget::mousePressEvent(QMouseEvent* event) {
  rest_.stop();
  drag_.End();
  if (event->button() == Qt::RightButton) commands_.PressRight(AreaPoint(*event));
  if (event->buttons() == Qt::MiddleButton) BeginDrag(*event);
  if (event->button() != Qt::LeftButton) return;
  if (event->modifiers() == Qt::ControlModifier) {
    view_.SetMark(Mark::kKept, view_.MoveAt(AreaPoint(*event)));
    return;
  }
  OpenCommandPad(&view_);
}

void ViewWidget::BeginDrag(const QMouseEvent& event) {
  view_.SetMark(Mark::kHovered, {});
  const Pixel point = AreaPoint(event);
  if (event.modifiers() == Qt::ShiftModifier) {
    drag_.BeginPan(point);
  } else {
    drag_.BeginTurn(point, view_.PivotAt(point));
  }
}

// Mouse events outside the area are ignored. Qt sends them until the button is released.
bool ViewWidget::IsInside(const QMouseEvent& event) const {
  return rect().contains(event.position().toPoint());
}

void ViewWidget::mouseMoveEvent(QMouseEvent* event) {
  const Pixel point = AreaPoint(*event);
  if (IsInside(*event) && commands_.MoveMouse(point)) update();
  if (drag_.MoveTo(point, &view_.view.transform)) NoteMove();
  if (event->buttons() != Qt::NoButton) return;
  restsAt_ = point;
  rest_.start();
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) drag_.End();
  if (event->button() == Qt::RightButton && IsInside(*event)) {
    commands_.ReleaseRight(AreaPoint(*event));
  }
}

void ViewWidget::wheelEvent(QWheelEvent* event) {
  constexpr double kUnitsPerStep = 120;
  event->accept();
  if (event->buttons() != Qt::NoButton) return;
  ZoomAt(&view_.view.transform, AreaPoint(*event), event->angleDelta().y() / kUnitsPerStep);
  NoteMove();
}

void ViewWidget::leaveEvent(QEvent* /*event*/) {
  rest_.stop();
  view_.SetMark(Mark::kHovered, {});
}

}  // namespace tvx
