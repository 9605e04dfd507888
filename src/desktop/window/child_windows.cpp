// Cascading and tiling that, unlike QMdiArea, respect the size of the area and the direction.
#include "desktop/window/child_windows.h"

#include <QMdiSubWindow>
#include <algorithm>

namespace tvx {

namespace {

QList<QMdiSubWindow*> OpenWindows(const QMdiArea& area) {
  QList<QMdiSubWindow*> open = area.subWindowList();
  open.removeIf([](const QMdiSubWindow* child) { return child->isMinimized(); });
  return open;
}

}  // namespace

void Cascade(QMdiArea* area) {
  area->cascadeSubWindows();
  const QList<QMdiSubWindow*> open = OpenWindows(*area);
  QPoint last;
  for (const QMdiSubWindow* const child : open) {
    last = {std::max(last.x(), child->x()), std::max(last.y(), child->y())};
  }
  const QSize room = area->viewport()->size() - QSize(last.x(), last.y());
  for (QMdiSubWindow* const child : open) child->resize(child->size().boundedTo(room));
}

void Tile(QMdiArea* area, Qt::Orientation direction) {
  const QList<QMdiSubWindow*> open = OpenWindows(*area);
  const QRect all = area->viewport()->rect();
  const int count = static_cast<int>(open.size());
  for (int i = 0; i < count; ++i) {
    open[i]->showNormal();
    if (direction == Qt::Vertical) {
      const int top = all.height() * i / count;
      open[i]->setGeometry(0, top, all.width(), all.height() * (i + 1) / count - top);
    } else {
      const int left = all.width() * i / count;
      open[i]->setGeometry(left, 0, all.width() * (i + 1) / count - left, all.height());
    }
  }
}

void ArrangeIcons(QMdiArea* area) {
  QPoint place = area->viewport()->rect().bottomLeft();
  for (QMdiSubWindow* const child : area->subWindowList()) {
    if (!child->isMinimized()) continue;
    child->move(place.x(), place.y() + 1 - child->height());
    place.rx() += child->width();
  }
}

}  // namespace tvx
