// Turns what the readers of both formats make of a line into moves and events.
#pragma once

#include <string_view>

#include "control/arc.h"
#include "control/moves.h"
#include "control/reading_remarks.h"

namespace tvx {

// The feed of a cut.
struct CutFeed {
  double value = 0;            // mm/min; a negative one is 0
  bool isInverseTime = false;  // the value is the inverse of the minutes of the move
};

// Keeps the position, and sends what a line does to the receiver. A move without length is
// none: each move starts where the one before it ended.
class PathWriter {
 public:
  // Both have to outlive the object.
  PathWriter(MoveReceiver* receiver, ReadingRemarks* remarks)
      : receiver_(receiver), remarks_(remarks) {}

  // The moves, events and remarks that follow are those of a source line.
  void BeginLine(uint64_t line) {
    move_.line = line;
    ++move_.run;
  }

  void Rapid(const Point& end) { Straight(MoveKind::kRapid, end, {}); }
  void Cut(const Point& end, const CutFeed& feed) { Straight(MoveKind::kCut, end, feed); }
  // An arc with its centre at the start or the end is a straight cut with a remark.
  void CutArc(Plane plane, const Arc& arc, const Point& end, const CutFeed& feed);

  // A dwell of 0 seconds or less is none.
  void Dwell(double seconds);
  void Event(EventKind kind, double value);

  // `detail` is the word in question.
  void Remark(ReadingRemarkId id, std::string_view detail) {
    remarks_->Add(move_.line, id, detail);
  }

  uint64_t Line() const { return move_.line; }
  // Where the last move ended; 0, 0, 0 before the first one.
  const Point& Position() const { return move_.start; }
  // The position in the coordinates of a plane.
  PlanePoint PositionIn(Plane plane) const { return InPlane(plane, move_.start); }
  // True if a move was sent.
  bool HasMoved() const { return hasMoved_; }

  static PlanePoint InPlane(Plane plane, const Point& point) {
    const PlaneAxes axes = AxesOf(plane);
    return {point[axes.first], point[axes.second]};
  }

 private:
  void Straight(MoveKind kind, const Point& end, const CutFeed& feed);
  void Send(MoveKind kind, const Point& end, const CutFeed& feed, double length);

  MoveReceiver* receiver_;
  ReadingRemarks* remarks_;
  ControlMove move_;  // the next one; it starts at the position
  bool hasMoved_ = false;
};

}  // namespace tvx
