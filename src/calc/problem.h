#pragma once

#include <string>

namespace tvx {

// Why a step cannot be carried out, in words for the caller. Ends the step, not the program.
struct Problem {
  std::string reason;
};

}  // namespace tvx
