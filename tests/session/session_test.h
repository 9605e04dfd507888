// A program after its start, on a disk in memory, and a user who follows a script.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/format.h"
#include "session/application.h"
#include "session/tvx_view.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {

// Notes which files are opened for reading.
class WatchedFiles : public MemoryFiles {
 public:
  Result<std::unique_ptr<InputFile>> OpenForReading(const std::string& path) override {
    opened.push_back(path);
    return MemoryFiles::OpenForReading(path);
  }
  std::vector<std::string> opened;
};

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    app.InitApplication();
    files.SetCurrentDirectory("c:\\marlo\\ncdata");
  }

  void OnOptions(const char* topFeed) {
    ui.OnDialog<CSendOptionDlg>([topFeed](CSendOptionDlg* options) {
      options->EditTopFeed(topFeed);
      return options->Accept() == Closing::kAccepted;
    });
  }
  // The next job dialog, accepted or cancelled.
  void OnJobs(bool accepts, std::function<void(CTransferDlg*)> act) {
    ui.OnDialog<CTransferDlg>([act = std::move(act), accepts](CTransferDlg* dialog) {
      act(dialog);
      if (accepts) dialog->Accept();
      return accepts;
    });
  }

  // Sets a spindle speed in the send options of an open job dialog.
  void SetSpindle(CTransferDlg* dialog, const char* speed) {
    ui.OnDialog<CSendOptionDlg>([speed](CSendOptionDlg* options) {
      options->EditSpindleSpeed(speed);
      return options->Accept() == Closing::kAccepted;
    });
    dialog->SetCondition();
  }

  // Lines to and fro over a step, enough of them for a master model.
  static std::string Surface() {
    std::string text = "G90 G0 X0 Y0 Z20\nG1 Z0 F700\n";
    for (int y = 1; y <= 60; y += 2) {
      text += Format("X30\nZ8\nX60\nY%d\nX30\nZ0\nX0\nY%d\n", y, y + 1);
    }
    return text;
  }

  WatchedFiles files;
  ScriptedUi ui;
  CTVXApp app{&files, &ui};
};

constexpr char kPlainLine[] = "Dir c:\\marlo\\ncdata FS 5 RT OFF Afa OFF ";

}  // namespace tvx
