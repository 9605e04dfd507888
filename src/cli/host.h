#pragma once

#include <memory>
#include <string>

#include "cli/cli_user_interface.h"
#include "cli/command.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "reports/calc_client.h"
#include "shell/application.h"

namespace tvx {

// This machine as a command sees it: its drives and files, the user who cannot be asked, and the
// application, started.
class Host {
 public:
  explicit Host(const Call& call);

  // A path argument as a drive path: a drive path as it stands, else a path of this machine. Throws
  // Failure if no drive holds it.
  std::string DrivePath(const std::string& argument) const;

  // The drive path of a file to be read. Throws Failure if it is no file that can be read.
  std::string ReadablePath(const std::string& argument) const;

 private:
  Drives drives_;

 public:
  const std::unique_ptr<Files> files;
  CliUserInterface ui;
  CalcSpreadsheets spreadsheets;
  CTVXApp app;
};

// Why a path is no file that can be read, in words for an error line; null for one that can.
const char* ReadProblem(const Host& host, const std::string& drivePath);

// Why a path can be no file to write, in words for an error line.
std::string WriteProblem(const Host& host, const std::string& drivePath);

}  // namespace tvx
