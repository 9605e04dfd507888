#include "feed/master_commands.h"

#include <gtest/gtest.h>

#include "feed/master_fixture.h"
#include "model/block_list.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\part.mma";

struct Window {
  NcProgram program;
  MasterGrid grid;
  CMasterDlg dialog;
  int32_t RapidVisible = 1;
  MemoryFiles files;
  ScriptedUi ui;

  Window() {
    Append(&program.store, BlockRapidStart, 0, 0, 9);
    for (int i = 0; i < 40; ++i) {
      Append(&program.store, BlockCut, i % 2 == 0 ? 20.0F : 0.0F, static_cast<float>(i) * 0.5F, 1);
    }
  }

  MasterContext Context() { return {&program, &grid, &dialog, &RapidVisible, &files, &ui}; }

  void Make() {
    ui.OnDialog<CMasterDlg>([](CMasterDlg* dlg) {
      dlg->MasterTolerance = 2;
      return true;
    });
    MakeMasterCommand(Context());
  }
};

TEST(MasterCommands, MakeBuildsWithTheAcceptedInputAndKeepsIt) {
  Window w;
  const std::string before = BlockList(w.program.store);
  w.ui.OnDialog<CMasterDlg>([](CMasterDlg* dlg) {
    EXPECT_EQ(dlg->MasterToolDiameter, 10);
    EXPECT_EQ(dlg->MasterAllowance, 0);
    EXPECT_EQ(dlg->MasterTolerance, 1);
    dlg->MasterTolerance = 3;
    return false;
  });
  MakeMasterCommand(w.Context());
  EXPECT_EQ(w.dialog.MasterTolerance, 1);
  EXPECT_EQ(BlockList(w.program.store), before);

  w.ui.OnDialog<CMasterDlg>([](CMasterDlg* dlg) {
    dlg->MasterToolDiameter = 6;
    dlg->MasterAllowance = 0.5F;
    dlg->MasterTolerance = 2;
    return true;
  });
  MakeMasterCommand(w.Context());
  EXPECT_EQ(w.dialog.MasterAllowance, 0.5F);
  EXPECT_EQ(w.grid.CellSize, 2);
  EXPECT_EQ(w.grid.ToolSize, 7);
  EXPECT_EQ(w.RapidVisible, 0);
  EXPECT_EQ(w.ui.log.back(), "repaint");
}

TEST(MasterCommands, MakeSaysWhyThereIsNoModel) {
  Window w;
  const std::string before = BlockList(w.program.store);
  for (const float tolerance : {0.0F, 2.0F}) {
    w.ui.OnDialog<CMasterDlg>([tolerance](CMasterDlg* dlg) {
      dlg->MasterTolerance = tolerance;
      return true;
    });
    MakeMasterCommand(w.Context());
    EXPECT_EQ(w.ui.statusTexts.size(), 1U) << tolerance;
    EXPECT_EQ(BlockList(w.program.store) == before, tolerance == 0.0F) << tolerance;
  }
}

TEST(MasterCommands, DeleteAsksFirst) {
  Window w;
  w.Make();
  for (const bool accepted : {false, true}) {
    w.ui.OnMessage(accepted);
    DeleteMaster(&w.grid, &w.ui);
    EXPECT_EQ(w.grid.ModelBuilt, accepted ? 0 : 1);
    EXPECT_EQ(w.grid.Cells.Empty(), accepted);
  }
  const Message& message = w.ui.messages[0];
  EXPECT_EQ(message.text, "마스터 모텔을 삭제 하겠읍니까?");
  EXPECT_EQ(message.caption, " Optimizer message ");
  EXPECT_EQ(message.icon, MessageIcon::kInformation);
  EXPECT_EQ(message.buttons, MessageButtons::kOkCancel);
}

TEST(MasterCommands, SaveAndLoad) {
  Window w;
  w.Make();
  const std::string picture = BlockList(w.program.store);
  w.ui.OnFile(kPath);
  SaveMasterCommand(w.Context());
  EXPECT_EQ(w.files.Bytes(kPath).size(), 156U + 6 * static_cast<size_t>(w.grid.CellCount));

  Window other;
  other.files.Put(kPath, w.files.Bytes(kPath));
  other.ui.OnFile(kPath);
  LoadMasterCommand(other.Context());
  EXPECT_EQ(other.grid.CellCount, w.grid.CellCount);
  EXPECT_EQ(BlockList(other.program.store), picture);
  EXPECT_EQ(other.RapidVisible, 0);
  EXPECT_EQ(other.ui.log.back(), "repaint");

  EXPECT_EQ(w.ui.fileQuestions[0].filter, " AFA MASTER FILE (*.mma)|*.mma||");
  EXPECT_TRUE(w.ui.fileQuestions[0].save);
  EXPECT_EQ(other.ui.fileQuestions[0].filter, " AFA MASTER FILE (*.mma)|*.mma||");
  EXPECT_FALSE(other.ui.fileQuestions[0].save);
}

TEST(MasterCommands, CancelledChoosersChangeNothing) {
  Window w;
  w.Make();
  w.ui.OnFileCancel();
  SaveMasterCommand(w.Context());
  w.ui.OnFileCancel();
  LoadMasterCommand(w.Context());
  EXPECT_EQ(w.grid.ModelBuilt, 1);
  EXPECT_TRUE(w.files.FilePaths().empty());
}

TEST(MasterCommands, SaveWithoutAModelKeepsTheFile) {
  Window w;
  w.files.Put(kPath, "older");
  w.ui.OnFile(kPath);
  SaveMasterCommand(w.Context());
  EXPECT_EQ(w.files.Bytes(kPath), "older");
  EXPECT_EQ(w.ui.statusTexts.size(), 1U);
}

TEST(MasterCommands, AFailedLoadLeavesNoModelAndTheStore) {
  Window w;
  w.Make();
  const std::string before = BlockList(w.program.store);
  w.RapidVisible = 1;
  w.files.Put(kPath, "no model");
  w.ui.OnFile(kPath);
  LoadMasterCommand(w.Context());
  EXPECT_EQ(w.ui.messages.size(), 1U);
  EXPECT_EQ(w.grid.ModelBuilt, 0);
  EXPECT_EQ(w.grid.CellCount, 0);
  EXPECT_EQ(BlockList(w.program.store), before);
  EXPECT_EQ(w.RapidVisible, 1);
}

}  // namespace
}  // namespace tvx
