// Files as the program sees them: by drive paths, replaced as a whole.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// Shows whether a file has been written since.
struct FileStamp {
  uint64_t size = 0;     // bytes
  int64_t modified = 0;  // time of the last write, ns since 1970
  bool operator==(const FileStamp&) const = default;
};

// Reasons for a failure that the system does not have, beside its errno values.
inline constexpr int kNoPlainFile = -1;  // a pipe, a device
inline constexpr int kFileChanged = -2;  // shorter or written since it was opened
inline constexpr int kPartSource = -3;   // to be written from files that could not be read whole
inline constexpr int kRefusedName = -4;  // a name that such a file may not have
inline constexpr int kAboveLimit = -5;   // above kLargestSettings

// True for the reasons that leave open what a file holds: not for a file that is missing or none.
bool IsReadFailure(int error);

// The reason in words, as the system has them: "No space left on device".
std::string FileErrorText(int error);

// A file open for reading.
class InputFile {
 public:
  virtual ~InputFile() = default;
  // Reads up to `size` bytes. Returns how many; 0 at the end and on a failure, which Error
  // distinguishes.
  virtual size_t Read(char* buffer, size_t size) = 0;
  // The same from `offset` on; Read goes on where it was.
  virtual size_t ReadAt(uint64_t offset, char* buffer, size_t size) = 0;
  // As the file was when it was opened.
  virtual FileStamp Stamp() = 0;
  // Why a read failed: an errno value, or kFileChanged if Read found the end of a file that is not
  // what was opened. 0 if none has failed.
  virtual int Error() const { return 0; }
};

// A file being written. The bytes go to a temporary file beside the target; an older file of that
// name stays whole until Commit has succeeded. Destroyed without a Commit, it leaves no trace.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  // Appends bytes, through a buffer, so that many small pieces cost little and a failure may show
  // only at a later call. Returns false on a failure, after which Commit fails as well.
  virtual bool Write(std::string_view bytes) = 0;
  // Overwrites bytes written earlier, from `offset` on; writing goes on behind the end. Returns
  // false on a failure as above, or, with nothing changed, if the range does not lie within what
  // has been written.
  virtual bool Patch(uint64_t offset, std::string_view bytes) = 0;
  // For a file that can be made again at will: Commit does not wait until it is on the disk.
  virtual void LeaveUnsynced() {}
  // Writes the file to the disk and puts it in place of the older one, whose rights it takes over;
  // behind a link, in place of the file that the link leads to. Returns false if anything failed.
  // Nothing can be written afterwards.
  virtual bool Commit() = 0;
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

  // Null if the file does not exist, cannot be read or is no plain file (a directory, a pipe, a
  // device).
  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
  // The same, but a file that does not exist is created empty first. Null if that fails.
  virtual std::unique_ptr<InputFile> OpenOrCreateForReading(const std::string& path) = 0;
  // Null if the file cannot be created: no such directory, no right to write, a directory of that
  // name or anything else that is no plain file, or an existing file that may not be written.
  virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;
  // A file or a directory of that name; also true for what cannot be looked at, for the reason of
  // LastError, which is 0 otherwise.
  virtual bool Exists(const std::string& path) = 0;
  virtual bool IsDirectory(const std::string& path) = 0;
  // Size in bytes; 0 for what does not exist or is no plain file.
  virtual uint64_t Size(const std::string& path) = 0;
  // The entries of a directory in no order, without "." and "..". False, with *entries
  // alone, if it cannot be read.
  virtual bool List(const std::string& directory, std::vector<DirectoryEntry>* entries) = 0;
  // Copies over an older file, which stays whole until the copy is complete and on the disk. (That
  // of the folder is left to the next file that is committed there: it would double the time.)
  // Source and destination may be the same file under two names: it is then left as it is and the
  // result is true.
  virtual bool Copy(const std::string& from, const std::string& to) = 0;
  // Letters of the drives, lower case, ascending.
  virtual std::vector<char> DriveLetters() = 0;

  // The directory that follows the browser; not that of the process. Absolute, without a backslash
  // at its end except for the root of a drive. Its letters are those that were last set.
  virtual std::string CurrentDirectory() = 0;
  // Takes a path like any other here. False, and no change, if it is no directory.
  virtual bool SetCurrentDirectory(const std::string& directory) = 0;

  // Why the last operation on a file failed, or on a file that is open: an errno value or one of
  // those above; ENOENT for a file that is missing, and for no other. An opening that succeeds
  // sets it to 0.
  int LastError() const { return lastError_; }
  // Sets it to `error`. Returns false, for the caller to return.
  bool Fail(int error) {
    lastError_ = error;
    return false;
  }

 protected:
  void ClearError() { lastError_ = 0; }

 private:
  int lastError_ = 0;
};

// Reads a whole file. False, with *bytes alone, if it cannot be opened or read to its end.
bool ReadWholeFile(Files* files, const std::string& path, std::string* bytes);

// Largest file of settings, list or condition, bytes: what is larger is a file of another kind.
inline constexpr uint64_t kLargestSettings = uint64_t{4} << 20;

// The same for such a file; also false, with the error kAboveLimit, if it is larger.
bool ReadSettings(Files* files, const std::string& path, std::string* bytes);

// Creates or replaces a whole file. False, with the older file as it was, if anything fails.
bool WriteWholeFile(Files* files, const std::string& path, std::string_view bytes);

class Drives;

// The files of this machine behind a drive table, which has to outlive the result. The current
// directory starts as the drive path of the process's own if a drive holds it, else "c:\".
std::unique_ptr<Files> MakeHostFiles(const Drives* drives);

}  // namespace tvx
