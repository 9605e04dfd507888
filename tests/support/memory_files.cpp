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
  Input(std::string bytes, int64_t modified, size_t mostAtOnce, int* readsLeft)
      : bytes_(std::move(bytes)),
        modified_(modified),
        mostAtOnce_(mostAtOnce),
        readsLeft_(readsLeft) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t count = ReadAt(position_, buffer, size);
    position_ += count;
    return count;
  }
  size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
    if ((*readsLeft_)-- == 1) error_ = EIO;
    if (error_ != 0 || offset >= bytes_.size()) return 0;
    return bytes_.copy(buffer, std::min(size, mostAtOnce_), offset);
  }
  FileStamp Stamp() override { return {bytes_.size(), modified_}; }
  int Error() const override { return error_; }

 private:
  std::string bytes_;
  int64_t modified_;
  size_t mostAtOnce_;
  int* readsLeft_;
  size_t position_ = 0;
  int error_ = 0;
};

}  // namespace

class MemoryFiles::Output : public OutputFile {
 public:
  Output(MemoryFiles* files, std::string path) : files_(files), path_(std::move(path)) {}

  bool Write(std::string_view bytes) override {
    good_ = good_ && (files_->writesLeft_-- != 1 || files_->Fail(ENOSPC));
    if (good_) bytes_.append(bytes);
    return good_;
  }

  bool Patch(uint64_t offset, std::string_view bytes) override {
    if (offset > bytes_.size() || bytes.size() > bytes_.size() - offset) return false;
    good_ = good_ && (files_->writesLeft_-- != 1 || files_->Fail(ENOSPC));
    if (good_) bytes_.replace(offset, bytes.size(), bytes);
    return good_;
  }

  bool Commit() override {
    good_ = good_ && (files_->commitsLeft_-- != 1 || files_->Fail(ENOSPC));
    if (good_) files_->Put(path_, bytes_);
    return std::exchange(good_, false);
  }

 private:
  MemoryFiles* files_;
  std::string path_;
  std::string bytes_;
  bool good_ = true;
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

std::unique_ptr<InputFile> MemoryFiles::OpenForReading(const std::string& path) {
  const Node* node = Find(path);
  ClearError();
  if (node == nullptr)
    Fail(ENOENT);
  else if (node->isDirectory)
    Fail(EISDIR);
  else if (noOpening_.count(Key(path)) != 0)
    Fail(EACCES);
  if (LastError() != 0) return nullptr;
  return std::make_unique<Input>(node->bytes, node->modified, mostBytesOfARead, &readsLeft_);
}

std::unique_ptr<OutputFile> MemoryFiles::Create(const std::string& path) {
  ClearError();
  if (!CanCreate(path) && !Fail(EACCES)) return nullptr;
  return std::make_unique<Output>(this, Absolute(path));
}

bool MemoryFiles::List(const std::string& directory, std::vector<DirectoryEntry>* entries) {
  if (!IsDirectory(directory)) return false;
  entries->clear();
  const std::string folder = Key(directory);
  for (const auto& [key, node] : nodes_) {
    if (key == folder || Key(Parent(node.path)) != folder) continue;
    entries->push_back(
        {node.path.substr(node.path.rfind('\\') + 1), node.isDirectory, node.bytes.size()});
  }
  return true;
}

bool MemoryFiles::Copy(const std::string& from, const std::string& to) {
  std::string bytes;
  return ReadWholeFile(this, from, &bytes) &&
         (Key(from) == Key(to) || WriteWholeFile(this, to, bytes));
}

}  // namespace tvx
