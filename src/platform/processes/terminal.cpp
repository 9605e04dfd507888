#include "platform/processes/terminal.h"

#include <unistd.h>

namespace tvx {

bool StandardErrorIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

}  // namespace tvx
