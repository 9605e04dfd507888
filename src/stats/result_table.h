#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/result_entry.h"

namespace tvx {

inline constexpr size_t kResultEntries = 300;

// The recorded results of one window, in the order of recording. It lives as long as the window and
// is not saved by itself: the reports are its only lasting form.
struct ResultTable {
  std::vector<CutTimeEntry> entries = std::vector<CutTimeEntry>(kResultEntries);
  int32_t entryCount = 0;  // entries from index 0 that are valid
};

}  // namespace tvx
