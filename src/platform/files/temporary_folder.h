// A folder for the files of another program that works for this one.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/termination.h"

namespace tvx {

// A name that no other process uses and by which leftovers of killed processes are found. It holds
// the number of this process.
std::string UniqueTemporaryName();

// A new folder in the system's place for temporary files. The destructor removes it with its
// content. What killed processes left there under such names is removed first.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Empty if it could not be made, for the reason of `error`.
  const std::filesystem::path& path() const { return path_; }
  const std::error_code& error() const { return error_; }

 private:
  std::filesystem::path path_;
  std::error_code error_;
  std::optional<TemporaryPath> registered_;  // removed by a signal as long as it is empty
};

}  // namespace tvx
