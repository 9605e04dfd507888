// The job dialog's lists and texts, without a window.
#include "jobs/transfer_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "model/labels.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class FakePrograms : public Programs {
 public:
  bool Start(const std::string& program, const std::string& path) override {
    started.push_back(program + " " + path);
    return true;
  }
  bool HasWindowOfClass(const std::string& /*windowClass*/) override { return false; }
  void Quit() override {}
  std::vector<std::string> started;
};

class TransferDialog : public testing::Test {
 protected:
  TransferDialog() {
    files.Put("c:\\marlo\\ncdata\\A.NC", "G01 X1\n");
    files.Put("c:\\marlo\\ncdata\\b.nc", "G01 X2\n");
    files.Put("c:\\marlo\\ncdata\\empty.nc", "");
    files.Put("c:\\marlo\\ncdata\\hangul.nc", "(\xB0\xA1)\n");
    files.Put("c:\\marlo\\ncdata\\late.nc", std::string(100, ' ') + "\xB0\xA1\n");
    files.Put("c:\\marlo\\ncdata\\note.txt", "x");
    files.Put("c:\\marlo\\ncdata\\sub\\c.nc", "G01 X3\n");
    slot.WorkDir = "c:\\marlo\\ncdata";
    working.FirstEditable = 0;
    Open();
  }

  void Open() {
    dialog.Open({&slot, &working, "c:\\marlo", "wordpad.exe", &extensions, &files, &ui, &programs});
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
  void OnPad(const std::string& text) {
    ui.OnDialog<CKeyCodeDlg>([text](CKeyCodeDlg* pad) {
      pad->field = text;
      return pad->Accept() == Closing::kAccepted;
    });
  }
  void SelectRow(const std::string& row) {
    const auto found = std::ranges::find(dialog.information, row);
    ASSERT_NE(found, dialog.information.end()) << row;
    dialog.selectedInformation = static_cast<int>(found - dialog.information.begin());
  }
  std::string LastMessage() const { return ui.messages.empty() ? "" : ui.messages.back().text; }

  MemoryFiles files;
  ScriptedUi ui;
  FakePrograms programs;
  JobRecord slot, working;
  std::vector<std::string> extensions = {"*.*", "*.nc", "*.nc2", "", "*.tap"};
  std::vector<std::string> userKeys = std::vector<std::string>(100);
  CTransferDlg dialog{&userKeys, &files, &ui};
};

using Names = std::vector<std::string>;

TEST_F(TransferDialog, OpensOnTheWorkDirectoryAndTheAcceptedList) {
  EXPECT_EQ(dialog.browser.files, (Names{"a.nc", "b.nc", "empty.nc", "hangul.nc", "late.nc"}));
  EXPECT_EQ(dialog.browser.subDirectories, Names{"sub"});
  EXPECT_EQ(dialog.masks, (Names{"*.*", "*.nc", "*.nc2"}));
  EXPECT_EQ(dialog.selectedMask, 1);
  EXPECT_EQ(dialog.shownFile.currentDirectory, "C:\\MARLO\\NCDATA");
  EXPECT_EQ(dialog.browser.Items()[3].text, "NCDATA") << "in capitals until the user browses";
  EXPECT_EQ(dialog.ListOptions.AfaEnabled, 1);

  slot.FileNames[0] = "c:\\x\\ a.nc ";
  slot.OptionLines[0] = "Dir c:\\x ";
  slot.FileNames[1] = "skipped.nc";
  slot.FileNames[2] = "b.nc";
  slot.OptionLines[2] = "Dir c:\\y ";
  slot.FileNames[4] = "behind the gap.nc";
  slot.OptionLines[4] = "Dir c:\\z ";
  slot.NcdataExt = "*.tap";
  Open();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\x ", "Dir c:\\y "}));
  EXPECT_EQ(dialog.masks, (Names{"*.tap", "*.*", "*.nc", "*.nc2"}));
  EXPECT_EQ(dialog.selectedMask, 0);
}

TEST_F(TransferDialog, BrowsesByTheTree) {
  EXPECT_EQ(dialog.browser.SelectedItem(), 101);
  EXPECT_EQ(dialog.browser.TargetOf(0), "c:\\");
  EXPECT_EQ(dialog.browser.TargetOf(100), "c:\\marlo\\");
  EXPECT_EQ(dialog.browser.TargetOf(1000), "c:\\marlo\\ncdata\\sub\\");
  EXPECT_EQ(dialog.browser.TargetOf(1001), "") << "no such item";
  dialog.Browse(1000);
  EXPECT_EQ(dialog.ListOptions.WorkDir, "c:\\marlo\\ncdata\\sub");
  EXPECT_EQ(dialog.browser.files, Names{"c.nc"});
  dialog.Browse(5000);
  EXPECT_EQ(dialog.ListOptions.WorkDir, "c:\\marlo\\ncdata\\sub") << "stays where it is";
  dialog.Browse(0);
  EXPECT_EQ(dialog.browser.SelectedItem(), 0);
  EXPECT_TRUE(dialog.browser.parts.empty());
}

TEST_F(TransferDialog, BrowsesDeeperThanTheTreeShows) {
  const std::string deep = "c:\\1\\2\\3\\4\\5\\6\\7\\8\\9\\10\\11";
  files.Put(deep + "\\12\\deep.nc", "G01 X1\n");
  slot.WorkDir = deep;
  Open();
  EXPECT_EQ(dialog.browser.parts.size(), 10U);
  dialog.Browse(1000);
  EXPECT_EQ(dialog.ListOptions.WorkDir, deep + "\\12");
  EXPECT_EQ(dialog.browser.files, Names{"deep.nc"});
  dialog.Browse(109);
  EXPECT_EQ(dialog.ListOptions.WorkDir, "c:\\1\\2\\3\\4\\5\\6\\7\\8\\9\\10");
  dialog.Browse(1000);
  EXPECT_EQ(dialog.ListOptions.WorkDir, deep);
  dialog.Browse(0);
  dialog.Browse(1000);
  EXPECT_EQ(dialog.ListOptions.WorkDir, "c:\\1") << "no doubled backslash at the root";
}

TEST_F(TransferDialog, MasksFitNamesWhateverTheirCase) {
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
  for (const auto& c : cases)
    EXPECT_EQ(FitsMask(c.name, c.mask), c.fits) << c.name << ' ' << c.mask;
}

TEST_F(TransferDialog, InsertsWithItsChecks) {
  dialog.InsertSelected();
  EXPECT_EQ(LastMessage(), "화일 리스트에서 file이 선택되지 않았습니다. ");
  EXPECT_EQ(ui.messages.back().caption, "DNC message");
  for (const char* const refused : {"empty.nc", "hangul.nc"}) {
    Append(refused);
    EXPECT_EQ(LastMessage(), "화일을 등록할 수 없습니다. ") << refused;
  }
  Append("late.nc");
  Append("a.nc");
  dialog.SelectEntry(1);
  SelectFile("b.nc");
  dialog.InsertSelected();
  EXPECT_EQ(dialog.list.names, (Names{"late.nc", "b.nc", "a.nc"}));
  EXPECT_TRUE(dialog.list.lines[1].starts_with("Dir c:\\marlo\\ncdata")) << dialog.list.lines[1];
  EXPECT_EQ(dialog.selectedName, "b.nc");
  EXPECT_EQ(dialog.information[0], "화일명 : b.nc ");
  EXPECT_EQ(dialog.information[2], "FileSize 7 Byte");
  EXPECT_EQ(files.Bytes("c:\\marlo\\info1.dat"), "");

  dialog.list.Clear();
  for (size_t i = 0; i < kJobListSlots; ++i) Append("a.nc");
  EXPECT_EQ(dialog.list.size(), kJobListSlots);
  const size_t before = ui.messages.size();
  Append("b.nc");
  EXPECT_EQ(dialog.list.size(), kJobListSlots);
  EXPECT_EQ(ui.messages.size(), before + 1) << "the 301st is refused";
}

TEST_F(TransferDialog, FrozenEntriesStay) {
  Append("a.nc");
  Append("b.nc");
  dialog.DeleteEntry();
  EXPECT_EQ(LastMessage(), "현재 전송중 이거나 전송한 file입니다. ") << "nothing is selected";
  working.FirstEditable = 1;
  dialog.SelectEntry(0);
  dialog.DeleteEntry();
  EXPECT_EQ(dialog.list.size(), 2U);
  dialog.SelectEntry(1);
  dialog.DeleteEntry();
  EXPECT_EQ(dialog.list.names, Names{"a.nc"});
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(TransferDialog, SavesAndReadsLists) {
  dialog.list.Insert(0, "a.nc", "Dir c:\\x RT ON  3 ");
  dialog.list.Insert(1, "b.nc", "Dir c:\\y ");
  dialog.SaveList();
  EXPECT_EQ(files.Bytes("c:\\marlo\\FList1.txt"),
            "File a.nc  Dir c:\\x RT ON  3 \r\nFile b.nc  Dir c:\\y \r\n");
  dialog.ClearList();
  dialog.ReadList();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\x RT ON 3 ", "Dir c:\\y "}));

  files.Put("d.mcf", "lost words\r\nFILE a.nc\r\n Dir X:\\nc Y:\\ MMA X:\\m.mma\r\nFile b.nc");
  ui.OnFileCancel();
  dialog.ReadMcf();
  EXPECT_EQ(dialog.list.size(), 2U) << "cancelled";
  ui.OnFile("c:\\d.mcf");
  files.Put("c:\\d.mcf", "lost words\r\nFILE a.nc\r\n Dir X:\\nc Y:\\ MMA X:\\m.mma\r\nFile b.nc");
  dialog.ReadMcf();
  EXPECT_EQ(dialog.list.names, (Names{"a.nc", "b.nc"}));
  EXPECT_EQ(dialog.list.lines, (Names{"Dir c:\\nc Y:\\ MMA c:\\m.mma ", ""}));
  files.Remove("c:\\marlo\\FList1.txt");
  dialog.ReadList();
  EXPECT_EQ(dialog.list.size(), 0U);
}

TEST(JobListText, OddListsStayConsistent) {
  std::string many;
  for (int i = 0; i < 301; ++i) many += "File n" + std::to_string(i) + " Dir c:\\ ";
  const std::string longName(10000, 'n');
  const struct {
    std::string text;
    size_t size;
  } cases[] = {{"", 0},
               {"File", 0},
               {"a b File", 0},
               {"File File File", 1},
               {many, 300},
               {"File " + longName, 1},
               {std::string("\0\xFF\xFE File a", 10), 1}};
  for (const auto& c : cases) {
    const JobList list = ReadJobList(c.text, 'd');
    EXPECT_EQ(list.names.size(), c.size);
    EXPECT_EQ(list.lines.size(), c.size);
  }
  EXPECT_EQ(ReadJobList("File " + longName, {}).names[0], longName);
  EXPECT_EQ(ReadJobList("File a X:\\X:b MAX: x:\\c", 'd').lines[0], "d:\\d:b MAd: x:\\c ");
}

TEST_F(TransferDialog, PreviewsHeadAndTailAndTakesTheOptionsOver) {
  std::string text;
  for (int i = 1; i <= 60; ++i) text += "G01 X" + std::to_string(i) + "  \r\n";
  files.Put("c:\\marlo\\ncdata\\a.nc", text);
  dialog.list.Insert(0, "a.nc", "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ");
  dialog.Preview();
  ASSERT_GT(dialog.information.size(), 34U);
  EXPECT_EQ(dialog.information[0], "G01 X1");
  EXPECT_EQ(dialog.information[29], "G01 X30");
  EXPECT_EQ(dialog.information[30], " .");
  EXPECT_EQ(dialog.information[32], " .");
  EXPECT_EQ(dialog.information.back(), "G01 X60");
  EXPECT_EQ(dialog.ListOptions.AfaEnabled, 0) << "files to come take the options over";

  files.Put("c:\\marlo\\ncdata\\a.nc", std::string(150, 'x'));
  dialog.Preview();
  EXPECT_EQ(dialog.information,
            (Names{std::string(79, 'x'), std::string(71, 'x'), " .", " .", " ."}));
  files.Remove("c:\\marlo\\ncdata\\a.nc");
  dialog.Preview();
  EXPECT_TRUE(dialog.information.empty());
}

TEST_F(TransferDialog, KeyCodesAreFoundByTheirText) {
  dialog.AddKeyCode();
  EXPECT_EQ(LastMessage(), "현재 전송중 이거나 전송한 file입니다. ") << "nothing is selected";
  dialog.list.Insert(0, "a.nc", "Dir c:\\S10 FS 5 M30 ON RT OFF Afa OFF ");
  dialog.SelectEntry(0);
  const std::string bare = dialog.list.lines[0];
  OnPad("G90");
  dialog.AddKeyCode();
  OnPad("S1000");
  dialog.AddKeyCode();
  EXPECT_EQ(dialog.list.lines[0], bare + " KeyCode  G90 S1000");
  EXPECT_EQ(dialog.information.back(), "  S1000");

  SelectRow("  S1000");
  OnPad("G54");
  dialog.InsertKeyCode();
  EXPECT_EQ(dialog.list.lines[0], bare + " KeyCode  G90 G54  S1000");
  SelectRow("  G90");
  OnPad("G91");
  dialog.ChangeKeyCode();
  EXPECT_EQ(dialog.list.lines[0], bare + " KeyCode  G91 G54  S1000");
  SelectRow("  G54");
  dialog.DeleteKeyCode();
  EXPECT_EQ(dialog.list.lines[0], bare + " KeyCode  G91   S1000");
  SelectRow("Key Code");
  dialog.DeleteKeyCode();
  SelectRow("M30 ON");
  dialog.DeleteKeyCode();
  EXPECT_EQ(dialog.list.lines[0], bare + " KeyCode  G91   S1000") << "no key-code words";

  dialog.SaveKeyCodes();
  EXPECT_EQ(files.Bytes("c:\\marlo\\KeyCode1.txt"), "KeyCode  G91   S1000");
  dialog.list.Insert(1, "b.nc", "Dir c:\\x KeyCode M01");
  dialog.SelectEntry(1);
  dialog.ReadKeyCodes();
  EXPECT_EQ(dialog.list.lines[1], "Dir c:\\x KeyCode  G91   S1000");

  SelectRow("  G91");
  ui.OnDialog<CKeyCodeDlg>([](CKeyCodeDlg* pad) {
    EXPECT_EQ(pad->field, "G91");
    pad->Press("X");
    return false;
  });
  dialog.ChangeKeyCode();
  EXPECT_EQ(dialog.list.lines[1], "Dir c:\\x KeyCode  G91   S1000") << "cancelled";
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

TEST_F(TransferDialog, SpindleWordOfAnInsertedFile) {
  dialog.SpindleOn = 1;
  dialog.SpindleSpeed = 4500;
  Append("a.nc");
  EXPECT_TRUE(dialog.list.lines[0].ends_with(" KeyCode  S4500")) << dialog.list.lines[0];
  EXPECT_EQ(dialog.information.back(), "  S4500");
  EXPECT_EQ(dialog.ListOptions.KeyCodeCount, 1);
}

// The conditions of the files to come: switched off by a cancel, and on again by the next OK.
TEST_F(TransferDialog, SendOptionsOfTheFilesToCome) {
  EXPECT_EQ(dialog.conditionCaption, ConditionButtonText(dialog.ListOptions));
  dialog.SpindleSpeed = 1234;
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    EXPECT_EQ(options->SpindleOn, 0);
    EXPECT_EQ(options->spindleText, "1234");
    options->ToggleSpindle();
    options->EditSpindleSpeed("4000");
    options->EditTopFeed("2000");
    return options->Accept() == Closing::kAccepted;
  });
  dialog.SetCondition();
  EXPECT_NE(dialog.conditionCaption.find("최대피드  2000"), std::string::npos);
  EXPECT_EQ(dialog.SpindleOn, 1);
  Append("a.nc");
  EXPECT_NE(dialog.list.lines[0].find("MAF 2000 "), std::string::npos);
  EXPECT_TRUE(dialog.list.lines[0].ends_with(" KeyCode  S4000"));

  const auto cancel = [](CSendOptionDlg* options) {
    options->EditSpindleSpeed("5");
    return options->Cancel() == Closing::kAccepted;
  };
  ui.OnDialog<CSendOptionDlg>(cancel);
  dialog.SetCondition();
  EXPECT_EQ(dialog.conditionCaption, "Afa조건: ");
  EXPECT_EQ(dialog.SpindleSpeed, 4000);
  Append("b.nc");
  EXPECT_NE(dialog.list.lines[1].find("RT OFF Afa OFF  KeyCode"), std::string::npos);
  LabelLanguage = kEnglishLabels;
  ui.OnDialog<CSendOptionDlg>(cancel);
  dialog.SetCondition();
  EXPECT_EQ(dialog.conditionCaption, "Afa: ");
  LabelLanguage = kKoreanLabels;

  ui.OnDialog<CSendOptionDlg>(
      [](CSendOptionDlg* options) { return options->Accept() == Closing::kAccepted; });
  dialog.SetCondition();
  Append("b.nc");
  EXPECT_NE(dialog.list.lines[2].find("Afa ON "), std::string::npos);
}

// A position is that of the files to come, and leaves those in the list alone.
TEST_F(TransferDialog, RestartPositionOfTheFilesToCome) {
  EXPECT_EQ(dialog.restartCaption, "재전송 :");
  const auto restartOf = [&](size_t entry) {
    const std::string& line = dialog.list.lines[entry];
    return line.substr(line.find("RT "), line.find("Afa") - line.find("RT "));
  };
  Append("a.nc");
  ui.OnDialog<CRestartDlg>([](CRestartDlg* restart) {
    restart->SelectKind(4);
    restart->EditDecimal(2, "1.5");
    restart->EditDecimal(5, "3");
    return restart->Accept() == Closing::kAccepted;
  });
  dialog.SetRestart();
  EXPECT_EQ(dialog.restartCaption, "재전송: 좌표->XYZ(  1.50, 9999.00, 9999.00)  공차->  3.00  ");
  Append("b.nc");
  EXPECT_EQ(std::ranges::count(dialog.information, "  공차->  1.50"), 1)
      << "the line has no tolerance, so that of the opening is shown";
  ui.OnDialog<CRestartDlg>([](CRestartDlg* restart) {
    EXPECT_EQ(restart->decimalTexts[2], " 1.500");
    return restart->Cancel() == Closing::kAccepted;
  });
  dialog.SetRestart();
  EXPECT_EQ(dialog.restartCaption, "재전송: ");
  Append("a.nc");
  EXPECT_EQ(restartOf(0), "RT OFF ");
  EXPECT_EQ(restartOf(1), "RT ON  4   1.500 9999.000 9999.000 ");
  EXPECT_EQ(restartOf(2), "RT OFF ");
}

TEST_F(TransferDialog, AcceptHandsTheListOverWithoutOldEntries) {
  slot.FileNames[5] = "old.nc";
  Append("a.nc");
  dialog.ToggleDeleteM30();
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(slot.FileNames.size(), kJobListSlots);
  EXPECT_EQ(slot.FileNames[0], "a.nc");
  EXPECT_EQ(slot.OptionLines[0], dialog.list.lines[0]);
  EXPECT_EQ(slot.FileNames[5], "");
  EXPECT_EQ(slot.DeleteM30, 1);
}

TEST_F(TransferDialog, StartsTheEditorOnTheSelectedEntryOnly) {
  dialog.list.Insert(0, "a.nc", "Dir c:\\x FS 5 ");
  dialog.EditEntry();
  EXPECT_TRUE(programs.started.empty());
  dialog.SelectEntry(0);
  dialog.EditEntry();
  EXPECT_EQ(programs.started, Names{"wordpad.exe c:\\x\\a.nc"});
}

TEST(KeyCodePad, ComposesATextAndForgetsItOnCancel) {
  std::vector<std::string> userKeys(100);
  userKeys[1] = "M08 M03";
  CKeyCodeDlg pad(&userKeys);
  size_t captions = 0;
  for (const auto& row : CKeyCodeDlg::Rows()) captions += row.size();
  EXPECT_EQ(captions, 79U);
  EXPECT_EQ(CKeyCodeDlg::UserKeyCaptions().size(), 11U);
  pad.Open();
  for (const char* const key : {"G", "9", "0"}) pad.Press(key);
  pad.PressUserKey(1);
  pad.PressUserKey(2);
  pad.Accept();
  EXPECT_EQ(pad.KeyText, "G90M08 M03  ");
  pad.Open();
  pad.Clear();
  EXPECT_EQ(pad.KeyText, "G90M08 M03  ") << "until it is accepted";
}

}  // namespace
}  // namespace tvx
