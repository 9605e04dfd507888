// The library writes to a file in memory; only a complete workbook reaches its place.
#include "reports/xlsx_file.h"

#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <utility>

#include "base/format.h"
#include "base/text.h"
#include "platform/scratch_file.h"

namespace tvx {

namespace {

struct StyleRow {
  XlsxStyle style;
  bool isBold;
  const char* numberFormat;  // null: general
};
constexpr StyleRow kStyles[] = {
    {XlsxStyle::kPlain, false, nullptr},       {XlsxStyle::kTitle, true, nullptr},
    {XlsxStyle::kLength, false, "0.000"},      {XlsxStyle::kMinutes, false, "0.000"},
    {XlsxStyle::kTotal, true, nullptr},        {XlsxStyle::kTotalLength, true, "0.000"},
    {XlsxStyle::kTotalMinutes, true, "0.000"},
};

constexpr uint64_t kMarkup = 4 << 20;  // bytes, of a full sheet without its texts and pictures
constexpr uint64_t kSpareCopies = 3;   // of the content, in temporary files

// The most that a cell holds, characters; bytes of UTF-8 are at least as many.
constexpr size_t kLongestText = 32767;

std::string CellText(std::string_view text) {
  std::string cell = DocumentText(text);
  if (cell.size() <= kLongestText) return cell;
  size_t end = 0;
  while (CharacterEnd(cell, end) <= kLongestText) end = CharacterEnd(cell, end);
  return cell.substr(0, end);
}

}  // namespace

struct XlsxFile::Workbook {
  ScratchFile file;
  std::string path = file.Path();
  std::string temporaryFolder = FolderForTemporaries();
  lxw_workbook* workbook = nullptr;
  lxw_worksheet* sheet = nullptr;
  std::array<lxw_format*, std::size(kStyles)> formats{};
  bool good = false;
  uint64_t bytes = kMarkup;  // of the content, about

  // The library does not see that a temporary file of its own is cut short by a full disk.
  bool HasSpace() const { return TemporarySpace() >= kSpareCopies * bytes; }

  lxw_format* FormatOf(XlsxStyle style) const { return formats[static_cast<size_t>(style)]; }
  void Note(lxw_error error) { good = good && error == LXW_NO_ERROR; }
};

XlsxFile::XlsxFile() : workbook_(std::make_unique<Workbook>()) {
  Workbook& w = *workbook_;
  if (!w.file.IsOpen() || !w.HasSpace()) return;
  lxw_workbook_options options{};
  options.tmpdir = w.temporaryFolder.data();
  w.workbook = workbook_new_opt(w.path.c_str(), &options);
  if (w.workbook == nullptr) return;
  w.sheet = workbook_add_worksheet(w.workbook, nullptr);
  for (const StyleRow& row : kStyles) {
    lxw_format* const format = workbook_add_format(w.workbook);
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
    if (row.isBold) format_set_bold(format);
    if (row.numberFormat != nullptr) format_set_num_format(format, row.numberFormat);
    w.formats[static_cast<size_t>(row.style)] = format;
  }
  w.good = w.sheet != nullptr;
}

XlsxFile::~XlsxFile() {
  if (workbook_->workbook != nullptr) lxw_workbook_free(workbook_->workbook);
}

void XlsxFile::PutText(uint32_t row, uint16_t column, std::string_view text, XlsxStyle style) {
  if (!workbook_->good || text.empty()) return;
  const std::string cell = CellText(text);
  workbook_->bytes += cell.size();
  workbook_->Note(worksheet_write_string(workbook_->sheet, row, column, cell.c_str(),
                                         workbook_->FormatOf(style)));
}

void XlsxFile::PutNumber(uint32_t row, uint16_t column, double number, XlsxStyle style) {
  if (!workbook_->good || !std::isfinite(number)) return;
  workbook_->Note(
      worksheet_write_number(workbook_->sheet, row, column, number, workbook_->FormatOf(style)));
}

void XlsxFile::PutSum(uint32_t row, uint16_t column, uint32_t firstRow, uint32_t lastRow,
                      double result, XlsxStyle style) {
  if (!workbook_->good || !std::isfinite(result)) return;
  char first[LXW_MAX_CELL_NAME_LENGTH];
  char last[LXW_MAX_CELL_NAME_LENGTH];
  lxw_rowcol_to_cell(first, firstRow, column);
  lxw_rowcol_to_cell(last, lastRow, column);
  const std::string formula = Format("=SUM(%s:%s)", first, last);
  workbook_->Note(worksheet_write_formula_num(workbook_->sheet, row, column, formula.c_str(),
                                              workbook_->FormatOf(style), result));
}

void XlsxFile::PutPicture(uint32_t row, uint16_t column, const std::string& png, double scale,
                          const std::string& description) {
  if (!workbook_->good) return;
  const std::string text = CellText(description);
  lxw_image_options options{};
  options.x_scale = options.y_scale = scale;
  options.description = const_cast<char*>(text.c_str());  // the library copies it
  workbook_->bytes += png.size();
  workbook_->Note(worksheet_insert_image_buffer_opt(
      workbook_->sheet, row, column, reinterpret_cast<const unsigned char*>(png.data()), png.size(),
      &options));
}

void XlsxFile::SetColumnWidth(uint16_t first, uint16_t last, uint32_t width) {
  if (workbook_->good) {
    workbook_->Note(worksheet_set_column_pixels(workbook_->sheet, first, last, width, nullptr));
  }
}

void XlsxFile::SetRowHeight(uint32_t row, uint32_t height) {
  if (workbook_->good) {
    workbook_->Note(worksheet_set_row_pixels(workbook_->sheet, row, height, nullptr));
  }
}

void XlsxFile::FreezeAbove(uint32_t row) {
  if (workbook_->good) worksheet_freeze_panes(workbook_->sheet, row, 0);
}

bool XlsxFile::Write(const std::string& path, Files* files) {
  Workbook& w = *workbook_;
  if (!w.HasSpace()) return files->Fail(ENOSPC);
  if (!w.good) return files->Fail(EIO);
  // Closing frees the workbook, also if it fails.
  const lxw_error error = workbook_close(std::exchange(w.workbook, nullptr));
  w.good = false;
  std::string bytes;
  if (error != LXW_NO_ERROR || !w.file.Read(&bytes)) return files->Fail(errno != 0 ? errno : EIO);
  return WriteWholeFile(files, path, bytes);
}

}  // namespace tvx
