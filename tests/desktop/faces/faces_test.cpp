// The faces of the dialogs, in English: each control reaches the logic, the accepting button hands
// the values over, and a cancel does what the logic does. The rules are tested with the logic.

#include <QAbstractButton>
#include <QDesktopServices>
#include <QFileDialog>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QTextBrowser>
#include <QTreeWidget>

#include "base/format.h"
#include "base/text.h"
#include "conditions/condition_file.h"
#include "desktop/desktop_test.h"
#include "desktop/faces/row_list.h"
#include "getfeed/calculator_dialog.h"
#include "jobs/transfer_dialog.h"
#include "reports/example_entry.h"
#include "session/view_operations.h"
#include "settings/lists.h"
#include "stats/file_information.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

using namespace std::string_literals;

using enum CommandId;

class DialogFaces : public DesktopTest {
 protected:
  DialogFaces() : DesktopTest(Language::kEnglish) {}

  // Opens a dialog on the record and runs it with a user's steps in its face. Returns what has
  // changed in the record.
  template <typename D, typename... More>
  std::string Run(D* dialog, const std::string& steps, const More&... more) {
    const JobRecord before = record;
    dialog->Open(&record, more...);
    user.Next(steps);
    ui.RunModal(dialog);
    return Changes(before, record);
  }
  // Gives the sliders of the next window numbers from a first one on, by the mouse and by keys in
  // turn, before its other steps.
  void MoveSliders(int first) {
    user.Next([position = first](QDialog* face) mutable {
      for (QSlider* const slider : face->findChildren<QSlider*>()) {
        EXPECT_GT(slider->value(), 25) << "as the logic has it";
        slider->setSliderDown(position % 2 == 0);
        slider->setSliderPosition(position++);
        slider->setSliderDown(false);
      }
    });
  }

  JobRecord record;
};

TEST_F(DialogFaces, Settings) {
  home.Put("drive_c/env/a.nc", "");
  RunCommand(kConfiguration, "Env=c:\\env | Work=c:\\work | AFA=c:\\afa | Editor=ed | Save");
  RunCommand(kConfiguration, "Env?c:\\env | Work=c:\\other | Cancel");
  EXPECT_EQ(app.configuration.WorkDir, "c:\\work");
  EXPECT_EQ(DecodeCp949(HostBytes(home / "drive_c/windows/tvx.cfg")),
            "환경Dir c:\\env\r\nWorkDir c:\\work\r\nAFADir c:\\afa\r\nEditor ed\r\n");

  RunCommand(kDirectoryList,
             "Change | Delete | Add > c:\\env\\a.nc | Add > c:\\env\\a.nc | list#c:\\env | "
             "Change > 0?c:\\env & 0=d:\\second & OK | Change > 0=c:\\dropped & Cancel | "
             "list?d:\\second, c:\\env | list#c:\\env | Delete | Refresh | Save");
  RunCommand(kDirectoryList, "list#d:\\second | Delete | Cancel");
  EXPECT_EQ(ListEntries(app.DirectoryList), std::vector<std::string>{"d:\\second"});

  RunCommand(kMasterBuild, "Tool=7 | Cancel");
  RunCommand(kMasterBuild, "Tool?10 | Tool=6.5 | Machining=0.25 | Master=2 | OK");
  RunCommand(kMasterBuild, "Tool?6.5 | Tool<6 | Tool?6 | Machining?0.25 | Master?2 | Cancel");

  record = Record("RapidFeed=7000");
  COptionDlg options(files.get(), &ui);
  const std::string changes = "Lowest? | Make?on | Make | Integer | Lowest=20000 | NCDATA=*.tap | ";
  EXPECT_EQ(Run(&options, changes + "Save | Cancel", "c:\\marlo"), "");
  EXPECT_TRUE(files->Exists("c:\\marlo\\tvx.par"));
  EXPECT_EQ(Run(&options, changes + "OK", "c:\\marlo"),
            "RapidFeed=20000 IntNcdataFlg=1 MetafileCreateChk=0 NcdataExt=*.tap");
}

TEST_F(DialogFaces, SendOptions) {
  CSendOptionDlg& dialog = app.sendOptions;
  record = Record("ConCorChk=0");
  home.Put("drive_c/R&D/a.mma", "");
  // The ampersand is shown as it is, and is not the mark of a key.
  EXPECT_EQ(
      Run(&dialog,
          "Lowest! | Highest=2000 | Afa:~MaxFeed  2000 | Lowest=500 | Finishing | Z up | 2=-3200 | "
          "Spindle | MMA > c:\\R&D\\a.mma | MMA?MMA : c:\\R&&D\\a.mma | "
          "Highest=200000 | OK > OK | Highest! | Highest=2000 | Lowest=-1 | "
          "OK > OK | Lowest! | Lowest=500 | OK"),
      "AfaEnabled=1 CornerMaxRatio=0.25 SlopeMaxRatio=0.25 ConCorChk=1 UpDownChk=0 "
      "MaxFeed=2000 AfaMasterFile=c:\\R&D\\a.mma");
  EXPECT_EQ(std::pair(dialog.SpindleOn, dialog.SpindleSpeed), std::pair(1, -3200));

  const JobRecord condition = Record("ConCorChk=0 UpDownChk=1 MaxFeed=800 CornerMaxRatio=0.5");
  WriteConditionFile("c:\\a.afa", condition, 2500, files.get());
  EXPECT_EQ(Run(&dialog,
                "Finishing?on | Z up?off | Afa file > c:\\a.afa | "
                "Afa file?Afa file: a.afa | 0?80 | 1?800 | 2?2500 | Finishing?off | "
                "Z up?on | Spindle?on | Afa:~\n  MaxFeed  800\n  PlungeFeed  1000\n | "
                "Afa: > ?Automatic Feed Adjustment & Maximum=700 & OK | 1?700 | "
                "Set > ?AFA Setup & Esc | GetFeed > ?GetFeed Ver 1.0 & Esc | Esc"),
            "AfaEnabled=0")
      << "a cancel switches the adjustment off";
}

TEST_F(DialogFaces, MachiningCondition) {
  CAutoFeedDlg dialog(files.get(), &ui);
  const std::string typed =
      "Tool path=11 | 1=12 | 2=13 | 3=14 | 4=15 | 5=16 | Plunge=17 | Maximum=18 | Work=황동 | "
      "Save > c:\\saved.afa | ";
  const std::string changes =
      "ToolDiameter=11 SafetyDistance=12 CornerMinAngle=13 CornerMaxRatio=14 SlopeMinAngle=15 "
      "SlopeMaxRatio=16 MaxFeed=18 PlungeFeed=17 Material=황동";
  EXPECT_EQ(Run(&dialog, typed + "Cancel"), "");
  EXPECT_EQ(Run(&dialog, typed + "OK"), changes);
  record = JobRecord();
  EXPECT_EQ(Run(&dialog, "Machining > c:\\saved.afa | Maximum?18 | Machining~: saved.afa | OK"),
            changes);
}

TEST_F(DialogFaces, FinerSettings) {
  CAfaSetupDlg dialog(&ui);
  record.AfaMasterFile = "c:\\a.mma";
  MoveSliders(21);
  EXPECT_EQ(Run(&dialog, "?30 deg weight(0.22) | AFA by master | Reduce XY | Feed=25 | Cancel"),
            "CorWeight0=0.21 CorWeight30=0.22 CorWeight60=0.23 SideWeight0=0.24 SideWeight30=0.25 "
            "SideWeight60=0.26 AfaByMaster=1")
      << "the switch and the sliders remain";
  EXPECT_EQ(Run(&dialog,
                "AFA by master?on | Reduce XY | Smooth | Feed=x | OK > OK | Feed! | "
                "Feed=25 | Z up=x | OK > OK | Z up! | Z up=0.5 | OK"),
            "FeedChgSmoothCheck=1 XyChgReduceCheck=1 FeedChgAng=25 ZupZdown=0.5");
}

TEST_F(DialogFaces, Restart) {
  CRestartDlg dialog;
  // Two fields show the one number.
  EXPECT_EQ(Run(&dialog, "X,Y,Z! | X,Y,Z?on | Number?200 | 0=12 | 1?12 | Sequence | OK"),
            "RestartOn=1 RestartKind=1 RestartNumber=12");
  EXPECT_EQ(Run(&dialog, "Sequence! | 1=34 | 0?34 | NCDATA | OK"),
            "RestartKind=2 RestartNumber=34");
  EXPECT_EQ(Run(&dialog, "2=2 | 3=3 | X:=4 | Y:=5 | Z:=6 | Search=7 | Z area | OK"),
            "RestartKind=3 RestartZMax=2 RestartZMin=3 RestartX=4 RestartY=5 RestartZ=6 "
            "RestartTolerance=7");
  EXPECT_EQ(Run(&dialog, "X,Y,Z | Esc"), "RestartOn=0");
}

TEST_F(DialogFaces, Calculator) {
  CGetFeedDlg dialog(8.0F, "KP4", &ui);
  MoveSliders(80);
  user.Next(
      "Work?KP4 | Number?2 | Work=SKD61 | Tool material=Carbide | Number=4 | Tool diameter=12 | "
      "Tool length=60 | "
      "Flute=40 | Stepover=1.5 | Cutting=1000 | Highest FEED=9000 | Highest speed=11000 | "
      "Idle=3.5 | NC=25 | High | OK > OK | Cutting! | Cutting=2.5 | Feed rate?  821 (fixed) | "
      "?<< Tool protection -----(-20)----- Machining speed>> | "
      "?<<High quality -----(-19)----- Machining speed>>  | OK");
  EXPECT_TRUE(ui.RunModal(&dialog));
  std::string shown;
  for (const auto& number : CalculatorNumbers()) shown += dialog.NumberText(number) + "|";
  EXPECT_EQ(shown, "  821|12|60|2.5|633|1.5|40|11000|9000|25| 2494|3.5|");
  EXPECT_EQ(dialog.state.toolMaterial, "초경") << "Korean in every language";
}

TEST_F(DialogFaces, FileChooser) {
  std::string path = "kept";
  user.Next("?Nc file (*.nc *tap) | ?All files (*) | Esc");
  EXPECT_FALSE(
      ui.ChooseFile({.filter = "Nc file(*.nc, *.tap)|*.nc;*tap;|모든 화일(*.*)|*.*||"}, &path));
  EXPECT_EQ(path, "kept");
  home.Put(programs / "O1234", "");
  home.Put(programs / "O1234.tvx", "");
  for (const bool saves : {false, true}) {
    user.Next("c:\\marlo\\ncdata\\O1234");
    if (saves) user.Next("Yes");
    EXPECT_TRUE(ui.ChooseFile(
        {.save = saves, .confirmsOverwrite = saves, .defaultExtension = "tvx"}, &path));
    EXPECT_EQ(path, std::string("c:\\marlo\\ncdata\\O1234") + (saves ? ".tvx" : ""));
  }
  // Choosers of a file to read, one of which takes a new name as well.
  const FileQuestion readers[] = {{.save = true, .mustExist = true}, {.save = true, .opens = true}};
  for (const FileQuestion& question : readers) {
    user.Next([](QDialog* chooser) {
      EXPECT_EQ(qobject_cast<QFileDialog*>(chooser)->acceptMode(), QFileDialog::AcceptOpen);
      chooser->reject();
    });
    EXPECT_FALSE(ui.ChooseFile(question, &path));
  }
}

// A question whose answer is "no" must not be answered by a key that means "yes".
TEST_F(DialogFaces, Messages) {
  const auto ask = [&](MessageButtons buttons, const std::string& step) {
    user.Next("?Error message | ?The file cannot be opened.\n | " + step);
    return ui.ShowMessage({.text = "화일을 열수 없읍니다.\n", .buttons = buttons});
  };
  EXPECT_TRUE(ask(MessageButtons::kOk, "OK") && ask(MessageButtons::kOkCancel, "OK"));
  EXPECT_FALSE(ask(MessageButtons::kOkCancel, "Esc") || ask(MessageButtons::kYesNo, "Esc"));
}

TEST_F(DialogFaces, ResultList) {
  View().results.recorded = ResultsOf({PlainEntry("a.nc"), AdjustedEntry("b.nc")});
  RunCommand(
      kResultList,
      "File name?a.nc, b.nc | Total?29.65 (fixed) | Remove > OK | File name#b.nc | "
      "?Picture file b.nc.emf | File name<Up | Remove | File name?b.nc | Total?14.83 (fixed) | "
      "?Total time 14.8 min | Write report > c:\\windows\\r.tvx | OK");
  EXPECT_TRUE(files->Exists("c:\\windows\\r.tvx"));
  EXPECT_EQ(View().results.recorded.size(), 1U);
  RunCommand(kResultList, "Clear");
  EXPECT_TRUE(View().results.recorded.empty());
}

TEST_F(DialogFaces, WrittenJobSheetIsOfferedToBrowser) {
  View().results.recorded = ResultsOf({PlainEntry("a.nc")});
  RunCommand(kResultList, "HTML > c:\\windows\\week.html | OK");
  QTextBrowser browser;
  QDesktopServices::setUrlHandler("file", &browser, "setSource");
  user.Do(window.get(), "Open");
  QDesktopServices::unsetUrlHandler("file");
  EXPECT_EQ(FromQt(browser.source().toLocalFile()), (home / "drive_c/windows/week.html").string());
}

// The windows of the program that no dialog test opens.
TEST_F(DialogFaces, OtherWindowsHaveNoKoreanText) {
  RunCommand(kMasterSave, "c:\\a.mma");  // leaves a text in the status bar
  EXPECT_EQ(TextsIn(window.get()).filter(QRegularExpression("^(?!언어 / |한국어).*[가-힣]")),
            QStringList());
  for (const CommandId id : {kLoad, kWritePicture, kMasterLoad, kMasterDelete, kUserKey1}) {
    RunCommand(id, "Esc");
  }
  user.Next("Settings > Esc");
  OpenCommandPad(&View());
  user.Next("?c:\\marlo\\ncdata\\none.nc\n\nThe file cannot be opened.\n | OK");
  window->LoadHostFile(ToQt((programs / "none.nc").string()));
  EXPECT_FALSE(std::filesystem::exists(programs / "none.nc"));
  CFileInfoDlg info;
  info.entry.RestartOn = info.entry.AfaEnabled = info.entry.FeedChgSmoothCheck = 1;
  for (const int32_t kind : {1, 2, 3, 4}) {
    info.entry.RestartKind = kind;
    user.Next("Cancel");
    ui.RunModal(&info);
  }
}

TEST_F(DialogFaces, UserTextIsNotTranslated) {
  View().job.Material = "삭제";
  View().job.AfaMasterFile = "c:\\설정.mma";
  user.koreanTexts = 2;
  RunCommand(kSingleCutTime, "MMA?MMA : c:\\설정.mma | Esc");
  View().results.recorded = ResultsOf({AdjustedEntry("b.nc")});
  View().results.recorded[0].entry.dirName = "c:\\번호";
  View().results.recorded[0].entry.pictureName = "번호.emf";
  user.koreanTexts = 3;
  RunCommand(kResultList,
             "File name#b.nc | ?Dir : c:\\번호 | ?MMA c:\\die\\코아.mma | "
             "?Picture file 번호.emf | OK");
}

const std::string kLong(200, 'z');

// The job dialog and the key-code pad: lists, tree, keys and one button of each kind.
class JobFaces : public DialogFaces {
 protected:
  JobFaces() {
    for (const std::string& name : {"a.nc"s, "b.nc"s, "note.txt"s, "sub/d.nc"s, kLong + "/e.nc"}) {
      home.Put(programs / name, "G90 G0 X0\nG1 X30 F300\n");
    }
    record.WorkDir = "c:\\marlo\\ncdata";
    working.FirstEditable = 0;
    dialog.Open({&record, &working, "c:\\marlo", "ed", &app.ExtensionList, NoPrograms(), 1000,
                 Language::kEnglish});
  }

  JobRecord working;
  CTransferDlg dialog{&app.UserKeys, files.get(), &ui};
};

TEST_F(JobFaces, TreeBrowsesByClickAndEnter) {
  user.Next(
      "tree#sub | ?c:\\marlo\\ncdata\\sub | File List?d.nc | tree<Up | ?c:\\marlo\\ncdata\\sub | "
      "tree<Enter | ?c:\\marlo\\ncdata | tree<Down Return | ?c:\\marlo\\ncdata\\sub | tree#marlo | "
      "tree##ncdata | ?c:\\marlo\\ncdata | tree#[c:] | ?c:\\ | Esc");
  ui.RunModal(&dialog);
}

TEST_F(JobFaces, DirectoryWithNamesakeKeepsLettersOfHost) {
  DirectoryBrowser browser(files.get());
  browser.Enter("c:\\marlo\\ncdata\\sub", "*.*");
  EXPECT_EQ(browser.DirectoryInCapitals(), "C:\\MARLO\\NCDATA\\SUB");
  std::filesystem::create_directory(programs / "SUB");
  EXPECT_EQ(browser.DirectoryInCapitals(), "c:\\marlo\\ncdata\\sub");
}

TEST_F(JobFaces, ListsObeyMouseAndKeys) {
  user.Next(
      "File List<Shift | Insert > ?DNC message & OK | File List<Down Down Return | Files?b.nc | "
      "File List<Up Enter | Files?b.nc, a.nc | File List##b.nc | Files?b.nc, a.nc, b.nc | "
      "Files#a.nc | File List#a.nc | Insert | Files?b.nc, a.nc, a.nc, b.nc | Files<Home Del | "
      "Files?a.nc, a.nc, b.nc | Files##b.nc | Files?a.nc, a.nc | Files<Home | Preview | "
      "File Preview?G90 G0 X0, G1 X30 F300,  .,  .,  . | Files<Return | K Add > 0=G90 & OK | K Add "
      "> 0=S1000 & OK | "
      "File Preview#  G90 | K Change > 0?G90 & Esc | File Preview<Return | Files<Up | Send");
  EXPECT_TRUE(ui.RunModal(&dialog)) << "Return belongs to the lists";
  EXPECT_EQ(record.FileNames[0] + record.FileNames[1] + record.FileNames[2], "a.nca.nc");
  EXPECT_TRUE(record.OptionLines[0].ends_with(" KeyCode  G90 S1000")) << record.OptionLines[0];
}

TEST_F(JobFaces, MaskAndOptionsOfFilesToCome) {
  user.Next(
      "box?*.nc | box<Home | File List?a.nc, b.nc, note.txt | File Extension > 0=*.txt & OK | "
      "box?*.txt | File List?note.txt | File Extension > Esc | File List##note.txt | "
      "?Restart OFF | ?  MaxFeed  1000 | Delete M30?off | Delete M30 | "
      "Restart : > Sequence & 0=120 & OK | Restart?Restart: Num->120 | "
      "Afa: ToolDia > Highest=2000 & OK | File List##note.txt | ?  Restart: Num-> 120  | "
      "?  MaxFeed  2000 | Afa: ToolDia > Cancel | Afa?Afa:  | Restart: Num > Cancel | "
      "Restart?Restart:  | Files#note.txt | Preview | Delete M30?off | Send");
  EXPECT_TRUE(ui.RunModal(&dialog));
}

TEST_F(JobFaces, LongTextsFitSmallScreen) {
  user.Next([&](QDialog* face) {
    dialog.restartCaption = "재전송: 좌표->XYZ(-1234.56, -1234.56, -1234.56)  공차->  1.50  ";
    user.Do(face, "Clear | tree#" + ToQt(kLong));
    EXPECT_LE(face->minimumSizeHint().width(), 1180);
    face->reject();
  });
  ui.RunModal(&dialog);
}

TEST_F(JobFaces, RowListKeepsScrollPositionAndFollowsAppendedRow) {
  QListWidget list;
  list.resize(100, 100);
  const auto show = [&](size_t rows, int selected) {
    ShowRows(&list, std::vector<std::string>(rows, "row"), selected);
    return std::pair(list.verticalScrollBar()->value(), SelectedRow(list));
  };
  EXPECT_EQ(show(50, -1), std::pair(0, -1));
  EXPECT_GT(show(51, -1).first, 40) << "the end";
  list.verticalScrollBar()->setValue(3);
  EXPECT_EQ(show(50, 5), std::pair(3, 5));
  EXPECT_EQ(show(50, -1), std::pair(3, -1));
}

TEST_F(JobFaces, EveryButtonOfKeyCodePadWritesIntoField) {
  for (size_t n = 1; n <= 12; ++n) app.UserKeys[n] = "u" + std::to_string(n);
  CKeyCodeDlg pad(&app.UserKeys);
  user.Next([&](QDialog* face) {
    QString expected;
    for (QAbstractButton* const button : face->findChildren<QAbstractButton*>().first(90)) {
      const QString caption = button->text();
      expected += caption.startsWith("UK") ? "u" + caption.mid(2).trimmed() + " " : caption;
      QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_TRUE(expected.endsWith("G92u1 u2 u3 u4 u5 u6 u7 u8 u9 u10 u11 ")) << FromQt(expected);
    user.Do(face, "0?" + expected + " | Clear | 0? | 0<X | G90 | 0?xG90 | 0! | 0<Return");
  });
  EXPECT_TRUE(ui.RunModal(&pad));
  pad.Open();
  user.Next("0?xG90 | G91 | Cancel");
  EXPECT_FALSE(ui.RunModal(&pad));
  EXPECT_EQ(pad.KeyText, "xG90");
}

}  // namespace
}  // namespace tvx
