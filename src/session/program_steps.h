// The steps of evaluate/ on the program of a window.
#pragma once

#include <optional>
#include <string>

#include "evaluate/evaluation.h"
#include "session/tvx_view.h"
#include "view/path_drawing.h"

namespace tvx {

ProgramWork ProgramWorkOf(CTVXView* view);

// The picture of a window's program.
Scene SceneOf(CTVXView* view);

// Loads an NC file, by its drive path or relative to the current directory. The path and the name
// in it become the current file of the window; a file that cannot be opened leaves none.
Status LoadFile(CTVXView* view, const std::string& path);

// Evaluates the program of a window, which shows the whole path as soon as the feeds are in force.
std::optional<ProgramResult> EvaluateAndShow(CTVXView* view, Evaluation evaluation);

}  // namespace tvx
