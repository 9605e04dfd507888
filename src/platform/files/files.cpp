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

// Writes all bytes at `offset`.
bool WriteAll(int descriptor, uint64_t offset, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        ::pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(count));
    offset += static_cast<uint64_t>(count);
  }
  return true;
}

FileStamp StampOf(const struct stat& status) {
  constexpr int64_t kNanoseconds = 1'000'000'000;  // per second
  return {static_cast<uint64_t>(status.st_size),
          status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

// A plain file, open, or the reason why not.
struct OpenedFile {
  Descriptor descriptor;
  FileStamp stamp = {};
  int error = 0;
};

// Pipes and devices are refused like directories: they have no size and might never end. (Not
// blocking, since the mere opening of a pipe waits for its other side.)
OpenedFile OpenPlainFile(const fs::path& path, int flags) {
  Descriptor file(::open(path.c_str(), flags | O_RDONLY | O_CLOEXEC | O_NONBLOCK, 0666));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) return {Descriptor(), {}, errno};
  if (S_ISDIR(status.st_mode)) return {Descriptor(), {}, EISDIR};
  if (!S_ISREG(status.st_mode)) return {Descriptor(), {}, kNoPlainFile};
  return {std::move(file), StampOf(status)};
}

class HostInputFile : public InputFile {
 public:
  explicit HostInputFile(OpenedFile file) : file_(std::move(file.descriptor)), stamp_(file.stamp) {}

  size_t Read(char* buffer, size_t size) override {
    const ssize_t count = ReadSome(file_.Number(), buffer, size);
    if (count > 0) {
      position_ += static_cast<uint64_t>(count);
      return static_cast<size_t>(count);
    }
    if (size > 0) error_ = count < 0 ? errno : ErrorAtEnd();
    return 0;
  }

  size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
    ssize_t count;
    do {
      count = ::pread(file_.Number(), buffer, size, static_cast<off_t>(offset));
    } while (count < 0 && errno == EINTR);
    if (count < 0) error_ = errno;
    return count > 0 ? static_cast<size_t>(count) : 0;
  }

  FileStamp Stamp() override { return stamp_; }

  int Error() const override { return error_; }

 private:
  int ErrorAtEnd() const {
    struct stat now {};
    if (::fstat(file_.Number(), &now) != 0) return errno;
    return position_ < stamp_.size || StampOf(now) != stamp_ ? kFileChanged : 0;
  }

  Descriptor file_;
  FileStamp stamp_;
  uint64_t position_ = 0;  // of Read
  int error_ = 0;
};

class HostOutputFile : public OutputFile {
 public:
  // `files` receives the reasons of failures.
  HostOutputFile(const fs::path& target, Files* files) : file_(target), files_(files) {
    if (!file_.IsOpen()) files_->Fail(file_.error());
  }

  bool IsOpen() const { return file_.IsOpen(); }

  bool Write(std::string_view bytes) override {
    if (buffer_.size() + bytes.size() > kBufferSize && !Flush()) return false;
    if (bytes.size() > kBufferSize) return WriteThrough(bytes);
    buffer_.append(bytes);
    return good_;
  }

  bool Patch(uint64_t offset, std::string_view bytes) override {
    const uint64_t size = written_ + buffer_.size();
    if (offset > size || bytes.size() > size - offset) return false;
    return Flush() && WriteAt(offset, bytes);
  }

  void LeaveUnsynced() override { sync_ = Sync::kNone; }
  void LeaveFolderUnsynced() { sync_ = Sync::kFile; }

  bool Commit() override {
    good_ = Flush() && (file_.PutInPlace(sync_) || files_->Fail(file_.error()));
    // The file is no longer this object's: what is written or committed after this fails.
    return std::exchange(good_, false);
  }

 private:
  bool Flush() {
    const bool done = WriteThrough(buffer_);
    buffer_.clear();
    return done;
  }

  bool WriteThrough(std::string_view bytes) {
    const uint64_t offset = written_;
    written_ += bytes.size();
    return WriteAt(offset, bytes);
  }

  bool WriteAt(uint64_t offset, std::string_view bytes) {
    good_ = good_ && (WriteAll(file_.descriptor(), offset, bytes) || files_->Fail(errno));
    return good_;
  }

  NewFile file_;
  Files* files_;
  std::string buffer_;    // what is not yet in the file
  uint64_t written_ = 0;  // bytes in the file
  Sync sync_ = Sync::kFileAndFolder;
  bool good_ = true;
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

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    return Open(path, 0);
  }

  std::unique_ptr<InputFile> OpenOrCreateForReading(const std::string& path) override {
    if (!NamesDirectory(path)) return Open(path, O_CREAT);
    Fail(EISDIR);
    return nullptr;
  }

  std::unique_ptr<OutputFile> Create(const std::string& path) override {
    const auto host = Host(path);
    if (host && !NamesDirectory(path)) return CreateFile(*host);
    Fail(host ? EISDIR : ENOENT);
    return nullptr;
  }

  bool Exists(const std::string& path) override {
    ClearError();
    const auto host = Host(path);
    if (!host) return false;
    std::error_code error;
    const fs::file_status status = fs::status(*host, error);
    if (status.type() == fs::file_type::none) Fail(error.value());
    return status.type() != fs::file_type::not_found;
  }

  bool IsDirectory(const std::string& path) override { return fs::is_directory(Status(path)); }

  uint64_t Size(const std::string& path) override {
    if (!fs::is_regular_file(Status(path))) return 0;
    std::error_code error;
    const uint64_t size = fs::file_size(*Host(path), error);
    return error ? 0 : size;
  }

  bool List(const std::string& directory, std::vector<DirectoryEntry>* entries) override {
    const auto host = Host(directory);
    if (!host) return Fail(ENOENT);
    std::vector<DirectoryEntry> found;
    std::error_code error;
    for (fs::directory_iterator entry(*host, error), end; !error && entry != end;
         entry.increment(error)) {
      const std::string name = entry->path().filename().string();
      if (name.find('\\') != std::string::npos) continue;  // no drive path leads there
      std::error_code ignored;
      const bool isDirectory = entry->is_directory(ignored);
      const bool isFile = entry->is_regular_file(ignored);
      const uint64_t size = isFile ? entry->file_size(ignored) : 0;
      found.push_back({name, isDirectory, ignored ? 0 : size});
    }
    if (error) return Fail(error.value());
    *entries = std::move(found);
    return true;
  }

  bool Copy(const std::string& from, const std::string& to) override {
    const auto source = Host(from);
    const auto target = Host(to);
    if (!source || !target || NamesDirectory(to)) return Fail(ENOENT);
    const std::unique_ptr<InputFile> in = Open(from, 0);
    if (in == nullptr) return false;
    std::error_code error;
    if (fs::equivalent(*source, *target, error)) return true;
    const auto out = CreateFile(*target);
    if (!out) return false;
    out->LeaveFolderUnsynced();
    std::string buffer(kBufferSize, '\0');
    while (const size_t count = in->Read(buffer.data(), buffer.size())) {
      if (!out->Write({buffer.data(), count})) return false;
    }
    return in->Error() == 0 ? out->Commit() : Fail(in->Error());
  }

  std::vector<char> DriveLetters() override { return drives_->Letters(); }

  std::string CurrentDirectory() override { return currentDirectory_; }

  bool SetCurrentDirectory(const std::string& directory) override {
    if (!IsDirectory(directory)) return false;
    currentDirectory_ = NormalDrivePath(AbsoluteDrivePath(currentDirectory_, directory));
    return true;
  }

 private:
  std::optional<fs::path> Host(const std::string& path) const {
    if (path.empty()) return std::nullopt;
    return drives_->ToHost(AbsoluteDrivePath(currentDirectory_, path));
  }

  fs::file_status Status(const std::string& path) const {
    const auto host = Host(path);
    std::error_code error;
    return host ? fs::status(*host, error) : fs::file_status(fs::file_type::none);
  }

  std::unique_ptr<InputFile> Open(const std::string& path, int flags) {
    const auto host = Host(path);
    OpenedFile file = host ? OpenPlainFile(*host, flags) : OpenedFile{Descriptor(), {}, ENOENT};
    ClearError();
    if (file.error != 0) Fail(file.error);
    return file.error == 0 ? std::make_unique<HostInputFile>(std::move(file)) : nullptr;
  }

  std::unique_ptr<HostOutputFile> CreateFile(const fs::path& path) {
    ClearError();
    auto file = std::make_unique<HostOutputFile>(path, this);
    return file->IsOpen() ? std::move(file) : nullptr;
  }

  const Drives* drives_;
  std::string currentDirectory_;
};

}  // namespace

bool IsReadFailure(int error) {
  constexpr std::array kNoFile = {0, ENOENT, ENOTDIR, EISDIR, ENAMETOOLONG, kNoPlainFile};
  return std::ranges::find(kNoFile, error) == kNoFile.end();
}

std::string FileErrorText(int error) {
  if (error == kNoPlainFile) return "is no plain file";
  if (error == kFileChanged) return "has changed while it was read";
  if (error == kAboveLimit)
    return "is larger than " + std::to_string(kLargestSettings >> 20) + " MiB";
  if (error == kRefusedName) return "the name is not allowed";
  if (error == kPartSource) return "a program or master model for it could not be read";
  return std::strerror(error);
}

namespace {

// At most that many bytes.
bool ReadUpTo(uint64_t most, Files* files, const std::string& path, std::string* bytes) {
  const auto file = files->OpenForReading(path);
  if (file == nullptr) return false;
  // One byte more than the file has, so that its end shows without another piece.
  const auto piece = static_cast<size_t>(std::min<uint64_t>(file->Stamp().size + 1, kBufferSize));
  std::string read;
  for (size_t count = piece; count > 0;) {
    const size_t size = read.size();
    if (size > most) return files->Fail(kAboveLimit);
    read.resize(size + piece);
    count = file->Read(read.data() + size, piece);
    read.resize(size + count);
  }
  if (file->Error() != 0) return files->Fail(file->Error());
  *bytes = std::move(read);
  return true;
}

}  // namespace

bool ReadWholeFile(Files* files, const std::string& path, std::string* bytes) {
  return ReadUpTo(UINT64_MAX, files, path, bytes);
}

bool ReadSettings(Files* files, const std::string& path, std::string* bytes) {
  return ReadUpTo(kLargestSettings, files, path, bytes);
}

bool WriteWholeFile(Files* files, const std::string& path, std::string_view bytes) {
  const auto file = files->Create(path);
  return file != nullptr && file->Write(bytes) && file->Commit();
}

std::unique_ptr<Files> MakeHostFiles(const Drives* drives) {
  return std::make_unique<HostFiles>(drives);
}

}  // namespace tvx
