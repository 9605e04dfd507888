#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "platform/drives.h"
#include "support/memory_files.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string Bytes(Files* files, const std::string& path) {
  std::string bytes;
  return ReadWholeFile(files, path, &bytes) ? bytes : "(none)";
}

std::vector<std::string> Names(Files* files, const std::string& directory) {
  std::vector<DirectoryEntry> entries;
  EXPECT_TRUE(files->List(directory, &entries)) << directory;
  std::vector<std::string> names;
  names.reserve(entries.size());
  for (const DirectoryEntry& entry : entries) {
    names.push_back(entry.name + (entry.isDirectory ? "\\" : " " + std::to_string(entry.size)));
  }
  std::sort(names.begin(), names.end());
  return names;
}

using List = std::vector<std::string>;

// A home with the files of this machine, removed afterwards.
struct HostDisk {
  TempDir home;
  fs::path c = home / "drive_c";
  Drives drives{home.Path()};
  std::unique_ptr<Files> files = MakeHostFiles(&drives);
};

// What both file systems have to do alike, so that a test in memory tells something of the disk.
enum class Disk { kHost, kMemory };

class AnyFiles : public testing::TestWithParam<Disk> {
 protected:
  AnyFiles() {
    EXPECT_TRUE(WriteWholeFile(files_, "c:\\marlo\\ncdata\\Part.NC", "G1 X1\r\n"));
    EXPECT_TRUE(files_->SetCurrentDirectory("C:\\Marlo/ncdata\\"));
  }

  HostDisk host_;
  MemoryFiles memory_;
  Files* files_ = GetParam() == Disk::kHost ? host_.files.get() : &memory_;
};

INSTANTIATE_TEST_SUITE_P(Both, AnyFiles, testing::Values(Disk::kHost, Disk::kMemory),
                         [](const auto& p) { return p.param == Disk::kHost ? "Host" : "Memory"; });

TEST_P(AnyFiles, PathsWithoutCaseAndFromTheCurrentDirectory) {
  EXPECT_EQ(files_->CurrentDirectory(), "C:\\Marlo\\ncdata");
  for (const char* path :
       {"c:\\marlo\\ncdata\\Part.NC", "C:/MARLO/NCDATA/PART.nc", "part.nc", ".\\part.nc",
        "..\\NcData\\part.nc", "\\marlo\\ncdata\\part.nc", "/marlo/./afa/../ncdata/part.nc",
        "..\\..\\..\\marlo\\ncdata\\part.nc"}) {
    EXPECT_EQ(Bytes(files_, path), "G1 X1\r\n") << path;
    EXPECT_TRUE(files_->Exists(path)) << path;
    EXPECT_FALSE(files_->IsDirectory(path)) << path;
    EXPECT_EQ(files_->Size(path), 7u) << path;
  }
  for (const char* path : {"", "none.nc", "c:\\part.nc", "c:\\none\\part.nc", "q:\\part.nc"}) {
    EXPECT_EQ(Bytes(files_, path), "(none)") << path;
    EXPECT_FALSE(files_->Exists(path)) << path;
    EXPECT_EQ(files_->Size(path), 0u) << path;
  }
}

TEST_P(AnyFiles, CurrentDirectory) {
  const struct {
    const char* directory;
    bool done;
    const char* then;
  } kCases[] = {
      {"..\\afa", true, "C:\\Marlo\\afa"},  // letters as they were set
      {"none", false, "C:\\Marlo\\afa"},
      {"", false, "C:\\Marlo\\afa"},
      {"c:\\marlo\\ncdata\\part.nc", false, "C:\\Marlo\\afa"},
      {"q:\\", false, "C:\\Marlo\\afa"},
      {"\\", true, "C:\\"},
      {"windows", true, "C:\\windows"},
      {"z:", true, "z:\\"},
      {"c:\\marlo\\", true, "c:\\marlo"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(files_->SetCurrentDirectory(c.directory), c.done) << c.directory;
    EXPECT_EQ(files_->CurrentDirectory(), c.then) << c.directory;
  }
}

TEST_P(AnyFiles, DirectoriesAreNoFiles) {
  EXPECT_TRUE(files_->IsDirectory("c:\\Marlo"));
  EXPECT_EQ(files_->OpenForReading("c:\\marlo"), nullptr);
  EXPECT_EQ(files_->OpenOrCreateForReading("c:\\marlo"), nullptr);
  EXPECT_EQ(files_->Create("c:\\marlo"), nullptr);
  EXPECT_EQ(files_->Create("c:\\"), nullptr);
  EXPECT_FALSE(files_->Copy("c:\\marlo", "x"));
  EXPECT_FALSE(files_->Copy("part.nc", "c:\\marlo"));
  EXPECT_EQ(files_->Size("c:\\marlo"), 0u);
}

TEST_P(AnyFiles, OpenOrCreate) {
  EXPECT_NE(files_->OpenOrCreateForReading("new.nc"), nullptr);
  EXPECT_EQ(Bytes(files_, "new.nc"), "");
  EXPECT_NE(files_->OpenOrCreateForReading("PART.nc"), nullptr);
  EXPECT_EQ(Bytes(files_, "Part.NC"), "G1 X1\r\n");
  EXPECT_EQ(files_->OpenOrCreateForReading("none\\new.nc"), nullptr);
  EXPECT_EQ(files_->OpenOrCreateForReading(""), nullptr);
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 7", "new.nc 0"}));
}

TEST_P(AnyFiles, ReadsInPieces) {
  const auto file = files_->OpenForReading("part.nc");
  ASSERT_NE(file, nullptr);
  char buffer[16];
  EXPECT_EQ(file->Read(buffer, 3), 3u);
  EXPECT_EQ(file->Read(buffer + 3, 13), 4u);
  EXPECT_EQ(std::string(buffer, 7), "G1 X1\r\n");
  EXPECT_EQ(file->Read(buffer, 16), 0u);
}

TEST_P(AnyFiles, WritesAndPatches) {
  const auto file = files_->Create("new.dat");
  ASSERT_NE(file, nullptr);
  const std::string big(200000, 'b');
  EXPECT_TRUE(file->Write("size"));
  EXPECT_TRUE(file->Patch(0, "Si"));
  EXPECT_FALSE(file->Patch(3, "12"));
  EXPECT_FALSE(file->Patch(UINT64_MAX, "1"));
  EXPECT_TRUE(file->Write(big));
  EXPECT_TRUE(file->Write(""));
  EXPECT_TRUE(file->Write("end"));
  EXPECT_TRUE(file->Patch(200004, "END"));
  EXPECT_FALSE(file->Patch(200005, "END"));
  EXPECT_TRUE(file->Write("\0."s));
  EXPECT_FALSE(files_->Exists("new.dat"));
  EXPECT_TRUE(file->Commit());
  EXPECT_EQ(Bytes(files_, "new.dat"), "Size" + big + "END\0."s);
  EXPECT_FALSE(file->Write("late"));
  EXPECT_FALSE(file->Commit());
  EXPECT_EQ(files_->Size("new.dat"), 200009u);
}

TEST_P(AnyFiles, AnOlderFileStaysUntilCommit) {
  {
    const auto file = files_->Create("PART.nc");
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->Write("new"));
    EXPECT_EQ(Bytes(files_, "part.nc"), "G1 X1\r\n");
  }
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 7"}));
  EXPECT_TRUE(WriteWholeFile(files_, "PART.nc", "new"));
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 3"}));  // one file still, its name unchanged
}

TEST_P(AnyFiles, CreateNeedsItsDirectory) {
  EXPECT_FALSE(WriteWholeFile(files_, "none\\x.nc", ""));
  EXPECT_FALSE(WriteWholeFile(files_, "part.nc\\x.nc", ""));
  EXPECT_FALSE(WriteWholeFile(files_, "q:\\x.nc", ""));
  EXPECT_FALSE(WriteWholeFile(files_, "", ""));
  for (const char* path : {"new\\", "c:\\new/", "n:", "n:\\"}) {
    EXPECT_FALSE(WriteWholeFile(files_, path, "")) << path;
    EXPECT_EQ(files_->OpenOrCreateForReading(path), nullptr) << path;
    EXPECT_FALSE(files_->Copy("part.nc", path)) << path;
  }
}

TEST_P(AnyFiles, Copies) {
  EXPECT_TRUE(files_->Copy("part.nc", "c:\\copy.nc"));
  EXPECT_EQ(Bytes(files_, "c:\\copy.nc"), "G1 X1\r\n");
  EXPECT_TRUE(WriteWholeFile(files_, "part.nc", "other"));
  EXPECT_TRUE(files_->Copy("part.nc", "c:\\COPY.NC"));
  EXPECT_EQ(Bytes(files_, "c:\\copy.nc"), "other");
  EXPECT_TRUE(files_->Copy("part.nc", "..\\NCDATA\\PART.NC"));  // itself
  EXPECT_EQ(Bytes(files_, "part.nc"), "other");
  EXPECT_FALSE(files_->Copy("none.nc", "c:\\copy.nc"));
  EXPECT_FALSE(files_->Copy("part.nc", "c:\\none\\copy.nc"));
  EXPECT_EQ(Bytes(files_, "c:\\copy.nc"), "other");
}

TEST_P(AnyFiles, Lists) {
  EXPECT_EQ(Names(files_, "c:\\"), (List{"marlo\\", "windows\\"}));
  EXPECT_EQ(Names(files_, "."), (List{"Part.NC 7"}));
  std::vector<DirectoryEntry> entries(3);
  EXPECT_FALSE(files_->List("part.nc", &entries));
  EXPECT_FALSE(files_->List("none", &entries));
  EXPECT_FALSE(files_->List("q:\\", &entries));
  EXPECT_EQ(entries.size(), 3u);
  EXPECT_EQ(files_->DriveLetters(), (std::vector<char>{'c', 'z'}));
}

TEST(MemoryFiles, FaultsOnDemand) {
  MemoryFiles files;
  files.Put("c:\\a.afa", "old");

  files.RefuseWrite(3);
  {
    const auto file = files.Create("c:\\a.afa");
    EXPECT_TRUE(file->Write("1"));
    EXPECT_TRUE(file->Patch(0, "2"));
    EXPECT_FALSE(file->Write("3"));
    EXPECT_FALSE(file->Write("4"));
    EXPECT_FALSE(file->Commit());
  }
  files.RefuseCommit(1);
  EXPECT_FALSE(WriteWholeFile(&files, "c:\\a.afa", "new"));
  EXPECT_EQ(files.Bytes("c:\\a.afa"), "old");

  files.RefuseCreation("C:\\A.AFA");
  EXPECT_EQ(files.Create("c:\\a.afa"), nullptr);
  files.RefuseCreation("c:\\b.afa");
  EXPECT_EQ(files.OpenOrCreateForReading("c:\\b.afa"), nullptr);
  files.RefuseOpening("c:\\a.afa");
  EXPECT_EQ(files.OpenForReading("c:\\a.afa"), nullptr);
  EXPECT_FALSE(files.Copy("c:\\a.afa", "c:\\c.afa"));
  EXPECT_EQ(files.FilePaths(), (List{"c:\\a.afa"}));
}

// What only a real disk has.
class HostFiles : public testing::Test, protected HostDisk {
 protected:
  // Makes every file of more than `size` bytes fail to grow, as a full disk does.
  static void LimitFileSize(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{size, size};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  // Gives up the rights of the superuser, for whom nothing is unreadable.
  static bool BecomeOrdinary() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || seteuid(kNobody) == 0;
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

TEST_F(HostFiles, AFullDiskLeavesTheOlderFile) {
  home.Put("drive_c/a.afa", "old");
  home.Put("drive_c/big.mma", std::string(300000, 'm'));
  const std::string larger(100000, 'n');
  const auto attempt = [&](bool (*write)(Files*, const std::string&)) {
    LimitFileSize(1000);
    std::_Exit(write(files.get(), larger) ? 1 : 0);
  };
  EXPECT_EXIT(attempt([](Files* f, const std::string& bytes) {
                return WriteWholeFile(f, "c:\\a.afa", bytes);
              }),
              testing::ExitedWithCode(0), "");
  EXPECT_EXIT(attempt([](Files* f, const std::string& bytes) {  // small enough to be buffered
                return WriteWholeFile(f, "c:\\a.afa", bytes.substr(0, 1001));
              }),
              testing::ExitedWithCode(0), "");
  EXPECT_EXIT(attempt([](Files* f, const std::string&) {
                return f->Copy("c:\\big.mma", "c:\\a.afa") || f->Copy("c:\\big.mma", "c:\\new");
              }),
              testing::ExitedWithCode(0), "");
  EXPECT_EQ(HostBytes(c / "a.afa"), "old");
  EXPECT_EQ(Names(files.get(), "c:\\"),
            (List{"a.afa 3", "big.mma 300000", "marlo\\", "windows\\"}));
}

TEST_F(HostFiles, RightsAreRespectedAndKept) {
  home.Put("drive_c/secret.nc", "G1\n");
  home.Put("drive_c/fixed.nc", "G1\n");
  fs::permissions(home.Path(), fs::perms(0755));
  fs::permissions(c, fs::perms(0777));
  fs::permissions(c / "secret.nc", fs::perms(0200));
  fs::permissions(c / "fixed.nc", fs::perms(0444));
  const auto attempt = [&](bool (*open)(Files*)) {
    if (!BecomeOrdinary()) std::_Exit(2);
    std::_Exit(open(files.get()) ? 1 : 0);
  };
  EXPECT_EXIT(attempt([](Files* f) {
                return f->OpenForReading("c:\\secret.nc") != nullptr ||
                       f->OpenOrCreateForReading("c:\\secret.nc") != nullptr ||
                       f->Copy("c:\\secret.nc", "c:\\copy.nc");
              }),
              testing::ExitedWithCode(0), "");
  EXPECT_EXIT(attempt([](Files* f) { return WriteWholeFile(f, "c:\\fixed.nc", "new"); }),
              testing::ExitedWithCode(0), "");
  EXPECT_EQ(HostBytes(c / "fixed.nc"), "G1\n");

  home.Put("drive_c/shared.nc", "G1\n");
  fs::permissions(c / "shared.nc", fs::perms(0664));
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\shared.nc", "new"));
  EXPECT_EQ(fs::status(c / "shared.nc").permissions(), fs::perms(0664));
  const mode_t mask = umask(027);
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\fresh.nc", "new"));
  umask(mask);
  EXPECT_EQ(fs::status(c / "fresh.nc").permissions(), fs::perms(0640));
}

TEST_F(HostFiles, WriteThroughLinks) {
  const TempDir elsewhere;
  elsewhere.Put("target.nc", "old");
  fs::create_symlink(elsewhere / "target.nc", c / "link.nc");
  fs::create_symlink("LINK2.nc", c / "link1.nc");
  fs::create_symlink("marlo/made.nc", c / "LINK2.nc");
  fs::create_symlink("loop", c / "loop");

  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\link.nc", "new"));
  EXPECT_TRUE(fs::is_symlink(c / "link.nc"));
  EXPECT_EQ(HostBytes(elsewhere / "target.nc"), "new");
  EXPECT_TRUE(WriteWholeFile(files.get(), "c:\\link1.nc", "made"));
  EXPECT_EQ(HostBytes(c / "marlo/made.nc"), "made");
  EXPECT_FALSE(WriteWholeFile(files.get(), "c:\\loop", "x"));
  EXPECT_EQ(files->OpenForReading("c:\\loop"), nullptr);
  EXPECT_TRUE(fs::is_symlink(c / "loop"));
}

TEST_F(HostFiles, CopyKnowsTheSameFileBehindALink) {
  home.Put("drive_c/a.nc", "G1\n");
  fs::create_symlink("a.nc", c / "soft.nc");
  fs::create_hard_link(c / "a.nc", c / "hard.nc");
  for (const char* other : {"c:\\soft.nc", "c:\\hard.nc", "C:\\A.NC"}) {
    EXPECT_TRUE(files->Copy("c:\\a.nc", other)) << other;
    EXPECT_TRUE(files->Copy(other, "c:\\a.nc")) << other;
  }
  EXPECT_TRUE(files->Copy("c:\\a.nc", "z:\\" + (c / "a.nc").string()));
  EXPECT_TRUE(fs::is_symlink(c / "soft.nc"));
  EXPECT_EQ(fs::hard_link_count(c / "a.nc"), 2u);
  EXPECT_EQ(HostBytes(c / "a.nc"), "G1\n");
}

TEST_F(HostFiles, PipesAndDevicesAreRefusedAtOnce) {
  ASSERT_EQ(mkfifo((c / "pipe").c_str(), 0666), 0);
  alarm(10);  // an opening that waits for the pipe's other side ends the test program
  for (const char* path : {"c:\\pipe", "z:\\dev\\null"}) {
    EXPECT_EQ(files->OpenForReading(path), nullptr) << path;
    EXPECT_EQ(files->OpenOrCreateForReading(path), nullptr) << path;
    EXPECT_EQ(files->Create(path), nullptr) << path;
    EXPECT_EQ(files->Size(path), 0u) << path;
  }
  alarm(0);
}

TEST_F(HostFiles, ListsWhatADrivePathCanName) {
  home.Put("drive_c/marlo/afa/tvx.afa", "1234");
  home.Put("drive_c/marlo/afa/back\\slash", "");
  fs::create_symlink("nowhere", c / "marlo/afa/dangling");
  fs::create_directory_symlink("../ncdata", c / "marlo/afa/nc");
  EXPECT_EQ(Names(files.get(), "c:\\marlo\\afa"), (List{"dangling 0", "nc\\", "tvx.afa 4"}));
}

TEST_F(HostFiles, ATargetThatTurnsIntoADirectoryFailsAtCommit) {
  const auto file = files->Create("c:\\x");
  ASSERT_NE(file, nullptr);
  fs::create_directories(c / "x");
  EXPECT_FALSE(file->Commit());
  EXPECT_TRUE(files->IsDirectory("c:\\x"));
}

}  // namespace
}  // namespace tvx
