#include "jobs/send_options.h"

#include <gtest/gtest.h>

#include "feed/condition_file.h"
#include "getfeed/calculator_dialog.h"
#include "model/labels.h"
#include "platform/format.h"
#include "support/memory_files.h"
#include "support/record_changes.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class SendOptions : public testing::Test {
 protected:
  SendOptions() {
    source.ConditionDir = "c:\\marlo\\afa";
    source.WorkDir = "c:\\marlo\\ncdata";
    source.SideCorRat = 2;
  }

  // The two feeds and what follows from them.
  std::string Feeds() const {
    return dialog.minFeedText + " " + dialog.topFeedText + " max " +
           Format("%d", dialog.own.MaxFeed) + " corner " +
           ShortestFloat(dialog.own.CornerMaxRatio) + " slope " +
           ShortestFloat(dialog.own.SlopeMaxRatio);
  }

  void PutCondition(const std::string& path, const JobRecord& job, int32_t spindle) {
    ASSERT_TRUE(WriteConditionFile(path, job, spindle, &files, &ui));
  }

  MemoryFiles files;
  ScriptedUi ui;
  JobRecord source;
  CSendOptionDlg dialog{&files, &ui};
};

TEST_F(SendOptions, FirstOpeningTakesTheSourceOver) {
  source.PlungeFeed = 77;
  source.AfaMasterFile = "c:\\a.mma";
  dialog.Open(&source);
  EXPECT_EQ(Feeds(), "100 1000 max 1000 corner 0.1 slope 0.2");
  EXPECT_EQ(dialog.own.PlungeFeed, 1000);
  EXPECT_EQ(dialog.masterCaption, "MMA : c:\\a.mma");
  EXPECT_EQ(dialog.conditionFileCaption, "조건화일 :");
  EXPECT_EQ(dialog.conditionText,
            "Afa조건:\r\n  공구직경 10.0\r\n  안전거리 5.0\r\n  코너최소각도 10.0\r\n"
            "  코너최대감속비 0.10\r\n  경사최소각도 10.0\r\n  경사최대감속비 0.20\r\n"
            "  볼록코너검색 ON\r\n  Z상하향검색 ON\r\n  가공소재: STEEL(S45C)\r\n"
            "  최대피드  1000\r\n  접근피드  1000\r\n");
}

// The product is rounded to single precision before the fraction goes: 1000 x 0.7 is 700.
TEST_F(SendOptions, LowestFeedIsRoundedAsAFloat) {
  source.CornerMaxRatio = 0.7F;
  dialog.Open(&source);
  EXPECT_EQ(dialog.minFeedText, "700");
}

TEST_F(SendOptions, EditsMoveTheRatios) {
  dialog.Open(&source);
  const struct {
    bool top;
    const char* text;
    const char* feeds;
  } edits[] = {
      {true, "2000", "100 2000 max 2000 corner 0.05 slope 0.1"},
      {false, "500", "500 2000 max 2000 corner 0.25 slope 0.5"},
      {false, "1500", "1500 2000 max 2000 corner 0.75 slope 1"},
      {true, "", "1500  max 0 corner 0.75 slope 1"},  // the ratios wait for a feed
      {false, "abc", "abc  max 0 corner 0.75 slope 1"},
      {true, "-5", "abc -5 max -5 corner 0.75 slope 1"},
      {true, "800.9", "abc 800.9 max 800 corner 0 slope 0"},
  };
  for (const auto& edit : edits) {
    edit.top ? dialog.EditTopFeed(edit.text) : dialog.EditMinFeed(edit.text);
    EXPECT_EQ(Feeds(), edit.feeds) << edit.text;
  }
}

TEST_F(SendOptions, LaterOpeningsShowWhatTheLastOneLeft) {
  dialog.Open(&source);
  dialog.EditTopFeed("3000");
  dialog.own.PlungeFeed = 50;
  EXPECT_EQ(dialog.Cancel(), Closing::kCancelled);
  source.MaxFeed = 400;
  source.CornerMaxRatio = 0.5F;
  dialog.Open(&source);
  EXPECT_EQ(Feeds().substr(0, 17), "100 3000 max 3000");
  EXPECT_EQ(dialog.own.PlungeFeed, 50);
  // The job dialog overwrites the own record at its opening; the feeds still win.
  CopyJobRecord(1, &dialog.own, source);
  dialog.Open(&source);
  EXPECT_EQ(Feeds().substr(0, 17), "100 3000 max 3000");
  EXPECT_EQ(dialog.own.PlungeFeed, 1000);
}

TEST_F(SendOptions, OkHandsBackAndCancelSwitchesOff) {
  source.AfaEnabled = 0;
  dialog.Open(&source);
  dialog.EditTopFeed("2000");
  dialog.ToggleConCorChk();
  dialog.ToggleUpDownChk();
  EXPECT_EQ(source.MaxFeed, 1000);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(source.MaxFeed, 2000);
  EXPECT_EQ(source.ConCorChk, 0);
  EXPECT_EQ(source.UpDownChk, 0);
  EXPECT_EQ(source.AfaEnabled, 1);
  EXPECT_EQ(dialog.own.AfaEnabled, 1);

  dialog.Open(&source);
  dialog.EditTopFeed("5000");
  EXPECT_EQ(dialog.Cancel(), Closing::kCancelled);
  EXPECT_EQ(source.AfaEnabled, 0);
  EXPECT_EQ(dialog.own.AfaEnabled, 0);
  EXPECT_EQ(source.MaxFeed, 2000);
}

// An OK hands the whole own record back, also over what the source has become since it was taken
// over. Only the fields that no copy carries keep what the source has.
TEST_F(SendOptions, ALaterOkHandsTheWholeOwnRecordBack) {
  dialog.Open(&source);
  dialog.Accept();
  const JobRecord first = source;
  source.RapidFeed = 9000;
  source.FirstEditable = 3;
  source.WorkDir = "c:\\other";
  source.NcdataExt = "*.tap";
  source.KeyCodeText = "S1\r\n";
  source.ConditionDir = "c:\\afa";
  source.RapidShown = 0;
  source.FileNames[0] = "a.nc";
  source.RestartOn = 1;
  source.RestartZMin = -3;
  dialog.Open(&source);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(first, source),
            "FirstEditable=3 KeyCodeText=S1\r\n ConditionDir=c:\\afa RapidShown=0");
}

TEST_F(SendOptions, OkRefusesAFeedOutOfRange) {
  const struct {
    const char* minFeed;
    const char* topFeed;
    const char* refused;
  } cases[] = {{"-1", "1000", "MinFeed"},
               {"100001", "-1", "MinFeed"},
               {"0", "100001", "TopFeed"},
               {"0", "99999999999999999999", "TopFeed"},
               {"100000", "0", ""}};
  for (const auto& c : cases) {
    dialog.Open(&source);
    dialog.EditMinFeed(c.minFeed);
    dialog.EditTopFeed(c.topFeed);
    ui.messages.clear();
    const bool accepted = *c.refused == '\0';
    EXPECT_EQ(dialog.Accept(), accepted ? Closing::kAccepted : Closing::kStaysOpen) << c.topFeed;
    EXPECT_EQ(dialog.refusedField, c.refused);
    EXPECT_EQ(ui.messages.size(), accepted ? 0U : 1U);
    EXPECT_EQ(source.AfaEnabled, accepted ? 1 : 0);
  }
}

TEST_F(SendOptions, ConditionDialogAccepted) {
  dialog.SpindleSpeed = 1234;
  dialog.SpindleOn = 1;
  dialog.Open(&source);
  ui.OnDialog<CAutoFeedDlg>([&](CAutoFeedDlg* condition) {
    EXPECT_EQ(condition->SpindleSpeed, 1234);
    condition->Edit(3, "0.3");
    condition->Edit(5, "0.2");
    condition->Edit(6, "40");
    condition->SpindleSpeed = 4321;
    return condition->Accept() == Closing::kAccepted;
  });
  dialog.OpenCondition();
  // The lowest feed is that of the smaller ratio, and nothing is recomputed yet.
  EXPECT_EQ(Feeds(), "200 1000 max 1000 corner 0.3 slope 0.2");
  EXPECT_EQ(dialog.spindleText, "4321");
  EXPECT_EQ(dialog.SpindleOn, 1);
  EXPECT_NE(dialog.conditionText.find("접근피드  40"), std::string::npos);
  dialog.EditMinFeed("200");
  EXPECT_EQ(Feeds(), "200 1000 max 1000 corner 0.2 slope 0.4");
}

TEST_F(SendOptions, ConditionDialogCancelled) {
  JobRecord other;
  other.SideCorRat = 5;
  other.MaxFeed = 300;
  PutCondition("c:\\other.afa", other, 99);
  dialog.Open(&source);
  const std::string before = Feeds() + dialog.conditionText;
  ui.OnFile("c:\\other.afa");
  ui.OnDialog<CAutoFeedDlg>([](CAutoFeedDlg* condition) {
    condition->ReadFile();
    EXPECT_EQ(condition->texts[7], "300");
    return false;
  });
  dialog.OpenCondition();
  EXPECT_EQ(Feeds() + dialog.conditionText, before);
  EXPECT_EQ(dialog.own.SideCorRat, 2.0F);
  EXPECT_EQ(dialog.SpindleSpeed, 1000);
}

TEST_F(SendOptions, ConditionFile) {
  JobRecord other;
  other.MaxFeed = 800;
  other.CornerMaxRatio = 0.5F;
  other.SlopeMaxRatio = 0.7F;
  other.ConCorChk = 0;
  PutCondition("c:\\marlo\\afa\\금형 a.afa", other, 2500);
  dialog.Open(&source);
  ui.OnFile("c:\\marlo\\afa\\금형 a.afa");
  dialog.ChooseConditionFile();
  EXPECT_EQ(ui.fileQuestions.back().fileName, "c:\\marlo\\afa\\*.afa");
  EXPECT_FALSE(ui.fileQuestions.back().save);
  EXPECT_EQ(dialog.conditionFileCaption, "조건화일: 금형 a.afa");
  EXPECT_EQ(Feeds(), "400 800 max 800 corner 0.5 slope 0.7");
  EXPECT_EQ(dialog.spindleText, "2500");
  EXPECT_NE(dialog.conditionText.find("볼록코너검색 OFF"), std::string::npos);

  // Neither a cancel nor a file that does not open changes the record or says anything.
  ui.OnFileCancel();
  ui.OnFile("c:\\none.afa");
  for (int i = 0; i < 2; ++i) {
    dialog.ChooseConditionFile();
    EXPECT_EQ(dialog.conditionFileCaption, "조건화일: ");
    EXPECT_EQ(Feeds(), "400 800 max 800 corner 0.5 slope 0.7");
  }
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SendOptions, OddConditionFiles) {
  files.Put("c:\\empty.afa", "");
  files.Put("c:\\binary.afa", std::string("\xFF\0\x80 \xC7\n\xFE", 7));
  files.Put("c:\\short.afa", "x 8 y");
  files.Put("c:\\huge.afa", "a 1e99 b nan c -1e-99 d 1 e 1 f 1 g 99999999999 h -99999999999 i j");
  dialog.Open(&source);
  for (const char* path : {"c:\\empty.afa", "c:\\binary.afa"}) {
    ui.OnFile(path);
    dialog.ChooseConditionFile();
    EXPECT_EQ(Feeds(), "100 1000 max 1000 corner 0.1 slope 0.2") << path;
  }
  ui.OnFile("c:\\short.afa");
  dialog.ChooseConditionFile();
  EXPECT_EQ(dialog.own.ToolDiameter, 8.0F);
  EXPECT_EQ(dialog.own.SafetyDistance, 5.0F);
  ui.OnFile("c:\\huge.afa");
  dialog.ChooseConditionFile();
  EXPECT_EQ(dialog.topFeedText, "-2147483648");
  EXPECT_EQ(dialog.Accept(), Closing::kStaysOpen);
}

TEST_F(SendOptions, SetupDialog) {
  source.AfaMasterFile = "c:\\a.mma";
  dialog.Open(&source);
  dialog.own.CornerMaxRatio = 0.3F;
  const std::string before = Feeds();
  ui.OnDialog<CAfaSetupDlg>([&](CAfaSetupDlg* setup) {
    setup->ReleaseSlider(1, 40);
    setup->ToggleMaster();
    return false;
  });
  dialog.OpenSetup();
  EXPECT_EQ(dialog.own.CorWeight30, 0.4F);  // outlasts the cancel
  EXPECT_EQ(dialog.own.AfaByMaster, 1);
  EXPECT_EQ(Feeds(), before);
  ui.OnDialog<CAfaSetupDlg>(
      [](CAfaSetupDlg* setup) { return setup->Accept() == Closing::kAccepted; });
  dialog.OpenSetup();
  EXPECT_EQ(dialog.own.SlopeMaxRatio, 0.6F);
}

TEST_F(SendOptions, MasterFile) {
  dialog.Open(&source);
  const struct {
    const char* chosen;
    const char* file;
    const char* caption;
  } cases[] = {
      {"c:\\a.mma", "c:\\a.mma", "MMA : c:\\a.mma"},
      {"c:\\a.nc", "c:\\a.nc.mma", "MMA : c:\\a.nc.mma"},
      {"c:\\mma\\a.nc", "c:\\mma\\a.nc", "MMA : c:\\mma\\a.nc"},
      {"c:\\A.MMA", "c:\\A.MMA.mma", "MMA : c:\\A.MMA.mma"},
      {nullptr, "", "MMA :"},
  };
  for (const auto& c : cases) {
    c.chosen != nullptr ? ui.OnFile(c.chosen) : ui.OnFileCancel();
    dialog.ChooseMaster();
    EXPECT_EQ(dialog.own.AfaMasterFile, c.file);
    EXPECT_EQ(dialog.masterCaption, c.caption);
    EXPECT_EQ(dialog.own.AfaByMaster, 0);
  }
  EXPECT_EQ(ui.fileQuestions.back().fileName, "c:\\marlo\\ncdata");
  EXPECT_EQ(ui.fileQuestions.back().defaultExtension, "mma");
}

TEST_F(SendOptions, Calculator) {
  dialog.Open(&source);
  const std::string before = Feeds() + dialog.conditionText;
  ui.OnDialog<CGetFeedDlg>([](CGetFeedDlg* calculator) {
    EXPECT_EQ(calculator->state.toolDiameter, 10.0F);
    EXPECT_EQ(calculator->state.workMaterial, "KP4");  // it does not know the record's
    EXPECT_EQ(calculator->Change("toolDiameter", "8"), true);
    return false;
  });
  dialog.OpenCalculator();
  EXPECT_EQ(Feeds() + dialog.conditionText, before);

  ui.OnDialog<CGetFeedDlg>(
      [](CGetFeedDlg* calculator) { return calculator->Accept() == Closing::kAccepted; });
  dialog.OpenCalculator();
  EXPECT_EQ(dialog.own.Material, "KP4");
  EXPECT_EQ(dialog.TopFeed, 440);
  EXPECT_EQ(Feeds().substr(0, 19), "100   440 max 440 c");
  EXPECT_EQ(dialog.spindleText, "1375");
  EXPECT_NE(dialog.conditionText.find("가공소재: KP4\r\n  최대피드  440"), std::string::npos);
}

TEST_F(SendOptions, SpindleHasNoRange) {
  dialog.Open(&source);
  dialog.EditSpindleSpeed("-70000");
  dialog.ToggleSpindle();
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(dialog.SpindleSpeed, -70000);
  EXPECT_EQ(dialog.SpindleOn, 1);
}

TEST_F(SendOptions, ButtonTextOfTheJobDialog) {
  source.UpDownChk = 0;
  EXPECT_EQ(ConditionButtonText(source),
            "Afa조건: 공구직경 10.0, 안전거리 5.0\r\n 코너최소각도 10.0, 코너최대감속비 0.10\r\n"
            " 경사최소각도 10.0, 경사최대감속비 0.10\r\n 볼록코너검색 ON Z상하향검색 OFF\r\n"
            " 가공소재: STEEL(S45C)  최대피드  1000\n 접근피드  1000");
  LabelLanguage = kEnglishLabels;
  EXPECT_EQ(ConditionButtonText(source).substr(0, 44),
            "Afa: ToolDia 10.0, SafeDist 5.0\r\n CorChkMinA");
  LabelLanguage = kKoreanLabels;
}

}  // namespace
}  // namespace tvx
