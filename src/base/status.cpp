// The words of the kinds; those of the reasons are the system's.
#include "base/status.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

namespace tvx {

namespace {

Message WordsOf(StatusKind kind) {
  switch (kind) {
    case StatusKind::kOk:
      return {"", ""};
    case StatusKind::kMissing:
      return {"화일이 없습니다", "no such file"};
    case StatusKind::kNoFile:
      return {"일반 화일이 아닙니다", "is no plain file"};
    case StatusKind::kCannotOpen:
      return {"열 수 없습니다", "cannot be opened"};
    case StatusKind::kReadFailed:
      return {"읽을 수 없습니다", "cannot be read"};
    case StatusKind::kWriteFailed:
      return {"쓸 수 없습니다", "cannot be written"};
    case StatusKind::kChanged:
      return {"읽는 동안 바뀌었습니다", "has changed while it was read"};
    case StatusKind::kTooLarge:
      return {"4 MiB보다 큽니다", "is larger than 4 MiB"};
    case StatusKind::kWrongFormat:
      return {"손상되었거나 다른 종류의 화일입니다", "is damaged or a file of another kind"};
    case StatusKind::kRefusedName:
      return {"사용할 수 없는 이름입니다", "the name is not allowed"};
    case StatusKind::kSameName:
      return {"이름이 같은 화일이 두 개 있습니다", "two files have the same name"};
    case StatusKind::kPartSource:
      return {"여기에 쓸 프로그램이나 마스터 모델을 읽지 못했습니다",
              "a program or master model for it could not be read"};
    case StatusKind::kNoContent:
      return {"쓸 내용이 없습니다", "there is nothing to write"};
    case StatusKind::kNoMemory:
      return {"메모리가 모자랍니다", "out of memory"};
    case StatusKind::kStopped:
      return {"중지했습니다", "was stopped"};
    case StatusKind::kNoProgram:
      return {"화일에서 불러온 프로그램이 아닙니다", "the program comes from no file"};
    case StatusKind::kStoreFull:
      return {"저장할 수 있는 블록 수를 넘습니다", "does not fit into the store"};
    case StatusKind::kBlocksLost:
      return {"저장하지 못한 블록이 있습니다", "blocks found no place in the store"};
    case StatusKind::kTableFull:
      return {"결과 목록이 가득 찼습니다", "the list of results is full"};
    case StatusKind::kFewBlocks:
      return {"마스터 모델을 만들기에는 너무 짧습니다. 5줄 이상이어야 합니다",
              "is too short for a master model: it takes 5 lines"};
    case StatusKind::kNoCut:
      return {"마스터 모델을 만들 수 없습니다: 직선 절삭이 없습니다",
              "gives no master model: it has no straight cut"};
    case StatusKind::kTooWide:
      return {"마스터 모델을 만들 수 없습니다: 가공 범위가 32700 mm보다 넓습니다",
              "gives no master model: the part is wider than 32700 mm"};
    case StatusKind::kBadSizes:
      return {
          "이 크기로는 마스터 모델을 만들 수 없습니다: 공차는 0보다 크고 가공 범위에 비해 너무 "
          "작지 않아야 합니다",
          "gives no master model with these sizes: the tolerance has to be above 0, and coarse "
          "enough for the size of the part"};
  }
  return {"", ""};
}

// The reasons that users meet; the system has English words for the others.
struct ReasonText {
  int reason;
  Message text;
};

constexpr ReasonText kReasons[] = {
    {ENOENT, {"화일이 없습니다", "No such file or directory"}},
    {ENOTDIR, {"디렉토리가 아닙니다", "Not a directory"}},
    {EISDIR, {"디렉토리입니다", "Is a directory"}},
    {EACCES, {"권한이 없습니다", "Permission denied"}},
    {EPERM, {"허용되지 않습니다", "Operation not permitted"}},
    {EROFS, {"읽기 전용입니다", "Read-only file system"}},
    {ENOSPC, {"디스크가 가득 찼습니다", "No space left on device"}},
    {EFBIG, {"화일이 너무 큽니다", "File too large"}},
    {EIO, {"입출력 오류입니다", "Input/output error"}},
    {ENAMETOOLONG, {"이름이 너무 깁니다", "File name too long"}},
    {ELOOP, {"심볼릭 링크가 너무 많습니다", "Too many levels of symbolic links"}},
};

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

std::string Status::Text(Language language) const {
  if (reason_ == 0) return WordsOf(kind_).In(language);
  if (language == Language::kEnglish) return std::strerror(reason_);
  const auto* const row = std::ranges::find(kReasons, reason_, &ReasonText::reason);
  return row == std::end(kReasons) ? std::strerror(reason_) : row->text.In(language);
}

}  // namespace tvx
