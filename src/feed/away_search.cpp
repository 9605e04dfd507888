// New surroundings, which one corner in several needs.
#include "feed/away_search.h"

namespace tvx {

namespace {

// The margin, in moves: more of them make new surroundings rarer, and leave more moves to look at
// for every corner.
constexpr float kMarginAhead = 3.5F;
constexpr float kMarginBehind = 6;
constexpr float kLeastMargin = 1.0F / 64;  // of the distance
constexpr float kMostMargin = 1.0F / 2;
// The surroundings ahead are those of a point some moves after the corner, so that they serve the
// corners before it and after it.
constexpr uint32_t kMovesAhead = 2;

}  // namespace

void AwaySearch::Begin(const Vec3& point, float margin, Surroundings* around) const {
  margin = std::clamp(margin, distance_ * kLeastMargin, distance_ * kMostMargin);
  const float near = distance_ - margin;
  const double rest = surelyNear_ - near;
  around->point = point;
  around->near = AwayTest(near);
  // Not known where the rounding leaves no margin, or the values are no lengths.
  around->isKnown = rest > 0 && near > 0;
  around->marginSquared = static_cast<float>(rest * rest * kSurelyLess);
}

void AwaySearch::BeginAhead(uint32_t first, const Vec3& point, float spacing) {
  Begin(point, spacing * kMarginAhead, &ahead_);
  if (!ahead_.isKnown) return;
  const uint32_t later = first + kMovesAhead;
  if (later < path_.BlockCount() && Covers(ahead_, path_.Point(later))) {
    ahead_.point = path_.Point(later);
  }
  ahead_.begin = first;
  ahead_.found = path_.FirstAway(first, ahead_.point, ahead_.near);
}

void AwaySearch::BeginBehind(uint32_t last, const Vec3& point, float spacing) {
  Begin(point, spacing * kMarginBehind, &behind_);
  if (!behind_.isKnown) return;
  behind_.end = last;
  behind_.found = path_.LastAway(last, point, behind_.near);
}

}  // namespace tvx
