#pragma once

#include <cstddef>

namespace tvx {

// How often this process has allocated memory so far.
size_t AllocationCount();

}  // namespace tvx
