// Files on disk and in memory: the same results for the same calls.
#include "platform/files/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <set>

#include "platform/files/drives.h"
#include "support/memory_files.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// The kind of entry at a path, with the bytes of a file; all operations have to agree on it.
std::string At(Files* files, const std::string& path) {
  const auto [bytes, read] = ReadWholeFile(files, path);
  const bool isFile = read.ok();
  const bool isDirectory = files->IsDirectory(path);
  EXPECT_FALSE(isFile && isDirectory) << path;
  EXPECT_EQ(files->Exists(path), isFile || isDirectory) << path;
  EXPECT_EQ(files->Size(path), bytes.size()) << path;
  return isFile ? "file " + bytes : isDirectory ? "directory" : "none";
}

using List = std::set<std::string>;

List Names(Files* files, const std::string& directory) {
  const Result<std::vector<DirectoryEntry>> entries = files->List(directory);
  EXPECT_TRUE(entries.ok()) << directory;
  List names;
  for (const DirectoryEntry& entry : entries.value) {
    names.insert(entry.name + (entry.isDirectory ? "\\" : " " + std::to_string(entry.size)));
  }
  return names;
}

// A home with the files of this machine, removed afterwards.
struct HostDisk {
  TempDir home;
  fs::path c = home / "drive_c";
  Drives drives{home.Path()};
  std::unique_ptr<Files> files = MakeHostFiles(&drives);
};

// Both file systems behave alike, so a test in memory holds on the disk, too.
class AnyFiles : public testing::TestWithParam<bool> {
 protected:
  AnyFiles() {
    EXPECT_TRUE(WriteWholeFile(files_, "c:\\marlo\\ncdata\\Part.NC", "G1 X1\r\n").ok());
    EXPECT_TRUE(files_->SetCurrentDirectory("C:\\Marlo/ncdata\\").ok());
  }

  HostDisk host_;
  MemoryFiles memory_;
  Files* files_ = GetParam() ? host_.files.get() : &memory_;
};

INSTANTIATE_TEST_SUITE_P(Both, AnyFiles, testing::Bool(),
                         [](const auto& p) { return p.param ? "Host" : "Memory"; });

TEST_P(AnyFiles, PathsWithoutCaseAndFromTheCurrentDirectory) {
  EXPECT_EQ(files_->CurrentDirectory(), "C:\\Marlo\\ncdata");
  for (const char* path :
       {"c:\\marlo\\ncdata\\Part.NC", "C:/MARLO/NCDATA/PART.nc", "part.nc", ".\\part.nc",
        "..\\NcData\\part.nc", "\\marlo\\ncdata\\part.nc", "/marlo/./afa/../ncdata/part.nc",
        "..\\..\\..\\marlo\\ncdata\\part.nc"}) {
    EXPECT_EQ(At(files_, path), "file G1 X1\r\n") << path;
  }
  for (const char* path : {"", "none.nc", "c:\\part.nc", "c:\\none\\part.nc", "q:\\part.nc"}) {
    EXPECT_EQ(At(files_, path), "none") << path;
    EXPECT_FALSE(files_->Copy(path, "c:\\x").ok()) << path;
  }
  EXPECT_EQ(At(files_, "c:\\Marlo"), "directory");
}

TEST_P(AnyFiles, CurrentDirectory) {
  const char* const kCases[][2] = {
      // where to, and the current directory then
      {"..\\afa", "C:\\Marlo\\afa"},  // letters as they were set
      {"\\", "C:\\"},
      {"windows", "C:\\windows"},
      {"z:", "z:\\"},
      {"c:\\marlo\\", "c:\\marlo"},
  };
  for (const auto& [directory, then] : kCases) {
    EXPECT_TRUE(files_->SetCurrentDirectory(directory).ok()) << directory;
    for (const char* refused : {"none", "", "c:\\marlo\\ncdata\\part.nc", "q:\\"}) {
      EXPECT_FALSE(files_->SetCurrentDirectory(refused).ok()) << refused;
    }
    EXPECT_EQ(files_->CurrentDirectory(), then);
  }
}

TEST_P(AnyFiles, PathsOfNoFileCannotBeCreated) {
  for (const char* path : {"", "none\\x.nc", "part.nc\\x.nc", "q:\\x.nc", "new\\", "c:\\new/",
                           "n:", "n:\\", "c:\\marlo", "c:\\"}) {
    EXPECT_FALSE(files_->Create(path).ok()) << path;
    EXPECT_FALSE(files_->OpenOrCreateForReading(path).ok()) << path;
    EXPECT_FALSE(files_->Copy("part.nc", path).ok()) << path;
  }
  EXPECT_FALSE(files_->Copy("c:\\marlo", "x").ok());
  for (const char* path : {"new.nc", "PART.nc"}) {
    EXPECT_TRUE(files_->OpenOrCreateForReading(path).ok()) << path;
  }
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 7", "new.nc 0"}));
}

TEST_P(AnyFiles, WritesPatchesAndReadsInPieces) {
  const auto file = files_->Create("new.dat").value;
  ASSERT_NE(file, nullptr);
  const std::string big(200000, 'b');
  EXPECT_TRUE(file->Write("size").ok() && file->Patch(0, "Si").ok());
  EXPECT_FALSE(file->Patch(3, "12").ok());
  EXPECT_FALSE(file->Patch(UINT64_MAX, "1").ok());
  EXPECT_TRUE(file->Write("+").ok() && file->Write(big).ok() && file->Write("end").ok());
  EXPECT_TRUE(file->Patch(200005, "END").ok());
  EXPECT_FALSE(file->Patch(200006, "END").ok());
  EXPECT_TRUE(file->Write("\0."s).ok());
  EXPECT_FALSE(files_->Exists("new.dat"));
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_FALSE(file->Write("late").ok() || file->Commit().ok());

  std::string read(300000, '.');
  const auto input = files_->OpenForReading("new.dat").value;
  EXPECT_EQ(input->Read(read.data(), 3), 3u);
  EXPECT_EQ(input->Read(read.data() + 3, 299997), 200007u);
  EXPECT_EQ(input->Read(read.data(), 16), 0u);
  EXPECT_TRUE(read.substr(0, 200010) == "Size+" + big + "END\0."s);
}

TEST_P(AnyFiles, ReadAtLeavesThePlaceOfReadAndTheStampShowsAWrite) {
  ASSERT_TRUE(WriteWholeFile(files_, "a", "0123456789").ok());
  const auto file = files_->OpenForReading("a").value;
  char bytes[4] = {};
  EXPECT_EQ(file->ReadAt(7, bytes, 4), 3U);
  EXPECT_EQ(std::string(bytes, 3), "789");
  EXPECT_EQ(file->ReadAt(10, bytes, 4), 0U);
  EXPECT_EQ(file->Read(bytes, 1), 1U);
  EXPECT_EQ(bytes[0], '0');

  const FileStamp stamp = file->Stamp();
  EXPECT_EQ(files_->OpenForReading("a").value->Stamp(), stamp);
  ASSERT_TRUE(WriteWholeFile(files_, "a", "0123456789X").ok());
  EXPECT_NE(files_->OpenForReading("a").value->Stamp(), stamp);
}

TEST_P(AnyFiles, OlderFileStaysUntilCommit) {
  EXPECT_TRUE(files_->Create("PART.nc").value->Write("new").ok());
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 7"}));
  EXPECT_TRUE(WriteWholeFile(files_, "PART.nc", "new").ok());
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 3"}));  // one file still, its name unchanged
}

TEST_P(AnyFiles, Copies) {
  EXPECT_TRUE(files_->Copy("part.nc", "c:\\copy.nc").ok());
  EXPECT_TRUE(WriteWholeFile(files_, "part.nc", "other").ok());
  EXPECT_EQ(At(files_, "c:\\copy.nc"), "file G1 X1\r\n");
  EXPECT_TRUE(files_->Copy("part.nc", "c:\\COPY.NC").ok());
  EXPECT_TRUE(files_->Copy("part.nc", "..\\NCDATA\\PART.NC").ok());  // itself
  EXPECT_EQ(At(files_, "part.nc") + At(files_, "c:\\copy.nc"), "file otherfile other");
}

TEST_P(AnyFiles, Lists) {
  EXPECT_EQ(Names(files_, "c:\\"), (List{"marlo\\", "windows\\"}));
  for (const char* path : {"part.nc", "none", "q:\\"}) {
    EXPECT_FALSE(files_->List(path).ok()) << path;
  }
  EXPECT_EQ(files_->DriveLetters(), (std::vector<char>{'c', 'z'}));
}

// What only a real disk has.
class HostFiles : public testing::Test, protected HostDisk {
 protected:
  // Lets no file grow beyond 1000 bytes, as a full disk does.
  static void FillDisk() {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  // Gives up the rights of the superuser, for whom nothing is unreadable.
  static void BecomeOrdinary() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && seteuid(kNobody) != 0) std::_Exit(2);
  }
  // Expects of an operation that it fails like this, in a process of its own prepared for that.
  static void ExpectRefused(void (*prepare)(), const Status& expected,
                            const std::function<Status()>& operation) {
    EXPECT_EXIT(
        {
          prepare();
          std::_Exit(operation() == expected ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
  }
};

TEST_F(HostFiles, StartInTheDirectoryOfTheProcess) {
  const fs::path before = fs::current_path();
  fs::current_path(c / "marlo");
  EXPECT_EQ(MakeHostFiles(&drives)->CurrentDirectory(), "c:\\marlo");
  fs::current_path(before);
  home.Put("drives.txt", "c: drive_c\n");
  const Drives alone(home.Path());
  EXPECT_EQ(MakeHostFiles(&alone)->CurrentDirectory(), "c:\\");
}

TEST_F(HostFiles, FullDiskLeavesTheOlderFile) {
  home.Put("drive_c/a.afa", "old");
  home.Put("drive_c/big.mma", std::string(300000, 'm'));
  for (const size_t size : {1001u, 100000u}) {  // the smaller one is buffered
    ExpectRefused(FillDisk, {StatusKind::kWriteFailed, "c:\\a.afa", EFBIG},
                  [&] { return WriteWholeFile(files.get(), "c:\\a.afa", std::string(size, 'n')); });
  }
  for (const char* target : {"c:\\a.afa", "c:\\new"}) {
    ExpectRefused(FillDisk, {StatusKind::kWriteFailed, target, EFBIG},
                  [&] { return files->Copy("c:\\big.mma", target); });
  }
  EXPECT_EQ(HostBytes(c / "a.afa"), "old");
  EXPECT_EQ(Names(files.get(), "c:\\").size(), 4U) << "no trace of the new files";
}

TEST_F(HostFiles, RightsAreRespectedAndKept) {
  fs::permissions(home.Path(), fs::perms(0755));
  fs::permissions(c, fs::perms(0777));
  fs::permissions(home.Put("drive_c/secret.nc", "G1\n"), fs::perms(0200));
  fs::permissions(home.Put("drive_c/fixed.nc", "G1\n"), fs::perms(0444));
  const Status secret(StatusKind::kCannotOpen, "c:\\secret.nc", EACCES);
  ExpectRefused(BecomeOrdinary, secret,
                [&] { return files->OpenForReading("c:\\secret.nc").status; });
  ExpectRefused(BecomeOrdinary, secret,
                [&] { return files->OpenOrCreateForReading("c:\\secret.nc").status; });
  ExpectRefused(BecomeOrdinary, secret,
                [&] { return files->Copy("c:\\secret.nc", "c:\\copy.nc"); });
  ExpectRefused(BecomeOrdinary, {StatusKind::kCannotOpen, "c:\\fixed.nc", EACCES},
                [&] { return WriteWholeFile(files.get(), "c:\\fixed.nc", "new"); });
  EXPECT_EQ(HostBytes(c / "fixed.nc"), "G1\n");

  fs::permissions(home.Put("drive_c/shared.nc", "G1\n"), fs::perms(0664));
  const mode_t mask = umask(027);
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\shared.nc", "new").ok());
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\fresh.nc", "new").ok());
  umask(mask);
  EXPECT_EQ(fs::status(c / "shared.nc").permissions(), fs::perms(0664));
  EXPECT_EQ(fs::status(c / "fresh.nc").permissions(), fs::perms(0640));
}

TEST_F(HostFiles, WriteThroughLinksAndListWhatADrivePathCanName) {
  const TempDir elsewhere;
  elsewhere.Put("target.nc", "old");
  fs::create_symlink(elsewhere / "target.nc", c / "link.nc");
  fs::create_symlink("LINK2.nc", c / "link1.nc");
  fs::create_symlink("marlo/made.nc", c / "LINK2.nc");
  fs::create_symlink("loop", c / "loop");
  fs::create_directory_symlink("marlo", c / "folder");
  home.Put("drive_c/back\\slash", "");

  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\link.nc", "new").ok());
  EXPECT_EQ(HostBytes(elsewhere / "target.nc"), "new");
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\link1.nc", "made").ok());
  EXPECT_EQ(HostBytes(c / "marlo/made.nc"), "made");
  EXPECT_FALSE(WriteWholeFile(files.get(), "c:\\loop", "x").ok());
  EXPECT_TRUE(fs::is_symlink(c / "link.nc") && fs::is_symlink(c / "loop"));
  EXPECT_EQ(Names(files.get(), "c:\\"), (List{"LINK2.nc 4", "folder\\", "link.nc 3", "link1.nc 4",
                                              "loop 0", "marlo\\", "windows\\"}));
}

TEST_F(HostFiles, CopyKnowsTheSameFileBehindALink) {
  home.Put("drive_c/a.nc", "G1\n");
  fs::create_symlink("a.nc", c / "soft.nc");
  fs::create_hard_link(c / "a.nc", c / "hard.nc");
  for (const char* other : {"c:\\soft.nc", "c:\\hard.nc", "C:\\A.NC"}) {
    EXPECT_TRUE(files->Copy("c:\\a.nc", other).ok()) << other;
    EXPECT_TRUE(files->Copy(other, "c:\\a.nc").ok()) << other;
  }
  EXPECT_TRUE(files->Copy("c:\\a.nc", "z:\\" + (c / "a.nc").string()).ok());
  EXPECT_TRUE(fs::is_symlink(c / "soft.nc"));
  EXPECT_EQ(fs::hard_link_count(c / "a.nc"), 2u);
  EXPECT_EQ(HostBytes(c / "a.nc"), "G1\n");
}

TEST_F(HostFiles, PipesAndDevicesAreRefusedAtOnce) {
  ASSERT_EQ(mkfifo((c / "pipe").c_str(), 0666), 0);
  alarm(10);  // an opening that waits for the pipe's other side ends the test program
  for (const char* path : {"c:\\pipe", "z:\\dev\\null"}) {
    const Status noFile(StatusKind::kNoFile, path);
    EXPECT_EQ(files->OpenForReading(path).status, noFile) << path;
    EXPECT_EQ(files->OpenOrCreateForReading(path).status, noFile) << path;
    EXPECT_EQ(files->Create(path).status, noFile) << path;
    EXPECT_EQ(files->Size(path), 0u) << path;
  }
  alarm(0);
}

TEST_F(HostFiles, FileThatChangesWhileItIsReadHasNoEnd) {
  const struct {
    const char* change;  // after the first byte
    StatusKind kind;
  } cases[] = {
      {"", StatusKind::kOk}, {"0", StatusKind::kChanged}, {"012345678", StatusKind::kChanged}};
  for (const auto& [change, kind] : cases) {
    const fs::path path = home.Put("drive_c/a.nc", "0123");
    const auto file = files->OpenForReading("c:\\a.nc").value;
    char bytes[16];
    EXPECT_EQ(file->Read(bytes, 1), 1U);
    if (*change != '\0') home.Put("drive_c/a.nc", change);
    while (file->Read(bytes, 2) > 0) {
    }
    EXPECT_EQ(file->status().kind(), kind) << change;
  }
}

TEST_F(HostFiles, StatusDistinguishesMissingFromUnreadable) {
  home.Put("drive_c/a.nc", "");
  fs::create_symlink("loop", c / "loop");
  const struct {
    const char* path;
    StatusKind opened, lookedAt;
    int reason;
  } cases[] = {
      {"c:\\a.nc", StatusKind::kOk, StatusKind::kOk, 0},
      {"c:\\none", StatusKind::kMissing, StatusKind::kMissing, ENOENT},
      {"c:\\a.nc\\b", StatusKind::kMissing, StatusKind::kMissing, ENOTDIR},
      {"c:\\marlo", StatusKind::kNoFile, StatusKind::kOk, EISDIR},
      {"c:\\loop", StatusKind::kCannotOpen, StatusKind::kCannotOpen, ELOOP},
      {"z:\\dev\\null", StatusKind::kNoFile, StatusKind::kOk, 0},
  };
  for (const auto& [path, opened, lookedAt, reason] : cases) {
    const Status status = files->OpenForReading(path).status;
    EXPECT_EQ(status.kind(), opened) << path;
    EXPECT_EQ(status.reason(), reason) << path;
    EXPECT_EQ(files->LookAt(path).kind(), lookedAt) << path;
  }
}

TEST_F(HostFiles, LeftoversOfEndedProcessesAreRemovedByTheNextWriter) {
  const std::string own = std::to_string(getpid());
  // The number of a process that has ended.
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  for (const std::string& process :
       {std::to_string(child), own, std::string("1"), std::string("x")}) {
    home.Put("drive_c/.tvx-" + process + "-9.tmp", "part");
  }
  const auto open = files->Create("c:\\b.nc").value;  // its own temporary file stays
  ASSERT_TRUE(WriteWholeFile(files.get(), "c:\\a.nc", "new").ok());
  EXPECT_TRUE(open->Commit().ok());
  EXPECT_EQ(Names(files.get(), "c:\\"),
            (List{".tvx-1-9.tmp 4", ".tvx-x-9.tmp 4", "a.nc 3", "b.nc 0", "marlo\\", "windows\\"}));
}

TEST_F(HostFiles, TargetThatBecomesADirectoryFailsAtCommit) {
  const auto file = files->Create("c:\\x").value;
  fs::create_directories(c / "x");
  EXPECT_FALSE(file->Commit().ok());
}

}  // namespace
}  // namespace tvx
