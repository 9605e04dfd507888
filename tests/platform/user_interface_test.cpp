#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "support/scripted_ui.h"

namespace tvx {
namespace {

struct FeedDialog : Dialog {
  int feed = 100;
};
struct OtherDialog : Dialog {};

TEST(ScriptedUi, PlaysTheAnswersInOrder) {
  ScriptedUi ui;
  ui.OnDialog<FeedDialog>([](FeedDialog* dialog) {
    dialog->feed = 2000;
    return true;
  });
  ui.OnMessage(true);
  ui.OnMessage(false);
  ui.OnFile("c:\\a.nc");
  ui.OnFileCancel();

  FeedDialog dialog;
  EXPECT_TRUE(ui.RunModal(&dialog));
  EXPECT_EQ(dialog.feed, 2000);
  EXPECT_TRUE(ui.ShowMessage({.text = "Replace?", .buttons = MessageButtons::kYesNo}));
  EXPECT_FALSE(ui.ShowMessage({.text = "Quit?", .buttons = MessageButtons::kOkCancel}));
  EXPECT_TRUE(ui.ShowMessage({.text = "Done"}));
  std::string path;
  EXPECT_TRUE(ui.ChooseFile({.fileName = "*.nc"}, &path));
  EXPECT_FALSE(ui.ChooseFile({.fileName = "*.afa"}, &path));
  EXPECT_EQ(path, "c:\\a.nc");
  ui.Repaint();
  ui.ShowStatus("ready");
  EXPECT_EQ(ui.log,
            (std::vector<std::string>{"dialog", "message Replace?", "message Quit?", "message Done",
                                      "file *.nc", "file *.afa", "repaint", "status ready"}));
}

TEST(ScriptedUi, AnAnswerThatIsMissingOrLeftOverFails) {
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUi ui;
        FeedDialog dialog;
        EXPECT_FALSE(ui.RunModal(&dialog));
      },
      "no answer was prepared for: dialog");
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUi ui;
        EXPECT_FALSE(ui.ShowMessage({.text = "Quit?", .buttons = MessageButtons::kYesNo}));
      },
      "no answer was prepared for: message Quit?");
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUi ui;
        std::string path;
        EXPECT_FALSE(ui.ChooseFile({}, &path));
      },
      "no answer was prepared for: file");
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUi ui;
        ui.OnDialog<FeedDialog>([](FeedDialog*) { return true; });
        OtherDialog other;
        EXPECT_FALSE(ui.RunModal(&other));
      },
      "another dialog");
  EXPECT_NONFATAL_FAILURE({ ScriptedUi().OnMessage(true); }, "nobody asked");
}

}  // namespace
}  // namespace tvx
