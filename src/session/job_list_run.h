// The run over a job list: the command of the window, and the loop behind it that the tool uses
// too.
#pragma once

#include <memory>
#include <string>

#include "base/status.h"
#include "evaluate/program_result.h"
#include "session/tvx_view.h"

namespace tvx {

// The master model of an entry is read from its file or, if that is missing, built from an NC file
// and written. The first step that fails ends this.
enum class MasterStep { kRead, kLoad, kBuild, kWrite };
struct MasterOutcome {
  Status status;
  MasterStep step = MasterStep::kRead;  // that failed, if one has
};

// Callbacks of a run. None of them stops it; only the progress does.
class RunObserver {
 public:
  virtual ~RunObserver() = default;
  // Before an entry of `count` is processed.
  virtual void OnEntry(size_t /*index*/, size_t /*count*/, const std::string& /*name*/) {}
  // Before a program is loaded, of an entry or for its master model. Returns its check, or null to
  // leave that to the window.
  virtual std::shared_ptr<const FileCheck> OnLoad(const std::string& /*path*/) { return nullptr; }
  // A file of the list could not be loaded. The entry is recorded with the moves in the store;
  // there are none if the file could not be opened.
  virtual void OnLoadFailed(const std::string& /*path*/, const Status& /*load*/) {}
  // A master model could not be read, built or written. One that was built is used all the same.
  virtual void OnMasterFailed(const std::string& /*path*/, const MasterOutcome& /*outcome*/) {}
  // A master model was missing, and was built and written.
  virtual void OnMasterBuilt(const std::string& /*path*/) {}
  // An entry was recorded.
  virtual void OnRecorded(const std::string& /*path*/, const ProgramResult& /*result*/) {}
  // The picture of an entry that was recorded could not be written into the current directory.
  virtual void OnPictureFailed(const std::string& /*name*/, const Status& /*written*/) {}
  // The user stopped the run after so many of its entries, which are recorded.
  virtual void OnStopped(const RunEnd& /*end*/) {}
  // An entry could not be recorded.
  virtual void OnTableFull() {}
};

// The command "다중 Afa Cut Time": shows the job dialog and runs the accepted list; failures show
// their messages. A dialog that is cancelled leaves the current directory where it was. If the
// transfer program is running, TVX quits instead.
void RunJobList(CTVXView* view);

// Runs the list in the working record: each entry takes its options from its own line, and is
// loaded, adjusted if they say so, counted and recorded. The user can stop it: the store is then
// empty, since it may hold a part of a program or a part of its feeds.
void RunAcceptedList(CTVXView* view, RunObserver* observer);

}  // namespace tvx
