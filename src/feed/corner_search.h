// The two corner searches of the feed adjustment. Each looks at the end point of one move, compares
// the direction in which the path arrives there with the one in which it goes on, both measured to
// the point of the path at a given distance, and slows the two moves that meet there.
#pragma once

#include <cstdint>

#include "feed/directions.h"
#include "feed/path_index.h"
#include "model/block_store.h"
#include "model/job_record.h"
#include "model/vectors.h"

namespace tvx {

// Degrees of the last directions in plan view that were long enough to be measured. They stand in
// for a direction that is not, also from one run of the pass to the next.
struct CornerHeadings {
  float forward = 0;
  float backward = 0;
};

// Radius of the arc at index `arc`, in plan view, from the centre record behind it. Uses the
// register.
float ArcRadius(BlockStore* store, uint32_t arc);

// Searches the corners of one store. The store's coordinates and types must not change meanwhile.
//
// Both searches of a move share what they measure, as far as their look distances are the same.
class CornerSearch {
 public:
  CornerSearch(BlockStore* store, const PathIndex& path, const JobRecord& job,
               const CornerHeadings& headings);

  // As the last search left them, for the next run.
  CornerHeadings Headings();

  // The turn in plan view at the end of move i, a linear move or an arc; arcs of a small radius
  // count as corners at both ends. Returns 1 if a corner was found and the feeds were set, 0 if the
  // search ended before that with the store unchanged. The headings may have changed either way.
  int XyCornerSearch(uint32_t i);

  // The change of slope at the end of the linear move i. Result as above; the headings stay.
  int ZCornerSearch(uint32_t i);

 private:
  // A straight line between two places of the path, in the direction of travel.
  struct Stretch {
    Difference difference;
    Vec3 unit;  // (0, 0, 0) without a length
  };

  // The end point of move i and the moves that meet there.
  struct Corner {
    uint32_t i = PathIndex::kNoMove;
    uint32_t next = PathIndex::kNoMove;
    uint32_t previous = 0;
    Vec3 point;
    Stretch departure, arrival;
  };

  // What a walk from the corner in one direction found out.
  struct Side {
    bool known = false;
    float distance = 0;     // the look distance it is valid for
    bool ended = false;     // false: the walk ran off the path, and the corner is none
    uint32_t block = 0;     // the move it ended on, which ends at the look distance or beyond, or
                            // which a rapid follows
    float length = 0;       // straight distance from the corner to the end point of that move
    Vec3 unit;              // direction of travel of the last distance of the walk that was not 0
    bool hasPoint = false;  // the segment that the walk ended with has a length
    Stretch far;  // between the corner and the point of the path at about the look distance
  };

  enum class Direction { kForward, kBackward };
  enum class Collapse { kAlways, kWhenLowered };

  static void Measure(const Vec3& start, const Vec3& end, Stretch* stretch);
  bool StandOn(uint32_t i);
  const Side& Look(Direction direction, float distance);
  void WalkForward(Side* side) const;
  void WalkBackward(Side* side) const;
  static void ReachNeighbour(uint32_t block, const Stretch& way, Side* side);
  void Reach(Direction direction, uint32_t block, Side* side) const;
  void FindPoint(Direction direction, Side* side) const;

  static void TakeHeading(const Stretch& stretch, PlanHeading* heading);
  float Turn(const Stretch& departure, const Stretch& arrival);
  float ArcAngle(uint32_t walkEnd, float angle);
  int32_t CornerFeed(float angle) const;
  void SlowMoves(float angle, float distance, bool previousZone, bool nextZone, Collapse collapse);
  int32_t SlowInZone(uint32_t index, int16_t percent, int32_t feed,
                     void (*widen)(MotionBlock*, int16_t, int32_t), Collapse collapse);

  BlockStore* store_;
  const PathIndex& path_;
  const JobRecord& job_;
  PlanHeading forwardHeading_, backwardHeading_;
  double straightCosine_;  // directions with at least this cosine make no corner
  Corner corner_;
  Side forward_, backward_;
};

}  // namespace tvx
