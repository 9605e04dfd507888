// The results in a workbook: its steps and cells, and a program that does not start or dies.
#include "reports/spreadsheet_export.h"

#include <gtest/gtest.h>

#include <set>

#include "base/format.h"
#include "reports/example_entry.h"
#include "support/scripted_spreadsheets.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

class SpreadsheetExport : public testing::Test {
 protected:
  bool Export(const std::vector<ProgramResult>& results) {
    return ExportSpreadsheet("c:\\work\\times.xls", results, &spreadsheets, &rows);
  }
  // The cells of a row from column A to Z: texts in quotes, and nothing for a cell that was not
  // written.
  std::string Row(int row) {
    std::string text;
    for (char column = 'A'; column <= 'Z'; ++column, text += "|") {
      const auto cell = spreadsheets.cells.find(column + std::to_string(row));
      if (cell == spreadsheets.cells.end()) continue;
      const auto* const number = std::get_if<float>(&cell->second);
      text += number != nullptr ? Format("%g", *number)
                                : "'" + std::get<std::string>(cell->second) + "'";
    }
    return text;
  }

  ScriptedSpreadsheets spreadsheets;
  size_t rows = 0;  // of the last export
};

TEST_F(SpreadsheetExport, EmptyTableWritesTheTitles) {
  EXPECT_TRUE(Export({}));
  EXPECT_EQ(
      Row(1),
      "'NO'|'Ncdata Name'|'절삭길이'|'절삭시간'|'평균절삭속도'|'급속이송속도'|'급속이송길이'|"
      "'급속이송시간'|'소요 시간'|'그림화일'|'Afa'|'공구직경'|'안전거리'|'코너최소각도'|"
      "'코너최대감속비'|'경사최소각도'|'경사최대감속비'|'볼록코너검색'|'Z상하향검색'|'최대피드'|"
      "'접근피드'|'코너가중치'|'경사가중치'|'부드러운 피드 변화'|'XY변화 축소 ON'|"
      "'마스타 화일 '|");
  Lines& log = spreadsheets.log;
  ASSERT_EQ(log.size(), 3 + 2 * 26 + 3U);
  log.erase(log.begin() + 6, log.end() - 4);
  EXPECT_EQ(log, (Lines{"start", "open c:\\work\\times.xls", "sheet 1", "A1:A1", "value NO",
                        "B1:B1", "value 마스타 화일 ", "visible", "control", "end"}));
}

TEST_F(SpreadsheetExport, CellsOfARow) {
  CutTimeEntry adjusted = AdjustedEntry("a.nc");
  adjusted.UpDownChk = adjusted.XyChgReduceCheck = adjusted.AfaByMaster = 0;
  std::vector<ProgramResult> results = ResultsOf({PlainEntry("=1+1"), adjusted});
  results[0].entry.AfaEnabled = 2;  // neither on nor off
  spreadsheets.cells["L2"] = "old";
  Export(results);
  const std::string figures = "|12.345|14.567|850|15000|0.987|0.259|14.826|'c:\\marlo\\ncdata\\";
  EXPECT_EQ(Row(2), "1|'=1+1'" + figures + "'|'OFF'|'old'|||||||||||||||");
  EXPECT_EQ(Row(3), "2|'a.nc'" + figures +
                        "a.nc.emf'|'ON'|16|3.26|12.5|0.27|15|0.5|'ON'|'OFF'|2400|400|"
                        "'1.00 0.65 0.30 '|'0.90 0.70 12.35 '|'ON '|'OFF '|'c:\\die\\코아.mma'|");
}

TEST_F(SpreadsheetExport, FiguresAreTruncated) {
  // Length in mm, truncated; time in minutes, truncated. The last ones need more than 32 bits.
  const std::array<float, 4> cases[] = {{1234.9F, 1234, 0.0019F, 0.001F},
                                        {0.99F, 0, 0.0009F, 0},
                                        {-1.9F, -1, -0.0019F, -0.001F},
                                        {5e9F, 5e9F, 4e6F, 4e6F}};
  for (const auto& [length, wholeLength, minutes, wholeMinutes] : cases) {
    CutTimeEntry entry = PlainEntry("a.nc");
    entry.cutLength = entry.rapidLength = length;
    entry.cutMinutes = entry.rapidMinutes = entry.totalMinutes = minutes;
    Export(ResultsOf({entry}));
    CutDownFigures(&entry);
    EXPECT_EQ(std::set({entry.cutLength, entry.rapidLength}), std::set({wholeLength}));
    EXPECT_EQ(std::set({entry.cutMinutes, entry.rapidMinutes, entry.totalMinutes}),
              std::set({wholeMinutes}));
    EXPECT_EQ(spreadsheets.cells["D2"], CellValue(wholeMinutes));
  }
}

// The steps: open, sheet, 52 for the titles, 22 for the entry, visible, control.
TEST_F(SpreadsheetExport, ProgramThatDoesNotStartOrDiesIsAFailure) {
  for (const int refused : {0, 1, 2, 3, 54, 55, 76, 77, 78, 79}) {
    spreadsheets.refusesStart = refused == 0;
    spreadsheets.refusedStep = refused;
    EXPECT_EQ(Export(ResultsOf({PlainEntry("a.nc")})), refused == 79) << refused;
    EXPECT_EQ(rows, refused < 55 ? 0U : 1U) << refused;
  }
}

TEST_F(SpreadsheetExport, FileFormSavesInsteadOfShowing) {
  const auto program = spreadsheets.Start(SpreadsheetForm::kFile);
  EXPECT_TRUE(WriteSpreadsheetFile("c:\\t.ods", ResultsOf({PlainEntry("a.nc")}), program.get()));
  EXPECT_EQ(spreadsheets.log.back(), "save");
  EXPECT_EQ(spreadsheets.cells["B2"], CellValue("a.nc"));
}

}  // namespace
}  // namespace tvx
