// From a loaded program, or a whole list of them, through the dialogs to the recorded results.
#include <algorithm>

#include "master/master_file.h"
#include "reports/job_list_file.h"
#include "reports/text_report.h"
#include "session/cut_time_commands.h"
#include "session/job_list_run.h"
#include "session/master_commands.h"
#include "session/session_test.h"
#include "session/view_operations.h"
#include "stats/file_information.h"
#include "support/block_list.h"

namespace tvx {
namespace {

// The transfer program runs.
class TransferProgram : public Programs {
 public:
  bool Start(const std::string& /*program*/, const std::string& /*path*/) override { return true; }
  bool HasWindowOfClass(const std::string& windowClass) override { return windowClass == "TRNW"; }
  void Quit() override { ++quits; }
  int quits = 0;
};

// Three cuts: down 10 mm, then 100 mm each way round a corner, at a programmed feed of 500.
constexpr char kProgram[] = "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX100\nY100\nG0 Z10\n";

class Runs : public SessionTest {
 protected:
  Runs() {
    files.Put("c:\\marlo\\ncdata\\a.nc", kProgram);
    files.Put("c:\\marlo\\ncdata\\b.nc", kProgram);
  }

  void OnEntries(const std::vector<std::pair<std::string, std::string>>& entries) {
    OnJobs(true, [entries](CTransferDlg* dialog) {
      for (const auto& [name, line] : entries) dialog->list.Insert(dialog->list.size(), name, line);
    });
  }

  CTVXView view{&app};
  const Subscription repaints = ui.WatchRepaints(&view.changes);
};

class SingleCutTime : public Runs {
 protected:
  SingleCutTime() {
    LoadNcFile("a.nc", &view.program, &app.parserStates, &view.job, &files);
    view.SetNames("", "a.nc");
  }
};

TEST_F(SingleCutTime, FromTheOptionsToTheEntryAndItsPicture) {
  view.lastRun = {"c:\\marlo\\ncdata\\a.nc", "c:\\run", "the last run's line"};
  OnOptions("2000");
  ui.OnDialog<CFileInfoDlg>([&](CFileInfoDlg* info) {
    EXPECT_EQ(std::ranges::count(info->Lines(Language::kKorean), "최대피드  2000"), 1);
    EXPECT_EQ(view.results.recorded.size(), 0U);
    return true;
  });
  SingleCutTimeCommand(&view);

  EXPECT_EQ(ui.log,
            (std::vector<std::string>{"dialog", "repaint", "dialog",
                                      "status c:\\marlo\\ncdata\\a.nc.emf: 저장했습니다."}));
  EXPECT_EQ(view.job.MaxFeed, 2000);
  EXPECT_EQ(view.program.FeedBase, 2000);
  ASSERT_EQ(view.results.recorded.size(), 1U);
  const CutTimeEntry& entry = view.results.recorded[0].entry;
  EXPECT_EQ(entry.fileName + "|" + entry.pictureName + "|" + entry.dirName + "|" + entry.optionLine,
            "a.nc|a.nc.emf|c:\\run|the last run's line");
  EXPECT_EQ(entry.AfaEnabled, 1);
  EXPECT_EQ(entry.cutLength, 210.0F);
  // The header of an enhanced metafile.
  EXPECT_EQ(files.Bytes("c:\\marlo\\ncdata\\a.nc.emf").substr(40, 4), " EMF");
}

TEST_F(Runs, ReportOfAPartlyReadProgramIsNotWritten) {
  files.Put("c:\\old.tvx", "old");
  files.RefuseRead(1);
  OnEntries({{"a.nc", "Dir c:\\marlo\\ncdata RT OFF Afa OFF"}});
  RunJobList(&view);
  ASSERT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(ui.messages[0].path, "c:\\marlo\\ncdata\\a.nc");
  EXPECT_EQ(view.results.recorded.size(), 1U);
  EXPECT_FALSE(WriteTextReportFile("c:\\old.tvx", view.results.recorded, &files).ok());
  EXPECT_FALSE(WriteJobListFile("c:\\old.tvx", view.results.recorded, &files).ok());
  EXPECT_EQ(files.Bytes("c:\\old.tvx"), "old");
}

TEST_F(SingleCutTime, RecordsNamesOfTheProgramInTheStore) {
  const struct {
    const char* last;    // path of the last run
    const char* loaded;  // path of the program
    const char* names;   // file, picture, directory and option line of the entry
  } cases[] = {
      {"c:\\marlo\\ncdata\\a.nc", "c:\\marlo\\ncdata\\b.nc", "b.nc|b.nc.emf||"},
      {"c:\\marlo\\ncdata\\b.nc", "c:\\marlo\\ncdata\\b.nc", "b.nc|b.nc.emf|c:\\run|line"},
      {"", "c:\\none.nc", "|||"},
  };
  for (const auto& c : cases) {
    view.lastRun = {c.last, "c:\\run", "line"};
    view.Load(c.loaded);
    OnOptions("2000");
    ui.OnDialog([](Dialog*) { return true; });
    SingleCutTimeCommand(&view);
    const CutTimeEntry& entry = view.results.recorded.back().entry;
    EXPECT_EQ(
        entry.fileName + "|" + entry.pictureName + "|" + entry.dirName + "|" + entry.optionLine,
        c.names);
  }
  EXPECT_EQ(ui.log.back(), "status 프로그램이 없어서 그림화일을 만들지 않았습니다.");
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\.emf"));
}

TEST_F(SingleCutTime, MissingMasterIsShownAndOffered) {
  files.Put("c:\\surface.nc", Surface());
  view.Load("c:\\surface.nc");
  BuildAndShowMaster(MasterContextOf(&view));
  WriteMasterFile("c:\\m.mma", view.masterGrid, &files);
  const struct {
    const char* master;
    int answer;  // -1: not asked
    bool isRead;
  } cases[] = {{"c:\\none.mma", -1, false}, {"c:\\m.mma", 0, false}, {"c:\\m.mma", 1, true}};
  const auto run = [&](const char* master, int answer) {
    if (answer >= 0) ui.OnMessage(answer == 1);
    ui.OnDialog<CSendOptionDlg>([&](CSendOptionDlg* options) {
      options->own.AfaByMaster = 1;
      options->own.AfaMasterFile = master;
      return options->Accept() == Closing::kAccepted;
    });
    ui.OnDialog([](Dialog*) { return false; });
    SingleCutTimeCommand(&view);
  };
  for (const auto& c : cases) {
    DropMaster(&view.masterGrid);
    run(c.master, c.answer);
    EXPECT_EQ(ui.messages.back().path, c.master);
    EXPECT_EQ(!view.masterGrid.Cells.Empty(), c.isRead);
  }
  EXPECT_EQ(ui.messages.size(), 3U);

  // A model of another file is in memory; the letter case of its name makes no difference.
  WriteMasterFile("c:\\other.mma", view.masterGrid, &files);
  run("C:\\M.mma", -1);
  EXPECT_EQ(ui.messages.size(), 3U);
  run("c:\\other.mma", 1);
  EXPECT_EQ(view.masterGrid.path, "c:\\other.mma");
  run("c:\\none.mma", -1);
  EXPECT_EQ(ui.messages.back().text, "메모리에 있는 다른 마스터 모델을 사용합니다.");
  EXPECT_FALSE(view.masterGrid.Cells.Empty());
}

TEST_F(SingleCutTime, StopsAtTheDialogThatIsRefused) {
  const std::string before = BlockList(view.program.store);
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* options) {
    options->EditTopFeed("2000");
    return options->Cancel() == Closing::kAccepted;
  });
  SingleCutTimeCommand(&view);
  EXPECT_EQ(BlockList(view.program.store), before);
  EXPECT_EQ(view.job.MaxFeed, 1000);

  OnOptions("2000");
  ui.OnDialog([](Dialog*) { return false; });
  SingleCutTimeCommand(&view);
  EXPECT_NE(BlockList(view.program.store), before);
  EXPECT_EQ(view.results.recorded.size(), 0U);
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\a.nc.emf"));
}

TEST_F(SingleCutTime, PicturesUntilTheTableIsFull) {
  ProgramResult result;
  result.entry.fileName = "a.nc";
  result.entry.pictureName = "older.emf";
  files.RefuseCreation("c:\\marlo\\ncdata\\a.nc.emf");
  const auto record = [&] {
    return RecordProgramResult(result, view.Picture(), &files, &view.results).kind();
  };
  EXPECT_EQ(record(), StatusKind::kCannotOpen);
  EXPECT_EQ(view.results.recorded[0].entry.pictureName, "a.nc.emf");
  result.isIncomplete = true;
  EXPECT_EQ(record(), StatusKind::kPartSource);

  view.job.MetafileCreateChk = 0;
  for (int32_t i = 3; i <= 300; ++i) EXPECT_EQ(record(), StatusKind::kOk);
  EXPECT_EQ(view.results.recorded.size(), 300U);
  EXPECT_EQ(view.results.recorded[299].entry.pictureName, "");
  EXPECT_TRUE(ui.log.empty());

  view.job.MetafileCreateChk = 1;
  result.entry.fileName = "b.nc";
  EXPECT_EQ(record(), StatusKind::kTableFull);
  EXPECT_EQ(view.results.recorded.size(), 300U);
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\b.nc.emf"));
}

TEST_F(Runs, LoadOfMissingNameAsksBeforeItCreatesTheFile) {
  const struct {
    const char* name;
    bool creates;
    const char* shown;
    const char* current;  // file name of the window afterwards
  } cases[] = {
      {"typo.nc", false, "message 화일이 없습니다. 만들겠습니까?", "a.nc"},
      {"new.nc", true, "message 화일이 없습니다. 만들겠습니까?, repaint", "new.nc"},
      {"no\\new.nc", true,
       "message 화일이 없습니다. 만들겠습니까?, status c:\\no\\new.nc: 불러오지 못했습니다., "
       "message 화일을 열수 없읍니다.\n, repaint",
       ""},
  };
  for (const auto& load : cases) {
    LoadProgram(&view, "c:\\marlo\\ncdata\\a.nc");
    ui.log.clear();
    const std::string path = std::string("c:\\") + load.name;
    ui.OnFile(path);
    ui.OnMessage(load.creates);
    RunViewCommand(&view, CommandId::kLoad);
    std::string shown;
    for (size_t i = 1; i < ui.log.size(); ++i) shown += (i == 1 ? "" : ", ") + ui.log[i];
    EXPECT_EQ(shown, load.shown);
    EXPECT_EQ(view.fileName(), load.current);
    EXPECT_EQ(files.Exists(path), view.fileName() == load.name) << path;
  }
  EXPECT_EQ(ui.messages.back().caption, "Error message");
}

TEST_F(Runs, WritersAskBeforeTheyReplaceFileOfAnotherKind) {
  files.Put("c:\\surface.nc", Surface());
  view.Load("c:\\surface.nc");
  BuildAndShowMaster(MasterContextOf(&view));
  view.results.recorded.resize(1);
  view.results.recorded[0].entry.fileName = "a.nc";
  CAutoFeedDlg condition(&files, &ui);
  condition.Open(&view.job);
  const std::function<void()> writers[] = {
      [&] { RunViewCommand(&view, CommandId::kWritePicture); },
      [&] { RunViewCommand(&view, CommandId::kMasterSave); },
      [&] { view.dialogs.results.Write(ReportOf("--list")); },
      [&] { view.dialogs.results.Write(ReportOf("--list-copy")); },
      [&] { condition.SaveFile(); },
  };
  for (const auto& write : writers) {
    const std::string path = "c:\\marlo\\ncdata\\out.nc";
    files.Put(path, "");
    for (int i = 0; i < 2; ++i) {  // over an empty file, and over its own kind
      ui.OnFile(path);
      write();
      EXPECT_NE(files.Bytes(path), "");
    }
    files.Put(path, kProgram);
    ui.OnFile(path);
    ui.OnMessage(false);
    write();
    EXPECT_EQ(files.Bytes(path), kProgram) << ui.fileQuestions.back().fileName;
  }
}

class JobListRun : public Runs {
 protected:
  JobListRun() { view.job.MetafileCreateChk = 0; }
};

TEST_F(JobListRun, RecordsEveryEntryWithItsOwnOptions) {
  OnEntries({{"gone.nc", "Dir c:\\marlo\\ncdata Afa OFF "},
             {"b.nc", "Dir c:\\marlo\\ncdata FS 7 RT ON 1 77 Afa ON TD 10.0 MAF 2000 "},
             {"a.nc", kPlainLine},
             {"b.nc", kPlainLine},
             {"a.nc", kPlainLine}});
  RunJobList(&view);
  ASSERT_EQ(view.results.recorded.size(), 5U);
  std::string recorded;
  for (const ProgramResult& result : view.results.recorded) {
    const CutTimeEntry& entry = result.entry;
    recorded +=
        Format("%s AFA %d MAF %d ", entry.fileName.c_str(), entry.AfaEnabled, entry.MaxFeed) +
        (entry.cutLength == 0      ? "empty\n"
         : entry.averageFeed > 500 ? "faster\n"
                                   : "\n");
  }
  EXPECT_EQ(recorded,
            "gone.nc AFA 0 MAF 1000 empty\nb.nc AFA 1 MAF 2000 faster\na.nc AFA 0 MAF 2000 \n"
            "b.nc AFA 0 MAF 2000 \na.nc AFA 0 MAF 2000 \n");
  EXPECT_EQ(view.results.recorded[2].entry.dirName, "c:\\marlo\\ncdata");
  EXPECT_EQ(view.results.recorded[2].entry.optionLine, kPlainLine);
  EXPECT_EQ(view.program.store.blockCount, 5U) << "the window shows the last file";
  EXPECT_EQ(view.filePath(), "c:\\marlo\\ncdata\\a.nc");
  EXPECT_FALSE(files.Exists("c:\\marlo\\ncdata\\gone.nc"));
  EXPECT_EQ(ui.log.at(1), "status c:\\marlo\\ncdata\\gone.nc: 불러오지 못했습니다.");

  // The list comes back. The lines of the run were read for the dialog as well: an entry whose
  // line has no size shows that of the last one read.
  OnJobs(false, [](CTransferDlg* dialog) {
    EXPECT_EQ(dialog->list.names,
              (std::vector<std::string>{"gone.nc", "b.nc", "a.nc", "b.nc", "a.nc"}));
    dialog->SelectEntry(0);
    EXPECT_EQ(dialog->information.at(2), "FileSize 5 Byte");
  });
  RunJobList(&view);
}

TEST_F(JobListRun, ItsFilesAreCheckedBehindItAsFarAsTheyAreThoseThatWereLoaded) {
  const auto put = [this](const std::string& name) {
    files.Put("c:\\marlo\\ncdata\\" + name, kProgram + std::string("G20\nM98\n"));
  };
  std::vector<std::pair<std::string, std::string>> entries;
  for (const char* const name : {"gone.nc", "changed.nc", "none.nc", "same.nc"}) {
    if (name != std::string("none.nc")) put(name);
    entries.emplace_back(name, kPlainLine);
  }
  OnEntries(entries);
  RunJobList(&view);
  files.Remove("c:\\marlo\\ncdata\\gone.nc");
  put("changed.nc");
  view.Load("b.nc");  // the program after the run
  const auto states = [this] {
    std::string text;
    for (const ProgramResult& result : view.results.recorded) {
      const auto& check = result.check;
      constexpr const char* kStates[] = {"", " under way", " done", " unreadable", " changed"};
      text += result.entry.fileName;
      if (check != nullptr) text += kStates[static_cast<size_t>(check->state)];
      if (check != nullptr && check->result != nullptr) {
        text += Format(" %d+%d", static_cast<int>(check->result->Count(RemarkClass::kLost)),
                       static_cast<int>(check->result->Count(RemarkClass::kChanged)));
      }
      text += "; ";
    }
    return text;
  };
  EXPECT_EQ(states(), "gone.nc under way; changed.nc under way; none.nc; same.nc under way; ");
  EXPECT_TRUE(view.CheckMore(100));
  EXPECT_EQ(view.checks().State(), CheckState::kDone) << "the picture's program comes first";
  EXPECT_EQ(ChecksOf(view.results.recorded, view.checks().Loaded()).back()->path,
            "c:\\marlo\\ncdata\\b.nc");
  while (view.CheckMore(2)) {
  }
  EXPECT_EQ(states(), "gone.nc unreadable; changed.nc changed; none.nc; same.nc done 1+1; ");
}

TEST_F(JobListRun, EndsAtTheDialogOrTheTransferProgram) {
  app.rememberedSpindle = -5;
  view.job.KeyCodeOn = view.job.KeyCodeCount = 2;
  files.SetCurrentDirectory("c:\\windows");
  OnJobs(false, [this](CTransferDlg* dialog) {
    EXPECT_EQ(app.JobSlots[1].KeyCodeOn + app.JobSlots[1].KeyCodeCount, 0);
    EXPECT_EQ(dialog->SpindleSpeed(), 1000);
    SetSpindle(dialog, "2000");
  });
  RunJobList(&view);
  EXPECT_EQ(app.rememberedSpindle, -5) << "only an accepted dialog changes it";
  EXPECT_EQ(files.CurrentDirectory(), "c:\\windows");
  OnEntries({});
  RunJobList(&view);
  EXPECT_EQ(view.results.recorded.size(), 0U);

  TransferProgram programs;
  CTVXApp other(&files, &ui, &programs);
  CTVXView itsView(&other);
  RunJobList(&itsView);
  EXPECT_EQ(programs.quits, 1);
}

TEST_F(JobListRun, MastersAreReadOnceInARowAndBuiltWhereMissing) {
  for (const char* const name : {"c:\\a.nc", "c:\\b.nc"}) files.Put(name, Surface());
  const auto line = [](const char* master) {
    return std::string("Dir c:\\marlo\\ncdata FS 5 RT OFF Afa ON TD 10.0 MMA ") + master + " ";
  };
  const auto run = [&] {
    OnEntries({{"a.nc", line("c:\\a.nc.mma")},
               {"b.nc", line("c:\\a.nc.mma")},
               {"a.nc", line("c:\\b.nc.mma")},
               {"b.nc", line("c:\\a.nc.mma")}});
    view.job.FileNames[0].clear();
    files.opened.clear();
    RunJobList(&view);
    std::string masters;
    for (const std::string& path : files.opened) {
      if (path.ends_with(".mma")) masters += path.substr(3, 1);
    }
    return masters;
  };
  EXPECT_EQ(run(), "a") << "both were missing; a is read again after b took its place";
  EXPECT_EQ(run(), "aba");
}

TEST_F(Runs, StopKeepsWhatIsRecordedAndLeavesNoPartOfAProgram) {
  const struct {
    size_t file;
    Work work;
    size_t recorded;
  } cases[] = {{1, Work::kRead, 0},
               {2, Work::kRead, 1},
               {2, Work::kAdjust, 1},
               {3, Work::kWritePicture, 2},
               {9, Work::kRead, 3}};  // never
  for (const auto& c : cases) {
    SCOPED_TRACE(c.recorded);
    view.results.recorded.clear();
    files.Remove("c:\\marlo\\ncdata\\b.nc.emf");
    ui.onWork = [&](const Progress::State& state) {
      EXPECT_EQ(state.files, 3U);
      return state.file != c.file || state.work != c.work;
    };
    const std::string line = "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa ON TD 10.0 MAF 2000 ";
    view.job.FileNames = {"a.nc", "a.nc", "b.nc", ""};
    view.job.OptionLines = {line, line, line, ""};
    view.job.MetafileCreateChk = 1;
    RunObserver nobody;
    RunAcceptedList(&view, &nobody);
    EXPECT_EQ(view.results.recorded.size(), c.recorded);
    EXPECT_EQ(view.results.runEnd.WasStopped(), c.recorded < 3);
    EXPECT_EQ(view.results.runEnd.done, c.recorded);
    EXPECT_EQ(view.program.store.blockCount == 0, c.recorded < 3);
    EXPECT_EQ(view.fileName(), c.recorded < 3 ? "" : "b.nc");
    EXPECT_EQ(files.Exists("c:\\marlo\\ncdata\\b.nc.emf"), c.recorded == 3);
  }
}

}  // namespace
}  // namespace tvx
