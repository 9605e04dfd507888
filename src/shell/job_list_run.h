#pragma once

#include "shell/tvx_view.h"

namespace tvx {

// What a run tells of itself while it goes on; the command-line tool listens.
class RunObserver {
 public:
  virtual ~RunObserver() = default;
  // Before an entry of `count` is handled.
  virtual void OnEntry(size_t /*index*/, size_t /*count*/, const std::string& /*path*/) {}
  // False if a file is not to be loaded, as if it could not be opened: the loader would create one
  // that does not exist.
  virtual bool MayLoad(const std::string& /*path*/) { return true; }
  // A file of the list that could not be loaded; it is recorded with what the store holds.
  virtual void OnLoadFailed(const std::string& /*path*/) {}
  // A master model that could not be read, built or written. A built one is in use all the same.
  virtual void OnMasterFailed(const std::string& /*path*/) {}
};

// The command "다중 Afa Cut Time": shows the job dialog and takes every file of the accepted list
// through master model, load, adjustment, fit, figures and recording, each with its own options.
// While the transfer program is running, TVX ends instead.
void RunJobList(CTVXView* view, RunObserver* observer = nullptr);

// The part of it behind the dialog: runs the list of the working record.
void RunAcceptedList(CTVXView* view, RunObserver* observer);

}  // namespace tvx
