// One walk over the moves; the order of the additions is part of the result.
#include "stats/cut_time.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "model/walks.h"

namespace tvx {

namespace {

// The sums are single precision and rounded after each addition: their order is part of the result.
// Those of the minutes are kept in doubles between two additions, as their terms are doubles.
struct Sums {
  float cutLength = 0;
  float rapidLength = 0;
  double cutMinutes = 0;
  double rapidMinutes = 0;
};

void AddTo(double* sum, double term) {
  *sum = static_cast<float>(*sum + term);
}

// A share of a move, from per cent to a fraction.
float Fraction(int16_t percent) {
  return static_cast<float>(percent) * 0.01F;
}

// A straight cut runs at three feeds in turn. Where a zone has no feed its term falls away, and the
// middle is the shorter for it all the same.
void AddCut(const MotionBlock& block, float length, Sums* sums) {
  const double head = Fraction(block.headPercent);
  const double tail = Fraction(block.tailPercent);
  sums->cutLength += length;
  if (block.headFeed > 0) AddTo(&sums->cutMinutes, length * head / block.headFeed);
  if (block.tailFeed > 0) AddTo(&sums->cutMinutes, length * tail / block.tailFeed);
  if (block.feed != 0) AddTo(&sums->cutMinutes, (1.0 - head - tail) * length / block.feed);
}

// The feed of a rapid's block plays no part.
void AddRapid(int32_t rapidFeed, float length, Sums* sums) {
  sums->rapidLength += length;
  if (rapidFeed != 0) AddTo(&sums->rapidMinutes, static_cast<double>(length) / rapidFeed);
}

// Every move is measured from the end of the move before it, the first one from block 0, which
// stands for a missing earlier move. Remembering that point saves looking back for it.
Sums AddUpMoves(BlockStore* store, int32_t rapidFeed) {
  Sums sums;
  Vec3 previous;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    const MotionBlock* block = store->PeekRepaired(i);
    if (block == nullptr) continue;
    const Vec3 point = EndPoint(*block);
    if (i == 0) previous = point;
    if (!IsMoveType(block->type)) continue;
    const float length = i == 0 ? 0 : Subtract(point, previous).length;
    if (IsCutType(block->type)) AddCut(*block, length, &sums);
    if (IsRapidType(block->type)) AddRapid(rapidFeed, length, &sums);
    previous = point;
  }
  return sums;
}

// Leaves the register where measuring each move from the one before it ends: on the move before the
// last block, if that is a straight one. Out of line: beside the walk it would cost that registers.
[[gnu::noinline]] void EndOfWalk(BlockStore* store) {
  const uint32_t last = store->blockCount - 1;
  store->ReadBlock(last);
  const uint32_t type = store->CurrentBlock.type;
  if (store->blockCount > 0 && (IsCutType(type) || IsRapidType(type))) PrevMove(store, last);
}

// The quotient is rounded to 32 bits before it is truncated: 100 mm in 0.2 minutes, which has no
// exact 32-bit form, are 500 mm/min and not 499.
int32_t AverageFeed(const Sums& sums) {
  if (sums.cutMinutes == 0) return 0;
  return TruncateToInt(static_cast<float>(sums.cutLength / sums.cutMinutes));
}

// A figure that reports and sums can hold: coordinates at the limits of a number make an infinite
// length. No machine moves that far.
float Finite(double figure) {
  constexpr double kHighest = 1e30;
  return std::isnan(figure) ? 0 : static_cast<float>(std::min(figure, kHighest));
}

}  // namespace

int ComputeCutTime(BlockStore* store, const JobRecord& job, CutTimeEntry* entry) {
  CopyOptions(job, entry);
  const Sums sums = AddUpMoves(store, job.RapidFeed);
  EndOfWalk(store);
  entry->cutLength = Finite(sums.cutLength);
  entry->rapidLength = Finite(sums.rapidLength);
  entry->cutMinutes = Finite(sums.cutMinutes);
  entry->rapidMinutes = Finite(sums.rapidMinutes);
  entry->averageFeed = AverageFeed(sums);
  entry->totalMinutes = Finite(sums.cutMinutes + sums.rapidMinutes);
  return 1;
}

}  // namespace tvx
