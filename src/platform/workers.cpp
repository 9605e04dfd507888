// Threads live only as long as one call: the program has none while it waits for the user.
#include "platform/workers.h"

#include <sched.h>

#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace tvx {

unsigned CoreCount() {
  cpu_set_t cores;
  // hardware_concurrency counts the cores of the machine, this counts those that are allowed.
  if (sched_getaffinity(0, sizeof cores, &cores) == 0) {
    return static_cast<unsigned>(std::max(CPU_COUNT(&cores), 1));
  }
  return std::max(std::thread::hardware_concurrency(), 1U);
}

void WorkTogether(unsigned count, const std::function<void(unsigned worker)>& work) {
  std::vector<std::exception_ptr> failures(std::max(count, 1U));
  const auto guarded = [&](unsigned worker) {
    try {
      work(worker);
    } catch (...) {
      failures[worker] = std::current_exception();
    }
  };
  std::vector<std::thread> threads;
  threads.reserve(failures.size());
  try {
    for (unsigned worker = 1; worker < count; ++worker) threads.emplace_back(guarded, worker);
  } catch (const std::system_error&) {
    // No more threads.
  }
  guarded(0);
  for (std::thread& thread : threads) thread.join();
  for (const std::exception_ptr& failure : failures) {
    if (failure) std::rethrow_exception(failure);
  }
}

}  // namespace tvx
