// The texts of the work, and the hook that turns SIGINT into a stop.
#include "cli/tool_progress.h"

#include <atomic>
#include <csignal>

#include "base/format.h"
#include "base/path_text.h"
#include "cli/output.h"
#include "platform/termination.h"

namespace tvx {
namespace {

constexpr std::chrono::milliseconds kInterval{200};

std::atomic<bool> isInterrupted = false;

const char* WorkText(Work work) {
  switch (work) {
    case Work::kRead:
      return "reading";
    case Work::kCheck:
      return "checking";
    case Work::kAdjust:
      return "adjusting the feeds";
    case Work::kBuildMaster:
      return "building the master model";
    case Work::kDraw:
    case Work::kWritePicture:
      return "drawing";
    case Work::kFillSheet:
      return "filling";
  }
  return "";
}

class Terminal final : public Progress {
 public:
  Terminal() : Progress(kInterval) {
    SetTerminationHook([](int signal) {
      if (signal != SIGINT) return false;
      const bool isFirst = !isInterrupted.exchange(true);
      if (!isFirst || !ToolProgress()->IsUnderWay()) EndInterrupted();
      return true;
    });
  }

 private:
  bool Show(const State& state) override {
    const std::string file =
        state.files > 0 ? Format("%zu/%zu ", state.file, state.files) : std::string();
    const std::string name = NameOfPath(state.path, kAnySlash);
    ShowProgress(file + name + Format(": %s %d %%", WorkText(state.work), state.percent));
    return !isInterrupted;
  }
  void Hide() override { ShowProgress(""); }
};

}  // namespace

Progress* ToolProgress() {
  static Terminal terminal;
  return &terminal;
}

ToolWork::ToolWork(Work work, const std::string& argument)
    : scope_(ToolProgress(), work, argument, Stopping::kAllowed) {
  ShowProgress(argument + ": " + WorkText(work));
}

void EndIfInterrupted() {
  if (isInterrupted) throw Interrupted{};
}

}  // namespace tvx
