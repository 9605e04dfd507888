#include "control/path_writer.h"

#include <algorithm>
#include <cmath>

namespace tvx {

void PathWriter::Straight(MoveKind kind, const Point& end, const CutFeed& feed) {
  const double dx = end[0] - move_.start[0];
  const double dy = end[1] - move_.start[1];
  const double dz = end[2] - move_.start[2];
  Send(kind, end, feed, std::sqrt(dx * dx + dy * dy + dz * dz));
}

void PathWriter::CutArc(Plane plane, const Arc& arc, const Point& end, const CutFeed& feed) {
  if (IsDegenerate(arc)) {
    Remark(ReadingRemarkId::kNotRead, "");
    Cut(end, feed);
    return;
  }
  move_.plane = plane;
  move_.centre = arc.centre;
  move_.sweep = arc.sweep;
  const size_t third = AxesOf(plane).third;
  Send(MoveKind::kArc, end, feed, ArcLength(arc, end[third] - move_.start[third]));
}

void PathWriter::Send(MoveKind kind, const Point& end, const CutFeed& feed, double length) {
  if (length <= kNoLength) return;
  move_.kind = kind;
  move_.end = end;
  move_.feed = std::max(0.0, feed.isInverseTime ? feed.value * length : feed.value);
  move_.length = length;
  receiver_->Move(move_);
  hasMoved_ = true;
  move_.start = end;
}

void PathWriter::Dwell(double seconds) {
  if (seconds > 0) Event(EventKind::kDwell, seconds);
}

void PathWriter::Event(EventKind kind, double value) {
  receiver_->Event({move_.line, move_.run, kind, value});
}

}  // namespace tvx
