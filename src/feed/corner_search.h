// The two corner searches of the feed adjustment. Each compares, at the end point of one move, the
// direction in which the path arrives there with the direction in which it departs, both measured
// to the point of the path at a given distance, and slows the two moves that meet there.
#pragma once

#include <cstdint>

#include "feed/angle_feed.h"
#include "feed/away_search.h"
#include "feed/directions.h"
#include "feed/feed_records.h"
#include "feed/path_index.h"
#include "model/block_store.h"
#include "model/job_record.h"
#include "model/vectors.h"

namespace tvx {

// The last directions in plan view that were long enough to be measured. They replace a direction
// that is too short, also from one run of the pass to the next.
struct CornerHeadings {
  KeptHeading forward{0};
  KeptHeading backward{0};
};

// Radius of the arc at index `arc`, in plan view, from the centre record that follows it.
float ArcRadius(const PathIndex& path, uint32_t arc);

// Searches the corners of one path and changes the feeds in `records`. Both have to outlive the
// search. The two searches of a move share their measurements where their look distances are equal,
// and so do the searches of moves that follow each other.
class CornerSearch {
 public:
  CornerSearch(const PathIndex& path, const JobRecord& job);

  // The headings that the next search starts from. They may be unknown.
  CornerHeadings headings;
  // Set by a search whose result depends on a heading that is not known; the result is wrong then.
  bool missedHeading = false;

  // The turn in plan view at the end of move i, a linear move or an arc; arcs of a small radius
  // count as corners at both ends. Returns 1 if a corner was found and the feeds were set, 0 with
  // the records unchanged if not. The headings may have changed either way.
  int XyCornerSearch(uint32_t i, FeedRecords* records);

  // The change of slope at the end of the linear move i. Result as above; the headings stay.
  int ZCornerSearch(uint32_t i, FeedRecords* records);

 private:
  // The end point of move i and the moves that meet there.
  struct Corner {
    uint32_t i = PathIndex::kNoMove;
    uint32_t next = PathIndex::kNoMove;
    uint32_t previous = 0;
    Vec3 point, nextPoint;
    Chord departure, arrival;  // of the next move, and of move i itself
  };

  // The result of a walk along the path, from the corner in one direction.
  struct Walk {
    bool isKnown = false;
    bool ended = false;  // false: the walk ran off the path, and there is no corner
    uint32_t last = 0;   // the move it ended on: its end point is at the look distance or beyond,
                         // or a rapid follows
    float length = 0;    // straight distance from the corner to the end point of the neighbour if
                         // that is the last move
    bool hasPlanPart = false;  // of the direction to the last end point that is not the corner
    bool hasFarPoint = false;  // false: the segment that the walk ended with has no length
    Chord chord;  // between the corner and the far point, at about the look distance on the path

    // Whether the XY search can go on with it.
    bool IsFull() const { return ended && hasPlanPart && hasFarPoint; }
  };

  // The directions that a turn is measured between; null where there is none.
  struct Sides {
    Chord* departure = nullptr;
    Chord* arrival = nullptr;
  };

  // The walks from one corner at one look distance.
  struct Walks {
    explicit Walks(const PathIndex& path, float distance) : away(path, distance) {}
    void Forget() { forward.isKnown = backward.isKnown = false; }
    AwaySearch away;
    Walk forward, backward;
  };

  enum class Collapse { kAlways, kWhenLowered };

  bool SetCorner(uint32_t i);
  const Walk& Forward(Walks* walks);
  const Walk& Backward(Walks* walks);
  void WalkForward(Walks* walks);
  void WalkBackward(Walks* walks);
  bool HasPlanPartBeforeRapid(uint32_t end) const;
  bool HasPlanPartBehindRapid(uint32_t end) const;
  int SearchXy(FeedRecords* records);
  float Turn(const Sides& sides, const Sides& before);
  float MeasuredTurn(const Sides& sides, const Sides& before);
  float ArcAngle(uint32_t walkEnd, float angle) const;
  int32_t CornerFeed(float angle) const;
  void SlowMoves(float angle, const Walks& walks, bool previousZone, bool nextZone,
                 Collapse collapse, FeedRecords* records) const;

  const PathIndex& path_;
  const JobRecord& job_;
  const FeedCurve curve_;
  const float straightSquared_;  // directions with at least this cosine squared make no corner
  const double lowestFeed_;
  Corner corner_;
  Walks zWalks_, reducedWalks_;
  Walks* xyWalks_;  // the same as those of the Z search if the look distances are equal
};

}  // namespace tvx
