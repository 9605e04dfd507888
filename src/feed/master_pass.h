// Sub-pass of the feed adjustment that slows moves near steep walls of the master model.
#pragma once

#include <cstdint>

#include "feed/angle_feed.h"
#include "feed/feed_records.h"
#include "feed/path_index.h"
#include "master/master_grid.h"
#include "model/job_record.h"
#include "model/vectors.h"

namespace tvx {

// The following move that was handled last. It is 0 when the process starts and is kept from batch
// to batch and from pass to pass.
struct LastNextMove {
  uint32_t block = 0;
  // False: `block` is the one that the pass started with, and moves before may have set another.
  bool isKnown = true;
};

// Reads SafetyDistance (reach of the zones, mm; as the search radius and the sampling step at least
// 1), SlopeMinAngle, SlopeMaxRatio, the three SideWeights and MaxFeed of the job. The caller tests
// AfaByMaster. Without a model every lookup finds nothing.
class MasterPass {
 public:
  // The arguments have to outlive the object.
  MasterPass(const PathIndex& path, const JobRecord& job, const MasterGrid& master);

  // Lowers the feeds of the straight cuts among the blocks `first` up to but not including `end`,
  // and of the moves that follow them, where the master model is steep near the move and above it.
  void SlowMoves(uint32_t first, uint32_t end, FeedRecords* records);

  LastNextMove last;
  bool missedLast = false;  // the result depends on `last` although it is not known

 private:
  // A move, and how much of it and of the next one lies within the reach of its end point.
  struct Reach {
    Vec3 end;
    Difference back;      // end point minus start point
    int16_t percent;      // 0 for a move too short for a zone
    uint32_t next;        // kNoMove without one
    int16_t nextPercent;  // the same for the next move; 0 without one
  };

  void SlowMove(uint32_t i, FeedRecords* records);
  Reach Measure(uint32_t i) const;
  bool IsSteep(int32_t angle) const;
  int16_t PercentWithinReach(float length) const;
  int32_t SteepestAt(const Vec3& point) const;
  int32_t SteepestAlong(const Reach& move) const;
  int32_t SteepestOfSamples(const Reach& move) const;
  int32_t FeedOfAngle(int32_t angle) const;
  int32_t ZoneFeed(int32_t angle, const MotionBlock& block) const;
  void SlowHeadOfNext(const Reach& move, int32_t feed, FeedRecords* records);
  void SlowShortNext(const Reach& move, int32_t angleAtEnd, FeedRecords* records);

  const PathIndex& path_;
  const JobRecord& job_;
  const MasterGrid& master_;
  const FeedCurve curve_;
  const float radius_;
};

}  // namespace tvx
