#include "cli/program_files.h"

#include "base/path_text.h"
#include "cli/errors.h"
#include "cli/output.h"
#include "shell/program_loading.h"
#include "stats/cut_time.h"

namespace tvx {

std::vector<ProgramFile> FindProgramFiles(const Host& host,
                                          const std::vector<std::string>& arguments) {
  std::vector<ProgramFile> files;
  files.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    files.push_back({argument, host.ReadablePath(argument)});
  }
  return files;
}

LoadResult LoadProgram(const ProgramFile& file, CTVXView* view) {
  ShowProgress(file.argument + ": reading");
  view->fileName = NameOfPath(file.path, "\\/:");
  return LoadIntoView(view, file.path);
}

void LoadWholeProgram(const ProgramFile& file, CTVXView* view) {
  if (LoadProgram(file, view) != LoadResult::kLoaded)
    throw Failure{file.argument, "does not fit into the store"};
}

void AdjustProgram(const ProgramFile& file, CTVXView* view, const FeedTrace& trace) {
  ShowProgress(file.argument + ": adjusting the feeds");
  FeedPass(&view->program, view->job, &view->masterGrid, &view->app->feedPassMemory, trace);
}

const CutTimeEntry& CountProgram(const ProgramFile& file, CTVXView* view) {
  ShowProgress(file.argument + ": working out the times");
  CutTimeEntry* result = &view->fileInfo.current;
  ComputeCutTime(&view->program.store, view->job, result);
  result->fileName = view->fileName;
  return *result;
}

}  // namespace tvx
