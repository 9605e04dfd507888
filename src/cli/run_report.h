// What tvx-cli run prints while it works through a list, and what it collects for its table.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/host.h"
#include "cli/time_totals.h"
#include "insight/machine_profile.h"
#include "insight/machine_time.h"
#include "insight/program_check.h"
#include "shell/job_list_run.h"

namespace tvx {

class RunReport final : public RunObserver {
 public:
  // The profile of a machine whose time is wanted, if any, and the view have to outlive the object.
  RunReport(const std::optional<MachineProfile>& machine, CTVXView* view)
      : machine_(machine), view_(*view) {}

  // Each entry is read with the modal state of a new process.
  void ReadFresh() { isFresh_ = true; }

  void OnEntry(size_t index, size_t count, const std::string& name) override;
  // Prints the remark about the program check of the file, once for each path.
  void OnLoad(const std::string& path) override;
  void OnLoaded() override;
  // Adds the machine time and the check to the details of the entry, where they are wanted.
  void OnRecorded(const std::string& path) override;
  void OnStopped(const RunEnd& end) override;
  void OnLoadFailed(const std::string& path, LoadResult result) override;
  void OnMasterFailed(const std::string& path, const MasterOutcome& outcome) override;
  void OnMasterBuilt(const std::string& path) override;
  void OnPictureFailed(const std::string& name) override;

  // Prints a failure on standard error, unless it is the last one again.
  void Fail(const std::string& path, const std::string& reason);

  // If all files of the list are missing: prints in one line where they were looked for.
  void NoteMissingFiles(const Host& host) const;

  bool failed() const { return failed_; }
  const TimeTotals& totals() const { return totals_; }
  // One for each recorded entry; empty without a machine.
  const std::vector<MachineTime>& machineTimes() const { return machineTimes_; }

 private:
  const std::optional<MachineProfile>& machine_;
  CTVXView& view_;
  std::map<std::string, std::optional<ProgramCheck>> checks_;  // by path
  std::set<std::string> unchecked_;  // paths of a check that is wanted and failed
  std::vector<MachineTime> machineTimes_;
  bool failed_ = false;
  bool isFresh_ = false;
  ProgrammedTime programmed_;  // of the entry in work
  TimeTotals totals_;
  size_t missing_ = 0;
  std::string missingFolder_;  // of the first one
  std::string lastFailure_;
};

}  // namespace tvx
