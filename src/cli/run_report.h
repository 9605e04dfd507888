// What tvx-cli run prints while it works through a list, and what it collects for its table.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "cli/host.h"
#include "cli/time_totals.h"
#include "evaluate/program_result.h"
#include "session/job_list_run.h"

namespace tvx {

class RunReport final : public RunObserver {
 public:
  // The view has to outlive the object.
  explicit RunReport(CTVXView* view) : view_(*view) {}

  // Each entry is read with the modal state of a new process.
  void ReadFresh() { isFresh_ = true; }

  void OnEntry(size_t index, size_t count, const std::string& name) override;
  // Prints the remark about the program check of the file, once for each path.
  std::shared_ptr<const FileCheck> OnLoad(const std::string& path) override;
  void OnRecorded(const std::string& path, const ProgramResult& result) override;
  void OnStopped(const RunEnd& end) override;
  void OnLoadFailed(const std::string& path, const Status& load) override;
  void OnMasterFailed(const std::string& path, const MasterOutcome& outcome) override;
  void OnMasterBuilt(const std::string& path) override;
  void OnPictureFailed(const std::string& name, const Status& written) override;

  // Prints a failure on standard error, unless it is the last one again.
  void Fail(const std::string& path, const std::string& reason);

  // If all files of the list are missing: prints in one line where they were looked for.
  void NoteMissingFiles(const Host& host) const;

  bool failed() const { return failed_; }
  const TimeTotals& totals() const { return totals_; }

 private:
  CTVXView& view_;
  std::map<std::string, std::shared_ptr<const FileCheck>> checks_;  // by path
  bool failed_ = false;
  bool isFresh_ = false;
  TimeTotals totals_;
  size_t missing_ = 0;
  std::string missingFolder_;  // of the first one
  std::string lastFailure_;
};

}  // namespace tvx
