#include "model/block_store.h"

namespace tvx {

namespace {

// What a repaired record says: a place at the limit and a harmless feed.
constexpr int32_t kRepairFeed = 300;

}  // namespace

static_assert(BlockStore::blocksPerPage * sizeof(MotionBlock) <= PageMemory::kPageBytes);

BlockStore::BlockStore(PageMemory* memory) : memory_(memory) {}

BlockStore::~BlockStore() {
  for (MotionBlock* page : pages_) {
    if (page != nullptr) memory_->Free(page);
  }
}

void BlockStore::Repair(MotionBlock* block) {
  block->x = block->y = block->z = kCoordinateLimit;
  block->feedProgrammed = block->feed = kRepairFeed;
  block->type = BlockNone;
}

bool BlockStore::AllocatePage(uint32_t page) {
  // Not cleared: no read reaches a record that has not been written.
  pages_[page] = static_cast<MotionBlock*>(memory_->Allocate());
  return pages_[page] != nullptr;
}

}  // namespace tvx
