// The words of the kinds; those of the reasons are the system's.
#include "base/status.h"

#include <cerrno>
#include <cstring>

namespace tvx {

namespace {

const char* WordsOf(StatusKind kind) {
  switch (kind) {
    case StatusKind::kOk:
      return "";
    case StatusKind::kMissing:
      return "no such file";
    case StatusKind::kNoFile:
      return "is no plain file";
    case StatusKind::kCannotOpen:
      return "cannot be opened";
    case StatusKind::kReadFailed:
      return "cannot be read";
    case StatusKind::kWriteFailed:
      return "cannot be written";
    case StatusKind::kChanged:
      return "has changed while it was read";
    case StatusKind::kTooLarge:
      return "is larger than 4 MiB";
    case StatusKind::kWrongFormat:
      return "is damaged or a file of another kind";
    case StatusKind::kRefusedName:
      return "the name is not allowed";
    case StatusKind::kSameName:
      return "two files have the same name";
    case StatusKind::kPartSource:
      return "a program or master model for it could not be read";
    case StatusKind::kNoContent:
      return "there is nothing to write";
    case StatusKind::kNoMemory:
      return "out of memory";
    case StatusKind::kStopped:
      return "was stopped";
    case StatusKind::kNoProgram:
      return "the program comes from no file";
    case StatusKind::kStoreFull:
      return "does not fit into the store";
    case StatusKind::kBlocksLost:
      return "blocks found no place in the store";
    case StatusKind::kTableFull:
      return "the list of results is full";
    case StatusKind::kFewBlocks:
      return "is too short for a master model: it takes 5 lines";
    case StatusKind::kNoCut:
      return "gives no master model: it has no straight cut";
    case StatusKind::kTooWide:
      return "gives no master model: the part is wider than 32700 mm";
    case StatusKind::kBadSizes:
      return "gives no master model with these sizes: the tolerance has to be above 0, and coarse "
             "enough for the size of the part";
  }
  return "";
}

}  // namespace

Status Status::CannotOpen(std::string path, int reason) {
  StatusKind kind = StatusKind::kCannotOpen;
  if (reason == ENOENT || reason == ENOTDIR) kind = StatusKind::kMissing;
  if (reason == EISDIR || reason == ENAMETOOLONG) kind = StatusKind::kNoFile;
  return {kind, std::move(path), reason};
}

bool Status::IsReadFailure() const {
  switch (kind_) {
    case StatusKind::kCannotOpen:
    case StatusKind::kReadFailed:
    case StatusKind::kChanged:
    case StatusKind::kTooLarge:
      return true;
    default:
      return false;
  }
}

std::string Status::Text() const {
  return reason_ != 0 ? std::strerror(reason_) : WordsOf(kind_);
}

}  // namespace tvx
