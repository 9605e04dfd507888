// Pages of memory from the system, kept for reuse.
#include "platform/page_memory.h"

#include <sys/mman.h>

#include <cstdlib>
#include <vector>

namespace tvx {

namespace {

// Size and alignment of the system's huge pages.
constexpr size_t kPieceBytes = size_t{2} * 1024 * 1024;

class HugePageMemory final : public PageMemory {
 public:
  void* Allocate() override {
    if (free_.empty() && !TakePiece()) return nullptr;
    void* const page = free_.back();
    free_.pop_back();
    return page;
  }

  void Free(void* page) override { free_.push_back(page); }

 private:
  bool TakePiece() {
    free_.reserve(free_.size() + kPieceBytes / kPageBytes);
    char* const piece = static_cast<char*>(std::aligned_alloc(kPieceBytes, kPieceBytes));
    if (piece == nullptr) return false;
    // Only a hint: without huge pages everything works, with more page faults.
    madvise(piece, kPieceBytes, MADV_HUGEPAGE);
    // Lowest address first, so a program fills its memory in order.
    for (size_t offset = kPieceBytes; offset > 0; offset -= kPageBytes) {
      free_.push_back(piece + offset - kPageBytes);
    }
    return true;
  }

  std::vector<void*> free_;
};

}  // namespace

PageMemory* ProcessPageMemory() {
  // Never destroyed: stores with static lifetime may outlast any order of destruction.
  static PageMemory* const memory = new HugePageMemory;
  return memory;
}

}  // namespace tvx
