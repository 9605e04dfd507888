// The program of one window.
#pragma once

#include <cstdint>

#include "model/block_store.h"

namespace tvx {

// The stored moves and what reading them leaves behind.
struct NcProgram {
  BlockStore store;
  int32_t FeedBase = 0;          // reference of the feed colours, mm/min
  uint32_t incrementalMode = 0;  // 0: G90, 1: G91
  float arcRadius = 0;           // last radius read; not reset by a load
  int32_t firstPoint = 1;        // the next drawing starts with a silent first point
};

// Leaves a program as a load begins: without blocks, in absolute mode, with a silent first point.
inline void EmptyProgram(NcProgram* program) {
  program->store.blockCount = 0;
  program->store.CurrentBlock.type = BlockNone;
  program->firstPoint = 1;
  program->incrementalMode = 0;
}

}  // namespace tvx
