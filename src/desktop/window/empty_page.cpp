// The lines are left-aligned in the middle of the area, below the axes.
#include "desktop/window/empty_page.h"

#include <QPainter>
#include <QStringList>

#include "desktop/language.h"

namespace tvx {

void PaintEmptyPage(const QRect& area, QPainter* painter) {
  constexpr double kTop = 0.66;  // of the height
  const QString lines =
      QStringList{
          Translated("메뉴 \"화일\"의 \"불러오기\"로 NC 프로그램을 열거나, 화일을 이 창에 끌어다 "
                     "놓으십시오."),
          Translated("Ctrl+T로 가공 조건을 정하고 시간을 계산합니다."),
          Translated("메뉴 \"Help\"에 설명서와 키 목록이 있습니다."),
      }
          .join("\n");
  QFont font = painter->font();
  font.setPointSizeF(font.pointSizeF() * 1.2);
  painter->setFont(font);
  painter->setPen(QColor(0xB4, 0xB4, 0xB4));
  QRect lower = area;
  lower.setTop(static_cast<int>(area.height() * kTop));
  constexpr int kFlags = Qt::AlignLeft | Qt::TextWordWrap;
  QRect text = painter->boundingRect(lower, kFlags, lines);
  text.moveLeft(area.center().x() - text.width() / 2);
  painter->drawText(text, kFlags, lines);
}

}  // namespace tvx
