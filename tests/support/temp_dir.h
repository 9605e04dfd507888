// Temporary folders and files of the host for tests.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace tvx {

// A new, empty folder of the host, removed with its contents at the end of the test.
class TempDir {
 public:
  TempDir() {
    std::string name = (std::filesystem::temp_directory_path() / "tvx-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no temporary folder " << name;
    path_ = std::filesystem::canonical(name);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

  // Writes a file below the folder, with its parent folders. Returns its path.
  std::filesystem::path Put(const std::filesystem::path& name, std::string_view bytes) const {
    std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << bytes;
    if (!out.flush()) ADD_FAILURE() << "cannot write " << file;
    return file;
  }

 private:
  std::filesystem::path path_;
};

// The bytes of a file of the host; a test failure and "" if it cannot be read.
inline std::string HostBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) ADD_FAILURE() << "cannot read " << path;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace tvx
