// The end of this process by a signal or for want of memory: its temporary files are removed first.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <filesystem>
#include <string_view>

namespace tvx {

// Call it first in main(). Afterwards
// - SIGTERM, SIGINT, SIGHUP and SIGXCPU remove the temporary paths of this process and then end it,
//   unless they were ignored before;
// - a file that reaches its size limit is a write error (SIGXFSZ is ignored);
// - the descriptors 0 to 2 are open, so that no file to be written becomes the standard output.
void PrepareProcess();

// Removes the temporary paths of this process. May be called from a signal handler.
void RemoveTemporaryPaths();

// Removes the temporary paths and ends the process with exit status 1. May be called from a signal
// handler.
[[noreturn]] void EndInterrupted();

// The file that the work is about, as the user named it; control characters are replaced.
void SetSubject(std::string_view file);
const char* Subject();  // empty before the first

// What ends the process when there is no memory: prints "PROGRAM: FILE: out of memory" with the
// program's name and the subject to standard error, removes the temporary paths and exits with
// status 1. Needs no memory itself.
void SetProgramName(const char* name);  // not copied
[[noreturn]] void EndOutOfMemory();

// True if there is no process of that number.
bool HasEnded(pid_t process);

// Runs in the signal handler before anything else: only what is allowed there. Returns true if the
// process continues. One for the process; null for none.
using TerminationHook = bool (*)(int signal);
void SetTerminationHook(TerminationHook hook);

// While it exists, the calling thread receives none of the signals above: what has to be created
// and registered together is done under it.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

 private:
  sigset_t before_;
};

// Registers a file or an empty folder as a temporary path while the object exists. A path beyond
// the limits (32 paths of PATH_MAX bytes) is not registered.
class TemporaryPath {
 public:
  explicit TemporaryPath(const std::filesystem::path& path);
  ~TemporaryPath();
  TemporaryPath(const TemporaryPath&) = delete;
  TemporaryPath& operator=(const TemporaryPath&) = delete;

 private:
  int slot_ = -1;
};

}  // namespace tvx
