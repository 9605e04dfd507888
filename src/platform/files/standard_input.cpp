// Reads and writes with the C library; the file is created under a name of its own.
#include "platform/files/standard_input.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace tvx {

namespace fs = std::filesystem;

namespace {

// Copies standard input to its end.
Status CopyTo(FILE* file) {
  constexpr size_t kPieceBytes = size_t{64} * 1024;
  std::array<char, kPieceBytes> piece;
  for (;;) {
    const size_t count = std::fread(piece.data(), 1, piece.size(), stdin);
    if (std::ferror(stdin) != 0) return {StatusKind::kReadFailed, "", errno};
    if (std::fwrite(piece.data(), 1, count, file) != count) {
      return {StatusKind::kWriteFailed, "", errno};
    }
    if (count < piece.size()) return {};
  }
}

}  // namespace

StandardInput::StandardInput() {
  std::error_code noFolder;
  const fs::path folder = fs::temp_directory_path(noFolder);
  if (noFolder) {
    status_ = Status::CannotOpen("", noFolder.value());
    return;
  }
  std::string name = folder / "tvx-input-XXXXXX";
  FILE* file = nullptr;
  {
    const HeldSignals held;  // created and registered together
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor >= 0) {
      path_ = name;
      registered_.emplace(path_);
      file = ::fdopen(descriptor, "wb");
    }
  }
  if (file == nullptr) {
    status_ = Status::CannotOpen("", errno);
  } else {
    status_ = CopyTo(file);
    if (std::fclose(file) != 0 && status_.ok()) {
      status_ = Status(StatusKind::kWriteFailed, "", errno);
    }
  }
  if (!status_.ok() && !path_.empty()) ::unlink(path_.c_str());
}

StandardInput::~StandardInput() {
  if (status_.ok()) ::unlink(path_.c_str());
}

}  // namespace tvx
