// The program check: reads a program once more with the parser of the loader and lists by source
// line what path and figures leave out or understand otherwise than a machine. It changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "insight/remarks.h"
#include "model/loader.h"
#include "platform/files/files.h"

namespace tvx {

// What a load starts from, and with it the check of the same program. Take it before the load.
struct LoadStart {
  ParserStates states;
  float arcRadius = 0;  // mm
};

LoadStart TakeLoadStart(const NcProgram& program, const ParserStates& states);

struct CheckOptions {
  // How many remarks of each id are stored; the others are only counted. A remark takes some 50
  // bytes, so a program of any size takes at most some 13 MB.
  size_t storedPerId = 10'000;
  // How many blocks the store of the load can hold.
  uint32_t storeCapacity = BlockStore::kMaxBlocks;
  // Gets the bytes read. Once it is stopped, the check ends as at the end of the program.
  Progress* progress = NoProgress();
};

// The check of one program in steps, for callers with other work to do between them.
class ProgramChecker {
 public:
  // Opens the program, a drive path, with the settings of the job under which it was loaded.
  // `files` has to outlive the object.
  ProgramChecker(const std::string& path, const LoadStart& start, const JobRecord& job,
                 Files* files, const CheckOptions& options = {});
  ~ProgramChecker();
  ProgramChecker(const ProgramChecker&) = delete;
  ProgramChecker& operator=(const ProgramChecker&) = delete;

  // Why the program cannot be opened. There is nothing to check then.
  const Status& status() const { return status_; }
  // Checks up to so many further lines. Returns false once the program has ended; only then is the
  // result complete.
  bool CheckMore(uint64_t lines);
  const ProgramCheck& Result() const;
  // Behind the end of the program: what the next one starts from.
  LoadStart NextStart() const;

  class Work;

 private:
  Status status_;
  std::unique_ptr<Work> work_;
};

// Checks a whole program. Fails if it cannot be opened. Otherwise as ProgramChecker.
Result<ProgramCheck> CheckProgram(const std::string& path, const LoadStart& start,
                                  const JobRecord& job, Files* files,
                                  const CheckOptions& options = {});

}  // namespace tvx
