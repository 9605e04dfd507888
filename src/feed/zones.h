// The feed zones of a move: a slow head, a slow tail, and how a move takes one feed as a whole.
// All of it works on a record in hand; the caller stores it.
#pragma once

#include <cstdint>

#include "model/block_store.h"

namespace tvx {

// feed in whole steps, never up. A feed below one step would become 0, which no machine runs: it
// stays as it is. A step below 1 counts as 1.
int32_t RoundDownToStep(int32_t feed, int32_t step);

// Share of a move of this length that lies within `distance` of one of its ends, in whole per cent.
// Held in the range of the zone fields.
int16_t ZonePercent(float distance, float length);

// Gives the block a tail (head) zone, or widens and slows the one it has. The zone never shrinks
// and its feed never rises. The feed is held in the range of the field.
void WidenTailZone(MotionBlock* block, int16_t percent, int32_t feed);
void WidenHeadZone(MotionBlock* block, int16_t percent, int32_t feed);

// True when the zones leave so little of the move between them that they are given up.
bool ZonesCoverMove(const MotionBlock& block);

// Takes both zones off the block; its feed stays.
void DropZones(MotionBlock* block);

// Gives up both zones: the whole move takes the lowest of their feeds and `feed`, rounded down to a
// multiple of 10 if asked for. Returns that feed.
int32_t CollapseZones(MotionBlock* block, int32_t feed, bool roundToTen);

// Lowers the whole move to `feed`, and drops the zones that are faster. Returns false, with the
// block unchanged, if the move is not faster than that already.
bool LowerWholeMove(MotionBlock* block, int32_t feed);

}  // namespace tvx
