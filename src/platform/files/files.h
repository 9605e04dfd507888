// Files as the program sees them: by drive paths, replaced as a whole.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace tvx {

// Shows whether a file has been written since.
struct FileStamp {
  uint64_t size = 0;     // bytes
  int64_t modified = 0;  // time of the last write, ns since 1970
  bool operator==(const FileStamp&) const = default;
};

// A file open for reading.
class InputFile {
 public:
  virtual ~InputFile() = default;
  // Reads up to `size` bytes. Returns how many; 0 at the end and on a failure, which `status`
  // distinguishes.
  virtual size_t Read(char* buffer, size_t size) = 0;
  // The same from `offset` on; Read goes on where it was.
  virtual size_t ReadAt(uint64_t offset, char* buffer, size_t size) = 0;
  // As the file was when it was opened.
  virtual FileStamp Stamp() = 0;
  // Why a read of this file has failed: kReadFailed, or kChanged if Read found the end of a file
  // that is not what was opened.
  virtual Status status() const { return {}; }
};

// A file being written. The bytes go to a temporary file beside the target; an older file of that
// name stays whole until Commit has succeeded. Destroyed without a Commit, it leaves no trace.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  // Appends bytes, through a buffer, so that many small pieces cost little and a failure may show
  // only at a later call. After a failure, each later call fails for the same reason.
  virtual Status Write(std::string_view bytes) = 0;
  // Overwrites bytes written earlier, from `offset` on; writing goes on after the end. Fails as
  // above or, with nothing changed, if the range does not lie within what has been written.
  virtual Status Patch(uint64_t offset, std::string_view bytes) = 0;
  // For a file that can be made again at will: Commit does not wait until it is on the disk.
  virtual void LeaveUnsynced() {}
  // Writes the file to the disk and puts it in place of the older one, whose rights it takes over;
  // behind a link, in place of the file that the link leads to. Fails if anything failed before.
  // Nothing can be written afterwards.
  virtual Status Commit() = 0;
};

struct DirectoryEntry {
  std::string name;  // UTF-8, without directory
  bool isDirectory = false;
  uint64_t size = 0;  // bytes; 0 for a directory
};

// The file system as the program sees it: drive paths in UTF-8. A path without a drive is relative
// to the current directory, one that starts with "\" or "/" to the root of the current drive; an
// empty path is none.
class Files {
 public:
  virtual ~Files() = default;

  // Fails with kMissing if the file does not exist, kNoFile if it is no plain file (a directory, a
  // pipe, a device) and kCannotOpen if it cannot be read.
  virtual Result<std::unique_ptr<InputFile>> OpenForReading(const std::string& path) = 0;
  // The same, but a file that does not exist is created empty first.
  virtual Result<std::unique_ptr<InputFile>> OpenOrCreateForReading(const std::string& path) = 0;
  // Fails with kMissing if there is no such directory, kNoFile for a directory of that name or
  // anything else that is no plain file, and kCannotOpen without the right to write there or to
  // replace an existing file.
  virtual Result<std::unique_ptr<OutputFile>> Create(const std::string& path) = 0;
  // Done if a file or a directory has that name. Fails with kMissing if none has, and with another
  // kind if that cannot be seen.
  virtual Status LookAt(const std::string& path) = 0;
  // False for what is missing, and for nothing else.
  bool Exists(const std::string& path) { return LookAt(path).kind() != StatusKind::kMissing; }
  virtual bool IsDirectory(const std::string& path) = 0;
  // Size in bytes; 0 for what does not exist or is no plain file.
  virtual uint64_t Size(const std::string& path) = 0;
  // The entries of a directory in no order, without "." and "..".
  virtual Result<std::vector<DirectoryEntry>> List(const std::string& directory) = 0;
  // Copies over an older file, which stays whole until the copy is complete and on the disk. (That
  // of the folder is left to the next file that is committed there: it would double the time.)
  // Source and destination may be the same file under two names: it is then left as it is. The
  // path of a failure says which of the two files failed.
  virtual Status Copy(const std::string& from, const std::string& to) = 0;
  // Letters of the drives, lower case, ascending.
  virtual std::vector<char> DriveLetters() = 0;

  // The directory that follows the browser; not that of the process. Absolute, without a backslash
  // at its end except for the root of a drive. Its letters are those that were last set.
  virtual std::string CurrentDirectory() = 0;
  // Takes a path like any other here. Fails, with no change, if it is no directory.
  virtual Status SetCurrentDirectory(const std::string& directory) = 0;
};

// The bytes of a whole file. Fails if it cannot be opened or read to its end.
Result<std::string> ReadWholeFile(Files* files, const std::string& path);

// Largest file of settings, list or condition, bytes: what is larger is a file of another kind.
inline constexpr uint64_t kLargestSettings = uint64_t{4} << 20;

// The same for such a file; fails with kTooLarge if it is larger.
Result<std::string> ReadSettings(Files* files, const std::string& path);

// Creates or replaces a whole file. The older file stays as it was if anything fails.
Status WriteWholeFile(Files* files, const std::string& path, std::string_view bytes);

class Drives;

// The files of this machine behind a drive table, which has to outlive the result. The current
// directory starts as the drive path of the process's own if a drive holds it, else "c:\".
std::unique_ptr<Files> MakeHostFiles(const Drives* drives);

}  // namespace tvx
