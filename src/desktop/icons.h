// The program's own icons, drawn in code so that they are sharp at every size and follow the
// colours of the desktop theme.
#pragma once

#include <QIcon>

namespace tvx {

// Icon of a tool button, by its command; an empty one for a command without.
QIcon ToolIcon(int commandId);

// Icon of the program: a wavy tool path in the colours of its feeds.
QIcon ProgramIcon();

}  // namespace tvx
