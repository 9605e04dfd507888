// Program checks that are done after the load, in steps: of the program loaded last and of the
// programs of the results.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "insight/machine_time.h"
#include "insight/program_check.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "model/parser_state.h"
#include "platform/files/files.h"

namespace tvx {

enum class CheckState {
  kNoProgram,   // the blocks in the store come from no file
  kUnderWay,    // CheckMore has further lines to check
  kDone,        // there is a result
  kCannotRead,  // the file is gone or cannot be opened
  kChanged,     // the file is not the one that was loaded
};

// The check of one program. Results share it, so that a check which ends later reaches them.
struct FileCheck {
  std::string path;  // absolute drive path
  FileStamp stamp;   // of the file at the load
  CheckState state = CheckState::kUnderWay;
  std::shared_ptr<const ProgramCheck> result;  // null unless the state is kDone
};

// The dwells and tool changes of a checked program; none without a check, and as long as it is
// under way.
ProgramPauses PausesOf(const FileCheck* check);

class ProgramChecks {
 public:
  // Called after each load, with what the load started from; the source has no path if nothing was
  // loaded. Drops the check of the program before, unless it was kept.
  void Restart(const ProgramSource& source, const LoadStart& start, const JobRecord& job);

  // The check of the program loaded last, done or not, for a result, which may outlive the program:
  // it is then done as long as the result exists. Null if no program is loaded.
  std::shared_ptr<const FileCheck> Keep();

  // Checks up to so many further lines: of the program loaded last, then of the kept ones in their
  // order. Returns false once all checks have ended.
  bool CheckMore(uint64_t lines, Files* files);
  // Brings all checks to their ends, which the progress shows.
  void Finish(Files* files, Progress* progress);
  // Checks that have not ended.
  size_t Pending() const;
  bool IsUnderWay() const { return Pending() > 0; }

  // Of the program loaded last: its check, null if nothing was loaded; what that says.
  std::shared_ptr<const FileCheck> Loaded() const;
  CheckState State() const;
  std::shared_ptr<const ProgramCheck> Result() const;

 private:
  // What a check that is not done yet starts from.
  struct Start {
    LoadStart load;
    JobRecord job;
  };
  struct Entry {
    uint32_t number = 0;
    bool isKept = false;
    std::shared_ptr<FileCheck> check;
    std::unique_ptr<Start> start;  // null once the check has ended
  };

  Entry* Next();
  void End(Entry* entry, CheckState state);

  std::vector<Entry> entries_;  // in the order of the loads
  bool isLoaded_ = false;       // the last entry is the program in the store
  uint32_t loads_ = 0;
  uint32_t underCheck_ = 0;                  // number of the entry that is being checked
  std::unique_ptr<ProgramChecker> checker_;  // of it; null between two programs
};

}  // namespace tvx
