#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "support/scripted_ui.h"

namespace tvx {
namespace {

struct FeedDialog : Dialog {};

// Every other test relies on it: a script that does not fit what happens fails.
TEST(ScriptedUi, AnAnswerThatIsMissingOrLeftOverFails) {
  static Dialog dialog;
  EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(ScriptedUi().RunModal(&dialog)),
                          "no answer was prepared for: dialog");
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUi ui;
        ui.OnDialog<FeedDialog>([](FeedDialog*) { return true; });
        EXPECT_FALSE(ui.RunModal(&dialog));
      },
      "another dialog");
  EXPECT_NONFATAL_FAILURE(ScriptedUi().OnMessage(true), "answers of the script that nobody");
  EXPECT_NONFATAL_FAILURE(ScriptedUi().OnFileCancel(), "files of the script that nobody");
  EXPECT_NONFATAL_FAILURE(ScriptedUi().OnDialog([](Dialog*) { return true; }), "never shown");
}

}  // namespace
}  // namespace tvx
