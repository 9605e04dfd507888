// The machine and the user of a command of the tool.
#pragma once

#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/tool_progress.h"
#include "platform/files/drives.h"
#include "platform/files/files.h"
#include "platform/files/standard_input.h"
#include "platform/user_interface.h"
#include "reports/calc_client.h"
#include "session/application.h"
#include "session/tvx_view.h"

namespace tvx {

// The argument for a program that comes from standard input.
inline constexpr char kStandardInput[] = "-";

// A user who cannot be asked: messages are printed on standard error, questions are refused.
class CliUserInterface : public UserInterface {
 public:
  Language language() const override;
  bool ShowMessage(const MessageBox& message) override;
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void ShowStatus(const std::string& text, const std::string& path) override;
  Progress* LongWork() override { return ToolProgress(); }
};

// Drives and files of this machine, and the application after its start.
class Host {
 public:
  explicit Host(const Call& call);

  // The drive path of an argument, which is a drive path already or a path of this machine. Throws
  // Failure if no drive holds it.
  std::string DrivePath(const std::string& argument) const;

  // Throws Failure if a settings file is there and could not be read.
  void CheckSettings() const;

  // The drive path of a file to read. Throws Failure if the file cannot be read.
  std::string ReadablePath(const std::string& argument) const;

  // The same of a program, which may come from standard input: kStandardInput.
  std::string ProgramPath(const std::string& argument) const;

  // The folder or file of this machine behind a drive path; empty if there is no such drive.
  std::string MachinePath(const std::string& drivePath) const;

 private:
  Drives drives_;
  mutable std::unique_ptr<StandardInput> input_;  // once it has been read

 public:
  const std::unique_ptr<Files> files;
  CliUserInterface ui;
  CalcSpreadsheets spreadsheets;
  CTVXApp app;
};

// The window of a command. Throws Failure if a settings file is there and cannot be read.
class ToolView : public CTVXView {
 public:
  explicit ToolView(Host* host) : CTVXView(&host->app) { host->CheckSettings(); }
};

// Why a file could not be read or written, for an error line: "no such file", "cannot be read:
// Input/output error".
std::string ReadProblem(const Status& failure);
std::string WriteProblem(const Status& failure);

// Throw Failure with these words, of a file as the user named it, unless it was read or written.
void ThrowIfUnread(const std::string& argument, const Status& read);
void ThrowIfUnwritten(const std::string& argument, const Status& written);

}  // namespace tvx
