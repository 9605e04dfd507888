// A move of the program in words, as the window and the tool show it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/message.h"
#include "insight/feed_causes.h"
#include "insight/source_lines.h"
#include "model/block_store.h"

namespace tvx {

// "line 12: G1 X10"; "line 12" without a text.
std::string LineText(uint64_t line, const std::string& text, Language language);

// The feeds of a move with its zones: "1000", "1000 head 25% 100", "1000 head 25% 100 tail 30%
// 200".
std::string FeedText(const MotionBlock& block, Language language);

// What is known of a move.
struct MoveFacts {
  uint32_t line = 0;                      // 0 for a block that no line left
  std::string text;                       // of the line, UTF-8
  MotionBlock block;                      // as stored
  std::optional<int32_t> programmedFeed;  // mm/min
  MoveRules rules;                        // none if no adjustment was followed
};

// Collects them. Reads the file: some tenths of a millisecond, and the whole file the first time.
// `causes` may be null. The register stays as it is.
MoveFacts FactsOf(const BlockStore& store, uint32_t block, const FeedCauses* causes,
                  SourceLines* lines);

// "line 12: G1 X10 | to 10 0 -2 | programmed 1200, adjusted 1000 tail 30% 200 | tail XY corner".
// A move whose feed is the programmed one has "feed 1200" instead, a rapid has "rapid". Parts that
// are not known are left out.
std::string MoveText(const MoveFacts& facts, Language language);

}  // namespace tvx
