// Rows of a name, a bar and a figure, painted small enough for a dock on a small screen.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

namespace tvx {

struct BarRow {
  QString name;
  double value = 0;  // length of the bar; negative ones have none
  QString figure;
  std::optional<QColor> colour;  // of the bar, on black as in the picture; none: of the desktop
};

class BarList : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  // The longest bar fills the room.
  void SetRows(std::vector<BarRow> rows);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Width of the widest of these texts.
  int WidthOf(QString BarRow::*text) const;

  std::vector<BarRow> rows_;
};

}  // namespace tvx
