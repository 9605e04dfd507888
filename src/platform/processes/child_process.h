// A program of this machine that works for this one.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

using Milliseconds = std::chrono::milliseconds;

// How close a child stands to this process.
enum class ChildTies {
  kPartner,   // answers line by line; ends together with everything that it has started
  kServant,   // is not talked to; shares the fate of this process's group
  kNeighbour  // is not talked to; lives in a session of its own, so that it can be left to the user
};

enum class Reception {
  kLine,     // a whole line
  kEnd,      // the child has closed its side, as its end does
  kTooLate,  // the limit has passed
};

// Has this process receive SIGTERM when its parent ends, whatever ends that. A partner whose parent
// has ended before the call sees the end of its input.
void EndWithParent();

// A command that runs `command` and is killed when this process ends, whatever ends it. It calls
// this program, whose main() has to start with
//   if (IsTiedCall(count, words)) return RunTied(words);
std::vector<std::string> TiedToThisProcess(std::vector<std::string> command);
bool IsTiedCall(int count, char** words);
int RunTied(char** words);

// The child is ended, at the latest with its object, unless it has been left. Everything but the
// standard error of a partner is cut off from this process's own input and output, so that nobody
// who reads those waits for a child.
class ChildProcess {
 public:
  // Starts `command`: a program, by its host path or a name that the system finds, and its
  // arguments. `environment` ("NAME=value") is set over this process's own. Null if the program
  // cannot be started.
  static std::unique_ptr<ChildProcess> Start(const std::vector<std::string>& command,
                                             ChildTies ties,
                                             const std::vector<std::string>& environment = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // Partner only. Sends one line; the line break is added here. False if the child has closed its
  // side, or does not take the line within the limit.
  bool Send(std::string_view line, Milliseconds limit);
  // Partner only. Waits for one line, without its line break. *line is left alone without one.
  Reception Receive(std::string* line, Milliseconds limit);
  // Partner only. Lets the child find the end of its input.
  void CloseInput();

  // The exit status once the child has ended, 128 plus the signal if one ended it.
  std::optional<int> ExitStatus();
  // The same, but waits for the end as long as the limit allows.
  std::optional<int> WaitForEnd(Milliseconds limit);

  // Ends the child: by asking it, and by force if it has not obeyed within the limit.
  void End(Milliseconds limit);
  // Neighbour only. The child lives on without this process, which is expected to end soon itself.
  void Leave();

  // Has a termination of this process (PrepareProcess) end this child in its place, and the
  // standard input with it: the work that waits for either then fails and the process can tidy up.
  // One child at a time, until its end or Leave.
  void EndInPlaceOfThisProcess();

 private:
  ChildProcess(pid_t process, int channel, ChildTies ties)
      : process_(process), channel_(channel), ties_(ties) {}

  void Signal(int signal) const;
  void Forget();

  pid_t process_;  // 0 once it has ended or been left
  int channel_;    // socket to the child's input and output, -1 for none
  ChildTies ties_;
  std::string received_;  // what came after the last line
  std::optional<int> exitStatus_;
};

}  // namespace tvx
