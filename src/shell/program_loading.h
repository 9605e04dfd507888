// How the commands of a window load a program.
#pragma once

#include <string>

#include "model/loader.h"
#include "shell/tvx_view.h"

namespace tvx {

// Loads an NC file, by its drive path or relative to the current directory, into the view's
// program, and shows the message for a file that cannot be opened.
LoadResult LoadIntoView(CTVXView* view, const std::string& path);

}  // namespace tvx
