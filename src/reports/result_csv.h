// The results as comma-separated values, for scripts and spreadsheet programs.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "evaluate/program_result.h"
#include "insight/machine_time.h"

namespace tvx {

// A row of field names, then one for each result. If a result has a machine time, columns named
// "machine." and the field follow, empty for a result without one.
std::string ResultsCsv(std::span<const ProgramResult> results);

// The names of the machine columns, each after `prefix`, and the values of one time, appended.
void AddMachineNames(const std::string& prefix, std::vector<std::string>* row);
void AddMachineValues(const MachineTime& time, std::vector<std::string>* row);

}  // namespace tvx
