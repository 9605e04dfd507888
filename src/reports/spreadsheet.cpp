#include "reports/spreadsheet.h"

namespace tvx {

namespace {

class NoSpreadsheetProgram final : public Spreadsheets {
 public:
  std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm) override { return nullptr; }
};

}  // namespace

Spreadsheets* NoSpreadsheets() {
  static NoSpreadsheetProgram none;
  return &none;
}

}  // namespace tvx
