// The dialog of recorded results without its window. The golden cases of the run contain its lines.
#include "reports/cut_time_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/message.h"
#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_spreadsheets.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

class CutTimeList : public testing::Test {
 protected:
  CutTimeList() {
    files.SetCurrentDirectory("c:\\marlo");
    dialog.finishChecks = [] {};
  }

  void Record(const std::vector<std::pair<const char*, float>>& entries) {
    for (const auto& [name, minutes] : entries) {
      table.recorded.push_back({.entry = PlainEntry(name)});
      table.recorded.back().entry.totalMinutes = minutes;
    }
    dialog.Open();
  }
  void Press(std::string_view caption, Closing expected = Closing::kStaysOpen) {
    const auto buttons = CCutTimeListDlg::Buttons();
    const auto button =
        std::ranges::find_if(buttons, [&](const auto& b) { return b.caption->korean == caption; });
    ASSERT_NE(button, buttons.end()) << caption;
    EXPECT_EQ(button->press(&dialog), expected) << caption;
  }

  ResultTable table;
  MemoryFiles files;
  ScriptedUi ui;
  ScriptedSpreadsheets spreadsheets;
  CCutTimeListDlg dialog{&table, &files, &ui, &spreadsheets};
};

TEST_F(CutTimeList, OpensWithTheTotalAndNoSelection) {
  Record({{"a.nc", 16777216}, {"b.nc", 1}});  // added up in single precision
  dialog.Select(1);
  dialog.Open();
  EXPECT_EQ(dialog.fileNames, (Lines{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.TotalTimeText(), "16777216.00");
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(CutTimeList, DeleteRemovesTheSelectedEntryFromTheTable) {
  Record({{"a.nc", 1}, {"b.nc", 2}, {"c.nc", 4}, {"d.nc", 8}});
  table.recorded[2].entry.MaxFeed = 77;
  dialog.Select(1);
  const Lines shown = dialog.information;
  Press("화일삭제");
  EXPECT_EQ(dialog.fileNames, (Lines{"a.nc", "c.nc", "d.nc"}));
  EXPECT_EQ(dialog.TotalTimeText(), "13.00");
  EXPECT_EQ(dialog.information, shown) << "kept until the next selection";
  EXPECT_EQ(table.recorded[1].entry.MaxFeed, 77);
}

TEST_F(CutTimeList, DeleteWithoutASelectionShowsAMessage) {
  Record({{"a.nc", 1}});
  for (const int nothing : {0, -1, 0}) {
    dialog.Select(nothing);
    Press("화일삭제");  // the first time it removes the entry
    Press("화일삭제");
  }
  EXPECT_EQ(dialog.TotalTimeText(), "0.00");
  EXPECT_EQ(ui.log, Lines(5, "message 화일이 선택되지 않아습니다!!!\n"));
  EXPECT_EQ(ui.messages[0].caption, "DNC message");
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
}

TEST_F(CutTimeList, FullTableCanBeDeletedFromAndCleared) {
  table.recorded.resize(kResultEntries);
  EXPECT_TRUE(table.IsFull());
  dialog.Open();
  dialog.Select(299);
  Press("화일삭제");
  EXPECT_FALSE(table.IsFull());
  Press("청소", Closing::kAccepted);
  EXPECT_TRUE(table.recorded.empty());
}

// The text report is written by its name into the current directory.
TEST_F(CutTimeList, ReportsCoverTheWholeTableWhateverIsSelected) {
  Record({{"a.nc", 1}, {"b.nc", 2}});
  files.Put("c:\\marlo\\ncdata\\b.nc", "G0");
  files.MakeDirectory("c:\\out");
  dialog.Select(0);
  const std::pair<const char*, const char*> reports[] = {{"화일 출력", "c:\\windows\\r.tvx"},
                                                         {"AFA 출력", "c:\\marlo\\l.mcf"},
                                                         {"AFA 출력, Copy", "c:\\out\\c.mcf"},
                                                         {"HTML", "c:\\out\\s.html"},
                                                         {"스프레드시트 출력", "c:\\out\\s.xls"}};
  for (const auto& [button, path] : reports) {
    ui.OnFile(path);
    Press(button);
  }
  EXPECT_EQ(ui.log.at(1), "status c:\\marlo\\r.tvx: 저장했습니다.");
  EXPECT_EQ(ui.log.at(6), "status c:\\marlo\\ncdata\\a.nc: 복사하지 못했습니다.");
  EXPECT_NE(files.Bytes("c:\\marlo\\r.tvx").find(" b.nc\r\n"), std::string::npos);
  EXPECT_NE(files.Bytes("c:\\marlo\\l.mcf").find("File b.nc "), std::string::npos);
  EXPECT_NE(files.Bytes("c:\\out\\c.mcf").find("File b.nc "), std::string::npos);
  EXPECT_TRUE(files.Exists("c:\\out\\b.nc") && !files.Exists("c:\\marlo\\b.nc"));
  EXPECT_NE(files.Bytes("c:\\out\\s.html").find("<h2><span class=\"weak\">2</span> b.nc"),
            std::string::npos);
  EXPECT_EQ(ui.log.at(9), "offer c:\\out\\s.html");
  EXPECT_EQ(spreadsheets.cells["B3"], CellValue("b.nc"));
  dialog.Select(0);  // shows the figures that the export truncated
  EXPECT_EQ(dialog.information[3], "절삭길이  12.345 M");

  table.recorded[0].entry.fileName = "a b.nc";  // the lists cut it at the blank
  for (const char* const button : {"AFA 출력", "AFA 출력, Copy"}) {
    ui.messages.clear();
    ui.OnFile("c:\\out\\d.mcf");
    Press(button);
    ASSERT_EQ(ui.messages.size(), 1U) << button;
    EXPECT_EQ(ui.messages[0].path, "a b.nc");
  }
}

TEST_F(CutTimeList, CopyAsksOnceBeforeItReplacesProgramsThatDiffer) {
  Record({{"a.nc", 1}, {"b.nc", 2}, {"c.nc", 3}, {"a.nc", 1}});
  for (const char* name : {"a.nc", "b.nc", "c.nc"}) {
    files.Put(std::string("c:\\marlo\\ncdata\\") + name, "new");
    files.Put(std::string("c:\\out\\") + name, name[0] == 'c' ? "new" : "old");
  }
  for (const bool answer : {false, true}) {
    ui.OnFile("c:\\out\\l.mcf");
    ui.OnMessage(answer);
    Press("AFA 출력, Copy");
    EXPECT_EQ(ui.messages.back().path, "c:\\out\\a.nc\nc:\\out\\b.nc");
    EXPECT_EQ(files.Bytes("c:\\out\\b.nc"), answer ? "new" : "old");
    EXPECT_EQ(files.Exists("c:\\out\\l.mcf"), answer);
  }
  ui.OnFile("c:\\out\\l.mcf");
  Press("AFA 출력, Copy");
  EXPECT_EQ(ui.messages.size(), 2U) << "all are equal now";
}

TEST_F(CutTimeList, FailureOfAReportIsShownAndKeepsTheOlderFile) {
  const auto text = [](const FileQuestion& q) {
    return std::string(q.save ? "save " : "") + (q.mustExist ? "existing " : "") +
           (q.confirmsOverwrite ? "confirm " : "") + q.fileName + "," + q.filter + "," + q.title;
  };
  const std::string list =
      "save *.mcf,TVX file (*.mcf)|*.mcf|모든 화일(*.*)|*.*||,TVX  화일명을 입력 하시요!!";
  const Lines notSaved = {"status c:\\marlo\\out: 저장하지 못했습니다."};
  const std::tuple<const char*, std::string, Lines> cases[] = {
      {"화일 출력", "save confirm *.tvx,TVX file (*.tvx)|*.tvx|모든 화일(*.*)|*.*||,", notSaved},
      {"AFA 출력", list, notSaved},
      {"AFA 출력, Copy", list, notSaved},
      {"HTML",
       "save *.html,HTML file (*.html)|*.html|모든 화일(*.*)|*.*||,",
       {"message 다른 종류의 화일이 있습니다. 바꾸겠습니까?", notSaved[0]}},
      {"스프레드시트 출력",
       "save existing *.xls,Excel file (*.xls)|*.xls|모든 화일(*.*)|*.*||,",
       {notSaved[0], "message Couldn't start Excel."}},
  };
  Record({{"a.nc", 1}});
  files.Put("c:\\marlo\\out", "File older");
  spreadsheets.refusesStart = true;
  for (const auto& [button, question, messages] : cases) {
    ui.OnFileCancel();
    Press(button);
    ui.log.clear();
    ui.OnFile("c:\\marlo\\out");
    if (messages[0].ends_with("?")) ui.OnMessage(true);
    files.RefuseWrite(1);
    Press(button);
    EXPECT_EQ(text(ui.fileQuestions.back()), question);
    EXPECT_EQ(Lines(ui.log.begin() + 1, ui.log.end()), messages) << button;
  }
  EXPECT_EQ(files.Bytes("c:\\marlo\\out"), "File older");
  EXPECT_EQ(ui.messages.size(), 2U);
}

}  // namespace
}  // namespace tvx
