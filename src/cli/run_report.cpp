// The check of a file and its load find the same failure; it is printed once.
#include "cli/run_report.h"

#include <cerrno>

#include "base/format.h"
#include "base/path_text.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/output.h"
#include "cli/program_files.h"
#include "shell/result_details.h"

namespace tvx {

namespace {

// The tail of an error line: the reason of the step that failed, if it worked on a file.
std::string MasterReason(const MasterOutcome& outcome, const CTVXView& view) {
  if (outcome.load != LoadResult::kLoaded) return ": " + LoadProblem(outcome.load, view);
  const int error = view.app->files->LastError();
  const bool isFileAtFault = outcome.file == MasterFileResult::kCannotOpen ||
                             outcome.file == MasterFileResult::kCannotWrite ||
                             outcome.file == MasterFileResult::kDiskFull;
  return isFileAtFault && error != 0 ? ": " + FileErrorText(error) : "";
}

}  // namespace

void RunReport::OnEntry(size_t index, size_t count, const std::string& name) {
  ShowProgress(Format("%zu/%zu %s", index + 1, count, name.c_str()));
  if (isFresh_) ForgetModalState(&view_);
}

void RunReport::OnLoad(const std::string& path) {
  const auto [found, isNew] = checks_.try_emplace(path);
  if (!isNew) return;
  const bool wantsCheck = machine_.has_value() || view_.results.wanted.sheet;
  try {
    found->second = NoteRemarks({path, path}, view_, wantsCheck);
  } catch (const Failure& failure) {
    Fail(failure.file, failure.reason);
    if (wantsCheck) unchecked_.insert(path);
  }
}

void RunReport::OnLoaded() {
  programmed_ = TakeProgrammedTime(&view_);
}

void RunReport::OnRecorded(const std::string& path) {
  CutTimeEntry& entry = view_.results.entries[static_cast<size_t>(view_.results.entryCount) - 1];
  if (unchecked_.contains(path)) entry.isPart = true;
  const float after = view_.fileInfo.current.totalMinutes;
  totals_.Add(programmed_.minutes, after);
  if (view_.job.AfaEnabled == 1) NoteLongerTime(path, programmed_, after, view_.job.MaxFeed);
  const std::optional<ProgramCheck>& check = checks_[path];
  if (machine_) {
    machineTimes_.push_back(ComputeMachineTime(&view_.program.store, *machine_, PausesOf(check)));
  }
  EntryDetails* const details = entry.details.get();
  if (details == nullptr) return;
  if (machine_) details->machine = {*machine_, machineTimes_.back()};
  if (check) AddCheck(*check, details);
}

void RunReport::OnStopped(const RunEnd& end) {
  PrintRemark(Format("stopped after %zu of %zu files", end.done, end.count));
  failed_ = true;
}

void RunReport::OnLoadFailed(const std::string& path, LoadResult result) {
  if (view_.app->files->LastError() == ENOENT) {
    if (missing_++ == 0) missingFolder_ = PathBeforeName(path, kBackslash);
  }
  Fail(path, LoadProblem(result, view_));
}

void RunReport::OnMasterFailed(const std::string& path, const MasterOutcome& outcome) {
  Fail(path, "the master model cannot be read, built or written" + MasterReason(outcome, view_));
}

void RunReport::OnMasterBuilt(const std::string& path) {
  if (!IsQuiet()) PrintRemark(path + ": the master model was built");
}

void RunReport::OnPictureFailed(const std::string& name) {
  Fail(name, WriteProblem(view_.app->files->LastError()));
}

void RunReport::Fail(const std::string& path, const std::string& reason) {
  const std::string failure = path + ": " + reason;
  if (failure != lastFailure_) PrintRemark(failure);
  lastFailure_ = failure;
  failed_ = true;
}

void RunReport::NoteMissingFiles(const Host& host) const {
  if (missing_ == 0 || missing_ < view_.results.runEnd.done) return;
  const std::string folder = host.MachinePath(missingFolder_);
  PrintRemark("no file of the list was found; looked in " + missingFolder_ +
              (folder.empty() ? ", a drive that does not exist" : ", which is " + folder) +
              "; --home selects the folder of the drives, Dir in a line of the list its directory");
}

}  // namespace tvx
