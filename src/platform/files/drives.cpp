// Maps drive paths to host folders and back.
#include "platform/files/drives.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "base/scan.h"
#include "platform/files/descriptor.h"
#include "platform/files/files.h"

namespace tvx {

namespace fs = std::filesystem;

namespace {

constexpr char kTableName[] = "drives.txt";
constexpr char kFirstTable[] = "c: drive_c\nz: /\n";
constexpr const char* kFirstFolders[] = {"drive_c/windows", "drive_c/marlo/afa",
                                         "drive_c/marlo/ncdata"};
constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kBlanks = " \t\r\n";

bool IsDriveLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
char LowerLetter(char letter) {
  return static_cast<char>(letter | 0x20);
}

// A folder as it is compared: absolute, without "." and "..", without a separator at its end.
fs::path Normalised(const fs::path& path) {
  const fs::path normal = path.lexically_normal();
  return normal.has_filename() || normal == normal.root_path() ? normal : normal.parent_path();
}

fs::path Absolute(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return Normalised(error ? fs::path("/") / path : absolute);
}

std::string_view Trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

Result<std::string> ReadTable(const fs::path& path) {
  const auto cannotOpen = [&](int reason) { return Status::CannotOpen(path, reason); };
  // Not blocking, since the mere opening of a pipe waits for its other side.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) return cannotOpen(errno);
  if (S_ISDIR(status.st_mode)) return cannotOpen(EISDIR);
  if (!S_ISREG(status.st_mode)) return Status(StatusKind::kNoFile, path);
  if (static_cast<uint64_t>(status.st_size) > kLargestSettings) {
    return Status(StatusKind::kTooLarge, path);
  }
  std::string table(static_cast<size_t>(status.st_size), '\0');
  size_t done = 0;
  while (done < table.size()) {
    const ssize_t count = ::read(file.Number(), table.data() + done, table.size() - done);
    const int reason = errno;
    if (count < 0 && reason == EINTR) continue;
    if (count < 0) return Status(StatusKind::kReadFailed, path, reason);
    if (count == 0) return Status(StatusKind::kChanged, path);
    done += static_cast<size_t>(count);
  }
  return table;
}

void WriteFirstLayout(const fs::path& home) {
  std::error_code error;
  for (const char* folder : kFirstFolders) fs::create_directories(home / folder, error);
  // The table last: where it is missing, the next start tries the whole layout again.
  std::ofstream out(home / kTableName, std::ios::binary);
  if (!(out << kFirstTable).flush()) {
    out.close();
    fs::remove(home / kTableName, error);
  }
}

// The components of a drive path after its drive, with "." and ".." worked out.
std::vector<std::string_view> Components(std::string_view path) {
  std::vector<std::string_view> components;
  while (!path.empty()) {
    const size_t end = std::min(path.find_first_of(kSeparators), path.size());
    const std::string_view component = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (component == "..") {
      if (!components.empty()) components.pop_back();
    } else if (!component.empty() && component != ".") {
      components.push_back(component);
    }
  }
  return components;
}

// The entry of a folder that the name means. Empty if there is none.
fs::path FindEntry(const fs::path& folder, std::string_view name) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(folder / name, error))) return folder / name;
  std::string found;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string candidate = entry->path().filename().string();
    if (EqualNoCase(candidate, name) && (found.empty() || candidate < found)) {
      found = std::move(candidate);
    }
  }
  return found.empty() ? fs::path() : folder / found;
}

// True if `folder` is `path` or lies above it; *below is then the rest of the path.
bool Holds(const fs::path& folder, const fs::path& path, fs::path* below) {
  const auto [folderEnd, pathEnd] =
      std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
  if (folderEnd != folder.end()) return false;
  below->clear();
  for (auto component = pathEnd; component != path.end(); ++component) *below /= *component;
  return true;
}

}  // namespace

Drives::Drives(const fs::path& home) {
  const fs::path folder = Absolute(home);
  const Result<std::string> table = ReadTable(folder / kTableName);
  if (table.status.kind() == StatusKind::kMissing) {
    WriteFirstLayout(folder);
  } else {
    tableStatus_ = table.status;
  }
  ReadLines(folder, table.value);
  // A table that was lost or cannot be read must not keep the program from starting.
  if (drives_.empty()) ReadLines(folder, kFirstTable);
}

void Drives::ReadLines(const fs::path& home, std::string_view table) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // as some editors write it
  if (table.starts_with(kByteOrderMark)) table.remove_prefix(kByteOrderMark.size());
  while (!table.empty()) {
    const size_t end = std::min(table.find('\n'), table.size());
    ReadLine(home, Trimmed(table.substr(0, end)));
    table.remove_prefix(std::min(end + 1, table.size()));
  }
  std::sort(drives_.begin(), drives_.end(),
            [](const Drive& a, const Drive& b) { return a.letter < b.letter; });
}

void Drives::ReadLine(const fs::path& home, std::string_view line) {
  if (!HasDrive(line)) return;
  const std::string_view folder = Trimmed(line.substr(2));
  if (folder.empty() || folder.find('\0') != std::string_view::npos) return;
  const char letter = LowerLetter(line[0]);
  std::erase_if(drives_, [letter](const Drive& drive) { return drive.letter == letter; });
  drives_.push_back({letter, Normalised(home / folder)});
}

fs::path Drives::DefaultHome() {
  const auto variable = [](const char* name) {
    const char* value = std::getenv(name);
    return fs::path(value != nullptr ? value : "");
  };
  if (fs::path home = variable("TVX_HOME"); !home.empty()) return home;
  if (const fs::path data = variable("XDG_DATA_HOME"); data.is_absolute()) return data / "tvx";
  fs::path user = variable("HOME");
  if (user.empty()) {
    const passwd* account = getpwuid(getuid());
    user = account != nullptr ? account->pw_dir : "/";
  }
  return user / ".local/share/tvx";
}

std::vector<char> Drives::Letters() const {
  std::vector<char> letters;
  for (const Drive& drive : drives_) letters.push_back(drive.letter);
  return letters;
}

std::optional<fs::path> Drives::ToHost(std::string_view drivePath) const {
  if (!HasDrive(drivePath) || drivePath.find('\0') != std::string_view::npos) return std::nullopt;
  const char letter = LowerLetter(drivePath[0]);
  const auto drive = std::find_if(drives_.begin(), drives_.end(),
                                  [letter](const Drive& d) { return d.letter == letter; });
  if (drive == drives_.end()) return std::nullopt;

  fs::path host = drive->folder;
  bool exists = true;
  for (const std::string_view component : Components(drivePath.substr(2))) {
    const fs::path entry = exists ? FindEntry(host, component) : fs::path();
    exists = !entry.empty();
    host = exists ? entry : host / component;
  }
  return host;
}

std::optional<std::string> Drives::FromHost(const fs::path& hostPath) const {
  if (!hostPath.is_absolute()) return std::nullopt;
  const fs::path path = Normalised(hostPath);
  if (path.native().find('\\') != std::string::npos) return std::nullopt;

  const Drive* nearest = nullptr;
  fs::path below;
  for (const Drive& drive : drives_) {
    const auto length = [](const fs::path& p) { return std::distance(p.begin(), p.end()); };
    fs::path rest;
    if (Holds(drive.folder, path, &rest) &&
        (nearest == nullptr || length(drive.folder) > length(nearest->folder))) {
      nearest = &drive;
      below = rest;
    }
  }
  if (nearest == nullptr) return std::nullopt;
  std::string drivePath = std::string(1, nearest->letter) + ":\\" + below.generic_string();
  std::replace(drivePath.begin(), drivePath.end(), '/', '\\');
  return drivePath;
}

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == ':';
}

std::string AbsoluteDrivePath(const std::string& directory, const std::string& path) {
  if (HasDrive(path)) return path;
  const bool fromRoot = !path.empty() && (path[0] == '\\' || path[0] == '/');
  return (fromRoot ? directory.substr(0, 2) : directory + "\\") + path;
}

bool LeadsAbove(std::string_view path) {
  if (HasDrive(path)) path.remove_prefix(2);
  int depth = 0;
  while (!path.empty()) {
    const size_t end = std::min(path.find_first_of(kSeparators), path.size());
    const std::string_view component = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (component == "..") {
      if (depth == 0) return true;
      --depth;
    } else if (!component.empty() && component != ".") {
      ++depth;
    }
  }
  return false;
}

std::string NormalDrivePath(std::string_view drivePath) {
  std::string normal(drivePath.substr(0, 2));
  for (const std::string_view component : Components(drivePath.substr(2))) {
    normal.append("\\").append(component);
  }
  return normal.size() == 2 ? normal + "\\" : normal;
}

}  // namespace tvx
