// Reads NC files into the block store.
#pragma once

#include <string>

#include "model/job_record.h"
#include "model/nc_program.h"
#include "model/parser_state.h"
#include "platform/files/files.h"
#include "platform/progress.h"

namespace tvx {

// Leaves a program as every load begins: empty, and with the feed that is in force until the first
// F word.
void BeginProgram(NcProgram* program);

// True for the conversational format. Any other type becomes that of the word-address format.
bool IsConversational(JobRecord* job);

// The InputFileType of the format that is not that of the given one.
int32_t OtherFormat(int32_t InputFileType);

// True if the program of a load is read and ready, whole or not.
bool IsLoaded(const Status& load);

// Reads one NC file into the store, in place of the program there. `states` is the modal state that
// lives as long as the process. When it is done, the register holds the last block of the program.
// It is also loaded, as IsLoaded says, if it fails with
// - kReadFailed or kChanged: a read failed and ended the program;
// - kBlocksLost: lostBlocks of the program found no place.
// Any other failure leaves no program:
// - kStopped: the store is empty, and `states` is as it was;
// - kStoreFull: the store has no room for the second record of an arc; it holds what came before;
// - the file cannot be opened: the store is empty.
Status LoadNcFile(const std::string& path, NcProgram* program, ParserStates* states, JobRecord* job,
                  Files* files, Progress* progress = NoProgress());

}  // namespace tvx
