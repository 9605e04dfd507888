// The road of one loaded program to a recorded result, as the user takes it through the dialogs.
#include "shell/cut_time_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

// Three cuts: down 10 mm, then 100 mm each way round a corner, at a programmed feed of 500.
constexpr char kProgram[] = "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX100\nY100\nG0 Z10\n";

class CutTimeCommands : public testing::Test {
 protected:
  CutTimeCommands() {
    app.InitApplication();
    files.Put("c:\\marlo\\ncdata\\part.nc", kProgram);
    files.SetCurrentDirectory("c:\\marlo\\ncdata");
    view = std::make_unique<CTVXView>(&app);
    LoadNcFile("part.nc", &view->program, &app.parserStates, &view->job, &files, &ui);
    view->fileName = "part.nc";
  }

  void OnOptions(const char* topFeed) {
    ui.OnDialog<CSendOptionDlg>([topFeed](CSendOptionDlg* options) {
      options->EditTopFeed(topFeed);
      return options->Accept() == Closing::kAccepted;
    });
  }

  std::vector<int32_t> Feeds() const {
    std::vector<int32_t> feeds;
    for (uint32_t i = 0; i < view->program.store.blockCount; ++i) {
      feeds.push_back(view->program.store.Peek(i)->feed);
    }
    return feeds;
  }

  MemoryFiles files;
  ScriptedUi ui;
  CTVXApp app{&files, &ui};
  std::unique_ptr<CTVXView> view;
};

TEST_F(CutTimeCommands, FromTheOptionsToTheEntryAndItsPicture) {
  view->fileInfo.current.dirName = "c:\\run";
  view->fileInfo.current.optionLine = "the last run's line";
  OnOptions("2000");
  ui.OnDialog<CFileInfoDlg>([&](CFileInfoDlg* info) {
    EXPECT_EQ(info->current.fileName, "part.nc");
    EXPECT_EQ(std::ranges::count(info->Lines(), "최대피드  2000"), 1);
    EXPECT_EQ(view->results.entryCount, 0);
    return true;
  });
  SingleCutTimeCommand(view.get());

  EXPECT_EQ(ui.log, (std::vector<std::string>{"dialog", "repaint", "dialog"}));
  EXPECT_EQ(view->job.MaxFeed, 2000);
  EXPECT_EQ(view->program.FeedBase, 2000);
  ASSERT_EQ(view->results.entryCount, 1);
  const CutTimeEntry& entry = view->results.entries[0];
  EXPECT_EQ(entry.fileName, "part.nc");
  EXPECT_EQ(entry.pictureName, "part.nc.emf");
  EXPECT_EQ(entry.MaxFeed, 2000);
  EXPECT_EQ(entry.AfaEnabled, 1);
  EXPECT_EQ(entry.cutLength, 210.0F);
  EXPECT_EQ(entry.dirName, "c:\\run");
  EXPECT_EQ(entry.optionLine, "the last run's line");
  // The header of an enhanced metafile.
  EXPECT_EQ(files.Bytes("c:\\marlo\\ncdata\\part.nc.emf").substr(40, 4), " EMF");
}

TEST_F(CutTimeCommands, RefusedOptionsStopBeforeTheAdjustment) {
  const std::vector<int32_t> before = Feeds();
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    options->EditTopFeed("2000");
    return options->Cancel() == Closing::kAccepted;
  });
  SingleCutTimeCommand(view.get());
  EXPECT_EQ(Feeds(), before);
  EXPECT_EQ(ui.repaints, 0);
  EXPECT_EQ(view->job.MaxFeed, 1000);
  EXPECT_EQ(view->fileInfo.current.fileName, "");
}

TEST_F(CutTimeCommands, RefusedResultKeepsFeedsAndFigures) {
  const std::vector<int32_t> before = Feeds();
  OnOptions("2000");
  ui.OnDialog([](Dialog*) { return false; });
  SingleCutTimeCommand(view.get());
  EXPECT_NE(Feeds(), before);
  EXPECT_EQ(view->results.entryCount, 0);
  EXPECT_EQ(view->fileInfo.current.cutLength, 210.0F);
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\part.nc.emf"));
}

TEST_F(CutTimeCommands, AnEmptyProgramGivesZeros) {
  CTVXView empty(&app);
  OnOptions("2000");
  ui.OnDialog([](Dialog*) { return true; });
  SingleCutTimeCommand(&empty);
  ASSERT_EQ(empty.results.entryCount, 1);
  EXPECT_EQ(empty.results.entries[0].totalMinutes, 0.0F);
  EXPECT_EQ(empty.results.entries[0].pictureName, ".emf");
}

// The send options are one object for all windows.
TEST_F(CutTimeCommands, OptionsAreRememberedAcrossWindows) {
  OnOptions("2000");
  ui.OnDialog([](Dialog*) { return false; });
  SingleCutTimeCommand(view.get());
  CTVXView other(&app);
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    EXPECT_EQ(options->topFeedText, "2000");
    return false;
  });
  SingleCutTimeCommand(&other);
}

TEST_F(CutTimeCommands, PictureRule) {
  view->fileInfo.current.fileName = "a.nc";
  view->fileInfo.current.pictureName = "older.emf";
  view->job.MetafileCreateChk = 0;
  EXPECT_EQ(RecordResultEntry(view.get()), 1);
  EXPECT_EQ(view->results.entries[0].pictureName, "");
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\a.nc.emf"));

  view->job.MetafileCreateChk = 1;
  files.RefuseCreation("c:\\marlo\\ncdata\\a.nc.emf");
  EXPECT_EQ(RecordResultEntry(view.get()), 2);
  EXPECT_EQ(view->results.entries[1].pictureName, "a.nc.emf");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(CutTimeCommands, AFullTableTakesNoMore) {
  view->job.MetafileCreateChk = 0;
  view->fileInfo.current.fileName = "a.nc";
  for (int32_t i = 1; i <= 300; ++i) EXPECT_EQ(RecordResultEntry(view.get()), i);
  view->job.MetafileCreateChk = 1;
  EXPECT_EQ(RecordResultEntry(view.get()), 300);
  EXPECT_EQ(ui.statusTexts.size(), 1U);
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\a.nc.emf"));
}

}  // namespace
}  // namespace tvx
