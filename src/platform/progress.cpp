// The nesting of work and the pace at which it is shown.
#include "platform/progress.h"

#include <algorithm>
#include <utility>

#include "platform/termination.h"

namespace tvx {

bool Progress::Step(uint64_t done, uint64_t total) {
  if (isStopped_) return false;
  if (depth_ == 0) return true;
  const Clock::time_point now = Clock::now();
  if (now < next_) return true;
  constexpr double kWhole = 100;
  state_.percent = total == 0 ? 0
                              : static_cast<int>(static_cast<double>(std::min(done, total)) /
                                                 static_cast<double>(total) * kWhole);
  state_.elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - begin_);
  isShown_ = true;
  if (!Show(state_) && state_.canStop) isStopped_ = true;
  next_ = Clock::now() + interval_;
  return !isStopped_;
}

void Progress::SetFile(size_t file, size_t files) {
  state_.file = file;
  state_.files = files;
}

WorkScope::WorkScope(Progress* progress, Work work, const std::string& path, Stopping stopping)
    : progress_(progress),
      before_(progress->state_),
      isSubject_(!path.empty() && !progress->hasSubject_) {
  Progress& p = *progress_;
  if (isSubject_) {
    SetSubject(path);
    p.hasSubject_ = true;
  }
  if (p.depth_++ == 0) {
    p.state_ = {};
    p.isStopped_ = false;
    p.begin_ = Progress::Clock::now();
    p.next_ = p.begin_ + p.interval_;
  }
  p.state_.work = work;
  p.state_.path = path;
  p.state_.percent = 0;
  if (stopping == Stopping::kAllowed) p.state_.canStop = true;
}

WorkScope::~WorkScope() {
  Progress& p = *progress_;
  p.state_ = before_;
  if (isSubject_) p.hasSubject_ = false;
  if (--p.depth_ > 0) return;
  p.state_ = {};
  if (std::exchange(p.isShown_, false)) p.Hide();
}

Progress* NoProgress() {
  class None final : public Progress {
   public:
    None() : Progress(std::chrono::hours(1)) {}

   private:
    bool Show(const State&) override { return true; }
    void Hide() override {}
  };
  static thread_local None none;
  return &none;
}

}  // namespace tvx
