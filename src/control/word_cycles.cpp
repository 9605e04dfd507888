// Lines under a canned cycle: the values that they give and keep, and how often the cycle runs.
#include <algorithm>
#include <cmath>

#include "control/word_state.h"

namespace tvx {
namespace {

constexpr uint32_t kRunningWords = Letters("XYZR");

// A level in the program; an incremental one is measured from `base`.
double LevelOf(const WordState& state, char letter, double base) {
  return (state.modes.isIncremental ? base : 0) + state.Length(letter);
}

void KeepValues(WordState* state) {
  const WordLine& words = state->words;
  CannedCycle& cycle = state->modes.cycle;
  if (words.Has('Q')) cycle.peck = std::abs(state->Length('Q'));
  if (words.Has('P') && !state->IsPTaken()) cycle.dwell = state->DwellOfP();
  if (words.Has('R')) cycle.retractLevel = LevelOf(*state, 'R', cycle.initialLevel);
  if (words.Has('Z')) cycle.bottom = LevelOf(*state, 'Z', cycle.Retract());
}

// L, or a whole K that is no centre of an arc.
uint64_t TimesOf(const WordLine& words) {
  const bool isCount =
      words.Has('K') && !words.HasAny(Letters("IJ")) && words['K'] == std::floor(words['K']);
  const double times = words.Or('L', isCount ? words['K'] : 1);
  return static_cast<uint64_t>(std::max(0.0, times));
}

}  // namespace

bool RunCycleLine(WordState* state) {
  KeepValues(state);
  const Coordinates& coordinates = state->modes.coordinates;
  const CannedCycle cycle = state->modes.cycle.Shifted(coordinates.ShiftOf(2));
  const uint64_t times = TimesOf(state->words);
  const bool isRun = state->words.HasAny(kRunningWords) && times > 0;
  if (!isRun || state->groups.Has(GGroup::kMachineMove)) return true;
  if (!cycle.bottom || !coordinates.HasPlane(Plane::kXY)) {
    state->Remark(ReadingRemarkId::kNotRead, WordText('G', cycle.kind->tenths / 10.0));
    return true;
  }
  for (uint64_t time = 1; time <= times; ++time) {
    if (time > 1 && !state->limit.Take()) return false;
    const Point place = EndPoint(state, Plane::kXY, Letters("XY"));
    if (!RunCycle(cycle, place, state->Feed(), state->modes.toInitialLevel, &state->path,
                  &state->limit)) {
      return false;
    }
  }
  return true;
}

}  // namespace tvx
