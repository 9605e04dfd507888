// The corner searches walk along the path with the jumps of PathIndex. Which comparison is strict,
// which value is a float and which rule keeps the last heading is part of the result.
#include "feed/corner_search.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "feed/zones.h"

namespace tvx {

namespace {

// Vectors up to this length, in mm, have no heading: the largest float below 0.01.
constexpr float kNoHeadingLength = 0.01F;
static_assert(kNoHeadingLength < 0.01);
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

bool TurnsInPlan(const Vec3& arrival) {
  return arrival.z == 0 ||
         (Square(arrival.x) + Square(arrival.y)) / Square(arrival.z) > kSteepestTurn;
}

float LevelledElevation(const Vec3& unit) {
  return std::fabs(static_cast<double>(unit.z)) < kLevelRise ? 0 : Elevation(unit);
}

bool HasHeading(const Chord& chord) {
  return chord.Length() > kNoHeadingLength;
}

// Whether the points are so near each other that there is no direction between them.
bool IsSame(const Vec3& a, const Vec3& b) {
  return Subtract(a, b).length == 0;
}

// Whether the unit vector of a direction has a plan part; false if there is no direction.
bool UnitHasPlanPart(const Vec3& from, const Vec3& to) {
  const Vec3 unit = Chord(Subtract(to, from)).Unit();
  return unit.x != 0 || unit.y != 0;
}

inline bool HasPlanPart(const Vec3& from, const Vec3& to) {
  // A usual direction has one if its differences have. The divisions may lose that of others.
  constexpr float kUsualPart = 1e-4F, kUsualLength = 1e6F;
  const float plan = std::fabs(to.x - from.x) + std::fabs(to.y - from.y);
  return (plan > kUsualPart && plan + std::fabs(to.z - from.z) < kUsualLength) ||
         UnitHasPlanPart(from, to);
}

int16_t AtLeastOnePercent(float distance, float length) {
  const int16_t percent = ZonePercent(distance, length);
  return percent == 0 ? int16_t{1} : percent;
}

}  // namespace

float ArcRadius(const PathIndex& path, uint32_t arc) {
  // Where the centre found no memory its place is taken by the end point.
  const MotionBlock& centre = path.Block(arc + 1 < path.BlockCount() ? arc + 1 : arc);
  return static_cast<float>(SafeSqrt(Square(centre.x) + Square(centre.y)));
}

CornerSearch::CornerSearch(const PathIndex& path, const JobRecord& job)
    : path_(path),
      job_(job),
      curve_(job.CorWeight0, job.CorWeight30, job.CorWeight60, job.CornerMaxRatio, job.MaxFeed),
      straightSquared_(SurelyStraightSquared(job.CornerMinAngle)),
      lowestFeed_(static_cast<double>(job.MaxFeed) * job.CornerMaxRatio),
      zWalks_(path, job.SafetyDistance),
      reducedWalks_(path, job.SafetyDistance * kReducedReach),
      xyWalks_(job.XyChgReduceCheck != 0 ? &reducedWalks_ : &zWalks_) {}

// Measures the corner at the end of move i. Returns false if no move follows: there is no corner.
inline bool CornerSearch::SetCorner(uint32_t i) {
  if (corner_.i == i) return corner_.next != PathIndex::kNoMove;
  zWalks_.Forget();
  reducedWalks_.Forget();
  // Most searches follow the corner before, whose departure is the arrival here.
  if (corner_.next == i) {
    corner_.previous = corner_.i;
    corner_.point = corner_.nextPoint;
    corner_.arrival = corner_.departure;
  } else {
    corner_.previous = path_.PrevMove(i);
    corner_.point = path_.Point(i);
    corner_.arrival = corner_.previous == i
                          ? Chord{}
                          : Chord(Subtract(corner_.point, path_.Point(corner_.previous)));
  }
  corner_.i = i;
  corner_.next = path_.NextMove(i);
  if (corner_.next == PathIndex::kNoMove) return false;
  corner_.nextPoint = path_.Point(corner_.next);
  corner_.departure = Chord(Subtract(corner_.nextPoint, corner_.point));
  return true;
}

// The point of a segment of the path that is at the rest of the look distance from its near end.
// `segment` is in the direction of travel, and `rest` negative against it. Where a rapid stopped
// the walk the point may be beyond the segment.
inline Vec3 PointAlong(const Vec3& near, const Difference& segment, double rest) {
  const auto along = [&](float from, float delta) {
    return static_cast<float>(from + delta * rest / segment.length);
  };
  return {along(near.x, segment.dx), along(near.y, segment.dy), along(near.z, segment.dz)};
}

inline const CornerSearch::Walk& CornerSearch::Forward(Walks* walks) {
  Walk* const walk = &walks->forward;
  if (walk->isKnown) return *walk;
  walk->isKnown = true;
  walk->hasFarPoint = false;
  WalkForward(walks);
  if (!walk->ended) return *walk;
  const float distance = walks->away.Distance();
  Difference segment = corner_.departure.Way();
  Vec3 near = corner_.point;
  float nearLength = 0;
  if (walk->last != corner_.next) {
    near = path_.Point(path_.PrevMove(walk->last));
    segment = Subtract(path_.Point(walk->last), near);
    nearLength = Subtract(corner_.point, near).length;
  }
  walk->hasFarPoint = segment.length != 0;
  if (!walk->hasFarPoint) return *walk;
  const Vec3 point = PointAlong(near, segment, static_cast<double>(distance) - nearLength);
  walk->chord = Chord(Subtract(point, corner_.point));
  return *walk;
}

inline const CornerSearch::Walk& CornerSearch::Backward(Walks* walks) {
  Walk* const walk = &walks->backward;
  if (walk->isKnown) return *walk;
  walk->isKnown = true;
  walk->hasFarPoint = false;
  WalkBackward(walks);
  if (!walk->ended) return *walk;
  const float distance = walks->away.Distance();
  Difference segment = corner_.arrival.Way();
  Vec3 near = corner_.point;
  float nearLength = 0;
  if (walk->last != corner_.previous) {
    near = path_.Point(path_.NextMove(walk->last));
    segment = Subtract(near, path_.Point(walk->last));
    nearLength = Subtract(corner_.point, near).length;
  }
  walk->hasFarPoint = segment.length != 0;
  if (!walk->hasFarPoint) return *walk;
  const Vec3 point = PointAlong(near, segment, -(static_cast<double>(distance) - nearLength));
  walk->chord = Chord(Subtract(corner_.point, point));
  return *walk;
}

// A walk from move to move ends at the first one whose end point is at the look distance from the
// corner, in a straight line, or before a rapid. The next move itself may be a rapid.
inline void CornerSearch::WalkForward(Walks* walks) {
  Walk* const walk = &walks->forward;
  walk->last = corner_.next;
  walk->length = corner_.departure.Length();
  walk->ended = true;
  if (!(walk->length < walks->away.Distance())) {
    walk->hasPlanPart = HasPlanPart(corner_.point, corner_.nextPoint);
    return;
  }
  const uint32_t away =
      walks->away.Ahead(corner_.next + 1, corner_.point, corner_.departure.Length());
  if (away == PathIndex::kNoMove) {
    walk->ended = false;
  } else if (!IsRapidType(path_.Block(away).type)) {
    walk->last = away;
    walk->hasPlanPart = HasPlanPart(corner_.point, path_.Point(away));
  } else {
    walk->last = path_.PrevMove(away);
    walk->hasPlanPart = HasPlanPartBeforeRapid(walk->last);
  }
}

// The walk may end on a move that came back to the corner exactly. Its direction is then that of
// the last move of the walk that did not.
bool CornerSearch::HasPlanPartBeforeRapid(uint32_t end) const {
  if (!IsSame(corner_.point, path_.Point(end))) {
    return HasPlanPart(corner_.point, path_.Point(end));
  }
  const uint32_t last = path_.LastAway(end, corner_.point, AwayTest(kLeastLength));
  const bool isOnWalk = last != PathIndex::kNoMove && last > corner_.next;
  return HasPlanPart(corner_.point, isOnWalk ? path_.Point(last) : corner_.nextPoint);
}

// A walk backward also runs off the path when it reaches block 0, which represents a missing move,
// unless block 0 is a rapid.
inline void CornerSearch::WalkBackward(Walks* walks) {
  Walk* const walk = &walks->backward;
  walk->last = corner_.previous;
  walk->length = corner_.arrival.Length();
  walk->ended = true;
  if (!(walk->length < walks->away.Distance())) {
    walk->hasPlanPart = HasPlanPart(path_.Point(corner_.previous), corner_.point);
    return;
  }
  const uint32_t start = corner_.previous > 0 ? corner_.previous - 1 : 0;
  const uint32_t away = walks->away.Behind(start, corner_.point, corner_.arrival.Length());
  if (away != PathIndex::kNoMove && IsRapidType(path_.Block(away).type)) {
    walk->last = path_.NextMove(away);
    walk->length = Subtract(corner_.point, path_.Point(walk->last)).length;
    walk->hasPlanPart = HasPlanPartBehindRapid(walk->last);
  } else if (away != PathIndex::kNoMove && away != 0) {
    walk->last = away;
    walk->hasPlanPart = HasPlanPart(path_.Point(away), corner_.point);
  } else {
    walk->ended = false;
  }
}

// As above, but where block 0 is the rapid and the move before the corner, the walk goes on to the
// corner itself and has no direction.
bool CornerSearch::HasPlanPartBehindRapid(uint32_t end) const {
  if (end == corner_.i) return false;
  if (!IsSame(corner_.point, path_.Point(end))) {
    return HasPlanPart(path_.Point(end), corner_.point);
  }
  const uint32_t last = path_.FirstAway(end, corner_.point, AwayTest(kLeastLength));
  return HasPlanPart(path_.Point(last < corner_.previous ? last : corner_.previous), corner_.point);
}

// The turn in plan view, up to 90 degrees; 0 for a turn that cannot be above CornerMinAngle.
inline float CornerSearch::Turn(const Sides& sides, const Sides& before) {
  const Chord& departure = *sides.departure;
  const Chord& arrival = *sides.arrival;
  const bool isStraight = HasHeading(departure) && HasHeading(arrival) &&
                          HeadingsHaveCosine(departure.Way(), arrival.Way(), straightSquared_);
  return isStraight ? 0 : MeasuredTurn(sides, before);
}

// With the headings of before where a chord is too short to have one.
float CornerSearch::MeasuredTurn(const Sides& sides, const Sides& before) {
  if (!TurnsInPlan(sides.arrival->Unit())) return 0;
  const auto degrees = [this](Chord* chord, Chord* last, KeptHeading* kept) {
    if (HasHeading(*chord)) return chord->HeadingDegrees();
    if (last != nullptr && HasHeading(*last)) return last->HeadingDegrees();
    missedHeading = missedHeading || !kept->IsKnown();
    return kept->Degrees();
  };
  const float forward = degrees(sides.departure, before.departure, &headings.forward);
  const float backward = degrees(sides.arrival, before.arrival, &headings.backward);
  return std::min(UnsignedTurn(forward, backward), kRightAngle);
}

// The angle of the corner if one of its moves is an arc: it grows as the radius shrinks. The limit
// depends on SafetyDistance, whatever the look distance of the search.
inline float CornerSearch::ArcAngle(uint32_t walkEnd, float angle) const {
  uint32_t arc = walkEnd;
  if (!IsArcType(path_.Block(arc).type)) arc = corner_.i;
  if (!IsArcType(path_.Block(arc).type)) return angle;
  const double radius = ArcRadius(path_, arc);
  if (radius < kSmallArc * job_.ToolDiameter) return kRightAngle;
  const float limit = static_cast<float>(0.5 * job_.ToolDiameter + job_.SafetyDistance);
  const double arcAngle = 90.0 - radius / limit * 90.0;
  return radius < limit && arcAngle > angle ? static_cast<float>(arcAngle) : angle;
}

inline int32_t CornerSearch::CornerFeed(float angle) const {
  if (angle > kRightAngle) angle = kRightAngle;
  const int32_t feed = curve_.At(angle, BandEdges::kInclusive);
  return RoundDownToStep(feed < lowestFeed_ ? TruncateToInt(lowestFeed_) : feed, job_.FeedChgAng);
}

// Slows the two moves that meet at the corner, in a zone at the corner or as a whole.
void CornerSearch::SlowMoves(float angle, const Walks& walks, bool previousZone, bool nextZone,
                             Collapse collapse, FeedRecords* records) const {
  int32_t feed = CornerFeed(angle);
  const float distance = walks.away.Distance();
  const auto covers = [collapse](const MotionBlock& block, bool lowered) {
    return (lowered || collapse == Collapse::kAlways) && ZonesCoverMove(block);
  };
  MotionBlock* const move = records->At(corner_.i);
  if (previousZone) {
    const bool lowered = move->feed > feed;
    if (lowered) WidenTailZone(move, AtLeastOnePercent(distance, walks.backward.length), feed);
    // A collapse may lower the feed of the next move too.
    if (covers(*move, lowered)) feed = CollapseZones(move, feed, false);
  } else {
    LowerWholeMove(move, feed);
  }

  MotionBlock* const next = records->At(corner_.next);
  if (nextZone) {
    const bool lowered = next->feed > feed;
    if (lowered) WidenHeadZone(next, AtLeastOnePercent(distance, walks.forward.length), feed);
    if (covers(*next, lowered)) CollapseZones(next, feed, false);
  } else if (next->type == BlockCut) {
    // A move that starts a run of cuts, an arc and a rapid keep their feed.
    LowerWholeMove(next, feed);
  }
}

int CornerSearch::XyCornerSearch(uint32_t i, FeedRecords* records) {
  if (!SetCorner(i)) return 0;
  const int found = SearchXy(records);
  // The headings of this corner, for those where a chord is too short: of the far points if the
  // search came to them.
  Walk& forward = xyWalks_->forward;
  Walk& backward = xyWalks_->backward;
  const bool isForward = forward.IsFull() && HasHeading(forward.chord);
  const bool isBackward = forward.IsFull() && backward.IsFull() && HasHeading(backward.chord);
  const auto keep = [](const Chord& chord, KeptHeading* heading) {
    if (HasHeading(chord)) *heading = KeptHeading(chord);
  };
  keep(isForward ? forward.chord : corner_.departure, &headings.forward);
  keep(isBackward ? backward.chord : corner_.arrival, &headings.backward);
  return found;
}

inline int CornerSearch::SearchXy(FeedRecords* records) {
  Walks* const walks = xyWalks_;
  const Walk& forward = Forward(walks);
  if (!forward.IsFull()) return 0;
  const Walk& backward = Backward(walks);
  if (!backward.IsFull()) return 0;

  const Sides near = {&corner_.departure, &corner_.arrival};
  const Sides far = {&walks->forward.chord, &walks->backward.chord};
  const float nearTurn = Turn(near, {});
  const float turn = std::max(nearTurn, Turn(far, near));
  const float angle = ArcAngle(forward.last, turn);
  if (angle <= job_.CornerMinAngle) return 0;
  const float distance = walks->away.Distance();
  SlowMoves(angle, *walks, backward.last == corner_.previous && backward.length > distance,
            forward.last == corner_.next && forward.length > distance, Collapse::kAlways, records);
  return 1;
}

int CornerSearch::ZCornerSearch(uint32_t i, FeedRecords* records) {
  if (!SetCorner(i) || IsRapidType(path_.Block(corner_.next).type)) return 0;

  const Walk& forward = Forward(&zWalks_);
  if (!forward.ended || !forward.hasFarPoint) return 0;
  const Walk& backward = Backward(&zWalks_);
  if (!backward.ended || !backward.hasFarPoint) return 0;

  if (ElevationsHaveCosine(forward.chord.Way(), backward.chord.Way(), straightSquared_)) return 0;
  const Vec3 departure = forward.chord.Unit();
  const Vec3 arrival = backward.chord.Unit();
  // Without ConCorChk a corner counts only where the path turns upward.
  if (job_.ConCorChk != 1 && departure.z - arrival.z <= 0) return 0;
  const float angle = UnsignedTurn(LevelledElevation(departure), LevelledElevation(arrival));
  if (angle <= job_.CornerMinAngle) return 0;
  SlowMoves(angle, zWalks_, backward.last == corner_.previous, forward.last == corner_.next,
            Collapse::kWhenLowered, records);
  return 1;
}

}  // namespace tvx
