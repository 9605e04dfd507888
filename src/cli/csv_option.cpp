#include "cli/csv_option.h"

#include "base/csv.h"
#include "cli/command.h"
#include "cli/tool_text.h"

namespace tvx {

void CsvOption::AddTo(CommandLine* line) {
  line->AddOption("--csv", &path_, kCsvHelp);
  line->AddFlag(kMarkOption, &hasMark_, kMarkHelp);
}

void CsvOption::Check() const {
  if (hasMark_ && !path_) throw WrongCall{Say(kMarkNeedsCsv)};
}

void CsvOption::Write(const Host& host, const std::string& rows, bool isIncomplete) const {
  if (!path_) return;
  if (isIncomplete) ThrowIfUnwritten(*path_, StatusKind::kPartSource);
  const std::string mark(hasMark_ ? kUtf8Mark : "");
  const Status written = WriteWholeFile(host.files.get(), host.DrivePath(*path_), mark + rows);
  ThrowIfUnwritten(*path_, written);
}

}  // namespace tvx
