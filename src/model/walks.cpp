// Walks over moves; the register is left where the last read was.
#include "model/walks.h"

#include <algorithm>

namespace tvx {

namespace {

void Widen(const Vec3& point, Vec3* minimum, Vec3* maximum) {
  minimum->x = std::min(minimum->x, point.x);
  minimum->y = std::min(minimum->y, point.y);
  minimum->z = std::min(minimum->z, point.z);
  maximum->x = std::max(maximum->x, point.x);
  maximum->y = std::max(maximum->y, point.y);
  maximum->z = std::max(maximum->z, point.z);
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
  const Vec3 a = EndPoint(store->CurrentBlock);
  store->ReadBlock(j);
  const Vec3 b = EndPoint(store->CurrentBlock);
  return DiffVectors(a, b, difference, unit);
}

int PathExtents(BlockStore* store, Vec3* minimum, Vec3* maximum) {
  constexpr float kFar = 10000.0F;
  *minimum = {kFar, kFar, kFar};
  *maximum = {-kFar, -kFar, -kFar};
  if (store->blockCount == 0) return 0;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    if (IsCutBlock(store, i) == 0) continue;
    const MotionBlock block = store->CurrentBlock;
    Widen(EndPoint(block), minimum, maximum);
    if (block.type != BlockCutStart) continue;
    const uint32_t previous = PrevMove(store, i);
    const Vec3 start = EndPoint(store->CurrentBlock);
    Difference difference;
    Vec3 unit;
    BlockVector(store, i, previous, &difference, &unit);
    if (unit.z != -1.0F) Widen(start, minimum, maximum);
  }
  return 1;
}

}  // namespace tvx
