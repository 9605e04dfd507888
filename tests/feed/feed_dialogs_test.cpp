// The dialogs of the feed settings.
#include <gtest/gtest.h>

#include "feed/afa_setup_dialog.h"
#include "feed/auto_feed_dialog.h"
#include "shell/option_dialog.h"
#include "support/memory_files.h"
#include "support/record_changes.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

struct Dialogs : testing::Test {
  MemoryFiles files;
  ScriptedUi ui;
  JobRecord job;
};

struct AfaSetupDialog : Dialogs {
  CAfaSetupDlg dialog{&ui};
};

struct AutoFeedDialog : Dialogs {
  CAutoFeedDlg dialog{&files, &ui};
};

struct OptionDialog : Dialogs {
  COptionDlg dialog{&files, &ui};
};

TEST_F(AfaSetupDialog, SlidersShowTheirWeight) {
  const struct {
    float weight;
    int position;
    const char* caption;
  } cases[] = {
      {1, 100, "30도 가중치(1.00)"},    {0.7F, 69, "30도 가중치(0.70)"},
      {0, 0, "30도 가중치(0.00)"},      {1.5F, 100, "30도 가중치(1.50)"},
      {-0.5F, 0, "30도 가중치(-0.50)"}, {0.125F, 12, "30도 가중치(0.12)"},
  };
  dialog.Open(&job);
  for (const auto& c : cases) {
    job.CorWeight30 = c.weight;
    EXPECT_EQ(dialog.Position(1), c.position) << c.weight;
    EXPECT_EQ(dialog.Caption(1), c.caption);
    EXPECT_EQ(job.CorWeight30, c.weight);  // looking at it changes nothing
  }
}

TEST_F(AfaSetupDialog, SlidersSetTheirWeightAtOnce) {
  dialog.Open(&job);
  for (size_t i = 0; i < kWeightSliders; ++i) dialog.ReleaseSlider(i, static_cast<int>(i) + 40);
  EXPECT_EQ(Changes(JobRecord{}, job),
            "CorWeight0=0.4 CorWeight30=0.41 CorWeight60=0.42 "
            "SideWeight0=0.43 SideWeight30=0.44 SideWeight60=0.45");
  dialog.ReleaseSlider(0, 101);
  dialog.ReleaseSlider(5, -1);
  EXPECT_EQ(dialog.Caption(0) + dialog.Caption(5), "0도 가중치(1.00)60도 가중치(0.00)");
}

TEST_F(AfaSetupDialog, MasterSwitchNeedsAFile) {
  const struct {
    int32_t before;
    const char* file;
    int32_t after;
  } cases[] = {{0, "", 0},     {0, "c:\\a", 0},  {0, "c:\\ab", 1},
               {0, "c:형", 0}, {1, "c:\\ab", 0}, {1, "", 0}};
  dialog.Open(&job);
  for (const auto& c : cases) {
    job.AfaByMaster = c.before;
    job.AfaMasterFile = c.file;
    dialog.ToggleMaster();
    EXPECT_EQ(job.AfaByMaster, c.after) << c.before << " " << c.file;
  }
}

TEST_F(AfaSetupDialog, ChecksAndEditsWaitForTheAcceptance) {
  job.FeedChgSmoothCheck = 2;
  job.XyChgReduceCheck = 2;
  job.ZupZdown = 1.5F;
  const JobRecord before = job;
  dialog.Open(&job);
  EXPECT_FALSE(dialog.feedChgSmoothTicked);  // by 1 only
  EXPECT_TRUE(dialog.xyChgReduceTicked);
  EXPECT_EQ(dialog.feedChgAngText + " " + dialog.zUpZDownText, "10 1.5");
  dialog.feedChgSmoothTicked = true;
  dialog.xyChgReduceTicked = false;
  dialog.feedChgAngText = "-3";
  dialog.zUpZDownText = "0.25";
  EXPECT_EQ(Changes(before, job), "");
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(before, job),
            "FeedChgSmoothCheck=1 XyChgReduceCheck=0 FeedChgAng=-3 ZupZdown=0.25");
  dialog.Open(&job);
  EXPECT_TRUE(dialog.feedChgSmoothTicked);
}

TEST_F(AfaSetupDialog, RefusesWhatIsNoNumber) {
  const struct {
    const char* feedStep;
    const char* zRatio;
    const char* refused;
  } cases[] = {
      {"", "1", "FeedChgAng"},
      {"10.5", "x", "FeedChgAng"},
      {"20", "1.5.", "ZupZdown"},
      {"20", "nan", "ZupZdown"},
  };
  for (const auto& c : cases) {
    dialog.Open(&job);
    dialog.xyChgReduceTicked = true;
    dialog.feedChgAngText = c.feedStep;
    dialog.zUpZDownText = c.zRatio;
    EXPECT_EQ(dialog.Accept(), Closing::kStaysOpen) << c.feedStep << " " << c.zRatio;
    EXPECT_EQ(dialog.refusedField, c.refused);
    EXPECT_EQ(Changes(JobRecord{}, job), "");
  }
  EXPECT_EQ(ui.messages.size(), std::size(cases));
}

constexpr char kPath[] = "c:\\marlo\\afa\\new.afa";
constexpr size_t kDiameter = 0, kCornerRatio = 3, kPlunge = 6, kMaterial = 8;

// A float that is shown passes through its text.
TEST_F(AutoFeedDialog, ShowsNineFieldsAndHandsBackWhatItShows) {
  job.MaxFeed = 1234;
  job.CornerMaxRatio = 0.12345F;
  job.SideWeight0 = 0.12345F;
  const JobRecord before = job;
  dialog.Open(&job);
  EXPECT_EQ(dialog.texts, (decltype(dialog.texts){"10.000", " 5.000", "10.000", " 0.123", "10.000",
                                                  " 0.100", "1000", "1234", "STEEL(S45C)"}));
  EXPECT_EQ(Changes(before, job), "");
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(before, job), "CornerMaxRatio=0.123");
}

TEST_F(AutoFeedDialog, EditsAreStoredAtOnceAsFarAsTheyAreNumbers) {
  const struct {
    size_t field;
    const char* text;
    const char* change;
  } cases[] = {
      {kDiameter, "8.5", "ToolDiameter=8.5"},
      {kDiameter, " 6mm", "ToolDiameter=6"},
      {kDiameter, "six", "ToolDiameter=0"},
      {kDiameter, "", "ToolDiameter=0"},
      {kCornerRatio, "-1e2", "CornerMaxRatio=-100"},
      {kPlunge, "99999999999", "PlungeFeed=2147483647"},
      {kMaterial, "금형강 A", "Material=금형강 A"},
  };
  for (const auto& c : cases) {
    dialog.Open(&job);
    dialog.Edit(c.field, c.text);
    EXPECT_EQ(Changes(job, dialog.own), c.change);
    EXPECT_EQ(dialog.texts[c.field], c.text);
  }
}

TEST_F(AutoFeedDialog, SavesAndReadsAConditionFile) {
  job.ConditionDir = "c:\\marlo\\afa";
  job.CorWeight0 = 0.5F;
  job.AfaByMaster = 1;
  dialog.SpindleSpeed = 2222;
  dialog.Open(&job);
  dialog.Edit(kDiameter, "3.5");
  ui.OnFile(kPath);
  dialog.SaveFile();
  EXPECT_TRUE(ui.fileQuestions.back().save);
  EXPECT_EQ(ui.fileQuestions.back().fileName, "c:\\marlo\\afa\\*.afa");

  CAutoFeedDlg other(&files, &ui);
  JobRecord fresh;
  other.Open(&fresh);
  ui.OnFile(kPath);
  other.ReadFile();
  EXPECT_FALSE(ui.fileQuestions.back().save);
  EXPECT_EQ(other.fileCaption, "가공조건 화일 : new.afa");
  EXPECT_EQ(other.texts[kDiameter], " 3.500");
  EXPECT_EQ(other.SpindleSpeed, 2222);
  EXPECT_EQ(other.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(JobRecord{}, fresh), "ToolDiameter=3.5 CorWeight0=0.5");
}

TEST_F(AutoFeedDialog, ChooserCancelledOrFileMissing) {
  dialog.Open(&job);
  dialog.fileCaption = "가공조건 화일 : old.afa";
  ui.OnFileCancel();
  dialog.ReadFile();
  EXPECT_EQ(dialog.fileCaption, "가공조건 화일 :");
  ui.OnFile("c:\\none.afa");
  dialog.ReadFile();
  EXPECT_EQ(dialog.fileCaption + dialog.texts[kDiameter], "가공조건 화일 :10.000");
  EXPECT_TRUE(ui.messages.empty());
  ui.OnFileCancel();
  dialog.SaveFile();  // the writer has no path
  EXPECT_EQ(ui.log.back(), "message 화일을 열수 없읍니다. ");
  EXPECT_EQ(ui.messages[0].caption, "Error message");
}

TEST_F(OptionDialog, ListShowsTheEntryThatStartsWithTheFeed) {
  const struct {
    int32_t rapidFeed;
    int shown;
  } cases[] = {{5000, 0}, {30000, 4}, {7000, -1}, {3, 4}, {1000, 2}, {50000, -1}, {-5000, -1}};
  for (const auto& c : cases) {
    job.RapidFeed = c.rapidFeed;
    dialog.Open(&job, "c:\\marlo");
    EXPECT_EQ(dialog.ShownRapidFeed(), c.shown) << c.rapidFeed;
    EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
    EXPECT_EQ(job.RapidFeed, c.rapidFeed);
  }
  dialog.ChooseRapidFeed(1);
  EXPECT_EQ(dialog.own.RapidFeed, 6000);
}

TEST_F(OptionDialog, OkHandsTheSettingsBackAndNothingElse) {
  dialog.Open(&job, "c:\\marlo");
  dialog.own.ToolDiameter = 99;  // no setting of this dialog
  dialog.own.FeedChgAng = 0;     // stays behind
  dialog.own.ZupZdown = 0.5F;
  dialog.ToggleMetafileCreate();
  dialog.ToggleIntNcdata();
  dialog.EditNcdataExt("*.h");
  EXPECT_EQ(Changes(JobRecord{}, job), "");
  dialog.Accept();
  EXPECT_EQ(Changes(JobRecord{}, job),
            "IntNcdataFlg=1 MetafileCreateChk=0 NcdataExt=*.h ZupZdown=0.5");
  dialog.ToggleMetafileCreate();
  dialog.ToggleIntNcdata();
  dialog.own.FeedChgAng = 1;
  dialog.Accept();
  EXPECT_EQ(Changes(JobRecord{}, job), "NcdataExt=*.h FeedChgAng=1 ZupZdown=0.5");
}

TEST_F(OptionDialog, MaskIsAtMostAHundredCharacters) {
  std::string longMask;
  for (int i = 0; i < 120; ++i) longMask += "형";
  dialog.EditNcdataExt(longMask);
  EXPECT_EQ(dialog.own.NcdataExt, longMask.substr(0, 300));
}

TEST_F(OptionDialog, SaveWritesItsOwnFieldsBeforeOk) {
  dialog.Open(&job, "c:\\marlo");
  dialog.ChooseRapidFeed(3);
  dialog.Save();
  EXPECT_NE(files.Bytes("c:\\marlo\\tvx.par").find("RapidFeed 20000\r\n"), std::string::npos);
  EXPECT_EQ(Changes(JobRecord{}, job), "");
  EXPECT_TRUE(ui.messages.empty());
  files.RefuseCreation("c:\\marlo\\tvx.par");
  dialog.Save();
  EXPECT_EQ(ui.log, std::vector<std::string>{"message 화일을 열수 없읍니다.\n"});
}

}  // namespace
}  // namespace tvx
