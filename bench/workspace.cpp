// The temporary folder and the loaded program of a benchmark.
#include "workspace.h"

#include <stdlib.h>

#include <system_error>

#include "measuring.h"

namespace tvx::bench {

namespace fs = std::filesystem;

bool NoUser::ShowMessage(const MessageBox& message) {
  Require(false, message.text);
  return false;
}

Workspace::Workspace() {
  std::string name = (fs::temp_directory_path() / "tvx-bench-XXXXXX").string();
  Require(mkdtemp(name.data()) != nullptr, "no temporary folder");
  folder_ = fs::canonical(name);
  drives_ = std::make_unique<Drives>(folder_ / "home");
  files_ = MakeHostFiles(drives_.get());
}

Workspace::~Workspace() {
  std::error_code error;
  fs::remove_all(folder_, error);
}

std::string Workspace::Put(const ProgramOptions& options) const {
  const fs::path file = folder_ / "program.nc";
  Require(WriteProgram(options, file), "the program cannot be written");
  return drives_->FromHost(file).value();
}

void LoadedProgram::Load(const std::string& path, ProgramKind kind, Files* files) {
  constexpr int kConversationalType = 2;
  job.InputFileType = kind == ProgramKind::kConversational ? kConversationalType : 1;
  Require(LoadNcFile(path, &program, &states, &job, files).ok(), "the load failed");
}

}  // namespace tvx::bench
