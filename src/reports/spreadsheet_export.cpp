// The table of columns, and the steps that write it cell by cell.
#include "reports/spreadsheet_export.h"

#include <cmath>

#include "base/format.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

using Entry = CutTimeEntry;

struct Column {
  const char* title;
  CellValue (*value)(const Entry& entry, size_t number);
  bool isCondition = false;  // written only for an entry with the feed adjustment on
};

constexpr bool kCondition = true;

CellValue Number(int32_t value) {
  return static_cast<float>(value);
}

CellValue MetresCell(float millimetres) {
  return SpreadsheetMetres(millimetres);
}

// "ON" or "OFF". Some columns have a blank behind the word.
CellValue Switch(int32_t check, const char* suffix = "") {
  return OnOff(check) + std::string(suffix);
}

// The columns, starting with A.
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
    {"그림화일",
     [](const Entry& e, size_t) { return CellValue(e.dirName + "\\" + e.pictureName); }},
    {"Afa", [](const Entry& e, size_t) { return Switch(e.AfaEnabled); }},
    {"공구직경", [](const Entry& e, size_t) { return CellValue(e.ToolDiameter); }, kCondition},
    {"안전거리", [](const Entry& e, size_t) { return CellValue(e.SafetyDistance); }, kCondition},
    {"코너최소각도", [](const Entry& e, size_t) { return CellValue(e.CornerMinAngle); },
     kCondition},
    {"코너최대감속비", [](const Entry& e, size_t) { return CellValue(e.CornerMaxRatio); },
     kCondition},
    {"경사최소각도", [](const Entry& e, size_t) { return CellValue(e.SlopeMinAngle); }, kCondition},
    {"경사최대감속비", [](const Entry& e, size_t) { return CellValue(e.SlopeMaxRatio); },
     kCondition},
    {"볼록코너검색", [](const Entry& e, size_t) { return Switch(e.ConCorChk); }, kCondition},
    {"Z상하향검색", [](const Entry& e, size_t) { return Switch(e.UpDownChk); }, kCondition},
    {"최대피드", [](const Entry& e, size_t) { return Number(e.MaxFeed); }, kCondition},
    {"접근피드", [](const Entry& e, size_t) { return Number(e.PlungeFeed); }, kCondition},
    {"코너가중치", [](const Entry& e, size_t) { return CellValue(CornerWeightsText(e)); },
     kCondition},
    {"경사가중치", [](const Entry& e, size_t) { return CellValue(SlopeWeightsText(e)); },
     kCondition},
    {"부드러운 피드 변화", [](const Entry& e, size_t) { return Switch(e.FeedChgSmoothCheck, " "); },
     kCondition},
    {"XY변화 축소 ON", [](const Entry& e, size_t) { return Switch(e.XyChgReduceCheck, " "); },
     kCondition},
    {"마스타 화일 ", [](const Entry& e, size_t) { return CellValue(e.AfaMasterFile); }, kCondition},
};

// Writes one cell. Columns count from 0, rows from 1.
bool PutCell(size_t column, size_t row, const CellValue& value, SpreadsheetApplication* program) {
  const std::string cell =
      static_cast<char>('A' + static_cast<int>(column)) + Format("%d", static_cast<int>(row));
  return program->SelectRange(cell, cell) && program->PutValue(value);
}

bool PutTitles(SpreadsheetApplication* program) {
  for (size_t i = 0; i < std::size(kColumns); ++i) {
    if (!PutCell(i, 1, kColumns[i].title, program)) return false;
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

std::vector<const char*> SpreadsheetTitles() {
  std::vector<const char*> titles;
  for (const Column& column : kColumns) titles.push_back(column.title);
  return titles;
}

std::vector<std::optional<CellValue>> SpreadsheetCells(const Entry& entry, size_t number) {
  std::vector<std::optional<CellValue>> cells;
  for (const Column& column : kColumns) {
    const bool isWritten = !column.isCondition || entry.AfaEnabled == 1;
    cells.push_back(isWritten ? std::optional(column.value(entry, number)) : std::nullopt);
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

}  // namespace tvx
