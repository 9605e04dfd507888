// The docks of the main window. A new dock is a class with a row in docks.cpp; the View menus and
// the window's updates follow from there.
#pragma once

#include <QDockWidget>
#include <QString>
#include <functional>
#include <vector>

#include "shell/tvx_view.h"

class QLabel;
class QMainWindow;

namespace tvx {

// What a dock works with. All outlive the docks.
struct DockContext {
  CTVXApp* app;
  // File of the host with the window's own settings; without one they last for the run.
  QString settingsFile;
  std::function<CTVXView*()> activeView;  // the view in work, or null if none is open
};

// A panel beside the picture that shows something about the view in work.
class ViewDock : public QDockWidget {
 public:
  using QDockWidget::QDockWidget;

  // Shows the view after a command or a change of window: program, feeds or options may have
  // changed. Null if no view is open. May walk the whole program.
  virtual void ShowProgram(CTVXView* view) = 0;

  // The same after each drawing of the view's picture; must be quick.
  virtual void ShowPicture(CTVXView* /*view*/) {}

  // Shows the program check: after ShowProgram, and after each step of a check under way. Null if
  // no view is open. Must be quick while nothing has changed.
  virtual void ShowCheck(const CTVXView* /*view*/) {}
};

// Lets the user select the text of a label by the mouse, and copy it from the context menu. A click
// leaves the focus in the picture, whose keys move it.
void MakeSelectable(QLabel* label);

// Adds all docks to a window, which owns them. Returns them in the order of the View menus.
std::vector<ViewDock*> AddDocks(const DockContext& context, QMainWindow* window);

}  // namespace tvx
