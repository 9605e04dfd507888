// The result of one program: its figures, and what else was wanted of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "evaluate/program_checks.h"
#include "insight/feed_causes.h"
#include "insight/machine_profile.h"
#include "insight/machine_time.h"
#include "insight/remarks.h"
#include "model/nc_program.h"
#include "model/result_entry.h"

namespace tvx {

// What is to be found out about a program beside its figures; each takes time and memory.
struct Wanted {
  bool programmed = false;       // the figures before the feed adjustment
  bool causes = false;           // if the adjustment is followed
  bool machine = false;          // if a machine was chosen
  bool sheetPicture = false;     // kSheetPicture in size
  bool workbookPicture = false;  // kWorkbookPicture in size
  // A program that was to be checked before its load and could not be gives an incomplete result.
  // Not for a check that is done afterwards: it arrives in FileCheck.
  bool check = false;
};

// Everything that one of the two wants.
Wanted Union(const Wanted& a, const Wanted& b);

struct MachineEstimate {
  MachineProfile profile;
  MachineTime moves;  // without dwells and tool changes, which the check counts
};

// Pictures of the path, turned as in the window and fitted to their size; empty for none.
struct ResultPictures {
  std::string svg;  // for the job sheet; empty, with `png` in its place, above kLargestSvg
  std::string png;
  std::string workbookPng;

  static constexpr size_t kLargestSvg = size_t{300} * 1024;  // bytes
};

struct PictureSize {
  int32_t width, height;  // pixels
};
inline constexpr PictureSize kSheetPicture = {640, 480};
inline constexpr PictureSize kWorkbookPicture = {320, 240};

// Evaluate (evaluate/evaluation.h) makes it. Only the entry is stored in files as it is.
struct ProgramResult {
  CutTimeEntry entry = {};
  std::optional<ProgrammedFigures> programmed = {};  // of an adjusted program
  std::optional<CauseMinutes> causes = {};
  std::optional<MachineEstimate> machine = {};
  // Shared with whoever does the check: a check that is under way changes its state once it has
  // ended. Null for a program that is not checked. Read it by CheckOf.
  std::shared_ptr<const FileCheck> check = {};
  ResultPictures pictures = {};
  // The program or its master model could not be read whole, or could not be checked for what was
  // wanted. No report of such results is written.
  bool isIncomplete = false;
};

// What the check of the program found; null if there is none, and as long as it is under way.
const ProgramCheck* CheckOf(const ProgramResult& result);

// Numbers of remarks by RemarkId.
using RemarkCounts = std::array<uint64_t, kRemarkIds>;
std::optional<RemarkCounts> RemarksOf(const ProgramResult& result);

// The time on the machine, with the dwells and tool changes as far as the program has been checked.
std::optional<MachineTime> MachineTimeOf(const ProgramResult& result);

// Total minutes before the feed adjustment, which changes no rapid. Nothing if they are not known.
std::optional<float> MinutesBefore(const ProgramResult& result);

// The checks of all results, each once, and after them that of the program loaded last unless it is
// one of these or null.
std::vector<std::shared_ptr<const FileCheck>> ChecksOf(
    std::span<const ProgramResult> results, const std::shared_ptr<const FileCheck>& loaded);

bool HasIncomplete(std::span<const ProgramResult> results);

}  // namespace tvx
