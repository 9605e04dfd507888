#include "support/temp_dir.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace tvx {

namespace fs = std::filesystem;

TempDir::TempDir() {
  std::string name = (fs::temp_directory_path() / "tvx-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no temporary folder " << name;
  path_ = fs::canonical(name);
}

TempDir::~TempDir() {
  std::error_code error;
  fs::remove_all(path_, error);
}

fs::path TempDir::Put(const fs::path& name, std::string_view bytes) const {
  fs::path file = path_ / name;
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  if (!out.flush()) ADD_FAILURE() << "cannot write " << file;
  return file;
}

std::string HostBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) ADD_FAILURE() << "cannot read " << path;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace tvx
