// The corner searches walk along the path with the jumps of PathIndex. Which comparison is strict,
// which value is a float and which rule keeps the last heading is part of the result.
#include "feed/corner_search.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "feed/angle_feed.h"
#include "feed/directions.h"
#include "feed/zones.h"

namespace tvx {

namespace {

// Shorter vectors, in mm, have no heading.
constexpr double kLeastHeadingLength = 0.01;
// An arrival as steep as this, by the ratio of plan to vertical part squared, has no turn in plan.
constexpr double kSteepestTurn = 0.1;
// Directions with less rise than this are level.
constexpr double kLevelRise = 0.0001;
// The look distance of the XY search with XyChgReduceCheck.
constexpr float kReducedReach = 0.3F;
// Arcs of a radius below this share of the tool diameter count as corners of 90 degrees.
constexpr double kSmallArc = 0.6;
constexpr float kRightAngle = 90.0F;
// Every length that is not 0 is above this, in mm: the square root of 1e-9.
constexpr float kLeastLength = 3e-5F;

float UnsignedTurn(float from, float to) {
  float turn = from - to;
  if (turn < 0) turn += 360.0F;
  if (turn > 180.0F) turn = 360.0F - turn;
  return turn;
}

// The turn in plan view, up to 90 degrees.
float PlanTurn(float forward, float backwardHeading, const Vec3& backward) {
  const bool turns = backward.z == 0 ||
                     (Square(backward.x) + Square(backward.y)) / Square(backward.z) > kSteepestTurn;
  if (!turns) return 0;
  return std::min(UnsignedTurn(forward, backwardHeading), kRightAngle);
}

float LevelledElevation(const Vec3& unit) {
  return std::fabs(static_cast<double>(unit.z)) < kLevelRise ? 0 : Elevation(unit);
}

bool HasHeading(const Difference& difference) {
  return difference.length >= kLeastHeadingLength;
}

bool HasPlanPart(const Vec3& unit) {
  return unit.x != 0 || unit.y != 0;
}

int16_t AtLeastOnePercent(float distance, float length) {
  const int16_t percent = ZonePercent(distance, length);
  return percent == 0 ? int16_t{1} : percent;
}

}  // namespace

float ArcRadius(BlockStore* store, uint32_t arc) {
  store->ReadBlock(arc);  // kept in the register if the centre found no memory
  store->ReadBlock(arc + 1);
  return static_cast<float>(
      SafeSqrt(Square(store->CurrentBlock.x) + Square(store->CurrentBlock.y)));
}

CornerSearch::CornerSearch(BlockStore* store, const PathIndex& path, const JobRecord& job,
                           const CornerHeadings& headings)
    : store_(store),
      path_(path),
      job_(job),
      forwardHeading_(headings.forward),
      backwardHeading_(headings.backward),
      straightCosine_(SurelyStraightCosine(job.CornerMinAngle)) {}

CornerHeadings CornerSearch::Headings() {
  return {forwardHeading_.Degrees(), backwardHeading_.Degrees()};
}

void CornerSearch::Measure(const Vec3& start, const Vec3& end, Chord* chord) {
  chord->unit = {};
  DiffVectors(end, start, &chord->difference, &chord->unit);
}

// Measures the corner at the end of move i. Returns false if no move follows: there is no corner.
bool CornerSearch::SetCorner(uint32_t i) {
  if (corner_.i == i) return corner_.next != PathIndex::kNoMove;
  forward_.known = backward_.known = false;
  // Most searches follow the corner before, whose departure is the arrival here.
  const bool follows = corner_.next == i;
  if (follows) corner_.arrival = corner_.departure;
  corner_.i = i;
  corner_.next = path_.NextMove(i);
  if (corner_.next == PathIndex::kNoMove) return false;
  corner_.previous = path_.PrevMove(i);
  corner_.point = path_.Point(i);
  Measure(corner_.point, path_.Point(corner_.next), &corner_.departure);
  if (corner_.previous == i) {
    corner_.arrival = Chord{};
  } else if (!follows) {
    Measure(path_.Point(corner_.previous), corner_.point, &corner_.arrival);
  }
  return true;
}

const CornerSearch::Walk& CornerSearch::WalkTo(Direction direction, float distance) {
  Walk* walk = direction == Direction::kForward ? &forward_ : &backward_;
  if (walk->known && walk->distance == distance) return *walk;
  walk->known = true;
  walk->distance = distance;
  if (direction == Direction::kForward) {
    WalkForward(walk);
  } else {
    WalkBackward(walk);
  }
  if (walk->ended) FindFarPoint(direction, walk);
  return *walk;
}

// A walk from move to move ends at the first one whose end point is at the look distance from the
// corner, in a straight line, or before a rapid. The next move itself may be a rapid.
//
// A walk that a rapid stopped may end on a move that came back to the corner exactly. Its direction
// is then that of the last move of the walk that did not.
void CornerSearch::WalkForward(Walk* walk) const {
  EndAtNeighbour(corner_.next, corner_.departure, walk);
  walk->ended = true;
  if (!(walk->length < walk->distance)) return;

  const uint32_t away = path_.FirstAway(corner_.next + 1, corner_.point, walk->distance);
  if (away == PathIndex::kNoMove) {
    walk->ended = false;
  } else if (!IsRapidType(path_.Block(away).type)) {
    EndAt(Direction::kForward, away, walk);
  } else {
    const uint32_t end = path_.PrevMove(away);
    const uint32_t last = path_.LastAway(end, corner_.point, kLeastLength);
    if (last != PathIndex::kNoMove && last > corner_.next) EndAt(Direction::kForward, last, walk);
    EndAt(Direction::kForward, end, walk);
  }
}

// A walk backward also runs off the path when it reaches block 0, which represents a missing move,
// unless block 0 is a rapid.
void CornerSearch::WalkBackward(Walk* walk) const {
  EndAtNeighbour(corner_.previous, corner_.arrival, walk);
  walk->ended = true;
  if (!(walk->length < walk->distance)) return;

  const uint32_t start = corner_.previous > 0 ? corner_.previous - 1 : 0;
  const uint32_t away = path_.LastAway(start, corner_.point, walk->distance);
  if (away != PathIndex::kNoMove && IsRapidType(path_.Block(away).type)) {
    const uint32_t end = path_.NextMove(away);
    const uint32_t last = path_.FirstAway(end, corner_.point, kLeastLength);
    if (last < corner_.previous) EndAt(Direction::kBackward, last, walk);
    EndAt(Direction::kBackward, end, walk);
  } else if (away != PathIndex::kNoMove && away != 0) {
    EndAt(Direction::kBackward, away, walk);
  } else {
    walk->ended = false;
  }
}

void CornerSearch::EndAtNeighbour(uint32_t move, const Chord& chord, Walk* walk) {
  walk->last = move;
  walk->length = chord.difference.length;
  walk->unit = chord.unit;
}

void CornerSearch::EndAt(Direction direction, uint32_t move, Walk* walk) const {
  Difference difference;
  if (direction == Direction::kForward) {
    path_.Vector(move, corner_.i, &difference, &walk->unit);
  } else {
    path_.Vector(corner_.i, move, &difference, &walk->unit);
  }
  walk->last = move;
  walk->length = difference.length;
}

// A chord too short for a heading keeps the last one.
void CornerSearch::UpdateHeading(const Chord& chord, PlanHeading* heading) {
  if (HasHeading(chord.difference)) *heading = PlanHeading(chord.unit);
}

// The far point is on the line of the segment that the walk ended with. Where a rapid stopped the
// walk it may be beyond that segment.
void CornerSearch::FindFarPoint(Direction direction, Walk* walk) const {
  const bool forward = direction == Direction::kForward;
  Difference segment;  // in the direction of travel
  Vec3 start = corner_.point;
  float startLength = 0;  // from the corner to the near end of the segment
  if (walk->last == (forward ? corner_.next : corner_.previous)) {
    segment = (forward ? corner_.departure : corner_.arrival).difference;
  } else {
    const uint32_t near = forward ? path_.PrevMove(walk->last) : path_.NextMove(walk->last);
    start = path_.Point(near);
    const Vec3 end = path_.Point(walk->last);
    Vec3 unit;
    DiffVectors(forward ? end : start, forward ? start : end, &segment, &unit);
    Difference toStart;
    DiffVectors(corner_.point, start, &toStart, &unit);
    startLength = toStart.length;
  }
  walk->hasFarPoint = segment.length != 0;
  if (!walk->hasFarPoint) return;

  double rest = static_cast<double>(walk->distance) - startLength;
  if (!forward) rest = -rest;
  const auto along = [&](float from, float delta) {
    return static_cast<float>(from + delta * rest / segment.length);
  };
  const Vec3 point = {along(start.x, segment.dx), along(start.y, segment.dy),
                      along(start.z, segment.dz)};
  Measure(forward ? corner_.point : point, forward ? point : corner_.point, &walk->chord);
}

// The turn in plan view, with the last headings where a chord is too short to have one; 0 for a
// turn that cannot be above CornerMinAngle.
float CornerSearch::Turn(const Chord& departure, const Chord& arrival) {
  const bool known = HasHeading(departure.difference) && HasHeading(arrival.difference);
  if (known && HeadingsHaveCosine(departure.unit, arrival.unit, straightCosine_)) return 0;
  return PlanTurn(forwardHeading_.Degrees(), backwardHeading_.Degrees(), arrival.unit);
}

// The angle of the corner if one of its moves is an arc: it grows as the radius shrinks. The limit
// depends on SafetyDistance, whatever the look distance of the search.
float CornerSearch::ArcAngle(uint32_t walkEnd, float angle) {
  uint32_t arc = walkEnd;
  if (!IsArcType(path_.Block(arc).type)) arc = corner_.i;
  if (!IsArcType(path_.Block(arc).type)) return angle;
  const double radius = ArcRadius(store_, arc);
  if (radius < kSmallArc * job_.ToolDiameter) return kRightAngle;
  const float limit = static_cast<float>(0.5 * job_.ToolDiameter + job_.SafetyDistance);
  const double arcAngle = 90.0 - radius / limit * 90.0;
  return radius < limit && arcAngle > angle ? static_cast<float>(arcAngle) : angle;
}

int32_t CornerSearch::CornerFeed(float angle) const {
  if (angle > kRightAngle) angle = kRightAngle;
  const int32_t feed = AngleFeed(job_.CorWeight0, job_.CorWeight30, job_.CorWeight60,
                                 job_.CornerMaxRatio, job_.MaxFeed, angle, BandEdges::kInclusive);
  const double lowest = static_cast<double>(job_.MaxFeed) * job_.CornerMaxRatio;
  return RoundDownToStep(feed < lowest ? TruncateToInt(lowest) : feed, job_.FeedChgAng);
}

// Slows one end of the move at the index. Returns the feed for the other move of the corner, which
// a collapse may have lowered.
int32_t CornerSearch::SlowInZone(uint32_t index, int16_t percent, int32_t feed,
                                 void (*widen)(MotionBlock*, int16_t, int32_t), Collapse collapse) {
  store_->ReadBlock(index);
  MotionBlock* block = &store_->CurrentBlock;
  const bool lowered = block->feed > feed;
  if (lowered) {
    widen(block, percent, feed);
    store_->WriteBlock(index);
  }
  if ((lowered || collapse == Collapse::kAlways) && ZonesCoverMove(*block)) {
    feed = CollapseZones(block, feed, false);
    store_->WriteBlock(index);
  }
  return feed;
}

// Slows the two moves that meet at the corner, in a zone at the corner or as a whole.
void CornerSearch::SlowMoves(float angle, float distance, bool previousZone, bool nextZone,
                             Collapse collapse) {
  MotionBlock* block = &store_->CurrentBlock;
  int32_t feed = CornerFeed(angle);
  if (previousZone) {
    const int16_t percent = AtLeastOnePercent(distance, backward_.length);
    feed = SlowInZone(corner_.i, percent, feed, WidenTailZone, collapse);
  } else {
    store_->ReadBlock(corner_.i);
    if (LowerWholeMove(block, feed)) store_->WriteBlock(corner_.i);
  }

  if (nextZone) {
    const int16_t percent = AtLeastOnePercent(distance, forward_.length);
    SlowInZone(corner_.next, percent, feed, WidenHeadZone, collapse);
  } else {
    store_->ReadBlock(corner_.next);
    // A move that starts a run of cuts, an arc and a rapid keep their feed.
    if (block->type == BlockCut && LowerWholeMove(block, feed)) store_->WriteBlock(corner_.next);
  }
}

int CornerSearch::XyCornerSearch(uint32_t i) {
  if (!SetCorner(i)) return 0;
  UpdateHeading(corner_.departure, &forwardHeading_);
  UpdateHeading(corner_.arrival, &backwardHeading_);
  const float nearTurn = Turn(corner_.departure, corner_.arrival);
  const float distance =
      job_.XyChgReduceCheck != 0 ? job_.SafetyDistance * kReducedReach : job_.SafetyDistance;

  const Walk& forward = WalkTo(Direction::kForward, distance);
  if (!forward.ended || !HasPlanPart(forward.unit) || !forward.hasFarPoint) return 0;
  UpdateHeading(forward.chord, &forwardHeading_);

  const Walk& backward = WalkTo(Direction::kBackward, distance);
  if (!backward.ended || !HasPlanPart(backward.unit) || !backward.hasFarPoint) return 0;
  UpdateHeading(backward.chord, &backwardHeading_);

  const float turn = std::max(nearTurn, Turn(forward.chord, backward.chord));
  const float angle = ArcAngle(forward.last, turn);
  if (angle <= job_.CornerMinAngle) return 0;
  SlowMoves(angle, distance, backward.last == corner_.previous && backward.length > distance,
            forward.last == corner_.next && forward.length > distance, Collapse::kAlways);
  return 1;
}

int CornerSearch::ZCornerSearch(uint32_t i) {
  if (!SetCorner(i) || IsRapidType(path_.Block(corner_.next).type)) return 0;
  const float distance = job_.SafetyDistance;

  const Walk& forward = WalkTo(Direction::kForward, distance);
  if (!forward.ended || !forward.hasFarPoint) return 0;
  const Walk& backward = WalkTo(Direction::kBackward, distance);
  if (!backward.ended || !backward.hasFarPoint) return 0;

  const Vec3& departure = forward.chord.unit;
  const Vec3& arrival = backward.chord.unit;
  if (ElevationsHaveCosine(departure, arrival, straightCosine_)) return 0;
  // Without ConCorChk a corner counts only where the path turns upward.
  if (job_.ConCorChk != 1 && departure.z - arrival.z <= 0) return 0;
  const float angle = UnsignedTurn(LevelledElevation(departure), LevelledElevation(arrival));
  if (angle <= job_.CornerMinAngle) return 0;
  SlowMoves(angle, distance, backward.last == corner_.previous, forward.last == corner_.next,
            Collapse::kWhenLowered);
  return 1;
}

}  // namespace tvx
