// How an operation ended: it is done, or this is what failed, on which file and why.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>

#include "base/message.h"

namespace tvx {

enum class StatusKind : uint8_t {
  kOk,

  // Files that are opened, read or written. All but the last three can have a reason of the system.
  kMissing,      // no file or folder has that name
  kNoFile,       // a folder, a pipe or a device has that name, or nothing can have it
  kCannotOpen,   // the file cannot be opened, created or looked at
  kReadFailed,   // it was opened, and a read failed
  kWriteFailed,  // it was created, and not all of it could be written and put in place
  kChanged,      // it is shorter or was written to since it was opened or loaded
  kTooLarge,     // it is larger than such a file may be
  kWrongFormat,  // it is damaged or a file of another kind

  // Files that are not written.
  kRefusedName,  // such a file may not have that name
  kSameName,     // two files would have that name
  kPartSource,   // its content would come from files that could not be read whole
  kNoContent,    // there is nothing to write

  // Work of any kind.
  kNoMemory,
  kStopped,  // by the user

  // Programs that are loaded, looked at and recorded.
  kNoProgram,   // none that comes from a file is loaded
  kStoreFull,   // the store has no room for the second record of an arc
  kBlocksLost,  // the program is loaded, but some of its blocks found no place
  kTableFull,   // the table of results has no room

  // Programs that give no master model.
  kFewBlocks,
  kNoCut,     // no straight cut
  kTooWide,   // wider than the range of coordinates
  kBadSizes,  // of the tool or the cells
};

// Returned by whatever can fail. Cheap to make and to copy when nothing has failed.
class [[nodiscard]] Status {
 public:
  Status() = default;  // done
  // `path`: of the file, as the operation was given it; empty for work on no file. `reason`: an
  // errno value, 0 if the system has no reason.
  Status(StatusKind kind, std::string path = {}, int reason = 0)
      : path_(std::move(path)), reason_(reason), kind_(kind) {}

  // A file that could not be opened, created or looked at: of the kind that the reason says.
  static Status CannotOpen(std::string path, int reason);

  // The same failure, of a file that the caller knows by this path.
  Status For(std::string path) const {
    return ok() ? Status() : Status(kind_, std::move(path), reason_);
  }

  bool ok() const { return kind_ == StatusKind::kOk; }
  StatusKind kind() const { return kind_; }
  const std::string& path() const { return path_; }
  int reason() const { return reason_; }

  // The file is there, and what it holds is not known. False for a file that is missing or none.
  bool IsReadFailure() const;

  // Why it failed, in words without the path: those of the system if it has a reason ("No space
  // left on device"), else those of the kind ("has changed while it was read"). Empty if done.
  std::string Text(Language language = Language::kEnglish) const;

  bool operator==(const Status&) const = default;

 private:
  std::string path_;
  int reason_ = 0;
  StatusKind kind_ = StatusKind::kOk;
};

// The value of an operation, or why there is none: `value` is then as it is made without arguments.
template <typename T>
struct [[nodiscard]] Result {
  template <typename U>
  requires std::convertible_to<U, T> Result(U&& theValue) : value(std::forward<U>(theValue)) {}
  Result(Status theStatus) : status(std::move(theStatus)) {}

  bool ok() const { return status.ok(); }

  T value = T();
  Status status;
};

}  // namespace tvx
