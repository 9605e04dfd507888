// The spreadsheet program, as far as TVX drives it: the steps of its object model, one after the
// other. The real one is another process; the tests have one that writes down its calls.
#pragma once

#include <memory>
#include <string>
#include <variant>

namespace tvx {

// A number, or a text in UTF-8. A text is put as it stands and never taken for a formula, a number
// or a date.
using CellValue = std::variant<float, std::string>;

// One running spreadsheet program with one workbook. The steps come in the order of their
// declaration, range and value again and again, and end with SetVisible and SetUserControl or with
// Save. Each returns true if it was carried out. A step may be carried out late, so that a failure
// shows only at a later one; after a failure every step fails, within seconds and without harm.
//
// Its end releases the program: it closes and saves nothing that is in the hands of the user.
class SpreadsheetApplication {
 public:
  virtual ~SpreadsheetApplication() = default;

  // Opens a workbook of any format that the program reads. `path` is a full drive path. In the file
  // form a workbook that does not exist is new and has one empty sheet; otherwise that is a
  // failure.
  virtual bool OpenWorkbook(const std::string& path) = 0;
  // Takes a worksheet by its number, 1 for the first.
  virtual bool SelectSheet(int number) = 0;
  // Takes the cells from one to another by their names; "A1", "A1" for a single one.
  virtual bool SelectRange(const std::string& first, const std::string& last) = 0;
  // Puts a value into the cells taken. All other cells keep what they hold.
  virtual bool PutValue(const CellValue& value) = 0;
  // Shows the program with the workbook on the screen.
  virtual bool SetVisible(bool visible) = 0;
  // Leaves the program to the user, who may now save or close the workbook: it stays open when this
  // object goes.
  virtual bool SetUserControl(bool control) = 0;
  // File form only: saves the workbook under its path, in the format of the path's ending, and
  // closes it. An older file stays whole if that fails.
  virtual bool Save() = 0;

  // Why a step failed, in words for a person. Empty if none did or nobody knows.
  virtual std::string Problem() const { return {}; }
};

enum class SpreadsheetForm {
  kInteractive,  // with a window, for the workbook to end in the hands of the user
  kFile,         // without a window or a display, to fill a file and save it
};

// Starts spreadsheet programs.
class Spreadsheets {
 public:
  virtual ~Spreadsheets() = default;

  // Null if no such program can be started (not installed, no display, dead within its first
  // seconds). Never hangs.
  virtual std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm form) = 0;
};

// A machine without a spreadsheet program: Start gives null.
Spreadsheets* NoSpreadsheets();

}  // namespace tvx
