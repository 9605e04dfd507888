// Reading of machine files for the tool, and their figures as JSON.
#include "cli/machine_option.h"

#include "cli/command.h"
#include "cli/tool_text.h"

namespace tvx {

void MachineOption::AddTo(CommandLine* line) {
  line->AddOption("--machine", &argument_,
                  {"FILE.machine: 원호, 가감속, 코너를 포함한 이 기계의 시간도 계산",
                   "FILE.machine: add the time that this machine takes, arcs, acceleration and "
                   "corners included"});
}

std::optional<MachineProfile> MachineOption::Read(const Host& host) const {
  if (!argument_) return std::nullopt;
  return ReadMachine(host, *argument_);
}

MachineProfile ReadMachine(const Host& host, const std::string& argument) {
  MachineProfile profile;
  const auto fault = ReadMachineProfile(host.ReadablePath(argument), host.files.get(), &profile);
  if (fault) {
    const bool isUnread = fault->error == MachineFileError::kCannotBeRead;
    throw Failure{argument,
                  isUnread ? ReadProblem(fault->read) : FaultText(*fault, ToolLanguage())};
  }
  return profile;
}

Json MachineJson(const MachineTime& time) {
  Json object = Json::object();
  for (const MachineTimeField& field : MachineTimeFields())
    object[field.name] = time.*field.minutes;
  object["movesWithoutFeed"] = time.movesWithoutFeed;
  return object;
}

}  // namespace tvx
