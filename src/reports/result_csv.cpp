// Columns from the tables of the fields.
#include "reports/result_csv.h"

#include <algorithm>
#include <variant>

#include "base/csv.h"
#include "reports/report.h"

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

std::string ResultsCsv(std::span<const ProgramResult> results) {
  const bool hasMachine = std::ranges::any_of(
      results, [](const ProgramResult& result) { return result.machine.has_value(); });
  std::vector<std::string> row;
  for (const EntryField& field : EntryFields()) row.emplace_back(field.name);
  if (hasMachine) AddMachineNames("machine.", &row);
  const size_t columns = row.size();
  std::string text = CsvRow(row);
  for (const ProgramResult& result : results) {
    row.clear();
    for (const EntryField& field : EntryFields()) {
      std::visit([&](auto member) { row.push_back(CellOf(result.entry.*member)); }, field.member);
    }
    if (const auto time = MachineTimeOf(result)) AddMachineValues(*time, &row);
    row.resize(columns);
    text += CsvRow(row);
  }
  return text;
}

extern const Report kCsvReport;
constinit const Report kCsvReport = {
    .option = "--csv",
    .help = {"OUT.csv: 값을 쉼표로 구분하여 쓰기",
             "OUT.csv: write the figures as comma-separated values"},
    .write = [](std::span<const ProgramResult> results, const ReportTarget& to) -> Status {
      if (HasIncomplete(results)) return {StatusKind::kPartSource, to.path};
      const std::string mark(to.hasByteOrderMark ? kUtf8Mark : "");
      return WriteWholeFile(to.files, to.path, mark + ResultsCsv(results));
    },
};

}  // namespace tvx
