// The dialog of the recorded results, without its window.
#include "reports/cut_time_list.h"

#include <gtest/gtest.h>

#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_spreadsheets.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

TEST(CutTimeListLines, PlainEntryHasElevenLines) {
  EXPECT_EQ(
      CutTimeListLines(PlainEntry("a.nc")),
      (Lines{"Dir : c:\\marlo\\ncdata", "Restart OFF", "Afa Off", "절삭길이  12.346 M",
             "절삭시간  14.6 min", "평균절삭속도  850 mm/min", "급속이송속도  15000 mm/min",
             "급속이송길이  0.988 M", "급속이송시간 0.3 min", "소요시간 14.8 min", "그림화일 "}));
}

TEST(CutTimeListLines, EverythingOn) {
  CutTimeEntry entry = AdjustedEntry("a.nc");
  entry.UpDownChk = 0;
  EXPECT_EQ(CutTimeListLines(entry), (Lines{"Dir : c:\\marlo\\ncdata",
                                            "Restart OFF",
                                            "Afa On",
                                            "공구직경  16.0",
                                            "안전거리  3.3",
                                            "코너최소각도  12.5",
                                            "코너최대감속비 0.3",
                                            "경사최소각도 15.0",
                                            "경사최대감속비 0.5",
                                            "볼록코너검색 ON",
                                            "Z상하향검색 OFF",
                                            "최대피드  2400",
                                            "접근피드  400",
                                            "코너가중치 1.00 0.65 0.30 ",
                                            "경사가중치 0.90 0.70 12.35 ",
                                            "부드러운 피드 변화 ON ",
                                            "XY변화 축소 ON ",
                                            "MMA c:\\die\\코아.mma",
                                            "절삭길이  12.346 M",
                                            "절삭시간  14.6 min",
                                            "평균절삭속도  850 mm/min",
                                            "급속이송속도  15000 mm/min",
                                            "급속이송길이  0.988 M",
                                            "급속이송시간 0.3 min",
                                            "소요시간 14.8 min",
                                            "그림화일 a.nc.emf"}));
}

TEST(CutTimeListLines, RestartPositions) {
  const struct {
    int32_t kind;
    const char* line;  // null: none
  } cases[] = {
      {1, "재전송: 번호->120"},
      {2, "재전송: 블록->120"},
      {3, "재전송: Z영역->( -2.50 -  20.00)"},
      {4, "재전송: 좌표->XYZ(  1.50, -20.25, 100.13)  공차->  0.05  "},
      {0, nullptr},
      {5, nullptr},
  };
  for (const auto& c : cases) {
    CutTimeEntry entry = PlainEntry("a.nc");
    entry.RestartOn = 1;
    entry.RestartKind = c.kind;
    entry.RestartNumber = 120;
    entry.RestartZMin = -2.5F;
    entry.RestartZMax = 20;
    entry.RestartX = 1.5F;
    entry.RestartY = -20.25F;
    entry.RestartZ = 100.13F;
    entry.RestartTolerance = 0.05F;
    Lines lines = CutTimeListLines(entry);
    EXPECT_EQ(lines[1], "Restart ON");
    EXPECT_EQ(lines[2], c.line == nullptr ? "Afa Off" : c.line);
    EXPECT_EQ(lines.size(), c.line == nullptr ? 11U : 12U);
  }
}

class CutTimeList : public testing::Test {
 protected:
  void Record(const std::vector<std::pair<const char*, float>>& entries) {
    for (const auto& [name, minutes] : entries) {
      CutTimeEntry& entry = table.entries[static_cast<size_t>(table.entryCount++)];
      entry = PlainEntry(name);
      entry.totalMinutes = minutes;
    }
  }
  void Press(const std::string& caption, Closing expected = Closing::kStaysOpen) {
    for (const CCutTimeListDlg::Button& button : CCutTimeListDlg::Buttons()) {
      if (caption == button.caption) {
        EXPECT_EQ((dialog.*button.press)(), expected) << caption;
        return;
      }
    }
    ADD_FAILURE() << "no button " << caption;
  }

  ResultTable table;
  MemoryFiles files;
  ScriptedUi ui;
  ScriptedSpreadsheets spreadsheets;
  CCutTimeListDlg dialog{&table, &files, &ui, &spreadsheets};
};

TEST_F(CutTimeList, OpensWithTheTotalAndNothingSelected) {
  dialog.Open();
  EXPECT_TRUE(dialog.fileNames.empty());
  EXPECT_EQ(dialog.TotalTimeText(), "0.00");
  Record({{"a.nc", 1.25F}, {"b.nc", 2.5F}});
  dialog.Open();
  dialog.Select(1);
  EXPECT_EQ(dialog.information.size(), 11U);
  dialog.Open();
  EXPECT_EQ(dialog.fileNames, (Lines{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.TotalTimeText(), "3.75");
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(CutTimeList, AddsUpInSinglePrecisionInTheOrderOfTheTable) {
  Record({{"a.nc", 16777216}, {"b.nc", 1}, {"c.nc", 1}});
  dialog.Open();
  EXPECT_EQ(dialog.TotalTimeText(), "16777216.00");
}

TEST_F(CutTimeList, DeleteNeedsASelection) {
  Record({{"a.nc", 1}});
  dialog.Open();
  for (const int nothing : {-1, 1}) {
    dialog.Select(nothing);
    Press("화일삭제");
  }
  ASSERT_EQ(ui.messages.size(), 2U);
  EXPECT_EQ(ui.messages[0].text, "화일이 선택되지 않아습니다!!!\n");
  EXPECT_EQ(ui.messages[0].caption, "DNC message");
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(table.entryCount, 1);
}

TEST_F(CutTimeList, DeleteTakesTheSelectedEntryOutOfTheTableOnly) {
  files.Put("c:\\marlo\\ncdata\\b.nc", "G0");
  Record({{"a.nc", 1}, {"b.nc", 2}, {"c.nc", 4}, {"d.nc", 8}});
  table.entries[2].MaxFeed = 77;
  dialog.Open();
  dialog.Select(1);
  const Lines shown = dialog.information;
  Press("화일삭제");
  EXPECT_EQ(dialog.fileNames, (Lines{"a.nc", "c.nc", "d.nc"}));
  EXPECT_EQ(dialog.TotalTimeText(), "13.00");
  EXPECT_EQ(dialog.information, shown) << "kept until the next selection";
  EXPECT_EQ(table.entryCount, 3);
  EXPECT_EQ(table.entries[1].MaxFeed, 77);
  EXPECT_EQ(table.entries[3].fileName, "");
  EXPECT_TRUE(files.Exists("c:\\marlo\\ncdata\\b.nc"));

  Press("화일삭제");
  EXPECT_EQ(ui.messages.size(), 1U) << "the selection is gone";
  for (int i = 0; i < 3; ++i) {
    dialog.Select(0);
    Press("화일삭제");
  }
  EXPECT_EQ(table.entryCount, 0);
  EXPECT_TRUE(dialog.fileNames.empty());
  EXPECT_EQ(dialog.TotalTimeText(), "0.00");
}

TEST_F(CutTimeList, AFullTableCanBeDeletedFrom) {
  table.entryCount = static_cast<int32_t>(kResultEntries);
  table.entries.back() = PlainEntry("last.nc");
  dialog.Open();
  dialog.Select(299);
  Press("화일삭제");
  EXPECT_EQ(table.entryCount, 299);
  EXPECT_EQ(table.entries.size(), 300U);
  EXPECT_EQ(table.entries.back().fileName, "");
}

TEST_F(CutTimeList, ClearEmptiesTheTableAndCloses) {
  Record({{"a.nc", 1}, {"b.nc", 2}});
  dialog.Open();
  Press("청소", Closing::kAccepted);
  EXPECT_EQ(table.entryCount, 0);
  dialog.Open();
  EXPECT_TRUE(dialog.fileNames.empty());
}

TEST_F(CutTimeList, TheReportsCoverTheWholeTableWhateverIsSelected) {
  Record({{"a.nc", 1}, {"b.nc", 2}});
  files.SetCurrentDirectory("c:\\marlo");
  files.Put("c:\\marlo\\ncdata\\b.nc", "G0");
  dialog.Open();
  dialog.Select(0);
  for (const char* const path :
       {"c:\\marlo\\r.tvx", "c:\\marlo\\l.mcf", "c:\\marlo\\c.mcf", "c:\\marlo\\s.xls"}) {
    ui.OnFile(path);
  }
  Press("화일 출력");
  Press("AFA 출력");
  EXPECT_FALSE(files.Exists("c:\\marlo\\b.nc"));
  Press("AFA 출력, Copy");
  EXPECT_TRUE(files.Exists("c:\\marlo\\b.nc"));
  Press("스프레드시트 출력");
  EXPECT_NE(files.Bytes("c:\\marlo\\r.tvx").find(" b.nc\r\n"), std::string::npos);
  EXPECT_NE(files.Bytes("c:\\marlo\\l.mcf").find("File b.nc "), std::string::npos);
  EXPECT_NE(files.Bytes("c:\\marlo\\c.mcf").find("File b.nc "), std::string::npos);
  EXPECT_EQ(spreadsheets.cells["B3"], CellValue("b.nc"));
  // The figures that the sheet cut down show at the next selection.
  dialog.Select(0);
  EXPECT_EQ(dialog.information[3], "절삭길이  12.345 M");
}

}  // namespace
}  // namespace tvx
