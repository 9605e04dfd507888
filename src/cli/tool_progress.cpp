// The texts of the work, and the hook that turns SIGINT into a stop.
#include "cli/tool_progress.h"

#include <atomic>
#include <csignal>

#include "base/format.h"
#include "base/path_text.h"
#include "cli/output.h"
#include "cli/tool_text.h"
#include "platform/termination.h"

namespace tvx {
namespace {

constexpr std::chrono::milliseconds kInterval{200};

std::atomic<bool> isInterrupted = false;

std::string WorkText(Work work) {
  switch (work) {
    case Work::kRead:
      return Say({"읽는 중", "reading"});
    case Work::kCheck:
      return Say({"검사 중", "checking"});
    case Work::kAdjust:
      return Say({"피드 조정 중", "adjusting the feeds"});
    case Work::kBuildMaster:
      return Say({"마스터 모델 생성 중", "building the master model"});
    case Work::kDraw:
    case Work::kWritePicture:
      return Say({"그리는 중", "drawing"});
    case Work::kFillSheet:
      return Say({"스프레드시트 쓰는 중", "filling"});
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
    ShowProgress(file + name + ": " + WorkText(state.work) + Format(" %d %%", state.percent));
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
