// The dialog of the recorded results, without its window. Its lines are those of the golden cases
// of the run.
#include "reports/cut_time_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_spreadsheets.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

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
    const auto buttons = CCutTimeListDlg::Buttons();
    const auto button = std::ranges::find(buttons, caption, &CCutTimeListDlg::Button::caption);
    ASSERT_NE(button, buttons.end()) << caption;
    EXPECT_EQ((dialog.*button->press)(), expected) << caption;
  }

  ResultTable table;
  MemoryFiles files;
  ScriptedUi ui;
  ScriptedSpreadsheets spreadsheets;
  CCutTimeListDlg dialog{&table, &files, &ui, &spreadsheets};
};

TEST_F(CutTimeList, OpensWithTheTotalAndNothingSelected) {
  Record({{"a.nc", 16777216}, {"b.nc", 1}});  // added up in single precision
  dialog.Open();
  dialog.Select(1);
  EXPECT_EQ(dialog.information.size(), 11U);
  dialog.Open();
  EXPECT_EQ(dialog.fileNames, (Lines{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.TotalTimeText(), "16777216.00");
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_TRUE(dialog.information.empty());
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

  Press("화일삭제");  // the selection is gone
  for (const int nothing : {-1, 3}) {
    dialog.Select(nothing);
    Press("화일삭제");
  }
  EXPECT_EQ(dialog.fileNames.size(), 3U);
  EXPECT_EQ(ui.messages.size(), 3U);
  for (const Message& message : ui.messages) {
    EXPECT_EQ(message.caption + ": " + message.text,
              "DNC message: 화일이 선택되지 않아습니다!!!\n");
    EXPECT_EQ(message.icon, MessageIcon::kInformation);
  }
  for (int i = 0; i < 3; ++i) {
    dialog.Select(0);
    Press("화일삭제");
  }
  EXPECT_EQ(dialog.fileNames, Lines());
  EXPECT_EQ(dialog.TotalTimeText(), "0.00");
}

TEST_F(CutTimeList, AFullTableCanBeDeletedFromAndCleared) {
  table.entryCount = static_cast<int32_t>(kResultEntries);
  table.entries.back() = PlainEntry("last.nc");
  dialog.Open();
  dialog.Select(299);
  Press("화일삭제");
  EXPECT_EQ(table.entryCount, 299);
  EXPECT_EQ(table.entries.size(), 300U);
  EXPECT_EQ(table.entries.back().fileName, "");
  Press("청소", Closing::kAccepted);
  EXPECT_EQ(table.entryCount, 0);
}

TEST_F(CutTimeList, TheReportsCoverTheWholeTableWhateverIsSelected) {
  Record({{"a.nc", 1}, {"b.nc", 2}});
  files.SetCurrentDirectory("c:\\marlo");
  files.Put("c:\\marlo\\ncdata\\b.nc", "G0");
  dialog.Open();
  dialog.Select(0);
  for (const char* const name : {"r.tvx", "l.mcf", "c.mcf", "s.xls"}) {
    ui.OnFile("c:\\marlo\\" + std::string(name));
  }
  Press("화일 출력");
  Press("AFA 출력");
  EXPECT_FALSE(files.Exists("c:\\marlo\\b.nc"));
  Press("AFA 출력, Copy");
  EXPECT_TRUE(files.Exists("c:\\marlo\\b.nc"));
  Press("스프레드시트 출력");
  EXPECT_NE(files.Bytes("c:\\marlo\\r.tvx").find(" b.nc\r\n"), std::string::npos);
  EXPECT_NE(files.Bytes("c:\\marlo\\l.mcf").find("File b.nc "), std::string::npos);
  EXPECT_EQ(files.Bytes("c:\\marlo\\c.mcf"), files.Bytes("c:\\marlo\\l.mcf"));
  EXPECT_EQ(spreadsheets.cells["B3"], CellValue("b.nc"));
  // The figures that the sheet cut down show at the next selection.
  dialog.Select(0);
  EXPECT_EQ(dialog.information[3], "절삭길이  12.345 M");
}

}  // namespace
}  // namespace tvx
