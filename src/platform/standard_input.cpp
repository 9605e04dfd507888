// Reads and writes with the C library; the file is created under a name of its own.
#include "platform/standard_input.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tvx {

StandardInput::StandardInput() {
  std::string name = (std::filesystem::temp_directory_path() / "tvx-input-XXXXXX").string();
  FILE* file = nullptr;
  {
    const HeldSignals held;  // created and registered together
    const int descriptor = ::mkstemp(name.data());
    if (descriptor >= 0) {
      path_ = name;
      registered_.emplace(path_);
      file = ::fdopen(descriptor, "wb");
    }
  }
  bool written = file != nullptr;
  constexpr size_t kPieceBytes = size_t{64} * 1024;
  std::array<char, kPieceBytes> piece{};
  while (written) {
    const size_t count = std::fread(piece.data(), 1, piece.size(), stdin);
    if (count == 0) break;
    written = std::fwrite(piece.data(), 1, count, file) == count;
  }
  isComplete_ = file != nullptr && std::fclose(file) == 0 && written;
  if (!isComplete_ && !path_.empty()) ::unlink(path_.c_str());
}

StandardInput::~StandardInput() {
  if (isComplete_) ::unlink(path_.c_str());
}

}  // namespace tvx
