// Gathers small pieces of a file into large writes. It never allocates while it is written to.
#pragma once

#include <array>
#include <cstring>
#include <string_view>

#include "platform/files.h"

namespace tvx {

class OutputBuffer {
 public:
  // Without a file (null) everything is dropped. The file has to outlive the buffer.
  explicit OutputBuffer(OutputFile* file) : file_(file) {}

  void Write(std::string_view bytes) {
    if (bytes.size() > bytes_.size() - used_) Flush();
    if (bytes.size() > bytes_.size()) {
      Pass(bytes);
      return;
    }
    std::memcpy(bytes_.data() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
  }

  // Hands everything written so far to the file.
  void Flush() {
    if (used_ > 0) Pass({bytes_.data(), used_});
    used_ = 0;
  }

  // False once a write has failed, or without a file.
  bool good() const { return good_; }

 private:
  void Pass(std::string_view bytes) { good_ = good_ && file_->Write(bytes); }

  OutputFile* file_;
  bool good_ = file_ != nullptr;
  size_t used_ = 0;
  std::array<char, 1 << 16> bytes_;
};

}  // namespace tvx
