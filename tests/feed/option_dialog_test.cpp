#include "feed/option_dialog.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class OptionDialog : public testing::Test {
 protected:
  MemoryFiles files;
  ScriptedUi ui;
  JobRecord working;
  COptionDlg dialog{&files, &ui};
};

TEST_F(OptionDialog, ListShowsTheEntryThatStartsWithTheFeed) {
  const struct {
    int32_t rapidFeed;
    int shown;
  } cases[] = {{5000, 0}, {30000, 4}, {7000, -1}, {3, 4}, {1000, 2}, {50000, -1}, {-5000, -1}};
  for (const auto& c : cases) {
    working.RapidFeed = c.rapidFeed;
    dialog.Open(&working, "c:\\marlo");
    EXPECT_EQ(dialog.ShownRapidFeed(), c.shown) << c.rapidFeed;
    EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
    EXPECT_EQ(working.RapidFeed, c.rapidFeed);
  }
  dialog.ChooseRapidFeed(1);
  EXPECT_EQ(dialog.own.RapidFeed, 6000);
}

TEST_F(OptionDialog, OkHandsTheSettingsBackAndNothingElse) {
  working.ToolDiameter = 3;
  dialog.Open(&working, "c:\\marlo");
  dialog.own.ToolDiameter = 99;  // no setting of this dialog
  dialog.ToggleMetafileCreate();
  dialog.ToggleIntNcdata();
  dialog.EditNcdataExt("*.h");
  EXPECT_EQ(working.MetafileCreateChk, 1);
  dialog.Accept();
  EXPECT_EQ(working.MetafileCreateChk, 0);
  EXPECT_EQ(working.IntNcdataFlg, 1);
  EXPECT_EQ(working.NcdataExt, "*.h");
  EXPECT_EQ(working.ToolDiameter, 3.0F);
}

TEST_F(OptionDialog, FeedStepBelowOneStaysBehind) {
  working.FeedChgAng = 10;
  dialog.Open(&working, "c:\\marlo");
  dialog.own.FeedChgAng = 0;
  dialog.own.ZupZdown = 0.5F;
  dialog.Accept();
  EXPECT_EQ(working.FeedChgAng, 10);
  EXPECT_EQ(working.ZupZdown, 0.5F);
}

TEST_F(OptionDialog, MaskIsAtMostAHundredCharacters) {
  std::string longMask;
  for (int i = 0; i < 120; ++i) longMask += "형";
  dialog.Open(&working, "c:\\marlo");
  dialog.EditNcdataExt(longMask);
  EXPECT_EQ(dialog.own.NcdataExt, longMask.substr(0, 300));
  EXPECT_EQ(working.NcdataExt, "*.nc");
}

TEST_F(OptionDialog, SaveWritesItsOwnFieldsBeforeOk) {
  dialog.Open(&working, "c:\\marlo");
  dialog.ChooseRapidFeed(3);
  dialog.Save();
  EXPECT_NE(files.Bytes("c:\\marlo\\tvx.par").find("RapidFeed 20000\r\n"), std::string::npos);
  EXPECT_EQ(working.RapidFeed, 5000);
  EXPECT_TRUE(ui.messages.empty());

  files.RefuseCreation("c:\\marlo\\tvx.par");
  dialog.ChooseRapidFeed(0);
  dialog.Save();
  ASSERT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(ui.messages[0].text, "화일을 열수 없읍니다.\n");
  EXPECT_NE(files.Bytes("c:\\marlo\\tvx.par").find("RapidFeed 20000\r\n"), std::string::npos);
}

}  // namespace
}  // namespace tvx
