// Standard input as a file: the loader and the check read a program more than once.
#pragma once

#include <filesystem>
#include <optional>

#include "base/status.h"
#include "platform/termination.h"

namespace tvx {

// Copies standard input to a temporary file, which is removed with the object.
class StandardInput {
 public:
  StandardInput();
  ~StandardInput();
  StandardInput(const StandardInput&) = delete;
  StandardInput& operator=(const StandardInput&) = delete;

  // Why standard input could not be read to its end or the copy not be written: kReadFailed or
  // kWriteFailed, and there is no file.
  const Status& status() const { return status_; }
  const std::filesystem::path& path() const { return path_; }

 private:
  Status status_;
  std::filesystem::path path_;
  std::optional<TemporaryPath> registered_;
};

}  // namespace tvx
