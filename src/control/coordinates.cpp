#include "control/coordinates.h"

#include <cmath>

#include "control/degrees.h"

namespace tvx {

void Coordinates::Turn(Plane plane, const PlanePoint& centre, double degrees) {
  isTurned_ = true;
  plane_ = plane;
  centre_ = centre;
  cosine_ = CosineOf(degrees);
  sine_ = SineOf(degrees);
}

Point Coordinates::Turned(const Point& point, double sine) const {
  const PlaneAxes axes = AxesOf(plane_);
  const double a = point[axes.first] - centre_[0];
  const double b = point[axes.second] - centre_[1];
  Point turned = point;
  turned[axes.first] = centre_[0] + a * cosine_ - b * sine;
  turned[axes.second] = centre_[1] + a * sine + b * cosine_;
  return turned;
}

Point Coordinates::ToPath(const Point& point) const {
  Point result = isTurned_ ? Turned(point, sine_) : point;
  for (size_t axis = 0; axis < 3; ++axis) result[axis] += shift_[axis];
  return result;
}

Point Coordinates::ToProgram(const Point& point) const {
  Point result = point;
  for (size_t axis = 0; axis < 3; ++axis) result[axis] -= shift_[axis];
  return isTurned_ ? Turned(result, -sine_) : result;
}

PlanePoint Coordinates::TurnedOffset(const PlanePoint& offset) const {
  if (!isTurned_) return offset;
  return {offset[0] * cosine_ - offset[1] * sine_, offset[0] * sine_ + offset[1] * cosine_};
}

// An axis that nothing changes keeps its value to the last bit.
Point Coordinates::EndOnPath(const Point& start, const Point& end, unsigned given) const {
  Point result = ToPath(end);
  const PlaneAxes axes = AxesOf(plane_);
  const unsigned inTurn = 1U << axes.first | 1U << axes.second;
  if (isTurned_ && (given & inTurn) != 0) given |= inTurn;
  for (size_t axis = 0; axis < 3; ++axis) {
    if ((given >> axis & 1) == 0) result[axis] = start[axis];
  }
  return result;
}

}  // namespace tvx
