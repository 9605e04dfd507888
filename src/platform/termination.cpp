// Signal handlers, and the table of paths that they remove: plain memory, since a handler may
// interrupt anything.
#include "platform/termination.h"

#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tvx {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP, SIGXCPU};

enum SlotState { kFree, kBeingFilled, kFilled };
struct Slot {
  std::atomic<int> state;
  char path[PATH_MAX];
};
constexpr size_t kSlots = 32;
Slot slots[kSlots];

std::atomic<TerminationHook> terminationHook;

const char* programName = "";
char subject[4096];

extern "C" void OnSignal(int number) {
  const int error = errno;  // of the work that is interrupted
  const TerminationHook hook = terminationHook.load();
  if (hook == nullptr || !hook(number)) {
    RemoveTemporaryPaths();
    ::signal(number, SIG_DFL);
    ::raise(number);  // acts when this handler returns
  }
  errno = error;
}

sigset_t SignalSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int number : kSignals) sigaddset(&set, number);
  return set;
}

void OpenStandardDescriptors() {
  for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
    if (::fcntl(number, F_GETFD) == -1 && errno == EBADF) {
      // The lowest free number is the one that is missing. Not for writing: output remains an
      // error.
      (void)!::open("/dev/null", O_RDONLY);
    }
  }
}

}  // namespace

void PrepareProcess() {
  OpenStandardDescriptors();
  ::signal(SIGXFSZ, SIG_IGN);
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_mask = SignalSet();
  for (const int number : kSignals) {
    struct sigaction before {};
    const bool isIgnored =
        ::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
    if (!isIgnored) ::sigaction(number, &action, nullptr);
  }
}

void RemoveTemporaryPaths() {
  for (Slot& slot : slots) {
    if (slot.state == kFilled && ::unlink(slot.path) != 0) ::rmdir(slot.path);
  }
}

void SetSubject(std::string_view file) {
  const std::string_view kept = file.substr(0, sizeof subject - 1);
  *std::transform(kept.begin(), kept.end(), subject,
                  [](char c) { return static_cast<unsigned char>(c) < ' ' ? '?' : c; }) = '\0';
}

const char* Subject() {
  return subject;
}

void SetProgramName(const char* name) {
  programName = name;
}

void EndInterrupted() {
  RemoveTemporaryPaths();
  ::_exit(1);
}

void EndOutOfMemory() {
  const char* const separator = subject[0] == '\0' ? "" : ": ";
  for (const char* const text :
       {programName, ": ", static_cast<const char*>(subject), separator, "out of memory\n"}) {
    (void)!::write(STDERR_FILENO, text, std::strlen(text));
  }
  RemoveTemporaryPaths();
  ::_exit(1);
}

bool HasEnded(pid_t process) {
  return ::kill(process, 0) != 0 && errno == ESRCH;
}

void SetTerminationHook(TerminationHook hook) {
  terminationHook = hook;
}

HeldSignals::HeldSignals() {
  const sigset_t set = SignalSet();
  ::pthread_sigmask(SIG_BLOCK, &set, &before_);
}

HeldSignals::~HeldSignals() {
  ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

TemporaryPath::TemporaryPath(const std::filesystem::path& path) {
  if (path.native().size() >= PATH_MAX) return;
  for (size_t i = 0; i < kSlots; ++i) {
    int expected = kFree;
    if (!slots[i].state.compare_exchange_strong(expected, kBeingFilled)) continue;
    std::memcpy(slots[i].path, path.c_str(), path.native().size() + 1);
    slots[i].state = kFilled;
    slot_ = static_cast<int>(i);
    return;
  }
}

TemporaryPath::~TemporaryPath() {
  if (slot_ >= 0) slots[slot_].state = kFree;
}

}  // namespace tvx
