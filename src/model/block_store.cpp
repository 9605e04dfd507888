#include "model/block_store.h"

namespace tvx {

static_assert(BlockStore::blocksPerPage * sizeof(MotionBlock) <= PageMemory::kPageBytes);

BlockStore::BlockStore(PageMemory* memory) : memory_(memory) {}

BlockStore::~BlockStore() {
  for (MotionBlock* page : pages_) {
    if (page != nullptr) memory_->Free(page);
  }
}

bool BlockStore::AllocatePage(uint32_t page) {
  // Not cleared: no read reaches a record that has not been written.
  pages_[page] = static_cast<MotionBlock*>(memory_->Allocate());
  return pages_[page] != nullptr;
}

}  // namespace tvx
