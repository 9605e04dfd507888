// The spreadsheet program of the installation: LibreOffice, driven by tvx-calc in another process.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/files/drives.h"
#include "platform/processes/child_process.h"
#include "reports/spreadsheet.h"

namespace tvx {

// The path of tvx-calc: the value of the environment variable TVX_CALC, else the place in an
// installation, else the place in a build folder. The file may not exist.
std::filesystem::path FindCalcProgram();

class CalcSpreadsheets final : public Spreadsheets {
 public:
  // The first start of an office after a boot, or a large workbook, can take many seconds.
  static constexpr Milliseconds kPatience{30000};

  // The drives must outlive the object. `patience` limits the time of the start and of each step.
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
