// The start of the program and of a window: which file is read when, and whose value stands.
#include <gtest/gtest.h>

#include "model/labels.h"
#include "model/loader.h"
#include "shell/application.h"
#include "shell/lists.h"
#include "shell/tvx_view.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

// Notes which files are opened for reading.
class WatchedFiles : public MemoryFiles {
 public:
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    opened.push_back(path);
    return MemoryFiles::OpenForReading(path);
  }
  std::vector<std::string> opened;
};

class Start : public testing::Test {
 protected:
  ~Start() override { EXPECT_TRUE(ui.messages.empty()); }  // no start has anything to say

  WatchedFiles files;
  ScriptedUi ui;
};

TEST_F(Start, ReadsInThisOrder) {
  CTVXApp app(&files, &ui);
  EXPECT_EQ(app.InitApplication(), 1);
  CTVXView view(&app);
  EXPECT_EQ(files.opened,
            (std::vector<std::string>{"c:\\windows\\tvx.cfg", "c:\\marlo\\fileext.txt",
                                      "c:\\marlo\\dirlist.txt", "c:\\marlo\\UserKey.txt",
                                      "c:\\marlo\\tvx.par", "c:\\marlo\\fileext.txt",
                                      "c:\\marlo\\afa\\tvx.afa"}));
}

TEST_F(Start, WithoutFilesTheDefaultsStand) {
  CTVXApp app(&files, &ui);
  app.InitApplication();
  CTVXView view(&app);
  JobRecord expected;
  expected.WorkDir = "c:\\marlo\\ncdata";
  expected.ConditionDir = "c:\\marlo\\afa";
  for (const JobField& field : JobFields()) {
    std::visit([&](auto member) { EXPECT_EQ(view.job.*member, expected.*member) << field.name; },
               field.member);
  }
  EXPECT_EQ(view.job.RapidFeed, 5000);
  EXPECT_EQ(view.job.FileNames.size(), 300U);
  EXPECT_EQ(view.program.store.blockCount, 0U);
  EXPECT_EQ(view.results.entries.size(), 300U);
  EXPECT_EQ(view.results.entryCount, 0);
  EXPECT_EQ(view.fileName, "");
  EXPECT_EQ(view.fileInfo.current.fileName, "");
  EXPECT_EQ(app.rememberedSpindle, 1000);
  EXPECT_EQ(LabelLanguage, kKoreanLabels);
}

TEST_F(Start, FilesOverTheDefaults) {
  files.Put("c:\\windows\\tvx.cfg",
            "WorkDir d:\\nc  \xC8\xAF\xB0\xE6"
            "Dir c:\\env");
  files.Put("c:\\env\\tvx.par", "RapidFeed 9000 InputFileType 2 FeedChgAng 70 CorWeight0 0.1");
  files.Put("c:\\env\\afa\\tvx.afa",
            "a 16 b 2 c 3 d 4 e 5 f 6 g 7 h 8 i j FeedChgAng 25 Spindle 3200");
  files.Put("c:\\env\\fileext.txt", "*.h");
  files.Put("c:\\env\\dirlist.txt", "d:\\a d:\\b");
  files.Put("c:\\env\\UserKey.txt", "h\nM08");
  CTVXApp app(&files, &ui);
  app.InitApplication();
  CTVXView view(&app);
  EXPECT_EQ(view.job.WorkDir, "d:\\nc");
  EXPECT_EQ(view.job.ConditionDir, "");
  EXPECT_EQ(view.job.RapidFeed, 9000);
  EXPECT_EQ(view.job.ToolDiameter, 16);
  EXPECT_EQ(view.job.FeedChgAng, 25);
  EXPECT_EQ(view.job.CorWeight0, 1);
  EXPECT_EQ(app.rememberedSpindle, 3200);
  EXPECT_EQ(ListEntries(app.ExtensionList), (std::vector<std::string>{"*.h"}));
  EXPECT_EQ(ListEntries(app.DirectoryList), (std::vector<std::string>{"d:\\a", "d:\\b"}));
  EXPECT_EQ(app.UserKeys[1], "M08");

  // The format that the parameter file chose rules the loads of this window.
  files.Put("d.h", "L X+10 Y+0 Z+0 F500\n");
  EXPECT_EQ(LoadNcFile("d.h", &view.program, &app.parserStates, &view.job, &files, &ui), 1);
  ASSERT_EQ(view.program.store.blockCount, 1U);
  EXPECT_EQ(view.program.store.Peek(0)->x, 10);
  EXPECT_EQ(view.job.InputFileType, 2);
}

// A configuration without the environment directory leaves it empty: the paths below it then begin
// with a backslash, and nothing is said if they lead nowhere.
TEST_F(Start, AnEnvironmentThatDoesNotExist) {
  for (const char* text : {"\xC8\xAF\xB0\xE6"
                           "Dir x:\\nowhere",
                           "WorkDir d:\\nc"}) {
    files.Put("c:\\windows\\tvx.cfg", text);
    files.opened.clear();
    CTVXApp app(&files, &ui);
    EXPECT_EQ(app.InitApplication(), 1);
    CTVXView view(&app);
    EXPECT_EQ(view.job.ToolDiameter, 10);
    EXPECT_EQ(ListEntries(app.ExtensionList).size(), 7U);
  }
  EXPECT_EQ(files.opened[1], "\\fileext.txt");
}

}  // namespace
}  // namespace tvx
