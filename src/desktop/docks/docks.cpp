// The table of docks.
#include "desktop/docks/docks.h"

#include <QLabel>
#include <QMainWindow>
#include <utility>

#include "desktop/docks/causes_dock.h"
#include "desktop/docks/check_dock.h"
#include "desktop/docks/legend_dock.h"
#include "desktop/docks/program_dock.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

template <typename Dock>
ViewDock* Make(const DockContext& context, QWidget* parent) {
  return new Dock(context, parent);
}

constexpr struct {
  ViewDock* (*make)(const DockContext& context, QWidget* parent);
  bool isBehindFirst;  // at the first start, behind the tab of the first dock; else below it
} kDocks[] = {
    {&Make<LegendDock>, false},
    {&Make<CheckDock>, true},
    {&Make<CausesDock>, true},
    {&Make<ProgramDock>, false},
};

}  // namespace

ViewDock::ViewDock(const QString& title, const DockContext& context, QWidget* parent)
    : QDockWidget(title, parent), context_(context) {}

void ViewDock::Listen(ChangeSet changes, std::function<void()> show, Timing timing) {
  subscriptions_.push_back(context_.changes->Subscribe(
      changes, timing, [show = std::move(show)](ChangeSet, Timing) { show(); }));
}

void ViewDock::GoToLine(uint64_t line, Centring centring) {
  if (view() != nullptr) view()->GoToLine(line, centring);
}

void MakeSelectable(QLabel* label) {
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setFocusPolicy(Qt::NoFocus);
}

std::vector<ViewDock*> AddDocks(const DockContext& context, QMainWindow* window) {
  std::vector<ViewDock*> docks;
  for (const auto& row : kDocks) {
    docks.push_back(row.make(context, window));
    if (row.isBehindFirst) {
      window->tabifyDockWidget(docks.front(), docks.back());
    } else {
      window->addDockWidget(Qt::RightDockWidgetArea, docks.back());
    }
  }
  docks.front()->raise();
  return docks;
}

}  // namespace tvx
