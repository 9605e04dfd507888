// The start of the program and of a window: which file is read when, and whose value stands.
#include <cerrno>

#include "model/loader.h"
#include "session/session_test.h"
#include "support/block_list.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

class Start : public testing::Test {
 protected:
  ~Start() override { EXPECT_TRUE(ui.messages.empty()); }  // no start has anything to say

  WatchedFiles files;
  ScriptedUi ui;
};

TEST_F(Start, ReadsInThisOrderAndWithoutFilesTheDefaultsStand) {
  CTVXApp app(&files, &ui);
  EXPECT_EQ(app.InitApplication(), 1);
  CTVXView view(&app);
  EXPECT_EQ(files.opened,
            (std::vector<std::string>{"c:\\windows\\tvx.cfg", "c:\\marlo\\fileext.txt",
                                      "c:\\marlo\\dirlist.txt", "c:\\marlo\\UserKey.txt",
                                      "c:\\marlo\\tvx.par", "c:\\marlo\\fileext.txt",
                                      "c:\\marlo\\afa\\tvx.afa"}));
  EXPECT_EQ(Changes(JobRecord(), view.job),
            "WorkDir=c:\\marlo\\ncdata ConditionDir=c:\\marlo\\afa");
  EXPECT_EQ(view.job.FileNames.size(), 300U);
  EXPECT_TRUE(view.results.recorded.empty());
  EXPECT_EQ(app.rememberedSpindle, 1000);
  EXPECT_EQ(app.LabelLanguage, Language::kKorean);
}

TEST_F(Start, SettingsThatCannotBeReadAreNotedAndNothingIsWritten) {
  const char* const settings[] = {"c:\\windows\\tvx.cfg",   "c:\\marlo\\fileext.txt",
                                  "c:\\marlo\\dirlist.txt", "c:\\marlo\\UserKey.txt",
                                  "c:\\marlo\\tvx.par",     "c:\\marlo\\afa\\tvx.afa"};
  const std::string tooLarge((size_t{4} << 20) + 1, 'x');
  for (const char* const path : settings) {
    for (const bool isRefused : {true, false}) {
      WatchedFiles disk;
      disk.Put(path, isRefused ? "kept" : tooLarge);
      if (isRefused) disk.RefuseOpening(path);
      if (path != settings[0])
        disk.Put(settings[0],
                 "\xC8\xAF\xB0\xE6"
                 "Dir c:\\marlo");
      const std::vector<std::string> before = disk.FilePaths();
      CTVXApp app(&disk, &ui);
      app.InitApplication();
      const CTVXView view(&app);
      ASSERT_EQ(app.unread.size(), 1U) << path;
      EXPECT_EQ(app.unread[0].path(), path);
      EXPECT_EQ(app.unread[0].kind(), isRefused ? StatusKind::kCannotOpen : StatusKind::kTooLarge);
      EXPECT_EQ(disk.FilePaths(), before);
      EXPECT_EQ(disk.Bytes(path), isRefused ? "kept" : tooLarge);
    }
  }
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
  EXPECT_EQ(Changes(JobRecord(), view.job),
            "RapidFeed=9000 InputFileType=2 ToolDiameter=16 SafetyDistance=2 CornerMinAngle=3 "
            "CornerMaxRatio=4 SlopeMinAngle=5 SlopeMaxRatio=6 MaxFeed=8 PlungeFeed=7 "
            "WorkDir=d:\\nc Material=j FeedChgAng=25");
  EXPECT_EQ(app.rememberedSpindle, 3200);
  EXPECT_EQ(app.ExtensionList[0] + app.DirectoryList[1] + app.UserKeys[1], "*.hd:\\bM08");

  // The format that the parameter file chose rules the loads of this window.
  files.Put("d.h", "L X+10 Y+0 Z+0 F500\n");
  EXPECT_TRUE(LoadNcFile("d.h", &view.program, &app.parserStates, &view.job, &files).ok());
  EXPECT_EQ(BlockList(view.program.store), "cutStart 10 0 0 F500");
}

}  // namespace
}  // namespace tvx
