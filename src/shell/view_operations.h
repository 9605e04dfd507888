// What the commands of a window do. The road of one file from the menu to its picture starts here.
#pragma once

#include "shell/command_table.h"
#include "shell/tvx_view.h"
#include "view/view_commands.h"

namespace tvx {

// The commands that change the picture of a view.
ViewCommands ViewCommandsOf(CTVXView* view);

// True if the action is one that RunViewAction carries out.
bool IsViewAction(Action action);

// Carries out a command of the view, from its start to its end; `argument` is that of the command.
// Actions of the frame and of the application do nothing here.
void RunViewAction(CTVXView* view, Action action, int argument = 0);

// Loads an NC file, by its drive path or relative to the current directory, and shows it. The path
// without its directory becomes the current file name. Returns what the load returned.
LoadResult LoadProgram(CTVXView* view, const std::string& path);

// A press of the left button in the picture: the command pad, and then what was chosen on it.
void OpenCommandPad(CTVXView* view);

}  // namespace tvx
