#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tvx {

// A fresh, empty folder of the host, removed with all it holds at the end of the test.
class TempDir {
 public:
  TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir();

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

  // Writes a file below the folder, with the folders that lead to it. Gives its path.
  std::filesystem::path Put(const std::filesystem::path& name, std::string_view bytes) const;

 private:
  std::filesystem::path path_;
};

// The bytes of a file of the host; a test failure and "" if it cannot be read.
std::string HostBytes(const std::filesystem::path& path);

}  // namespace tvx
