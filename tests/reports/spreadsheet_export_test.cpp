// The results in a workbook: which steps, which cells, and what happens when the program is not
// there or dies.
#include "reports/spreadsheet_export.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/format.h"
#include "reports/example_entry.h"
#include "support/scripted_spreadsheets.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

class SpreadsheetExport : public testing::Test {
 protected:
  void Export(ResultTable* table) {
    ui.OnFile("c:\\work\\times.xls");
    ExportSpreadsheet(table, &spreadsheets, &ui);
  }
  // The cells of a row from column A to Z: texts in quotes, to tell them from numbers, and nothing
  // for those that were never written.
  std::string Row(int row) {
    std::string text;
    for (char column = 'A'; column <= 'Z'; ++column) {
      const auto cell = spreadsheets.cells.find(column + std::to_string(row));
      if (cell != spreadsheets.cells.end()) text += Text(cell->second);
      text += "|";
    }
    return text;
  }
  static std::string Text(const CellValue& value) {
    const auto* const number = std::get_if<float>(&value);
    return number != nullptr ? Format("%g", *number) : "'" + std::get<std::string>(value) + "'";
  }

  ScriptedSpreadsheets spreadsheets;
  ScriptedUi ui;
};

TEST_F(SpreadsheetExport, StepsOfAnEmptyTable) {
  ResultTable table;
  Export(&table);
  EXPECT_EQ(
      Row(1),
      "'NO'|'Ncdata Name'|'절삭길이'|'절삭시간'|'평균절삭속도'|'급속이송속도'|'급속이송길이'|"
      "'급속이송시간'|'소요 시간'|'그림화일'|'Afa'|'공구직경'|'안전거리'|'코너최소각도'|"
      "'코너최대감속비'|'경사최소각도'|'경사최대감속비'|'볼록코너검색'|'Z상하향검색'|'최대피드'|"
      "'접근피드'|'코너가중치'|'경사가중치'|'부드러운 피드 변화'|'XY변화 축소 ON'|"
      "'마스타 화일 '|");
  const Lines& log = spreadsheets.log;
  ASSERT_EQ(log.size(), 3 + 2 * 26 + 3U);
  EXPECT_EQ(Lines(log.begin(), log.begin() + 7),
            (Lines{"start", "open c:\\work\\times.xls", "sheet 1", "A1:A1", "value NO", "B1:B1",
                   "value Ncdata Name"}));
  EXPECT_EQ(Lines(log.end() - 4, log.end()),
            (Lines{"value 마스타 화일 ", "visible", "control", "end"}));
  const FileQuestion& question = ui.fileQuestions.at(0);
  EXPECT_TRUE(question.save && question.mustExist);
  EXPECT_EQ(question.fileName, "*.xls");
  EXPECT_EQ(question.filter, "Excel file (*.xls)|*.xls|모든 화일(*.*)|*.*||");
}

TEST_F(SpreadsheetExport, CellsOfARow) {
  CutTimeEntry adjusted = AdjustedEntry("a.nc");
  adjusted.UpDownChk = adjusted.XyChgReduceCheck = adjusted.AfaByMaster = 0;
  ResultTable table = TableOf({PlainEntry("=1+1"), adjusted});
  table.entries[0].AfaEnabled = 2;  // neither on nor off
  spreadsheets.cells["L2"] = "old";
  Export(&table);
  const std::string figures = "|12.345|14.567|850|15000|0.987|0.259|14.826|'c:\\marlo\\ncdata\\";
  EXPECT_EQ(Row(2), "1|'=1+1'" + figures + "'|'OFF'|'old'|||||||||||||||");
  EXPECT_EQ(Row(3), "2|'a.nc'" + figures +
                        "a.nc.emf'|'ON'|16|3.26|12.5|0.27|15|0.5|'ON'|'OFF'|2400|400|"
                        "'1.00 0.65 0.30 '|'0.90 0.70 12.35 '|'ON '|'OFF '|'c:\\die\\코아.mma'|");
}

TEST_F(SpreadsheetExport, FiguresAreCutDownInTheTable) {
  const struct {
    float length, cutLength;  // mm
    float minutes, cutMinutes;
  } cases[] = {
      {1234.9F, 1234, 0.0019F, 0.001F},
      {0.99F, 0, 0.0009F, 0},
      {-1.9F, -1, -0.0019F, -0.001F},
      {5e9F, 5e9F, 4e6F, 4e6F},  // beyond 32 bits
  };
  for (const auto& c : cases) {
    CutTimeEntry entry = PlainEntry("a.nc");
    entry.cutLength = entry.rapidLength = c.length;
    entry.cutMinutes = entry.rapidMinutes = entry.totalMinutes = c.minutes;
    ResultTable table = TableOf({entry});
    Export(&table);
    const CutTimeEntry& cut = table.entries[0];
    EXPECT_EQ((std::vector{cut.cutLength, cut.rapidLength}), std::vector(2, c.cutLength));
    EXPECT_EQ((std::vector{cut.cutMinutes, cut.rapidMinutes, cut.totalMinutes}),
              std::vector(3, c.cutMinutes));
    EXPECT_EQ(spreadsheets.cells["D2"], CellValue(c.cutMinutes));
  }
}

TEST_F(SpreadsheetExport, OneMessageForAProgramThatIsNotThereOrDies) {
  ui.OnFileCancel();
  ExportSpreadsheet(nullptr, &spreadsheets, &ui);
  EXPECT_TRUE(spreadsheets.log.empty());
  // The steps: open, sheet, 52 for the titles, 22 for the entry, visible, control.
  for (const int refused : {0, 1, 2, 3, 54, 55, 76, 77, 78, 79}) {
    spreadsheets.refusesStart = refused == 0;
    spreadsheets.refusedStep = refused;
    ui.log.clear();
    ResultTable table = TableOf({PlainEntry("a.nc")});
    Export(&table);
    EXPECT_EQ(ui.log, refused == 79 ? Lines{"file *.xls"}
                                    : (Lines{"file *.xls", "message Couldn't start Excel."}))
        << refused;
    EXPECT_EQ(table.entries[0].cutLength, refused < 55 ? 12345.6F : 12345.0F) << refused;
  }
}

TEST_F(SpreadsheetExport, TheFileFormSavesInsteadOfShowing) {
  ResultTable table = TableOf({PlainEntry("a.nc")});
  auto program = spreadsheets.Start(SpreadsheetForm::kFile);
  EXPECT_TRUE(WriteSpreadsheetFile("c:\\t.ods", &table, program.get()));
  program.reset();
  const Lines& log = spreadsheets.log;
  EXPECT_EQ(Lines(log.end() - 2, log.end()), (Lines{"save", "end"}));
  EXPECT_EQ(std::ranges::count(log, "visible"), 0);
  EXPECT_EQ(spreadsheets.cells["B2"], CellValue("a.nc"));
}

}  // namespace
}  // namespace tvx
