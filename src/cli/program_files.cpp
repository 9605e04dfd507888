#include "cli/program_files.h"

#include "cli/errors.h"
#include "cli/output.h"
#include "model/loader.h"
#include "stats/cut_time.h"

namespace tvx {
namespace {

std::string NameOf(const std::string& drivePath) {
  return drivePath.substr(drivePath.find_last_of("\\/:") + 1);
}

}  // namespace

std::vector<ProgramFile> FindProgramFiles(const Host& host,
                                          const std::vector<std::string>& arguments) {
  std::vector<ProgramFile> files;
  files.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    files.push_back({argument, host.ReadablePath(argument)});
  }
  return files;
}

int LoadProgram(const ProgramFile& file, CTVXView* view) {
  ShowProgress(file.argument + ": reading");
  view->fileName = NameOf(file.path);
  return LoadNcFile(file.path, &view->program, &view->app->parserStates, &view->job,
                    view->app->files, view->app->ui);
}

void LoadWholeProgram(const ProgramFile& file, CTVXView* view) {
  if (LoadProgram(file, view) != 1) throw Failure{file.argument, "does not fit into the store"};
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
