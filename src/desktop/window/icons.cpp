// Draws the icons of the tool bar as lines on a small grid.
#include "desktop/window/icons.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <functional>

namespace tvx {

namespace {

// Icons are drawn on a square of this many units.
constexpr int kUnits = 24;

constexpr int kSizes[] = {16, 24, 32, 48, 64, 128, 256};  // pixels

QIcon Drawn(const std::function<void(QPainter*)>& draw) {
  QIcon icon;
  for (const int size : kSizes) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(size) / kUnits, static_cast<double>(size) / kUnits);
    painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 1.5));
    draw(&painter);
    icon.addPixmap(pixmap);
  }
  return icon;
}

void DrawPage(QPainter* painter) {
  painter->drawPolygon(QPolygonF({{5, 2.5}, {14, 2.5}, {19, 7.5}, {19, 21.5}, {5, 21.5}}));
  painter->drawPolyline(QPolygonF({{14, 2.5}, {14, 7.5}, {19, 7.5}}));
}

void DrawFolder(QPainter* painter) {
  painter->drawPolygon(
      QPolygonF({{2.5, 19.5}, {2.5, 5}, {9, 5}, {11, 7.5}, {21.5, 7.5}, {21.5, 19.5}}));
  painter->drawPolyline(QPolygonF({{7, 15}, {10, 11}, {13, 16}, {17, 11}}));
}

void DrawDisk(QPainter* painter) {
  painter->drawRect(QRectF(3.5, 3.5, 17, 17));
  painter->drawRect(QRectF(7.5, 3.5, 9, 6));
  painter->drawRect(QRectF(6.5, 13, 11, 7.5));
}

void DrawScissors(QPainter* painter) {
  painter->drawLine(QPointF(6, 3), QPointF(15.5, 16));
  painter->drawLine(QPointF(18, 3), QPointF(8.5, 16));
  painter->drawEllipse(QPointF(7, 18.5), 3, 3);
  painter->drawEllipse(QPointF(17, 18.5), 3, 3);
}

void DrawCopies(QPainter* painter) {
  painter->drawRect(QRectF(3.5, 3.5, 11, 13));
  painter->drawRect(QRectF(9.5, 7.5, 11, 13));
}

void DrawClipboard(QPainter* painter) {
  painter->drawRect(QRectF(4.5, 4.5, 15, 17));
  painter->drawRect(QRectF(8.5, 2.5, 7, 4));
  painter->drawLine(QPointF(8, 11), QPointF(16, 11));
  painter->drawLine(QPointF(8, 15), QPointF(16, 15));
}

void DrawPrinter(QPainter* painter) {
  painter->drawRect(QRectF(7, 2.5, 10, 6));
  painter->drawRect(QRectF(3.5, 8.5, 17, 8));
  painter->drawRect(QRectF(7, 14, 10, 7.5));
}

void DrawQuestion(QPainter* painter) {
  painter->drawEllipse(QPointF(12, 12), 9.5, 9.5);
  QFont font = painter->font();
  font.setPixelSize(14);
  font.setBold(true);
  painter->setFont(font);
  painter->drawText(QRectF(0, 0, kUnits, kUnits), Qt::AlignCenter, "?");
}

const struct {
  CommandId id;
  void (*draw)(QPainter*);
} kToolIcons[] = {
    {CommandId::kNewDocument, &DrawPage}, {CommandId::kLoad, &DrawFolder},
    {CommandId::kSave, &DrawDisk},        {CommandId::kCut, &DrawScissors},
    {CommandId::kCopy, &DrawCopies},      {CommandId::kPaste, &DrawClipboard},
    {CommandId::kPrint, &DrawPrinter},    {CommandId::kAbout, &DrawQuestion},
};

}  // namespace

QIcon ToolIcon(CommandId id) {
  for (const auto& icon : kToolIcons) {
    if (icon.id == id) return Drawn(icon.draw);
  }
  return {};
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : kSizes) icon.addFile(QString(":/icons/tvx-%1.png").arg(size));
  return icon;
}

}  // namespace tvx
