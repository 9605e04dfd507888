// The feed zones of a move: a slow head and a slow tail, and the change to one feed for the whole
// move. The functions change a record in memory; the caller stores it.
#pragma once

#include <cstdint>

#include "model/block_store.h"

namespace tvx {

// The feed rounded down to whole steps. A feed below one step stays as it is, since no machine runs
// at 0. A step below 1 counts as 1.
int32_t RoundDownToStep(int32_t feed, int32_t step);

// The share of a move of this length within `distance` of one of its ends, in whole per cent,
// limited to the range of the zone fields.
int16_t ZonePercent(float distance, float length);

// Adds a tail (head) zone to the block, or widens and slows its present one. A zone never shrinks
// and its feed never rises. The feed is limited to the range of the field.
void WidenTailZone(MotionBlock* block, int16_t percent, int32_t feed);
void WidenHeadZone(MotionBlock* block, int16_t percent, int32_t feed);

// True if the zones leave so little of the move between them that they have to be collapsed.
bool ZonesCoverMove(const MotionBlock& block);

// Removes both zones; the block's feed stays.
void DropZones(MotionBlock* block);

// Removes both zones and sets the feed of the whole move to the lowest of their feeds and `feed`,
// rounded down to a multiple of 10 if roundToTen is set. Returns that feed.
int32_t CollapseZones(MotionBlock* block, int32_t feed, bool roundToTen);

// Lowers the whole move to `feed` and removes the zones that are faster. Returns false, with the
// block unchanged, if the move is not faster than `feed`.
bool LowerWholeMove(MotionBlock* block, int32_t feed);

}  // namespace tvx
