// The text report as a file. Its lines are those of the golden cases of the run.
#include "reports/text_report.h"

#include <gtest/gtest.h>

#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

TEST(TextReport, EntriesFollowEachOtherAsBytesWithoutATotal) {
  MemoryFiles files;
  const ResultTable both = TableOf({PlainEntry("a.nc"), AdjustedEntry("b.nc")});
  ASSERT_TRUE(WriteTextReportFile("c:\\r.tvx", both, &files));
  // The labels in CP949: file name, and picture file at the end.
  const std::string bytes = files.Bytes("c:\\r.tvx");
  const std::string name = "\r\n\xC8\xAD\xC0\xCF\xC0\xCC\xB8\xA7 ";
  const std::string picture = "min\r\n\t\xB1\xD7\xB8\xB2\xC8\xAD\xC0\xCF ";
  EXPECT_TRUE(bytes.starts_with(name + "a.nc\r\n\tDir : c:\\marlo\\ncdata \r\n\tRestart OFF"));
  EXPECT_NE(bytes.find(picture + "\r\n" + name + "b.nc\r\n"), std::string::npos);
  EXPECT_TRUE(bytes.ends_with(picture + "b.nc.emf\r\n"));
}

TEST(TextReport, GoesByItsNameAloneIntoTheCurrentDirectory) {
  MemoryFiles files;
  ScriptedUi ui;
  files.SetCurrentDirectory("c:\\marlo");
  ui.OnFile("c:\\windows\\week.tvx");
  WriteTextReport(ResultTable(), &files, &ui);
  EXPECT_EQ(files.FilePaths(), (std::vector<std::string>{"c:\\marlo\\week.tvx"}));

  const FileQuestion& question = ui.fileQuestions.at(0);
  EXPECT_TRUE(question.save && question.confirmsOverwrite);
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
