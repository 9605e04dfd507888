// The text report, as bytes. The expected texts are written out by hand, with "\n" for a line end.
#include "reports/text_report.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/text.h"
#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kFigures[] =
    "\n\t절삭길이  12.346 M"
    "\n\t절삭시간  14.6 min"
    "\n\t평균절삭속도  850 mm/min"
    "\n\t급속이송속도  15000 mm/min"
    "\n\t급속이송길이  0.988 M"
    "\n\t급속이송시간 0.3 min"
    "\n\t소요시간 14.8 min";

constexpr char kConditions[] =
    "\n\tAfa On"
    "\n\t공구직경  16.0"
    "\n\t안전거리  3.3"
    "\n\t코너최소각도  12.5"
    "\n\t코너최대감속비 0.3"
    "\n\t경사최소각도 15.0"
    "\n\t경사최대감속비 0.5"
    "\n\t볼록코너검색 ON"
    "\n\tZ상하향검색 ON"
    "\n\t최대피드  2400"
    "\n\t접근피드  400"
    "\n\t코너가중치 1.00 0.65 0.30 "
    "\n\t경사가중치 0.90 0.70 12.35 ";

std::string WithLineEnds(std::string text) {
  ReplaceAll("\n", "\r\n", &text);
  return text;
}

TEST(TextReport, PlainEntryAsBytes) {
  MemoryFiles files;
  ASSERT_TRUE(WriteTextReportFile("c:\\r.tvx", TableOf({PlainEntry("a.nc")}), &files));
  // The labels in CP949: file name, and picture file at the end.
  const std::string bytes = files.Bytes("c:\\r.tvx");
  EXPECT_TRUE(bytes.starts_with("\r\n\xC8\xAD\xC0\xCF\xC0\xCC\xB8\xA7 a.nc\r\n\tDir : c:\\marlo"));
  EXPECT_TRUE(bytes.ends_with("min\r\n\t\xB1\xD7\xB8\xB2\xC8\xAD\xC0\xCF \r\n"));
  EXPECT_EQ(bytes, EncodeCp949(WithLineEnds(
                       std::string("\n화일이름 a.nc\n\tDir : c:\\marlo\\ncdata \n\tRestart OFF"
                                   "\n\tAfa Off") +
                       kFigures + "\n\t그림화일 \n")));
}

TEST(TextReport, OptionsOfAnEntry) {
  const struct {
    const char* what;
    std::function<void(CutTimeEntry*)> change;
    std::string options;
  } cases[] = {
      {"all on", [](CutTimeEntry*) {},
       std::string("\n\tRestart OFF") + kConditions +
           "\n\t부드러운 피드 변화 ON \n\tXY변화 축소 ON \n\tMMA c:\\die\\코아.mma"},
      {"only the master", [](CutTimeEntry* e) { e->FeedChgSmoothCheck = e->XyChgReduceCheck = 0; },
       std::string("\n\tRestart OFF") + kConditions + "\n\tMMA c:\\die\\코아.mma"},
      {"a master of 4 bytes, and switches that are neither 0 nor 1",
       [](CutTimeEntry* e) {
         e->AfaMasterFile = "a.mm";
         e->FeedChgSmoothCheck = e->XyChgReduceCheck = 2;
       },
       std::string("\n\tRestart OFF") + kConditions},
      {"a master that is not in use", [](CutTimeEntry* e) { e->AfaByMaster = 0; },
       std::string("\n\tRestart OFF") + kConditions +
           "\n\t부드러운 피드 변화 ON \n\tXY변화 축소 ON "},
      {"nothing on but an adjustment that is not 1", [](CutTimeEntry* e) { e->AfaEnabled = 2; },
       "\n\tRestart OFF\n\tAfa Off"},
      {"restart at a number",
       [](CutTimeEntry* e) {
         e->AfaEnabled = 0;
         e->RestartOn = e->RestartKind = 1;
         e->RestartNumber = 120;
       },
       "\n\tRestart ON\n\t재전송: 번호-> 120 \n\tAfa Off"},
      {"restart at a block",
       [](CutTimeEntry* e) {
         e->AfaEnabled = 0;
         e->RestartOn = 1;
         e->RestartKind = 2;
         e->RestartNumber = -7;
       },
       "\n\tRestart ON\n\t재전송: 블록-> -7 \n\tAfa Off"},
      {"restart in a Z area, the upper bound first",
       [](CutTimeEntry* e) {
         e->AfaEnabled = 0;
         e->RestartOn = 1;
         e->RestartKind = 3;
         e->RestartZMax = 200;
         e->RestartZMin = -200;
       },
       "\n\tRestart ON\n\t재전송: Z영역->(200.000 - -200.000) \n\tAfa Off"},
      {"restart at a point, with the tolerance on a line of its own",
       [](CutTimeEntry* e) {
         e->AfaEnabled = 0;
         e->RestartOn = 1;
         e->RestartKind = 4;
         e->RestartX = 1.5F;
         e->RestartY = -20.25F;
         e->RestartZ = 0;
         e->RestartTolerance = 0.05F;
       },
       "\n\tRestart ON\n\t재전송: 좌표->XYZ( 1.500, -20.250,  0.000)\n\t공차->  0.05\n\tAfa Off"},
      {"restart of a kind that nobody knows",
       [](CutTimeEntry* e) {
         e->AfaEnabled = 0;
         e->RestartOn = 1;
         e->RestartKind = 5;
       },
       "\n\tRestart ON\n\tAfa Off"},
  };
  for (const auto& c : cases) {
    CutTimeEntry entry = AdjustedEntry("코아.nc");
    c.change(&entry);
    EXPECT_EQ(TextReport(TableOf({entry})),
              WithLineEnds("\n화일이름 코아.nc\n\tDir : c:\\marlo\\ncdata " + c.options + kFigures +
                           "\n\t그림화일 코아.nc.emf\n"))
        << c.what;
  }
}

TEST(TextReport, EntriesFollowEachOtherWithoutATotal) {
  const ResultTable both = TableOf({PlainEntry("a.nc"), AdjustedEntry("b.nc")});
  EXPECT_EQ(TextReport(both), TextReport(TableOf({PlainEntry("a.nc")})) +
                                  TextReport(TableOf({AdjustedEntry("b.nc")})));
  EXPECT_EQ(TextReport(ResultTable()), "");
}

TEST(TextReport, GoesByItsNameAloneIntoTheCurrentDirectory) {
  MemoryFiles files;
  ScriptedUi ui;
  files.SetCurrentDirectory("c:\\marlo");
  ui.OnFile("c:\\windows\\week.tvx");
  WriteTextReport(ResultTable(), &files, &ui);
  EXPECT_EQ(files.FilePaths(), (std::vector<std::string>{"c:\\marlo\\week.tvx"}));
  EXPECT_EQ(files.Bytes("c:\\marlo\\week.tvx"), "");

  const FileQuestion& question = ui.fileQuestions.at(0);
  EXPECT_TRUE(question.save);
  EXPECT_TRUE(question.confirmsOverwrite);
  EXPECT_EQ(question.fileName, "*.tvx");
  EXPECT_EQ(question.filter, "TVX file (*.tvx)|*.tvx|모든 화일(*.*)|*.*||");
}

TEST(TextReport, FailuresAreSilentAndLeaveTheOlderFile) {
  MemoryFiles files;
  files.Put("c:\\week.tvx", "older");
  const ResultTable table = TableOf({PlainEntry("a.nc")});
  ScriptedUi ui;
  ui.OnFileCancel();
  WriteTextReport(table, &files, &ui);
  files.RefuseWrite(1);
  ui.OnFile("c:\\week.tvx");
  WriteTextReport(table, &files, &ui);
  files.RefuseCreation("c:\\week.tvx");
  ui.OnFile("c:\\week.tvx");
  WriteTextReport(table, &files, &ui);
  EXPECT_EQ(files.Bytes("c:\\week.tvx"), "older");
  EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tvx
