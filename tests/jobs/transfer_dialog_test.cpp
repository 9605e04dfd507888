// The job dialog without a window.
#include "jobs/transfer_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/format.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Names = std::vector<std::string>;

struct StartedPrograms : Programs {
  bool Start(const std::string& program, const std::string& path) override {
    started = program + " " + path;
    return true;
  }
  bool HasWindowOfClass(const std::string& /*windowClass*/) override { return false; }
  void Quit() override {}
  std::string started;
};

// The dialog, opened on a folder of small files.
class TransferDialog : public testing::Test {
 protected:
  TransferDialog() {
    PutNc("A.NC", "G01 X1\n");
    PutNc("b.nc", "G01 X2\n");
    files.Put("c:\\marlo\\ncdata\\note.txt", "x");
    files.Put("c:\\marlo\\ncdata\\sub\\c.nc", "G01 X3\n");
    slot.WorkDir = "c:\\marlo\\ncdata";
    working.FirstEditable = 0;
    Open();
  }

  void Open() { dialog.Open(World()); }
  JobDialogSetup World() {
    return {&slot, &working, "c:\\marlo", "wordpad.exe", &extensions, &programs};
  }
  void PutNc(const std::string& name, const std::string& bytes) {
    files.Put("c:\\marlo\\ncdata\\" + name, bytes);
  }

  void SelectFile(const std::string& name) {
    const auto found = std::ranges::find(dialog.browser.files, name);
    ASSERT_NE(found, dialog.browser.files.end()) << name;
    dialog.selectedFile = static_cast<int>(found - dialog.browser.files.begin());
  }
  void Append(const std::string& name) {
    SelectFile(name);
    dialog.AppendSelected();
  }
  void Press(const std::string& caption) {
    for (const auto& buttons : {CTransferDlg::ListButtons(), CTransferDlg::KeyCodeButtons()}) {
      for (const auto& [text, press] : buttons) {
        if (text == caption) return (dialog.*press)();
      }
    }
    ADD_FAILURE() << "no button " << caption;
  }
  std::string LastMessage() const { return ui.messages.empty() ? "" : ui.messages.back().text; }

  MemoryFiles files;
  ScriptedUi ui;
  StartedPrograms programs;
  JobRecord slot, working;
  Names extensions = {"*.*", "*.nc", "*.nc2", "", "*.tap"};
  Names userKeys = Names(100);
  CTransferDlg dialog{&userKeys, &files, &ui};
};

TEST_F(TransferDialog, OpensOnTheWorkDirectoryAndTheAcceptedList) {
  EXPECT_EQ(dialog.browser.files, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.masks, (Names{"*.*", "*.nc", "*.nc2"}));
  EXPECT_EQ(dialog.selectedMask, 1);
  EXPECT_EQ(dialog.LastLineFile()->currentDirectory, "C:\\MARLO\\NCDATA");
  EXPECT_EQ(dialog.browser.Items()[3].text, "NCDATA") << "in capitals until the user browses";
  EXPECT_EQ(dialog.ListOptions().AfaEnabled, 1);

  slot.FileNames = {"c:\\x\\ a.nc ", "skipped.nc", "b.nc", "", "behind the gap.nc"};
  slot.OptionLines = {"Dir c:\\x ", "", "Dir c:\\y ", "", "Dir c:\\z "};
  slot.NcdataExt = "*.tap";
  Open();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\x ", "Dir c:\\y "}));
  EXPECT_EQ(dialog.masks, (Names{"*.tap", "*.*", "*.nc", "*.nc2"}));
  EXPECT_EQ(dialog.selectedMask, 0);
}

TEST(FitsMask, WhateverTheCaseOfTheName) {
  const struct {
    const char* name;
    const char* mask;
    bool fits;
  } cases[] = {
      {"a.nc", "*.nc", true},    {"A.NC", "*.nc", true},     {"a.nc2", "*.nc", false},
      {"noext", "*.*", true},    {"a.b.nc", "*.nc", true},   {"anc", "*.nc", false},
      {"abc.nc", "a?c.*", true}, {"ac.nc", "a?c.*", false},  {"", "*", true},
      {"aaab", "*a*b", true},    {"aaab", "*a*c", false},    {"x", "", false},
      {"가.nc", "?.nc", true},   {"가나.nc", "?.nc", false}, {"가나.nc", "*??.nc", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FitsMask(c.name, c.mask), c.fits) << c.name << ' ' << c.mask;
  }
}

TEST_F(TransferDialog, RefusesWhatCannotBeAProgram) {
  dialog.InsertSelected();
  EXPECT_EQ(LastMessage(), "화일 리스트에서 file이 선택되지 않았습니다. ");
  EXPECT_EQ(ui.messages.back().caption, "DNC message");
  const struct {
    const char* name;
    std::string bytes;
    const char* message;
  } cases[] = {
      {"empty.nc", "", "화일을 등록할 수 없습니다. "},
      {"gone.nc", "G01", "화일을 등록할 수 없습니다. "},
      {"hangul.nc", "G01 (\xB0\xA1)\n", "화일을 등록할 수 없습니다. "},
      {"unreadable.nc", "G01", "화일을 열수 없읍니다. "},
      {"late.nc", std::string(100, ' ') + "\xB0\xA1\n", ""},
  };
  const auto namesFile = [&](const std::string& name) {
    return ui.log.end()[-2] == "status c:\\marlo\\ncdata\\" + name + ": 리스트에 넣지 못했습니다.";
  };
  for (const auto& c : cases) PutNc(c.name, c.bytes);
  dialog.SelectMask(1);
  files.Remove("c:\\marlo\\ncdata\\gone.nc");
  files.RefuseOpening("c:\\marlo\\ncdata\\unreadable.nc");
  for (const auto& c : cases) {
    ui.messages.clear();
    Append(c.name);
    EXPECT_EQ(LastMessage(), c.message) << c.name;
    EXPECT_TRUE(ui.messages.empty() || namesFile(c.name)) << c.name;
  }
  EXPECT_EQ(dialog.list.names, Names{"late.nc"});
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\gone.nc"));

  // The directory that a list would cut at the blank.
  files.Put("c:\\my parts\\p.nc", "G01");
  slot.WorkDir = "c:\\my parts";
  Open();
  Append("p.nc");
  EXPECT_EQ(ui.messages.back().path, "c:\\my parts");
  EXPECT_EQ(dialog.list.size(), 0U);
  slot.WorkDir = "c:\\marlo\\ncdata";
  Open();
  ui.messages.clear();

  while (dialog.list.size() < kJobListSlots) Append("a.nc");
  EXPECT_EQ(LastMessage(), "");
  Append("b.nc");
  EXPECT_EQ(dialog.list.size(), kJobListSlots);
  EXPECT_EQ(LastMessage(), "화일을 등록할 수 없습니다. ");
  EXPECT_TRUE(namesFile("b.nc"));
}

TEST_F(TransferDialog, InsertsAndDeletesBehindFrozenEntries) {
  Append("a.nc");
  Append("a.nc");
  dialog.DeleteEntry();
  EXPECT_EQ(LastMessage(), "현재 전송중 이거나 전송한 file입니다. ") << "nothing is selected";
  dialog.SelectEntry(1);
  SelectFile("b.nc");
  dialog.InsertSelected();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc", "a.nc"}));
  EXPECT_EQ(dialog.selectedEntry, 2) << "that of a.nc still";
  EXPECT_TRUE(dialog.list.lines[1].starts_with("Dir c:\\marlo\\ncdata")) << dialog.list.lines[1];
  EXPECT_EQ(
      dialog.information,
      (Names{"화일명 : b.nc ", "c:\\marlo\\ncdata", "FileSize 7 Byte", "M30 ON", "Restart OFF",
             "Afa ON", "  공구직경 10.0", "  안전거리 5.0", "  코너최소각도 10.0",
             "  코너최대감속비 0.10", "  경사최소각도 10.0", "  경사최대감속비 0.1",
             "  볼록코너검색 ON", "  Z상하향검색 ON", "  가공소재: STEEL(S45C)", "  최대피드  1000",
             " 접근피드  1000", " 코너가중치 1.00 0.70 0.30 ", " 경사가중치 1.00 0.70 0.30 "}));
  EXPECT_EQ(files.Bytes("c:\\marlo\\info1.dat"), "");

  working.FirstEditable = 1;
  for (const int entry : {0, 1}) {
    dialog.SelectEntry(entry);
    dialog.DeleteEntry();
  }
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "a.nc"}));
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(TransferDialog, SavesAndReadsLists) {
  const std::string saved = "File a.nc  Dir c:\\x RT ON  3 \r\nFile b.nc  Dir c:\\y \r\n";
  dialog.list.Insert(0, "a.nc", "Dir c:\\x RT ON  3 ");
  dialog.list.Insert(1, "b.nc", "Dir c:\\y ");
  dialog.SaveList();
  EXPECT_EQ(files.Bytes("c:\\marlo\\FList1.txt"), saved);
  EXPECT_TRUE(ui.messages.empty());
  dialog.list.names[1] = "b c.nc";
  dialog.SaveList();
  EXPECT_EQ(ui.messages.back().path, "b c.nc");
  dialog.list.names[1] = "b.nc";
  dialog.SaveList();
  dialog.ClearList();
  files.RefuseWrite(1);
  dialog.SaveList();
  EXPECT_EQ(files.Bytes("c:\\marlo\\FList1.txt"), saved) << "a failed save leaves the older list";
  dialog.ReadList();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\x RT ON 3 ", "Dir c:\\y "}));

  ui.OnFileCancel();
  dialog.ReadMcf();
  EXPECT_EQ(dialog.list.size(), 2U) << "cancelled";
  files.Put("c:\\d.mcf", "lost words\r\nFILE c.nc\r\n Dir X:\\nc X:\\X:b MAX: x:\\m\r\nFile d.nc");
  ui.OnFile("c:\\d.mcf");
  dialog.ReadMcf();
  EXPECT_EQ(dialog.list.names, (Names{"c.nc", "d.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\nc c:\\c:b MAc: x:\\m ", ""}));
  files.Remove("c:\\marlo\\FList1.txt");
  dialog.ReadList();
  EXPECT_EQ(dialog.list.size(), 0U);
}

TEST_F(TransferDialog, ListThatNamesFilesOutsideItsFoldersIsRefused) {
  const std::string longest(255, 'n');
  const std::tuple<std::string, size_t, std::string> cases[] = {
      // text, line that is refused (0: none), refused word
      {"File a..nc Dir c:\\a\\..\\b MMA c:\\a\\.\\m.mma", 0, ""},
      {"File " + longest + " Dir \\nc\\", 0, ""},
      {"File a.nc Dir c:\\nc\r\nFile ..\\v\\.bashrc Dir c:\\nc", 2, "..\\v\\.bashrc"},
      {"File /etc/passwd", 1, "/etc/passwd"},
      {"\nlost\nFile\n\nz:p.nc", 5, "z:p.nc"},
      {"File ..", 1, ".."},
      {"File a\x1b[2J.nc", 1, "a\x1b[2J.nc"},
      {"File a.nc\nFile", 2, ""},
      {"File " + longest + "n", 1, longest.substr(0, 80)},
      {"File a.nc Dir c:\\a\\..\\..\\b", 1, "c:\\a\\..\\..\\b"},
      {"File a.nc\nDir ../a", 1, "../a"},
      {"File a.nc Dir c:\\ Afa ON TD 1 MMA ..\\m.mma FCS ON", 1, "..\\m.mma"},
      {"File a.nc Dir c:\\ xMMA \\..\\m.mma", 1, "\\..\\m.mma"},  // a copy would find it
  };
  for (const auto& [text, line, word] : cases) {
    files.Put("c:\\marlo\\FList1.txt", text);
    ui.messages.clear();
    dialog.ReadList();
    EXPECT_EQ(dialog.list.size() == 0, line > 0) << text;
    EXPECT_EQ(ui.messages.empty() ? "" : ui.messages[0].path,
              line == 0 ? "" : Format("c:\\marlo\\FList1.txt:%zu: %s", line, word.c_str()));
  }
}

TEST_F(TransferDialog, PreviewsHeadAndTailAndTakesTheOptionsOver) {
  std::string text;
  Names rows;
  for (int i = 1; i <= 60; ++i) {
    const std::string line = "G01 X" + std::to_string(i);
    text += line + "  \r\n";
    // The last 200 bytes begin within line 42.
    if (i <= 30 || i >= 43) rows.push_back(line);
    if (i == 30) rows.insert(rows.end(), {" .", " .", " ."});
  }
  PutNc("a.nc", text);
  dialog.list.Insert(0, "a.nc", "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ");
  dialog.Preview();
  EXPECT_EQ(dialog.information, rows);
  EXPECT_EQ(dialog.ListOptions().AfaEnabled, 0) << "files to come take the options over";

  PutNc("a.nc", std::string(150, 'x'));
  dialog.Preview();
  EXPECT_EQ(dialog.information,
            (Names{std::string(79, 'x'), std::string(71, 'x'), " .", " .", " ."}));
  PutNc("a.nc", std::string(78, 'x') + "\r\nG1\r\n");
  dialog.Preview();
  EXPECT_EQ(dialog.information, (Names{std::string(78, 'x'), "G1", " .", " .", " ."}))
      << "CR LF is one line end";
  files.Remove("c:\\marlo\\ncdata\\a.nc");
  dialog.Preview();
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(TransferDialog, ButtonsOfTheLists) {
  const struct {
    const char* button;
    Names names;
    const char* information;  // its first row
  } steps[] = {
      {"삽입", {"b.nc", "a.nc"}, "화일명 : b.nc "},  // in front of the selected entry
      {"미리보기", {"b.nc", "a.nc"}, "G01 X1"},
      {"화일정보", {"b.nc", "a.nc"}, "화일명 : a.nc "},
      {"편집", {"b.nc", "a.nc"}, "화일명 : a.nc "},
      {"저장", {"b.nc", "a.nc"}, "화일명 : a.nc "},
      {"삭제", {"b.nc"}, ""},
      {"청소", {}, ""},
      {"읽기", {"b.nc", "a.nc"}, ""},
      {"TVX", {"c.nc"}, ""},
      {"화일확장자", {"c.nc"}, ""},
  };
  Append("a.nc");
  SelectFile("b.nc");
  dialog.SelectEntry(0);
  files.Put("c:\\old.mcf", "File c.nc Dir X:\\lists FS 5 ");
  ui.OnFile("c:\\old.mcf");
  ui.OnDialog<CKeyCodeDlg>([](CKeyCodeDlg* pad) {
    pad->field = "*.txt";
    return pad->Accept() == Closing::kAccepted;
  });
  for (const auto& step : steps) {
    Press(step.button);
    EXPECT_EQ(dialog.list.names, step.names) << step.button;
    EXPECT_EQ(dialog.information.empty() ? "" : dialog.information[0], step.information);
  }
  EXPECT_EQ(programs.started, "wordpad.exe c:\\marlo\\ncdata\\a.nc");
  EXPECT_EQ(dialog.list.lines, Names{"Dir c:\\lists FS 5 "});
  EXPECT_EQ(dialog.browser.files, Names{"note.txt"});
}

TEST_F(TransferDialog, ButtonsOfTheKeyCodes) {
  Append("a.nc");
  for (const char* const guarded : {"K추가", "K삽입", "K삭제", "K수정", "K읽기"}) {
    Press(guarded);
    EXPECT_EQ(LastMessage(), "현재 전송중 이거나 전송한 file입니다. ") << guarded;
    ui.messages.clear();
  }
  const std::string bare = dialog.list.lines[0] + " KeyCode  ";
  dialog.SelectEntry(0);
  const struct {
    const char* row;  // selected before; null: none
    const char* button;
    const char* typed;  // on the pad, accepted; null: no pad opens
    const char* codes;
  } steps[] = {
      {nullptr, "K추가", "G90", "G90"},
      {nullptr, "K삽입", "S1000", "G90 S1000"},  // at the end
      {"  S1000", "K삽입", "G54", "G90 G54  S1000"},
      {nullptr, "K저장", nullptr, "G90 G54  S1000"},
      {"  G90", "K수정", "G91", "G91 G54  S1000"},
      {"  G54", "K삭제", nullptr, "G91   S1000"},
      {nullptr, "K삭제", nullptr, "G91   "},  // the last one
      {nullptr, "K읽기", nullptr, "G90 G54  S1000"},
  };
  for (const auto& step : steps) {
    const auto row = std::ranges::find(dialog.information, step.row == nullptr ? "" : step.row);
    dialog.selectedInformation =
        step.row == nullptr ? -1 : static_cast<int>(row - dialog.information.begin());
    if (step.typed != nullptr) {
      ui.OnDialog<CKeyCodeDlg>([&](CKeyCodeDlg* pad) {
        pad->field = step.typed;
        return pad->Accept() == Closing::kAccepted;
      });
    }
    Press(step.button);
    EXPECT_EQ(dialog.list.lines[0], bare + step.codes) << step.button;
  }
  ui.OnDialog<CKeyCodeDlg>([](CKeyCodeDlg* pad) { return pad->field != "S1000"; });
  Press("K수정");
  EXPECT_EQ(dialog.list.lines[0], bare + "G90 G54  S1000") << "cancelled";
}

TEST_F(TransferDialog, RowsThatAreNoKeyCodeWords) {
  const std::string line = "Dir c:\\S10 FS 5 M30 ON RT OFF Afa OFF  KeyCode  G90 S1";
  dialog.list.Insert(0, "a.nc", line);
  dialog.SelectEntry(0);
  for (const char* const row : {"Key Code", "M30 ON", "  S1"}) {
    const auto found = std::ranges::find(dialog.information, row);
    ASSERT_NE(found, dialog.information.end()) << row;
    dialog.selectedInformation = static_cast<int>(found - dialog.information.begin());
    dialog.DeleteKeyCode();
    EXPECT_EQ(dialog.list.lines[0], line) << "the first such text stands before the key codes";
  }
  dialog.SaveKeyCodes();
  EXPECT_EQ(files.Bytes("c:\\marlo\\KeyCode1.txt"), "KeyCode  G90 S1");
}

TEST_F(TransferDialog, KeyCodeFileIsReadToItsLimitAndThenToTheEndOfTheWord) {
  const std::string head = "KeyCode  " + std::string(88, 'A');  // 97 bytes
  const struct {
    std::string file;
    std::string taken;
  } cases[] = {{head + "BB", head + "BB"},        {head + "BB next", head + "BB"},
               {head + "BBB next", head + "BBB"}, {head + "B next", head + "B"},
               {head + "\r\nsecond line", head},  {"", ""}};
  for (const auto& c : cases) {
    files.Put("c:\\marlo\\KeyCode1.txt", c.file);
    dialog.ClearList();
    dialog.list.Insert(0, "a.nc", "Dir c:\\x KeyCode M01");
    dialog.SelectEntry(0);
    dialog.ReadKeyCodes();
    EXPECT_EQ(dialog.list.lines[0], "Dir c:\\x " + c.taken) << c.file;
  }
}

TEST_F(TransferDialog, OptionsOfTheFilesToCome) {
  ui.OnDialog<CRestartDlg>([](CRestartDlg* restart) {
    restart->EditDecimal(2, "1.5");
    restart->EditDecimal(5, "3");
    return restart->Accept() == Closing::kAccepted;
  });
  dialog.SetRestart();
  EXPECT_EQ(dialog.restartCaption, "재전송: 좌표->XYZ(  1.50, 9999.00, 9999.00)  공차->  3.00  ");
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    options->ToggleSpindle();
    options->EditSpindleSpeed("4000");
    return options->Accept() == Closing::kAccepted;
  });
  dialog.SetCondition();
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    EXPECT_EQ(options->spindleText, "4000");
    options->EditSpindleSpeed("5");
    return options->Cancel() == Closing::kAccepted;
  });
  dialog.SetCondition();
  EXPECT_EQ(dialog.conditionCaption, "Afa조건: ");
  Append("a.nc");
  EXPECT_EQ(dialog.list.lines[0],
            "Dir c:\\marlo\\ncdata FS 7 M30 ON RT ON  4   1.500 9999.000 9999.000 Afa OFF  "
            "KeyCode  S4000");
  EXPECT_EQ(dialog.ListOptions().KeyCodeCount, 1);
  // The line has no tolerance, so that of the opening is shown.
  EXPECT_EQ(std::ranges::count(dialog.information, "  공차->  1.50"), 1);
  EXPECT_EQ(dialog.information.back(), "  S4000");

  Open();
  EXPECT_EQ(dialog.restartCaption, "재전송 :");
  EXPECT_EQ(dialog.conditionCaption, ConditionButtonText(dialog.ListOptions(), Language::kKorean));
  Append("a.nc");
  EXPECT_NE(dialog.list.lines[0].find("RT OFF Afa ON"), std::string::npos) << "as at the start";
}

TEST_F(TransferDialog, EnglishLabelsLeaveNamesAlone) {
  PutNc("공차\\번호.nc", "G01\n");
  slot.WorkDir = "c:\\marlo\\ncdata\\공차";
  JobDialogSetup setup = World();
  setup.labelLanguage = Language::kEnglish;
  dialog.Open(setup);
  EXPECT_TRUE(dialog.conditionCaption.starts_with("Afa: ToolDia 10.0"));
  Append("번호.nc");
  EXPECT_EQ(dialog.information.at(0), "FileName : 번호.nc ");
  EXPECT_EQ(dialog.information.at(1), "c:\\marlo\\ncdata\\공차");
  dialog.list.lines[0] = "Dir c:\\x Afa ON TD 10.0 MAT 블록 MMA c:\\좌표.mma ";
  dialog.SelectEntry(0);
  EXPECT_EQ(std::ranges::count(dialog.information, "  ToolDia 10.0"), 1);
  EXPECT_EQ(std::ranges::count(dialog.information, "  MaterialName: 블록"), 1);
  EXPECT_EQ(dialog.information.back(), "MMA c:\\좌표.mma");
}

TEST_F(TransferDialog, AcceptHandsTheListOverWithoutOldEntries) {
  slot.FileNames[5] = "old.nc";
  Open();
  dialog.list.Insert(0, "a.nc", "Dir c:\\x");
  dialog.ToggleDeleteM30();
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  Names names(kJobListSlots), lines(kJobListSlots);
  names[0] = "a.nc";
  lines[0] = "Dir c:\\x";
  EXPECT_EQ(slot.FileNames, names);
  EXPECT_EQ(slot.OptionLines, lines);
  EXPECT_EQ(slot.DeleteM30, 1);
}

TEST_F(TransferDialog, VanishedFolderStaysShownAndLeadsBack) {
  files.Put("c:\\marlo\\ncdata\\one\\two\\a.nc", "G01 X1\n");
  dialog.Browse(DirectoryBrowser::kFirstPart + 1);
  dialog.Browse(DirectoryBrowser::kFirstSubDirectory);
  ASSERT_EQ(dialog.ListOptions().WorkDir, "C:\\MARLO\\NCDATA\\ONE");
  for (const char* const path : {"\\two\\a.nc", "\\two", ""}) {
    files.Remove(std::string("c:\\marlo\\ncdata\\one") + path);
  }
  for (const int item : {DirectoryBrowser::kFirstSubDirectory, DirectoryBrowser::kFirstPart + 2}) {
    dialog.Browse(item);
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata\\one");
    EXPECT_EQ(dialog.browser.TargetOf(DirectoryBrowser::kFirstSubDirectory), "");
  }
  dialog.Browse(DirectoryBrowser::kFirstPart + 1);
  EXPECT_EQ(dialog.ListOptions().WorkDir, "C:\\MARLO\\NCDATA");
}

TEST_F(TransferDialog, TreeShowsFiftyFoldersAndTenParts) {
  std::string path = "c:\\marlo\\ncdata\\deep";
  for (int level = 0; level < 15; ++level) path += "\\down";
  files.MakeDirectory(path);
  for (int i = 100; i < 160; ++i)
    files.MakeDirectory("c:\\marlo\\ncdata\\deep\\f" + std::to_string(i));
  dialog.Browse(DirectoryBrowser::kFirstPart + 1);
  dialog.Browse(DirectoryBrowser::kFirstSubDirectory);
  EXPECT_EQ(dialog.browser.Items().back().number, DirectoryBrowser::kFirstSubDirectory + 49);
  EXPECT_EQ(dialog.browser.TargetOf(DirectoryBrowser::kFirstSubDirectory + 50), "");
  for (int level = 0; level < 15; ++level) dialog.Browse(DirectoryBrowser::kFirstSubDirectory);
  EXPECT_EQ(dialog.browser.directory, path);
  EXPECT_EQ(dialog.browser.TargetOf(DirectoryBrowser::kFirstPart + 10), "");
  dialog.Browse(0);
  EXPECT_EQ(dialog.browser.SelectedItem(), 0);
  EXPECT_EQ(dialog.browser.TargetOf(DirectoryBrowser::kFirstSubDirectory), "c:\\marlo\\");
}

}  // namespace
}  // namespace tvx
