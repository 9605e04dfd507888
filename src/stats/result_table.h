// The table of recorded results.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/result_entry.h"

namespace tvx {

inline constexpr size_t kResultEntries = 300;

// How far the last run over a job list came.
struct RunEnd {
  size_t done = 0;  // entries
  size_t count = 0;
  bool WasStopped() const { return done < count; }
};

// Which details are kept with the results; each takes time and memory.
struct DetailsWanted {
  bool sheet = false;     // for the job sheet
  bool workbook = false;  // for the workbook file

  bool Any() const { return sheet || workbook; }
};

// The recorded results of one window, in the order of recording. It lives as long as the window and
// is not saved by itself: the reports are its only lasting form.
struct ResultTable {
  std::vector<CutTimeEntry> entries = std::vector<CutTimeEntry>(kResultEntries);
  int32_t entryCount = 0;  // entries from index 0 that are valid
  bool isReported = true;  // false after a recording until a report of it is written
  RunEnd runEnd;           // of the last run that appended to it
  DetailsWanted wanted;

  // The valid entries.
  std::span<CutTimeEntry> Recorded() { return {entries.data(), static_cast<size_t>(entryCount)}; }
  std::span<const CutTimeEntry> Recorded() const {
    return {entries.data(), static_cast<size_t>(entryCount)};
  }
  // True if an entry is of a program that could not be read whole. No report is written then.
  bool HasPart() const {
    return std::ranges::any_of(Recorded(), [](const CutTimeEntry& entry) { return entry.isPart; });
  }
};

}  // namespace tvx
