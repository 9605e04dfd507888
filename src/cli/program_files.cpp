// Each step shows its progress and leaves the work to the view and evaluate/.

#include "cli/program_files.h"

#include "base/path_text.h"
#include "cli/command.h"
#include "cli/output.h"
#include "cli/tool_text.h"

namespace tvx {

namespace {

constexpr Message kAdjusting{"{file}: 피드 조정 중", "{file}: adjusting the feeds"};
constexpr Message kCounting{"{file}: 시간 계산 중", "{file}: working out the times"};

}  // namespace

std::vector<ProgramFile> FindProgramFiles(const Host& host,
                                          const std::vector<std::string>& arguments) {
  std::vector<ProgramFile> files;
  files.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    files.push_back({argument, host.ProgramPath(argument)});
  }
  return files;
}

void ForgetModalState(CTVXView* view) {
  view->app->parserStates = {};
  view->app->feedPassMemory = {};
  view->program.arcRadius = 0;
  view->program.store.CurrentBlock = {};
}

Status LoadProgramFile(const ProgramFile& file, CTVXView* view) {
  const ToolWork work(Work::kRead, file.argument);
  const Status loaded = view->Load(file.path);
  EndIfInterrupted();
  view->SetNames(view->filePath(),
                 file.argument == kStandardInput ? file.argument : NameOfPath(file.path, "\\/:"));
  return loaded;
}

std::string LoadProblem(const Status& load, const NcProgram& program) {
  switch (load.kind()) {
    case StatusKind::kStoreFull:
      return load.Text(ToolLanguage());
    case StatusKind::kBlocksLost:
      return Say(
          {"블록 {count}개를 저장하지 못했습니다", "{count} blocks found no place in the store"},
          {{"count", program.lostBlocks}});
    default:
      return ReadProblem(load);
  }
}

void LoadWholeProgram(const ProgramFile& file, CTVXView* view) {
  const Status loaded = LoadProgramFile(file, view);
  if (!loaded.ok()) {
    throw Failure{file.argument, LoadProblem(loaded, view->program), loaded};
  }
}

void AdjustProgram(const ProgramFile& file, CTVXView* view, const FeedTrace& trace) {
  const ToolWork work(Work::kAdjust, file.argument);
  AdjustFeeds(view->Work(), trace);
  EndIfInterrupted();
}

void PrepareProgram(const ProgramFile& file, bool adjusts, CTVXView* view) {
  LoadWholeProgram(file, view);
  if (adjusts) AdjustProgram(file, view);
}

ProgramResult EvaluateProgram(const ProgramFile& file, bool adjusts,
                              std::shared_ptr<const FileCheck> check, CTVXView* view) {
  if (adjusts) ShowProgress(Say(kAdjusting, {{"file", file.argument}}));
  const WorkScope work(ToolProgress(), Work::kAdjust, file.argument, Stopping::kAllowed);
  const auto count = [&] { ShowProgress(Say(kCounting, {{"file", file.argument}})); };
  auto result = Evaluate(
      view->Work(),
      {.adjusts = adjusts, .wanted = view->wanted, .check = std::move(check), .onAdjusted = count});
  EndIfInterrupted();
  result->entry.fileName = view->fileName();
  return std::move(*result);
}

}  // namespace tvx
