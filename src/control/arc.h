// Geometry of arcs in the coordinates of their plane.
#pragma once

#include <array>

namespace tvx {

// On the first and second axis of a plane, mm.
using PlanePoint = std::array<double, 2>;

struct Arc {
  PlanePoint centre{};
  double sweep = 0;                       // radians, positive counter-clockwise
  double startRadius = 0, endRadius = 0;  // mm
};

// Lengths up to this are none, angles that agree within it make a whole turn. mm, radians.
inline constexpr double kNoLength = 1e-9;

double Distance(const PlanePoint& a, const PlanePoint& b);

// An arc about a centre. Its magnitude is in (0, 2 pi]; start and end in the same direction from
// the centre make a whole turn.
Arc ArcAbout(const PlanePoint& centre, const PlanePoint& start, const PlanePoint& end,
             bool isClockwise);

// An arc of a signed radius: above 0 at most half a turn, else at least half a turn. A magnitude
// below half the chord puts the centre on the middle of the chord. *missing receives by how much it
// is below, else 0. Start and end must differ.
Arc ArcOfRadius(double radius, const PlanePoint& start, const PlanePoint& end, bool isClockwise,
                double* missing);

// True if the centre is at the start or the end: such an arc is none.
bool IsDegenerate(const Arc& arc);

// True if the radii at start and end differ by more than 0.01 mm and 0.1 % of the larger.
bool EndsElsewhere(const Arc& arc);

// Length of an arc whose radius changes linearly and that rises by `rise` on the third axis.
double ArcLength(const Arc& arc, double rise);

}  // namespace tvx
