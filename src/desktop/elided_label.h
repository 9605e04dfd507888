// A label that shortens its text in the middle: of a long path the drive and the name remain.
#pragma once

#include <QLabel>
#include <QPainter>

namespace tvx {

// Shows plain text on one line and takes whatever width it gets.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QString line = text().simplified();
    painter.drawText(contentsRect(), static_cast<int>(alignment()),
                     fontMetrics().elidedText(line, Qt::ElideMiddle, contentsRect().width()));
  }
};

}  // namespace tvx
