// The working state of a window.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "evaluate/evaluation.h"
#include "evaluate/program_checks.h"
#include "evaluate/result_table.h"
#include "insight/feed_causes.h"
#include "jobs/transfer_dialog.h"
#include "master/master_build.h"
#include "master/master_grid.h"
#include "model/job_record.h"
#include "model/loader.h"
#include "model/nc_program.h"
#include "reports/cut_time_list.h"
#include "session/application.h"
#include "session/changes.h"
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

// The dialogs that keep something from one opening to the next.
struct ViewDialogs {
  ViewDialogs(CTVXApp* app, ResultTable* table);

  CCommandPadDlg commandPad;
  COptionDlg options;
  CTransferDlg jobList;
  CCutTimeListDlg results;  // shows the table
  CMasterDlg master;
};

// The program, parameters and result table of one window. An empty store is a legal state for every
// command. Each command works with the record that the one before it left, and nothing is saved
// when the window closes.
class CTVXView {
 public:
  // Reads, in this order, the defaults, the parameter file, the extension list once more and the
  // default condition file; a later value replaces an earlier one. A missing file changes nothing
  // and shows no message; the application notes one that cannot be read. The application outlives
  // its views.
  explicit CTVXView(CTVXApp* app);

  CTVXApp* const app;

  // Calls the listeners. Every operation below notes what it changes; code that changes one of the
  // members that follow has to note it.
  ChangeNotifier changes;
  NcProgram program;  // the stored moves, with the register CurrentBlock
  JobRecord job;      // the working record: the parameters in force
  ViewState view;     // the picture of the moves: transform, rapids shown or not
  ResultTable results;
  Wanted wanted;          // of the results to come
  MasterGrid masterGrid;  // the master model
  LastRun lastRun;
  ViewDialogs dialogs;

  // The name of the program in the store, without directory, and its path as it was passed to Load;
  // empty if there is none.
  const std::string& fileName() const { return fileName_; }
  const std::string& filePath() const { return filePath_; }
  void SetNames(const std::string& path, const std::string& name);

  // What the steps of evaluate/ work on.
  ProgramWork Work();
  // The picture of the program.
  Scene Picture() { return {&program, &job, &view, app->ui->LongWork()}; }
  // The lines of the program, as those of the file when it was loaded. Valid until the next load.
  SourceLines* Lines() { return text_.LinesOf(program, app->files); }

  // Loads an NC file, by its drive path or relative to the current directory. The path and the name
  // in it become those of the program; a file that cannot be opened leaves none.
  Status Load(const std::string& path);
  // Sets InputFileType of the record to what the user has chosen for the ending of a file, if
  // anything, else to what it was before such a choice.
  void UseFormatOf(const std::string& path);
  uint32_t loads() const {
    return loads_;
  }  // number of programs read; a failed load does not count
  // Leaves no program, as after a load that failed.
  void DropProgram();

  // Evaluates the program, and shows the whole path as soon as the feeds are in force.
  std::optional<ProgramResult> EvaluateAndShow(Evaluation evaluation);

  // The rules behind the feeds of the program; null unless they are followed.
  const FeedCauses* causes() const { return causes_.get(); }
  void FollowCauses() { causes_ = std::make_unique<FeedCauses>(); }

  // The checks of the programs loaded. Nothing is checked until CheckMore, which checks some lines,
  // notes the checks that have ended and returns false once all have.
  const ProgramChecks& checks() const { return checks_; }
  bool CheckMore(uint64_t lines);
  void FinishChecks();
  // As ProgramChecks::Keep.
  std::shared_ptr<const FileCheck> KeepCheck() { return checks_.Keep(); }

  // The moves that are marked in the picture, as ViewMarks. Setting one calls the listeners.
  std::optional<uint32_t> MarkedBlock(Mark mark) const { return marks_.BlockOf(mark, program); }
  void SetMark(Mark mark, std::optional<uint32_t> block);
  std::optional<uint32_t> MoveAt(Pixel pixel) { return marks_.MoveAt(Picture(), pixel); }
  Vec3 PivotAt(Pixel pixel) { return marks_.PivotAt(Picture(), pixel); }
  std::vector<Pixel> LineOf(Mark mark) { return marks_.LineOf(mark, Picture()); }

  // The line in work, from 1: that of the kept move, or the line gone to last.
  uint64_t line() const;
  // Makes a line the one in work, and its move, if it has one, the kept one. Calls the listeners.
  void GoToLine(uint64_t line, Centring centring);

 private:
  void SetDefaults();
  void ReadFiles();
  void Centre(uint32_t block, Centring centring);

  ViewMarks marks_;
  ViewText text_;
  std::unique_ptr<FeedCauses> causes_;
  std::string fileName_;
  std::string filePath_;
  uint32_t loads_ = 0;
  ProgramChecks checks_;
  // InputFileType of the settings while a program is read in the format of its ending.
  std::optional<int32_t> settingsFormat_;
  uint64_t line_ = 1;
  uint32_t lineEdition_ = 0;  // of the program that the line is of
};

}  // namespace tvx
