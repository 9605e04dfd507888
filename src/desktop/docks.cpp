// The table of docks.
#include "desktop/docks.h"

#include <QMainWindow>

#include "desktop/check_dock.h"
#include "desktop/legend_dock.h"

namespace tvx {

namespace {

template <typename Dock>
ViewDock* Make(QWidget* parent) {
  return new Dock(parent);
}

constexpr struct {
  ViewDock* (*make)(QWidget* parent);
  Qt::DockWidgetArea area;  // at the first start
} kDocks[] = {
    {&Make<LegendDock>, Qt::RightDockWidgetArea},
    {&Make<CheckDock>, Qt::RightDockWidgetArea},
};

}  // namespace

std::vector<ViewDock*> AddDocks(QMainWindow* window) {
  std::vector<ViewDock*> docks;
  for (const auto& row : kDocks) {
    docks.push_back(row.make(window));
    window->addDockWidget(row.area, docks.back());
  }
  return docks;
}

}  // namespace tvx
