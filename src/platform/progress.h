// What long work reports to, and how the user stops it. The thread that began
// the work calls Step, and the front end shows how far it is and reads the keyboard there.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tvx {

enum class Work { kRead, kCheck, kAdjust, kBuildMaster, kDraw, kWritePicture, kFillSheet };

enum class Stopping { kRefused, kAllowed };

class Progress {
 public:
  // What is shown.
  struct State {
    Work work = Work::kRead;
    std::string path;  // of the file in work; empty if there is none
    size_t file = 0;   // of a list, from 1; 0 for work on one file
    size_t files = 0;  // of that list
    int percent = 0;   // of this work
    bool canStop = false;
    std::chrono::milliseconds elapsed{0};  // since the outermost work began
  };

  virtual ~Progress() = default;

  // Call it at least every few milliseconds; a call takes about 30 ns. `done` and `total` are in
  // any unit. Returns false once the user has stopped the work: the caller then ends as its header
  // says, and so does every later call up to the end of the outermost work.
  bool Step(uint64_t done, uint64_t total);

  bool IsStopped() const { return isStopped_; }
  bool IsUnderWay() const { return depth_ > 0; }

  // The file that a list has come to; shown with all work inside the list.
  void SetFile(size_t file, size_t files);

 protected:
  // Time from the begin of the work to the first Show, and from one Show to the next.
  explicit Progress(std::chrono::milliseconds interval) : interval_(interval) {}

  // Shows the state. Returns false if the user wants to stop, which counts only if that is allowed.
  virtual bool Show(const State& state) = 0;
  // The outermost work has ended. Called only after a Show.
  virtual void Hide() = 0;

 private:
  friend class WorkScope;
  using Clock = std::chrono::steady_clock;

  std::chrono::milliseconds interval_;
  State state_;
  int depth_ = 0;
  bool isStopped_ = false;
  bool isShown_ = false;
  bool hasSubject_ = false;  // of the work under way
  Clock::time_point begin_, next_;
};

// Says what is being worked on while the object exists: to the progress, and to the message of a
// process that ends for want of memory (SetSubject). Work inside other work is shown in place of it
// and can be stopped if one of them can; the subject is the file of the outermost work that has
// one, and is kept after its end.
class WorkScope {
 public:
  // `path` as the user named the file; empty for none.
  WorkScope(Progress* progress, Work work, const std::string& path,
            Stopping stopping = Stopping::kRefused);
  ~WorkScope();
  WorkScope(const WorkScope&) = delete;
  WorkScope& operator=(const WorkScope&) = delete;

 private:
  Progress* progress_;
  Progress::State before_;
  bool isSubject_;
};

// Shows nothing and never stops. Each thread has its own.
Progress* NoProgress();

}  // namespace tvx
