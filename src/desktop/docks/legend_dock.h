// The legend beside the picture: the feeds of the colours in the current program, and its figures.
#pragma once

#include <array>

#include "desktop/docks/docks.h"
#include "view/path_drawing.h"

class QLabel;

namespace tvx {

class LegendDock : public ViewDock {
  Q_OBJECT

 public:
  explicit LegendDock(const DockContext& context, QWidget* parent = nullptr);

 private:
  void ShowColours();
  void ShowFigures();
  void ShowCheck();

  std::array<QLabel*, kFeedBands> ranges_{};
  QLabel* base_;
  QLabel* blocks_;
  QLabel* extents_;
  QLabel* cutTime_;
  QLabel* totalTime_;
  QLabel* timeBefore_;
  QLabel* saved_;
  QLabel* check_;
};

// The feeds of band i in a program, mm/min: "351 - 500"; "-" if there are none.
QString FeedRangeText(size_t i, int32_t FeedBase);

}  // namespace tvx
