// The program's own icons. Those of the tool buttons are drawn in code so that they are sharp at
// every size and follow the colours of the desktop theme.
#pragma once

#include <QIcon>

#include "session/command_id.h"

namespace tvx {

// Icon of a tool button, by its command; an empty one for a command that has none.
QIcon ToolIcon(CommandId id);

// Icon of the program, the one that packaging/ installs for the desktop.
QIcon ProgramIcon();

}  // namespace tvx
