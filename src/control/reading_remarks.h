// The remarks that the control reading makes while it runs a program.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// In the order in which the remarks of one line are listed.
enum class ReadingRemarkId : uint8_t {
  kNotRead,           // a word or line that has no effect
  kMachinePosition,   // a move to a place that only the machine knows
  kWorkOffset,        // another work offset is chosen between the moves
  kSubprogram,        // a call that runs nothing
  kMacro,             // a statement that is not run, or an operation without a value
  kCycle,             // a cycle that is not run
  kShift,             // a change of coordinates that has no effect
  kRotary,            // a word of an axis other than X, Y and Z
  kCompensation,      // the path is the programmed one
  kArcEndsElsewhere,  // the radii at start and end of an arc differ
  kArcRadiusShort,    // the radius is shorter than half the chord
  kEndless,           // the run was ended since it did not end by itself
  kCount,             // how many
};
inline constexpr size_t kReadingRemarkIds = static_cast<size_t>(ReadingRemarkId::kCount);

// "not-read", "machine-position".
std::string_view ReadingRemarkName(ReadingRemarkId id);

struct ReadingRemark {
  uint64_t line = 0;  // source line, from 1
  ReadingRemarkId id = ReadingRemarkId::kNotRead;
  std::string detail;  // the word in question; may be empty
};

// Collects the remarks of one program. A line that is run many times gets each remark once.
class ReadingRemarks {
 public:
  // True if the line does not have the remark yet. It has it from now on.
  bool IsNew(uint64_t line, ReadingRemarkId id);

  // Adds a remark unless the line has it.
  void Add(uint64_t line, ReadingRemarkId id, std::string_view detail) {
    if (IsNew(line, id)) stored_.push_back({line, id, std::string(detail)});
  }

  // Sorts the remarks by line and id and returns them.
  const std::vector<ReadingRemark>& Sorted();

 private:
  // The remarks of 4,096 lines, a bit for each id. Most programs have remarks in few places.
  static constexpr uint64_t kPageLines = 4096;
  using Page = std::array<uint16_t, kPageLines>;

  std::vector<std::unique_ptr<Page>> pages_;
  std::vector<ReadingRemark> stored_;
};

}  // namespace tvx
