// What word-address lines leave for the lines after them, and the G words of one line.
#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "control/canned_cycle.h"
#include "control/coordinates.h"
#include "control/g_words.h"
#include "control/moves.h"

namespace tvx {

enum class Motion : uint8_t { kRapid, kCut, kClockwise, kCounterclockwise };

enum class FeedMode : uint8_t {
  kPerMinute,    // G94
  kPerTurn,      // G95: F times S
  kInverseTime,  // G93: F is the inverse of the minutes of the move
};

// Radius and angle of G16.
struct PolarMode {
  bool isOn = false;
  double radius = 0;  // mm
  double angle = 0;   // degrees
};

// The state of a control when a program begins.
struct WordModes {
  Motion motion = Motion::kRapid;  // while a cycle is in force: that before it
  CannedCycle cycle;
  bool toInitialLevel = true;  // G98
  Plane plane = Plane::kXY;
  std::array<double, 2> units{};  // of lengths without and with a decimal point, mm
  bool isIncremental = false;
  bool isCentreAbsolute = false;  // G90.1
  FeedMode feedMode = FeedMode::kPerMinute;
  double feed = 0;     // the last F but those of G93; mm/min or mm per turn
  double spindle = 0;  // the last S
  double tool = 0;     // the last T
  PolarMode polar;
  Coordinates coordinates;
  Point localShift{};                              // G52
  Point originShift{};                             // G92
  std::pair<uint16_t, double> workOffset{540, 0};  // G word in tenths, and its P
};

// The G words of one line: the last one of each modal group.
class LineGroups {
 public:
  void Clear() {
    given_ = 0;
    takesP_ = false;
  }
  void Add(const GWord& word) {
    given_ |= Bit(word.group);
    last_[static_cast<size_t>(word.group)] = &word;
    takesP_ = takesP_ || word.takesP;
  }

  bool IsEmpty() const { return given_ == 0; }
  bool Has(GGroup group) const { return (given_ & Bit(group)) != 0; }
  // True if the line has words of this group and of no other one.
  bool IsOnly(GGroup group) const { return given_ == Bit(group); }
  // The word of a group that the line has.
  const GWord& operator[](GGroup group) const { return *last_[static_cast<size_t>(group)]; }
  // True if the line has this word and no later one of its group.
  bool Is(GGroup group, uint16_t tenths) const {
    return Has(group) && (*this)[group].tenths == tenths;
  }
  // True if a P word of the line belongs to one of the words.
  bool TakesP() const { return takesP_; }

 private:
  static constexpr uint32_t Bit(GGroup group) {
    return uint32_t{1} << static_cast<unsigned>(group);
  }

  uint32_t given_ = 0;
  bool takesP_ = false;
  std::array<const GWord*, static_cast<size_t>(GGroup::kCount)> last_{};
};

}  // namespace tvx
