// A file is written beside its target and renamed when it is complete.
#include "platform/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/format.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

// Where a path leads when it is a link, so that a file behind one is replaced and not the link.
fs::path BehindLinks(fs::path path) {
  constexpr int kMostLinks = 40;  // as the system itself follows
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path;
}

// Gives a file owner and rights of another, as far as the system allows.
void TakeRightsOver(int descriptor, const struct stat& other) {
  if (::fchown(descriptor, other.st_uid, other.st_gid) != 0) {
    // Only the superuser gives files away; the file then belongs to who wrote it.
  }
  ::fchmod(descriptor, other.st_mode & 07777);
}

bool IsWritableFile(const fs::path& path, const struct stat& status) {
  return S_ISREG(status.st_mode) && ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

// A program that was told to write the file may have put one of its own there, with other rights.
void RestoreRights(const fs::path& path, const struct stat& asCreated) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  struct stat now {};
  if (file.IsOpen() && ::fstat(file.Number(), &now) == 0 && now.st_ino != asCreated.st_ino) {
    TakeRightsOver(file.Number(), asCreated);
  }
}

}  // namespace

NewFile::NewFile(const fs::path& target) : target_(BehindLinks(target)) {
  struct stat older {};
  const bool replaces = ::stat(target_.c_str(), &older) == 0;
  if (replaces ? !IsWritableFile(target_, older) : errno != ENOENT) return;

  // A leading dot hides the file, process and number keep it apart from those of others.
  static unsigned number = 0;
  constexpr int kAttempts = 100;
  for (int i = 0; i < kAttempts; ++i) {
    const fs::path path =
        target_.parent_path() / Format(".tvx-%ld-%u.tmp", static_cast<long>(::getpid()), ++number);
    descriptor_ = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (descriptor_.IsOpen()) {
      if (replaces) TakeRightsOver(descriptor_.Number(), older);
      path_ = path;
      return;
    }
    if (errno != EEXIST) return;
  }
}

NewFile::~NewFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

bool NewFile::PutInPlace() {
  struct stat asCreated {};
  if (path_.empty() || ::fstat(descriptor_.Number(), &asCreated) != 0) return false;
  RestoreRights(path_, asCreated);
  if (!descriptor_.Close() || ::rename(path_.c_str(), target_.c_str()) != 0) return false;
  path_.clear();
  return true;
}

}  // namespace tvx
