#include "control/canned_cycle.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr CycleKind kCycles[] = {
    {730, Peck::kChipBreak, false}, {740, Peck::kNone, true},  {810, Peck::kNone, false},
    {820, Peck::kNone, false},      {830, Peck::kFull, false}, {840, Peck::kNone, true},
    {850, Peck::kNone, true},       {860, Peck::kNone, false}, {890, Peck::kNone, true},
};

// From the depth reached to where the next cut begins, and the way back that breaks a chip, mm.
constexpr double kPeckClearance = 0.5;

Point At(const Point& place, double z) {
  return {place[0], place[1], z};
}

uint64_t CutCount(const CannedCycle& cycle) {
  constexpr double kMost = 1e15;  // above the limit of every run
  if (cycle.kind->peck == Peck::kNone || cycle.peck == 0) return 1;
  const double count = std::ceil((cycle.Retract() - *cycle.bottom) / cycle.peck - 1e-9);
  return static_cast<uint64_t>(std::clamp(count, 1.0, kMost));
}

}  // namespace

const CycleKind* FindCycle(uint16_t tenths) {
  if (tenths < kCycles[0].tenths) return nullptr;
  const CycleKind* const found =
      std::find_if(std::begin(kCycles), std::end(kCycles),
                   [&](const CycleKind& kind) { return kind.tenths == tenths; });
  return found != std::end(kCycles) ? found : nullptr;
}

CannedCycle CannedCycle::Shifted(double shift) const {
  CannedCycle cycle = *this;
  cycle.initialLevel += shift;
  if (cycle.retractLevel) *cycle.retractLevel += shift;
  if (cycle.bottom) *cycle.bottom += shift;
  return cycle;
}

bool RunCycle(const CannedCycle& cycle, const Point& place, const CutFeed& feed,
              bool toInitialLevel, PathWriter* path, RunLimit* limit) {
  const double retract = cycle.Retract();
  if (path->Position()[2] < retract) {
    path->Rapid(At(path->Position(), retract));
  }
  path->Rapid(At(place, path->Position()[2]));
  path->Rapid(At(place, retract));

  const uint64_t cuts = CutCount(cycle);
  for (uint64_t cut = 1; cut < cuts; ++cut) {
    if (!limit->Take()) return false;
    const double depth = retract - static_cast<double>(cut) * cycle.peck;
    path->Cut(At(place, depth), feed);
    if (cycle.kind->peck == Peck::kFull) path->Rapid(At(place, retract));
    path->Rapid(At(place, std::min(retract, depth + kPeckClearance)));
  }
  if (!limit->Take()) return false;
  path->Cut(At(place, *cycle.bottom), feed);
  path->Dwell(cycle.dwell);

  if (cycle.kind->cutsBack) {
    path->Cut(At(place, retract), feed);
  } else {
    path->Rapid(At(place, retract));
  }
  if (toInitialLevel && cycle.initialLevel > retract) {
    path->Rapid(At(place, cycle.initialLevel));
  }
  return true;
}

}  // namespace tvx
