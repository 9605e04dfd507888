// From the axis words of a line to points of the path: incremental and polar values, shifts, turns.
#include "control/degrees.h"
#include "control/word_state.h"

namespace tvx {
namespace {

// In the plane, the words of the axes are a radius and an angle.
void ReadPolar(WordState* state, Plane plane, Point* end, unsigned* given) {
  const PlaneAxes axes = AxesOf(plane);
  const unsigned inPlane = 1U << axes.first | 1U << axes.second;
  if ((*given & inPlane) == 0) return;
  PolarMode& polar = state->modes.polar;
  const bool isIncremental = state->modes.isIncremental;
  if ((*given >> axes.first & 1) != 0) {
    const double radius = state->Length(kAxisLetters[axes.first]);
    polar.radius = isIncremental ? polar.radius + radius : radius;
  }
  if ((*given >> axes.second & 1) != 0) {
    const double angle = state->words[kAxisLetters[axes.second]];
    polar.angle = isIncremental ? polar.angle + angle : angle;
  }
  (*end)[axes.first] = polar.radius * CosineOf(polar.angle);
  (*end)[axes.second] = polar.radius * SineOf(polar.angle);
  *given |= inPlane;
}

}  // namespace

Point ShiftedEndPoint(WordState* state, Plane polarPlane, uint32_t given) {
  const WordModes& modes = state->modes;
  const Point start = state->path.Position();
  Point end = modes.coordinates.ToProgram(start);
  state->ReadAxes(given, &end);
  unsigned changed = 0;
  for (size_t axis = 0; axis < 3; ++axis) {
    if ((given & WordLine::Bit(kAxisLetters[axis])) != 0) changed |= 1U << axis;
  }
  if (modes.polar.isOn) ReadPolar(state, polarPlane, &end, &changed);
  return modes.coordinates.EndOnPath(start, end, changed);
}

void SetShift(WordModes* modes, Point WordModes::*shift, const Point& value) {
  modes->*shift = value;
  for (size_t axis = 0; axis < 3; ++axis) {
    modes->coordinates.Shift(axis, modes->localShift[axis] + modes->originShift[axis]);
  }
}

void ShiftLocally(WordState* state) {
  Point shift = state->modes.localShift;
  for (size_t axis = 0; axis < 3; ++axis) {
    const char letter = kAxisLetters[axis];
    if (state->words.Has(letter)) shift[axis] = state->Length(letter);
  }
  SetShift(&state->modes, &WordModes::localShift, shift);
}

void ShiftOrigin(WordState* state) {
  Point shift = state->modes.originShift;
  for (size_t axis = 0; axis < 3; ++axis) {
    const char letter = kAxisLetters[axis];
    if (!state->words.Has(letter)) continue;
    const double position = state->path.Position()[axis] - state->modes.localShift[axis];
    shift[axis] = position - state->Length(letter);
  }
  SetShift(&state->modes, &WordModes::originShift, shift);
}

void TurnCoordinates(WordState* state) {
  WordModes& modes = state->modes;
  const PlaneAxes axes = AxesOf(modes.plane);
  const auto centre = [&](size_t axis) {
    const char letter = kAxisLetters[axis];
    return state->words.Has(letter) ? state->Length(letter)
                                    : modes.coordinates.LessShift(state->path.Position(), axis);
  };
  modes.coordinates.Turn(modes.plane, {centre(axes.first), centre(axes.second)},
                         state->words.Or('R', 0));
}

}  // namespace tvx
