#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/drives.h"

namespace tvx {

namespace {

// The directory of an absolute path; that of a root is the root.
std::string Parent(const std::string& path) {
  return NormalDrivePath(path.substr(0, path.rfind('\\') + 1));
}

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind('\\') + 1);
}

// Counts down to the fault that is due.
bool IsDue(int* left) {
  return *left > 0 && --*left == 0;
}

class Input : public InputFile {
 public:
  explicit Input(std::string bytes) : bytes_(std::move(bytes)) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t count = bytes_.copy(buffer, size, position_);
    position_ += count;
    return count;
  }

 private:
  std::string bytes_;
  size_t position_ = 0;
};

}  // namespace

class MemoryFiles::Output : public OutputFile {
 public:
  Output(MemoryFiles* files, std::string path) : files_(files), path_(std::move(path)) {}

  bool Write(std::string_view bytes) override {
    good_ = good_ && !IsDue(&files_->writesLeft_);
    if (good_) bytes_.append(bytes);
    return good_;
  }

  bool Patch(uint64_t offset, std::string_view bytes) override {
    if (offset > bytes_.size() || bytes.size() > bytes_.size() - offset) return false;
    good_ = good_ && !IsDue(&files_->writesLeft_);
    if (good_) bytes_.replace(offset, bytes.size(), bytes);
    return good_;
  }

  bool Commit() override {
    good_ = good_ && !IsDue(&files_->commitsLeft_);
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
  if (HasDrive(path)) return NormalDrivePath(path);
  const bool fromRoot = !path.empty() && (path[0] == '\\' || path[0] == '/');
  return NormalDrivePath(currentDirectory_.substr(0, fromRoot ? 2 : std::string::npos) + "\\" +
                         path);
}

std::string MemoryFiles::Key(const std::string& path) const {
  std::string key = Absolute(path);
  std::transform(key.begin(), key.end(), key.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return key;
}

const MemoryFiles::Node* MemoryFiles::Find(const std::string& path) const {
  if (path.empty()) return nullptr;
  const auto node = nodes_.find(Key(path));
  return node == nodes_.end() ? nullptr : &node->second;
}

bool MemoryFiles::CanCreate(const std::string& path) const {
  if (path.empty() || path.find_last_of("\\/:") == path.size() - 1) return false;
  if (noCreation_.count(Key(path)) != 0) return false;
  const Node* parent = Find(Parent(Absolute(path)));
  const Node* node = Find(path);
  return parent != nullptr && parent->isDirectory && (node == nullptr || !node->isDirectory);
}

void MemoryFiles::Put(const std::string& path, std::string_view bytes) {
  MakeDirectory(Parent(Absolute(path)));
  const auto node = nodes_.try_emplace(Key(path), Node{Absolute(path), false, ""}).first;
  if (node->second.isDirectory) ADD_FAILURE() << "a directory: " << path;
  node->second.bytes = bytes;
}

void MemoryFiles::MakeDirectory(const std::string& path) {
  const std::string absolute = Absolute(path);
  if (Parent(absolute) != absolute) MakeDirectory(Parent(absolute));
  nodes_.try_emplace(Key(absolute), Node{absolute, true, ""});
}

void MemoryFiles::Remove(const std::string& path) {
  nodes_.erase(Key(path));
}

std::string MemoryFiles::Bytes(const std::string& path) const {
  const Node* node = Find(path);
  if (node != nullptr && !node->isDirectory) return node->bytes;
  ADD_FAILURE() << "no such file: " << path;
  return "";
}

std::vector<std::string> MemoryFiles::FilePaths() const {
  std::vector<std::string> paths;
  for (const auto& [key, node] : nodes_) {
    if (!node.isDirectory) paths.push_back(node.path);
  }
  return paths;
}

void MemoryFiles::RefuseCreation(const std::string& path) {
  noCreation_.insert(Key(path));
}

void MemoryFiles::RefuseOpening(const std::string& path) {
  noOpening_.insert(Key(path));
}

std::unique_ptr<InputFile> MemoryFiles::OpenForReading(const std::string& path) {
  const Node* node = Find(path);
  if (node == nullptr || node->isDirectory || noOpening_.count(Key(path)) != 0) return nullptr;
  return std::make_unique<Input>(node->bytes);
}

std::unique_ptr<InputFile> MemoryFiles::OpenOrCreateForReading(const std::string& path) {
  if (!Exists(path) && CanCreate(path)) Put(path, "");
  return OpenForReading(path);
}

std::unique_ptr<OutputFile> MemoryFiles::Create(const std::string& path) {
  if (!CanCreate(path)) return nullptr;
  return std::make_unique<Output>(this, Absolute(path));
}

bool MemoryFiles::Exists(const std::string& path) {
  return Find(path) != nullptr;
}

bool MemoryFiles::IsDirectory(const std::string& path) {
  const Node* node = Find(path);
  return node != nullptr && node->isDirectory;
}

uint64_t MemoryFiles::Size(const std::string& path) {
  const Node* node = Find(path);
  return node == nullptr ? 0 : node->bytes.size();
}

bool MemoryFiles::List(const std::string& directory, std::vector<DirectoryEntry>* entries) {
  if (!IsDirectory(directory)) return false;
  entries->clear();
  const std::string folder = Key(directory);
  for (const auto& [key, node] : nodes_) {
    if (key == folder || Key(Parent(node.path)) != folder) continue;
    entries->push_back({NameOf(node.path), node.isDirectory, node.bytes.size()});
  }
  return true;
}

bool MemoryFiles::Copy(const std::string& from, const std::string& to) {
  std::string bytes;
  if (!ReadWholeFile(this, from, &bytes)) return false;
  return Key(from) == Key(to) || WriteWholeFile(this, to, bytes);
}

bool MemoryFiles::SetCurrentDirectory(const std::string& directory) {
  if (!IsDirectory(directory)) return false;
  currentDirectory_ = Absolute(directory);
  return true;
}

}  // namespace tvx
