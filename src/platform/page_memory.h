// Memory of the block store.
#pragma once

#include <cstddef>

namespace tvx {

// Where the block store gets its pages. Tests put a memory that runs out in its place.
class PageMemory {
 public:
  static constexpr size_t kPageBytes = 65536;

  virtual ~PageMemory() = default;
  // One page of kPageBytes, aligned for any record and not cleared; null when there is none left.
  virtual void* Allocate() = 0;
  // Takes back a page that Allocate gave.
  virtual void Free(void* page) = 0;
};

// The memory of this process. Pages come from large pieces that the system can back with huge
// pages, so the first touch of a big program costs little; a page that is freed serves the next
// store, and nothing is given back to the system before the process ends. Not safe across threads.
PageMemory* ProcessPageMemory();

}  // namespace tvx
