// What a benchmark needs around the measured code: a temporary folder, a user who answers nothing,
// and a loaded program.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "model/loader.h"
#include "platform/files/drives.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"
#include "programs.h"

namespace tvx::bench {

// Measured code must not talk to the user: a message ends the benchmark.
class NoUser final : public UserInterface {
 public:
  bool ShowMessage(const MessageBox& message) override;
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void ShowStatus(const std::string&, const std::string&) override {}
};

// A temporary folder for generated programs, removed by the destructor, and the library's access to
// host files.
class Workspace {
 public:
  Workspace();
  ~Workspace();
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  Files* HostFiles() const { return files_.get(); }
  // Writes a generated program over the previous one and returns its drive path.
  std::string Put(const ProgramOptions& options) const;

 private:
  std::filesystem::path folder_;
  std::unique_ptr<Drives> drives_;
  std::unique_ptr<Files> files_;
};

// One loaded program, with the state that loading needs.
struct LoadedProgram {
  NcProgram program;
  ParserStates states;
  JobRecord job;

  // Loads a program. Ends the benchmark on failure.
  void Load(const std::string& path, ProgramKind kind, Files* files);
};

}  // namespace tvx::bench
