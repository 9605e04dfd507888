// Lines under a canned cycle: the values that they give and keep, and how often the cycle runs.
#include <cmath>

#include "control/word_state.h"

namespace tvx {
namespace {

constexpr uint32_t kRunningWords = Letters("XYZR");

// A level on the path; an incremental one is measured from `base`.
double LevelOf(const WordState& state, char letter, double base) {
  const double value = state.Length(letter);
  return state.modes.isIncremental ? base + value : state.modes.coordinates.Shifted(value, 2);
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
double TimesOf(const WordLine& words) {
  if (words.Has('L')) return words['L'];
  const bool isCount =
      words.Has('K') && !words.HasAny(Letters("IJ")) && words['K'] == std::floor(words['K']);
  return isCount ? words['K'] : 1;
}

}  // namespace

bool RunCycleLine(WordState* state) {
  KeepValues(state);
  const CannedCycle& cycle = state->modes.cycle;
  const double times = TimesOf(state->words);
  if (!state->words.HasAny(kRunningWords) || times < 1) return true;
  if (!cycle.bottom || !state->modes.coordinates.HasPlane(Plane::kXY)) {
    state->Remark(ReadingRemarkId::kNotRead, WordText('G', cycle.kind->tenths / 10));
    return true;
  }
  for (double time = 1; time <= times; ++time) {
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
