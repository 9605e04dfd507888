// The terminal of the process.
#pragma once

namespace tvx {

// True if standard error goes to a terminal, where a person watches.
bool StandardErrorIsTerminal();

}  // namespace tvx
