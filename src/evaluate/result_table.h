// The table of recorded results.
#pragma once

#include <cstddef>
#include <vector>

#include "evaluate/program_result.h"

namespace tvx {

inline constexpr size_t kResultEntries = 300;

// How far the last run over a job list came.
struct RunEnd {
  size_t done = 0;  // entries
  size_t count = 0;
  bool WasStopped() const { return done < count; }
};

// The recorded results of one window, in the order of recording. It lives as long as the window and
// is not saved by itself: the reports are its only lasting form.
struct ResultTable {
  std::vector<ProgramResult> recorded;  // at most kResultEntries
  bool isReported = true;               // false after a recording until a report of it is written
  RunEnd runEnd;                        // of the last run that appended to it

  bool IsFull() const { return recorded.size() >= kResultEntries; }
};

}  // namespace tvx
