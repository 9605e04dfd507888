// The docks of the main window. A new dock is a class with a row in docks.cpp; the View menus
// follow from there, and what it shows from the changes that it listens to.
#pragma once

#include <QDockWidget>
#include <QString>
#include <functional>
#include <vector>

#include "session/changes.h"
#include "session/view_marks.h"

class QLabel;
class QMainWindow;

namespace tvx {

class CTVXApp;
class CTVXView;

// What a dock works with. All outlive the docks.
struct DockContext {
  CTVXApp* app;
  // File of the host with the window's own settings; without one they last for the run.
  QString settingsFile;
  std::function<CTVXView*()> activeView;  // the view in work, or null if none is open
  ChangeNotifier* changes;                // of the view in work (ActiveChanges)
};

// A panel beside the picture that shows something about the view in work. It receives all changes
// when another view takes that place, or none.
class ViewDock : public QDockWidget {
 public:
  ViewDock(const QString& title, const DockContext& context, QWidget* parent);

 protected:
  // Calls `show` after each of these changes. With kAtOnce it is called at each drawing of the
  // picture too, during long work as well, and has to be quick; else it may walk the whole program.
  void Listen(ChangeSet changes, std::function<void()> show, Timing timing = Timing::kSettled);

  CTVXView* view() const { return context_.activeView(); }  // in work, or null if none is open
  void GoToLine(uint64_t line, Centring centring);          // of it, as CTVXView::GoToLine

  const DockContext context_;

 private:
  std::vector<Subscription> subscriptions_;
};

// Lets the user select the text of a label by the mouse, and copy it from the context menu. A click
// leaves the focus in the picture, whose keys move it.
void MakeSelectable(QLabel* label);

// Adds all docks to a window, which owns them, in one column beside the picture: those with figures
// behind each other, and the text of the program below. Returns them in the order of the View
// menus.
std::vector<ViewDock*> AddDocks(const DockContext& context, QMainWindow* window);

}  // namespace tvx
