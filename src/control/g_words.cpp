#include "control/g_words.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace tvx {
namespace {

using enum GGroup;
constexpr ReadingRemarkId kNotRead = ReadingRemarkId::kNotRead;
constexpr ReadingRemarkId kShift = ReadingRemarkId::kShift;

// clang-format off
constexpr GWord kGWords[] = {
    {0, kUnknown},  // what is not in the table
    {0, kMotion}, {10, kMotion}, {20, kMotion}, {30, kMotion},
    {40, kLine, true},
    {50, kNone, true}, {51, kNone, true},
    {52, kLine, false, kNotRead}, {53, kLine, false, kNotRead}, {62, kLine, false, kNotRead},
    {80, kNone, true}, {90, kNone},
    {100, kLine, false, kShift},
    {110, kNone},
    {120, kLine, false, kNotRead}, {130, kLine, false, kNotRead},
    {131, kNone},
    {150, kPolar}, {160, kPolar},
    {170, kPlane}, {180, kPlane}, {190, kPlane},
    {200, kUnits}, {210, kUnits}, {700, kUnits}, {710, kUnits},
    {220, kNone}, {230, kNone},
    {280, kLine}, {300, kLine, true},
    {281, kLine, false, kNotRead}, {301, kLine, false, kNotRead},
    {310, kProbe}, {382, kProbe}, {383, kProbe}, {384, kProbe}, {385, kProbe},
    {330, kLine, false, kNotRead}, {331, kLine, false, kNotRead},
    {400, kCutterSide}, {410, kCutterSide}, {420, kCutterSide},
    {430, kNone}, {440, kNone}, {490, kNone},
    {431, kLine, false, kNotRead},
    {500, kNone},
    {501, kLine, false, kShift}, {510, kLine, false, kShift}, {511, kLine, false, kShift},
    {520, kLine},
    {530, kMachineMove},
    {540, kOffset}, {550, kOffset}, {560, kOffset},
    {570, kOffset}, {580, kOffset}, {590, kOffset},
    {591, kOffset}, {592, kOffset}, {593, kOffset},
    {541, kOffset, true}, {1540, kOffset, true},
    {600, kNone},
    {610, kNone, true}, {620, kNone, true}, {630, kNone, true},
    {640, kNone, true},
    {650, kLine}, {660, kLine, false, kNotRead},
    {670, kNone},
    {680, kLine}, {690, kTurnEnd},
    {682, kLine, false, kNotRead},
    {760, kLine, false, kNotRead}, {870, kLine, false, kNotRead}, {880, kLine, false, kNotRead},
    {730, kMotion}, {740, kMotion}, {810, kMotion}, {820, kMotion}, {830, kMotion},
    {840, kMotion}, {850, kMotion}, {860, kMotion}, {890, kMotion},
    {800, kCycleEnd},
    {900, kDistance}, {910, kDistance},
    {901, kArcDistance}, {911, kArcDistance},
    {920, kLine}, {921, kOriginReset}, {922, kOriginReset},
    {930, kFeedMode}, {940, kFeedMode}, {950, kFeedMode},
    {970, kNone},
    {980, kRetractLevel}, {990, kRetractLevel},
    {1030, kNone, true}, {1870, kNone, true},
};
// clang-format on

constexpr size_t kTenths = 2000;  // up to G199.9

constexpr std::array<uint8_t, kTenths> kRowOf = [] {
  std::array<uint8_t, kTenths> rows{};
  for (size_t row = 1; row < std::size(kGWords); ++row) {
    rows[kGWords[row].tenths] = static_cast<uint8_t>(row);
  }
  return rows;
}();

}  // namespace

const GWord& FindGWord(double number) {
  const double tenths = number * 10;
  if (!(tenths >= 0 && tenths < kTenths)) return kGWords[0];
  const auto nearest = static_cast<size_t>(std::lround(tenths));
  if (nearest >= kTenths || std::abs(tenths - static_cast<double>(nearest)) > 1e-6) {
    return kGWords[0];
  }
  return kGWords[kRowOf[nearest]];
}

}  // namespace tvx
