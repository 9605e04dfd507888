// The check of a file and its load find the same failure; it is printed once.
#include "cli/run_report.h"

#include "base/format.h"
#include "base/path_text.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/output.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"

namespace tvx {

namespace {

constexpr Message kNoSuchDrive{
    "리스트의 화일이 하나도 없습니다. 찾은 곳: {directory}, 없는 드라이브입니다. 드라이브의 폴더는 "
    "--home으로, 디렉토리는 리스트의 Dir로 정하십시오",
    "no file of the list was found; looked in {directory}, a drive that does not exist; --home "
    "selects the folder of the drives, Dir in a line of the list its directory"};
constexpr Message kNoneFound{
    "리스트의 화일이 하나도 없습니다. 찾은 곳: {directory} ({folder}). 드라이브의 폴더는 "
    "--home으로, "
    "디렉토리는 리스트의 Dir로 정하십시오",
    "no file of the list was found; looked in {directory}, which is {folder}; --home selects the "
    "folder of the drives, Dir in a line of the list its directory"};

// The tail of an error line: why a file could not be read or written. Its content and the memory
// have none.
std::string MasterReason(const MasterOutcome& outcome, const NcProgram& program) {
  const StatusKind kind = outcome.status.kind();
  if (outcome.step == MasterStep::kLoad) return ": " + LoadProblem(outcome.status, program);
  const bool isOfFile = outcome.step != MasterStep::kBuild && kind != StatusKind::kWrongFormat &&
                        kind != StatusKind::kNoMemory;
  return isOfFile ? ": " + outcome.status.Text(ToolLanguage()) : "";
}

}  // namespace

void RunReport::OnEntry(size_t index, size_t count, const std::string& name) {
  ShowProgress(Format("%zu/%zu %s", index + 1, count, name.c_str()));
  if (isFresh_) ForgetModalState(&view_);
}

std::shared_ptr<const FileCheck> RunReport::OnLoad(const std::string& path) {
  const auto [found, isNew] = checks_.try_emplace(path);
  if (!isNew) return found->second;
  try {
    found->second = NoteRemarks({path, path}, view_, view_.wanted.check);
  } catch (const Failure& failure) {
    Fail(failure.file, failure.reason);
    found->second = std::make_shared<const FileCheck>(
        FileCheck{.path = path, .stamp = {}, .state = CheckState::kCannotRead, .result = nullptr});
  }
  return found->second;
}

void RunReport::OnRecorded(const std::string& path, const ProgramResult& result) {
  const float after = result.entry.totalMinutes;
  const float before = MinutesBefore(result).value_or(after);
  totals_.Add(before, after);
  if (!result.programmed) return;
  NoteLongerTime(path, {before, result.programmed->highestFeed}, after, result.entry.MaxFeed);
}

void RunReport::OnStopped(const RunEnd& end) {
  PrintRemark(Say(
      {"화일 {count}개 중 {done}개를 끝내고 중지했습니다", "stopped after {done} of {count} files"},
      {{"count", end.count}, {"done", end.done}}));
  failed_ = true;
}

void RunReport::OnLoadFailed(const std::string& path, const Status& load) {
  if (load.kind() == StatusKind::kMissing) {
    if (missing_++ == 0) missingFolder_ = PathBeforeName(path, kBackslash);
  }
  Fail(path, LoadProblem(load, view_.program));
}

void RunReport::OnMasterFailed(const std::string& path, const MasterOutcome& outcome) {
  Fail(path, Say({"마스터 모델을 읽거나 만들거나 쓸 수 없습니다",
                  "the master model cannot be read, built or written"}) +
                 MasterReason(outcome, view_.program));
}

void RunReport::OnMasterBuilt(const std::string& path) {
  if (!IsQuiet())
    PrintRemark(Say({"{file}: 마스터 모델을 만들었습니다", "{file}: the master model was built"},
                    {{"file", path}}));
}

void RunReport::OnPictureFailed(const std::string& name, const Status& written) {
  Fail(name, WriteProblem(written));
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
  PrintRemark(Say(folder.empty() ? kNoSuchDrive : kNoneFound,
                  {{"directory", missingFolder_}, {"folder", folder}}));
}

}  // namespace tvx
