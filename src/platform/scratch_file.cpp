#include "platform/scratch_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/format.h"

namespace tvx {

namespace fs = std::filesystem;

ScratchFile::ScratchFile() : descriptor_(::memfd_create("tvx", MFD_CLOEXEC)) {}

std::string ScratchFile::Path() const {
  return Format("/proc/self/fd/%d", descriptor_.Number());
}

bool ScratchFile::Read(std::string* bytes) const {
  const off_t size = ::lseek(descriptor_.Number(), 0, SEEK_END);
  if (size < 0) return false;
  std::string read(static_cast<size_t>(size), '\0');
  for (size_t at = 0; at < read.size();) {
    const ssize_t count =
        ::pread(descriptor_.Number(), read.data() + at, read.size() - at, static_cast<off_t>(at));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    at += static_cast<size_t>(count);
  }
  *bytes = std::move(read);
  return true;
}

std::string FolderForTemporaries() {
  std::error_code error;
  return fs::temp_directory_path(error).string();
}

uint64_t TemporarySpace() {
  std::error_code error;
  const fs::space_info space = fs::space(FolderForTemporaries(), error);
  return error ? 0 : space.available;
}

}  // namespace tvx
