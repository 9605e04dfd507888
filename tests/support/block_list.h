// Stored blocks as text, for comparisons in tests.
#pragma once

#include <map>
#include <string>

#include "base/format.h"
#include "model/block_store.h"

namespace tvx {

// One block as the tests write it: "cutStart 10 0 -5 F500".
inline std::string BlockText(const MotionBlock& block) {
  static const std::map<uint32_t, std::string> kNames = {
      {BlockRapidStart, "rapidStart"},
      {BlockRapid, "rapid"},
      {BlockCutStart, "cutStart"},
      {BlockCut, "cut"},
      {BlockArcCcw, "ccw"},
      {BlockArcCw, "cw"},
      {BlockArcCentre, "centre"},
  };
  if (block.type == BlockNone) return "none";
  return kNames.at(block.type) + " " + ShortestFloat(block.x) + " " + ShortestFloat(block.y) + " " +
         ShortestFloat(block.z) + " F" + std::to_string(block.feed);
}

// The whole store, without repairing anything: "rapidStart 1 0 0 F100; none".
inline std::string BlockList(const BlockStore& store) {
  std::string list;
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    list += (i > 0 ? "; " : "") + BlockText(*store.Peek(i));
  }
  return list;
}

}  // namespace tvx
