// One move of a program as a machine runs it: its length, its directions and the limits on it.
#pragma once

#include <array>

#include "insight/machine_profile.h"
#include "model/block_store.h"
#include "model/vectors.h"

namespace tvx {

// A direction, or a vector in mm, in double precision.
struct Direction {
  double x = 0, y = 0, z = 0;
};

// Limits of the three axes in the form that moves are computed with: 1 / limit, so that the limit
// of a direction takes one division.
struct AxisLimits {
  std::array<double, 3> inverse;

  // `perSecond` converts the values to mm/s or mm/s^2.
  explicit AxisLimits(const AxisValues& values, double perSecond = 1);

  // The highest speed or acceleration along a unit vector at which no axis exceeds its limit. A
  // component of at most 1e-9 does not count. The vector has a length of 1.
  double Along(const Direction& unit) const;
};

// A machine profile in mm and seconds.
struct MachineLimits {
  explicit MachineLimits(const MachineProfile& profile);

  AxisLimits rapidSpeed;
  AxisLimits cutSpeed;
  AxisLimits acceleration;
  double planeCutSpeed;         // mm/s, the lower of X and Y
  double verticalCutSpeed;      // mm/s
  double centripetal;           // mm/s^2 that both X and Y can hold in any direction of the plane
  double verticalAcceleration;  // mm/s^2
  double cornerTolerance;       // mm
  double blockTime;             // s
  bool stopsAtRapids;
};

// A part of a move that runs at one feed.
struct Stretch {
  double length = 0;  // mm
  double speed = 0;   // mm/s, the highest
  double feed = 0;    // mm/s, the programmed feed without any limit of the machine
};

struct MachineMove {
  double length = 0;        // mm, above 0
  double acceleration = 0;  // mm/s^2 along the path
  Direction start;          // unit tangents
  Direction end;
  bool isRapid = false;
  int stretchCount = 0;  // 1 to 3
  std::array<Stretch, 3> stretches;

  double FirstSpeed() const { return stretches[0].speed; }
  double LastSpeed() const { return stretches[static_cast<size_t>(stretchCount) - 1].speed; }
};

enum class MoveKind {
  kTimed,     // *move is set
  kNoLength,  // start and end are the same point
  kNoFeed,    // a cut, or a part of one, has a feed of 0 or below: the machine stands still
};

// Describes the move of a block of a move type that starts at `from`. `centre` is the record after
// it, null if there is none. Sets *move only for kTimed.
MoveKind DescribeMove(const MotionBlock& block, const MotionBlock* centre, const Vec3& from,
                      const MachineLimits& limits, MachineMove* move);

// Square of the highest speed, (mm/s)^2, between two moves that follow each other: that of the
// corner, and at most those of the two moves where they meet.
double BoundarySpeedSquared(const MachineMove& before, const MachineMove& after,
                            const MachineLimits& limits);

}  // namespace tvx
