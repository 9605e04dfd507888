// The job list file and what is copied beside it.
#include "reports/job_list_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "jobs/job_list.h"
#include "platform/drives.h"
#include "platform/text.h"
#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

CutTimeEntry Entry(const std::string& name, const std::string& optionLine) {
  CutTimeEntry entry = PlainEntry(name);
  entry.optionLine = optionLine;
  return entry;
}

TEST(DriveForm, TheDriveIsX) {
  const struct {
    const char* directory;
    const char* form;
  } cases[] = {
      {"D:\\jobs\\a", "X:\\jobs\\a"},
      {"c:\\", "X:\\"},
      {"D:", "X:"},               // the root of a drive, without its backslash
      {"\\jobs\\a", "Xjobs\\a"},  // no drive to replace
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(DriveForm(c.directory), c.form) << c.directory;
}

TEST(LineMasterFile, TheWordBehindTheFirstMma) {
  const struct {
    const char* line;
    const char* path;  // null: none
  } cases[] = {
      {"Afa ON TD 1.0 MMA c:\\die\\a.mma FCS ON ", "c:\\die\\a.mma"},
      {"MMA  c:\\a.mma", "c:\\a.mma"},
      {"Dir c:\\MMA\\x FS 5 MMA c:\\a.mma ", "FS"},  // found in the directory
      {"Afa ON MMA ", nullptr},
      {"Dir c:\\mma FS 5 ", nullptr},
      {"", nullptr},
  };
  for (const auto& c : cases) {
    std::string path = "old";
    EXPECT_EQ(LineMasterFile(c.line, &path), c.path != nullptr) << c.line;
    EXPECT_EQ(path, c.path == nullptr ? "old" : c.path) << c.line;
  }
}

TEST(JobListFile, LinesGetTheDirectoryOfTheList) {
  const struct {
    const char* list;
    const char* optionLine;
    const char* written;
  } cases[] = {
      {"c:\\jobs\\week1.mcf", "Dir c:\\marlo\\ncdata FS 20480 RT OFF Afa OFF ",
       "File a.nc Dir X:\\jobs FS 20480 RT OFF Afa OFF  \r\n"},
      {"c:\\jobs\\week1.mcf", "", "File a.nc  \r\n"},
      {"c:\\week1.mcf", "Dir c:\\marlo\\ncdata FS 1 ", "File a.nc Dir X: FS 1  \r\n"},
      // Everywhere in the line, so a master model below the directory moves with it.
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 Afa ON TD 1.0 MMA c:\\die\\a.mma ",
       "File a.nc Dir X:\\jobs FS 1 Afa ON TD 1.0 MMA X:\\jobs\\a.mma  \r\n"},
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 Afa ON TD 1.0 MMA c:\\core\\a.mma ",
       "File a.nc Dir X:\\jobs FS 1 Afa ON TD 1.0 MMA c:\\core\\a.mma  \r\n"},
      // Letters count, and what was put in is not replaced again.
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 MMA C:\\die\\a.mma ",
       "File a.nc Dir X:\\jobs FS 1 MMA C:\\die\\a.mma  \r\n"},
      {"c:\\a\\b\\week1.mcf", "Dir b FS 1 b ", "File a.nc Dir X:\\a\\b FS 1 X:\\a\\b  \r\n"},
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    files.MakeDirectory("c:\\jobs");
    files.MakeDirectory("c:\\a\\b");
    ASSERT_TRUE(WriteJobListFile(c.list, TableOf({Entry("a.nc", c.optionLine)}), &files));
    EXPECT_EQ(files.Bytes(c.list), c.written);
  }
}

TEST(JobListFile, EveryEntryInOrderAndNoneForAnEmptyTable) {
  MemoryFiles files;
  WriteJobListFile("c:\\l.mcf",
                   TableOf({Entry("코아.nc", "Dir c:\\금형 FS 1 "), Entry("b.nc", "")}), &files);
  EXPECT_EQ(files.Bytes("c:\\l.mcf"), "File \xC4\xDA\xBE\xC6.nc Dir X: FS 1  \r\nFile b.nc  \r\n");
  WriteJobListFile("c:\\l.mcf", ResultTable(), &files);
  EXPECT_EQ(files.Bytes("c:\\l.mcf"), "");
}

TEST(JobListFile, TheJobDialogReadsTheSameEntries) {
  MemoryFiles files;
  const CutTimeEntry first =
      Entry("코아.nc",
            "Dir c:\\marlo\\ncdata FS 5 RT ON  3  20.000 -2.500 Afa ON TD 16.0 MMA "
            "c:\\marlo\\ncdata\\a.mma FCS ON  KeyCode  G54  S1000");
  const CutTimeEntry second = Entry("b.nc", "Dir c:\\marlo\\ncdata FS 7 RT OFF Afa OFF ");
  WriteJobListFile("c:\\marlo\\ncdata\\l.mcf", TableOf({first, second}), &files);
  const JobList list =
      ReadJobList(DecodeCp949(files.Bytes("c:\\marlo\\ncdata\\l.mcf")), std::optional('c'));
  EXPECT_EQ(list.names, (std::vector<std::string>{"코아.nc", "b.nc"}));
  EXPECT_EQ(list.lines, (std::vector<std::string>{
                            "Dir c:\\marlo\\ncdata FS 5 RT ON 3 20.000 -2.500 Afa ON TD 16.0 MMA "
                            "c:\\marlo\\ncdata\\a.mma FCS ON KeyCode G54 S1000 ",
                            "Dir c:\\marlo\\ncdata FS 7 RT OFF Afa OFF "}));
}

// One entry a.nc of c:\nc with a master model, written with copying to c:\out\l.mcf.
struct CopyCase {
  const char* what;
  std::vector<std::pair<const char*, const char*>> files;  // before
  const char* optionLine;
  const char* written;
  std::vector<std::pair<const char*, const char*>> after;  // path and bytes; null: none there
  size_t failed;
};

TEST(JobListFileCopy, CopiesWhatIsNotThere) {
  const CopyCase cases[] = {
      {"program and master",
       {{"c:\\nc\\a.nc", "new"}, {"c:\\die\\m.mma", "model"}},
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma FCS ON ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma FCS ON  \r\n",
       {{"c:\\out\\a.nc", "new"}, {"c:\\out\\m.mma", "model"}, {"c:\\nc\\a.nc", "new"}},
       0},
      {"a program is replaced, a master is not",
       {{"c:\\nc\\a.nc", "new"},
        {"c:\\out\\a.nc", "older"},
        {"c:\\die\\m.mma", "model"},
        {"c:\\out\\m.mma", "older"}},
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma  \r\n",
       {{"c:\\out\\a.nc", "new"}, {"c:\\out\\m.mma", "older"}},
       0},
      {"files that lie beside the list, whatever the letters",
       {{"c:\\out\\a.nc", "same"}, {"c:\\out\\m.mma", "model"}},
       "Dir C:\\OUT FS 1 MMA c:\\Out\\m.mma ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma  \r\n",
       {{"c:\\out\\a.nc", "same"}, {"c:\\out\\m.mma", "model"}},
       0},
      {"files that are gone",
       {{"c:\\out\\a.nc", "older"}},
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma  \r\n",
       {{"c:\\out\\a.nc", "older"}, {"c:\\out\\m.mma", nullptr}},
       2},
      {"a master path without a directory is its own name",
       {{"c:\\nc\\a.nc", "new"}},
       "Dir c:\\nc FS 1 MMA m.mma ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma  \r\n",
       {{"c:\\out\\m.mma", nullptr}},
       1},
      {"the master's path is replaced before the directory that holds it",
       {{"c:\\nc\\a.nc", "new"}, {"c:\\nc\\x\\m.mma", "model"}},
       "Dir c:\\nc FS 1 MMA c:\\nc\\x\\m.mma ",
       "File a.nc Dir X:\\out FS 1 MMA X:\\out\\m.mma  \r\n",
       {{"c:\\out\\m.mma", "model"}},
       0},
      {"no option line: no directory to copy from",
       {{"c:\\a.nc", "root"}},
       "",
       "File a.nc  \r\n",
       {{"c:\\out\\a.nc", nullptr}},
       0},
  };
  for (const CopyCase& c : cases) {
    SCOPED_TRACE(c.what);
    MemoryFiles files;
    files.MakeDirectory("c:\\out");
    for (const auto& [path, bytes] : c.files) files.Put(path, bytes);
    std::vector<FailedCopy> failed;
    EXPECT_TRUE(WriteJobListFileCopy("c:\\out\\l.mcf", TableOf({Entry("a.nc", c.optionLine)}),
                                     &files, &failed));
    EXPECT_EQ(files.Bytes("c:\\out\\l.mcf"), c.written);
    for (const auto& [path, bytes] : c.after) {
      ASSERT_EQ(files.Exists(path), bytes != nullptr) << path;
      if (bytes != nullptr) {
        EXPECT_EQ(files.Bytes(path), bytes) << path;
      }
    }
    EXPECT_EQ(failed.size(), c.failed);
  }
}

TEST(JobListFileCopy, TwoEntriesWithOneMasterCopyItOnce) {
  MemoryFiles files;
  files.MakeDirectory("c:\\out");
  for (const char* const path : {"c:\\nc\\a.nc", "c:\\nc\\b.nc", "c:\\die\\m.mma"}) {
    files.Put(path, path);
  }
  const char* const line = "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ";
  std::vector<FailedCopy> failed;
  WriteJobListFileCopy("c:\\out\\l.mcf", TableOf({Entry("a.nc", line), Entry("b.nc", line)}),
                       &files, &failed);
  EXPECT_TRUE(failed.empty());
  EXPECT_EQ(files.Bytes("c:\\out\\b.nc"), "c:\\nc\\b.nc");
}

TEST(JobListFileCopy, AFullDiskLeavesTheOlderFiles) {
  // The writes: the copy of the master, the line, the copy of the program.
  for (int refused = 1; refused <= 3; ++refused) {
    MemoryFiles files;
    files.Put("c:\\nc\\a.nc", "new");
    files.Put("c:\\die\\m.mma", "model");
    files.Put("c:\\out\\a.nc", "older");
    files.Put("c:\\out\\l.mcf", "older list");
    files.RefuseWrite(refused);
    std::vector<FailedCopy> failed;
    const bool written = WriteJobListFileCopy(
        "c:\\out\\l.mcf", TableOf({Entry("a.nc", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ")}), &files,
        &failed);
    EXPECT_EQ(written, refused != 2);
    EXPECT_EQ(files.Bytes("c:\\out\\l.mcf") == "older list", refused == 2);
    EXPECT_EQ(files.Exists("c:\\out\\m.mma"), refused != 1);
    EXPECT_EQ(files.Bytes("c:\\out\\a.nc"), refused == 3 ? "older" : "new");
    EXPECT_EQ(failed.size(), refused == 2 ? 0U : 1U);
  }
}

TEST(JobListFileCopy, AListThatCannotBeCreatedCopiesNothing) {
  MemoryFiles files;
  files.MakeDirectory("c:\\out");
  files.Put("c:\\nc\\a.nc", "new");
  files.RefuseCreation("c:\\out\\l.mcf");
  ScriptedUi ui;
  ui.OnFile("c:\\out\\l.mcf");
  WriteJobListCopy(TableOf({Entry("a.nc", "Dir c:\\nc FS 1 ")}), &files, &ui);
  EXPECT_FALSE(files.Exists("c:\\out\\a.nc"));
  EXPECT_TRUE(ui.messages.empty());
}

// Two names of one file: the copy must not touch it.
TEST(JobListFileCopy, ASourceThatIsItsDestinationStaysWhole) {
  namespace fs = std::filesystem;
  TempDir home;
  home.Put("drive_c/out/a.nc", "G0 X1");
  home.Put("drive_c/out/m.mma", "model");
  home.Put("drive_c/nc/b.nc", "G0 X2");
  fs::create_directory_symlink(home / "drive_c/out", home / "drive_c/link");
  fs::create_symlink(home / "drive_c/nc/b.nc", home / "drive_c/out/b.nc");
  const Drives drives(home.Path());
  const auto files = MakeHostFiles(&drives);
  std::vector<FailedCopy> failed;
  EXPECT_TRUE(WriteJobListFileCopy(
      "c:\\out\\l.mcf",
      TableOf({Entry("a.nc", "Dir c:\\link FS 1 MMA c:\\link\\..\\out\\.\\m.mma "),
               Entry("a.nc", "Dir c:\\out\\..\\out FS 1 "), Entry("b.nc", "Dir c:\\nc FS 1 ")}),
      files.get(), &failed));
  EXPECT_TRUE(failed.empty());
  EXPECT_EQ(HostBytes(home / "drive_c/out/a.nc"), "G0 X1");
  EXPECT_EQ(HostBytes(home / "drive_c/out/m.mma"), "model");
  EXPECT_EQ(HostBytes(home / "drive_c/nc/b.nc"), "G0 X2");
  EXPECT_TRUE(fs::is_symlink(home / "drive_c/out/b.nc"));
}

TEST(JobListOperations, AskForTheListAndDoNothingAfterACancel) {
  MemoryFiles files;
  ScriptedUi ui;
  ui.OnFileCancel();
  ui.OnFile("c:\\marlo\\l.mcf");
  WriteJobList(ResultTable(), &files, &ui);
  EXPECT_TRUE(files.FilePaths().empty());
  WriteJobListCopy(ResultTable(), &files, &ui);
  EXPECT_EQ(files.Bytes("c:\\marlo\\l.mcf"), "");
  for (const FileQuestion& question : ui.fileQuestions) {
    EXPECT_TRUE(question.save);
    EXPECT_FALSE(question.confirmsOverwrite);
    EXPECT_EQ(question.title, "TVX  화일명을 입력 하시요!!");
    EXPECT_EQ(question.fileName, "*.mcf");
    EXPECT_EQ(question.filter, "TVX file (*.mcf)|*.mcf|모든 화일(*.*)|*.*||");
  }
}

}  // namespace
}  // namespace tvx
