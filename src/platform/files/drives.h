// The drives of the machine and their host folders.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace tvx {

// Drive paths ("c:\marlo\ncdata") and the host folders behind them. Lists travel between machines,
// so records and files hold drive paths only; this table is where they meet the host.
//
// The home folder holds drives.txt: lines of a drive letter with its colon and a host folder
// ("c: drive_c", "n: /srv/nc files"); a relative folder lies below the home folder, the folder need
// not exist. Of two lines for one letter the later one counts; other lines are ignored.
class Drives {
 public:
  // Opens the table of a home folder. At the first start (no drives.txt) the folder is created with
  // a drives.txt of c: -> drive_c and z: -> /, and the folders drive_c/windows, drive_c/marlo/afa
  // and drive_c/marlo/ncdata. A home that cannot be written, or a table
  // without a single drive, still gives these two drives.
  explicit Drives(const std::filesystem::path& home);

  // Why drives.txt, which is there, could not be read. The drives are then those of the first
  // start, and nothing is written. The path is the one of this machine.
  const Status& tableStatus() const { return tableStatus_; }

  // TVX_HOME, else $XDG_DATA_HOME/tvx, else ~/.local/share/tvx.
  static std::filesystem::path DefaultHome();

  // The letters of the drives, lower case, in ascending order.
  std::vector<char> Letters() const;

  // The host path of an absolute drive path ("c:x" is "c:\x"). Each component is looked up by its
  // exact name first, else by the first in byte order that differs only in the case of ASCII
  // letters; from the first that does not exist on, they are taken as they stand. Both "\" and "/"
  // separate;
  // "." and ".." are worked out on the drive path and never leave the drive. Nothing if the drive
  // is not in the table or the path holds a NUL.
  std::optional<std::filesystem::path> ToHost(std::string_view drivePath) const;

  // The drive path of an absolute host path: the longest drive folder that holds it, compared by
  // name, without following links. Nothing if no drive holds it or a name in it has a "\", which no
  // drive path can say. The path need not exist.
  std::optional<std::string> FromHost(const std::filesystem::path& hostPath) const;

 private:
  struct Drive {
    char letter;
    std::filesystem::path folder;
  };

  void ReadLines(const std::filesystem::path& home, std::string_view table);
  void ReadLine(const std::filesystem::path& home, std::string_view line);

  std::vector<Drive> drives_;  // by letter
  Status tableStatus_;
};

// True for "c:", "c:\x", "C:/x": a letter and a colon at the start.
bool HasDrive(std::string_view path);

// A path with its drive: one without is relative to the directory, one that starts with "\" or "/"
// to the root of the directory's drive.
std::string AbsoluteDrivePath(const std::string& directory, const std::string& path);

// A path with a drive as an absolute one in its plainest form: backslashes, no "." or "..", none at
// the end except for the root. The letters keep their case.
std::string NormalDrivePath(std::string_view drivePath);

// True if a ".." is left in the path once it is normalised: it leads above the root or, without
// one, above the directory that it starts from.
bool LeadsAbove(std::string_view path);

// The system's Windows directory, as every path of it is built.
inline constexpr char kWindowsDirectory[] = "c:\\windows";

}  // namespace tvx
