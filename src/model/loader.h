#pragma once

#include <cstdint>
#include <string>

#include "model/block_store.h"
#include "model/job_record.h"
#include "model/parser.h"
#include "platform/files.h"

namespace tvx {

// The program of one window: its stored moves and what reading it leaves behind.
struct NcProgram {
  BlockStore store;
  int32_t FeedBase = 0;          // reference of the feed colours, mm/min
  uint32_t incrementalMode = 0;  // 0: G90, 1: G91
  float arcRadius = 0;           // last radius read; not reset by a load
  int32_t firstPoint = 1;        // the next drawing starts with a silent first point
};

// Leaves a program as a load begins: without blocks, in absolute mode, with a silent first point.
void EmptyProgram(NcProgram* program);

enum class LoadResult {
  kLoaded,      // the program is read, and the register holds its last block
  kCannotOpen,  // the store is empty
  kStoreFull,   // the store has no room for the second record of an arc; it holds what came before
};

// Reads one NC file into the store, in place of the program there. A file that does not exist is
// created empty. `states` is the modal state that lives as long as the process.
LoadResult LoadNcFile(const std::string& path, NcProgram* program, ParserStates* states,
                      JobRecord* job, Files* files);

}  // namespace tvx
