// Why the adjusted program takes its time: the minutes of each rule, of each feed band, and the
// places that cost most.
#pragma once

#include <QTimer>

#include "desktop/docks/docks.h"

class QLabel;
class QTreeWidget;

namespace tvx {

class BarList;

class CausesDock : public ViewDock {
  Q_OBJECT

 public:
  explicit CausesDock(const DockContext& context, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ShowState();
  void Count();
  void ShowMinutes(CTVXView* view);
  void ShowPlaces(CTVXView* view);

  QTimer afterPaint_;
  bool isStale_ = true;
  QLabel* state_;
  QWidget* figures_;
  BarList* rules_;
  BarList* bands_;
  QTreeWidget* places_;
};

}  // namespace tvx
