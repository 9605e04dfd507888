// One row for each result, below the titles.
#include "reports/result_workbook.h"

#include <cstdlib>
#include <vector>

#include "base/format.h"
#include "reports/report.h"
#include "reports/spreadsheet_export.h"
#include "reports/xlsx_file.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr char kPictureTitle[] = "그림";
constexpr char kTotalTitle[] = "합계";

// Pictures are half their size, rows a little higher; pixels.
constexpr double kPictureScale = 0.5;
constexpr uint32_t kPictureColumnWidth = 166;
constexpr uint32_t kPictureRowHeight = 126;

// The columns with a sum, from A on.
struct SumColumn {
  uint16_t column;
  float CutTimeEntry::*figure;
  bool isLength;
};
constexpr SumColumn kSums[] = {
    {2, &CutTimeEntry::cutLength, true},     {3, &CutTimeEntry::cutMinutes, false},
    {6, &CutTimeEntry::rapidLength, true},   {7, &CutTimeEntry::rapidMinutes, false},
    {8, &CutTimeEntry::totalMinutes, false},
};

// Pixels.
constexpr uint32_t kNumberWidth = 40;  // of the first column
constexpr uint32_t kNameWidth = 180;   // of the second
constexpr uint32_t kValueWidth = 95;
constexpr uint32_t kPathWidth = 220;

XlsxStyle StyleOf(uint16_t column) {
  for (const SumColumn& sum : kSums) {
    if (sum.column == column) return sum.isLength ? XlsxStyle::kLength : XlsxStyle::kMinutes;
  }
  return XlsxStyle::kPlain;
}

// The number that a cell of 32 bits shows: 0.1 and not 0.10000000149.
double ShownNumber(float value) {
  return std::strtod(ShortestFloat(value).c_str(), nullptr);
}

// Columns of one width in a row are set at once.
void SetWidths(XlsxFile* file) {
  std::vector<uint32_t> widths;
  for (const SpreadsheetColumn& column : SpreadsheetColumns()) {
    widths.push_back(column.isPath ? kPathWidth : kValueWidth);
  }
  widths[0] = kNumberWidth;
  widths[1] = kNameWidth;
  for (size_t first = 0, end = 0; first < widths.size(); first = end) {
    while (end < widths.size() && widths[end] == widths[first]) ++end;
    file->SetColumnWidth(static_cast<uint16_t>(first), static_cast<uint16_t>(end - 1),
                         widths[first]);
  }
}

void AddResult(const ProgramResult& result, uint32_t row, XlsxFile* file) {
  const CutTimeEntry& entry = result.entry;
  uint16_t column = 0;
  for (const auto& value : SpreadsheetCells(entry, row)) {
    if (value && std::holds_alternative<float>(*value)) {
      file->PutNumber(row, column, ShownNumber(std::get<float>(*value)), StyleOf(column));
    } else if (value) {
      file->PutText(row, column, std::get<std::string>(*value));
    }
    ++column;
  }
  const std::string& picture = result.pictures.workbookPng;
  if (picture.empty()) return;
  file->SetRowHeight(row, kPictureRowHeight);
  file->PutPicture(row, column, picture, kPictureScale, entry.fileName);
}

void AddTotals(std::span<const ProgramResult> results, uint32_t row, XlsxFile* file) {
  file->PutText(row, 1, kTotalTitle, XlsxStyle::kTotal);
  for (const SumColumn& sum : kSums) {
    double total = 0;
    for (const ProgramResult& result : results) {
      const float figure = result.entry.*sum.figure;
      total += sum.isLength ? ShownNumber(SpreadsheetMetres(figure)) : ShownNumber(figure);
    }
    file->PutSum(row, sum.column, 1, row - 1, total,
                 sum.isLength ? XlsxStyle::kTotalLength : XlsxStyle::kTotalMinutes);
  }
}

}  // namespace

Status WriteResultWorkbook(const std::string& path, std::span<const ProgramResult> results,
                           Files* files) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, path};
  XlsxFile file;
  uint16_t column = 0;
  for (const auto& [title, isPath] : SpreadsheetColumns()) {
    file.PutText(0, column++, title, XlsxStyle::kTitle);
  }
  file.PutText(0, column, kPictureTitle, XlsxStyle::kTitle);
  SetWidths(&file);
  file.SetColumnWidth(column, column, kPictureColumnWidth);
  file.FreezeAbove(1);
  uint32_t row = 1;
  for (const ProgramResult& result : results) AddResult(result, row++, &file);
  if (!results.empty()) AddTotals(results, row, &file);
  return file.Write(path, files);
}

extern const Report kWorkbookReport;
constinit const Report kWorkbookReport = {
    .option = "--xlsx",
    .help = {"OUT.xlsx: 그림이 있는 통합 문서를 오피스 프로그램 없이 쓰기",
             "OUT.xlsx: write a workbook with pictures, without an office program"},
    .needs = {.workbookPicture = true},
    .write = [](std::span<const ProgramResult> results,
                const ReportTarget& to) { return WriteResultWorkbook(to.path, results, to.files); },
};

}  // namespace tvx
