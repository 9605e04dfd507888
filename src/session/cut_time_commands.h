// The command of a single cut time, and the recording of a result.
#pragma once

#include "evaluate/result_table.h"
#include "model/result_entry.h"
#include "platform/files/files.h"
#include "session/tvx_view.h"
#include "view/path_drawing.h"

namespace tvx {

// The name of the picture of a result.
std::string PictureName(const CutTimeEntry& result);

// Appends a result to the table and, if MetafileCreateChk of the scene's job record is 1 and the
// result has a file name, writes the picture of the scene into the current directory. The entry has
// the picture's name even if the picture cannot be written, which is the failure then; of a part of
// a program none is written (kPartSource). A full table neither records nor draws (kTableFull), and
// a drawing that the user stops is neither recorded nor written (kStopped).
Status RecordProgramResult(ProgramResult result, const Scene& scene, Files* files,
                           ResultTable* results);

// True if the result is in the table, whatever became of its picture.
bool IsRecorded(const Status& record);

// The command "Single Afa Cut Time": takes the loaded program through the send options, the feed
// adjustment, the figures and the recording. The user can stop it before the adjustment and before
// the recording. A master model that is ticked and not in memory is offered to be read, or its
// absence is shown.
void SingleCutTimeCommand(CTVXView* view);

}  // namespace tvx
