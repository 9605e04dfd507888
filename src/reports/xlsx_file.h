// A workbook file (*.xlsx) with one sheet, written without an office program: the parts of the
// format in XML (ECMA-376, SpreadsheetML and DrawingML), in a ZIP archive.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/files.h"

namespace tvx {

enum class XlsxStyle { kPlain, kTitle, kLength, kMinutes, kTotal, kTotalLength, kTotalMinutes };

// Rows and columns count from 0.
class XlsxFile {
 public:
  // Stored as a text, whatever it begins with. What the format cannot hold becomes U+FFFD, and
  // what is beyond its length is cut off. An empty text leaves the cell empty.
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
  // Sizes in pixels. Columns are set from left to right.
  void SetColumnWidth(uint16_t first, uint16_t last, uint32_t width);
  void SetRowHeight(uint32_t row, uint32_t height) { rows_[row].height = height; }
  // The rows above stay in sight.
  void FreezeAbove(uint32_t row) { frozenRows_ = row; }

  // Creates or replaces the file. Equal contents give equal bytes. An existing file is unchanged
  // if that fails.
  Status Write(const std::string& path, Files* files) const;

 private:
  struct Row {
    uint32_t height = 0;                    // pixels; 0 for the usual one
    std::map<uint16_t, std::string> cells;  // as markup, by column
  };
  struct Picture {
    uint32_t row;
    uint16_t column;
    std::string png;
    double scale;
    std::string description;
  };

  void PutCell(uint32_t row, uint16_t column, XlsxStyle style, const std::string& attributes,
               const std::string& content);
  std::string Sheet() const;
  std::string Drawing() const;

  std::map<uint32_t, Row> rows_;
  std::string columns_;  // as markup
  std::vector<Picture> pictures_;
  uint32_t frozenRows_ = 0;
};

}  // namespace tvx
