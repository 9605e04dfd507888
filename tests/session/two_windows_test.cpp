// Two windows of one program: what each has for itself, and what all share.
#include "session/session_test.h"
#include "session/view_operations.h"
#include "settings/configuration.h"
#include "stats/file_information.h"
#include "support/block_list.h"

namespace tvx {
namespace {

std::string Text(double value) {
  return std::to_string(value);
}

// The parts of a window's state, each as a text that tells any change of it.
std::vector<std::string> Parts(const CTVXView& view) {
  return {
      "the stored moves " + BlockList(view.program.store),
      "FeedBase " + Text(view.program.FeedBase),
      "the file name " + view.fileName(),
      "the angles " + Text(view.view.transform.rotX),
      "the scale " + Text(view.view.transform.viewScale),
      "the pan " + Text(view.view.transform.panX),
      "RapidVisible " + Text(view.view.RapidVisible),
      "the working record " + Text(view.job.MaxFeed),
      "RapidShown of the record " + Text(view.job.RapidShown),
      "the job list " + view.job.FileNames[0],
      "the options " + Text(view.job.RapidFeed),
      "the result table " + Text(static_cast<double>(view.results.recorded.size())),
      "the first result " +
          (view.results.recorded.empty() ? "" : view.results.recorded[0].entry.fileName),
      "the master dialog " + Text(view.dialogs.master.MasterTolerance),
      "the master model " + Text(view.masterGrid.ModelBuilt),
      "the command pad " + Text(view.dialogs.commandPad.settings),
      "the job dialog " + Text(static_cast<double>(view.dialogs.jobList.information.size())),
  };
}

class TwoWindows : public SessionTest {
 protected:
  TwoWindows() { files.Put("c:\\marlo\\ncdata\\part.nc", Surface()); }

  static void Size(CTVXView* view) {
    view->view.transform.sizedWidth = view->view.transform.clientWidth = 800;
    view->view.transform.sizedHeight = view->view.transform.clientHeight = 600;
  }

  void LoadPart(CTVXView* view) {
    ui.OnFile("c:\\marlo\\ncdata\\part.nc");
    RunViewCommand(view, CommandId::kLoad);
  }

  CTVXView first{&app};
  CTVXView second{&app};
};

// Each part changes in the window that is worked in, and in no other.
TEST_F(TwoWindows, EachHasAStateOfItsOwn) {
  Size(&first);
  Size(&second);
  const std::vector<std::string> before = Parts(first);

  first.job.MetafileCreateChk = 0;
  OnJobs(true, [](CTransferDlg* dialog) {
    dialog->list.Insert(0, "part.nc", kPlainLine);
    dialog->SelectEntry(0);
  });
  RunViewCommand(&first, CommandId::kRunJobList);
  LoadPart(&first);
  ui.OnDialog<CMasterDlg>([](CMasterDlg* dialog) {
    dialog->MasterTolerance = 2;
    return true;
  });
  RunViewCommand(&first, CommandId::kMasterBuild);
  LoadPart(&first);
  OnOptions("2000");
  ui.OnDialog<CFileInfoDlg>([](CFileInfoDlg*) { return true; });
  RunViewCommand(&first, CommandId::kSingleCutTime);
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
  RunViewCommand(&first, CommandId::kViewTop);
  // Hidden by the master model; shown, and hidden by the user.
  RunViewCommand(&first, CommandId::kToggleRapids);
  RunViewCommand(&first, CommandId::kToggleRapids);

  EXPECT_EQ(Parts(second), before);
  const std::vector<std::string> after = Parts(first);
  for (size_t i = 0; i < before.size(); ++i) {
    EXPECT_NE(after[i], before[i]) << "was not put to the test";
  }
}

TEST_F(TwoWindows, ShareTheConfiguration) {
  files.MakeDirectory("c:\\env");
  ui.OnDialog<CDirSetupDlg>([](CDirSetupDlg* dialog) {
    dialog->values.EnvDir = "c:\\env";
    dialog->values.WorkDir = "c:\\later";
    return true;
  });
  EditConfiguration(&app.configuration, &files, &ui);
  // Saves go to the new directory at once, from any window.
  for (CTVXView* const view : {&first, &second}) {
    view->dialogs.options.Open(&view->job, app.configuration.EnvDir);
    view->dialogs.options.Save();
    EXPECT_TRUE(files.Exists("c:\\env\\tvx.par"));
    files.Remove("c:\\env\\tvx.par");
    EXPECT_EQ(view->job.WorkDir, "c:\\marlo\\ncdata") << "kept until the next view is built";
  }
  EXPECT_EQ(CTVXView(&app).job.WorkDir, "c:\\later");
}

TEST_F(TwoWindows, ShareTheMasksTheJobSlotAndTheSpindleSpeed) {
  files.Put("c:\\marlo\\fileext.txt", "*.mine");
  const CTVXView third(&app);
  first.job.MetafileCreateChk = 0;
  OnJobs(true, [this](CTransferDlg* dialog) {
    EXPECT_EQ(dialog->masks.at(0), "*.mine") << "as the third window read it";
    dialog->list.Insert(0, "part.nc", kPlainLine);
    SetSpindle(dialog, "4321");
  });
  RunViewCommand(&first, CommandId::kRunJobList);
  EXPECT_EQ(app.JobSlots[1].FileNames[0], "part.nc");
  OnJobs(false, [](CTransferDlg* dialog) {
    EXPECT_EQ(dialog->list.size(), 0U) << "the window's own list went into the slot";
    EXPECT_EQ(dialog->SpindleSpeed(), 4321);
  });
  RunViewCommand(&second, CommandId::kRunJobList);
  EXPECT_EQ(app.JobSlots[1].FileNames[0], "");
}

// What one file leaves in force, the next one starts with, whatever window it is loaded in.
TEST_F(TwoWindows, ShareTheModalStateOfTheParser) {
  files.Put("c:\\marlo\\ncdata\\modal.nc", "X5\n");
  LoadProgram(&second, "c:\\marlo\\ncdata\\modal.nc");
  EXPECT_NE(second.program.store.Peek(0)->type, BlockCut);
  LoadPart(&first);
  LoadProgram(&second, "c:\\marlo\\ncdata\\modal.nc");
  EXPECT_EQ(second.program.store.Peek(0)->type, BlockCut) << "as the other file ended";
}

TEST_F(TwoWindows, ShareTheSendOptionsOfASingleCutTime) {
  for (CTVXView* const view : {&first, &second}) {
    ui.OnDialog<CSendOptionDlg>([&](CSendOptionDlg* dialog) {
      EXPECT_EQ(dialog->SpindleOn, view == &first ? 0 : 1);
      dialog->ToggleSpindle();
      return false;
    });
    RunViewCommand(view, CommandId::kSingleCutTime);
  }
}

}  // namespace
}  // namespace tvx
