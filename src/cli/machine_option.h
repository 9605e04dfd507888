// The option --machine of the commands that print times.
#pragma once

#include <optional>
#include <string>

#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "insight/machine_profile.h"
#include "insight/machine_time.h"

namespace tvx {

class MachineOption {
 public:
  void AddTo(CommandLine* line);
  // The profile of the file, none if the option is not given. Throws Failure for a wrong file.
  std::optional<MachineProfile> Read(const Host& host) const;

 private:
  std::optional<std::string> argument_;
};

// Reads a machine file. Throws Failure, with the line and the key, if it cannot be used.
MachineProfile ReadMachine(const Host& host, const std::string& argument);

// The figures by their names.
Json MachineJson(const MachineTime& time);

}  // namespace tvx
