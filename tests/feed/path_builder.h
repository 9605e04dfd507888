// Small stores for the tests of the feed adjustment, and their feeds as a test writes them.
#pragma once

#include <string>
#include <vector>

#include "model/block_store.h"
#include "random_program.h"

namespace tvx {

inline MotionBlock Move(uint32_t type, float x, float y, float z, int32_t feed = 1000) {
  MotionBlock block;
  block.x = x, block.y = y, block.z = z;
  block.feedProgrammed = block.feed = feed;
  block.type = type;
  return block;
}

// "1000", "1000 head 25% 100", "1000 head 25% 100 tail 30% 200".
inline std::string FeedText(const MotionBlock& block) {
  const auto zone = [](const char* name, int percent, int feed) {
    if (percent == 0 && feed == 0) return std::string();
    return std::string(name) + std::to_string(percent) + "% " + std::to_string(feed);
  };
  return std::to_string(block.feed) + zone(" head ", block.headPercent, block.headFeed) +
         zone(" tail ", block.tailPercent, block.tailFeed);
}

// The feeds of all blocks, but those without a move: "1000; 100; 1000 head 25% 100".
inline std::string FeedTexts(const BlockStore& store) {
  std::string text;
  for (const MotionBlock& block : Contents(store)) {
    if (!IsMoveType(block.type)) continue;
    if (!text.empty()) text += "; ";
    text += FeedText(block);
  }
  return text;
}

}  // namespace tvx
