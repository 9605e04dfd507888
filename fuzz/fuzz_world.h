// The environment of a fuzz target: a file system in which every file contains the input and which
// keeps what is written, and a user who refuses everything.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

class FuzzFiles : public Files {
 public:
  // The bytes are not copied and must outlive the object.
  explicit FuzzFiles(std::string_view bytes) : bytes_(bytes) {}

  Result<std::unique_ptr<InputFile>> OpenForReading(const std::string&) override {
    return std::make_unique<Input>(bytes_);
  }
  Result<std::unique_ptr<InputFile>> OpenOrCreateForReading(const std::string& path) override {
    return OpenForReading(path);
  }
  Result<std::unique_ptr<OutputFile>> Create(const std::string&) override {
    return std::make_unique<Output>(&written);
  }
  Status LookAt(const std::string&) override { return {}; }
  bool IsDirectory(const std::string&) override { return false; }
  uint64_t Size(const std::string&) override { return bytes_.size(); }
  Result<std::vector<DirectoryEntry>> List(const std::string&) override {
    return Status(StatusKind::kMissing);
  }
  Status Copy(const std::string&, const std::string&) override { return StatusKind::kMissing; }
  std::vector<char> DriveLetters() override { return {'c'}; }
  std::string CurrentDirectory() override { return "c:\\"; }
  Status SetCurrentDirectory(const std::string&) override { return StatusKind::kMissing; }

  std::string written;  // content of the file that was written last

 private:
  class Input : public InputFile {
   public:
    explicit Input(std::string_view bytes) : bytes_(bytes) {}
    size_t Read(char* buffer, size_t size) override {
      const size_t count = ReadAt(position_, buffer, size);
      position_ += count;
      return count;
    }
    size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
      if (offset >= bytes_.size()) return 0;
      const size_t count = std::min<size_t>(size, bytes_.size() - offset);
      std::memcpy(buffer, bytes_.data() + offset, count);
      return count;
    }
    FileStamp Stamp() override { return {bytes_.size(), 0}; }

   private:
    std::string_view bytes_;
    uint64_t position_ = 0;
  };

  class Output : public OutputFile {
   public:
    explicit Output(std::string* target) : target_(target) {}
    Status Write(std::string_view bytes) override {
      bytes_ += bytes;
      return {};
    }
    Status Patch(uint64_t, std::string_view) override { return {}; }
    Status Commit() override {
      *target_ = bytes_;
      return {};
    }

   private:
    std::string* target_;
    std::string bytes_;
  };

  std::string_view bytes_;
};

class FuzzUi : public UserInterface {
 public:
  bool ShowMessage(const MessageBox&) override { return false; }
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void ShowStatus(const std::string&, const std::string&) override {}
};

inline std::string_view AsText(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Stops the target, which reports the input, if the condition is false.
inline void Require(bool holds) {
  if (!holds) __builtin_trap();
}

}  // namespace tvx
