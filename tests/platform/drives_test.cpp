#include "platform/drives.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "support/temp_dir.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string LettersOf(const Drives& drives) {
  const std::vector<char> letters = drives.Letters();
  return std::string(letters.begin(), letters.end());
}

TEST(Drives, FirstStartMakesTheLayout) {
  const TempDir temp;
  const fs::path home = temp / "new" / "home";
  const Drives drives(home);
  EXPECT_EQ(LettersOf(drives), "cz");
  EXPECT_TRUE(fs::is_directory(home / "drive_c/windows"));
  EXPECT_TRUE(fs::is_directory(home / "drive_c/marlo/afa"));
  EXPECT_TRUE(fs::is_directory(home / "drive_c/marlo/ncdata"));
  EXPECT_EQ(drives.ToHost(kWindowsDirectory), home / "drive_c/windows");
  EXPECT_EQ(drives.ToHost("z:\\"), "/");
  // Both are what the second start reads.
  EXPECT_EQ(LettersOf(Drives(home)), "cz");
  EXPECT_EQ(Drives(home).ToHost("C:\\MARLO"), home / "drive_c/marlo");
}

TEST(Drives, LaterStartsLeaveTheHomeAlone) {
  const TempDir home;
  home.Put("drives.txt", "n: /srv\n");
  EXPECT_EQ(LettersOf(Drives(home.Path())), "n");
  EXPECT_EQ(HostBytes(home / "drives.txt"), "n: /srv\n");
  EXPECT_FALSE(fs::exists(home / "drive_c"));
}

TEST(Drives, AHomeThatCannotBeWrittenStillHasDrives) {
  const TempDir temp;
  temp.Put("file", "");
  const Drives below(temp / "file" / "home");
  EXPECT_EQ(LettersOf(below), "cz");
  EXPECT_EQ(below.ToHost("c:\\a"), temp / "file/home/drive_c/a");
  fs::create_directories(temp / "drives.txt");  // a folder where the table should be
  EXPECT_EQ(LettersOf(Drives(temp.Path())), "cz");
}

TEST(Drives, ReadsTheTableLineByLine) {
  const TempDir home;
  const std::string below = home.Path().string();
  const struct {
    std::string table;
    std::string path;
    std::string host;  // "" for none
  } kCases[] = {
      {"c: drive_c\nn: /srv/nc files\n", "n:\\a", "/srv/nc files/a"},
      {"C: drive_c\r\nN:\t/srv/nc files/ \r\n", "n:\\a", "/srv/nc files/a"},
      {"n:/srv", "N:/a/b", "/srv/a/b"},
      {"  n: sub/../other/.", "n:a", below + "/other/a"},
      {"n: ..", "n:\\", fs::path(below).parent_path().string()},
      {"n: /one\nN: /two\n", "n:\\", "/two"},
      {"\n# comment\nn /srv\nn:\nnn: /srv\n7: /srv\n\xB0: /x\nm: /srv\n", "n:\\", ""},
      {"\n# comment\nn /srv\nn:\nnn: /srv\n7: /srv\n\xB0: /x\nm: /srv\n", "m:\\", "/srv"},
      {"n: /a\0b\nm: /srv\n"s, "n:\\", ""},
      {"", "c:\\", below + "/drive_c"},  // no drive at all: those of a first start
      {"nonsense", "z:\\srv", "/srv"},
  };
  for (const auto& c : kCases) {
    home.Put("drives.txt", c.table);
    const auto host = Drives(home.Path()).ToHost(c.path);
    EXPECT_EQ(host ? host->string() : "", c.host) << c.table;
  }
}

TEST(Drives, DefaultHome) {
  const struct {
    const char* tvxHome;
    const char* dataHome;
    const char* home;
    const char* expected;
  } kCases[] = {
      {"/t", "/d", "/h", "/t"},
      {"", "/d", "/h", "/d/tvx"},
      {nullptr, nullptr, "/h", "/h/.local/share/tvx"},
      {nullptr, "relative", "/h", "/h/.local/share/tvx"},
  };
  for (const auto& c : kCases) {
    const auto set = [](const char* name, const char* value) {
      value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    };
    set("TVX_HOME", c.tvxHome);
    set("XDG_DATA_HOME", c.dataHome);
    set("HOME", c.home);
    EXPECT_EQ(Drives::DefaultHome(), c.expected);
  }
  unsetenv("HOME");
  EXPECT_TRUE(Drives::DefaultHome().is_absolute());
}

class DrivePaths : public testing::Test {
 protected:
  TempDir home_;
  fs::path c_ = home_ / "drive_c";
  Drives drives_{home_.Path()};
};

TEST_F(DrivePaths, ToHost) {
  home_.Put("drive_c/Jobs/Part.NC", "");
  home_.Put("drive_c/Jobs/part.nc", "");
  home_.Put("drive_c/Jobs/PART.nc", "");
  home_.Put("drive_c/가공/황삭.nc", "");
  fs::create_symlink("nowhere", c_ / "Jobs/Link");
  const struct {
    std::string path;
    fs::path host;  // empty for none
  } kCases[] = {
      {"c:\\Jobs\\part.nc", c_ / "Jobs/part.nc"},  // the exact name first
      {"c:\\JOBS\\Part.NC", c_ / "Jobs/Part.NC"},
      {"C:/jobs/PaRt.Nc", c_ / "Jobs/PART.nc"},  // else the first in byte order
      {"c:\\jobs\\new.NC", c_ / "Jobs/new.NC"},
      {"c:\\New\\JOBS\\x", c_ / "New/JOBS/x"},
      {"c:\\jobs\\part.nc\\x", c_ / "Jobs/part.nc/x"},
      {"c:\\JOBS\\LINK", c_ / "Jobs/Link"},
      {"c:\\가공\\황삭.NC", c_ / "가공/황삭.nc"},
      {"c:", c_},
      {"c:\\", c_},
      {"c:jobs", c_ / "Jobs"},
      {"c:\\\\jobs//.\\part.nc\\", c_ / "Jobs/part.nc"},
      {"c:\\jobs\\..\\marlo", c_ / "marlo"},
      {"c:\\..\\..\\marlo\\..\\..\\x", c_ / "x"},
      {"z:\\" + (c_ / "JOBS").string(), c_ / "Jobs"},
      {"q:\\x", {}},
      {"", {}},
      {"x", {}},
      {"\\x", {}},
      {"7:\\x", {}},
      {"c:\\a\0b"s, {}},
      {"c:\\" + std::string(5000, 'x'), c_ / std::string(5000, 'x')},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(drives_.ToHost(c.path).value_or(""), c.host) << c.path;
  }
}

TEST(Drives, FromHost) {
  const TempDir home;
  home.Put("drives.txt", "c: /a/b\nd: /a/b/deep/er/\ne: /a/b\nf: /srv/nc files\nz: /\n");
  const Drives drives(home.Path());
  const struct {
    const char* host;
    const char* path;
  } kCases[] = {
      {"/a/b", "c:\\"},
      {"/a/b/", "c:\\"},
      {"/a/b/x/Y.nc", "c:\\x\\Y.nc"},
      {"/a/bc/x", "z:\\a\\bc\\x"},  // a longer name is another folder
      {"/a/b/deep/er/x", "d:\\x"},
      {"/a/b/deep/erx", "c:\\deep\\erx"},
      {"/a/b/deep/../x/./y//z", "c:\\x\\y\\z"},
      {"/a/b/../b2", "z:\\a\\b2"},
      {"/srv/nc files/1 2", "f:\\1 2"},
      {"/", "z:\\"},
      {"//a/b", "c:\\"},
      {"relative", ""},
      {"", ""},
      {"/a/b/x\\y", ""},
  };
  for (const auto& c : kCases) EXPECT_EQ(drives.FromHost(c.host).value_or(""), c.path) << c.host;

  home.Put("drives.txt", "c: /a/b\n");
  EXPECT_FALSE(Drives(home.Path()).FromHost("/a/x"));
}

TEST_F(DrivePaths, ThereAndBack) {
  for (const char* path : {"c:\\", "c:\\marlo\\ncdata", "c:\\marlo\\new 파일.nc"}) {
    EXPECT_EQ(drives_.FromHost(*drives_.ToHost(path)), path);
  }
}

TEST(Drives, NormalDrivePath) {
  const struct {
    const char* path;
    const char* normal;
  } kCases[] = {
      {"c:", "c:\\"},         {"C:/", "C:\\"},  {"c:\\a\\", "c:\\a"}, {"c:/A\\.\\b//..", "c:\\A"},
      {"c:\\..\\a", "c:\\a"}, {"c:a", "c:\\a"},
  };
  for (const auto& c : kCases) EXPECT_EQ(NormalDrivePath(c.path), c.normal) << c.path;
}

}  // namespace
}  // namespace tvx
