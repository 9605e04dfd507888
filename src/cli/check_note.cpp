// The check of a program for the commands that print times.
#include "cli/check_note.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "cli/command.h"
#include "cli/output.h"
#include "cli/tool_progress.h"
#include "cli/tool_text.h"
#include "model/loader.h"

namespace tvx {
namespace {

constexpr Message kOtherFormat{
    "{file}: 다른 형식의 프로그램입니다. --set InputFileType={type} 옵션으로 읽으십시오",
    "{file}: is in the other format; --set InputFileType={type} reads it"};
constexpr Message kLeftOut{
    "{file}: 시간에서 빠지거나 다르게 읽은 줄이 있습니다(빠짐 {lost}, 다름 {changed}). 확인: "
    "tvx-cli "
    "check {word}",
    "{file}: the times leave out or change lines of the program ({lost} lost, {changed} changed); "
    "tvx-cli check {word} lists them"};

// Returns the word as one argument of a shell command.
std::string Quoted(std::string word) {
  constexpr auto isPlain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("./_-").find(c) != std::string_view::npos;
  };
  if (std::ranges::all_of(word, isPlain)) return word;
  ReplaceAll("'", R"('\'')", &word);
  return "'" + word + "'";
}

void ThrowIfBroken(const ProgramFile& file, const ProgramCheck& check) {
  ThrowIfUnread(file.argument, check.read);
}

// Prints what the times leave out.
void PrintNote(const ProgramFile& file, const ProgramCheck& check, int32_t InputFileType) {
  if (check.Of(RemarkId::kOtherFormat).count > 0) {
    PrintRemark(Say(kOtherFormat, {{"file", file.argument}, {"type", OtherFormat(InputFileType)}}));
  }
  const uint64_t lost = check.Count(RemarkClass::kLost);
  const uint64_t changed = check.Count(RemarkClass::kChanged);
  if (lost + changed == 0) return;
  PrintRemark(Say(kLeftOut, {{"file", file.argument},
                             {"lost", lost},
                             {"changed", changed},
                             {"word", Quoted(file.argument)}}));
}

}  // namespace

ProgramCheck CheckProgramFile(const ProgramFile& file, const CheckOptions& options,
                              const CTVXView& view, LoadStart* start) {
  const ToolWork work(Work::kCheck, file.argument);
  CheckOptions stoppable = options;
  stoppable.progress = ToolProgress();
  ProgramChecker checker(file.path, *start, view.job, view.app->files, stoppable);
  ThrowIfUnread(file.argument, checker.status());
  constexpr uint64_t kAllLines = UINT64_MAX;
  checker.CheckMore(kAllLines);
  EndIfInterrupted();
  ThrowIfBroken(file, checker.Result());
  *start = checker.NextStart();
  return checker.Result();
}

std::shared_ptr<const FileCheck> NoteRemarks(const ProgramFile& file, const CTVXView& view,
                                             bool wantsCheck) {
  if (IsQuiet() && !wantsCheck) return nullptr;
  const ToolWork work(Work::kCheck, file.argument);
  Progress* const progress = ToolProgress();
  const LoadStart start = TakeLoadStart(view.program, view.app->parserStates);
  const auto [check, opened] = CheckProgram(file.path, start, view.job, view.app->files,
                                            {.storedPerId = 0, .progress = progress});
  if (opened.kind() == StatusKind::kMissing) return nullptr;  // the load reports it
  ThrowIfUnread(file.argument, opened);
  if (progress->IsStopped()) return nullptr;  // the load is stopped too
  ThrowIfBroken(file, check);
  if (!IsQuiet()) PrintNote(file, check, view.job.InputFileType);
  auto result = std::make_shared<FileCheck>();
  result->path = file.path;
  result->stamp = check.stamp;
  result->state = CheckState::kDone;
  result->result = std::make_shared<const ProgramCheck>(check);
  return result;
}

}  // namespace tvx
