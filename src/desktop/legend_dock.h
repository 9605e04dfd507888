// The legend beside the picture: what the colours mean for the program in work, and its figures.
#pragma once

#include <QDockWidget>
#include <array>

#include "shell/tvx_view.h"
#include "view/path_drawing.h"

class QLabel;

namespace tvx {

class LegendDock : public QDockWidget {
  Q_OBJECT

 public:
  explicit LegendDock(QWidget* parent = nullptr);

  // Shows the feeds of the colours as they are drawn now; with null there are none.
  void ShowColours(const CTVXView* view);

  // Shows the program of a view with its colours; with null the figures are empty. Walks the whole
  // program, so it is for a program or feeds that have changed and not for every paint.
  void ShowProgram(CTVXView* view);

 private:
  std::array<QLabel*, kFeedBands> ranges_{};
  QLabel* base_;
  QLabel* blocks_;
  QLabel* extents_;
  QLabel* cutTime_;
  QLabel* totalTime_;
};

// The whole feeds, in mm/min, that are drawn in a band: "351 - 500"; "-" if there are none.
QString FeedRangeText(const FeedBand& band, bool isSlowest, int32_t FeedBase);

}  // namespace tvx
