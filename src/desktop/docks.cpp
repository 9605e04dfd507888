// The table of docks.
#include "desktop/docks.h"

#include <QLabel>
#include <QMainWindow>

#include "desktop/check_dock.h"
#include "desktop/legend_dock.h"

namespace tvx {

namespace {

template <typename Dock>
ViewDock* Make(const DockContext& context, QWidget* parent) {
  return new Dock(context, parent);
}

constexpr struct {
  ViewDock* (*make)(const DockContext& context, QWidget* parent);
  Qt::DockWidgetArea area;  // at the first start
} kDocks[] = {
    {&Make<LegendDock>, Qt::RightDockWidgetArea},
    {&Make<CheckDock>, Qt::RightDockWidgetArea},
};

}  // namespace

void MakeSelectable(QLabel* label) {
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setFocusPolicy(Qt::NoFocus);
}

std::vector<ViewDock*> AddDocks(const DockContext& context, QMainWindow* window) {
  std::vector<ViewDock*> docks;
  for (const auto& row : kDocks) {
    docks.push_back(row.make(context, window));
    window->addDockWidget(row.area, docks.back());
  }
  return docks;
}

}  // namespace tvx
