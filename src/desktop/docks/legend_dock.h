// The legend beside the picture: the feeds of the colours in the current program, and its figures.
#pragma once

#include <array>

#include "desktop/docks/docks.h"
#include "view/path_drawing.h"

class QLabel;

namespace tvx {

class MachineRows;

class LegendDock : public ViewDock {
  Q_OBJECT

 public:
  explicit LegendDock(const DockContext& context, QWidget* parent = nullptr);

  // The figures and the colours.
  void ShowProgram(CTVXView* view) override;
  // The colours as they are drawn now.
  void ShowPicture(CTVXView* view) override { ShowColours(view); }
  void ShowCheck(const CTVXView* view) override;

 private:
  void ShowColours(const CTVXView* view);

  std::array<QLabel*, kFeedBands> ranges_{};
  QLabel* base_;
  QLabel* blocks_;
  QLabel* extents_;
  QLabel* cutTime_;
  QLabel* totalTime_;
  QLabel* timeBefore_;
  QLabel* saved_;
  QLabel* check_;
  MachineRows* machine_;
};

// The feeds of band i in a program, mm/min: "351 - 500"; "-" if there are none.
QString FeedRangeText(size_t i, int32_t FeedBase);

}  // namespace tvx
