// Work on several processor cores at the same time.
#pragma once

#include <functional>

namespace tvx {

// The cores that this process may use, at least 1.
unsigned CoreCount();

// Calls work(0) on the calling thread and work(1) to work(count - 1) on threads of their own, and
// returns when all of them have returned. Where the system has no more threads fewer calls are
// made: the calls must share their work so that any number of them completes it. An exception of a
// call is thrown again when all have returned, the one with the lowest number if there are several.
void WorkTogether(unsigned count, const std::function<void(unsigned worker)>& work);

}  // namespace tvx
