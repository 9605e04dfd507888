#include "model/block_store.h"

namespace tvx {

static_assert(BlockStore::blocksPerPage * sizeof(MotionBlock) <= PageMemory::kPageBytes);

BlockStore::BlockStore(PageMemory* memory) : memory_(memory) {}

BlockStore::~BlockStore() {
  for (MotionBlock* page : pages_) {
    if (page != nullptr) memory_->Free(page);
  }
}

bool BlockStore::CopyFrom(const BlockStore& other) {
  CurrentBlock = other.CurrentBlock;
  for (blockCount = 0; blockCount < other.blockCount; ++blockCount) {
    const MotionBlock* const from = other.Peek(blockCount);
    if (from == nullptr) continue;  // a count can run one ahead of the pages
    MotionBlock* const to = WritableRecord(blockCount);
    if (to == nullptr) return false;
    CopyFields(*from, to);
  }
  return true;
}

bool BlockStore::AllocatePage(uint32_t page) {
  // Not cleared: no read reaches a record that has not been written.
  pages_[page] = static_cast<MotionBlock*>(memory_->Allocate());
  return pages_[page] != nullptr;
}

}  // namespace tvx
