// The files of the host behind the interface of files.h.
#include "platform/files/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/files/descriptor.h"
#include "platform/files/drives.h"
#include "platform/files/new_file.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

constexpr size_t kBufferSize =
    size_t{64} * 1024;  // bytes; a piece large enough to make calls cheap

// Reads up to `size` bytes: how many, 0 at the end, -1 on a failure.
ssize_t ReadSome(int descriptor, char* buffer, size_t size) {
  ssize_t count;
  do {
    count = ::read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

// Writes all bytes at `offset`. Returns 0, or the errno value of what failed.
int WriteAll(int descriptor, uint64_t offset, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        ::pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return errno;
    bytes.remove_prefix(static_cast<size_t>(count));
    offset += static_cast<uint64_t>(count);
  }
  return 0;
}

FileStamp StampOf(const struct stat& status) {
  constexpr int64_t kNanoseconds = 1'000'000'000;  // per second
  return {static_cast<uint64_t>(status.st_size),
          status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

struct OpenedFile {
  Descriptor descriptor;
  FileStamp stamp;
};

// Pipes and devices are refused like directories: they have no size and might never end. (Not
// blocking, since the mere opening of a pipe waits for its other side.) `path`: of `host`, for the
// failure.
Result<OpenedFile> OpenPlainFile(const fs::path& host, int flags, const std::string& path) {
  Descriptor file(::open(host.c_str(), flags | O_RDONLY | O_CLOEXEC | O_NONBLOCK, 0666));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) {
    const int reason = errno;
    return Status::CannotOpen(path, reason);
  }
  if (S_ISDIR(status.st_mode)) return Status::CannotOpen(path, EISDIR);
  if (!S_ISREG(status.st_mode)) return Status(StatusKind::kNoFile, path);
  return OpenedFile{std::move(file), StampOf(status)};
}

class HostInputFile : public InputFile {
 public:
  HostInputFile(OpenedFile file, std::string path)
      : file_(std::move(file.descriptor)), stamp_(file.stamp), path_(std::move(path)) {}

  size_t Read(char* buffer, size_t size) override {
    const ssize_t count = ReadSome(file_.Number(), buffer, size);
    if (count > 0) {
      position_ += static_cast<uint64_t>(count);
      return static_cast<size_t>(count);
    }
    if (size > 0) status_ = count < 0 ? ReadFailed(errno) : StatusAtEnd();
    return 0;
  }

  size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
    ssize_t count;
    do {
      count = ::pread(file_.Number(), buffer, size, static_cast<off_t>(offset));
    } while (count < 0 && errno == EINTR);
    if (count < 0) status_ = ReadFailed(errno);
    return count > 0 ? static_cast<size_t>(count) : 0;
  }

  FileStamp Stamp() override { return stamp_; }

  Status status() const override { return status_; }

 private:
  Status ReadFailed(int reason) const { return {StatusKind::kReadFailed, path_, reason}; }

  Status StatusAtEnd() const {
    struct stat now {};
    if (::fstat(file_.Number(), &now) != 0) return ReadFailed(errno);
    const bool isWhole = position_ >= stamp_.size && StampOf(now) == stamp_;
    return isWhole ? Status() : Status(StatusKind::kChanged, path_);
  }

  Descriptor file_;
  FileStamp stamp_;
  std::string path_;
  uint64_t position_ = 0;  // of Read
  Status status_;
};

class HostOutputFile : public OutputFile {
 public:
  // `path`: of `target`, for the failures.
  HostOutputFile(const fs::path& target, const std::string& path)
      : file_(target), path_(path), status_(file_.status().For(path)) {}

  // Why there is no such file, before it is written.
  const Status& status() const { return status_; }

  Status Write(std::string_view bytes) override {
    if (buffer_.size() + bytes.size() > kBufferSize) Flush();
    if (bytes.size() > kBufferSize) {
      WriteThrough(bytes);
    } else {
      buffer_.append(bytes);
    }
    return status_;
  }

  Status Patch(uint64_t offset, std::string_view bytes) override {
    const uint64_t size = written_ + buffer_.size();
    if (offset > size || bytes.size() > size - offset) {
      return {StatusKind::kWriteFailed, path_, EINVAL};
    }
    Flush();
    WriteAt(offset, bytes);
    return status_;
  }

  void LeaveUnsynced() override { sync_ = Sync::kNone; }
  void LeaveFolderUnsynced() { sync_ = Sync::kFile; }

  Status Commit() override {
    Flush();
    if (status_.ok()) status_ = file_.PutInPlace(sync_).For(path_);
    // The file is no longer this object's: what is written or committed after this fails.
    return std::exchange(status_, Status(StatusKind::kWriteFailed, path_));
  }

 private:
  void Flush() {
    WriteThrough(buffer_);
    buffer_.clear();
  }

  void WriteThrough(std::string_view bytes) {
    const uint64_t offset = written_;
    written_ += bytes.size();
    WriteAt(offset, bytes);
  }

  void WriteAt(uint64_t offset, std::string_view bytes) {
    if (!status_.ok()) return;
    const int reason = WriteAll(file_.descriptor(), offset, bytes);
    if (reason != 0) status_ = Status(StatusKind::kWriteFailed, path_, reason);
  }

  NewFile file_;
  std::string path_;
  std::string buffer_;    // what is not yet in the file
  uint64_t written_ = 0;  // bytes in the file
  Sync sync_ = Sync::kFileAndFolder;
  Status status_;
};

// A path such as "n:" or "n:\\new\\" is no name for a file, even where nothing is there yet.
bool NamesDirectory(const std::string& path) {
  return path.find_last_of("\\/:") == path.size() - 1;
}

class HostFiles : public Files {
 public:
  explicit HostFiles(const Drives* drives) : drives_(drives) {
    std::error_code error;
    const fs::path process = fs::current_path(error);
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    currentDirectory_ = drives_->FromHost(process).value_or("c:\\");
  }

  Result<std::unique_ptr<InputFile>> OpenForReading(const std::string& path) override {
    return Open(path, 0);
  }

  Result<std::unique_ptr<InputFile>> OpenOrCreateForReading(const std::string& path) override {
    if (NamesDirectory(path)) return Status::CannotOpen(path, EISDIR);
    return Open(path, O_CREAT);
  }

  Result<std::unique_ptr<OutputFile>> Create(const std::string& path) override {
    Result<std::unique_ptr<HostOutputFile>> file = CreateFile(path);
    if (!file.ok()) return file.status;
    return std::unique_ptr<OutputFile>(std::move(file.value));
  }

  Status LookAt(const std::string& path) override {
    const auto host = Host(path);
    if (!host) return Status::CannotOpen(path, ENOENT);
    std::error_code error;
    const fs::file_status status = fs::status(*host, error);
    return fs::exists(status) ? Status() : Status::CannotOpen(path, error.value());
  }

  bool IsDirectory(const std::string& path) override { return fs::is_directory(KindOf(path)); }

  uint64_t Size(const std::string& path) override {
    if (!fs::is_regular_file(KindOf(path))) return 0;
    std::error_code error;
    const uint64_t size = fs::file_size(*Host(path), error);
    return error ? 0 : size;
  }

  Result<std::vector<DirectoryEntry>> List(const std::string& directory) override {
    const auto host = Host(directory);
    if (!host) return Status::CannotOpen(directory, ENOENT);
    std::vector<DirectoryEntry> entries;
    std::error_code error;
    for (fs::directory_iterator entry(*host, error), end; !error && entry != end;
         entry.increment(error)) {
      const std::string name = entry->path().filename().string();
      if (name.find('\\') != std::string::npos) continue;  // no drive path leads there
      std::error_code ignored;
      const bool isDirectory = entry->is_directory(ignored);
      const bool isFile = entry->is_regular_file(ignored);
      const uint64_t size = isFile ? entry->file_size(ignored) : 0;
      entries.push_back({name, isDirectory, ignored ? 0 : size});
    }
    if (error) return Status::CannotOpen(directory, error.value());
    return entries;
  }

  Status Copy(const std::string& from, const std::string& to) override {
    const auto source = Host(from);
    const auto target = Host(to);
    if (!target || NamesDirectory(to)) return Status::CannotOpen(to, ENOENT);
    const Result<std::unique_ptr<InputFile>> in = Open(from, 0);
    if (!in.ok()) return in.status;
    std::error_code error;
    if (fs::equivalent(*source, *target, error)) return {};
    const Result<std::unique_ptr<HostOutputFile>> out = CreateFile(to);
    if (!out.ok()) return out.status;
    out.value->LeaveFolderUnsynced();
    std::string buffer(kBufferSize, '\0');
    while (const size_t count = in.value->Read(buffer.data(), buffer.size())) {
      const Status written = out.value->Write({buffer.data(), count});
      if (!written.ok()) return written;
    }
    const Status read = in.value->status();
    return read.ok() ? out.value->Commit() : read;
  }

  std::vector<char> DriveLetters() override { return drives_->Letters(); }

  std::string CurrentDirectory() override { return currentDirectory_; }

  Status SetCurrentDirectory(const std::string& directory) override {
    if (!IsDirectory(directory)) return Status::CannotOpen(directory, ENOTDIR);
    currentDirectory_ = NormalDrivePath(AbsoluteDrivePath(currentDirectory_, directory));
    return {};
  }

 private:
  std::optional<fs::path> Host(const std::string& path) const {
    if (path.empty()) return std::nullopt;
    return drives_->ToHost(AbsoluteDrivePath(currentDirectory_, path));
  }

  fs::file_status KindOf(const std::string& path) const {
    const auto host = Host(path);
    std::error_code error;
    return host ? fs::status(*host, error) : fs::file_status(fs::file_type::none);
  }

  Result<std::unique_ptr<InputFile>> Open(const std::string& path, int flags) {
    const auto host = Host(path);
    if (!host) return Status::CannotOpen(path, ENOENT);
    Result<OpenedFile> file = OpenPlainFile(*host, flags, path);
    if (!file.ok()) return file.status;
    return std::make_unique<HostInputFile>(std::move(file.value), path);
  }

  Result<std::unique_ptr<HostOutputFile>> CreateFile(const std::string& path) {
    const auto host = Host(path);
    if (!host) return Status::CannotOpen(path, ENOENT);
    if (NamesDirectory(path)) return Status::CannotOpen(path, EISDIR);
    auto file = std::make_unique<HostOutputFile>(*host, path);
    if (!file->status().ok()) return file->status();
    return file;
  }

  const Drives* drives_;
  std::string currentDirectory_;
};

static_assert(kLargestSettings == 4 << 20, "the text of kTooLarge has the limit");

// At most that many bytes.
Result<std::string> ReadUpTo(uint64_t most, Files* files, const std::string& path) {
  const Result<std::unique_ptr<InputFile>> file = files->OpenForReading(path);
  if (!file.ok()) return file.status;
  // One byte more than the file has, so that its end shows without another piece.
  const uint64_t whole = file.value->Stamp().size + 1;
  const auto piece = static_cast<size_t>(std::min<uint64_t>(whole, kBufferSize));
  std::string bytes;
  for (size_t count = piece; count > 0;) {
    const size_t size = bytes.size();
    if (size > most) return Status(StatusKind::kTooLarge, path);
    bytes.resize(size + piece);
    count = file.value->Read(bytes.data() + size, piece);
    bytes.resize(size + count);
  }
  if (const Status read = file.value->status(); !read.ok()) return read;
  return bytes;
}

}  // namespace

Result<std::string> ReadWholeFile(Files* files, const std::string& path) {
  return ReadUpTo(UINT64_MAX, files, path);
}

Result<std::string> ReadSettings(Files* files, const std::string& path) {
  return ReadUpTo(kLargestSettings, files, path);
}

Status WriteWholeFile(Files* files, const std::string& path, std::string_view bytes) {
  const Result<std::unique_ptr<OutputFile>> file = files->Create(path);
  if (!file.ok()) return file.status;
  const Status written = file.value->Write(bytes);
  return written.ok() ? file.value->Commit() : written;
}

std::unique_ptr<Files> MakeHostFiles(const Drives* drives) {
  return std::make_unique<HostFiles>(drives);
}

}  // namespace tvx
