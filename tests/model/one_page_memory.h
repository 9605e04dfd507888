#pragma once

#include "platform/page_memory.h"

namespace tvx {

// Memory that runs out after one page of 2041 blocks.
class OnePageMemory : public PageMemory {
 public:
  void* Allocate() override {
    if (given_) return nullptr;
    given_ = true;
    return ProcessPageMemory()->Allocate();
  }
  void Free(void* page) override { ProcessPageMemory()->Free(page); }

 private:
  bool given_ = false;
};

}  // namespace tvx
