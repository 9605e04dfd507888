// Speeds at the ends of all moves in two passes, and the time that follows from them.
#include "insight/machine_time.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "insight/machine_move.h"

namespace tvx {

namespace {

constexpr double kMinutesPerSecond = 1.0 / 60.0;

Vec3 PointAt(BlockStore* store, uint32_t index) {
  const MotionBlock* const block = store->PeekRepaired(index);
  return block != nullptr ? Vec3{block->x, block->y, block->z} : Vec3{};
}

bool IsMoveAt(BlockStore* store, uint32_t index) {
  const MotionBlock* const block = store->PeekRepaired(index);
  return block != nullptr && IsMoveType(block->type);
}

// The move block before `index`, or block 0, where the first move starts.
uint32_t StartOfMove(BlockStore* store, uint32_t index) {
  while (index > 0 && !IsMoveAt(store, --index))
    ;
  return index;
}

size_t CountMoves(BlockStore* store) {
  size_t count = 0;
  for (uint32_t i = 0; i < store->blockCount; ++i) count += IsMoveAt(store, i) ? 1 : 0;
  return count;
}

// Square of the speed at the other end of a stretch, as far as the acceleration allows.
double ReachedSquared(double speedSquared, const Stretch& stretch, double acceleration) {
  return speedSquared + 2 * acceleration * stretch.length;
}

double Squared(double value) {
  return value * value;
}

// Squares of the highest speeds at the ends of a move's stretches from which the machine can still
// slow down to `exitSquared`, its speed at the end of the move. Returns that at the start.
double SlowDown(const MachineMove& move, double exitSquared, std::array<double, 3>* ends) {
  double speedSquared = exitSquared;
  for (int i = move.stretchCount - 1; i >= 0; --i) {
    const auto at = static_cast<size_t>(i);
    (*ends)[at] = speedSquared;
    speedSquared = std::min(ReachedSquared(speedSquared, move.stretches[at], move.acceleration),
                            Squared(move.stretches[at].speed));
    if (i > 0) speedSquared = std::min(speedSquared, Squared(move.stretches[at - 1].speed));
  }
  return speedSquared;
}

// Walks the program from its end. Returns for each timed move, the last one first, the square of
// the highest speed at its end from which everything after it can be run.
std::vector<double> BackwardPass(BlockStore* store, const MachineLimits& limits) {
  std::vector<double> exits;
  exits.reserve(CountMoves(store));
  std::array<double, 3> ends;
  MachineMove buffers[2];
  MachineMove* move = &buffers[0];
  MachineMove* next = &buffers[1];
  bool hasNext = false;     // a timed move follows without a standstill between
  double entrySquared = 0;  // of that move
  for (uint32_t i = store->blockCount; i-- > 0;) {
    const MotionBlock* const block = store->PeekRepaired(i);
    if (block == nullptr || !IsMoveType(block->type)) continue;
    const Vec3 from = PointAt(store, StartOfMove(store, i));
    const MoveKind kind = DescribeMove(*block, store->PeekRepaired(i + 1), from, limits, move);
    if (kind == MoveKind::kNoLength) continue;
    if (kind == MoveKind::kNoFeed) {
      hasNext = false;
      continue;
    }
    const double exitSquared =
        hasNext ? std::min(entrySquared, BoundarySpeedSquared(*move, *next, limits)) : 0;
    exits.push_back(exitSquared);
    entrySquared = SlowDown(*move, exitSquared, &ends);
    std::swap(move, next);
    hasNext = true;
  }
  return exits;
}

// Seconds for a stretch between two speeds: up to a peak, on at the highest speed, and down.
double StretchSeconds(const Stretch& stretch, double acceleration, double startSquared,
                      double endSquared) {
  const double reached = acceleration * stretch.length + (startSquared + endSquared) / 2;
  const double peakSquared = std::min(Squared(stretch.speed), reached);
  const double peak = std::sqrt(peakSquared);
  const double ramps = (2 * peakSquared - startSquared - endSquared) / (2 * acceleration);
  return (2 * peak - std::sqrt(startSquared) - std::sqrt(endSquared)) / acceleration +
         (stretch.length - ramps) / peak;
}

using StretchObserver = std::function<void(const StretchRun&)>;

struct Seconds {
  double moving = 0;
  double steady = 0;
};

// Runs a move from the speed that *speedSquared holds and leaves there the one at its end.
Seconds RunMove(const MachineMove& move, uint32_t block, double exitSquared, double* speedSquared,
                const StretchObserver& observer) {
  std::array<double, 3> ends;
  SlowDown(move, exitSquared, &ends);
  Seconds seconds;
  for (int i = 0; i < move.stretchCount; ++i) {
    const auto at = static_cast<size_t>(i);
    const Stretch& stretch = move.stretches[at];
    const double endSquared =
        std::min(ends[at], ReachedSquared(*speedSquared, stretch, move.acceleration));
    const double duration = StretchSeconds(stretch, move.acceleration, *speedSquared, endSquared);
    if (observer) {
      observer({block, stretch.length, stretch.speed, move.acceleration, std::sqrt(*speedSquared),
                std::sqrt(endSquared), duration});
    }
    seconds.moving += duration;
    seconds.steady += stretch.length / stretch.feed;
    *speedSquared = endSquared;
  }
  return seconds;
}

// Walks the program from its start, with what the backward pass allows at the end of each move.
MachineTime ForwardPass(BlockStore* store, const MachineLimits& limits,
                        const std::vector<double>& exits, const StretchObserver& observer) {
  Seconds cuts, rapids;
  MachineTime time;
  MachineMove move;
  double speedSquared = 0;
  auto exit = exits.rbegin();
  Vec3 from = PointAt(store, 0);
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    const MotionBlock* const block = store->PeekRepaired(i);
    if (block == nullptr || !IsMoveType(block->type)) continue;
    const MoveKind kind = DescribeMove(*block, store->PeekRepaired(i + 1), from, limits, &move);
    from = {block->x, block->y, block->z};
    if (kind == MoveKind::kNoFeed) ++time.movesWithoutFeed;
    if (kind != MoveKind::kTimed) continue;
    const Seconds seconds = RunMove(move, i, *exit++, &speedSquared, observer);
    Seconds* const sum = move.isRapid ? &rapids : &cuts;
    sum->moving += seconds.moving;
    sum->steady += seconds.steady;
  }
  time.cutMinutes = cuts.moving * kMinutesPerSecond;
  time.rapidMinutes = rapids.moving * kMinutesPerSecond;
  time.steadyCutMinutes = cuts.steady * kMinutesPerSecond;
  time.steadyRapidMinutes = rapids.steady * kMinutesPerSecond;
  return time;
}

}  // namespace

void SetPauses(const ProgramPauses& pauses, const MachineProfile& profile, MachineTime* time) {
  time->dwellMinutes = pauses.dwellSeconds * kMinutesPerSecond * profile.Factor;
  time->toolMinutes = static_cast<double>(pauses.toolChanges) * profile.ToolChange *
                      kMinutesPerSecond * profile.Factor;
  time->totalMinutes =
      time->cutMinutes + time->rapidMinutes + time->dwellMinutes + time->toolMinutes;
}

std::span<const MachineTimeField> MachineTimeFields() {
  static constexpr MachineTimeField kFields[] = {
      {"cutMinutes", &MachineTime::cutMinutes},
      {"rapidMinutes", &MachineTime::rapidMinutes},
      {"dwellMinutes", &MachineTime::dwellMinutes},
      {"toolMinutes", &MachineTime::toolMinutes},
      {"totalMinutes", &MachineTime::totalMinutes},
      {"steadyCutMinutes", &MachineTime::steadyCutMinutes},
      {"steadyRapidMinutes", &MachineTime::steadyRapidMinutes},
  };
  return kFields;
}

MachineTime ComputeMachineTime(BlockStore* store, const MachineProfile& profile,
                               const ProgramPauses& pauses, const StretchObserver& observer) {
  const MachineLimits limits(profile);
  MachineTime time = ForwardPass(store, limits, BackwardPass(store, limits), observer);
  time.cutMinutes *= profile.Factor;
  time.rapidMinutes *= profile.Factor;
  SetPauses(pauses, profile, &time);
  return time;
}

}  // namespace tvx
