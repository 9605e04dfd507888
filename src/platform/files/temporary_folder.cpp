// Makes and removes temporary folders, also those of processes that were killed.
#include "platform/files/temporary_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <random>
#include <string_view>
#include <system_error>

#include "base/format.h"
#include "base/scan.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kNameStart = "tvx-office-";

// The name may be part of a longer one: the office puts it into that of its pipe.
bool IsLeftover(const fs::path& path) {
  const std::string name = path.filename().string();
  const size_t at = name.find(kNameStart);
  if (at == std::string::npos) return false;
  const auto process = static_cast<pid_t>(TextToInt(name.substr(at + kNameStart.size())));
  struct stat status {};
  return process > 0 && HasEnded(process) && ::lstat(path.c_str(), &status) == 0 &&
         status.st_uid == ::geteuid();
}

void RemoveLeftovers(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (IsLeftover(entry->path())) fs::remove_all(entry->path(), ignored);
  }
}

}  // namespace

std::string UniqueTemporaryName() {
  std::random_device random;
  return std::string(kNameStart) + Format("%ld-%08x", static_cast<long>(::getpid()), random());
}

TemporaryFolder::TemporaryFolder() {
  const fs::path parent = fs::temp_directory_path(error_);
  if (error_) return;
  RemoveLeftovers(parent);
  const fs::path path = parent / UniqueTemporaryName();
  const HeldSignals held;
  if (!fs::create_directory(path, error_)) return;
  registered_.emplace(path);
  path_ = path;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

}  // namespace tvx
