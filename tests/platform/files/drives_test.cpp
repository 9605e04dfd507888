// Drive paths and host paths.
#include "platform/files/drives.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "support/temp_dir.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

using Letters = std::vector<char>;

TEST(Drives, FirstStartMakesTheLayoutAndLaterStartsLeaveTheHomeAlone) {
  const TempDir temp;
  const fs::path home = temp / "new" / "home";
  for (int start = 0; start < 2; ++start) {
    const Drives drives(home);
    for (const char* folder : {"windows", "marlo/afa", "marlo/ncdata"}) {
      EXPECT_EQ(fs::remove(home / "drive_c" / folder), start == 0) << folder;
    }
    EXPECT_EQ(drives.Letters(), (Letters{'c', 'z'}));
    EXPECT_EQ(drives.ToHost(kWindowsDirectory), home / "drive_c/windows");
    EXPECT_EQ(drives.ToHost("z:\\"), "/");
  }
  temp.Put("new/home/drives.txt", "n: /srv\nb: /srv\n");
  EXPECT_EQ(Drives(home).Letters(), (Letters{'b', 'n'}));
  EXPECT_EQ(HostBytes(home / "drives.txt"), "n: /srv\nb: /srv\n");
}

TEST(Drives, HomeThatCannotBeWrittenHasDrives) {
  const TempDir temp;
  temp.Put("file", "");
  EXPECT_EQ(Drives(temp / "file/home").ToHost("c:\\a"), temp / "file/home/drive_c/a");
  fs::create_directories(temp / "drives.txt");  // a folder in place of the table
  EXPECT_EQ(Drives(temp.Path()).Letters(), (Letters{'c', 'z'}));
}

TEST(Drives, ReadsTheTableLineByLine) {
  const TempDir home;
  const std::string below = home.Path().string();
  const std::string odd = "\n# comment\nn /srv\nn:\nnn: /srv\n7: /srv\n\xB0: /x\nm: /srv\n";
  const std::string kCases[][3] = {
      // the table, a drive path, its place on the host
      {"c: drive_c\nn: /srv/nc files\n", "n:\\a", "/srv/nc files/a"},
      {"\xEF\xBB\xBFn: /srv\n", "n:\\", "/srv"},  // as an editor may have marked it
      {"C: drive_c\r\nN:\t/srv/nc files/ \r\n", "n:\\a", "/srv/nc files/a"},
      {"  n: sub/../other/.", "n:a", below + "/other/a"},
      {"n: ..", "n:\\", fs::path(below).parent_path().string()},
      {"n: /one\nN: /two\n", "n:\\", "/two"},
      {odd, "n:\\", ""},
      {odd, "m:\\", "/srv"},
      {"n: /a\0b\nm: /srv\n"s, "n:\\", ""},
      {"", "c:\\", below + "/drive_c"},  // no drive at all: those of a first start
      {"nonsense", "z:\\srv", "/srv"},
  };
  for (const auto& [table, path, host] : kCases) {
    home.Put("drives.txt", table);
    EXPECT_EQ(Drives(home.Path()).ToHost(path).value_or(""), host) << table;
  }
}

TEST(Drives, DefaultHomeFollowsTheEnvironment) {
  const char* const kCases[][3] = {
      // TVX_HOME, XDG_DATA_HOME, the home
      {"/t", "/d", "/t"},
      {"", "/d", "/d/tvx"},
      {"", "", "/h/.local/share/tvx"},
      {"", "relative", "/h/.local/share/tvx"},
  };
  setenv("HOME", "/h", 1);
  for (const auto& [tvxHome, dataHome, expected] : kCases) {
    setenv("TVX_HOME", tvxHome, 1);
    setenv("XDG_DATA_HOME", dataHome, 1);
    EXPECT_EQ(Drives::DefaultHome(), expected);
  }
  for (const char* name : {"TVX_HOME", "XDG_DATA_HOME", "HOME"}) unsetenv(name);
  EXPECT_TRUE(Drives::DefaultHome().is_absolute());
}

TEST(Drives, ToHost) {
  const TempDir home;
  const fs::path c = home / "drive_c";
  const Drives drives(home.Path());
  for (const char* name : {"Jobs/Part.NC", "Jobs/part.nc", "Jobs/PART.nc", "가공/황삭.nc"}) {
    home.Put(c / name, "");
  }
  fs::create_symlink("nowhere", c / "Jobs/Link");
  const std::pair<std::string, fs::path> kCases[] = {
      {"c:\\Jobs\\part.nc", c / "Jobs/part.nc"},  // the exact name first
      {"c:\\JOBS\\Part.NC", c / "Jobs/Part.NC"},
      {"C:/jobs/PaRt.Nc", c / "Jobs/PART.nc"},  // else the first in byte order
      {"c:\\jobs\\new.NC", c / "Jobs/new.NC"},
      {"c:\\JOBS\\LINK", c / "Jobs/Link"},
      {"c:\\가공\\황삭.NC", c / "가공/황삭.nc"},
      {"c:jobs", c / "Jobs"},
      {"c:\\\\jobs//.\\part.nc\\", c / "Jobs/part.nc"},
      {"c:\\..\\..\\marlo\\..\\..\\x", c / "x"},
      {"z:\\" + (c / "JOBS").string(), c / "Jobs"},
      {"q:\\x", {}},
      {"c:\\a\0b"s, {}},
      {"c:\\" + std::string(5000, 'x'), c / std::string(5000, 'x')},
  };
  for (const auto& [path, host] : kCases) {
    EXPECT_EQ(drives.ToHost(path).value_or(""), host) << path;
  }
}

TEST(Drives, FromHost) {
  const TempDir home;
  home.Put("drives.txt", "c: /a/b\nd: /a/b/deep/er/\ne: /a/b\nz: /\n");
  const Drives drives(home.Path());
  const char* const kCases[][2] = {
      {"/a/b", "c:\\"},
      {"/a/bc/x", "z:\\a\\bc\\x"},  // a longer name is another folder
      {"/a/b/deep/er/x", "d:\\x"},
      {"/a/b/deep/erx", "c:\\deep\\erx"},
      {"/a/b/deep/../x/./y//z", "c:\\x\\y\\z"},
      {"/", "z:\\"},
      {"//a/b", "c:\\"},
      {"relative", ""},
      {"", ""},
      {"/a/b/x\\y", ""},
  };
  for (const auto& [host, path] : kCases) {
    EXPECT_EQ(drives.FromHost(host).value_or(""), path) << host;
  }

  home.Put("drives.txt", "c: /a/b\n");
  EXPECT_FALSE(Drives(home.Path()).FromHost("/a/x"));
}

}  // namespace
}  // namespace tvx
