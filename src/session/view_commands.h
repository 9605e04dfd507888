// The commands by which a user changes the picture, without a window: the front end forwards its
// events and shows the rubber band. Every command that changes the picture notes it and shows it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "model/job_record.h"
#include "model/nc_program.h"
#include "platform/user_interface.h"
#include "session/changes.h"
#include "session/command_pad.h"
#include "view/path_drawing.h"

namespace tvx {

// The keys that act on a view with the focus, whatever modifier keys are down.
enum class ViewKey {
  kUp,
  kDown,
  kRight,
  kLeft,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kInsert,
  kDelete,
};

// The operations that the command pad starts. They belong to the owner of the view.
struct PadActions {
  std::function<void()> runJobList;
  std::function<void()> showResultList;
  std::function<void()> showOptions;
};

class ViewCommands {
 public:
  // All must outlive the object.
  ViewCommands(NcProgram* program, JobRecord* job, ViewState* view, ChangeNotifier* changes,
               UserInterface* ui)
      : program_(program), job_(job), view_(view), changes_(changes), ui_(ui) {}

  // Fixed view 1 to kViewModes. Any other mode does nothing.
  void ShowViewMode(int mode);
  void Fit();
  void Redraw();
  // Shows the rapid moves if they are hidden and hides them otherwise, in the view and in
  // RapidShown of the job record.
  void ToggleRapids();

  // Pans by about ten pixels, or turns one angle by ten degrees.
  void PressKey(ViewKey key);

  // The rubber band. Points are pixels of the drawing area, origin top left. A release more than
  // ten pixels away in both directions zooms to the rectangle, any other fits the path.
  void PressRight(Pixel point);
  // Returns true if the rubber band has changed and must be drawn again.
  bool MoveMouse(Pixel point);
  void ReleaseRight(Pixel point);

  // The rectangle to draw over the picture, as two opposite corners; none outside a drag.
  std::optional<std::array<Pixel, 2>> RubberBand() const;

  // Opens the command pad and, after it has closed, runs what was chosen.
  void PressLeft(CCommandPadDlg* pad, const PadActions& actions);

 private:
  void ShowChange();

  NcProgram* program_;
  JobRecord* job_;
  ViewState* view_;
  ChangeNotifier* changes_;
  UserInterface* ui_;
  bool rubberActive_ = false;  // the right button is down and the drag is in progress
  bool rubberDrawn_ = false;   // a rectangle is on the screen
  Pixel rubberPress_;
  Pixel rubberLast_;  // far corner of the rectangle on the screen
};

}  // namespace tvx
