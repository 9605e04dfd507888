// Keeps the start of a load until the check reads the program from there.
#include "shell/view_check.h"

namespace tvx {

void ViewCheck::Restart(const NcProgram& program, const ParserStates& states,
                        const JobRecord& job) {
  start_ = TakeLoadStart(program, states);
  job_ = job;
  state_ = CheckState::kUnderWay;
  checker_.reset();
  result_.reset();
}

CheckState ViewCheck::CheckMore(const ProgramSource& source, uint64_t lines, Files* files) {
  if (State(source) != CheckState::kUnderWay) return State(source);
  if (checker_ == nullptr) {
    checker_ = std::make_unique<ProgramChecker>(source.path, start_, job_, files);
    if (!checker_->IsOpen()) {
      state_ = CheckState::kCannotRead;
    } else if (checker_->Result().stamp != source.stamp) {
      state_ = CheckState::kChanged;
    }
  }
  if (state_ == CheckState::kUnderWay) {
    if (checker_->CheckMore(lines)) return state_;
    result_ = std::make_shared<const ProgramCheck>(checker_->Result());
    state_ = CheckState::kDone;
  }
  checker_.reset();  // closes the file
  return state_;
}

CheckState ViewCheck::State(const ProgramSource& source) const {
  return source.path.empty() ? CheckState::kNoProgram : state_;
}

}  // namespace tvx
