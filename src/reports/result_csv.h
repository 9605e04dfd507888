// The results as comma-separated values, for scripts and spreadsheet programs.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "insight/machine_time.h"
#include "stats/result_table.h"

namespace tvx {

// A row of field names, then one for each result. `machineTimes` of the results in their order add
// columns named "machine." and the field; empty for none.
std::string ResultsCsv(const ResultTable& results, std::span<const MachineTime> machineTimes);

// The names of the machine columns, each behind `prefix`, and the values of one time, appended.
void AddMachineNames(const std::string& prefix, std::vector<std::string>* row);
void AddMachineValues(const MachineTime& time, std::vector<std::string>* row);

}  // namespace tvx
