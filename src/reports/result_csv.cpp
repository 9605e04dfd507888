// Columns from the tables of the fields.
#include "reports/result_csv.h"

#include <variant>

#include "base/csv.h"

namespace tvx {

namespace {

std::string CellOf(int32_t value) {
  return std::to_string(value);
}
std::string CellOf(float value) {
  return CsvNumber(value);
}
std::string CellOf(const std::string& value) {
  return CsvText(value);
}

}  // namespace

void AddMachineNames(const std::string& prefix, std::vector<std::string>* row) {
  for (const MachineTimeField& field : MachineTimeFields()) row->push_back(prefix + field.name);
  row->push_back(prefix + "movesWithoutFeed");
}

void AddMachineValues(const MachineTime& time, std::vector<std::string>* row) {
  for (const MachineTimeField& field : MachineTimeFields()) {
    row->push_back(CsvNumber(time.*field.minutes));
  }
  row->push_back(std::to_string(time.movesWithoutFeed));
}

std::string ResultsCsv(const ResultTable& results, std::span<const MachineTime> machineTimes) {
  std::vector<std::string> row;
  for (const EntryField& field : EntryFields()) row.emplace_back(field.name);
  if (!machineTimes.empty()) AddMachineNames("machine.", &row);
  std::string text = CsvRow(row);
  for (size_t i = 0; i < results.Recorded().size(); ++i) {
    row.clear();
    for (const EntryField& field : EntryFields()) {
      std::visit([&](auto member) { row.push_back(CellOf(results.Recorded()[i].*member)); },
                 field.member);
    }
    if (!machineTimes.empty()) AddMachineValues(machineTimes[i], &row);
    text += CsvRow(row);
  }
  return text;
}

}  // namespace tvx
