// Arcs from the words of a line: by a centre or a radius, in the plane in force.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/format.h"
#include "control/word_state.h"

namespace tvx {
namespace {

using enum ReadingRemarkId;

// A radius may be written with few digits, mm.
constexpr double kRadiusTolerance = 0.01;

bool IsClockwise(const WordState& state) {
  return state.modes.motion == Motion::kClockwise;
}

// The centre of the line's arc on the path.
PlanePoint CentreOf(const WordState& state) {
  const Plane plane = state.modes.plane;
  const PlaneAxes axes = AxesOf(plane);
  const auto length = [&](size_t axis) {
    return state.words.Has(kCentreLetters[axis]) ? state.Length(kCentreLetters[axis]) : 0;
  };
  const double first = length(axes.first), second = length(axes.second);
  if (state.modes.isCentreAbsolute) {
    Point centre{};
    centre[axes.first] = first;
    centre[axes.second] = second;
    return PathWriter::InPlane(plane, state.modes.coordinates.ToPath(centre));
  }
  const PlanePoint start = state.path.PositionIn(plane);
  const PlanePoint offset = state.modes.coordinates.TurnedOffset({first, second});
  return {start[0] + offset[0], start[1] + offset[1]};
}

void ArcByRadius(WordState* state, const Point& end) {
  const Plane plane = state->modes.plane;
  const PlanePoint from = state->path.PositionIn(plane);
  const PlanePoint to = PathWriter::InPlane(plane, end);
  const auto remark = [&](ReadingRemarkId id) {
    state->Remark(id, WordText('R', state->words['R']));
  };
  if (Distance(from, to) <= kNoLength) return remark(kNotRead);
  double missing = 0;
  const Arc arc = ArcOfRadius(state->Length('R'), from, to, IsClockwise(*state), &missing);
  if (missing > kRadiusTolerance) remark(kArcRadiusShort);
  state->path.CutArc(plane, arc, end, state->Feed());
}

void ArcByCentre(WordState* state, const Point& end) {
  const Plane plane = state->modes.plane;
  const PlanePoint from = state->path.PositionIn(plane);
  const PlanePoint to = PathWriter::InPlane(plane, end);
  Arc arc = ArcAbout(CentreOf(*state), from, to, IsClockwise(*state));
  if (state->words.Has('P') && !state->IsPTaken()) {
    const double turns = state->words['P'];
    const bool isWhole = turns == std::floor(turns);
    if (isWhole && turns >= 2) {
      arc.sweep += std::copysign(2 * std::numbers::pi * (turns - 1), arc.sweep);
    }
  }
  if (EndsElsewhere(arc) && !IsDegenerate(arc)) {
    state->Remark(kArcEndsElsewhere, Format("%.3f/%.3f", arc.startRadius, arc.endRadius));
  }
  state->path.CutArc(plane, arc, end, state->Feed());
}

}  // namespace

void RunArc(WordState* state) {
  const Plane plane = state->modes.plane;
  const PlaneAxes axes = AxesOf(plane);
  const WordLine& words = state->words;
  const Point end = EndPoint(state, plane, kAxisWords);
  const bool hasRadius = words.Has('R');
  const bool hasCentre =
      words.Has(kCentreLetters[axes.first]) || words.Has(kCentreLetters[axes.second]);
  if (!(hasCentre || hasRadius) || !state->modes.coordinates.HasPlane(plane)) {
    state->Remark(kNotRead, IsClockwise(*state) ? "G2" : "G3");
    state->path.Cut(end, state->Feed());
  } else if (hasRadius) {
    ArcByRadius(state, end);
  } else {
    ArcByCentre(state, end);
  }
}

}  // namespace tvx
