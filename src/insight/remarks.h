// The remarks of the program check: their ids and texts, and the lists of those found in a program.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "platform/files/files.h"

namespace tvx {

// All remarks, in the order of output.
enum class RemarkId : uint8_t {
  kOtherFormat,
  kNoMoves,
  kCommentHidesLine,
  kCutOffByC,
  kWordWithoutNumber,
  kLineTooLong,
  kLastLine,
  kBlockReplaced,
  kStoreFull,
  kBeforeMotion,
  kFeedZero,
  kSubprogram,
  kCycle,
  kMacro,
  kRotary,
  kInch,
  kPlane,
  kShift,
  kCompensation,
  kRapidByFeed,
  kArcEndsElsewhere,
  kArcRadiusShort,
  kArcsNotTimed,
  kDwell,
  kToolChange,
  kStop,
  kCount,  // how many
};
inline constexpr size_t kRemarkIds = static_cast<size_t>(RemarkId::kCount);

enum class RemarkClass : uint8_t {
  kLost,     // something of the program is missing from path or figures
  kChanged,  // something is understood otherwise than by a machine
  kNote,
};

// A remark. The help says what the figures do with such a line and what the user can do.
struct RemarkKind {
  RemarkId id;
  RemarkClass remarkClass;
  std::string_view name;  // as printed and in JSON
  Message text;
  Message help;
};

// One row for each id, in the order of output.
std::span<const RemarkKind> RemarkKinds();

// "lost", "changed", "note". The English text is the name in JSON, too.
const Message& TextOf(RemarkClass remarkClass);

struct Remark {
  uint64_t line = 0;   // of the program, from 1
  std::string detail;  // the word in question, UTF-8; may be empty
};

struct RemarkList {
  uint64_t count = 0;          // of all remarks
  std::vector<Remark> stored;  // the first of them, in the order of their lines
};

// What the check found in one program. Lists are bounded, counts and sums are exact.
struct ProgramCheck {
  std::array<RemarkList, kRemarkIds> lists;  // by RemarkId
  uint64_t lines = 0;       // of the program, a last one without line feed included
  FileStamp stamp;          // of the file that was checked
  Status read;              // why it could not be read to its end
  double dwellSeconds = 0;  // sum of all dwells
  uint64_t toolChanges = 0;

  RemarkList& Of(RemarkId id) { return lists[static_cast<size_t>(id)]; }
  const RemarkList& Of(RemarkId id) const { return lists[static_cast<size_t>(id)]; }
  // The number of remarks of a class.
  uint64_t Count(RemarkClass remarkClass) const;
};

}  // namespace tvx
