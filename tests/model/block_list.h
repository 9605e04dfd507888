#pragma once

#include <string>

#include "model/block_store.h"
#include "platform/format.h"

namespace tvx {

// One block as the tests write it: "cutStart 10 0 -5 F500".
inline std::string BlockText(const MotionBlock& block) {
  const char* name = "?";
  switch (block.type) {
    case BlockNone:
      return "none";
    case BlockRapidStart:
      name = "rapidStart";
      break;
    case BlockRapid:
      name = "rapid";
      break;
    case BlockCutStart:
      name = "cutStart";
      break;
    case BlockCut:
      name = "cut";
      break;
    case BlockArcCcw:
      name = "ccw";
      break;
    case BlockArcCw:
      name = "cw";
      break;
    case BlockArcCentre:
      name = "centre";
      break;
    default:
      break;
  }
  return std::string(name) + " " + ShortestFloat(block.x) + " " + ShortestFloat(block.y) + " " +
         ShortestFloat(block.z) + " F" + std::to_string(block.feed);
}

// The whole store, without repairing anything: "rapidStart 1 0 0 F100; none".
inline std::string BlockList(const BlockStore& store) {
  std::string list;
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    if (i > 0) list += "; ";
    list += BlockText(*store.Peek(i));
  }
  return list;
}

}  // namespace tvx
