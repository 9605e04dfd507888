// The working state of a window.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "evaluate/program_checks.h"
#include "evaluate/result_table.h"
#include "insight/feed_causes.h"
#include "jobs/transfer_dialog.h"
#include "master/master_build.h"
#include "master/master_grid.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "reports/cut_time_list.h"
#include "session/application.h"
#include "session/command_pad.h"
#include "session/view_marks.h"
#include "session/view_text.h"
#include "settings/option_dialog.h"
#include "view/path_drawing.h"

namespace tvx {

// The entry that a run over a job list processed last.
struct LastRun {
  std::string path;  // absolute drive path of its program; empty if that could not be opened
  std::string directory;
  std::string line;  // its option line
};

// The program, parameters and result table of one window. An empty store is a legal
// state for every command. Each command works with the record that the one before it left, and
// nothing is saved when the window closes.
class CTVXView {
 public:
  // Reads, in this order, the defaults, the parameter file, the extension list once more and the
  // default condition file; a later value replaces an earlier one. A missing file changes nothing
  // and shows no message; the application notes one that cannot be read. The application outlives
  // its views.
  explicit CTVXView(CTVXApp* app);

  CTVXApp* const app;
  NcProgram program;  // the stored moves, with the register CurrentBlock
  ViewState view;     // the picture of them: transform, rapids shown or not
  ViewMarks marks;    // the moves that are marked in the picture
  ViewText text;      // the lines of the program
  // The rules behind the feeds of the program in the store; null while nobody wants to know them.
  std::unique_ptr<FeedCauses> causes;
  std::string fileName;  // of the program in the store, without directory; empty if there is none
  std::string filePath;  // as it was passed to the load
  uint32_t loads = 0;    // number of programs read; a failed load does not count
  ProgramChecks check;   // of its programs; nothing is checked until CheckMore
  CCommandPadDlg commandPad;
  COptionDlg optionDialog;
  CTransferDlg transferDialog;
  JobRecord job;  // the working record: the parameters in force
  LastRun lastRun;
  // InputFileType of the settings while a program is read in the format of its ending.
  std::optional<int32_t> settingsFormat;
  ResultTable results;
  Wanted wanted;                // of the results to come
  CCutTimeListDlg cutTimeList;  // shows the table
  CMasterDlg masterDialog;
  MasterGrid masterGrid;  // the master model

 private:
  void SetDefaults();
  void ReadFiles();
};

}  // namespace tvx
