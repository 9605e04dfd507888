// A file of this machine that is written beside an older one and takes its place when complete.
#pragma once

#include <filesystem>
#include <optional>

#include "base/status.h"
#include "platform/files/descriptor.h"
#include "platform/termination.h"

namespace tvx {

// What is on the disk when a file is in place.
enum class Sync {
  kNone,
  kFile,           // its bytes, before it takes the place of the older one
  kFileAndFolder,  // the new entry of the folder as well
};

// Starts empty under a name of its own, and is filled through its descriptor or by another program
// through its path. Destroyed without PutInPlace, it leaves no trace; nor does a process that a
// signal ends. What a killed process left is removed by the next one that writes into the folder.
class NewFile {
 public:
  // `target`: absolute. Behind a link, the file that the link leads to is the one to be replaced.
  explicit NewFile(const std::filesystem::path& target);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // Why there may be no such file: no folder, no right to write there, or a target that may not be
  // written or is no plain file. Its path is the one of this machine.
  const Status& status() const { return status_; }
  const std::filesystem::path& path() const { return path_; }
  int descriptor() const { return descriptor_.Number(); }

  // Puts it in place, with the rights of the older file. If that fails, the older file is as it was
  // or the new one is whole.
  Status PutInPlace(Sync sync = Sync::kFileAndFolder);

 private:
  // Creates the file, in place of one with those rights if there is one.
  Status Create();

  Descriptor descriptor_;
  std::filesystem::path path_;  // empty once it is in place
  std::filesystem::path target_;
  std::optional<TemporaryPath> registered_;
  Status status_;
};

}  // namespace tvx
