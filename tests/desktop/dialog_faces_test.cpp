// Each dialog's face: every control reaches the logic, the accepting button hands the values over,
// and a cancel does what it does in the logic.

#include "desktop/dialog_faces.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSlider>

#include "desktop/calculator_face.h"
#include "desktop/command_pad_face.h"
#include "desktop/condition_faces.h"
#include "desktop/master_face.h"
#include "desktop/restart_face.h"
#include "desktop/settings_faces.h"
#include "desktop_test.h"
#include "feed/condition_file.h"
#include "shell/view_operations.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

using DialogFaces = DesktopTest;

TEST_F(DialogFaces, DirectorySettings) {
  user.On<DirSetupFace>([](DirSetupFace* face) {
    Type(face, "환경화일 DIR", "c:\\설정");
    Type(face, "작업 DIR", "c:\\work");
    Type(face, "AFA 조건 DIR", "c:\\afa");
    Type(face, "편집기(editor)", "ed");
    Click(face, "저장");
  });
  window->RunCommand(32789);
  EXPECT_EQ(app.configuration.EnvDir, "c:\\설정");
  EXPECT_EQ(app.configuration.WorkDir, "c:\\work");
  EXPECT_EQ(app.configuration.AFADir, "c:\\afa");
  EXPECT_EQ(app.configuration.Editor, "ed");
  EXPECT_NE(HostBytes(home / "drive_c/windows/tvx.cfg").find("WorkDir c:\\work\r\n"),
            std::string::npos);

  user.On<DirSetupFace>([](DirSetupFace* face) {
    Type(face, "작업 DIR", "c:\\other");
    Click(face, "취소");
  });
  window->RunCommand(32789);
  EXPECT_EQ(app.configuration.WorkDir, "c:\\work");
}

TEST_F(DialogFaces, DirectoryList) {
  const std::filesystem::path file = home.Put("drive_c/parts/a.nc", "");
  user.On<DirListFace>([](DirListFace* face) {
    auto* const list = face->findChild<QListWidget*>();
    Click(face, "수정");  // nothing is selected: nothing happens
    Click(face, "삭제");
    Click(face, "추가");
    EXPECT_EQ(list->count(), 1);
    Click(face, "추가");
    list->setCurrentRow(0);
    Click(face, "수정");
    EXPECT_EQ(list->item(0)->text(), "d:\\둘째");
    list->setCurrentRow(1);
    Click(face, "삭제");
    EXPECT_EQ(list->count(), 1);
    Click(face, "갱신");
    Click(face, "저장");
  });
  user.OnFile(file);
  user.OnFile(file);
  user.On<TextInputFace>([](TextInputFace* input) {
    auto* const edit = input->findChild<QLineEdit*>();
    EXPECT_EQ(edit->text(), "c:\\parts");
    Type(edit, "d:\\둘째");
    QTest::keyClick(edit, Qt::Key_Return);
  });
  window->RunCommand(32796);
  EXPECT_EQ(ListEntries(app.DirectoryList), (std::vector<std::string>{"d:\\둘째"}));
  EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/dirlist.txt"));

  user.On<DirListFace>([](DirListFace* face) {
    face->findChild<QListWidget*>()->setCurrentRow(0);
    Click(face, "수정");
    Click(face, "삭제");
    Click(face, "취소");
  });
  user.On<TextInputFace>([](TextInputFace* input) {
    Type(input->findChild<QLineEdit*>(), "c:\\dropped");
    Click(input, "Cancel");
  });
  window->RunCommand(32796);
  EXPECT_EQ(ListEntries(app.DirectoryList), (std::vector<std::string>{"d:\\둘째"}));
}

TEST_F(DialogFaces, EnvironmentOptions) {
  View().job.MetafileCreateChk = 1;
  View().job.IntNcdataFlg = 0;
  View().job.RapidFeed = 7000;
  const JobRecord before = View().job;
  const auto change = [](OptionFace* face) {
    EXPECT_EQ(ListOf(face, "최소 급속이송")->currentIndex(), -1);
    Click(face, "그림화일 생성");
    Click(face, "정수 Ncdata");
    Choose(face, "최소 급속이송", "20000");
    Type(face, "NCDATA확장자", "*.tap");
  };
  user.On<CommandPadFace>([](CommandPadFace* pad) { Click(pad, "설정"); });
  user.On<OptionFace>([&](OptionFace* face) {
    change(face);
    Click(face, "저장");
    EXPECT_TRUE(face->isVisible());
    Click(face, "Cancel");
  });
  OpenCommandPad(&View());
  EXPECT_EQ(Changes(before, View().job), "");
  EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/tvx.par"));

  user.On<CommandPadFace>([](CommandPadFace* pad) { Click(pad, "설정"); });
  user.On<OptionFace>([&](OptionFace* face) {
    change(face);
    Click(face, "OK");
  });
  OpenCommandPad(&View());
  EXPECT_EQ(Changes(before, View().job),
            "RapidFeed=20000 IntNcdataFlg=1 MetafileCreateChk=0 NcdataExt=*.tap");
}

TEST_F(DialogFaces, MasterInput) {
  const auto change = [](MasterFace* face, const char* button) {
    Type(face, "공구 직경", "6.5");
    Type(face, "가공 여유", "0.25");
    Type(face, "마스터 모델 공차", "2");
    Click(face, button);
  };
  user.On<MasterFace>([&](MasterFace* face) { change(face, "Cancel"); });
  window->RunCommand(32792);
  EXPECT_EQ(View().masterDialog.MasterToolDiameter, 10.0F);

  user.On<MasterFace>([&](MasterFace* face) { change(face, "OK"); });
  window->RunCommand(32792);
  EXPECT_EQ(View().masterDialog.MasterToolDiameter, 6.5F);
  EXPECT_EQ(View().masterDialog.MasterAllowance, 0.25F);
  EXPECT_EQ(View().masterDialog.MasterTolerance, 2.0F);
}

class ConditionFaces : public DesktopTest {
 protected:
  void OpenOptions() { window->RunCommand(32772); }
};

TEST_F(ConditionFaces, SendOptions) {
  const std::filesystem::path master = home.Put("drive_c/marlo/a.mma", "");
  View().job.ConCorChk = 0;
  View().job.UpDownChk = 1;
  const JobRecord before = View().job;
  user.On<SendOptionFace>([](SendOptionFace* face) {
    Type(face, "최대 피드", "2000");
    Type(face, "최저 피드", "500");
    Click(face, "정삭");
    Click(face, "Z 상하향 검색");
    Click(face, "Spindle");
    Type(face->findChildren<QLineEdit*>().at(2), "-3200");  // it has no range
    Click(face, "MMA : ");
    EXPECT_NE(ButtonOf(face, "MMA : c:\\marlo\\a.mma"), nullptr);
    Type(face, "최대 피드", "200000");
    Click(face, "OK");  // refused
    EXPECT_TRUE(face->isVisible());
    EXPECT_EQ(face->focusWidget(), EditOf(face, "최대 피드"));
    Type(face, "최대 피드", "2000");
    Click(face, "OK");
  });
  user.OnFile(master);
  user.On<QMessageBox>([](QMessageBox* message) { message->accept(); });
  user.On<QDialog>([](QDialog* information) { information->reject(); });
  OpenOptions();
  EXPECT_EQ(Changes(before, View().job),
            "AfaEnabled=1 CornerMaxRatio=0.25 SlopeMaxRatio=0.25 ConCorChk=1 UpDownChk=0 "
            "MaxFeed=2000 AfaMasterFile=c:\\marlo\\a.mma");
  EXPECT_EQ(app.sendOptions.SpindleOn, 1);
  EXPECT_EQ(app.sendOptions.SpindleSpeed, -3200);
}

TEST_F(ConditionFaces, AConditionFileFillsTheSendOptions) {
  JobRecord condition;
  condition.ConCorChk = 0;
  condition.MaxFeed = 800;
  condition.CornerMaxRatio = 0.5F;
  condition.SlopeMaxRatio = 0.75F;
  ASSERT_TRUE(WriteConditionFile("c:\\marlo\\afa\\a.afa", condition, 2500, files.get(), &ui));
  const JobRecord before = View().job;
  user.On<SendOptionFace>([](SendOptionFace* face) {
    const auto* const spindle = face->findChildren<QLineEdit*>().at(2);
    EXPECT_EQ(spindle->text(), "1000");
    EXPECT_TRUE(ButtonOf(face, "정삭")->isChecked());
    Click(face, "조건화일 :");
    EXPECT_NE(ButtonOf(face, "조건화일: a.afa"), nullptr);
    EXPECT_EQ(EditOf(face, "최저 피드")->text(), "400");
    EXPECT_EQ(EditOf(face, "최대 피드")->text(), "800");
    EXPECT_EQ(spindle->text(), "2500");
    EXPECT_FALSE(ButtonOf(face, "정삭")->isChecked());
    QTest::keyClick(face, Qt::Key_Escape);
  });
  user.OnFile(home / "drive_c/marlo/afa/a.afa");
  OpenOptions();
  EXPECT_EQ(Changes(before, View().job), "") << "a cancel hands nothing back";
}

TEST_F(ConditionFaces, TheBigButtonShowsTheConditionLineByLine) {
  user.On<SendOptionFace>([](SendOptionFace* face) {
    QAbstractButton* big = nullptr;
    for (QAbstractButton* const button : face->findChildren<QAbstractButton*>()) {
      if (button->text().startsWith("Afa조건:")) big = button;
    }
    ASSERT_NE(big, nullptr);
    EXPECT_EQ(big->text().count('\n'), 12);
    EXPECT_NE(big->text().indexOf("\n  최대피드  1500"), -1);
    Type(face, "최대 피드", "1600");
    EXPECT_NE(big->text().indexOf("\n  최대피드  1600"), -1);
    face->reject();
  });
  View().job.MaxFeed = 1500;
  OpenOptions();
}

// A folder such as "R&D" is named on the buttons as it is.
TEST_F(ConditionFaces, AnAmpersandIsNoKey) {
  View().job.Material = "A&B";
  View().job.AfaMasterFile = "c:\\R&D\\a.mma";
  user.On<SendOptionFace>([](SendOptionFace* face) {
    QString captions;
    for (const QAbstractButton* const button : face->findChildren<QAbstractButton*>()) {
      captions += button->text() + "\n";
    }
    EXPECT_TRUE(captions.contains("MMA : c:\\R&&D\\a.mma\n"));
    EXPECT_TRUE(captions.contains("  가공소재: A&&B\n"));
    face->reject();
  });
  OpenOptions();
}

TEST_F(ConditionFaces, MachiningCondition) {
  CAutoFeedDlg dialog(files.get(), &ui);
  JobRecord record;
  const auto change = [&](AutoFeedFace* face) {
    for (size_t i = 0; i + 1 < kAutoFeedFields; ++i) {
      Type(face, AutoFeedFields()[i].label, std::to_string(i + 11));
    }
    Type(face, "가공소재", "황동");
  };
  dialog.Open(&record);
  user.On<AutoFeedFace>([&](AutoFeedFace* face) {
    change(face);
    Click(face, "Cancel");
  });
  EXPECT_FALSE(ui.RunModal(&dialog));
  EXPECT_EQ(Changes(JobRecord(), record), "");

  dialog.Open(&record);
  user.On<AutoFeedFace>([&](AutoFeedFace* face) {
    change(face);
    Click(face, "조건저장");
    Click(face, "OK");
  });
  const std::filesystem::path file = home / "drive_c/marlo/afa/saved.afa";
  user.OnFile(file);
  EXPECT_TRUE(ui.RunModal(&dialog));
  constexpr char kChanges[] =
      "ToolDiameter=11 SafetyDistance=12 CornerMinAngle=13 CornerMaxRatio=14 SlopeMinAngle=15 "
      "SlopeMaxRatio=16 MaxFeed=18 PlungeFeed=17 Material=황동";
  EXPECT_EQ(Changes(JobRecord(), record), kChanges);

  // What was saved comes back through the button that names the file.
  record = JobRecord();
  dialog.Open(&record);
  user.On<AutoFeedFace>([](AutoFeedFace* face) {
    Click(face, "가공조건 화일 :");
    EXPECT_EQ(EditOf(face, "최대피드")->text(), "18");
    EXPECT_NE(ButtonOf(face, "가공조건 화일 : saved.afa"), nullptr);
    Click(face, "OK");
  });
  user.OnFile(file);
  EXPECT_TRUE(ui.RunModal(&dialog));
  EXPECT_EQ(Changes(JobRecord(), record), kChanges);
}

TEST_F(ConditionFaces, FinerSettings) {
  CAfaSetupDlg dialog(&ui);
  JobRecord record;
  record.AfaMasterFile = "c:\\a.mma";
  const JobRecord before = record;
  const auto change = [](AfaSetupFace* face) {
    Click(face, CAfaSetupDlg::kAfaByMaster);
    Click(face, CAfaSetupDlg::kXyChgReduce);
    Click(face, CAfaSetupDlg::kFeedChgSmooth);
    Type(face, CAfaSetupDlg::kZupZdown, "0.5");
    Type(face, CAfaSetupDlg::kFeedChgAng, "25");
    const auto sliders = face->findChildren<QSlider*>();
    EXPECT_EQ(sliders.size(), qsizetype{kWeightSliders});
    for (qsizetype i = 0; i < sliders.size(); ++i) Drag(sliders[i], static_cast<int>(i) + 21);
  };
  dialog.Open(&record);
  user.On<AfaSetupFace>([&](AfaSetupFace* face) {
    change(face);
    Click(face, "Cancel");
  });
  EXPECT_FALSE(ui.RunModal(&dialog));
  const std::string atOnce =
      "CorWeight0=0.21 CorWeight30=0.22 CorWeight60=0.23 SideWeight0=0.24 SideWeight30=0.25 "
      "SideWeight60=0.26";
  EXPECT_EQ(Changes(before, record), atOnce + " AfaByMaster=1")
      << "the switch and the sliders outlast a cancel";

  record = before;
  dialog.Open(&record);
  user.On<AfaSetupFace>([&](AfaSetupFace* face) {
    change(face);
    Type(face, CAfaSetupDlg::kFeedChgAng, "x");
    Click(face, "OK");  // refused
    EXPECT_EQ(face->focusWidget(), EditOf(face, CAfaSetupDlg::kFeedChgAng));
    Type(face, CAfaSetupDlg::kFeedChgAng, "25");
    Click(face, "OK");
  });
  user.On<QMessageBox>([](QMessageBox* message) { message->accept(); });
  EXPECT_TRUE(ui.RunModal(&dialog));
  EXPECT_EQ(Changes(before, record), "FeedChgSmoothCheck=1 XyChgReduceCheck=1 FeedChgAng=25 " +
                                         atOnce + " ZupZdown=0.5 AfaByMaster=1");
}

TEST_F(ConditionFaces, TheDialogsAreReachedFromTheSendOptions) {
  user.On<SendOptionFace>([](SendOptionFace* face) {
    for (QAbstractButton* const button : face->findChildren<QAbstractButton*>()) {
      if (button->text().startsWith("Afa조건:")) button->click();
    }
    EXPECT_EQ(EditOf(face, "최대 피드")->text(), "1700");
    Click(face, "Set");
    Click(face, "GetFeed");
    EXPECT_EQ(EditOf(face, "최대 피드")->text().toInt() > 0, true);
    face->reject();
  });
  user.On<AutoFeedFace>([](AutoFeedFace* face) {
    Type(face, "최대피드", "1700");
    Click(face, "OK");
  });
  user.On<AfaSetupFace>([](AfaSetupFace* face) { Click(face, "OK"); });
  user.On<CalculatorFace>([](CalculatorFace* face) { Click(face, "확인"); });
  OpenOptions();
  EXPECT_EQ(View().job.AfaEnabled, 0);
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
    Click(face, "Z 영역");
    Click(face, "OK");
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
    Choose(face, "가공소재", "SKD61");
    Choose(face, "공구 재질", CGetFeedDlg::ToolMaterialEntries().front());
    Choose(face, "공구 날수", "4");
    const struct {
      const char* label;
      const char* text;
    } numbers[] = {{"공구 직경", "12"},      {"공구 길이", "60"},         {"공구 날길이", "40"},
                   {"Stepover", "1.5"},      {"절삭 깊이", "2.5"},        {"최대 FEED", "9000"},
                   {"최대 회전수", "11000"}, {"무부하 POWER(KW)", "3.5"}, {"NC POWER (KW)", "25"}};
    for (const auto& number : numbers) Type(face, number.label, number.text);
    for (const char* const result : {"Spindle 회전수", "이송 속도", "분당 절삭량"}) {
      EXPECT_TRUE(EditOf(face, result)->isReadOnly()) << result;
    }
    Click(face, "고속황삭");
    const auto sliders = face->findChildren<QSlider*>();
    ASSERT_EQ(sliders.size(), 2);
    Drag(sliders[0], 120);
    Drag(sliders[1], 80);
    // The fields stand in the group of what they are about.
    const auto group = [&](const char* label) { return EditOf(face, label)->parentWidget(); };
    EXPECT_EQ(group("공구 직경"), group("절삭 깊이"));
    EXPECT_EQ(group("공구 직경"), sliders[0]->parentWidget());
    EXPECT_EQ(group("공구 직경"), sliders[1]->parentWidget());
    EXPECT_EQ(group("공구 직경"), ButtonOf(face, "고속황삭")->parentWidget());
    EXPECT_EQ(group("최대 FEED"), group("NC POWER (KW)"));
    EXPECT_EQ(group("이송 속도"), group("Spindle 회전수"));
    EXPECT_NE(group("공구 직경"), group("최대 FEED"));
    EXPECT_NE(group("이송 속도"), group("최대 FEED"));
    Type(face, "절삭 깊이", "1000");
    Click(face, "확인");  // refused
    EXPECT_EQ(face->focusWidget(), EditOf(face, "절삭 깊이"));
    Type(face, "절삭 깊이", "2.5");
    Click(face, "확인");
  });
  user.On<QMessageBox>([](QMessageBox* message) { message->accept(); });
  EXPECT_TRUE(ui.RunModal(&dialog));
  const GetFeedState& state = dialog.state;
  EXPECT_EQ(state.workMaterial, "SKD61");
  EXPECT_EQ(state.toolMaterial, CGetFeedDlg::ToolMaterialEntries().front());
  EXPECT_EQ(state.fluteCount, 4);
  EXPECT_EQ(state.toolDiameter, 12.0F);
  EXPECT_EQ(state.toolLength, 60.0F);
  EXPECT_EQ(state.fluteLength, 40.0F);
  EXPECT_EQ(state.stepover, 1.5F);
  EXPECT_EQ(state.cutDepth, 2.5F);
  EXPECT_EQ(state.maxFeedRate, 9000.0F);
  EXPECT_EQ(state.maxSpindle, 11000.0F);
  EXPECT_EQ(state.idlePower, 3.5F);
  EXPECT_EQ(state.ncPower, 25.0F);
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
