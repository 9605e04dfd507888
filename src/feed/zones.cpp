// Zones only ever become longer and slower, until they are collapsed.
#include "feed/zones.h"

#include <algorithm>

#include "base/numbers.h"

namespace tvx {

namespace {

// Zones that together cover more than this share of a move, in per cent, are collapsed.
constexpr int kMostCovered = 80;

void WidenZone(int16_t* zonePercent, int16_t* zoneFeed, int16_t percent, int32_t feed) {
  *zonePercent = std::max(*zonePercent, percent);
  if (*zoneFeed > feed || *zoneFeed == 0) *zoneFeed = TruncateTo<int16_t>(feed);
}

}  // namespace

int32_t RoundDownToStep(int32_t feed, int32_t step) {
  step = std::max(step, 1);
  const int32_t steps = feed / step;
  return steps != 0 ? steps * step : feed;
}

int16_t ZonePercent(float distance, float length) {
  return TruncateTo<int16_t>(static_cast<double>(distance) * 100.0 / length);
}

void WidenTailZone(MotionBlock* block, int16_t percent, int32_t feed) {
  WidenZone(&block->tailPercent, &block->tailFeed, percent, feed);
}

void WidenHeadZone(MotionBlock* block, int16_t percent, int32_t feed) {
  WidenZone(&block->headPercent, &block->headFeed, percent, feed);
}

bool ZonesCoverMove(const MotionBlock& block) {
  return block.tailPercent + block.headPercent > kMostCovered;
}

void DropZones(MotionBlock* block) {
  block->headPercent = block->headFeed = 0;
  block->tailPercent = block->tailFeed = 0;
}

int32_t CollapseZones(MotionBlock* block, int32_t feed, bool roundToTen) {
  if (block->headFeed == 0) block->headFeed = block->tailFeed;
  if (block->tailFeed == 0) block->tailFeed = block->headFeed;
  const int32_t zoneFeed = std::min(block->headFeed, block->tailFeed);
  if (0 < zoneFeed && zoneFeed < feed) feed = zoneFeed;
  if (roundToTen) feed = feed / 10 * 10;
  DropZones(block);
  block->feed = feed;
  return feed;
}

bool LowerWholeMove(MotionBlock* block, int32_t feed) {
  if (block->feed <= feed) return false;
  block->feed = feed;
  if (block->tailFeed > feed) block->tailFeed = block->tailPercent = 0;
  if (block->headFeed > feed) block->headFeed = block->headPercent = 0;
  return true;
}

}  // namespace tvx
