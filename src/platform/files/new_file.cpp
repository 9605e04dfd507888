// A file is written beside its target and renamed when it is complete.
#include "platform/files/new_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/format.h"
#include "platform/files/files.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

// A leading dot hides the file; process and number keep it apart from those of others.
constexpr std::string_view kNameStart = ".tvx-";
constexpr std::string_view kNameEnd = ".tmp";

std::string TemporaryName(unsigned number) {
  return std::string(kNameStart) + Format("%ld-%u", static_cast<long>(::getpid()), number) +
         std::string(kNameEnd);
}

// The process of such a name, 0 for any other name.
pid_t ProcessOf(std::string_view name) {
  if (!name.starts_with(kNameStart) || !name.ends_with(kNameEnd)) return 0;
  name.remove_prefix(kNameStart.size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  return error == std::errc() && *end == '-' && process > 0 ? process : 0;
}

// Removes a file that its process left. A live process holds a lock on its file, which also
// protects one on another machine whose number means nothing here.
void RemoveLeftover(const fs::path& path, pid_t process) {
  if (!HasEnded(process) && process != ::getpid()) return;
  const Descriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (file.IsOpen() && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0) ::unlink(path.c_str());
}

// Once for each folder: the search costs time in a large one.
void RemoveLeftovers(const fs::path& folder) {
  static std::set<fs::path> searched;
  if (!searched.insert(folder).second) return;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const pid_t process = ProcessOf(entry->path().filename().native());
    if (process != 0) RemoveLeftover(entry->path(), process);
  }
}

// Follows links, so that the file behind them is replaced and not the link. Returns false, with the
// reason in errno, if a link cannot be read.
bool FollowLinks(fs::path* path) {
  constexpr int kMostLinks = 40;  // as the system itself follows
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const fs::path link = fs::read_symlink(*path, error);
    if (error) {
      errno = error.value();
      return errno == EINVAL || errno == ENOENT;  // no link, or nothing
    }
    *path = path->parent_path() / link;
  }
  errno = ELOOP;
  return false;
}

// Gives a file owner and rights of another, as far as the system allows.
void TakeRightsOver(int descriptor, const struct stat& other) {
  if (::fchown(descriptor, other.st_uid, other.st_gid) != 0) {
    // Only the superuser gives files away; the file then belongs to who wrote it.
  }
  ::fchmod(descriptor, other.st_mode & 07777);
}

// A program that was told to write the file may have put one of its own there, with other rights.
bool SyncReplacement(const fs::path& path, const struct stat& asCreated) {
  struct stat now {};
  if (::lstat(path.c_str(), &now) != 0) return false;
  if (now.st_ino == asCreated.st_ino) return true;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  if (!file.IsOpen()) return false;
  TakeRightsOver(file.Number(), asCreated);
  return ::fsync(file.Number()) == 0;
}

// Some file systems have no such operation for a folder, and one that may not be read is left out.
bool SyncFolder(int folder) {
  return folder < 0 || ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

NewFile::NewFile(const fs::path& target) : target_(target), status_(Create()) {}

Status NewFile::Create() {
  const auto failed = [this](int reason) { return Status::CannotOpen(target_, reason); };
  struct stat older {};
  if (!FollowLinks(&target_)) return failed(errno);
  const bool replaces = ::stat(target_.c_str(), &older) == 0;
  if (!replaces && errno != ENOENT) return failed(errno);
  if (replaces && S_ISDIR(older.st_mode)) return failed(EISDIR);
  if (replaces && !S_ISREG(older.st_mode)) return {StatusKind::kNoFile, target_};
  if (replaces && ::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0)
    return failed(errno);
  RemoveLeftovers(target_.parent_path());

  static unsigned number = 0;
  constexpr int kAttempts = 100;
  for (int i = 0; i < kAttempts; ++i) {
    const fs::path path = target_.parent_path() / TemporaryName(++number);
    const HeldSignals held;
    descriptor_ = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (descriptor_.IsOpen()) {
      registered_.emplace(path);
      ::flock(descriptor_.Number(), LOCK_EX | LOCK_NB);
      if (replaces) TakeRightsOver(descriptor_.Number(), older);
      path_ = path;
      return {};
    }
    if (errno != EEXIST) return failed(errno);
  }
  return failed(EEXIST);
}

NewFile::~NewFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

Status NewFile::PutInPlace(Sync sync) {
  const auto failed = [this](int reason) {
    return Status(StatusKind::kWriteFailed, target_, reason);
  };
  struct stat asCreated {};
  if (path_.empty() || ::fstat(descriptor_.Number(), &asCreated) != 0) return failed(errno);
  const Descriptor folder(
      ::open(target_.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen() && errno != EACCES) return failed(errno);
  if ((sync != Sync::kNone && ::fsync(descriptor_.Number()) != 0) ||
      !SyncReplacement(path_, asCreated) || !descriptor_.Close() ||
      ::rename(path_.c_str(), target_.c_str()) != 0) {
    return failed(errno);
  }
  path_.clear();
  registered_.reset();
  if (sync != Sync::kFileAndFolder || SyncFolder(folder.Number())) return {};
  return failed(errno);
}

}  // namespace tvx
