// Canned cycles: one hole as a sequence of moves.
#pragma once

#include <cstdint>
#include <optional>

#include "control/path_writer.h"
#include "control/run_limit.h"

namespace tvx {

enum class Peck : uint8_t {
  kNone,       // one cut
  kFull,       // back to the retract level after each cut
  kChipBreak,  // a short way back after each cut
};

struct CycleKind {
  uint16_t tenths;  // of the G word
  Peck peck;
  bool cutsBack;  // back to the retract level as a cut
};

// The cycle of a G word in tenths, or null.
const CycleKind* FindCycle(uint16_t tenths);

// What a cycle keeps from line to line. Levels are values of Z in the program, mm: a shift moves
// them.
struct CannedCycle {
  const CycleKind* kind = nullptr;  // null while no cycle is in force
  double initialLevel = 0;
  std::optional<double> retractLevel;  // the initial level if it is not given
  std::optional<double> bottom;
  double peck = 0;   // mm; 0: one cut
  double dwell = 0;  // seconds at the bottom

  double Retract() const { return retractLevel.value_or(initialLevel); }

  // The cycle with its levels on the path, above those of the program by `shift`.
  CannedCycle Shifted(double shift) const;
};

// Runs a cycle with levels on the path, one of them the bottom, once at X and Y of `place`. False
// if the limit has ended the run within it.
bool RunCycle(const CannedCycle& cycle, const Point& place, const CutFeed& feed,
              bool toInitialLevel, PathWriter* path, RunLimit* limit);

}  // namespace tvx
