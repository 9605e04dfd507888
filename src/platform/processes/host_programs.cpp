// Starts editors and finds windows on this machine.
#include "platform/processes/host_programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "base/scan.h"
#include "platform/files/descriptor.h"

#ifdef TVX_HAVE_XCB
#include <xcb/xcb.h>
#endif

namespace tvx {

namespace {

// Opens a file with whatever the user's desktop has for its kind.
constexpr char kDesktopOpener[] = "xdg-open";

// Runs a program in a session of its own, so that it outlives this one, and leaves no zombie: an
// intermediate process ends at once. False if the program cannot be started.
bool StartDetached(const std::string& program, const std::string& argument) {
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return false;
  const pid_t child = fork();
  if (child < 0) {
    close(report[0]);
    close(report[1]);
    return false;
  }
  if (child == 0) {
    setsid();
    const pid_t grandchild = fork();
    if (grandchild != 0) _exit(grandchild < 0 ? 1 : 0);
    execlp(program.c_str(), program.c_str(), argument.c_str(), static_cast<char*>(nullptr));
    // Only reached if there is no such program; a success closes the pipe without a byte.
    const char failed = 1;
    (void)!write(report[1], &failed, 1);
    _exit(127);
  }
  close(report[1]);
  int status = 0;
  waitpid(child, &status, 0);
  char failed = 0;
  const bool started = read(report[0], &failed, 1) == 0 && status == 0;
  close(report[0]);
  return started;
}

// Endings of NC programs and of plain texts. The desktop opens any other by what it is: a script by
// running it.
constexpr std::string_view kTextEndings[] = {"",     ".nc",  ".hnc", ".h",   ".i",   ".ppp", ".tap",
                                             ".txt", ".cnc", ".mpf", ".spf", ".eia", ".min", ".dnc",
                                             ".ptp", ".mcf", ".afa", ".ngc", ".tvx"};

bool HasTextEnding(const std::filesystem::path& path) {
  const std::string ending = path.extension().string();
  return std::any_of(std::begin(kTextEndings), std::end(kTextEndings),
                     [&](std::string_view text) { return EqualNoCase(ending, text); });
}

// True for a text that neither its ending nor its rights nor its first bytes make a program.
bool IsPlainText(const std::filesystem::path& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) return false;
  if (!S_ISREG(status.st_mode) || (status.st_mode & 0111) != 0) return false;
  char bytes[4096];
  const ssize_t count = ::read(file.Number(), bytes, sizeof bytes);
  if (count < 0 || !HasTextEnding(path)) return false;
  const std::string_view start(bytes, static_cast<size_t>(count));
  const auto isText = [](char c) {
    return static_cast<unsigned char>(c) >= ' ' || (c >= '\t' && c <= '\r');
  };
  return !start.starts_with("#!") && std::all_of(start.begin(), start.end(), isText);
}

#ifdef TVX_HAVE_XCB

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

bool HasClass(xcb_connection_t* display, xcb_window_t window, std::string_view wanted) {
  constexpr uint32_t kWords = 64;  // of four bytes; far more than a class name takes
  const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      display, xcb_get_property(display, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, kWords),
      nullptr));
  if (reply == nullptr) return false;
  // Two names, each ended by a zero byte: the instance and the class.
  std::string_view names(static_cast<const char*>(xcb_get_property_value(reply.get())),
                         static_cast<size_t>(xcb_get_property_value_length(reply.get())));
  while (!names.empty()) {
    const size_t end = std::min(names.find('\0'), names.size());
    if (names.substr(0, end) == wanted) return true;
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return false;
}

bool AnyHasClass(xcb_connection_t* display, xcb_window_t root, std::string_view wanted) {
  std::vector<xcb_window_t> windows = {root};
  while (!windows.empty()) {
    const xcb_window_t window = windows.back();
    windows.pop_back();
    if (HasClass(display, window, wanted)) return true;
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display, xcb_query_tree(display, window), nullptr));
    if (tree == nullptr) continue;
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    windows.insert(windows.end(), children, children + xcb_query_tree_children_length(tree.get()));
  }
  return false;
}

#endif

}  // namespace

bool HostPrograms::Start(const std::string& program, const std::string& path) {
  const auto host = drives_->ToHost(path);
  if (!host.has_value()) return false;
  const auto hostProgram = HasDrive(program) ? drives_->ToHost(program) : std::nullopt;
  const std::string name = hostProgram.has_value() ? hostProgram->string() : program;
  return StartDetached(name, host->string()) ||
         (IsPlainText(*host) && StartDetached(kDesktopOpener, host->string()));
}

bool HostPrograms::HasWindowOfClass(const std::string& windowClass) {
#ifdef TVX_HAVE_XCB
  xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
  bool found = false;
  if (xcb_connection_has_error(display) == 0) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(display));
    for (; !found && screens.rem > 0; xcb_screen_next(&screens)) {
      found = AnyHasClass(display, screens.data->root, windowClass);
    }
  }
  xcb_disconnect(display);
  return found;
#else
  (void)windowClass;
  return false;
#endif
}

bool HasDisplay() {
  const auto variable = [](const char* name) -> std::filesystem::path {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
  };
  std::error_code error;
  const auto wayland = variable("WAYLAND_DISPLAY");
  if (!wayland.empty() && std::filesystem::exists(variable("XDG_RUNTIME_DIR") / wayland, error)) {
    return true;
  }
  if (variable("DISPLAY").empty()) return false;
#ifdef TVX_HAVE_XCB
  xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
  const bool found = xcb_connection_has_error(display) == 0;
  xcb_disconnect(display);
  return found;
#else
  return true;
#endif
}

std::filesystem::path ProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace tvx
