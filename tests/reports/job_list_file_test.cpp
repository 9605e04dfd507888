// The job list file and what is copied beside it.
#include "reports/job_list_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/scan.h"
#include "platform/drives.h"
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

// One entry a.nc, written to a list.
TEST(JobListFile, LinesGetTheDirectoryOfTheList) {
  const struct {
    const char* list;
    const char* optionLine;
    const char* written;
  } cases[] = {
      {"c:\\jobs\\week1.mcf", "", " "},
      {"c:\\week1.mcf", "Dir c:\\marlo\\ncdata FS 1 ", "Dir X: FS 1  "},
      {"\\jobs\\week1.mcf", "Dir c:\\nc FS 1 ", "Dir Xjobs FS 1  "},  // no drive to replace
      {"week1.mcf", "Dir c:\\nc FS 1 ", "Dir  FS 1  "},
      // Everywhere in the line, so a master model below the directory moves with it.
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 Afa ON TD 1.0 MMA c:\\die\\a.mma ",
       "Dir X:\\jobs FS 1 Afa ON TD 1.0 MMA X:\\jobs\\a.mma  "},
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 Afa ON TD 1.0 MMA c:\\core\\a.mma ",
       "Dir X:\\jobs FS 1 Afa ON TD 1.0 MMA c:\\core\\a.mma  "},
      // Letters count, and what was put in is not replaced again.
      {"c:\\jobs\\week1.mcf", "Dir c:\\die FS 1 MMA C:\\die\\a.mma ",
       "Dir X:\\jobs FS 1 MMA C:\\die\\a.mma  "},
      {"c:\\a\\b\\week1.mcf", "Dir b FS 1 b ", "Dir X:\\a\\b FS 1 X:\\a\\b  "},
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    files.MakeDirectory("c:\\jobs");
    files.MakeDirectory("c:\\a\\b");
    ASSERT_TRUE(WriteJobListFile(c.list, TableOf({Entry("a.nc", c.optionLine)}), &files)) << c.list;
    EXPECT_EQ(files.Bytes(c.list), "File a.nc " + std::string(c.written) + "\r\n");
  }
}

// Files as a text "PATH=BYTES PATH=BYTES".
void PutAll(const std::string& text, MemoryFiles* files) {
  WordScanner words(text);
  for (std::string word; words.ReadWord(&word);) {
    const size_t end = word.find('=');
    files->Put(word.substr(0, end), word.substr(end + 1));
  }
}

// Those in the directory of the list, without the list.
std::string Beside(const MemoryFiles& files) {
  std::string text;
  for (const std::string& path : files.FilePaths()) {
    if (!path.starts_with("c:\\out\\") || path.ends_with("l.mcf")) continue;
    text += path.substr(7) + "=" + files.Bytes(path) + " ";
  }
  return text;
}

constexpr char kList[] = "c:\\out\\l.mcf";
constexpr char kBothBeside[] = "Dir X:\\out FS 1 MMA X:\\out\\m.mma ";

TEST(JobListFileCopy, CopiesWhatIsNotThere) {
  const struct {
    const char* what;
    const char* before;
    const char* optionLine;
    const char* written;
    const char* after;
    size_t failed = 0;
  } cases[] = {
      {"program and master", "c:\\nc\\a.nc=new c:\\die\\m.mma=model",
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma FCS ON ", "Dir X:\\out FS 1 MMA X:\\out\\m.mma FCS ON ",
       "a.nc=new m.mma=model "},
      {"a program is replaced, a master is not",
       "c:\\nc\\a.nc=new c:\\out\\a.nc=older c:\\die\\m.mma=model c:\\out\\m.mma=older",
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ", kBothBeside, "a.nc=new m.mma=older "},
      {"files that lie beside the list, whatever the letters",
       "c:\\out\\a.nc=same c:\\out\\m.mma=model", "Dir C:\\OUT FS 1 MMA c:\\Out\\m.mma ",
       kBothBeside, "a.nc=same m.mma=model "},
      {"files that are gone", "c:\\out\\a.nc=older", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ",
       kBothBeside, "a.nc=older ", 2},
      {"a master path without a directory is its own name", "c:\\nc\\a.nc=new",
       "Dir c:\\nc FS 1 MMA m.mma ", kBothBeside, "a.nc=new ", 1},
      {"the master's path is replaced before the directory that holds it",
       "c:\\nc\\a.nc=new c:\\nc\\x\\m.mma=model", "Dir c:\\nc FS 1 MMA c:\\nc\\x\\m.mma ",
       kBothBeside, "a.nc=new m.mma=model "},
      {"the word of a master is found in the directory", "c:\\MMA\\a.nc=new", "Dir c:\\MMA FS 1 ",
       "Dir X:\\out X:\\out\\FS 1 ", "a.nc=new ", 1},
      {"a master without its path", "c:\\nc\\a.nc=new", "Dir c:\\nc FS 1 MMA ",
       "Dir X:\\out FS 1 MMA ", "a.nc=new "},
      {"no option line: no directory to copy from", "c:\\a.nc=root", "", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    MemoryFiles files;
    files.MakeDirectory("c:\\out");
    PutAll(c.before, &files);
    std::vector<FailedCopy> failed;
    EXPECT_TRUE(
        WriteJobListFileCopy(kList, TableOf({Entry("a.nc", c.optionLine)}), &files, &failed));
    EXPECT_EQ(files.Bytes(kList), "File a.nc " + std::string(c.written) + " \r\n");
    EXPECT_EQ(Beside(files), c.after);
    EXPECT_EQ(failed.size(), c.failed);
  }
}

TEST(JobListFileCopy, AFullDiskLeavesTheOlderFiles) {
  const ResultTable table = TableOf({Entry("a.nc", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ")});
  // What lies there after each write that fails: the copy of the master, the line, the copy of the
  // program.
  const char* const after[] = {"a.nc=new ", "a.nc=new m.mma=model ", "a.nc=older m.mma=model "};
  for (int refused = 1; refused <= 3; ++refused) {
    MemoryFiles files;
    PutAll("c:\\nc\\a.nc=new c:\\die\\m.mma=model c:\\out\\a.nc=older c:\\out\\l.mcf=list", &files);
    files.RefuseWrite(refused);
    std::vector<FailedCopy> failed;
    EXPECT_EQ(WriteJobListFileCopy(kList, table, &files, &failed), refused != 2);
    EXPECT_EQ(files.Bytes(kList) == "list", refused == 2);
    EXPECT_EQ(Beside(files), after[refused - 1]);
    EXPECT_EQ(failed.size(), refused == 2 ? 0U : 1U);
  }
  // The list without copies.
  MemoryFiles files;
  files.RefuseCommit(1);
  EXPECT_FALSE(WriteJobListFile("c:\\l.mcf", table, &files));
  EXPECT_FALSE(files.Exists("c:\\l.mcf"));
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

TEST(JobListOperations, AskForTheListAndSayNothingWhenItFails) {
  MemoryFiles files;
  PutAll("c:\\nc\\a.nc=new c:\\out\\x=x", &files);
  files.RefuseCreation(kList);
  ScriptedUi ui;
  const ResultTable table = TableOf({Entry("a.nc", "Dir c:\\nc FS 1 ")});
  for (const auto write : {WriteJobList, WriteJobListCopy}) {
    ui.OnFileCancel();
    write(table, &files, &ui);
    ui.OnFile(kList);
    write(table, &files, &ui);
  }
  EXPECT_EQ(Beside(files), "x=x ") << "nothing is copied";
  EXPECT_TRUE(ui.messages.empty());
  for (const FileQuestion& question : ui.fileQuestions) {
    EXPECT_TRUE(question.save && !question.confirmsOverwrite);
    EXPECT_EQ(question.title, "TVX  화일명을 입력 하시요!!");
    EXPECT_EQ(question.fileName, "*.mcf");
    EXPECT_EQ(question.filter, "TVX file (*.mcf)|*.mcf|모든 화일(*.*)|*.*||");
  }
}

}  // namespace
}  // namespace tvx
