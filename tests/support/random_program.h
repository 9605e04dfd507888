// Random programs, models and helpers of the tests of the feed adjustment and the master model.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "master/master_grid.h"
#include "model/block_store.h"

namespace tvx {

// A grid of empty cells.
inline MasterGrid EmptyGrid(int32_t NX, int32_t NY, float cellSize) {
  MasterGrid grid;
  AllocateGrid(&grid, NX, NY);
  grid.CellSize = cellSize;
  grid.ModelBuilt = 1;
  return grid;
}

inline void SetCell(MasterGrid* grid, int32_t ix, int32_t iy, float z, int angle) {
  grid->At(ix, iy).z = z;
  grid->At(ix, iy).angle = static_cast<int16_t>(angle);
}

// Appends a block to a store.
inline void Append(BlockStore* store, const MotionBlock& block) {
  store->CurrentBlock = block;
  store->WriteBlock(store->blockCount++);
}
inline void Append(BlockStore* store, BlockType type, float x, float y, float z) {
  Append(store, {.x = x, .y = y, .z = z, .feedProgrammed = 1000, .feed = 1000, .type = type});
}

// Replaces the program in the store.
inline void Fill(BlockStore* store, const std::vector<MotionBlock>& blocks) {
  store->blockCount = 0;
  for (const MotionBlock& block : blocks) Append(store, block);
}

// The records of a store, byte for byte.
inline std::string Bytes(const BlockStore& store) {
  std::string bytes;
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    bytes.append(reinterpret_cast<const char*>(store.Peek(i)), sizeof(MotionBlock));
  }
  return bytes;
}

// Adds bytes to a checksum (FNV-1a).
inline void AddTo(uint32_t* sum, const std::string& bytes) {
  for (const char byte : bytes) *sum = (*sum ^ static_cast<unsigned char>(byte)) * 0x01000193;
}

// A series of choices that depends on the seed only, on no compiler and no library.
class Random {
 public:
  explicit Random(uint32_t seed) : engine_(seed) {}

  // From low to high, both included.
  int Whole(int low, int high) {
    return low + static_cast<int>(Next() % static_cast<uint32_t>(high - low + 1));
  }
  double Real(double low, double high) { return low + (high - low) * (Next() * 0x1p-32); }
  bool Chance(int percent) { return Whole(1, 100) <= percent; }
  template <typename T>
  T OneOf(std::initializer_list<T> list) {
    return list.begin()[Whole(0, static_cast<int>(list.size()) - 1)];
  }

 private:
  uint32_t Next() { return static_cast<uint32_t>(engine_()); }
  std::mt19937 engine_;
};

// At least `moves` blocks of runs of every kind: straight, turning and circling moves from much
// shorter to much longer than the look distance, lattices whose distances are exact, repeated
// points, rapids, arcs, lines without a move and zones of an earlier run. With `odd` also bad
// records, huge coordinates and coordinates that are no numbers.
std::vector<MotionBlock> RandomProgram(Random* random, size_t moves, bool odd);

// A patch of walls near one of the moves of a program.
MasterGrid RandomModel(const std::vector<MotionBlock>& blocks, Random* random);

// An allocator that succeeds a given number of times.
inline int allocationsLeft = 0;
inline void* AllocateWhileAllowed(size_t bytes) {
  return allocationsLeft-- > 0 ? std::malloc(bytes) : nullptr;
}

}  // namespace tvx
