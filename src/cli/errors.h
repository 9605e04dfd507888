#pragma once

#include <string>

namespace tvx {

// The two ways in which a command of the tool ends early. main() turns them into one line on
// standard error and the exit status.

// The call itself is wrong: exit status 2.
struct WrongCall {
  std::string message;
};

// An operation failed: exit status 1. `file` as the user named it.
struct Failure {
  std::string file;
  std::string reason;
};

}  // namespace tvx
