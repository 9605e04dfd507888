// The commands of the master menu.
#include "session/master_commands.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"
#include "support/random_program.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\part.mma";

class MasterCommands : public testing::Test {
 protected:
  MasterCommands() {
    Append(&program.store, BlockRapidStart, 0, 0, 9);
    for (int i = 0; i < 40; ++i) {
      Append(&program.store, BlockCut, i % 2 == 0 ? 20.0F : 0.0F, static_cast<float>(i) * 0.5F, 1);
    }
  }

  // The command with other sizes in the dialog. Returns the sizes that it showed.
  std::vector<float> Make(float diameter, float allowance, float tolerance, bool accepted = true) {
    std::vector<float> shown;
    ui.OnDialog<CMasterDlg>([&](CMasterDlg* dlg) {
      shown = {dlg->MasterToolDiameter, dlg->MasterAllowance, dlg->MasterTolerance};
      dlg->MasterToolDiameter = diameter;
      dlg->MasterAllowance = allowance;
      dlg->MasterTolerance = tolerance;
      return accepted;
    });
    MakeMasterCommand(context);
    return shown;
  }
  void Save() {
    ui.OnFile(kPath);
    SaveMasterCommand(context);
  }
  void Load() {
    ui.OnFile(kPath);
    LoadMasterCommand(context);
  }

  NcProgram program;
  MasterGrid grid;
  CMasterDlg dialog;
  int32_t RapidVisible = 1;
  MemoryFiles files;
  ScriptedUi ui;
  ChangeNotifier changes;
  const Subscription repaints = ui.WatchRepaints(&changes);
  MasterContext context = {&program, &grid, &dialog, &RapidVisible, &files, &ui, &changes};
};

TEST_F(MasterCommands, MakeBuildsWithTheAcceptedInputAndKeepsIt) {
  const std::string before = Bytes(program.store);
  EXPECT_EQ(Make(8, 1, 3, false), (std::vector<float>{10, 0, 1}));
  EXPECT_TRUE(Bytes(program.store) == before);
  EXPECT_EQ(Make(6, 0.5F, 2), (std::vector<float>{10, 0, 1}));
  EXPECT_EQ(grid.CellSize, 2);
  EXPECT_EQ(grid.ToolSize, 7);
  EXPECT_EQ(RapidVisible, 0);
  EXPECT_EQ(ui.log, (std::vector<std::string>{"dialog", "dialog", "repaint"}));
  EXPECT_EQ(Make(6, 0.5F, 2, false), (std::vector<float>{6, 0.5F, 2}));
}

TEST_F(MasterCommands, RefusedBuildShowsTheReason) {
  Make(10, 0, 0);
  EXPECT_EQ(ui.log.back(), "status 마스터 모델을 만들 수 없습니다: 공차가 맞지 않습니다.");
  EXPECT_EQ(RapidVisible, 1);
}

TEST_F(MasterCommands, DeleteAsksFirst) {
  Make(10, 0, 2);
  for (const bool accepted : {false, true}) {
    ui.OnMessage(accepted);
    DeleteMaster(&grid, &ui);
    EXPECT_EQ(grid.ModelBuilt, accepted ? 0 : 1);
    EXPECT_EQ(grid.Cells.Empty(), accepted);
    EXPECT_EQ(ui.log.back() == "status 마스터 모델을 메모리에서 지웠습니다.", accepted);
  }
  EXPECT_EQ(ui.messages[0].text, "마스터 모텔을 삭제 하겠읍니까?");
  EXPECT_EQ(ui.messages[0].caption, " Optimizer message ");
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(ui.messages[0].buttons, MessageButtons::kOkCancel);
}

TEST_F(MasterCommands, SavedModelIsLoadedAndShown) {
  Make(10, 0, 2);
  const std::string picture = Bytes(program.store);
  ui.OnFileCancel();
  SaveMasterCommand(context);
  EXPECT_TRUE(files.FilePaths().empty());
  Save();
  program.store.blockCount = 0;
  RapidVisible = 1;
  ui.OnFileCancel();
  LoadMasterCommand(context);
  EXPECT_EQ(grid.ModelBuilt * RapidVisible, 1);
  Load();
  EXPECT_TRUE(Bytes(program.store) == picture);
  EXPECT_EQ(RapidVisible, 0);
  EXPECT_EQ(ui.log.back(), "repaint");
  for (const FileQuestion& question : ui.fileQuestions) {
    EXPECT_EQ(question.filter, " AFA MASTER FILE (*.mma)|*.mma||");
    EXPECT_EQ(question.save, &question < &ui.fileQuestions[2]);
  }
}

TEST_F(MasterCommands, FailedSaveShowsAMessageAndNoModelAStatus) {
  Save();
  EXPECT_EQ(ui.log.back(), "status 저장할 마스터 모델이 없습니다.");
  EXPECT_TRUE(files.FilePaths().empty());
  Make(10, 0, 2);
  files.RefuseWrite(1);
  Save();
  EXPECT_EQ(ui.log.back(), "message 디스크가 가득 찼거나 쓸 수 없습니다.");
  EXPECT_EQ(ui.log.at(ui.log.size() - 2), "status c:\\part.mma: 저장하지 못했습니다.");
  files.RefuseCreation(kPath);
  Save();
  EXPECT_EQ(ui.log.back(), "message 화일을 열수 없습니다.\n");
}

TEST_F(MasterCommands, FailedLoadLeavesNoModelAndTheStore) {
  Make(10, 0, 2);
  const std::string picture = Bytes(program.store);
  RapidVisible = 1;
  files.Put(kPath, "no model");
  Load();
  EXPECT_EQ(ui.log.back(), "message 화일을 열수 없습니다.\n");
  EXPECT_EQ(ui.messages[0].caption, "Error message");
  EXPECT_EQ(grid.ModelBuilt + grid.CellCount, 0);
  EXPECT_TRUE(Bytes(program.store) == picture);
  EXPECT_EQ(RapidVisible, 1);
}

TEST_F(MasterCommands, LackOfMemoryShowsHowToContinue) {
  Make(10, 0, 2);
  Save();
  grid = MasterGrid(AllocateWhileAllowed);
  allocationsLeft = 0;
  Load();
  EXPECT_EQ(ui.log.back(), "message Memory를 할당할 수 없습니다!!!");
  EXPECT_EQ(ui.messages[0].caption, " Message");
  RapidVisible = 1;
  Make(10, 0, 2);
  EXPECT_EQ(ui.messages.size(), 2U);
  EXPECT_EQ(ui.log.back(), "status 프로그램을 다시 불러와야 합니다.");
  EXPECT_EQ(RapidVisible, 1);
}

}  // namespace
}  // namespace tvx
