// A file system in memory for tests, with faults on demand.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/files.h"

namespace tvx {

// Drive paths have no case, as on the host. The initial state is that after a first start
// (c:\windows, c:\marlo\afa, c:\marlo\ncdata; drive z: empty), with the current directory "c:\".
// Files that it opened must not outlive it.
class MemoryFiles : public Files {
 public:
  MemoryFiles();

  // Preparation and inspection by a test. Paths as in Files; faults do not affect these calls.

  // Creates or replaces a file, with its parent directories.
  void Put(const std::string& path, std::string_view bytes);
  void MakeDirectory(const std::string& path);
  void Remove(const std::string& path) { nodes_.erase(Key(path)); }
  // The bytes of a file; a test failure and "" if there is none.
  std::string Bytes(const std::string& path) const;
  // The full paths of all files as they were first written, in order without regard to case.
  std::vector<std::string> FilePaths() const;

  // Faults.

  // The count-th write from now on (1: the next; a Patch counts too) fails as on a full disk.
  void RefuseWrite(int count) { writesLeft_ = count; }
  // The count-th Commit from now on fails.
  void RefuseCommit(int count) { commitsLeft_ = count; }
  // A file of this name, there or not, cannot be written.
  void RefuseCreation(const std::string& path) { noCreation_.insert(Key(path)); }
  // A file of this name cannot be read.
  void RefuseOpening(const std::string& path) { noOpening_.insert(Key(path)); }
  // The count-th read from now on fails.
  void RefuseRead(int count) { readsLeft_ = count; }
  // No read of a file opened from now on gives more.
  size_t mostBytesOfARead = SIZE_MAX;

  Result<std::unique_ptr<InputFile>> OpenForReading(const std::string& path) override;
  Result<std::unique_ptr<InputFile>> OpenOrCreateForReading(const std::string& path) override {
    if (!Exists(path) && CanCreate(path)) Put(path, "");
    return OpenForReading(path);
  }
  Result<std::unique_ptr<OutputFile>> Create(const std::string& path) override;
  Status LookAt(const std::string& path) override {
    return Find(path) != nullptr ? Status() : Status(StatusKind::kMissing, path);
  }
  bool IsDirectory(const std::string& path) override {
    const Node* node = Find(path);
    return node != nullptr && node->isDirectory;
  }
  uint64_t Size(const std::string& path) override {
    const Node* node = Find(path);
    return node == nullptr ? 0 : node->bytes.size();
  }
  Result<std::vector<DirectoryEntry>> List(const std::string& directory) override;
  Status Copy(const std::string& from, const std::string& to) override;
  std::vector<char> DriveLetters() override { return {'c', 'z'}; }
  std::string CurrentDirectory() override { return currentDirectory_; }
  Status SetCurrentDirectory(const std::string& directory) override {
    if (!IsDirectory(directory)) return {StatusKind::kMissing, directory};
    currentDirectory_ = Absolute(directory);
    return {};
  }

 private:
  class Output;
  struct Node {
    std::string path;  // absolute, in the letters of its first mention
    bool isDirectory = false;
    std::string bytes;
    int64_t modified = 0;
  };

  std::string Absolute(const std::string& path) const;
  std::string Key(const std::string& path) const;
  const Node* Find(const std::string& path) const;
  bool CanCreate(const std::string& path);

  std::map<std::string, Node> nodes_;  // by Key
  std::set<std::string> noCreation_;
  std::set<std::string> noOpening_;
  int64_t writes_ = 0;  // the clock of the stamps
  int writesLeft_ = 0;  // 1: the next is refused; 0 and below: no fault
  int commitsLeft_ = 0;
  int readsLeft_ = 0;
  std::string currentDirectory_ = "c:\\";
};

}  // namespace tvx
