// The limits of a machine tool, and the text file that holds them (docs/formats/machine.md).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/message.h"
#include "platform/files/files.h"

namespace tvx {

// One value for each of the axes X, Y, Z.
using AxisValues = std::array<double, 3>;

// What a machine can do. All values are finite; feeds, accelerations and Factor are above 0, the
// others at least 0.
struct MachineProfile {
  std::string Name;                              // UTF-8
  AxisValues RapidFeed = {24000, 24000, 24000};  // mm/min
  AxisValues CutFeed = {12000, 12000, 12000};    // mm/min, the highest while cutting
  AxisValues Acceleration = {3000, 3000, 2000};  // mm/s^2
  double CornerTolerance = 0.02;  // mm by which the path may leave a corner; 0: stops at corners
  double BlockTime = 0;           // s, the shortest time for one move
  bool StopAtRapids = true;       // stands still between a rapid and a cut
  double ToolChange = 0;          // s for each tool change
  double Factor = 1;              // multiplies every time
};

enum class MachineFileError {
  kCannotBeRead,
  kTooLarge,
  kNotText,
  kUnknownKey,
  kDuplicateKey,
  kMissingValue,
  kTooManyValues,
  kNotANumber,
  kOutOfRange,  // negative or infinite; 0 where the value must be above 0; a switch not 0 or 1
};

// Why a machine file was refused.
struct MachineFileFault {
  MachineFileError error;
  int line = 0;  // 1-based; 0 where the whole file is at fault
  std::string key =
      {};            // the word at the start of the line; empty where the whole file is at fault
  Status read = {};  // why a file cannot be read
};

// The fault as a phrase without the file's name: "line 3: Factor: value out of range".
std::string FaultText(const MachineFileFault& fault, Language language);

// Parses the text of a machine file. A key that is missing keeps its default; Name is `name` then.
// Returns a fault for the first line that is wrong, with *profile unchanged.
std::optional<MachineFileFault> ParseMachineProfile(std::string_view text, std::string_view name,
                                                    MachineProfile* profile);

// The same for a file, by its drive path; its name without directory is the default Name. Files of
// more than kLargestMachineFile bytes are refused.
std::optional<MachineFileFault> ReadMachineProfile(const std::string& path, Files* files,
                                                   MachineProfile* profile);
inline constexpr uint64_t kLargestMachineFile = 1 << 20;  // bytes

// All keys with their values, one a line, in the form that ParseMachineProfile reads back to the
// same values. Lines end in LF.
std::string MachineProfileText(const MachineProfile& profile);

// Creates or replaces a machine file. An older file is unchanged if that fails.
Status WriteMachineProfile(const std::string& path, const MachineProfile& profile, Files* files);

}  // namespace tvx
