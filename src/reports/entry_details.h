// What the job sheet shows of a result beside its fields.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "insight/feed_causes.h"
#include "insight/machine_profile.h"
#include "insight/machine_time.h"
#include "insight/remarks.h"
#include "model/nc_program.h"

namespace tvx {

struct MachineEstimate {
  MachineProfile profile;
  MachineTime time;
};

// Numbers of remarks by RemarkId.
using RemarkCounts = std::array<uint64_t, kRemarkIds>;

// Kept with a result while ResultTable::wanted says so. Nothing in it is a field of a file.
struct EntryDetails {
  std::optional<CutFigures> programmed;    // before the feed adjustment
  std::optional<CauseMinutes> causes;      // if the adjustment was followed
  std::optional<MachineEstimate> machine;  // if a machine was chosen
  std::optional<RemarkCounts> remarks;     // once the program has been checked
  // Pictures for the job sheet, kSheetPicture in size; empty for none.
  std::string svg;  // empty, with `png` in its place, if it would be larger than kLargestSvg
  std::string png;
  std::string workbookPng;  // kWorkbookPicture in size

  static constexpr size_t kLargestSvg = 300 * 1024;  // bytes
};

struct PictureSize {
  int32_t width, height;  // pixels
};
inline constexpr PictureSize kSheetPicture = {640, 480};
inline constexpr PictureSize kWorkbookPicture = {320, 240};

}  // namespace tvx
