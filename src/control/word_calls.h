// The calls under way in a word-address program.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "control/program_index.h"
#include "control/program_text.h"
#include "control/run_limit.h"
#include "control/variables.h"

namespace tvx {

// Where a call goes, and how often.
struct CallTarget {
  TextPlace begin;
  uint64_t heading = kNoHeading;  // offset of the line with the O word of the program
  double times = 1;
};

class WordCalls {
 public:
  static constexpr size_t kDeepest = 16;

  // All have to outlive the object.
  WordCalls(ProgramText* text, RunLimit* limit, Variables* variables)
      : text_(text), limit_(limit), variables_(variables) {}

  // Goes on at the target, with variables of its own if there are arguments. False, and nothing
  // changed, if the calls are too deep. A target of less than one time is not called.
  bool Call(const CallTarget& target, const std::optional<LocalVariables>& arguments);

  // Repeats the present call, or continues after it. False in the main program, and at the limit of
  // the run.
  bool Return();

  bool IsMain() const { return calls_.empty(); }
  // Of the program that is run: the offset of its O word's line.
  uint64_t Heading() const { return calls_.empty() ? mainHeading_ : calls_.back().target.heading; }
  void SetMainHeading(uint64_t offset) { mainHeading_ = offset; }

 private:
  struct ActiveCall {
    CallTarget target;
    TextPlace returnTo;
    std::optional<LocalVariables> arguments;
  };

  ProgramText* text_;
  RunLimit* limit_;
  Variables* variables_;
  std::vector<ActiveCall> calls_;
  uint64_t mainHeading_ = kNoHeading;
};

}  // namespace tvx
