// The columns, and the steps that write it cell by cell.
#include "reports/spreadsheet_export.h"

#include <cmath>

#include "base/format.h"
#include "model/option_fields.h"
#include "reports/report.h"

namespace tvx {

namespace {

using Entry = CutTimeEntry;

struct Column {
  const char* title;
  CellValue (*value)(const Entry& entry, size_t number);
  bool isPath = false;
};

CellValue Number(int32_t value) {
  return static_cast<float>(value);
}

CellValue MetresCell(float millimetres) {
  return SpreadsheetMetres(millimetres);
}

// The first columns. Those of the conditions follow.
const Column kColumns[] = {
    {"NO", [](const Entry&, size_t number) { return CellValue(static_cast<float>(number)); }},
    {"Ncdata Name", [](const Entry& e, size_t) { return CellValue(e.fileName); }},
    {"절삭길이", [](const Entry& e, size_t) { return MetresCell(e.cutLength); }},
    {"절삭시간", [](const Entry& e, size_t) { return CellValue(e.cutMinutes); }},
    {"평균절삭속도", [](const Entry& e, size_t) { return Number(e.averageFeed); }},
    {"급속이송속도", [](const Entry& e, size_t) { return Number(e.RapidFeed); }},
    {"급속이송길이", [](const Entry& e, size_t) { return MetresCell(e.rapidLength); }},
    {"급속이송시간", [](const Entry& e, size_t) { return CellValue(e.rapidMinutes); }},
    {"소요 시간", [](const Entry& e, size_t) { return CellValue(e.totalMinutes); }},
    {"그림화일", [](const Entry& e, size_t) { return CellValue(e.dirName + "\\" + e.pictureName); },
     true},
    {"Afa", [](const Entry& e, size_t) { return CellValue(OnOff(e.AfaEnabled)); }},
};

bool HasColumn(const FeedField& field) {
  return field.isInResults && field.form != FeedForm::kHidden;
}

// Floats are cells of their own value, not of the decimals that lists show.
CellValue ConditionCell(const Entry& entry, const FeedField& field) {
  if (field.form == FeedForm::kMaster) return entry.AfaMasterFile;
  if (field.form == FeedForm::kValue && field.groupSize == 1) {
    if (const auto* const real = std::get_if<float FeedOptions::*>(&field.member)) {
      return entry.**real;
    }
    if (const auto* const whole = std::get_if<int32_t FeedOptions::*>(&field.member)) {
      return Number(entry.**whole);
    }
  }
  const char* const end = field.form == FeedForm::kSwitchIfOn ? " " : "";
  return ShownText(entry, field, field.decimals) + end;
}

// "A" for 0, "AA" for 26.
std::string ColumnName(size_t column) {
  constexpr size_t kLetters = 26;
  std::string name;
  for (size_t rest = column + 1; rest > 0; rest = (rest - 1) / kLetters) {
    name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
  }
  return name;
}

// Writes one cell. Columns count from 0, rows from 1.
bool PutCell(size_t column, size_t row, const CellValue& value, SpreadsheetApplication* program) {
  const std::string cell = ColumnName(column) + Format("%zu", row);
  return program->SelectRange(cell, cell) && program->PutValue(value);
}

bool PutTitles(SpreadsheetApplication* program) {
  size_t next = 0;
  for (const SpreadsheetColumn& column : SpreadsheetColumns()) {
    if (!PutCell(next++, 1, column.title, program)) return false;
  }
  return true;
}

bool PutEntry(const Entry& entry, size_t index, SpreadsheetApplication* program) {
  constexpr size_t kFirstRow = 2;  // below the titles
  const auto cells = SpreadsheetCells(entry, index + 1);
  for (size_t i = 0; i < cells.size(); ++i) {
    if (cells[i] && !PutCell(i, index + kFirstRow, *cells[i], program)) return false;
  }
  return true;
}

float ToThousandths(float minutes) {
  return static_cast<float>(std::trunc(minutes * 1000.0) * 0.001);
}

bool FillWorkbook(const std::string& path, std::span<const ProgramResult> results,
                  SpreadsheetApplication* program, size_t* rows, Progress* progress) {
  if (!program->OpenWorkbook(path) || !program->SelectSheet(1) || !PutTitles(program)) return false;
  for (size_t i = 0; i < results.size(); ++i) {
    if (!progress->Step(i, results.size())) return false;
    *rows = i + 1;
    Entry entry = results[i].entry;
    CutDownFigures(&entry);
    if (!PutEntry(entry, i, program)) return false;
  }
  return true;
}

}  // namespace

std::vector<SpreadsheetColumn> SpreadsheetColumns() {
  std::vector<SpreadsheetColumn> columns;
  for (const Column& column : kColumns) columns.push_back({column.title, column.isPath});
  for (const FeedField& field : FeedFields()) {
    if (!HasColumn(field)) continue;
    const bool hasOwnTitle = *field.column != '\0';
    columns.push_back(
        {hasOwnTitle ? field.column : field.label.korean, field.form == FeedForm::kMaster});
  }
  return columns;
}

std::vector<std::optional<CellValue>> SpreadsheetCells(const Entry& entry, size_t number) {
  std::vector<std::optional<CellValue>> cells;
  for (const Column& column : kColumns) cells.emplace_back(column.value(entry, number));
  for (const FeedField& field : FeedFields()) {
    if (!HasColumn(field)) continue;
    cells.push_back(entry.AfaEnabled == 1 ? std::optional(ConditionCell(entry, field))
                                          : std::nullopt);
  }
  return cells;
}

float SpreadsheetMetres(float millimetres) {
  // A double product, rounded once: 1234 mm becomes the float nearest to 1.234.
  return static_cast<float>(millimetres * 0.001);
}

void CutDownFigures(Entry* entry) {
  entry->cutLength = std::trunc(entry->cutLength);
  entry->rapidLength = std::trunc(entry->rapidLength);
  entry->cutMinutes = ToThousandths(entry->cutMinutes);
  entry->rapidMinutes = ToThousandths(entry->rapidMinutes);
  entry->totalMinutes = ToThousandths(entry->totalMinutes);
}

bool ExportSpreadsheet(const std::string& path, std::span<const ProgramResult> results,
                       Spreadsheets* spreadsheets, size_t* rows, Progress* progress) {
  *rows = 0;
  const auto program = spreadsheets->Start(SpreadsheetForm::kInteractive);
  return program != nullptr && FillWorkbook(path, results, program.get(), rows, progress) &&
         program->SetVisible(true) && program->SetUserControl(true);
}

bool WriteSpreadsheetFile(const std::string& path, std::span<const ProgramResult> results,
                          SpreadsheetApplication* program, Progress* progress) {
  size_t rows = 0;
  return FillWorkbook(path, results, program, &rows, progress) && program->Save();
}

extern const Report kSpreadsheetReport;
constexpr Message kSpreadsheetButton{"스프레드시트 출력", "Fill spreadsheet"};
constinit const Report kSpreadsheetReport = {
    .option = "--sheet",
    .help = {"FILE: 통합 문서의 첫 번째 시트를 채우고 저장",
             "FILE: fill the first sheet of a workbook and save it"},
    .button = &kSpreadsheetButton,
    .ending = "xls",
    .fileKind = "Excel file",
    .steps = ReportSteps::kFillSpreadsheet,
};

}  // namespace tvx
