// Which rule of the feed adjustment changed what.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "model/block_store.h"

namespace tvx {

enum class FeedRule { kSlope, kMaster, kXyCorner, kZCorner, kArc };
inline constexpr size_t kFeedRules = 5;

// "slope", "master", "XY corner", "Z corner", "arc".
const char* RuleName(FeedRule rule);

// Callback for each change that a rule makes to the feed or the zones of a block. It explains why a
// move is as slow as it is.
using FeedTrace = std::function<void(FeedRule rule, uint32_t block, const MotionBlock& before,
                                     const MotionBlock& after)>;

}  // namespace tvx
