#include "feed/auto_feed_dialog.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr size_t kDiameter = 0, kCornerRatio = 3, kPlunge = 6, kMaterial = 8;

class AutoFeedDialog : public testing::Test {
 protected:
  AutoFeedDialog() { target.ConditionDir = "c:\\marlo\\afa"; }

  MemoryFiles files;
  ScriptedUi ui;
  JobRecord target;
  CAutoFeedDlg dialog{&files, &ui};
};

TEST_F(AutoFeedDialog, ShowsNineFields) {
  target.MaxFeed = 1234;
  dialog.Open(&target);
  EXPECT_EQ(dialog.texts, (decltype(dialog.texts){"10.000", " 5.000", "10.000", " 0.100", "10.000",
                                                  " 0.100", "1000", "1234", "STEEL(S45C)"}));
}

TEST_F(AutoFeedDialog, AFloatPassesThroughItsText) {
  target.CornerMaxRatio = 0.12345F;
  target.SideWeight0 = 0.12345F;
  dialog.Open(&target);
  EXPECT_EQ(target.CornerMaxRatio, 0.12345F);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(target.CornerMaxRatio, 0.123F);
  EXPECT_EQ(target.SideWeight0, 0.12345F);
}

TEST_F(AutoFeedDialog, EditsAreStoredAtOnceAsFarAsTheyAreNumbers) {
  const struct {
    size_t field;
    const char* text;
    float JobRecord::*real;
    float value;
  } floats[] = {
      {kDiameter, "8.5", &JobRecord::ToolDiameter, 8.5F},
      {kDiameter, " 6mm", &JobRecord::ToolDiameter, 6},
      {kDiameter, "six", &JobRecord::ToolDiameter, 0},
      {kDiameter, "", &JobRecord::ToolDiameter, 0},
      {kCornerRatio, "-1e2", &JobRecord::CornerMaxRatio, -100},
  };
  dialog.Open(&target);
  for (const auto& c : floats) {
    dialog.Edit(c.field, c.text);
    EXPECT_EQ(dialog.own.*c.real, c.value) << c.text;
    EXPECT_EQ(dialog.texts[c.field], c.text);
  }
  dialog.Edit(kPlunge, "99999999999");
  EXPECT_EQ(dialog.own.PlungeFeed, INT32_MAX);
  dialog.Edit(kMaterial, "금형강 A");
  EXPECT_EQ(dialog.own.Material, "금형강 A");
  EXPECT_EQ(target.ToolDiameter, 10.0F);  // until it is accepted
}

TEST_F(AutoFeedDialog, SavesAndReadsAConditionFile) {
  target.CorWeight0 = 0.5F;
  target.AfaByMaster = 1;
  dialog.SpindleSpeed = 2222;
  dialog.Open(&target);
  dialog.Edit(kDiameter, "3.5");
  ui.OnFile("c:\\marlo\\afa\\new.afa");
  dialog.SaveFile();
  EXPECT_TRUE(ui.fileQuestions.back().save);
  EXPECT_EQ(ui.fileQuestions.back().fileName, "c:\\marlo\\afa\\*.afa");

  CAutoFeedDlg other(&files, &ui);
  JobRecord fresh;
  other.Open(&fresh);
  ui.OnFile("c:\\marlo\\afa\\new.afa");
  other.ReadFile();
  EXPECT_EQ(other.fileCaption, "가공조건 화일 : new.afa");
  EXPECT_EQ(other.texts[kDiameter], " 3.500");
  EXPECT_EQ(other.SpindleSpeed, 2222);
  EXPECT_EQ(other.Accept(), Closing::kAccepted);
  EXPECT_EQ(fresh.CorWeight0, 0.5F);
  EXPECT_EQ(fresh.AfaByMaster, 0);
}

TEST_F(AutoFeedDialog, ChooserCancelledOrFileMissing) {
  dialog.Open(&target);
  dialog.fileCaption = "가공조건 화일 : old.afa";
  ui.OnFileCancel();
  dialog.ReadFile();
  EXPECT_EQ(dialog.fileCaption, "가공조건 화일 :");
  ui.OnFile("c:\\none.afa");
  dialog.ReadFile();
  EXPECT_EQ(dialog.fileCaption, "가공조건 화일 :");
  EXPECT_EQ(dialog.texts[kDiameter], "10.000");
  EXPECT_TRUE(ui.messages.empty());

  ui.OnFileCancel();
  dialog.SaveFile();  // the writer has no path
  ASSERT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(ui.messages[0].text, "화일을 열수 없읍니다. ");
}

TEST_F(AutoFeedDialog, AFailedSaveKeepsTheOlderFile) {
  files.Put("c:\\old.afa", "old");
  dialog.Open(&target);
  ui.OnFile("c:\\old.afa");
  files.RefuseCommit(1);
  dialog.SaveFile();
  EXPECT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(files.Bytes("c:\\old.afa"), "old");
}

}  // namespace
}  // namespace tvx
