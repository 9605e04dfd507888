// The file tree of MemoryFiles, a map by lower-case path, and its faults.
#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/files/drives.h"

namespace tvx {

namespace {

// The directory of an absolute path; that of a root is the root.
std::string Parent(const std::string& path) {
  return NormalDrivePath(path.substr(0, path.rfind('\\') + 1));
}

class Input : public InputFile {
 public:
  Input(std::string path, std::string bytes, int64_t modified, size_t mostAtOnce, int* readsLeft)
      : path_(std::move(path)),
        bytes_(std::move(bytes)),
        modified_(modified),
        mostAtOnce_(mostAtOnce),
        readsLeft_(readsLeft) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t count = ReadAt(position_, buffer, size);
    position_ += count;
    return count;
  }
  size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
    if ((*readsLeft_)-- == 1) status_ = Status(StatusKind::kReadFailed, path_, EIO);
    if (!status_.ok() || offset >= bytes_.size()) return 0;
    return bytes_.copy(buffer, std::min(size, mostAtOnce_), offset);
  }
  FileStamp Stamp() override { return {bytes_.size(), modified_}; }
  Status status() const override { return status_; }

 private:
  std::string path_;
  std::string bytes_;
  int64_t modified_;
  size_t mostAtOnce_;
  int* readsLeft_;
  size_t position_ = 0;
  Status status_;
};

}  // namespace

class MemoryFiles::Output : public OutputFile {
 public:
  Output(MemoryFiles* files, std::string path) : files_(files), path_(std::move(path)) {}

  Status Write(std::string_view bytes) override {
    Count(&files_->writesLeft_);
    if (status_.ok()) bytes_.append(bytes);
    return status_;
  }

  Status Patch(uint64_t offset, std::string_view bytes) override {
    if (offset > bytes_.size() || bytes.size() > bytes_.size() - offset) {
      return {StatusKind::kWriteFailed, path_, EINVAL};
    }
    Count(&files_->writesLeft_);
    if (status_.ok()) bytes_.replace(offset, bytes.size(), bytes);
    return status_;
  }

  Status Commit() override {
    Count(&files_->commitsLeft_);
    if (status_.ok()) files_->Put(path_, bytes_);
    return std::exchange(status_, Status(StatusKind::kWriteFailed, path_));
  }

 private:
  // One more operation, which fails if none was left before the fault.
  void Count(int* left) {
    if (status_.ok() && (*left)-- == 1) status_ = {StatusKind::kWriteFailed, path_, ENOSPC};
  }

  MemoryFiles* files_;
  std::string path_;
  std::string bytes_;
  Status status_;
};

MemoryFiles::MemoryFiles() {
  for (const char* directory : {"c:\\windows", "c:\\marlo\\afa", "c:\\marlo\\ncdata", "z:\\"}) {
    MakeDirectory(directory);
  }
}

std::string MemoryFiles::Absolute(const std::string& path) const {
  return NormalDrivePath(AbsoluteDrivePath(currentDirectory_, path));
}

std::string MemoryFiles::Key(const std::string& path) const {
  std::string key = Absolute(path);
  for (char& c : key) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return key;
}

const MemoryFiles::Node* MemoryFiles::Find(const std::string& path) const {
  if (path.empty()) return nullptr;
  const auto node = nodes_.find(Key(path));
  return node == nodes_.end() ? nullptr : &node->second;
}

bool MemoryFiles::CanCreate(const std::string& path) {
  if (path.empty() || path.find_last_of("\\/:") == path.size() - 1) return false;
  return noCreation_.count(Key(path)) == 0 && IsDirectory(Parent(Absolute(path))) &&
         !IsDirectory(path);
}

void MemoryFiles::Put(const std::string& path, std::string_view bytes) {
  MakeDirectory(Parent(Absolute(path)));
  const auto node = nodes_.try_emplace(Key(path), Node{Absolute(path), false, "", 0}).first;
  if (node->second.isDirectory) ADD_FAILURE() << "a directory: " << path;
  node->second.bytes = bytes;
  node->second.modified = ++writes_;
}

void MemoryFiles::MakeDirectory(const std::string& path) {
  const std::string absolute = Absolute(path);
  if (Parent(absolute) != absolute) MakeDirectory(Parent(absolute));
  nodes_.try_emplace(Key(absolute), Node{absolute, true, "", 0});
}

std::string MemoryFiles::Bytes(const std::string& path) const {
  const Node* node = Find(path);
  EXPECT_TRUE(node != nullptr && !node->isDirectory) << "no such file: " << path;
  return node != nullptr ? node->bytes : "";
}

std::vector<std::string> MemoryFiles::FilePaths() const {
  std::vector<std::string> paths;
  for (const auto& [key, node] : nodes_) {
    if (!node.isDirectory) paths.push_back(node.path);
  }
  return paths;
}

Result<std::unique_ptr<InputFile>> MemoryFiles::OpenForReading(const std::string& path) {
  const Node* node = Find(path);
  if (node == nullptr) return Status::CannotOpen(path, ENOENT);
  if (node->isDirectory) return Status::CannotOpen(path, EISDIR);
  if (noOpening_.count(Key(path)) != 0) return Status::CannotOpen(path, EACCES);
  return std::make_unique<Input>(path, node->bytes, node->modified, mostBytesOfARead, &readsLeft_);
}

Result<std::unique_ptr<OutputFile>> MemoryFiles::Create(const std::string& path) {
  if (!CanCreate(path)) return Status::CannotOpen(path, EACCES);
  return std::make_unique<Output>(this, Absolute(path));
}

Result<std::vector<DirectoryEntry>> MemoryFiles::List(const std::string& directory) {
  if (!IsDirectory(directory)) return Status::CannotOpen(directory, ENOENT);
  std::vector<DirectoryEntry> entries;
  const std::string folder = Key(directory);
  for (const auto& [key, node] : nodes_) {
    if (key == folder || Key(Parent(node.path)) != folder) continue;
    entries.push_back(
        {node.path.substr(node.path.rfind('\\') + 1), node.isDirectory, node.bytes.size()});
  }
  return entries;
}

Status MemoryFiles::Copy(const std::string& from, const std::string& to) {
  const Result<std::string> bytes = ReadWholeFile(this, from);
  if (!bytes.ok() || Key(from) == Key(to)) return bytes.status;
  return WriteWholeFile(this, to, bytes.value);
}

}  // namespace tvx
