// Interface to a spreadsheet program: the steps of its object model that TVX uses. The real program
// is another process; the tests use one that records its calls.
#pragma once

#include <memory>
#include <string>
#include <variant>

namespace tvx {

// A number, or a text in UTF-8. A text is stored unchanged and never read as a formula, a number or
// a date.
using CellValue = std::variant<float, std::string>;

// One running spreadsheet program with one workbook. The caller runs the steps in the order of
// their declaration, repeats SelectRange and PutValue for each cell, and ends with SetVisible and
// SetUserControl or with Save. Each step returns true if it was done. A step may be done late, so
// that its failure is reported by a later one. After a failure every step fails within seconds.
//
// The destructor releases the program. It does not close or save a workbook left to the user.
class SpreadsheetApplication {
 public:
  virtual ~SpreadsheetApplication() = default;

  // Opens a workbook of any format that the program reads. `path` is a full drive path. A workbook
  // that does not exist is created with one empty sheet in the file form, and is a failure in the
  // interactive form.
  virtual bool OpenWorkbook(const std::string& path) = 0;
  // Selects a worksheet by its number, 1 for the first.
  virtual bool SelectSheet(int number) = 0;
  // Selects the cells from one to another by their names; "A1", "A1" for a single one.
  virtual bool SelectRange(const std::string& first, const std::string& last) = 0;
  // Puts a value into each selected cell. No other cell changes.
  virtual bool PutValue(const CellValue& value) = 0;
  // Shows the program with the workbook on the screen.
  virtual bool SetVisible(bool visible) = 0;
  // Leaves the program to the user, who may now save or close the workbook. It stays open when this
  // object is destroyed.
  virtual bool SetUserControl(bool control) = 0;
  // File form only: saves the workbook under its path, in the format of the path's extension, and
  // closes it. If that fails, an existing file is unchanged.
  virtual bool Save() = 0;

  // Why a step failed, as a text for the user. Empty if no step failed or the reason is unknown.
  virtual std::string Problem() const { return {}; }
};

enum class SpreadsheetForm {
  kInteractive,  // with a window; the workbook is left to the user
  kFile,         // without a window or a display; the workbook is saved
};

// Starts spreadsheet programs.
class Spreadsheets {
 public:
  virtual ~Spreadsheets() = default;

  // Returns null if the program cannot be started: it is not installed, has no display, or ends
  // within its first seconds. Does not wait without limit.
  virtual std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm form) = 0;
};

// For a machine without a spreadsheet program: Start returns null.
inline Spreadsheets* NoSpreadsheets() {
  class None final : public Spreadsheets {
   public:
    std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm) override { return nullptr; }
  };
  static None none;
  return &none;
}

}  // namespace tvx
