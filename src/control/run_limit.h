// Ends runs that do not end by themselves.
#pragma once

#include <algorithm>
#include <cstdint>

#include "control/program_text.h"

namespace tvx {

// Counts the lines that are run, the cuts of cycles and the times of repeats.
class RunLimit {
 public:
  // A run may take so many more than the program has lines. `text` has to outlive the object.
  RunLimit(ProgramText* text, uint64_t stepsBeyondLines)
      : text_(text), stepsBeyondLines_(stepsBeyondLines) {}

  // Counts one. False if that is above the limit, or if the user has stopped the work.
  bool Take() {
    if (++taken_ <= sure_) [[likely]]
      return true;
    return TakeFurther();
  }

  // How many were counted.
  uint64_t Taken() const { return taken_; }

  // True once the limit has ended the run.
  bool IsExceeded() const { return isExceeded_; }

 private:
  static constexpr uint64_t kStepsBetweenProgress = 1 << 14;

  // The lines of the file are counted only if their number matters.
  bool TakeFurther() {
    if (isExceeded_ || !text_->StepProgress()) return false;
    uint64_t limit = stepsBeyondLines_;
    if (taken_ > limit) limit += text_->CountLines();
    isExceeded_ = taken_ > limit;
    sure_ = std::min(limit, taken_ + kStepsBetweenProgress);
    return !isExceeded_;
  }

  ProgramText* text_;
  uint64_t stepsBeyondLines_;
  uint64_t taken_ = 0;
  uint64_t sure_ = 0;  // up to this number nothing has to be looked at
  bool isExceeded_ = false;
};

}  // namespace tvx
