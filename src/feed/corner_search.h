// The two corner searches of the feed adjustment. Each compares, at the end point of one move, the
// direction in which the path arrives there with the direction in which it departs, both measured
// to the point of the path at a given distance, and slows the two moves that meet there.
#pragma once

#include <cstdint>

#include "feed/directions.h"
#include "feed/path_index.h"
#include "model/block_store.h"
#include "model/job_record.h"
#include "model/vectors.h"

namespace tvx {

// Degrees of the last directions in plan view that were long enough to be measured. They replace a
// direction that is too short, also from one run of the pass to the next.
struct CornerHeadings {
  float forward = 0;
  float backward = 0;
};

// Radius of the arc at index `arc`, in plan view, from the centre record that follows it. Uses the
// register.
float ArcRadius(BlockStore* store, uint32_t arc);

// Searches the corners of one store. The store's coordinates and types must not change meanwhile.
// The two searches of a move share their measurements where their look distances are equal.
class CornerSearch {
 public:
  CornerSearch(BlockStore* store, const PathIndex& path, const JobRecord& job,
               const CornerHeadings& headings);

  // The headings after the last search, for the next run.
  CornerHeadings Headings();

  // The turn in plan view at the end of move i, a linear move or an arc; arcs of a small radius
  // count as corners at both ends. Returns 1 if a corner was found and the feeds were set, 0 with
  // the store unchanged if not. The headings may have changed either way.
  int XyCornerSearch(uint32_t i);

  // The change of slope at the end of the linear move i. Result as above; the headings stay.
  int ZCornerSearch(uint32_t i);

 private:
  // A straight line between two points of the path, in the direction of travel.
  struct Chord {
    Difference difference;
    Vec3 unit;  // (0, 0, 0) without a length
  };

  // The end point of move i and the moves that meet there.
  struct Corner {
    uint32_t i = PathIndex::kNoMove;
    uint32_t next = PathIndex::kNoMove;
    uint32_t previous = 0;
    Vec3 point;
    Chord departure, arrival;  // of the next move, and of move i itself
  };

  // The result of a walk along the path, from the corner in one direction.
  struct Walk {
    bool known = false;
    float distance = 0;  // the look distance of this walk
    bool ended = false;  // false: the walk ran off the path, and there is no corner
    uint32_t last = 0;   // the move it ended on: its end point is at the look distance or beyond,
                         // or a rapid follows
    float length = 0;    // straight distance from the corner to the end point of that move
    Vec3 unit;           // direction of travel of the last such distance that was not 0
    bool hasFarPoint = false;  // false: the segment that the walk ended with has no length
    Chord chord;  // between the corner and the far point, at about the look distance on the path
  };

  enum class Direction { kForward, kBackward };
  enum class Collapse { kAlways, kWhenLowered };

  static void Measure(const Vec3& start, const Vec3& end, Chord* chord);
  bool SetCorner(uint32_t i);
  const Walk& WalkTo(Direction direction, float distance);
  void WalkForward(Walk* walk) const;
  void WalkBackward(Walk* walk) const;
  static void EndAtNeighbour(uint32_t move, const Chord& chord, Walk* walk);
  void EndAt(Direction direction, uint32_t move, Walk* walk) const;
  void FindFarPoint(Direction direction, Walk* walk) const;

  static void UpdateHeading(const Chord& chord, PlanHeading* heading);
  float Turn(const Chord& departure, const Chord& arrival);
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
  Walk forward_, backward_;
};

}  // namespace tvx
