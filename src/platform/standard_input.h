// Standard input as a file: the loader and the check read a program more than once.
#pragma once

#include <filesystem>
#include <optional>

#include "platform/termination.h"

namespace tvx {

// Copies standard input to a temporary file, which is removed with the object.
class StandardInput {
 public:
  StandardInput();
  ~StandardInput();
  StandardInput(const StandardInput&) = delete;
  StandardInput& operator=(const StandardInput&) = delete;

  // False if the copy could not be written; there is then no file.
  bool IsComplete() const { return isComplete_; }
  const std::filesystem::path& path() const { return path_; }

 private:
  bool isComplete_ = false;
  std::filesystem::path path_;
  std::optional<TemporaryPath> registered_;
};

}  // namespace tvx
