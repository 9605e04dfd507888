// The program check of a window: begins anew with each load and is done in steps.
#pragma once

#include <cstdint>
#include <memory>

#include "insight/program_check.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "model/parser_state.h"
#include "platform/files.h"

namespace tvx {

enum class CheckState {
  kNoProgram,   // the blocks in the store come from no file
  kUnderWay,    // CheckMore has further lines to check
  kDone,        // there is a result
  kCannotRead,  // the file is gone or cannot be opened
  kChanged,     // the file is not the one that was loaded
};

class ViewCheck {
 public:
  // Called before each load, with what the load reads from. Drops the check of the program before.
  void Restart(const NcProgram& program, const ParserStates& states, const JobRecord& job);

  // Checks up to so many further lines of the program that was loaded. Returns the state behind
  // them. Does nothing unless the state is kUnderWay.
  CheckState CheckMore(const ProgramSource& source, uint64_t lines, Files* files);

  // Of the program in the store.
  CheckState State(const ProgramSource& source) const;

  // Null until a check is done. Stays valid for its holders after the next Restart.
  const std::shared_ptr<const ProgramCheck>& Result() const { return result_; }

 private:
  LoadStart start_;
  JobRecord job_;
  CheckState state_ = CheckState::kUnderWay;  // of a program from a file
  std::unique_ptr<ProgramChecker> checker_;   // only while lines are being checked
  std::shared_ptr<const ProgramCheck> result_;
};

}  // namespace tvx
