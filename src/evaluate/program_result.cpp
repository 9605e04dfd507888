// What a result says together with the check of its program.
#include "evaluate/program_result.h"

#include <algorithm>

namespace tvx {

Wanted Union(const Wanted& a, const Wanted& b) {
  return {.programmed = a.programmed || b.programmed,
          .causes = a.causes || b.causes,
          .machine = a.machine || b.machine,
          .sheetPicture = a.sheetPicture || b.sheetPicture,
          .workbookPicture = a.workbookPicture || b.workbookPicture,
          .check = a.check || b.check};
}

const ProgramCheck* CheckOf(const ProgramResult& result) {
  return result.check == nullptr ? nullptr : result.check->result.get();
}

std::optional<RemarkCounts> RemarksOf(const ProgramResult& result) {
  const ProgramCheck* const check = CheckOf(result);
  if (check == nullptr) return std::nullopt;
  RemarkCounts counts{};
  for (size_t i = 0; i < kRemarkIds; ++i) counts[i] = check->lists[i].count;
  return counts;
}

std::optional<MachineTime> MachineTimeOf(const ProgramResult& result) {
  if (!result.machine) return std::nullopt;
  MachineTime time = result.machine->moves;
  SetPauses(PausesOf(result.check.get()), result.machine->profile, &time);
  return time;
}

std::optional<float> MinutesBefore(const ProgramResult& result) {
  if (!result.programmed) return std::nullopt;
  return result.programmed->cutMinutes + result.entry.rapidMinutes;
}

std::vector<std::shared_ptr<const FileCheck>> ChecksOf(
    std::span<const ProgramResult> results, const std::shared_ptr<const FileCheck>& loaded) {
  std::vector<std::shared_ptr<const FileCheck>> checks;
  const auto add = [&checks](const std::shared_ptr<const FileCheck>& check) {
    if (check != nullptr && std::ranges::find(checks, check) == checks.end()) {
      checks.push_back(check);
    }
  };
  for (const ProgramResult& result : results) add(result.check);
  add(loaded);
  return checks;
}

bool HasIncomplete(std::span<const ProgramResult> results) {
  return std::ranges::any_of(results, &ProgramResult::isIncomplete);
}

}  // namespace tvx
