// The run of a whole list, from the job dialog to the recorded results.
#include "shell/job_list_run.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class FakePrograms : public Programs {
 public:
  bool Start(const std::string& /*program*/, const std::string& /*path*/) override { return true; }
  bool HasWindowOfClass(const std::string& windowClass) override {
    return transferRuns && windowClass == "TRNW";
  }
  void Quit() override { ++quits; }
  bool transferRuns = false;
  int quits = 0;
};

// Counts how often each master file is opened.
class CountingFiles : public MemoryFiles {
 public:
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    if (path.ends_with(".mma")) masters += path.substr(3, 1);
    return MemoryFiles::OpenForReading(path);
  }
  std::string masters;
};

std::string Surface() {
  std::string text = "G90 G00 X0 Y0 Z20\nG01 Z0 F500\n";
  for (int y = 0; y <= 20; ++y) {
    text += "Y" + std::to_string(y) + "\n";
    for (int x = 0; x <= 20; ++x) {
      text += "X" + std::to_string(y % 2 == 0 ? x : 20 - x) + " Z" +
              std::to_string(x > 10 ? 8 : 0) + "\n";
    }
  }
  return text;
}

class JobListRun : public testing::Test {
 protected:
  JobListRun() {
    app.InitApplication();
    for (const char* const name : {"a.nc", "b.nc"}) {
      files.Put(std::string("c:\\marlo\\ncdata\\") + name,
                "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX100\nY100\nG0 Z10\n");
    }
    files.SetCurrentDirectory("c:\\marlo\\ncdata");
    view = std::make_unique<CTVXView>(&app);
    view->job.MetafileCreateChk = 0;
  }

  void OnJobs(const std::vector<std::pair<std::string, std::string>>& entries) {
    ui.OnDialog<CTransferDlg>([entries](CTransferDlg* dialog) {
      for (const auto& [name, line] : entries) dialog->list.Insert(dialog->list.size(), name, line);
      return dialog->Accept() == Closing::kAccepted;
    });
  }

  CountingFiles files;
  ScriptedUi ui;
  FakePrograms programs;
  CTVXApp app{&files, &ui, &programs};
  std::unique_ptr<CTVXView> view;
};

constexpr char kPlain[] = "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ";

TEST_F(JobListRun, RecordsEveryEntryWithItsOwnOptions) {
  OnJobs({{"a.nc", kPlain},
          {"b.nc", "Dir c:\\marlo\\ncdata FS 7 RT ON 1 77 Afa ON TD 10.0 MAF 2000 "},
          {"gone.nc", "Dir c:\\marlo\\ncdata Afa OFF "}});
  RunJobList(view.get());
  ASSERT_EQ(view->results.entryCount, 3);
  const auto& entries = view->results.entries;
  EXPECT_EQ(entries[0].fileName, "a.nc");
  EXPECT_EQ(entries[0].AfaEnabled, 0);
  EXPECT_EQ(entries[0].averageFeed, 500);
  EXPECT_EQ(entries[0].dirName, "c:\\marlo\\ncdata");
  EXPECT_EQ(entries[0].optionLine, kPlain);
  EXPECT_EQ(entries[1].AfaEnabled, 1);
  EXPECT_EQ(entries[1].MaxFeed, 2000);
  EXPECT_GT(entries[1].averageFeed, 500);
  EXPECT_EQ(entries[2].cutLength, 0) << "a file that is gone is recorded empty";
  EXPECT_EQ(app.JobSlots[1].FileNames[1], "b.nc") << "the list comes back next time";
  EXPECT_EQ(view->transferDialog.shownFile.fileSize, 7) << "as the last line with a size says";
}

// The lines of a run are read for the job dialog as well: an entry whose line lost its size shows
// that of the last one read.
TEST_F(JobListRun, LeavesTheSizeOfTheLastLineToTheDialog) {
  OnJobs({{"a.nc", kPlain}, {"b.nc", "Dir c:\\marlo\\ncdata RT OFF Afa OFF "}});
  RunJobList(view.get());
  ui.OnDialog<CTransferDlg>([](CTransferDlg* dialog) {
    dialog->SelectEntry(1);
    EXPECT_EQ(dialog->information.at(2), "FileSize 5 Byte");
    return false;
  });
  RunJobList(view.get());
}

TEST_F(JobListRun, EndsAtTheDialogOrTheTransferProgram) {
  ui.OnDialog([](Dialog*) { return false; });
  RunJobList(view.get());
  OnJobs({});
  RunJobList(view.get());
  EXPECT_EQ(view->results.entryCount, 0);
  programs.transferRuns = true;
  RunJobList(view.get());
  EXPECT_EQ(programs.quits, 1);
}

TEST_F(JobListRun, RemembersTheSpindleSpeedOfAnAcceptedDialog) {
  app.rememberedSpindle = -5;
  ui.OnDialog<CTransferDlg>([](CTransferDlg* dialog) {
    EXPECT_EQ(dialog->SpindleSpeed, 1000);
    dialog->SpindleSpeed = 3000;
    dialog->Accept();
    return true;
  });
  RunJobList(view.get());
  EXPECT_EQ(app.rememberedSpindle, 3000);
}

TEST_F(JobListRun, MastersAreReadOnceInARowAndBuiltWhereMissing) {
  for (const char* const name : {"c:\\a.nc", "c:\\b.nc"}) files.Put(name, Surface());
  const auto line = [](const char* master) {
    return std::string("Dir c:\\marlo\\ncdata FS 5 RT OFF Afa ON TD 10.0 MMA ") + master + " ";
  };
  const auto run = [&] {
    OnJobs({{"a.nc", line("c:\\a.nc.mma")},
            {"b.nc", line("c:\\a.nc.mma")},
            {"a.nc", line("c:\\b.nc.mma")},
            {"b.nc", line("c:\\a.nc.mma")}});
    view->transferDialog.list.Clear();
    app.JobSlots[1].FileNames[0].clear();
    view->job.FileNames[0].clear();
    files.masters.clear();
    RunJobList(view.get());
    return files.masters;
  };
  EXPECT_EQ(run(), "a") << "both were missing; a is read again after b took its place";
  EXPECT_TRUE(files.Exists("c:\\a.nc.mma"));
  EXPECT_TRUE(files.Exists("c:\\b.nc.mma"));
  EXPECT_EQ(run(), "aba");
}

// Whatever a line holds, its entry is recorded and the next one is run with its own options.
TEST_F(JobListRun, GoesOnBehindOddLines) {
  const std::string longWord(10000, 'n');
  const std::pair<std::string, std::string> odd[] = {
      {"gone.nc", kPlain},
      {longWord, kPlain},
      {"a.nc", ""},
      {"a.nc", "Dir"},
      {"a.nc", "Dir q:\\..\\.. FS 1 RT OFF Afa OFF "},
      {"..\\..\\..\\a.nc", kPlain},
      {"a.nc", "Dir c:\\" + longWord + " MMA c:\\" + longWord},
      {"a.nc",
       "Dir c:\\marlo\\gone Afa ON TD 1e39 SD nan MAF -99999999999 CW x SW MMA ab.mma KeyCode"},
      {"a.nc", "Dir c:\\marlo\\none FS Dir M30 ON RT ON KeyCode Afa ON MAT TD MMA FCS ON"},
      {"a.nc", "Dir c:\\\xF0\x9F\x92 FS \x01\x02 RT ON 99 Afa ON TD  MMA \x7F\x7F\x7F\x7F\x7F"},
  };
  std::vector<std::pair<std::string, std::string>> entries(std::begin(odd), std::end(odd));
  entries.emplace_back("b.nc", kPlain);
  OnJobs(entries);
  RunJobList(view.get());
  ASSERT_EQ(view->results.entryCount, static_cast<int32_t>(entries.size()));
  for (size_t i = 0; i + 1 < entries.size(); ++i) {
    EXPECT_EQ(view->results.entries[i].fileName, entries[i].first);
    EXPECT_EQ(view->results.entries[i].cutLength, 0) << entries[i].second;
  }
  EXPECT_EQ(view->results.entries[entries.size() - 1].averageFeed, 500);
}

}  // namespace
}  // namespace tvx
