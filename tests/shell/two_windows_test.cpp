// Two windows of one program: what each has for itself, and what all share.
#include <gtest/gtest.h>

#include "jobs/key_code_pad.h"
#include "model/block_list.h"
#include "shell/configuration.h"
#include "shell/lists.h"
#include "shell/user_keys.h"
#include "shell/view_operations.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

std::string Text(double value) {
  return std::to_string(value);
}

// One part of a window's state as a text that tells any change of it.
struct Part {
  const char* name;
  std::string (*of)(CTVXView& view);
};

const Part kParts[] = {
    {"the stored moves", [](CTVXView& v) { return BlockList(v.program.store); }},
    {"FeedBase", [](CTVXView& v) { return Text(v.program.FeedBase); }},
    {"the file name", [](CTVXView& v) { return v.fileName; }},
    {"the angles", [](CTVXView& v) { return Text(v.view.transform.rotX); }},
    {"the scale", [](CTVXView& v) { return Text(v.view.transform.viewScale); }},
    {"the pan", [](CTVXView& v) { return Text(v.view.transform.panX); }},
    {"RapidVisible", [](CTVXView& v) { return Text(v.view.RapidVisible); }},
    {"the working record", [](CTVXView& v) { return Text(v.job.MaxFeed); }},
    {"RapidShown of the record", [](CTVXView& v) { return Text(v.job.RapidShown); }},
    {"the job list", [](CTVXView& v) { return v.job.FileNames[0]; }},
    {"the options", [](CTVXView& v) { return Text(v.job.RapidFeed); }},
    {"the current result", [](CTVXView& v) { return v.fileInfo.current.fileName; }},
    {"the result table", [](CTVXView& v) { return Text(v.results.entryCount); }},
    {"the first result", [](CTVXView& v) { return v.results.entries[0].fileName; }},
    {"the master dialog", [](CTVXView& v) { return Text(v.masterDialog.MasterTolerance); }},
    {"the master model", [](CTVXView& v) { return Text(v.masterGrid.ModelBuilt); }},
    {"the command pad", [](CTVXView& v) { return Text(v.commandPad.settings); }},
    {"the job dialog", [](CTVXView& v) { return v.transferDialog.selectedName; }},
};

class TwoWindows : public testing::Test {
 protected:
  TwoWindows() {
    std::string raster = "G90 G0 X0 Y0 Z9\nG1 Z1 F700\n";
    for (int line = 0; line < 60; ++line) {
      raster += "X" + std::to_string(line % 2 == 0 ? 60 : 0) + "\nY" + std::to_string(line) + "\n";
    }
    files.Put("c:\\marlo\\ncdata\\part.nc", raster);
    app.InitApplication();
    files.SetCurrentDirectory("c:\\marlo\\ncdata");
  }

  static void Size(CTVXView* view) {
    view->view.transform.sizedWidth = view->view.transform.clientWidth = 800;
    view->view.transform.sizedHeight = view->view.transform.clientHeight = 600;
  }

  void LoadPart(CTVXView* view) {
    ui.OnFile("c:\\marlo\\ncdata\\part.nc");
    RunViewAction(view, Action::kLoad);
  }

  void OnJobs(std::function<void(CTransferDlg*)> act, bool accepts) {
    ui.OnDialog<CTransferDlg>([act = std::move(act), accepts](CTransferDlg* dialog) {
      act(dialog);
      if (accepts) dialog->Accept();
      return accepts;
    });
  }

  MemoryFiles files;
  ScriptedUi ui;
  CTVXApp app{&files, &ui};
};

// Each part changes in the window that is worked in, and in no other.
TEST_F(TwoWindows, EachHasAStateOfItsOwn) {
  CTVXView first(&app);
  CTVXView second(&app);
  Size(&first);
  Size(&second);
  std::vector<std::string> before;
  for (const Part& part : kParts) before.push_back(part.of(first));

  first.job.MetafileCreateChk = 0;
  OnJobs(
      [](CTransferDlg* dialog) {
        dialog->list.Insert(0, "part.nc", "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ");
        dialog->SelectEntry(0);
      },
      true);
  RunViewAction(&first, Action::kRunJobList);
  LoadPart(&first);
  ui.OnDialog<CMasterDlg>([](CMasterDlg* dialog) {
    dialog->MasterTolerance = 2;
    return true;
  });
  RunViewAction(&first, Action::kMasterBuild);
  LoadPart(&first);
  ui.OnDialog<CSendOptionDlg>([](CSendOptionDlg* dialog) {
    dialog->EditTopFeed("2000");
    return dialog->Accept() == Closing::kAccepted;
  });
  ui.OnDialog<CFileInfoDlg>([](CFileInfoDlg*) { return true; });
  RunViewAction(&first, Action::kSingleCutTime);
  ui.OnDialog<CCommandPadDlg>([](CCommandPadDlg* pad) {
    for (const auto& button : CCommandPadDlg::Buttons()) {
      if (button.flag == &CCommandPadDlg::settings) pad->Press(button);
    }
    return true;
  });
  ui.OnDialog<COptionDlg>([](COptionDlg* dialog) {
    dialog->ChooseRapidFeed(1);
    return dialog->Accept() == Closing::kAccepted;
  });
  OpenCommandPad(&first);
  RunViewAction(&first, Action::kViewMode, 1);
  // Hidden by the master model; shown, and hidden by the user.
  RunViewAction(&first, Action::kToggleRapids);
  RunViewAction(&first, Action::kToggleRapids);

  for (size_t i = 0; i < std::size(kParts); ++i) {
    EXPECT_NE(kParts[i].of(first), before[i]) << kParts[i].name << " was not put to the test";
    EXPECT_EQ(kParts[i].of(second), before[i]) << kParts[i].name;
  }
}

TEST_F(TwoWindows, ShareTheConfiguration) {
  CTVXView first(&app);
  CTVXView second(&app);
  files.MakeDirectory("c:\\env");
  ui.OnDialog<CDirSetupDlg>([](CDirSetupDlg* dialog) {
    dialog->values.EnvDir = "c:\\env";
    dialog->values.WorkDir = "c:\\later";
    return true;
  });
  EditConfiguration(&app.configuration, &files, &ui);
  // Saves go to the new directory at once, from any window.
  for (CTVXView* const view : {&first, &second}) {
    view->optionDialog.Open(&view->job, app.configuration.EnvDir);
    view->optionDialog.Save();
    EXPECT_TRUE(files.Exists("c:\\env\\tvx.par"));
    files.Remove("c:\\env\\tvx.par");
    EXPECT_EQ(view->job.WorkDir, "c:\\marlo\\ncdata") << "kept until the next view is built";
  }
  EXPECT_EQ(CTVXView(&app).job.WorkDir, "c:\\later");
}

TEST_F(TwoWindows, ShareTheExtensionList) {
  CTVXView first(&app);
  files.Put("c:\\marlo\\fileext.txt", "*.mine");
  const CTVXView second(&app);
  OnJobs([](CTransferDlg* dialog) { EXPECT_EQ(dialog->masks.at(0), "*.mine"); }, false);
  RunViewAction(&first, Action::kRunJobList);
}

TEST_F(TwoWindows, ShareTheJobSlotTheSpindleSpeedAndTheUserKeys) {
  CTVXView first(&app);
  CTVXView second(&app);
  first.job.MetafileCreateChk = 0;
  OnJobs(
      [](CTransferDlg* dialog) {
        dialog->list.Insert(0, "part.nc", "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ");
        dialog->SpindleSpeed = 4321;
      },
      true);
  RunViewAction(&first, Action::kRunJobList);
  EXPECT_EQ(app.JobSlots[1].FileNames[0], "part.nc");
  ui.OnDialog<CKeyCodeDlg>([](CKeyCodeDlg* pad) {
    pad->Press("M08");
    return pad->Accept() == Closing::kAccepted;
  });
  EditUserKey(3, &app.UserKeys, &ui);

  OnJobs(
      [](CTransferDlg* dialog) {
        EXPECT_EQ(dialog->list.size(), 0U) << "the window's own list went into the slot";
        EXPECT_EQ(dialog->SpindleSpeed, 4321);
        dialog->NewMask();
      },
      false);
  ui.OnDialog<CKeyCodeDlg>([](CKeyCodeDlg* pad) {
    pad->Clear();
    pad->PressUserKey(3);
    EXPECT_EQ(pad->field, "M08 ");
    return false;
  });
  RunViewAction(&second, Action::kRunJobList);
  EXPECT_EQ(app.JobSlots[1].FileNames[0], "");
}

// What one file leaves in force, the next one starts with, whatever window it is loaded in.
TEST_F(TwoWindows, ShareTheModalStateOfTheParser) {
  files.Put("c:\\marlo\\ncdata\\modal.nc", "X5\n");
  CTVXView second(&app);
  LoadProgram(&second, "c:\\marlo\\ncdata\\modal.nc");
  const std::string before = BlockList(second.program.store);
  CTVXView first(&app);
  LoadPart(&first);
  LoadProgram(&second, "c:\\marlo\\ncdata\\modal.nc");
  EXPECT_NE(BlockList(second.program.store), before);
  EXPECT_EQ(second.program.store.Peek(0)->type, BlockCut) << "as the other file ended";
}

TEST_F(TwoWindows, ShareTheSendOptionsOfASingleCutTime) {
  CTVXView first(&app);
  CTVXView second(&app);
  int32_t spindleOn = 0;
  for (CTVXView* const view : {&first, &second}) {
    ui.OnDialog<CSendOptionDlg>([&](CSendOptionDlg* dialog) {
      EXPECT_EQ(dialog->SpindleOn, spindleOn);
      dialog->ToggleSpindle();
      spindleOn = dialog->SpindleOn;
      return false;
    });
    RunViewAction(view, Action::kSingleCutTime);
  }
}

}  // namespace
}  // namespace tvx
