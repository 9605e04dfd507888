// Each dialog's face: every control reaches the logic, the accepting button hands the values over,
// and a cancel does what it does in the logic.

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSlider>

#include "base/text.h"
#include "desktop/calculator_face.h"
#include "desktop/command_pad_face.h"
#include "desktop/condition_faces.h"
#include "desktop/restart_face.h"
#include "desktop/result_faces.h"
#include "desktop/settings_faces.h"
#include "desktop_test.h"
#include "feed/condition_file.h"
#include "shell/lists.h"
#include "shell/view_operations.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

using DialogFaces = DesktopTest;

TEST_F(DialogFaces, DirectorySettings) {
  user.Does<DirSetupFace>({{"환경화일 DIR", "c:\\설정"},
                           {"작업 DIR", "c:\\work"},
                           {"AFA 조건 DIR", "c:\\afa"},
                           {"편집기(editor)", "ed"},
                           {"저장"}});
  window->RunCommand(CommandId::kConfiguration);
  user.Does<DirSetupFace>({{"작업 DIR", "c:\\other"}, {"취소"}});
  window->RunCommand(CommandId::kConfiguration);
  EXPECT_EQ(app.configuration.WorkDir, "c:\\work");
  EXPECT_EQ(DecodeCp949(HostBytes(home / "drive_c/windows/tvx.cfg")),
            "환경Dir c:\\설정\r\nWorkDir c:\\work\r\nAFADir c:\\afa\r\nEditor ed\r\n");
}

TEST_F(DialogFaces, DirectoryList) {
  user.On<DirListFace>([this](DirListFace* face) {
    auto* const list = face->findChild<QListWidget*>();
    Do(face, {{"수정"}, {"삭제"}});  // nothing is selected: nothing happens
    for (int i = 0; i < 2; ++i) {
      user.OnFile(home.Put("drive_c/parts/a.nc", ""));
      Click(face, "추가");
    }
    user.On<TextInputFace>([](TextInputFace* input) {
      EXPECT_EQ(input->findChild<QLineEdit*>()->text(), "c:\\parts");
      Type(input->findChild<QLineEdit*>(), "d:\\둘째");
      QTest::keyClick(input, Qt::Key_Return);
    });
    list->setFocus();  // which must not stand for a selection
    Click(face, "삭제");
    EXPECT_EQ(list->count(), 2);
    list->setCurrentRow(0);
    Click(face, "수정");
    EXPECT_EQ(list->item(0)->text(), "d:\\둘째");
    user.Does<TextInputFace>({{"", "c:\\dropped"}, {"Cancel"}});
    Click(face, "수정");
    list->setCurrentRow(1);
    Do(face, {{"삭제"}, {"갱신"}, {"저장"}});
  });
  window->RunCommand(CommandId::kDirectoryList);
  user.On<DirListFace>([](DirListFace* face) {
    face->findChild<QListWidget*>()->setCurrentRow(0);
    Do(face, {{"삭제"}, {"취소"}});
  });
  window->RunCommand(CommandId::kDirectoryList);
  EXPECT_EQ(ListEntries(app.DirectoryList), (std::vector<std::string>{"d:\\둘째"}));
  EXPECT_EQ(DecodeCp949(HostBytes(home / "drive_c/marlo/dirlist.txt")), "d:\\둘째\r\n");
}

TEST_F(DialogFaces, EnvironmentOptions) {
  View().job.MetafileCreateChk = 1;
  View().job.IntNcdataFlg = 0;
  View().job.RapidFeed = 7000;
  const JobRecord before = View().job;
  // Opens them, changes them all and presses buttons. Returns what has changed.
  const auto change = [&](const std::vector<Deed>& buttons) {
    user.Does<CommandPadFace>({{"설정"}});
    user.On<OptionFace>([&](OptionFace* face) {
      EXPECT_EQ(ListOf(face, "최소 급속이송")->currentIndex(), -1);
      Do(face, {{"그림화일 생성"},
                {"정수 Ncdata"},
                {"최소 급속이송", "20000"},
                {"NCDATA확장자", "*.tap"}});
      Do(face, buttons);
    });
    OpenCommandPad(&View());
    return Changes(before, View().job);
  };
  EXPECT_EQ(change({{"저장"}, {"Cancel"}}), "");
  EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/tvx.par"));
  EXPECT_EQ(change({{"OK"}}), "RapidFeed=20000 IntNcdataFlg=1 MetafileCreateChk=0 NcdataExt=*.tap");
}

TEST_F(DialogFaces, MasterInput) {
  const CMasterDlg& dialog = View().masterDialog;
  const auto change = [&](const char* button) {
    user.Does<MasterFace>(
        {{"공구 직경", "6.5"}, {"가공 여유", "0.25"}, {"마스터 모델 공차", "2"}, {button}});
    window->RunCommand(CommandId::kMasterBuild);
    return std::vector{dialog.MasterToolDiameter, dialog.MasterAllowance, dialog.MasterTolerance};
  };
  EXPECT_EQ(change("Cancel")[0], 10.0F);
  EXPECT_EQ(change("OK"), (std::vector{6.5F, 0.25F, 2.0F}));
}

class ConditionFaces : public DesktopTest {
 protected:
  // Opens the send options for a user. Returns what has changed in the record.
  std::string Run(std::function<void(SendOptionFace*)> act) {
    const JobRecord before = View().job;
    user.On<SendOptionFace>(std::move(act));
    window->RunCommand(CommandId::kSingleCutTime);
    return Changes(before, View().job);
  }
};

TEST_F(ConditionFaces, SendOptions) {
  View().job.ConCorChk = 0;
  View().job.UpDownChk = 1;
  const std::string changes = Run([this](SendOptionFace* face) {
    Do(face,
       {{"최대 피드", "2000"}, {"최저 피드", "500"}, {"정삭"}, {"Z 상하향 검색"}, {"Spindle"}});
    Type(face->findChildren<QLineEdit*>().at(2), "-3200");  // it has no range
    user.OnFile(home.Put("drive_c/marlo/R&D/a.mma", ""));
    Click(face, "MMA : ");
    // As it is, and not the key of a button.
    EXPECT_EQ(ButtonFrom(face, "MMA")->text(), "MMA : c:\\marlo\\R&&D\\a.mma");
    user.Does<QMessageBox>({{"OK"}});
    Do(face, {{"최대 피드", "200000"}, {"OK"}});  // refused
    EXPECT_TRUE(face->isVisible());
    EXPECT_EQ(face->focusWidget(), EditOf(face, "최대 피드"));
    user.Does<FileInfoFace>({{"Cancel"}});
    Do(face, {{"최대 피드", "2000"}, {"OK"}});
  });
  EXPECT_EQ(changes,
            "AfaEnabled=1 CornerMaxRatio=0.25 SlopeMaxRatio=0.25 ConCorChk=1 UpDownChk=0 "
            "MaxFeed=2000 AfaMasterFile=c:\\marlo\\R&D\\a.mma");
  EXPECT_EQ(View().results.entryCount, 0) << "the file information was refused";
  EXPECT_EQ(app.sendOptions.SpindleOn, 1);
  EXPECT_EQ(app.sendOptions.SpindleSpeed, -3200);
}

TEST_F(ConditionFaces, AConditionFileFillsTheSendOptions) {
  JobRecord condition;
  condition.ConCorChk = 0;
  condition.MaxFeed = 800;
  condition.CornerMaxRatio = 0.5F;
  condition.SlopeMaxRatio = 0.75F;
  ASSERT_EQ(WriteConditionFile("c:\\marlo\\afa\\a.afa", condition, 2500, files.get()),
            SettingsResult::kDone);
  View().job.AfaEnabled = 1;
  const std::string changes = Run([this](SendOptionFace* face) {
    const auto edits = face->findChildren<QLineEdit*>();
    EXPECT_EQ(edits[2]->text(), "1000");
    EXPECT_TRUE(ButtonOf(face, "정삭")->isChecked());
    QAbstractButton* const big = ButtonFrom(face, "Afa조건:");
    EXPECT_EQ(big->text().count('\n'), 12) << "a line for each value";
    EXPECT_TRUE(big->text().contains("\n  최대피드  1000\n"));
    user.OnFile(home / "drive_c/marlo/afa/a.afa");
    Click(face, "조건화일 :");
    EXPECT_NE(ButtonOf(face, "조건화일: a.afa"), nullptr);
    EXPECT_TRUE(big->text().contains("\n  최대피드  800\n"));
    EXPECT_EQ(edits[0]->text() + " " + edits[1]->text() + " " + edits[2]->text(), "400 800 2500");
    EXPECT_FALSE(ButtonOf(face, "정삭")->isChecked());
    QTest::keyClick(face, Qt::Key_Escape);
  });
  EXPECT_EQ(changes, "AfaEnabled=0") << "a cancel switches the adjustment off and no more";
}

TEST_F(ConditionFaces, MachiningCondition) {
  CAutoFeedDlg dialog(files.get(), &ui);
  JobRecord record;
  const std::filesystem::path file = home / "drive_c/marlo/afa/saved.afa";
  const auto change = [&](const char* button) {
    dialog.Open(&record);
    user.On<AutoFeedFace>([&](AutoFeedFace* face) {
      for (size_t i = 0; i + 1 < kAutoFeedFields; ++i) {
        Type(face, AutoFeedFields()[i].label, std::to_string(i + 11));
      }
      user.OnFile(file);
      Do(face, {{"가공소재", "황동"}, {"조건저장"}, {button}});
    });
    ui.RunModal(&dialog);
    return Changes(JobRecord(), record);
  };
  constexpr char kChanges[] =
      "ToolDiameter=11 SafetyDistance=12 CornerMinAngle=13 CornerMaxRatio=14 SlopeMinAngle=15 "
      "SlopeMaxRatio=16 MaxFeed=18 PlungeFeed=17 Material=황동";
  EXPECT_EQ(change("Cancel"), "");
  EXPECT_EQ(change("OK"), kChanges);

  // What was saved comes back through the button that names the file.
  record = JobRecord();
  dialog.Open(&record);
  user.On<AutoFeedFace>([&](AutoFeedFace* face) {
    user.OnFile(file);
    Click(face, "가공조건 화일 :");
    EXPECT_EQ(EditOf(face, "최대피드")->text(), "18");
    Do(face, {{"가공조건 화일 : saved.afa"}, {"OK"}});
  });
  user.OnFile(file);
  EXPECT_TRUE(ui.RunModal(&dialog));
  EXPECT_EQ(Changes(JobRecord(), record), kChanges);
}

TEST_F(ConditionFaces, FinerSettings) {
  CAfaSetupDlg dialog(&ui);
  JobRecord before;
  before.AfaMasterFile = "c:\\a.mma";
  // Changes them all and then does something. Returns what has changed.
  const auto change = [&](const std::function<void(AfaSetupFace*)>& then) {
    JobRecord record = before;
    dialog.Open(&record);
    user.On<AfaSetupFace>([&](AfaSetupFace* face) {
      Do(face, {{CAfaSetupDlg::kAfaByMaster},
                {CAfaSetupDlg::kXyChgReduce},
                {CAfaSetupDlg::kFeedChgSmooth},
                {CAfaSetupDlg::kZupZdown, "0.5"},
                {CAfaSetupDlg::kFeedChgAng, "25"}});
      int position = 20;
      for (QSlider* const slider : face->findChildren<QSlider*>()) Drag(slider, ++position);
      then(face);
    });
    ui.RunModal(&dialog);
    return Changes(before, record);
  };
  const std::string atOnce =
      "CorWeight0=0.21 CorWeight30=0.22 CorWeight60=0.23 SideWeight0=0.24 SideWeight30=0.25 "
      "SideWeight60=0.26";
  EXPECT_EQ(change([](AfaSetupFace* face) { Click(face, "Cancel"); }), atOnce + " AfaByMaster=1")
      << "the switch and the sliders outlast a cancel";
  EXPECT_EQ(change([&](AfaSetupFace* face) {
              user.Does<QMessageBox>({{"OK"}});
              Do(face, {{CAfaSetupDlg::kFeedChgAng, "x"}, {"OK"}});  // refused
              EXPECT_EQ(face->focusWidget(), EditOf(face, CAfaSetupDlg::kFeedChgAng));
              Do(face, {{CAfaSetupDlg::kFeedChgAng, "25"}, {"OK"}});
            }),
            "FeedChgSmoothCheck=1 XyChgReduceCheck=1 FeedChgAng=25 " + atOnce +
                " ZupZdown=0.5 AfaByMaster=1");
}

TEST_F(DialogFaces, Restart) {
  JobRecord options;
  CRestartDlg dialog;
  dialog.Open(&options);
  user.On<RestartFace>([&](RestartFace* face) {
    EXPECT_TRUE(ButtonOf(face, "X,Y,Z 좌표")->isChecked());
    EXPECT_EQ(face->focusWidget(), ButtonOf(face, "X,Y,Z 좌표"));
    int kind = 0;
    for (const char* const caption : CRestartDlg::kKinds) {
      Click(face, caption);
      EXPECT_EQ(dialog.own.RestartKind, ++kind);
    }
    const auto edits = face->findChildren<QLineEdit*>();
    ASSERT_EQ(edits.size(), 8);
    Type(edits[0], "12");
    EXPECT_EQ(edits[1]->text(), "12");
    Type(edits[1], "34");
    EXPECT_EQ(edits[0]->text(), "34");
    for (qsizetype i = 2; i < edits.size(); ++i) Type(edits[i], std::to_string(i));
    Do(face, {{"Z 영역"}, {"OK"}});
  });
  EXPECT_TRUE(ui.RunModal(&dialog));
  EXPECT_EQ(Changes(JobRecord(), options),
            "RestartOn=1 RestartKind=3 RestartNumber=34 RestartZMax=2 RestartZMin=3 RestartX=4 "
            "RestartY=5 RestartZ=6 RestartTolerance=7");

  dialog.Open(&options);
  user.On<RestartFace>([](RestartFace* face) { QTest::keyClick(face, Qt::Key_Escape); });
  EXPECT_FALSE(ui.RunModal(&dialog));
  EXPECT_EQ(options.RestartOn, 0) << "a cancel switches the position off";
}

TEST_F(DialogFaces, Calculator) {
  CGetFeedDlg dialog(8.0F, "KP4", &ui);
  user.On<CalculatorFace>([&](CalculatorFace* face) {
    Do(face, {{"가공소재", "SKD61"},
              {"공구 재질", CGetFeedDlg::ToolMaterialEntries().front()},
              {"공구 날수", "4"},
              {"공구 직경", "12"},
              {"공구 길이", "60"},
              {"공구 날길이", "40"},
              {"Stepover", "1.5"},
              {"절삭 깊이", "2.5"},
              {"최대 FEED", "9000"},
              {"최대 회전수", "11000"},
              {"무부하 POWER(KW)", "3.5"},
              {"NC POWER (KW)", "25"},
              {"고속황삭"}});
    for (const char* const result : {"Spindle 회전수", "이송 속도", "분당 절삭량"}) {
      EXPECT_TRUE(EditOf(face, result)->isReadOnly()) << result;
    }
    const auto sliders = face->findChildren<QSlider*>();
    ASSERT_EQ(sliders.size(), 2);
    Drag(sliders[0], 120);
    Drag(sliders[1], 80);
    // The fields stand in the group of what they are about.
    const auto group = [&](const char* label) { return EditOf(face, label)->parentWidget(); };
    const auto inputs = group("공구 직경")->findChildren<QWidget*>();
    for (QWidget* const input : std::initializer_list<QWidget*>{
             EditOf(face, "절삭 깊이"), sliders[0], sliders[1], ButtonOf(face, "고속황삭")}) {
      EXPECT_TRUE(inputs.contains(input));
    }
    EXPECT_EQ(group("최대 FEED"), group("NC POWER (KW)"));
    EXPECT_EQ(group("이송 속도"), group("Spindle 회전수"));
    EXPECT_NE(group("공구 직경"), group("최대 FEED"));
    EXPECT_NE(group("이송 속도"), group("최대 FEED"));
    user.Does<QMessageBox>({{"OK"}});
    Do(face, {{"절삭 깊이", "1000"}, {"확인"}});  // refused
    EXPECT_EQ(face->focusWidget(), EditOf(face, "절삭 깊이"));
    Do(face, {{"절삭 깊이", "2.5"}, {"확인"}});
  });
  EXPECT_TRUE(ui.RunModal(&dialog));
  const GetFeedState& state = dialog.state;
  EXPECT_EQ(state.workMaterial + "|" + state.toolMaterial,
            "SKD61|" + CGetFeedDlg::ToolMaterialEntries().front());
  EXPECT_EQ((std::vector{state.toolDiameter, state.toolLength, state.fluteLength, state.stepover,
                         state.cutDepth, state.maxFeedRate, state.maxSpindle, state.idlePower,
                         state.ncPower}),
            (std::vector{12.0F, 60.0F, 40.0F, 1.5F, 2.5F, 9000.0F, 11000.0F, 3.5F, 25.0F}));
  EXPECT_EQ(state.fluteCount, 4);
  EXPECT_EQ(state.speedPercent, 120.0F);
  EXPECT_EQ(state.feedPercent, 80.0F);
  EXPECT_NE(state.highSpeedRough, 0);
}

// The chooser shows what a filter of several masks lets through.
TEST_F(DialogFaces, FilterOfSeveralMasks) {
  user.On<QFileDialog>([](QFileDialog* chooser) {
    EXPECT_EQ(chooser->nameFilters(),
              (QStringList{"Ncdata file (*.nc *.hnc *tap)", "All file (*)"}));
    chooser->reject();
  });
  std::string path = "kept";
  EXPECT_FALSE(ui.ChooseFile(
      {.filter = "Ncdata file(*.nc, *.hnc, *.tap)|*.nc;*.hnc;*tap;|All file(*.*)|*.*||"}, &path));
  EXPECT_EQ(path, "kept");
}

// Many programs have a name without an ending: one that exists keeps it.
TEST_F(DialogFaces, ChosenFileWithoutAnEnding) {
  const std::filesystem::path file = home.Put("drive_c/marlo/ncdata/O1234", "G1 X10\n");
  user.OnFile(file);
  std::string path;
  EXPECT_TRUE(ui.ChooseFile({.defaultExtension = "mma"}, &path));
  EXPECT_EQ(path, "c:\\marlo\\ncdata\\O1234");

  user.OnFile(file);
  EXPECT_TRUE(ui.ChooseFile({.save = true, .defaultExtension = "tvx"}, &path));
  EXPECT_EQ(path, "c:\\marlo\\ncdata\\O1234.tvx");
}

// A question whose answer is "no" must not be answered by a key that means "yes".
TEST_F(DialogFaces, Messages) {
  const struct {
    MessageButtons buttons;
    Qt::Key key;
    bool answer;
  } cases[] = {{MessageButtons::kOk, Qt::Key_Return, true},
               {MessageButtons::kOkCancel, Qt::Key_Return, true},
               {MessageButtons::kOkCancel, Qt::Key_Escape, false},
               {MessageButtons::kYesNo, Qt::Key_Escape, false}};
  for (const auto& row : cases) {
    user.On<QMessageBox>([&](QMessageBox* box) {
      EXPECT_EQ(box->text(), "화일을 열수 없읍니다.\n");
      EXPECT_EQ(box->windowTitle(), "Error message");
      QTest::keyClick(box, row.key);
    });
    EXPECT_EQ(ui.ShowMessage({.text = "화일을 열수 없읍니다.\n", .buttons = row.buttons}),
              row.answer);
  }
}

}  // namespace
}  // namespace tvx
