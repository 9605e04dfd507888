#include "feed/afa_setup_dialog.h"

#include <gtest/gtest.h>

#include "model/labels.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class AfaSetupDialog : public testing::Test {
 protected:
  ScriptedUi ui;
  JobRecord job;
  CAfaSetupDlg dialog{&ui};
};

TEST_F(AfaSetupDialog, Sliders) {
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
  dialog.ReleaseSlider(1, 70);
  EXPECT_EQ(job.CorWeight30, 0.7F);
  dialog.ReleaseSlider(5, 101);
  EXPECT_EQ(job.SideWeight60, 1.0F);
  LabelLanguage = kEnglishLabels;
  EXPECT_EQ(dialog.Caption(5), "60 deg weight(1.00)");
  LabelLanguage = kKoreanLabels;
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
  job.FeedChgSmoothCheck = 1;
  job.ZupZdown = 1.5F;
  dialog.Open(&job);
  EXPECT_TRUE(dialog.feedChgSmoothTicked);
  EXPECT_FALSE(dialog.xyChgReduceTicked);
  EXPECT_EQ(dialog.feedChgAngText, "10");
  EXPECT_EQ(dialog.zUpZDownText, "1.5");
  dialog.feedChgSmoothTicked = false;
  dialog.xyChgReduceTicked = true;
  dialog.feedChgAngText = "-3";
  dialog.zUpZDownText = "0.25";
  EXPECT_EQ(job.FeedChgSmoothCheck, 1);
  EXPECT_EQ(job.FeedChgAng, 10);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(job.FeedChgSmoothCheck, 0);
  EXPECT_EQ(job.XyChgReduceCheck, 1);
  EXPECT_EQ(job.FeedChgAng, -3);
  EXPECT_EQ(job.ZupZdown, 0.25F);
}

TEST_F(AfaSetupDialog, RefusesWhatIsNoNumber) {
  const struct {
    const char* feedStep;
    const char* zRatio;
    const char* refused;
  } cases[] = {
      {"", "1", "FeedChgAng"},      {"ten", "x", "FeedChgAng"},        {"10.5", "1", "FeedChgAng"},
      {"10 20", "1", "FeedChgAng"}, {"3000000000", "1", "FeedChgAng"}, {"10", "1.5.", "ZupZdown"},
      {"10", "nan", "ZupZdown"},    {"10", "1e99", "ZupZdown"},
  };
  for (const auto& c : cases) {
    dialog.Open(&job);
    dialog.xyChgReduceTicked = true;
    dialog.feedChgAngText = c.feedStep;
    dialog.zUpZDownText = c.zRatio;
    ui.messages.clear();
    EXPECT_EQ(dialog.Accept(), Closing::kStaysOpen) << c.feedStep << " " << c.zRatio;
    EXPECT_EQ(dialog.refusedField, c.refused);
    EXPECT_EQ(ui.messages.size(), 1U);
    EXPECT_EQ(job.XyChgReduceCheck, 0);
    EXPECT_EQ(job.FeedChgAng, 10);
  }
}

}  // namespace
}  // namespace tvx
