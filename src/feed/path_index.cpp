// Builds the tree of bounds bottom up, and searches it forward and backward.
#include "feed/path_index.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tvx {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

// The bounds are calculated in single precision, to a few parts in ten million. A run is skipped
// only if it is nearer by at least this share of the squared distance.
constexpr float kSurelyNear = 0.99999F;
// A squared distance below this is surely near. Tiny squares may lose digits: all lengths below
// 0.00003 count as 0, and 0 is near.
float NearSquared(float distance) {
  return distance * distance * kSurelyNear;
}

float PlaneSquared(float dx, float dy) {
  return dx * dx + dy * dy;
}

bool IsFinite(const MotionBlock& block) {
  return std::isfinite(block.x) && std::isfinite(block.y) && std::isfinite(block.z);
}

// Decides about single blocks, finally by DiffVectors, which all rules measure with.
struct AwayTest {
  Vec3 point;
  float distance;
  float nearSquared;

  bool operator()(const MotionBlock& block) const {
    if (IsRapidType(block.type)) return true;
    const float dz = block.z - point.z;
    if (PlaneSquared(block.x - point.x, block.y - point.y) + dz * dz < nearSquared) return false;
    if (!IsMoveType(block.type)) return false;
    Difference difference;
    Vec3 unit;
    DiffVectors(EndPoint(block), point, &difference, &unit);
    return !(difference.length < distance);
  }
};

}  // namespace

PathIndex::Bounds PathIndex::Bounds::Empty() {
  return {kInfinity, kInfinity, kInfinity, -kInfinity, -kInfinity, -kInfinity, 0};
}

void PathIndex::Bounds::Add(const MotionBlock& block) {
  if (!IsMoveType(block.type)) return;
  // A rapid ends a search wherever it ends, so a run with a rapid is never skipped; nor is a run
  // with a point that has no bounds.
  if (IsRapidType(block.type) || !IsFinite(block)) {
    lowX = lowY = lowZ = -kInfinity;
    highX = highY = highZ = kInfinity;
    return;
  }
  lowX = std::min(lowX, block.x), highX = std::max(highX, block.x);
  lowY = std::min(lowY, block.y), highY = std::max(highY, block.y);
  lowZ = std::min(lowZ, block.z), highZ = std::max(highZ, block.z);
}

void PathIndex::Bounds::Add(const Bounds& other) {
  lowX = std::min(lowX, other.lowX), highX = std::max(highX, other.highX);
  lowY = std::min(lowY, other.lowY), highY = std::max(highY, other.highY);
  lowZ = std::min(lowZ, other.lowZ), highZ = std::max(highZ, other.highZ);
}

bool PathIndex::Bounds::IsNear(const Vec3& point, float nearSquared) const {
  // The farthest corner of the box. Empty bounds have every corner at minus infinity.
  const float dx = std::max({point.x - lowX, highX - point.x, 0.0F});
  const float dy = std::max({point.y - lowY, highY - point.y, 0.0F});
  const float dz = std::max({point.z - lowZ, highZ - point.z, 0.0F});
  if (PlaneSquared(dx, dy) + dz * dz < nearSquared) return true;
  // The farthest point of the upright cylinder. Infinite bounds have no middle: a comparison with a
  // value that is not a number fails.
  const float far = std::sqrt(PlaneSquared(point.x - MiddleX(), point.y - MiddleY())) + radius;
  return far * far + dz * dz < nearSquared;
}

PathIndex::PathIndex(BlockStore* store) : store_(store) {
  levels_.emplace_back();
  std::vector<Bounds>& leaves = levels_.front();
  leaves.reserve(store->blockCount / kLeafBlocks + 1);
  for (; count_ < store->blockCount; ++count_) {
    store->ReadBlock(count_);
    const MotionBlock* block = store->Peek(count_);
    if (block == nullptr) break;  // blockCount is one too high if memory for an arc ran out
    if (count_ % kLeafBlocks == 0) leaves.push_back(Bounds::Empty());
    leaves.back().Add(*block);
  }
  AddLevels();
  MeasureRadii();
}

void PathIndex::AddLevels() {
  while (levels_.back().size() > 1) {
    const std::vector<Bounds>& below = levels_.back();
    std::vector<Bounds> level((below.size() + kFan - 1) / kFan, Bounds::Empty());
    for (size_t i = 0; i < below.size(); ++i) level[i / kFan].Add(below[i]);
    levels_.push_back(std::move(level));
  }
}

// Every level measures its circles over the points themselves: a circle around smaller circles
// would grow with each level.
void PathIndex::MeasureRadii() {
  for (uint32_t first = 0; first < count_; first += kLeafBlocks) {
    const uint32_t end = std::min(first + kLeafBlocks, count_);
    uint32_t node = first / kLeafBlocks;
    for (std::vector<Bounds>& level : levels_) {
      Bounds& bounds = level[node];
      const float x = bounds.MiddleX();
      const float y = bounds.MiddleY();
      float squared = bounds.radius * bounds.radius;
      ScanForward(first, end, [&](const MotionBlock& block) {
        if (IsMoveType(block.type)) {
          squared = std::max(squared, PlaneSquared(block.x - x, block.y - y));
        }
        return false;
      });
      bounds.radius = std::sqrt(squared);
      node /= kFan;
    }
  }
}

template <typename Hit>
uint32_t PathIndex::ScanForward(uint32_t first, uint32_t end, Hit hit) const {
  for (uint32_t i = first; i < end;) {
    // Records of one page lie side by side.
    const uint32_t pageEnd = i - i % BlockStore::blocksPerPage + BlockStore::blocksPerPage;
    const MotionBlock* block = store_->Peek(i);
    for (const uint32_t runEnd = std::min(end, pageEnd); i < runEnd; ++i, ++block) {
      if (hit(*block)) return i;
    }
  }
  return kNoMove;
}

template <typename Hit>
uint32_t PathIndex::ScanBackward(uint32_t last, uint32_t begin, Hit hit) const {
  for (uint32_t i = last + 1; i > begin;) {
    const uint32_t pageBegin = (i - 1) - (i - 1) % BlockStore::blocksPerPage;
    const MotionBlock* block = store_->Peek(i - 1);
    for (const uint32_t runBegin = std::max(begin, pageBegin); i > runBegin; --i, --block) {
      if (hit(*block)) return i - 1;
    }
  }
  return kNoMove;
}

template <typename Skip, typename Hit>
uint32_t PathIndex::SearchForward(uint32_t first, Skip skip, Hit hit) const {
  if (first >= count_) return kNoMove;
  uint32_t node = first / kLeafBlocks + 1;  // the next whole run
  uint32_t found = kNoMove;
  if (!skip(levels_[0][node - 1])) {
    found = ScanForward(first, std::min(node * kLeafBlocks, count_), hit);
  }
  for (size_t level = 0; found == kNoMove && node < levels_[level].size();) {
    if (!skip(levels_[level][node])) {
      if (level > 0) {
        --level;
        node *= kFan;
        continue;
      }
      const uint32_t begin = node * kLeafBlocks;
      found = ScanForward(begin, std::min(begin + kLeafBlocks, count_), hit);
    }
    ++node;
    if (node % kFan == 0 && level + 1 < levels_.size()) {
      ++level;
      node /= kFan;
    }
  }
  return found;
}

template <typename Skip, typename Hit>
uint32_t PathIndex::SearchBackward(uint32_t last, Skip skip, Hit hit) const {
  if (last >= count_) return kNoMove;
  uint32_t nodes = last / kLeafBlocks;  // whole runs before `last`, at the current level
  uint32_t found = kNoMove;
  if (!skip(levels_[0][nodes])) found = ScanBackward(last, nodes * kLeafBlocks, hit);
  for (size_t level = 0; found == kNoMove && nodes > 0;) {
    if (!skip(levels_[level][nodes - 1])) {
      if (level > 0) {
        --level;
        nodes *= kFan;
        continue;
      }
      const uint32_t end = nodes * kLeafBlocks;
      found = ScanBackward(end - 1, end - kLeafBlocks, hit);
    }
    --nodes;
    if (nodes % kFan == 0 && level + 1 < levels_.size()) {
      ++level;
      nodes /= kFan;
    }
  }
  return found;
}

uint32_t PathIndex::NextMove(uint32_t i) const {
  if (i + 1 < count_ && IsMoveType(Block(i + 1).type)) return i + 1;
  return SearchForward(
      i + 1, [](const Bounds& bounds) { return bounds.IsEmpty(); },
      [](const MotionBlock& block) { return IsMoveType(block.type); });
}

uint32_t PathIndex::PrevMove(uint32_t i) const {
  if (i == 0) return 0;
  if (IsMoveType(Block(i - 1).type)) return i - 1;
  const uint32_t move = SearchBackward(
      i - 1, [](const Bounds& bounds) { return bounds.IsEmpty(); },
      [](const MotionBlock& block) { return IsMoveType(block.type); });
  return move == kNoMove ? 0 : move;
}

uint32_t PathIndex::FirstAway(uint32_t first, const Vec3& point, float distance) const {
  const AwayTest away{point, distance, NearSquared(distance)};
  return SearchForward(
      first, [&](const Bounds& bounds) { return bounds.IsNear(point, away.nearSquared); }, away);
}

uint32_t PathIndex::LastAway(uint32_t last, const Vec3& point, float distance) const {
  const AwayTest away{point, distance, NearSquared(distance)};
  return SearchBackward(
      last, [&](const Bounds& bounds) { return bounds.IsNear(point, away.nearSquared); }, away);
}

Vec3 PathIndex::Point(uint32_t i) const {
  return EndPoint(Block(i));
}

int PathIndex::Vector(uint32_t i, uint32_t j, Difference* difference, Vec3* unit) const {
  if (i == j) {
    *difference = {};
    *unit = {};
    return 0;
  }
  return DiffVectors(Point(i), Point(j), difference, unit);
}

}  // namespace tvx
