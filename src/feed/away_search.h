// The searches of the path index for one corner after the other, which have much in common.
#pragma once

#include <algorithm>
#include <cstdint>

#include "feed/path_index.h"
#include "model/vectors.h"

namespace tvx {

// Finds where the path leaves the surroundings of each corner, at one distance. The results are
// those of the index for any order of the corners, and come sooner in the order of the path: moves
// that are nearer to one point than the distance by some margin are also near every corner within
// that margin of the point, so that only the others are looked at again.
//
// By the triangle inequality: a measured length is a true one but for some 2e-7 of it, and all
// below 0.00003 are measured as 0. Where two of them add up to less than surelyNear_, the length
// across them is measured as less than the distance.
class AwaySearch {
 public:
  // `distance`, mm. The index has to outlive the search.
  AwaySearch(const PathIndex& path, float distance)
      : path_(path),
        distance_(distance),
        surelyNear_(distance * kSurelyLess - kLostLengths),
        test_(distance) {}

  float Distance() const { return distance_; }

  // FirstAway of the path from `first` on (LastAway from `last` down). `spacing`: the usual length
  // of a move there, mm; only the time depends on it.
  uint32_t Ahead(uint32_t first, const Vec3& point, float spacing) {
    if (HasFewMoves(spacing)) return path_.FirstAwaySoon(first, point, test_);
    if (!(first >= ahead_.begin && Covers(ahead_, point))) BeginAhead(first, point, spacing);
    if (!ahead_.isKnown) return path_.FirstAway(first, point, test_);
    if (ahead_.found == PathIndex::kNoMove) return PathIndex::kNoMove;
    return path_.FirstAwaySoon(std::max(first, ahead_.found), point, test_);
  }
  uint32_t Behind(uint32_t last, const Vec3& point, float spacing) {
    if (HasFewMoves(spacing)) return path_.LastAwaySoon(last, point, test_);
    if (!(Covers(behind_, point) && ExtendTo(last))) BeginBehind(last, point, spacing);
    if (!behind_.isKnown) return path_.LastAway(last, point, test_);
    if (behind_.found == PathIndex::kNoMove) return PathIndex::kNoMove;
    return path_.LastAwaySoon(behind_.found, point, test_);
  }

 private:
  // A point whose surroundings are known: no block from `begin` to before `found` (from after
  // `found` to `end`) ends a search for `near`, a length that is less than the distance.
  struct Surroundings {
    bool isKnown = false;
    Vec3 point;
    AwayTest near{0};
    float marginSquared = 0;  // a point with a lower square is near enough to use them
    uint32_t begin = 0, end = 0;
    uint32_t found = PathIndex::kNoMove;
  };

  static constexpr double kSurelyLess = 0.99999;  // also for squares in single precision
  static constexpr double kLostLengths = 1e-4;    // mm
  // Fewer moves than this within the distance are looked at one by one.
  static constexpr float kFewMoves = 6;
  // Surroundings are extended by this number of blocks at most.
  static constexpr uint32_t kMostExtension = 8;

  bool HasFewMoves(float spacing) const { return spacing * kFewMoves > distance_; }

  static bool Covers(const Surroundings& around, const Vec3& point) {
    const float dx = point.x - around.point.x;
    const float dy = point.y - around.point.y;
    const float dz = point.z - around.point.z;
    return around.isKnown && dx * dx + dy * dy + dz * dz < around.marginSquared;
  }

  // The surroundings behind a corner grow with the corners that follow it.
  bool ExtendTo(uint32_t last) {
    if (last < behind_.end || last - behind_.end > kMostExtension) return false;
    for (; behind_.end < last; ++behind_.end) {
      if (behind_.near(path_.Block(behind_.end + 1), behind_.point)) return false;
    }
    return true;
  }

  void Begin(const Vec3& point, float margin, Surroundings* around) const;
  void BeginAhead(uint32_t first, const Vec3& point, float spacing);
  void BeginBehind(uint32_t last, const Vec3& point, float spacing);

  const PathIndex& path_;
  const float distance_;
  const double surelyNear_;  // mm
  const AwayTest test_;
  Surroundings ahead_, behind_;
};

}  // namespace tvx
