// The restart dialog and its texts.
#include "jobs/restart.h"

#include <gtest/gtest.h>

#include "support/record_changes.h"

namespace tvx {
namespace {

constexpr size_t kZMax = 0, kX = 2, kTolerance = 5;  // of RestartDecimals

class Restart : public testing::Test {
 protected:
  JobRecord options;
  CRestartDlg dialog;
};

TEST_F(Restart, OpensWithTheRecordAndAKindOfOneToFour) {
  // Any other kind is shown as that of a point.
  for (const auto& [kind, shown] : {std::pair{0, 4}, {-1, 4}, {5, 4}, {3, 3}}) {
    options.RestartKind = kind;
    dialog.Open(&options);
    EXPECT_EQ(dialog.own.RestartKind, shown) << kind;
  }
  EXPECT_EQ(dialog.numberText, "200");
  EXPECT_EQ(dialog.decimalTexts, (decltype(dialog.decimalTexts){"200.000", "-200.000", "9999.000",
                                                                "9999.000", "9999.000", " 1.500"}));
}

TEST_F(Restart, OkWithoutAPointCancels) {
  const struct {
    int kind;
    const char* number;
    size_t decimal;
    const char* text;
    const char* shown;  // on the button, and the rows of the file information
  } cases[] = {
      {4, "", kTolerance, "2", "재전송: "},  // no point set
      {4, "", kX, "-12.345",
       "재전송: 좌표->XYZ(-12.35, 9999.00, 9999.00)  공차->  1.50  |"
       "  재전송: 좌표->XYZ(-12.345, 9999.000, 9999.000)|  공차->  1.50"},
      {4, "x", kX, "far",
       "재전송: 좌표->XYZ(  0.00, 9999.00, 9999.00)  공차->  1.50  |"
       "  재전송: 좌표->XYZ( 0.000, 9999.000, 9999.000)|  공차->  1.50"},
      // The missing point matters for kind 4 alone.
      {1, "200", kTolerance, "2", "재전송: 번호->200|  재전송: 번호-> 200 "},
      {2, "-35 blocks", kTolerance, "2", "재전송: 블록->-35|  재전송: 블록-> -35 "},
      {3, "200", kZMax, "1.5",
       "재전송: Z영역->( 20.00 -   1.50)|  재전송: Z영역->( 1.500 - 20.000) "},
  };
  for (const auto& c : cases) {
    options = Record("RestartZMin=20");
    dialog.Open(&options);
    dialog.SelectKind(c.kind);
    dialog.EditNumber(c.number);
    dialog.EditDecimal(c.decimal, c.text);
    EXPECT_EQ(dialog.numberText, c.number);
    const bool accepted = dialog.Accept() == Closing::kAccepted;
    std::string shown = RestartButtonText(options, accepted, Language::kKorean);
    for (const std::string& row : RestartInfoRows(options, Language::kKorean)) shown += "|" + row;
    EXPECT_EQ(shown, c.shown);
    EXPECT_EQ(RestartButtonText(options, false, Language::kKorean), "재전송: ");
    EXPECT_EQ(options.RestartOn, accepted ? 1 : 0) << c.shown;
    EXPECT_EQ(dialog.own.RestartOn, options.RestartOn) << c.shown;
  }
}

// The numbers of the record stay, those typed are lost.
TEST_F(Restart, CancelSwitchesOff) {
  options = Record("RestartOn=1");
  dialog.Open(&options);
  dialog.EditNumber("7");
  EXPECT_EQ(dialog.Cancel(), Closing::kCancelled);
  EXPECT_EQ(Changes(JobRecord(), options), "");
  EXPECT_EQ(dialog.own.RestartOn, 0);
  dialog.Open(&options);
  EXPECT_EQ(dialog.numberText, "200");
}

}  // namespace
}  // namespace tvx
