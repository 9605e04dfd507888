// A workbook file (*.xlsx) with one sheet, written without an office program. The only part of TVX
// that uses libxlsxwriter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tvx {

enum class XlsxStyle { kPlain, kTitle, kLength, kMinutes, kTotal, kTotalLength, kTotalMinutes };

// Rows and columns count from 0.
class XlsxFile {
 public:
  XlsxFile();
  ~XlsxFile();
  XlsxFile(const XlsxFile&) = delete;
  XlsxFile& operator=(const XlsxFile&) = delete;

  // Stored as a text, whatever it begins with. What the format cannot hold becomes U+FFFD, and
  // what is beyond its length is cut off.
  void PutText(uint32_t row, uint16_t column, std::string_view text,
               XlsxStyle style = XlsxStyle::kPlain);
  // A number that is not finite leaves the cell empty.
  void PutNumber(uint32_t row, uint16_t column, double number, XlsxStyle style = XlsxStyle::kPlain);
  // The sum of the cells of a column from one row to another, as a formula with its result.
  void PutSum(uint32_t row, uint16_t column, uint32_t firstRow, uint32_t lastRow, double result,
              XlsxStyle style);
  // A PNG picture, `scale` times its size. The row and the column do not grow with it.
  void PutPicture(uint32_t row, uint16_t column, const std::string& png, double scale,
                  const std::string& description);
  // Sizes in pixels.
  void SetColumnWidth(uint16_t first, uint16_t last, uint32_t width);
  void SetRowHeight(uint32_t row, uint32_t height);
  // The rows above stay in sight.
  void FreezeAbove(uint32_t row);

  // Creates or replaces the file; the last call. Returns false if that fails; an existing file is
  // then unchanged.
  bool Write(const std::string& path, Files* files);

 private:
  struct Workbook;
  std::unique_ptr<Workbook> workbook_;
};

}  // namespace tvx
