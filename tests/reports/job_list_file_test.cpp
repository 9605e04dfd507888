// The lines of the job list file, and the files copied beside it.
#include "reports/job_list_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/scan.h"
#include "platform/files/drives.h"
#include "reports/example_entry.h"
#include "support/memory_files.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

TEST(JobListFile, LineGetsTheDirectoryOfTheList) {
  constexpr char kJobs[] = "c:\\jobs\\week1.mcf";
  const std::array<const char*, 3> cases[] = {
      // list, option line, line in the list
      {kJobs, "", " "},
      {"c:\\week1.mcf", "Dir c:\\marlo\\ncdata FS 1 ", "Dir X: FS 1  "},
      {"\\jobs\\week1.mcf", "Dir c:\\nc FS 1 ", "Dir Xjobs FS 1  "},  // no drive to replace
      {"week1.mcf", "Dir c:\\nc FS 1 ", "Dir  FS 1  "},
      // Everywhere in the line, so the path of a master model below the directory changes too. Case
      // matters, and inserted text is not replaced again.
      {kJobs, "Dir c:\\die FS 1 MMA c:\\die\\a.mma ", "Dir X:\\jobs FS 1 MMA X:\\jobs\\a.mma  "},
      {kJobs, "Dir c:\\die FS 1 MMA C:\\die\\a.mma ", "Dir X:\\jobs FS 1 MMA C:\\die\\a.mma  "},
      // A path below a root is joined by one backslash.
      {kJobs, "Dir c:\\ FS 1 MMA c:\\die\\a.mma ", "Dir X:\\jobs FS 1 MMA X:\\jobs\\die\\a.mma  "},
      {"c:\\week1.mcf", "Dir e:\\ FS 1 MMA e:\\a.mma", "Dir X: FS 1 MMA X:\\a.mma "},
      {"c:\\a\\b\\week1.mcf", "Dir b FS 1 b ", "Dir X:\\a\\b FS 1 X:\\a\\b  "},
  };
  for (const auto& [list, optionLine, written] : cases) {
    MemoryFiles files;
    files.MakeDirectory("c:\\jobs");
    files.MakeDirectory("c:\\a\\b");
    ASSERT_TRUE(WriteJobListFile(list, ResultsOf({PlainEntry("a.nc", optionLine)}), &files).ok())
        << list;
    EXPECT_EQ(files.Bytes(list), "File a.nc " + std::string(written) + "\r\n");
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

TEST(JobListFileCopy, ProgramIsReplacedAndMasterIsKept) {
  const struct {
    const char *before, *optionLine, *written, *after;
    size_t failed = 0;
  } cases[] = {
      {"c:\\nc\\a.nc=new c:\\die\\m.mma=model", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma FCS ON ",
       "Dir X:\\out FS 1 MMA X:\\out\\m.mma FCS ON ", "a.nc=new m.mma=model "},
      {"c:\\nc\\a.nc=new c:\\out\\a.nc=older c:\\die\\m.mma=model c:\\out\\m.mma=older",
       "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ", kBothBeside, "a.nc=new m.mma=older "},
      // Files already beside the list, in other case; files that do not exist.
      {"c:\\out\\a.nc=same c:\\out\\m.mma=model", "Dir C:\\OUT FS 1 MMA c:\\Out\\m.mma ",
       kBothBeside, "a.nc=same m.mma=model "},
      {"c:\\out\\a.nc=older", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ", kBothBeside, "a.nc=older ", 2},
      // A master path without a directory is its own name.
      {"c:\\nc\\a.nc=new", "Dir c:\\nc FS 1 MMA m.mma ", kBothBeside, "a.nc=new ", 1},
      // The master's path is replaced before the directory that is a part of it.
      {"c:\\nc\\a.nc=new c:\\nc\\x\\m.mma=model", "Dir c:\\nc FS 1 MMA c:\\nc\\x\\m.mma ",
       kBothBeside, "a.nc=new m.mma=model "},
      // The word of a master is found in the directory; the word without a path; no option line.
      {"c:\\MMA\\a.nc=new", "Dir c:\\MMA FS 1 ", "Dir X:\\out X:\\out\\FS 1 ", "a.nc=new ", 1},
      {"c:\\nc\\a.nc=new", "Dir c:\\nc FS 1 MMA ", "Dir X:\\out FS 1 MMA ", "a.nc=new "},
      {"c:\\a.nc=root", "", "", ""},
      // Only a master model is copied as one.
      {"c:\\nc\\a.nc=new c:\\etc\\passwd=root", "Dir c:\\nc FS 1 MMA c:\\etc\\passwd ",
       "Dir X:\\out FS 1 MMA X:\\out\\passwd ", "a.nc=new ", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.before);
    MemoryFiles files;
    files.MakeDirectory("c:\\out");
    PutAll(c.before, &files);
    std::vector<FailedCopy> failed;
    EXPECT_TRUE(
        WriteJobListFileCopy(kList, ResultsOf({PlainEntry("a.nc", c.optionLine)}), &files, &failed)
            .ok());
    EXPECT_EQ(files.Bytes(kList), "File a.nc " + std::string(c.written) + " \r\n");
    EXPECT_EQ(Beside(files), c.after);
    EXPECT_EQ(failed.size(), c.failed);
  }
}

TEST(JobListFileCopy, TwoFilesOfOneNameAreRefusedBeforeAnythingIsWritten) {
  const struct {
    const char *firstLine, *secondName, *secondLine;
    bool refused;
  } cases[] = {
      {"Dir c:\\nc FS 1 ", "a.nc", "Dir c:\\die FS 1 ", true},
      {"Dir c:\\nc FS 1 ", "A.NC", "Dir c:\\die FS 1 ", true},
      {"Dir c:\\nc FS 1 ", "a.nc", "Dir C:\\x\\..\\NC FS 1 ", false},
      {"Dir c:\\nc MMA c:\\nc\\m.mma ", "b.nc", "Dir c:\\nc MMA c:\\die\\m.mma ", true},
      {"Dir c:\\nc MMA c:\\nc\\m.mma ", "b.nc", "Dir c:\\nc MMA c:\\nc\\m.mma ", false},
      {"Dir c:\\nc FS 1 ", "L.MCF", "Dir c:\\die FS 1 ", true},  // the list's own name
      {"Dir c:\\nc FS 1 ", "l.mcf", "Dir c:\\out FS 1 ", true},
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    PutAll("c:\\nc\\a.nc=a c:\\nc\\b.nc=b c:\\die\\a.nc=other c:\\out\\l.mcf=list", &files);
    const size_t before = files.FilePaths().size();
    const std::vector<ProgramResult> table =
        ResultsOf({PlainEntry("a.nc", c.firstLine), PlainEntry(c.secondName, c.secondLine)});
    EXPECT_NE(WriteJobListFileCopy(kList, table, &files, nullptr).ok(), c.refused) << c.secondLine;
    EXPECT_EQ(files.FilePaths().size() == before, c.refused) << c.secondLine;
    EXPECT_EQ(files.Bytes(kList) == "list", c.refused);
  }
}

TEST(JobListFileCopy, FailedWriteKeepsTheOlderFiles) {
  const std::vector<ProgramResult> table =
      ResultsOf({PlainEntry("a.nc", "Dir c:\\nc FS 1 MMA c:\\die\\m.mma ")});
  // The files beside the list after each failed write: the copy of the master, the copy of the
  // program, the list.
  const char* const after[] = {"a.nc=new ", "a.nc=older m.mma=model ", "a.nc=new m.mma=model "};
  for (int refused = 1; refused <= 3; ++refused) {
    MemoryFiles files;
    PutAll("c:\\nc\\a.nc=new c:\\die\\m.mma=model c:\\out\\a.nc=older c:\\out\\l.mcf=list", &files);
    files.RefuseWrite(refused);
    std::vector<FailedCopy> failed;
    EXPECT_EQ(WriteJobListFileCopy(kList, table, &files, &failed).ok(), refused != 3);
    EXPECT_EQ(files.Bytes(kList) == "list", refused == 3);
    EXPECT_EQ(Beside(files), after[refused - 1]);
    EXPECT_EQ(failed.size(), refused == 3 ? 0U : 1U);
  }
  MemoryFiles files;
  PutAll("c:\\nc\\a.nc=new c:\\out\\x=x", &files);
  files.RefuseCreation(kList);
  EXPECT_FALSE(WriteJobListFileCopy(kList, table, &files, nullptr).ok());
  EXPECT_EQ(files.FilePaths().size(), 2U) << "neither a list nor a copy";
}

// A source that is its own destination under another name must not be changed.
TEST(JobListFileCopy, SourceThatIsItsDestinationIsKept) {
  namespace fs = std::filesystem;
  TempDir home;
  home.Put("drive_c/out/a.nc", "G0 X1");
  home.Put("drive_c/out/m.mma", "model");
  home.Put("drive_c/nc/b.nc", "G0 X2");
  fs::create_directory_symlink(home / "drive_c/out", home / "drive_c/link");
  fs::create_symlink(home / "drive_c/nc/b.nc", home / "drive_c/out/b.nc");
  const Drives drives(home.Path());
  const auto files = MakeHostFiles(&drives);
  for (const auto& entry :
       {PlainEntry("a.nc", "Dir c:\\link FS 1 MMA c:\\link\\..\\out\\.\\m.mma "),
        PlainEntry("a.nc", "Dir c:\\out\\..\\out FS 1 "), PlainEntry("b.nc", "Dir c:\\nc FS 1 ")}) {
    std::vector<FailedCopy> failed;
    EXPECT_TRUE(WriteJobListFileCopy(kList, ResultsOf({entry}), files.get(), &failed).ok());
    EXPECT_TRUE(failed.empty());
  }
  EXPECT_EQ(HostBytes(home / "drive_c/out/a.nc") + HostBytes(home / "drive_c/out/m.mma") +
                HostBytes(home / "drive_c/nc/b.nc"),
            "G0 X1modelG0 X2");
  EXPECT_TRUE(fs::is_symlink(home / "drive_c/out/b.nc"));
}

}  // namespace
}  // namespace tvx
