// Fuzzes the loader in both line formats. The first byte of the input selects the format, so that
// one corpus serves all: W word-address, I word-address with integer data, C conversational.

#include <algorithm>
#include <string_view>

#include "fuzz_world.h"
#include "model/loader.h"

namespace {

using namespace tvx;

// The loader drops a last line that has no line feed.
uint32_t LineCount(std::string_view text) {
  return static_cast<uint32_t>(std::count(text.begin(), text.end(), '\n'));
}

bool IsKnownType(uint32_t type) {
  return type == BlockNone || type == BlockArcCentre || IsMoveType(type);
}

void CheckStore(const BlockStore& store, uint32_t lines) {
  Require(store.blockCount >= lines && store.blockCount <= 2 * lines);
  bool anyMove = false;
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    const MotionBlock& block = *store.Peek(i);
    Require(IsKnownType(block.type));
    Require(block.headPercent == 0 && block.headFeed == 0);
    Require(block.tailPercent == 0 && block.tailFeed == 0);
    Require(block.type == BlockNone || block.feed == block.feedProgrammed);
    if (IsMoveType(block.type) && !anyMove) {
      Require(block.type == BlockRapidStart || IsCutType(block.type));
      anyMove = true;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  JobRecord job;
  job.InputFileType = data[0] == 'C' ? 2 : 1;
  job.IntNcdataFlg = data[0] == 'I' ? 1 : 0;
  const std::string_view text = AsText(data + 1, size - 1);

  FuzzFiles files(text);
  ParserStates states;
  NcProgram program;
  // Twice: the second load starts with the modal state of the first.
  for (int load = 0; load < 2; ++load) {
    Require(LoadNcFile("c:\\fuzz.nc", &program, &states, &job, &files).ok());
    CheckStore(program.store, LineCount(text));
  }
  return 0;
}
