// The table of G words.
#pragma once

#include <cstdint>

#include "control/reading_remarks.h"

namespace tvx {

// G words of one modal group replace each other: the last one of a line counts.
enum class GGroup : uint8_t {
  kNone,      // no effect
  kUnknown,   // not read
  kMotion,    // G0 to G3 and the cycles
  kProbe,     // a straight cut in this line
  kCycleEnd,  // G80
  kPlane,
  kUnits,
  kDistance,     // G90, G91
  kArcDistance,  // G90.1, G91.1
  kFeedMode,
  kRetractLevel,  // G98, G99
  kPolar,
  kTurnEnd,      // G69
  kOriginReset,  // G92.1, G92.2
  kCutterSide,   // G40 to G42
  kOffset,       // G54 and others
  kMachineMove,  // G53
  kLine,         // takes the line, which makes no move
  kCount,        // how many
};

// The numbers of G words are in tenths: 541 is G54.1.
struct GWord {
  uint16_t tenths;
  GGroup group;
  bool takesP = false;  // a P word of the line belongs to it
  // Of a word that takes the line without an effect.
  ReadingRemarkId remark = ReadingRemarkId::kCount;
};

// The row of a G word; that of the group kUnknown for others.
const GWord& FindGWord(double number);

}  // namespace tvx
