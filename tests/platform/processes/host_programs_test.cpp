// Which files the desktop may open in place of a missing editor.
#include "platform/processes/host_programs.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "support/temp_dir.h"

namespace tvx {
namespace {

TEST(HostPrograms, MissingEditorLeavesOnlyTextsToTheDesktop) {
  namespace fs = std::filesystem;
  const TempDir home;
  const fs::path opener = home.Put("bin/xdg-open", "#!/bin/sh\n");
  fs::permissions(opener, fs::perms::owner_all);
  setenv("PATH", (home / "bin").c_str(), 1);
  const Drives drives(home.Path());
  HostPrograms programs(&drives, [] {});
  const struct {
    const char* name;
    std::string bytes;
    bool isExecutable, opens;
  } cases[] = {
      {"A.NC", "G0 X1\r\n\x1A\xB0\xA1", false, false},  // a control character
      {"a.nc", "%\r\nG0 X1 (\xB0\xA1)\r\n", false, true},
      {"plain", "G0\n", false, true},
      {"run.nc", "G0\n", true, false},
      {"script.nc", "#!/bin/sh\n", false, false},
      {"a.desktop", "[Desktop Entry]\n", false, false},
      {"a.html", "<script>\n", false, false},
  };
  for (const auto& c : cases) {
    const fs::path file = home.Put(fs::path("drive_c") / c.name, c.bytes);
    if (c.isExecutable) fs::permissions(file, fs::perms::owner_all);
    EXPECT_EQ(programs.Start("wordpad.exe", std::string("c:\\") + c.name), c.opens) << c.name;
  }
}

}  // namespace
}  // namespace tvx
