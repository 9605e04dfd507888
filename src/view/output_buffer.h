// Collects small pieces of a file into large writes. Writing to it never allocates memory.
#pragma once

#include <array>
#include <cstring>
#include <string_view>

#include "platform/files/files.h"

namespace tvx {

class OutputBuffer {
 public:
  // With a null file everything written is dropped. The file must outlive the buffer.
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

  // Writes everything collected so far to the file.
  void Flush() {
    if (used_ > 0) Pass({bytes_.data(), used_});
    used_ = 0;
  }

  // The failure of the first write that failed, if any has.
  const Status& status() const { return status_; }

 private:
  void Pass(std::string_view bytes) {
    if (file_ != nullptr && status_.ok()) status_ = file_->Write(bytes);
  }

  OutputFile* file_;
  Status status_;
  size_t used_ = 0;
  std::array<char, 1 << 16> bytes_;
};

}  // namespace tvx
