// The real spreadsheet program: LibreOffice, driven by tvx-calc in a process of its own.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/child_process.h"
#include "platform/drives.h"
#include "reports/spreadsheet.h"

namespace tvx {

// Where tvx-calc lies: what the environment variable TVX_CALC names, else where an installation of
// this program has it, else where the build puts it. It need not exist.
std::filesystem::path FindCalcProgram();

class CalcSpreadsheets final : public Spreadsheets {
 public:
  // What a person still waits for. The start of an office that was not used for long takes a while,
  // and so does a large workbook.
  static constexpr Milliseconds kPatience{30000};

  // The drives have to outlive the object. `patience`: the longest time that the start and each
  // step may take.
  explicit CalcSpreadsheets(const Drives* drives, std::filesystem::path program = FindCalcProgram(),
                            Milliseconds patience = kPatience)
      : drives_(drives), program_(std::move(program)), patience_(patience) {}

  std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm form) override;

 private:
  const Drives* drives_;
  std::filesystem::path program_;
  Milliseconds patience_;
};

}  // namespace tvx
