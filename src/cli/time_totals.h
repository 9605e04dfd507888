// Sums of the times of several programs, before and after the feed adjustment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tvx {

// The time of a program before its feeds are adjusted, and its highest feed.
struct ProgrammedTime {
  float minutes = 0;
  int32_t feed = 0;  // mm/min
};

// Remarks on standard error that a program takes longer after the adjustment, if the conditions
// hold its feeds below its own; not with --quiet.
void NoteLongerTime(const std::string& file, const ProgrammedTime& before, float after,
                    int32_t MaxFeed);

struct TimeTotals {
  size_t programs = 0;
  double programmed = 0, adjusted = 0;  // minutes

  void Add(double before, double after) {
    ++programs;
    programmed += before;
    adjusted += after;
  }
  // "programmed 65.20 min (1:05:12), adjusted ..., saved ...", a line; without an adjustment only
  // the first of the three.
  std::string Line(bool adjusts) const;
};

}  // namespace tvx
