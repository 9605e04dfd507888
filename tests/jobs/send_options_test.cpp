// The dialog of the send options.
#include "jobs/send_options.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "base/format.h"
#include "conditions/condition_file.h"
#include "getfeed/calculator_dialog.h"
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
  bool ConditionHas(const char* text) const {
    return dialog.conditionText.find(text) != std::string::npos;
  }

  MemoryFiles files;
  ScriptedUi ui;
  JobRecord source;
  CSendOptionDlg dialog{&files, &ui};
};

TEST_F(SendOptions, FirstOpeningTakesTheSourceOver) {
  source.PlungeFeed = 77;
  source.AfaMasterFile = "c:\\a.mma";
  source.UpDownChk = 0;
  source.CornerMaxRatio = 0.7F;
  dialog.Open(&source);
  // In double precision 1000 x 0.7 would be truncated to 699.
  EXPECT_EQ(Feeds(), "700 1000 max 1000 corner 0.7 slope 1");
  EXPECT_EQ(dialog.own.PlungeFeed, 1000);
  EXPECT_EQ(dialog.masterCaption, "MMA : c:\\a.mma");
  EXPECT_EQ(dialog.conditionFileCaption, "조건화일 :");
  EXPECT_EQ(dialog.conditionText,
            "Afa조건:\r\n  공구직경 10.0\r\n  안전거리 5.0\r\n  코너최소각도 10.0\r\n"
            "  코너최대감속비 0.70\r\n  경사최소각도 10.0\r\n  경사최대감속비 1.00\r\n"
            "  볼록코너검색 ON\r\n  Z상하향검색 OFF\r\n  가공소재: STEEL(S45C)\r\n"
            "  최대피드  1000\r\n  접근피드  1000\r\n");
  EXPECT_EQ(ConditionButtonText(source, Language::kKorean),
            "Afa조건: 공구직경 10.0, 안전거리 5.0\r\n 코너최소각도 10.0, 코너최대감속비 0.70\r\n"
            " 경사최소각도 10.0, 경사최대감속비 0.10\r\n 볼록코너검색 ON Z상하향검색 OFF\r\n"
            " 가공소재: STEEL(S45C)  최대피드  1000\n 접근피드  77");
  const std::string english = "Afa: ToolDia 10.0, SafeDist 5.0\r\n";
  EXPECT_TRUE(ConditionButtonText(source, Language::kEnglish).starts_with(english));
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

TEST_F(SendOptions, OkCopiesBackAndCancelSwitchesOff) {
  const JobRecord before = source;
  dialog.Open(&source);
  dialog.EditTopFeed("2000");
  dialog.EditSpindleSpeed("-70000");  // it has no range
  dialog.ToggleConCorChk();
  dialog.ToggleUpDownChk();
  dialog.ToggleSpindle();
  EXPECT_EQ(Changes(before, source), "");
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(before, source),
            "AfaEnabled=1 CornerMaxRatio=0.05 ConCorChk=0 UpDownChk=0 MaxFeed=2000");
  EXPECT_EQ(dialog.own.AfaEnabled, 1);
  EXPECT_EQ(dialog.SpindleSpeed, -70000);
  EXPECT_EQ(dialog.SpindleOn, 1);

  // A later OK brings back no older list, directory, rapid feed or restart: what the dialog does
  // not show is the source's. It once took the accepted list away.
  const JobRecord first = source;
  const std::string changed =
      "RapidFeed=9000 FirstEditable=3 DeleteM30=1 WorkDir=c:\\other NcdataExt=*.tap KeyCodeText=S1 "
      "ConditionDir=c:\\afa RapidShown=0 RestartOn=1 RestartZMin=-3";
  source = Record(changed);
  source.FileNames[0] = "a.nc";
  dialog.Open(&source);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(std::exchange(source.FileNames[0], ""), "a.nc");
  EXPECT_EQ(Changes(first, source), changed);

  const JobRecord second = source;
  dialog.EditTopFeed("3000");
  dialog.own.PlungeFeed = 50;
  EXPECT_EQ(dialog.Cancel(), Closing::kCancelled);
  EXPECT_EQ(Changes(second, source), "AfaEnabled=0");
  EXPECT_EQ(dialog.own.AfaEnabled, 0);

  // The next opening shows the values of the last one. The job dialog overwrites the own record
  // when it opens; the feeds keep their values.
  source.MaxFeed = 400;
  dialog.Open(&source);
  EXPECT_EQ(Feeds().substr(0, 17), "100 3000 max 3000");
  EXPECT_EQ(dialog.own.PlungeFeed, 50);
  CopyJobRecord(1, &dialog.own, source);
  dialog.Open(&source);
  EXPECT_EQ(Feeds().substr(0, 17), "100 3000 max 3000");
  EXPECT_EQ(dialog.own.PlungeFeed, 1000);
}

TEST_F(SendOptions, OkRefusesFeedOutOfRange) {
  const std::array<const char*, 3> cases[] = {{"-1", "1000", "MinFeed"},
                                              {"100001", "-1", "MinFeed"},
                                              {"0", "100001", "TopFeed"},
                                              {"0", "99999999999999999999", "TopFeed"},
                                              {"100000", "0", ""}};
  dialog.Open(&source);
  for (const auto& [minFeed, topFeed, refused] : cases) {
    dialog.EditMinFeed(minFeed);
    dialog.EditTopFeed(topFeed);
    const bool accepted = dialog.Accept() == Closing::kAccepted;
    EXPECT_EQ(dialog.refusedField, refused);
    EXPECT_EQ(accepted, dialog.refusedField.empty());
    EXPECT_EQ(source.AfaEnabled, accepted ? 1 : 0);
  }
  EXPECT_EQ(ui.messages.size(), 4U);
}

TEST_F(SendOptions, ConditionSetsTheFeedsAndKeepsItsRatios) {
  dialog.SpindleSpeed = 1234;
  dialog.SpindleOn = 1;
  dialog.Open(&source);
  ui.OnDialog<CAutoFeedDlg>([](CAutoFeedDlg* condition) {
    EXPECT_EQ(condition->SpindleSpeed, 1234);
    condition->Edit(3, "0.3");
    condition->Edit(5, "0.2");
    condition->Edit(6, "40");
    condition->SpindleSpeed = 4321;
    return condition->Accept() == Closing::kAccepted;
  });
  dialog.OpenCondition();
  // The smaller ratio determines the lowest feed; nothing is recomputed before an edit.
  EXPECT_EQ(Feeds(), "200 1000 max 1000 corner 0.3 slope 0.2");
  EXPECT_EQ(dialog.spindleText, "4321");
  EXPECT_EQ(dialog.SpindleOn, 1);
  EXPECT_TRUE(ConditionHas("접근피드  40"));
  dialog.EditMinFeed("200");
  EXPECT_EQ(Feeds(), "200 1000 max 1000 corner 0.2 slope 0.4");
}

TEST_F(SendOptions, CancelledDialogChangesNothingButWeights) {
  dialog.Open(&source);
  dialog.own.CornerMaxRatio = 0.3F;
  dialog.own.MaxFeed = 500;
  const std::string before = Feeds() + dialog.conditionText;
  for (const auto open : {&CSendOptionDlg::OpenCondition, &CSendOptionDlg::OpenSetup,
                          &CSendOptionDlg::OpenCalculator}) {
    ui.OnDialog([](Dialog* opened) {
      if (auto* const condition = dynamic_cast<CAutoFeedDlg*>(opened)) condition->Edit(3, "0.9");
      if (auto* const setup = dynamic_cast<CAfaSetupDlg*>(opened)) setup->ReleaseSlider(1, 40);
      if (auto* const feed = dynamic_cast<CGetFeedDlg*>(opened)) feed->Change("toolDiameter", "8");
      return false;
    });
    (dialog.*open)();
    EXPECT_EQ(Feeds() + dialog.conditionText, before);
    EXPECT_EQ(dialog.SpindleSpeed, 1000);
  }
  EXPECT_EQ(dialog.own.CorWeight30, 0.4F) << "the sliders of the setup act at once";
  ui.OnDialog([](Dialog*) { return true; });
  dialog.OpenSetup();
  EXPECT_EQ(dialog.own.SlopeMaxRatio, 0.6F) << "an accepted setup derives the ratio";
}

TEST_F(SendOptions, ConditionFileIsReadOrLeavesAllAsItWas) {
  const JobRecord other = Record("MaxFeed=800 CornerMaxRatio=0.5 SlopeMaxRatio=0.7 ConCorChk=0");
  ASSERT_TRUE(WriteConditionFile("c:\\marlo\\afa\\금형 a.afa", other, 2500, &files).ok());
  dialog.Open(&source);
  // Neither a cancel nor a file that cannot be opened changes the record or shows a message.
  for (const char* path : {"c:\\marlo\\afa\\금형 a.afa", "", "c:\\none.afa"}) {
    *path != '\0' ? ui.OnFile(path) : ui.OnFileCancel();
    dialog.ChooseConditionFile();
    const bool read = ui.fileQuestions.size() == 1;
    EXPECT_EQ(dialog.conditionFileCaption, read ? "조건화일: 금형 a.afa" : "조건화일: ");
    EXPECT_EQ(Feeds(), "400 800 max 800 corner 0.5 slope 0.7") << path;
    EXPECT_EQ(dialog.spindleText, "2500");
    EXPECT_TRUE(ConditionHas("볼록코너검색 OFF"));
  }
  EXPECT_EQ(ui.fileQuestions.front().fileName, "c:\\marlo\\afa\\*.afa");
  EXPECT_FALSE(ui.fileQuestions.front().save);
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SendOptions, MasterPathGetsItsEnding) {
  dialog.Open(&source);
  const std::pair<std::string, std::string> cases[] = {{"c:\\a.mma", "c:\\a.mma"},
                                                       {"c:\\a.nc", "c:\\a.nc.mma"},
                                                       {"c:\\mma\\a.nc", "c:\\mma\\a.nc"},
                                                       {"c:\\A.MMA", "c:\\A.MMA.mma"}};
  for (const auto& [chosen, master] : cases) {
    ui.OnFile(chosen);
    dialog.ChooseMaster();
    EXPECT_EQ(dialog.own.AfaMasterFile, master);
    EXPECT_EQ(dialog.masterCaption, "MMA : " + master);
  }
  EXPECT_EQ(ui.fileQuestions.back().fileName, "c:\\marlo\\ncdata");
  EXPECT_EQ(ui.fileQuestions.back().defaultExtension, "mma");
  ui.OnFileCancel();
  dialog.ChooseMaster();
  EXPECT_EQ(dialog.masterCaption + dialog.own.AfaMasterFile, "MMA :");
  EXPECT_EQ(dialog.own.AfaByMaster, 0);
}

TEST_F(SendOptions, CalculatorSetsFeedSpindleAndMaterial) {
  dialog.Open(&source);
  ui.OnDialog<CGetFeedDlg>([](CGetFeedDlg* calculator) {
    EXPECT_EQ(calculator->state.toolDiameter, 10.0F);
    EXPECT_EQ(calculator->state.workMaterial, "KP4");  // it does not know the record's
    return calculator->Accept() == Closing::kAccepted;
  });
  dialog.OpenCalculator();
  EXPECT_EQ(Feeds().substr(0, 19), "100   440 max 440 c");
  EXPECT_EQ(dialog.spindleText, "1375");
  EXPECT_TRUE(ConditionHas("가공소재: KP4\r\n  최대피드  440"));
}

}  // namespace
}  // namespace tvx
