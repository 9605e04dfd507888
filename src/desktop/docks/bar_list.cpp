// Three columns: names and figures as wide as their texts, the bars in between.
#include "desktop/docks/bar_list.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace tvx {

namespace {

constexpr int kGap = 6;           // pixels between the columns
constexpr int kShortestBar = 30;  // pixels of room for the bars
constexpr int kAround = 3;        // pixels above and below a bar

}  // namespace

void BarList::SetRows(std::vector<BarRow> rows) {
  rows_ = std::move(rows);
  QString description;
  for (const BarRow& row : rows_) description += row.name + ": " + row.figure + "\n";
  setAccessibleDescription(description);
  updateGeometry();
  update();
}

int BarList::WidthOf(QString BarRow::*text) const {
  int width = 0;
  for (const BarRow& row : rows_) {
    width = std::max(width, fontMetrics().horizontalAdvance(row.*text));
  }
  return width;
}

QSize BarList::sizeHint() const {
  return {WidthOf(&BarRow::name) + WidthOf(&BarRow::figure) + 2 * kGap + kShortestBar,
          static_cast<int>(rows_.size()) * fontMetrics().height()};
}

void BarList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const int names = WidthOf(&BarRow::name) + kGap;
  const int room = width() - names - WidthOf(&BarRow::figure) - kGap;
  double longest = 0;
  for (const BarRow& row : rows_) longest = std::max(longest, row.value);
  int y = 0;
  for (const BarRow& row : rows_) {
    const QRect line(0, y, width(), fontMetrics().height());
    y += line.height();
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, row.name);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, row.figure);
    QRect bar(names, line.y() + kAround, room, line.height() - 2 * kAround);
    if (row.colour) painter.fillRect(bar, Qt::black);
    if (row.value <= 0) continue;
    bar.setWidth(std::max(1, static_cast<int>(row.value / longest * room)));
    painter.fillRect(bar, row.colour ? *row.colour : palette().color(QPalette::Highlight));
  }
}

}  // namespace tvx
