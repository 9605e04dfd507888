#include "model/path.h"

#include <algorithm>

namespace tvx {

namespace {

// 180 / 3.1415, not 180 / pi: every angle of the program is measured with it.
constexpr double kDegreesPerRadian = 57.297469361769856;

Vec3 PointOf(const MotionBlock& block) {
  return {block.x, block.y, block.z};
}

void Widen(const Vec3& point, Vec3* minimum, Vec3* maximum) {
  minimum->x = std::min(minimum->x, point.x);
  minimum->y = std::min(minimum->y, point.y);
  minimum->z = std::min(minimum->z, point.z);
  maximum->x = std::max(maximum->x, point.x);
  maximum->y = std::max(maximum->y, point.y);
  maximum->z = std::max(maximum->z, point.z);
}

// Degrees of the direction (v, u) by quadrant, before wrapping. u and v are rounded to 32 bits, so
// a direction close to an axis can have one component of exactly 1 beside a small other one.
double QuadrantAngle(float u, float v) {
  if (u > 0 && v >= 0) {
    const double angle = std::acos(static_cast<double>(v)) * kDegreesPerRadian;
    return u == 1 ? 180.0 - angle : angle;
  }
  if (u > 0 && v < 0) {
    if (v == -1) return 180.0 - std::asin(static_cast<double>(u)) * kDegreesPerRadian;
    return std::acos(static_cast<double>(v)) * kDegreesPerRadian;
  }
  if (u <= 0 && v > 0) return std::asin(static_cast<double>(u)) * kDegreesPerRadian;
  if (u < 0 && v < 0) {
    if (v == -1) return 180.0 + std::asin(static_cast<double>(u)) * kDegreesPerRadian;
    return -std::acos(static_cast<double>(v)) * kDegreesPerRadian;
  }
  return v;
}

}  // namespace

int IsMoveBlock(BlockStore* store, uint32_t index) {
  return store->ReadBlock(index) == 1 && IsMoveType(store->CurrentBlock.type) ? 1 : 0;
}

int IsRapidBlock(BlockStore* store, uint32_t index) {
  store->ReadBlock(index);
  return IsRapidType(store->CurrentBlock.type) ? 1 : 0;
}

int IsCutBlock(BlockStore* store, uint32_t index) {
  store->ReadBlock(index);
  return IsCutType(store->CurrentBlock.type) ? 1 : 0;
}

uint32_t PrevMove(BlockStore* store, uint32_t index) {
  if (index == 0) {
    store->ReadBlock(0);
    return 0;
  }
  for (uint32_t j = index; j-- > 0;) {
    store->ReadBlock(j);
    if (IsMoveType(store->CurrentBlock.type)) return j;
  }
  return 0;
}

uint32_t NextMove(BlockStore* store, uint32_t index) {
  for (uint64_t j = uint64_t{index} + 1; j <= store->blockCount; ++j) {
    // At blockCount the read fails and the register's old type is tested.
    store->ReadBlock(static_cast<uint32_t>(j));
    if (IsMoveType(store->CurrentBlock.type)) return static_cast<uint32_t>(j);
  }
  return 0;
}

int BlockVector(BlockStore* store, uint32_t i, uint32_t j, Difference* difference, Vec3* unit) {
  if (i == j) {
    *difference = {};
    *unit = {};
    return 0;
  }
  store->ReadBlock(i);
  const Vec3 a = PointOf(store->CurrentBlock);
  store->ReadBlock(j);
  const Vec3 b = PointOf(store->CurrentBlock);
  return DiffVectors(a, b, difference, unit);
}

float Angle(float a, float b) {
  const float a1 = static_cast<float>(a * 100.0);
  const float b1 = static_cast<float>(b * 100.0);
  const float r = static_cast<float>(std::sqrt(Square(a1) + Square(b1)));
  if (r < 0.0001) return 0;
  const float u = a1 / r;
  const float v = b1 / r;
  double x = QuadrantAngle(u, v);
  if (x < 0) x += 360.0;
  // Exact directions have exact angles.
  if (u == 0 && v == 1) x = 0;
  if (u == 0 && v == -1) x = 180;
  if (u == 1 && v == 0) x = 90;
  if (u == -1 && v == 0) x = 270;
  if (x < 0) x += 360.0;
  const float degrees = static_cast<float>(x);
  return degrees < 360.0F ? degrees : 0.0F;
}

int PathExtents(BlockStore* store, Vec3* minimum, Vec3* maximum) {
  constexpr float kFar = 10000.0F;
  *minimum = {kFar, kFar, kFar};
  *maximum = {-kFar, -kFar, -kFar};
  if (store->blockCount == 0) return 0;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    if (IsCutBlock(store, i) == 0) continue;
    const MotionBlock block = store->CurrentBlock;
    Widen(PointOf(block), minimum, maximum);
    if (block.type != BlockCutStart) continue;
    const uint32_t previous = PrevMove(store, i);
    const Vec3 start = PointOf(store->CurrentBlock);
    Difference difference;
    Vec3 unit;
    BlockVector(store, i, previous, &difference, &unit);
    if (unit.z != -1.0F) Widen(start, minimum, maximum);
  }
  return 1;
}

}  // namespace tvx
