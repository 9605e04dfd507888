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

enum class LoadResult {
  kLoaded,      // the program is read, and the register holds its last block
  kCannotOpen,  // the store is empty
  kStopped,     // the user stopped it; the store is empty, and `states` is as it was
  kStoreFull,   // the store has no room for the second record of an arc; it holds what came before
  kBlocksLost,  // as kLoaded, but lostBlocks of the program found no place
  kReadFailed,  // as kLoaded, but a read failed (Files::LastError) and ended the program
};

// True if the program is read and ready, whole or not.
inline bool IsLoaded(LoadResult result) {
  return result != LoadResult::kCannotOpen && result != LoadResult::kStoreFull &&
         result != LoadResult::kStopped;
}

// Reads one NC file into the store, in place of the program there. `states` is the modal state that
// lives as long as the process.
LoadResult LoadNcFile(const std::string& path, NcProgram* program, ParserStates* states,
                      JobRecord* job, Files* files, Progress* progress = NoProgress());

}  // namespace tvx
