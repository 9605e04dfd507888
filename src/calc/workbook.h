// One workbook of the office, filled cell by cell.
#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "calc/office.h"

namespace tvx {

// Every operation throws Problem, or an exception of the component interfaces, if it fails.
class Workbook {
 public:
  // The office must outlive the workbook.
  explicit Workbook(Office* office) : office_(office) {}
  // Closes the workbook without saving it, unless it is left to the user.
  ~Workbook();
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  // Opens a workbook without showing it and without running its macros. A hidden office creates a
  // workbook that does not exist, and refuses one that could not be saved again.
  void Open(const std::filesystem::path& path);
  // Selects a sheet by its number, 1 for the first.
  void TakeSheet(int number);
  // Selects cells of the sheet by name: "A1", or "A1:B2".
  void TakeRange(std::string_view name);
  // Put a value into each selected cell. A text is never read as a formula or a number.
  void PutNumber(double number);
  void PutText(std::string_view text);
  // Shows or hides the window.
  void SetVisible(bool visible);
  // Leaves workbook and office to the user.
  void LeaveToUser();
  // Saves in the format of the name's extension and closes the workbook. Hidden office only.
  void Save();

 private:
  // A change in it shows that another program has written the file meanwhile.
  struct FileState {
    bool exists = false;
    std::filesystem::file_time_type written;
    uintmax_t size = 0;
    bool operator==(const FileState&) const = default;
  };

  static FileState StateOf(const std::filesystem::path& path);
  void CheckName() const;
  void CheckContent() const;
  template <typename Put>
  void ForEachCell(Put put);
  void Close();

  Office* const office_;
  std::filesystem::path path_;
  FileState found_;  // the file as it was opened
  com::sun::star::uno::Reference<com::sun::star::lang::XComponent> document_;
  bool wasOpen_ = false;  // by the user; it is then never closed here
  com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet> sheet_;
  com::sun::star::uno::Reference<com::sun::star::table::XCellRange> range_;
  int rows_ = 0;  // of the range
  int columns_ = 0;
};

}  // namespace tvx
