// Each step shows its progress and leaves the work to session/program_steps.

#include "cli/program_files.h"

#include "base/path_text.h"
#include "cli/command.h"
#include "cli/output.h"
#include "session/program_steps.h"

namespace tvx {

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

LoadResult LoadProgramFile(const ProgramFile& file, CTVXView* view) {
  const ToolWork work(Work::kRead, file.argument);
  const LoadResult result = LoadFile(view, file.path);
  EndIfInterrupted();
  view->fileName = file.argument == kStandardInput ? file.argument : NameOfPath(file.path, "\\/:");
  return result;
}

std::string LoadProblem(LoadResult result, const CTVXView& view) {
  if (result == LoadResult::kStoreFull) return "does not fit into the store";
  if (result == LoadResult::kBlocksLost) {
    return std::to_string(view.program.lostBlocks) + " blocks found no place in the store";
  }
  return ReadProblem(view.app->files->LastError());
}

void LoadWholeProgram(const ProgramFile& file, CTVXView* view) {
  const LoadResult result = LoadProgramFile(file, view);
  if (result != LoadResult::kLoaded) throw Failure{file.argument, LoadProblem(result, *view)};
}

void AdjustProgram(const ProgramFile& file, CTVXView* view, const FeedTrace& trace) {
  const ToolWork work(Work::kAdjust, file.argument);
  AdjustFeeds(ProgramWorkOf(view), trace);
  EndIfInterrupted();
}

void PrepareProgram(const ProgramFile& file, bool adjusts, CTVXView* view) {
  LoadWholeProgram(file, view);
  if (adjusts) AdjustProgram(file, view);
}

ProgramResult EvaluateProgram(const ProgramFile& file, bool adjusts,
                              std::shared_ptr<const FileCheck> check, CTVXView* view) {
  if (adjusts) ShowProgress(file.argument + ": adjusting the feeds");
  const WorkScope work(ToolProgress(), Work::kAdjust, file.argument, Stopping::kAllowed);
  const auto count = [&] { ShowProgress(file.argument + ": working out the times"); };
  auto result = Evaluate(
      ProgramWorkOf(view),
      {.adjusts = adjusts, .wanted = view->wanted, .check = std::move(check), .onAdjusted = count});
  EndIfInterrupted();
  result->entry.fileName = view->fileName;
  return std::move(*result);
}

}  // namespace tvx
