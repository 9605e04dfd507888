#pragma once

#include <cstdint>

#include "shell/tvx_view.h"

namespace tvx {

// Appends the current result to the result table of the view, and writes its picture into the
// current directory if the working record says so. The picture's name stands in the entry also when
// the picture could not be written. A full table records nothing and writes no picture, and the
// status line says so. Returns the number of entries, one more than before if it was recorded.
int32_t RecordResultEntry(CTVXView* view);

// The command "Single Afa Cut Time": the road of the loaded program from the send options through
// the feed adjustment and the figures to a recorded result. The user can stop before the adjustment
// and before the recording.
void SingleCutTimeCommand(CTVXView* view);

}  // namespace tvx
