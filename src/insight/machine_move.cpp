// Geometry and limits of single moves and of the corners between them (docs/machine_time.md).
#include "insight/machine_move.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace tvx {

namespace {

constexpr double kMinutesPerSecond = 1.0 / 60.0;
// A direction component of at most this puts no load on its axis.
constexpr double kNoComponent = 1e-9;
// Turns below this are no corner, and turns this close to a half circle are reversals; radians.
constexpr double kNoTurn = 1e-6;
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr int kWholeMove = 100;  // per cent

Direction Scaled(const Direction& vector, double factor) {
  return {vector.x * factor, vector.y * factor, vector.z * factor};
}

double Length(const Direction& vector) {
  return std::sqrt(vector.x * vector.x + vector.y * vector.y + vector.z * vector.z);
}

// A limit for a component of the motion; the limit of the path is the quotient.
double PathLimit(double limit, double component) {
  return component > kNoComponent ? limit / component : kInfinite;
}

// Splits a cut into the parts that run at one feed: head, middle, tail. Returns false if one of
// them has no feed.
bool SplitAtZones(const MotionBlock& block, MachineMove* move) {
  const int head = std::clamp<int>(block.headPercent, 0, kWholeMove);
  const int tail = std::clamp<int>(block.tailPercent, 0, kWholeMove - head);
  const struct {
    int percent;
    int32_t feed;  // mm/min
  } shares[] = {{head, block.headFeed > 0 ? block.headFeed : block.feed},
                {kWholeMove - head - tail, block.feed},
                {tail, block.tailFeed > 0 ? block.tailFeed : block.feed}};
  move->stretchCount = 0;
  for (const auto& share : shares) {
    if (share.percent == 0) continue;
    if (share.feed <= 0) return false;
    Stretch& stretch = move->stretches[static_cast<size_t>(move->stretchCount++)];
    stretch.length =
        share.percent == kWholeMove ? move->length : move->length * share.percent / kWholeMove;
    stretch.feed = share.feed * kMinutesPerSecond;
  }
  return true;
}

// Holds the feeds of the stretches to the speed that the axes and the control can run the move at.
void LimitSpeeds(double highest, const MachineLimits& limits, MachineMove* move) {
  if (limits.blockTime > 0) highest = std::min(highest, move->length / limits.blockTime);
  for (int i = 0; i < move->stretchCount; ++i) {
    Stretch& stretch = move->stretches[static_cast<size_t>(i)];
    stretch.speed = std::min(stretch.feed, highest);
  }
}

MoveKind DescribeStraight(const MotionBlock& block, const Direction& way,
                          const MachineLimits& limits, MachineMove* move) {
  move->length = Length(way);
  if (move->length == 0) return MoveKind::kNoLength;
  move->start = move->end = Scaled(way, 1 / move->length);
  move->isRapid = IsRapidType(block.type);
  move->acceleration = limits.acceleration.Along(move->start);
  if (move->isRapid) {
    const double speed = limits.rapidSpeed.Along(move->start);
    move->stretchCount = 1;
    move->stretches[0] = {move->length, speed, speed};
    LimitSpeeds(speed, limits, move);
    return MoveKind::kTimed;
  }
  if (!SplitAtZones(block, move)) return MoveKind::kNoFeed;
  LimitSpeeds(limits.cutSpeed.Along(move->start), limits, move);
  return MoveKind::kTimed;
}

// A direction from the centre of an arc, in its plane. A point on the centre counts as lying in X.
struct Spoke {
  double x, y;
};

Spoke SpokeTo(double x, double y) {
  const double length = std::sqrt(x * x + y * y);
  if (length == 0) return {1, 0};
  return {x / length, y / length};
}

// Radians by which an arc turns, above 0 and up to a full circle.
double Sweep(const Spoke& start, const Spoke& end, bool isClockwise) {
  const double cross = start.x * end.y - start.y * end.x;
  const double dot = start.x * end.x + start.y * end.y;
  const double turn = std::atan2(isClockwise ? -cross : cross, dot);
  return turn > 0 ? turn : turn + 2 * std::numbers::pi;
}

// The tangent of an arc at a spoke, from the shares of its length in the plane and in Z.
Direction ArcTangent(const Spoke& spoke, bool isClockwise, double planePart, double verticalPart) {
  const double along = isClockwise ? -planePart : planePart;
  return {-spoke.y * along, spoke.x * along, verticalPart};
}

MoveKind DescribeArc(const MotionBlock& block, const MotionBlock& centre, const Direction& way,
                     const MachineLimits& limits, MachineMove* move) {
  const double i = centre.x, j = centre.y;
  const double radius = std::sqrt(i * i + j * j);
  const bool isClockwise = block.type == BlockArcCw;
  const bool isFullCircle = way.x == 0 && way.y == 0;
  const Spoke start = SpokeTo(-i, -j);
  const Spoke end = isFullCircle ? start : SpokeTo(way.x - i, way.y - j);
  const double sweep = isFullCircle ? 2 * std::numbers::pi : Sweep(start, end, isClockwise);
  const double planeLength = radius * sweep;
  move->length = std::sqrt(planeLength * planeLength + way.z * way.z);
  const double planePart = planeLength / move->length;
  const double verticalPart = way.z / move->length;
  move->start = ArcTangent(start, isClockwise, planePart, verticalPart);
  move->end = ArcTangent(end, isClockwise, planePart, verticalPart);
  move->isRapid = false;
  if (block.feed <= 0) return MoveKind::kNoFeed;

  const double rise = std::abs(verticalPart);
  move->acceleration = std::min(PathLimit(limits.centripetal, planePart),
                                PathLimit(limits.verticalAcceleration, rise));
  const double highest = std::min({PathLimit(limits.planeCutSpeed, planePart),
                                   PathLimit(std::sqrt(limits.centripetal * radius), planePart),
                                   PathLimit(limits.verticalCutSpeed, rise)});
  move->stretchCount = 1;
  move->stretches[0] = {move->length, 0, block.feed * kMinutesPerSecond};
  LimitSpeeds(highest, limits, move);
  return MoveKind::kTimed;
}

}  // namespace

AxisLimits::AxisLimits(const AxisValues& values, double perSecond) {
  for (size_t axis = 0; axis < inverse.size(); ++axis) {
    inverse[axis] = 1 / (values[axis] * perSecond);
  }
}

double AxisLimits::Along(const Direction& unit) const {
  const auto load = [](double component, double inverseLimit) {
    const double size = std::abs(component);
    return size > kNoComponent ? size * inverseLimit : 0;
  };
  return 1 /
         std::max({load(unit.x, inverse[0]), load(unit.y, inverse[1]), load(unit.z, inverse[2])});
}

MachineLimits::MachineLimits(const MachineProfile& profile)
    : rapidSpeed(profile.RapidFeed, kMinutesPerSecond),
      cutSpeed(profile.CutFeed, kMinutesPerSecond),
      acceleration(profile.Acceleration),
      planeCutSpeed(std::min(profile.CutFeed[0], profile.CutFeed[1]) * kMinutesPerSecond),
      verticalCutSpeed(profile.CutFeed[2] * kMinutesPerSecond),
      centripetal(std::min(profile.Acceleration[0], profile.Acceleration[1]) / std::numbers::sqrt2),
      verticalAcceleration(profile.Acceleration[2]),
      cornerTolerance(profile.CornerTolerance),
      blockTime(profile.BlockTime),
      stopsAtRapids(profile.StopAtRapids) {}

MoveKind DescribeMove(const MotionBlock& block, const MotionBlock* centre, const Vec3& from,
                      const MachineLimits& limits, MachineMove* move) {
  const Direction way = {static_cast<double>(block.x) - from.x,
                         static_cast<double>(block.y) - from.y,
                         static_cast<double>(block.z) - from.z};
  const bool hasCentre =
      centre != nullptr && centre->type == BlockArcCentre && (centre->x != 0 || centre->y != 0);
  if (IsArcType(block.type) && hasCentre) return DescribeArc(block, *centre, way, limits, move);
  return DescribeStraight(block, way, limits, move);
}

// The half angle of the turn comes from the sum and the difference of the tangents, which keeps its
// sine exact for the smallest turns:
//   sin(alpha/2) = |t2 - t1| / 2, cos(alpha/2) = |t2 + t1| / 2,
//   2 sin(alpha/4)^2 = 1 - cos(alpha/2) = sin(alpha/2)^2 / (1 + cos(alpha/2)).
double BoundarySpeedSquared(const MachineMove& before, const MachineMove& after,
                            const MachineLimits& limits) {
  if (before.isRapid != after.isRapid && limits.stopsAtRapids) return 0;
  const double speed = std::min(before.LastSpeed(), after.FirstSpeed());
  const double highest = speed * speed;
  const Direction& in = before.end;
  const Direction& out = after.start;
  const Direction change = {out.x - in.x, out.y - in.y, out.z - in.z};
  const double changeLength = Length(change);
  const double sine = changeLength / 2;
  if (sine < kNoTurn / 2) return highest;  // the sine of such an angle is the angle
  const double cosine = Length({out.x + in.x, out.y + in.y, out.z + in.z}) / 2;
  if (cosine < kNoTurn / 2 || limits.cornerTolerance == 0) return 0;

  const double acceleration = limits.acceleration.Along(Scaled(change, 1 / changeLength));
  // Cutting the corner within the tolerance.
  const double withinTolerance =
      acceleration * limits.cornerTolerance * cosine * (1 + cosine) / (sine * sine);
  // A curve of short chords, at the speed of its radius. The angle is at most pi times the sine of
  // its half, which mostly shows that this does not limit.
  const double limit = std::min(highest, withinTolerance);
  const double shorter = acceleration * std::min(before.length, after.length);
  if (limit * std::numbers::pi * sine <= shorter) return limit;
  return std::min(limit, shorter / (2 * std::atan2(sine, cosine)));
}

}  // namespace tvx
