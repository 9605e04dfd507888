#include "jobs/restart.h"

#include <gtest/gtest.h>

#include "model/labels.h"

namespace tvx {
namespace {

constexpr size_t kZMax = 0, kZMin = 1, kX = 2, kTolerance = 5;  // of kRestartDecimals

TEST(Restart, OpensOnTheRecord) {
  JobRecord options;
  CRestartDlg dialog;
  dialog.Open(&options);
  EXPECT_EQ(dialog.own.RestartKind, 4);  // 0 is no kind
  EXPECT_EQ(dialog.numberText, "200");
  EXPECT_EQ(dialog.decimalTexts, (decltype(dialog.decimalTexts){"200.000", "-200.000", "9999.000",
                                                                "9999.000", "9999.000", " 1.500"}));
  for (const int kind : {-1, 5, 3}) {
    options.RestartKind = kind;
    dialog.Open(&options);
    EXPECT_EQ(dialog.own.RestartKind, kind == 3 ? 3 : 4);
  }
}

TEST(Restart, HowItEnds) {
  const struct {
    const char* what;
    void (*edit)(CRestartDlg*);
    Closing closing;
    const char* button;
  } cases[] = {
      {"no point set", [](CRestartDlg*) {}, Closing::kCancelled, "재전송: "},
      {"one coordinate set", [](CRestartDlg* d) { d->EditDecimal(kX, "-12.345"); },
       Closing::kAccepted, "재전송: 좌표->XYZ(-12.35, 9999.00, 9999.00)  공차->  1.50  "},
      {"tolerance alone", [](CRestartDlg* d) { d->EditDecimal(kTolerance, "2"); },
       Closing::kCancelled, "재전송: "},
      {"text that is no number", [](CRestartDlg* d) { d->EditDecimal(kX, "far"); },
       Closing::kAccepted, "재전송: 좌표->XYZ(  0.00, 9999.00, 9999.00)  공차->  1.50  "},
      {"the mark counts for the point alone", [](CRestartDlg* d) { d->SelectKind(1); },
       Closing::kAccepted, "재전송: 번호->200"},
      {"block",
       [](CRestartDlg* d) {
         d->SelectKind(2);
         d->EditNumber("-35 blocks");
       },
       Closing::kAccepted, "재전송: 블록->-35"},
      {"bounds the wrong way round",
       [](CRestartDlg* d) {
         d->SelectKind(3);
         d->EditDecimal(kZMax, "1.5");
         d->EditDecimal(kZMin, "20");
       },
       Closing::kAccepted, "재전송: Z영역->( 20.00 -   1.50)"},
  };
  for (const auto& c : cases) {
    JobRecord options;
    CRestartDlg dialog;
    dialog.Open(&options);
    c.edit(&dialog);
    EXPECT_EQ(dialog.Accept(), c.closing) << c.what;
    const bool accepted = c.closing == Closing::kAccepted;
    EXPECT_EQ(options.RestartOn, accepted ? 1 : 0) << c.what;
    EXPECT_EQ(dialog.own.RestartOn, options.RestartOn) << c.what;
    EXPECT_EQ(RestartButtonText(options, accepted), c.button) << c.what;
  }
}

TEST(Restart, BothNumberFieldsShowWhatIsTyped) {
  JobRecord options;
  CRestartDlg dialog;
  dialog.Open(&options);
  dialog.SelectKind(3);
  dialog.EditNumber("12x");
  EXPECT_EQ(dialog.numberText, "12x");
  EXPECT_EQ(dialog.own.RestartNumber, 12);
  EXPECT_EQ(dialog.own.RestartKind, 3);
}

// A cancel switches the position off, keeps the record's old numbers and forgets the typed ones.
TEST(Restart, CancelSwitchesOff) {
  JobRecord options;
  options.RestartOn = 1;
  options.RestartKind = 1;
  CRestartDlg dialog;
  dialog.Open(&options);
  dialog.EditNumber("7");
  EXPECT_EQ(dialog.Cancel(), Closing::kCancelled);
  EXPECT_EQ(options.RestartOn, 0);
  EXPECT_EQ(dialog.own.RestartOn, 0);
  EXPECT_EQ(options.RestartNumber, 200);
  dialog.Open(&options);
  EXPECT_EQ(dialog.numberText, "200");
}

TEST(Restart, InformationRows) {
  JobRecord job;
  job.RestartZMax = 12.5F;
  const std::vector<std::string> rows[] = {
      {},
      {"  재전송: 번호-> 200 "},
      {"  재전송: 블록-> 200 "},
      {"  재전송: Z영역->(12.500 - -200.000) "},
      {"  재전송: 좌표->XYZ(9999.000, 9999.000, 9999.000)", "  공차->  1.50"},
      {},
  };
  for (int kind = 0; kind < 6; ++kind) {
    job.RestartKind = kind;
    EXPECT_EQ(RestartInfoRows(job), rows[kind]);
  }
  LabelLanguage = kEnglishLabels;
  job.RestartKind = 3;
  EXPECT_EQ(RestartInfoRows(job).front(), "  Restart: ZArea->(12.500 - -200.000) ");
  LabelLanguage = kKoreanLabels;
}

}  // namespace
}  // namespace tvx
