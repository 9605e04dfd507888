// What the commands of a view do, a row of one table for each.
#pragma once

#include "model/loader.h"
#include "session/command_id.h"
#include "session/tvx_view.h"
#include "session/view_commands.h"

namespace tvx {

// The commands that change the picture of a view.
ViewCommands ViewCommandsOf(CTVXView* view);

// A command of the view.
struct ViewCommand {
  CommandId id;
  void (*run)(CTVXView* view, int argument);
  int argument = 0;
  const char* prompt = "";     // in the status bar while its entry is marked
  bool changesProgram = true;  // false: only the picture of it, or nothing
};

// The row of a command; null for a command of the frame and for one that is shown disabled.
const ViewCommand* FindViewCommand(CommandId id);

// Carries out a command of the view, from its start to its end, and settles what has changed. Any
// other does nothing.
void RunViewCommand(CTVXView* view, CommandId id);

// Loads an NC file in the format of its ending and shows it, or the message of a failure. Returns
// what the load returned.
Status LoadProgram(CTVXView* view, const std::string& path);

// A press of the left button in the picture: opens the command pad and runs what was chosen on it.
void OpenCommandPad(CTVXView* view);

}  // namespace tvx
