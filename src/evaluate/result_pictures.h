// The pictures that a result keeps for the reports.
#pragma once

#include "evaluate/evaluation.h"

namespace tvx {

// Draw the path of the program in the store, turned as in the view and fitted to the picture. The
// program, its register and the view stay as they are.
void DrawSheetPicture(const ProgramWork& work, ResultPictures* pictures);
void DrawWorkbookPicture(const ProgramWork& work, ResultPictures* pictures);

}  // namespace tvx
