// The program of one window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/block_store.h"
#include "model/line_map.h"
#include "platform/files/files.h"

namespace tvx {

// Where the blocks of a program come from.
struct ProgramSource {
  std::string path;  // drive path; empty for blocks that come from no file
  FileStamp stamp;   // of the file at the load
  LineMap lines;
  bool isConversational = false;  // else word-address
  // Of block 0 and every kBlocksPerFeed-th block the programmed feed, which an adjustment
  // overwrites in the store, mm/min. The text of the program has those in between.
  static constexpr uint32_t kBlocksPerFeed = 4096;
  std::vector<int32_t> feeds = {};
};

// Figures of the feeds that the program itself has. Lengths and rapids do not depend on them.
struct ProgrammedFigures {
  float cutMinutes = 0;
  int32_t averageFeed = 0;  // mm/min
  int32_t highestFeed = 0;  // mm/min
};

// The stored moves and what reading them leaves behind.
struct NcProgram {
  BlockStore store;
  int32_t FeedBase = 0;          // reference of the feed colours, mm/min
  uint32_t incrementalMode = 0;  // 0: G90, 1: G91
  float arcRadius = 0;           // last radius read; not reset by a load
  int32_t firstPoint = 1;        // the next drawing starts with a silent first point
  uint64_t lostBlocks = 0;       // of the load: those that found no place in the store
  // The file, or the master model for it, could not be read whole, or found no memory.
  bool isIncomplete = false;
  ProgramSource source = {};
  uint32_t edition = 0;  // another number for each program that fills the store
  // Before the first adjustment, if results are to have them; nothing before that.
  std::optional<ProgrammedFigures> programmed = {};
};

// Leaves a program as a load begins: without blocks, in absolute mode, with a silent first point.
inline void EmptyProgram(NcProgram* program) {
  program->store.blockCount = 0;
  program->store.CurrentBlock.type = BlockNone;
  program->firstPoint = 1;
  program->lostBlocks = 0;
  program->isIncomplete = false;
  program->incrementalMode = 0;
  program->source = {};
  ++program->edition;
  program->programmed.reset();
}

}  // namespace tvx
