// The G and M codes that the program check knows.
#pragma once

#include <array>
#include <cstddef>

#include "insight/remarks.h"

namespace tvx {

struct NcCode {
  char letter;
  double number;
  RemarkId id;
};

inline constexpr NcCode kNcCodes[] = {
    {'M', 98, RemarkId::kSubprogram},   {'M', 198, RemarkId::kSubprogram},
    {'G', 65, RemarkId::kSubprogram},   {'G', 66, RemarkId::kSubprogram},
    {'G', 73, RemarkId::kCycle},        {'G', 74, RemarkId::kCycle},
    {'G', 76, RemarkId::kCycle},        {'G', 81, RemarkId::kCycle},
    {'G', 82, RemarkId::kCycle},        {'G', 83, RemarkId::kCycle},
    {'G', 84, RemarkId::kCycle},        {'G', 85, RemarkId::kCycle},
    {'G', 86, RemarkId::kCycle},        {'G', 87, RemarkId::kCycle},
    {'G', 88, RemarkId::kCycle},        {'G', 89, RemarkId::kCycle},
    {'G', 20, RemarkId::kInch},         {'G', 70, RemarkId::kInch},
    {'G', 18, RemarkId::kPlane},        {'G', 19, RemarkId::kPlane},
    {'G', 10, RemarkId::kShift},        {'G', 50.1, RemarkId::kShift},
    {'G', 51, RemarkId::kShift},        {'G', 51.1, RemarkId::kShift},
    {'G', 52, RemarkId::kShift},        {'G', 68, RemarkId::kShift},
    {'G', 92, RemarkId::kShift},        {'G', 41, RemarkId::kCompensation},
    {'G', 42, RemarkId::kCompensation}, {'G', 4, RemarkId::kDwell},
    {'M', 6, RemarkId::kToolChange},    {'M', 0, RemarkId::kStop},
    {'M', 1, RemarkId::kStop},
};

// Ends what G18 and G19 begin.
inline constexpr double kXyPlane = 17;

// Which codes of one or two digits the check has to look at.
inline constexpr size_t kShortCodes = 100;
constexpr std::array<bool, kShortCodes> CheckedCodes(char letter) {
  std::array<bool, kShortCodes> checked{};
  for (const NcCode& code : kNcCodes) {
    if (code.letter == letter && code.number < kShortCodes) {
      checked[static_cast<size_t>(code.number)] = true;
    }
  }
  if (letter == 'G') checked[static_cast<size_t>(kXyPlane)] = true;
  return checked;
}

}  // namespace tvx
