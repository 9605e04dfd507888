#pragma once

#include <string>

#include "feed/master_build.h"
#include "feed/master_grid.h"
#include "jobs/transfer_dialog.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "reports/cut_time_list.h"
#include "shell/application.h"
#include "shell/option_dialog.h"
#include "stats/file_information.h"
#include "stats/result_table.h"
#include "view/command_pad.h"
#include "view/path_drawing.h"

namespace tvx {

// The working state of one open window: its program, parameters, current result and result table.
// An empty store is a legal state for every command. What a command leaves in the working record
// stays for the next one, and nothing is saved when the window closes.
class CTVXView {
 public:
  // Builds the state in the order that decides which value stands: the defaults, the parameter
  // file, the extension list once more, the default condition file. Files that are missing leave
  // what stands, without a message. The application outlives its views.
  explicit CTVXView(CTVXApp* app);

  CTVXApp* const app;
  NcProgram program;     // the stored moves, with the register CurrentBlock
  ViewState view;        // the picture of them: transform, rapids shown or not
  std::string fileName;  // the NC file in work, without directory; empty before the first load
  std::string filePath;  // the same as the load got it
  uint32_t loads = 0;    // programs read so far; a load that fails does not count
  CCommandPadDlg commandPad;
  COptionDlg optionDialog;
  CTransferDlg transferDialog;
  JobRecord job;          // the working record: the parameters in force
  CFileInfoDlg fileInfo;  // with the current result
  ResultTable results;
  CCutTimeListDlg cutTimeList;  // shows the table
  CMasterDlg masterDialog;
  MasterGrid masterGrid;  // the master model

 private:
  void SetDefaults();
  void ReadFiles();
};

}  // namespace tvx
