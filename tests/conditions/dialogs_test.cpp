// The dialogs of the feed settings.
#include <gtest/gtest.h>

#include "conditions/afa_setup_dialog.h"
#include "conditions/auto_feed_dialog.h"
#include "support/memory_files.h"
#include "support/record_changes.h"
#include "support/rows.h"
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

TEST_F(AfaSetupDialog, SlidersShowTheirWeightAndSetItAtOnce) {
  dialog.Open(&job);
  for (const auto& [weight, position, caption] :
       Rows<float, int, const char*>{{1, 100, "30도 가중치(1.00)"},
                                     {0.7F, 69, "30도 가중치(0.70)"},
                                     {1.5F, 100, "30도 가중치(1.50)"},
                                     {-0.5F, 0, "30도 가중치(-0.50)"},
                                     {0.125F, 12, "30도 가중치(0.12)"}}) {
    job.CorWeight30 = weight;
    EXPECT_EQ(dialog.Position(1), position) << weight;
    EXPECT_EQ(dialog.Caption(1, Language::kKorean), caption);
  }
  for (size_t i = 0; i < WeightSliders().size(); ++i)
    dialog.ReleaseSlider(i, static_cast<int>(i) + 40);
  EXPECT_EQ(Changes(JobRecord{}, job),
            "CorWeight0=0.4 CorWeight30=0.41 CorWeight60=0.42 "
            "SideWeight0=0.43 SideWeight30=0.44 SideWeight60=0.45");
  dialog.ReleaseSlider(0, 101);
  dialog.ReleaseSlider(5, -1);
  EXPECT_EQ(dialog.Caption(0, Language::kKorean) + dialog.Caption(5, Language::kEnglish),
            "0도 가중치(1.00)60 deg weight(0.00)");
}

TEST_F(AfaSetupDialog, MasterSwitchNeedsAFile) {
  dialog.Open(&job);
  for (const auto& [before, file, after] : Rows<int, const char*, int>{
           {0, "c:\\a", 0}, {0, "c:\\ab", 1}, {0, "c:형", 0}, {1, "c:\\ab", 0}, {1, "", 0}}) {
    job.AfaByMaster = before;
    job.AfaMasterFile = file;
    dialog.ToggleMaster();
    EXPECT_EQ(job.AfaByMaster, after) << before << " " << file;
  }
}

TEST_F(AfaSetupDialog, AcceptStoresChecksAndEditsThatAreNumbers) {
  const JobRecord before = job = Record("FeedChgSmoothCheck=2 XyChgReduceCheck=2 ZupZdown=1.5");
  dialog.Open(&job);
  EXPECT_FALSE(dialog.feedChgSmoothTicked);  // by 1 only
  EXPECT_TRUE(dialog.xyChgReduceTicked);
  EXPECT_EQ(dialog.editTexts, (std::vector<std::string>{"10", "1.5"}));
  dialog.feedChgSmoothTicked = true;
  dialog.xyChgReduceTicked = false;
  for (const auto& [feedStep, zRatio, refused] :
       Rows<const char*, const char*, const char*>{{"", "1", "FeedChgAng"},
                                                   {"10.5", "x", "FeedChgAng"},
                                                   {"20", "1.5.", "ZupZdown"},
                                                   {"20", "nan", "ZupZdown"}}) {
    dialog.editTexts = {feedStep, zRatio};
    EXPECT_EQ(dialog.Accept(), Closing::kStaysOpen) << feedStep << " " << zRatio;
    ASSERT_TRUE(dialog.refusedEdit);
    EXPECT_STREQ(SetupEdits()[*dialog.refusedEdit]->name, refused);
    EXPECT_EQ(Changes(before, job), "");
  }
  EXPECT_EQ(ui.messages.size(), 4U);
  dialog.editTexts = {"-3", "0.25"};
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(before, job),
            "FeedChgSmoothCheck=1 XyChgReduceCheck=0 FeedChgAng=-3 ZupZdown=0.25");
  dialog.Open(&job);
  EXPECT_TRUE(dialog.feedChgSmoothTicked);
}

constexpr char kPath[] = "c:\\marlo\\afa\\new.afa";
constexpr size_t kDiameter = 0, kCornerRatio = 3, kPlunge = 6, kMaterial = 8;

TEST_F(AutoFeedDialog, AcceptReturnsTheFieldsAsShown) {
  const JobRecord before = job = Record("MaxFeed=1234 CornerMaxRatio=0.12345 SideWeight0=0.12345");
  dialog.Open(&job);
  EXPECT_EQ(dialog.texts, (decltype(dialog.texts){"10.000", " 5.000", "10.000", " 0.123", "10.000",
                                                  " 0.100", "1000", "1234", "STEEL(S45C)"}));
  EXPECT_EQ(Changes(before, job), "");
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(before, job), "CornerMaxRatio=0.123");
}

TEST_F(AutoFeedDialog, EditStoresTheNumberOfAText) {
  for (const auto& [field, text, change] :
       Rows<size_t, const char*, const char*>{{kDiameter, " 6.5mm", "ToolDiameter=6.5"},
                                              {kDiameter, "six", "ToolDiameter=0"},
                                              {kCornerRatio, "-1e2", "CornerMaxRatio=-100"},
                                              {kPlunge, "99999999999", "PlungeFeed=2147483647"},
                                              {kMaterial, "금형강 A", "Material=금형강 A"}}) {
    dialog.Open(&job);
    dialog.Edit(field, text);
    EXPECT_EQ(Changes(job, dialog.own), change);
    EXPECT_EQ(dialog.texts[field], text);
  }
}

TEST_F(AutoFeedDialog, SavedConditionIsReadBack) {
  job = Record("ConditionDir=c:\\marlo\\afa CorWeight0=0.5 AfaByMaster=1");
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
  EXPECT_EQ(other.fileCaption + other.texts[kDiameter], "가공조건 화일 : new.afa 3.500");
  EXPECT_EQ(other.SpindleSpeed, 2222);
  EXPECT_EQ(other.Accept(), Closing::kAccepted);
  EXPECT_EQ(Changes(JobRecord{}, fresh), "ToolDiameter=3.5 CorWeight0=0.5");
  other.Open(&fresh);
  EXPECT_EQ(other.fileCaption, "가공조건 화일 :");
}

TEST_F(AutoFeedDialog, CancelledOrFailedChoiceChangesNothing) {
  dialog.Open(&job);
  ui.OnFileCancel();
  ui.OnFile("c:\\none.afa");
  for (int choice = 0; choice < 2; ++choice) {
    dialog.fileCaption = "가공조건 화일 : old.afa";
    dialog.ReadFile();
    EXPECT_EQ(dialog.fileCaption + dialog.texts[kDiameter], "가공조건 화일 :10.000");
  }
  EXPECT_TRUE(ui.messages.empty());
  ui.OnFileCancel();
  dialog.SaveFile();  // without a path
  EXPECT_EQ(ui.log.back(), "message 화일을 열수 없읍니다. ");
  EXPECT_EQ(ui.messages[0].caption, "Error message");
}

}  // namespace
}  // namespace tvx
