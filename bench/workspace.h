#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "model/loader.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/user_interface.h"
#include "programs.h"

namespace tvx::bench {

// Measured work has no questions to its user: a message ends the benchmark.
class NoUser final : public UserInterface {
 public:
  bool ShowMessage(const Message& message) override;
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void Repaint() override {}
  void ShowStatus(const std::string&) override {}
};

// A temporary folder for the programs that are measured, removed at the end, and the files of the
// host as the library sees them.
class Workspace {
 public:
  Workspace();
  ~Workspace();
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  Files* HostFiles() const { return files_.get(); }
  // Writes a generated program and gives its drive path. An earlier one is overwritten.
  std::string Put(const ProgramOptions& options) const;

 private:
  std::filesystem::path folder_;
  std::unique_ptr<Drives> drives_;
  std::unique_ptr<Files> files_;
};

// One loaded program with all that loading it needs.
struct LoadedProgram {
  NcProgram program;
  ParserStates states;
  JobRecord job;

  // Loads as the program itself does; ends the benchmark on a failure.
  void Load(const std::string& path, ProgramKind kind, Files* files);
};

}  // namespace tvx::bench
