// The files that tvx-cli run writes from its results.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/host.h"
#include "evaluate/program_result.h"
#include "reports/report_table.h"

namespace tvx {

// The reports that are named on the command line.
class RunOutputs {
 public:
  void AddTo(CommandLine* line);
  // Call it after the parse: throws WrongCall for --bom without --csv.
  void Check() const;

  // What they need of the results.
  Wanted Needs() const;

  // Writes each file, whole or not at all, a spreadsheet last. Throws Failure at the first one that
  // cannot be written. Returns false if files of the list could not be copied; everything else was
  // done.
  bool Write(const Host& host, std::span<const ProgramResult> results) const;

 private:
  // Of Reports(), in the same order.
  std::vector<std::optional<std::string>> arguments_ =
      std::vector<std::optional<std::string>>(Reports().size());
  bool hasMark_ = false;
};

}  // namespace tvx
