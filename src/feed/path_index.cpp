// Builds the tree of bounds bottom up, and searches it forward and backward.
#include "feed/path_index.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>

#include "platform/workers.h"

namespace tvx {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

float PlaneSquared(float dx, float dy) {
  return dx * dx + dy * dy;
}

// Whether all coordinates are finite. Huge ones may count as infinite, since the sum may be.
bool AreFinite(const MotionBlock& block) {
  return std::isfinite(block.x + block.y + block.z);
}

// Calls work(piece) for all pieces, in any order.
template <typename Work>
void ForEachPiece(uint32_t pieces, unsigned workers, Work work) {
  std::atomic<uint32_t> next{0};
  WorkTogether(std::min(workers, pieces), [&](unsigned) {
    for (uint32_t piece = next++; piece < pieces; piece = next++) work(piece);
  });
}

}  // namespace

PathIndex::Bounds PathIndex::Bounds::Empty() {
  return {kInfinity, kInfinity, kInfinity, -kInfinity, -kInfinity, -kInfinity, 0};
}

void PathIndex::Bounds::Add(const MotionBlock& block) {
  if (!IsMoveType(block.type)) return;
  // A rapid ends a search wherever it ends, so a run with a rapid is never skipped; nor is a run
  // with a point that has no bounds.
  if (IsRapidType(block.type) || !AreFinite(block)) {
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

// The bounds are calculated in single precision too.
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

PathIndex::PathIndex(BlockStore* store, float reach, unsigned workers) {
  FindPages(store);
  uint32_t nodes = (count_ + kLeafBlocks - 1) / kLeafBlocks;
  levels_.emplace_back(nodes, Bounds::Empty());
  while (nodes > 1) {
    nodes = (nodes + kFan - 1) / kFan;
    levels_.emplace_back(nodes, Bounds::Empty());
  }
  ForEachPiece((count_ + kPieceBlocks - 1) / kPieceBlocks, workers,
               [&](uint32_t piece) { MakePiece(piece, reach); });
  MakeUpperLevels(reach, workers);
}

void PathIndex::FindPages(BlockStore* store) {
  count_ = store->blockCount;
  // blockCount is one too high if memory for an arc ran out.
  if (count_ > 0 && store->Peek(count_ - 1) == nullptr) --count_;
  for (uint32_t i = 0; i < count_; i += BlockStore::blocksPerPage) {
    pages_.push_back(store->RepairedRecord(i));
  }
}

void PathIndex::MakePiece(uint32_t piece, float reach) {
  uint32_t first = piece * kPieceBlocks;
  uint32_t end = std::min(first + kPieceBlocks, count_);
  for (uint32_t i = first; i < end;) {
    Bounds bounds = Bounds::Empty();
    for (const uint32_t leafEnd = std::min(i + kLeafBlocks, end); i < leafEnd; ++i) {
      MotionBlock* const block = Record(i);
      BlockStore::RepairIfBad(block);
      bounds.Add(*block);
    }
    levels_[0][(i - 1) / kLeafBlocks] = bounds;
  }
  uint32_t nodeBlocks = kLeafBlocks;
  for (size_t level = 0; level <= kPieceLevel && level < levels_.size(); ++level) {
    const uint32_t endNode = (end + nodeBlocks - 1) / nodeBlocks;
    for (uint32_t node = first / nodeBlocks; node < endNode; ++node) {
      Bounds& bounds = levels_[level][node];
      const uint32_t begin = node * nodeBlocks;
      bounds.radius =
          WantsCircle(bounds, reach)
              ? std::sqrt(FarthestSquared(bounds, begin, std::min(begin + nodeBlocks, end)))
              : kInfinity;
      if (level < kPieceLevel && level + 1 < levels_.size()) {
        levels_[level + 1][node / kFan].Add(bounds);
      }
    }
    nodeBlocks *= kFan;
  }
}

// Every level measures its circles over the points themselves: a circle around smaller circles
// would grow with each level.
void PathIndex::MakeUpperLevels(float reach, unsigned workers) {
  std::vector<size_t> wanted;
  for (size_t level = kPieceLevel + 1; level < levels_.size(); ++level) {
    for (size_t i = 0; i < levels_[level - 1].size(); ++i) {
      levels_[level][i / kFan].Add(levels_[level - 1][i]);
    }
    bool wants = false;
    for (Bounds& bounds : levels_[level]) {
      bounds.radius = WantsCircle(bounds, reach) ? 0 : kInfinity;
      wants = wants || bounds.radius == 0;
    }
    if (wants) wanted.push_back(level);
  }
  if (wanted.empty()) return;

  std::mutex mutex;  // of the radii: they hold squares until all pieces are measured
  ForEachPiece((count_ + kPieceBlocks - 1) / kPieceBlocks, workers, [&](uint32_t piece) {
    const uint32_t first = piece * kPieceBlocks;
    uint32_t node = piece;
    size_t level = kPieceLevel;
    for (const size_t next : wanted) {
      for (; level < next; ++level) node /= kFan;
      Bounds& bounds = levels_[level][node];
      if (!WantsCircle(bounds, reach)) continue;
      const float squared = FarthestSquared(bounds, first, std::min(first + kPieceBlocks, count_));
      const std::lock_guard lock(mutex);
      bounds.radius = std::max(bounds.radius, squared);
    }
  });
  for (const size_t level : wanted) {
    for (Bounds& bounds : levels_[level]) bounds.radius = std::sqrt(bounds.radius);
  }
}

// The circle of a run that is wider than the reach cannot be near any point.
bool PathIndex::WantsCircle(const Bounds& bounds, float reach) const {
  return std::max(bounds.highX - bounds.lowX, bounds.highY - bounds.lowY) * 0.5F < reach;
}

// The squared distance in plan view from the middle of the bounds to the farthest move.
float PathIndex::FarthestSquared(const Bounds& bounds, uint32_t first, uint32_t end) const {
  const float x = bounds.MiddleX();
  const float y = bounds.MiddleY();
  float squared = 0;
  ScanForward(first, end, [&](const MotionBlock& block) {
    if (IsMoveType(block.type)) {
      squared = std::max(squared, PlaneSquared(block.x - x, block.y - y));
    }
    return false;
  });
  return squared;
}

template <typename Hit>
uint32_t PathIndex::ScanForward(uint32_t first, uint32_t end, const Hit& hit) const {
  for (uint32_t i = first; i < end;) {
    // Records of one page lie side by side.
    const uint32_t pageEnd = i - i % BlockStore::blocksPerPage + BlockStore::blocksPerPage;
    const MotionBlock* block = Record(i);
    for (const uint32_t runEnd = std::min(end, pageEnd); i < runEnd; ++i, ++block) {
      if (hit(*block)) return i;
    }
  }
  return kNoMove;
}

template <typename Hit>
uint32_t PathIndex::ScanBackward(uint32_t last, uint32_t begin, const Hit& hit) const {
  for (uint32_t i = last + 1; i > begin;) {
    const uint32_t pageBegin = (i - 1) - (i - 1) % BlockStore::blocksPerPage;
    const MotionBlock* block = Record(i - 1);
    for (const uint32_t runBegin = std::max(begin, pageBegin); i > runBegin; --i, --block) {
      if (hit(*block)) return i - 1;
    }
  }
  return kNoMove;
}

template <typename Skip, typename Hit>
uint32_t PathIndex::SearchForward(uint32_t first, const Skip& skip, const Hit& hit) const {
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
uint32_t PathIndex::SearchBackward(uint32_t last, const Skip& skip, const Hit& hit) const {
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

uint32_t PathIndex::FirstMove(uint32_t i) const {
  return SearchForward(
      i, [](const Bounds& bounds) { return bounds.IsEmpty(); },
      [](const MotionBlock& block) { return IsMoveType(block.type); });
}

uint32_t PathIndex::LastMove(uint32_t i) const {
  if (i == 0) return 0;
  const uint32_t move = SearchBackward(
      i - 1, [](const Bounds& bounds) { return bounds.IsEmpty(); },
      [](const MotionBlock& block) { return IsMoveType(block.type); });
  return move == kNoMove ? 0 : move;
}

uint32_t PathIndex::FirstAway(uint32_t first, const Vec3& point, const AwayTest& test) const {
  return SearchForward(
      first, [&](const Bounds& bounds) { return bounds.IsNear(point, test.NearSquared()); },
      [&](const MotionBlock& block) { return test(block, point); });
}

uint32_t PathIndex::LastAway(uint32_t last, const Vec3& point, const AwayTest& test) const {
  return SearchBackward(
      last, [&](const Bounds& bounds) { return bounds.IsNear(point, test.NearSquared()); },
      [&](const MotionBlock& block) { return test(block, point); });
}

}  // namespace tvx
