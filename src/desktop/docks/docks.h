// The docks of the main window. A new dock is a class with a row in docks.cpp; the View menus and
// the window's updates follow from there.
#pragma once

#include <QDockWidget>
#include <QString>
#include <functional>
#include <vector>

#include "session/tvx_view.h"

class QLabel;
class QMainWindow;

namespace tvx {

// When the picture is moved so that a move of the program is in its middle.
enum class Centring { kAlways, kIfOutside };

// What a dock works with. All outlive the docks.
struct DockContext {
  CTVXApp* app;
  // File of the host with the window's own settings; without one they last for the run.
  QString settingsFile;
  std::function<CTVXView*()> activeView;  // the view in work, or null if none is open
  // Makes a line of the program, from 1, the one in work: its move is marked in the picture, and
  // all docks show the line.
  std::function<void(uint64_t line, Centring centring)> goToLine;
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

  // Shows another line of the program, from 1, as the one in work.
  virtual void ShowLine(CTVXView* /*view*/, uint64_t /*line*/) {}
};

// Lets the user select the text of a label by the mouse, and copy it from the context menu. A click
// leaves the focus in the picture, whose keys move it.
void MakeSelectable(QLabel* label);

// Adds all docks to a window, which owns them, in one column beside the picture: those with figures
// behind each other, and the text of the program below. Returns them in the order of the View
// menus.
std::vector<ViewDock*> AddDocks(const DockContext& context, QMainWindow* window);

}  // namespace tvx
