// From the coordinates of a program to those of the path: a turn in a plane, then shifts.
#pragma once

#include "control/arc.h"
#include "control/moves.h"

namespace tvx {

class Coordinates {
 public:
  // Points turn by an angle about a point of the plane. Replaces the turn before.
  void Turn(Plane plane, const PlanePoint& centre, double degrees);
  void EndTurn() { isTurned_ = false; }

  // The shift of an axis. What a program calls 0 is there on the path.
  void Shift(size_t axis, double value) {
    shift_[axis] = value;
    isShifted_ = true;
  }

  // A point of the program on the path, and back.
  Point ToPath(const Point& point) const;
  Point ToProgram(const Point& point) const;

  // An offset between two points of a plane, turned. The plane is that of the turn.
  PlanePoint TurnedOffset(const PlanePoint& offset) const;

  // The end of a move from `start`, on the path, to `end`, in the program. The axes that are not in
  // `given`, a bit for each, keep their values in the program.
  Point EndOnPath(const Point& start, const Point& end, unsigned given) const;

  // A point on the path less the shifts, not turned back.
  double LessShift(const Point& point, size_t axis) const { return point[axis] - shift_[axis]; }
  double ShiftOf(size_t axis) const { return shift_[axis]; }

  // True if the coordinates of the program are those of the path.
  bool ArePlain() const { return !isTurned_ && !isShifted_; }
  // False if a turn in another plane makes an arc of this plane none.
  bool HasPlane(Plane plane) const { return !isTurned_ || plane == plane_; }

 private:
  Point Turned(const Point& point, double sine) const;

  Point shift_{};
  bool isShifted_ = false;  // was once
  bool isTurned_ = false;
  Plane plane_ = Plane::kXY;
  PlanePoint centre_{};
  double cosine_ = 1, sine_ = 0;
};

}  // namespace tvx
