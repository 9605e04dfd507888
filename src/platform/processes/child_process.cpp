// Starts programs, with pipes and ties to the parent.
#include "platform/processes/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <thread>

#include "platform/termination.h"

namespace tvx {

namespace {

using Clock = std::chrono::steady_clock;

// How often a child is asked whether it has ended.
constexpr Milliseconds kLook{10};

// What the destructor grants a child that is still there.
constexpr Milliseconds kParting{2000};

// Argument lists as the system takes them; the strings have to outlive the result.
std::vector<char*> Pointers(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> EnvironmentWith(const std::vector<std::string>& changes) {
  std::vector<std::string> result = changes;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const std::string_view name = text.substr(0, text.find('=') + 1);
    const bool changed = std::any_of(changes.begin(), changes.end(), [&](const std::string& other) {
      return std::string_view(other).starts_with(name);
    });
    if (!changed) result.emplace_back(text);
  }
  return result;
}

// Waits until the socket is ready for `events`. False if that does not happen before `end`.
bool WaitFor(int socket, short events, Clock::time_point end) {
  for (;;) {
    const auto left = std::chrono::ceil<Milliseconds>(end - Clock::now()).count();
    pollfd entry{socket, events, 0};
    const int ready = ::poll(&entry, 1, static_cast<int>(std::clamp<int64_t>(left, 0, 1 << 30)));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

// The child that ends in place of this process, 0 for none. A negative number is a whole group.
std::atomic<pid_t> substitute{0};

bool EndSubstitute(int) {
  const pid_t child = substitute.load();
  if (child == 0) return false;
  ::kill(child, SIGKILL);
  ::close(STDIN_FILENO);  // also where a read is about to wait
  return true;
}

// Before the words of a tied command: this program, the word, the number of the parent.
constexpr char kTiedWord[] = "tied";
constexpr int kTiedWords = 3;

}  // namespace

void EndWithParent() {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

std::vector<std::string> TiedToThisProcess(std::vector<std::string> command) {
  command.insert(command.begin(), {"/proc/self/exe", kTiedWord, std::to_string(::getpid())});
  return command;
}

bool IsTiedCall(int count, char** words) {
  return count > kTiedWords && words[1] == std::string_view(kTiedWord);
}

int RunTied(char** words) {
  char** const command = words + kTiedWords;
  // The setting remains in the program that replaces this one.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() == std::atol(words[kTiedWords - 1])) ::execv(command[0], command);
  return 1;
}

std::unique_ptr<ChildProcess> ChildProcess::Start(const std::vector<std::string>& command,
                                                  ChildTies ties,
                                                  const std::vector<std::string>& environment) {
  int channel[2] = {-1, -1};
  // A socket, since writing to one whose other side has gone need not raise a signal.
  if (ties == ChildTies::kPartner &&
      ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channel) != 0) {
    return nullptr;
  }

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (ties == ChildTies::kPartner) {
    posix_spawn_file_actions_adddup2(&actions, channel[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, channel[1], STDOUT_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }

  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGXCPU, SIGPIPE, SIGXFSZ})
    sigaddset(&signals, signal);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
  if (ties == ChildTies::kPartner) flags |= POSIX_SPAWN_SETPGROUP;
  if (ties == ChildTies::kNeighbour) flags |= POSIX_SPAWN_SETSID;
  posix_spawnattr_setflags(&attributes, static_cast<short>(flags));

  const std::vector<std::string> variables = EnvironmentWith(environment);
  pid_t process = 0;
  const int error = posix_spawnp(&process, command.front().c_str(), &actions, &attributes,
                                 Pointers(command).data(), Pointers(variables).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (channel[1] >= 0) ::close(channel[1]);
  if (error != 0) {
    if (channel[0] >= 0) ::close(channel[0]);
    return nullptr;
  }
  return std::unique_ptr<ChildProcess>(new ChildProcess(process, channel[0], ties));
}

ChildProcess::~ChildProcess() {
  if (process_ != 0) End(kParting);
  if (channel_ >= 0) ::close(channel_);
}

bool ChildProcess::Send(std::string_view line, Milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  std::string bytes(line);
  bytes += '\n';
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const ssize_t count = ::send(channel_, rest.data(), rest.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count >= 0) {
      rest.remove_prefix(static_cast<size_t>(count));
    } else if (errno == EAGAIN ? !WaitFor(channel_, POLLOUT, end) : errno != EINTR) {
      return false;
    }
  }
  return true;
}

Reception ChildProcess::Receive(std::string* line, Milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  size_t lineEnd;
  while ((lineEnd = received_.find('\n')) == std::string::npos) {
    if (!WaitFor(channel_, POLLIN, end)) return Reception::kTooLate;
    char buffer[4096];
    const ssize_t count = ::recv(channel_, buffer, sizeof buffer, MSG_DONTWAIT);
    if (count > 0) received_.append(buffer, static_cast<size_t>(count));
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) return Reception::kEnd;
  }
  *line = received_.substr(0, lineEnd);
  received_.erase(0, lineEnd + 1);
  return Reception::kLine;
}

void ChildProcess::CloseInput() {
  ::shutdown(channel_, SHUT_WR);
}

std::optional<int> ChildProcess::ExitStatus() {
  if (process_ == 0) return exitStatus_;
  // The end is seen before the process is reaped: until then its number, which is that of its
  // group, cannot become another's.
  siginfo_t info{};
  if (::waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
      info.si_pid == 0) {
    return std::nullopt;
  }
  if (ties_ == ChildTies::kPartner) Signal(SIGKILL);  // what it has left behind
  const int status = info.si_status;
  exitStatus_ = info.si_code == CLD_EXITED ? status : 128 + status;
  const pid_t ended = process_;
  Forget();
  ::waitpid(ended, nullptr, 0);
  return exitStatus_;
}

std::optional<int> ChildProcess::WaitForEnd(Milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  while (!ExitStatus().has_value() && Clock::now() < end) std::this_thread::sleep_for(kLook);
  return ExitStatus();
}

void ChildProcess::End(Milliseconds limit) {
  if (ExitStatus().has_value()) return;
  if (ties_ == ChildTies::kPartner) CloseInput();
  Signal(SIGTERM);
  if (WaitForEnd(limit).has_value()) return;
  Signal(SIGKILL);
  while (process_ != 0 && !ExitStatus().has_value()) std::this_thread::sleep_for(kLook);
}

void ChildProcess::Leave() {
  Forget();
}

void ChildProcess::EndInPlaceOfThisProcess() {
  substitute = ties_ == ChildTies::kServant ? process_ : -process_;
  SetTerminationHook(EndSubstitute);
}

// To the whole group where the child leads one.
void ChildProcess::Signal(int signal) const {
  ::kill(ties_ == ChildTies::kServant ? process_ : -process_, signal);
}

void ChildProcess::Forget() {
  pid_t own = ties_ == ChildTies::kServant ? process_ : -process_;
  substitute.compare_exchange_strong(own, 0);
  process_ = 0;
}

}  // namespace tvx
