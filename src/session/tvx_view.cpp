// The start of a window from the defaults and the files of settings, and its operations.

#include "session/tvx_view.h"

#include <cstdlib>

#include "base/path_text.h"
#include "conditions/condition_file.h"
#include "settings/lists.h"
#include "settings/parameter_file.h"
#include "view/mouse_view.h"

namespace tvx {

ViewDialogs::ViewDialogs(CTVXApp* app, ResultTable* table)
    : options(app->files, app->ui),
      jobList(&app->UserKeys, app->files, app->ui),
      results(table, app->files, app->ui, app->spreadsheets) {}

CTVXView::CTVXView(CTVXApp* theApp) : app(theApp), dialogs(theApp, &results) {
  dialogs.results.finishChecks = [this] { FinishChecks(); };
  SetDefaults();
  ReadFiles();
}

// All other defaults are those of JobRecord.
void CTVXView::SetDefaults() {
  job.WorkDir = app->configuration.WorkDir;
  job.ConditionDir = app->configuration.AFADir;
}

void CTVXView::ReadFiles() {
  const std::string& environmentDir = app->configuration.EnvDir;
  app->NoteUnread(ReadParameterFile(environmentDir, &job, app->files));
  app->NoteUnread(ReadExtensionList(environmentDir, &app->ExtensionList, app->files));
  app->NoteUnread(ReadConditionFile(DefaultConditionPath(environmentDir), &job,
                                    &app->rememberedSpindle, app->files));
}

void CTVXView::SetNames(const std::string& path, const std::string& name) {
  filePath_ = path;
  fileName_ = name;
  changes.Note(Change::kName);
}

ProgramWork CTVXView::Work() {
  return {.program = &program,
          .job = &job,
          .feedPassMemory = &app->feedPassMemory,
          .master = &masterGrid,
          .progress = app->ui->LongWork(),
          .threads = app->cores,
          .causes = causes_.get(),
          .machine = app->machine ? &*app->machine : nullptr,
          .view = &view,
          .parserStates = &app->parserStates,
          .checks = &checks_,
          .files = app->files};
}

Status CTVXView::Load(const std::string& path) {
  Status loaded = ReadProgram(path, Work());
  if (IsLoaded(loaded)) ++loads_;
  const std::string current = program.source.path.empty() ? "" : path;
  SetNames(current, NameOfPath(current, kAnySlash));
  changes.Note(kNewProgram);
  return loaded;
}

void CTVXView::UseFormatOf(const std::string& path) {
  int32_t& format = job.InputFileType;
  if (settingsFormat_) format = *settingsFormat_;
  settingsFormat_.reset();
  const auto chosen = app->FormatOfEnding.find(EndingOfPath(path, kAnySlash));
  if (chosen == app->FormatOfEnding.end()) return;
  settingsFormat_ = format;
  format = chosen->second;
}

void CTVXView::DropProgram() {
  EmptyProgram(&program);
  program.FeedBase = 0;
  checks_.Restart(program.source, {}, job);
  if (causes_ != nullptr) causes_->Clear();
  SetNames("", "");
  changes.Note(kNewProgram);
}

std::optional<ProgramResult> CTVXView::EvaluateAndShow(Evaluation evaluation) {
  if (evaluation.adjusts) changes.Note(Change::kFeeds);
  evaluation.onAdjusted = [this] {
    FitToPath(&view.transform, &program.store);
    changes.Note(Change::kView);
    changes.Show();
  };
  return Evaluate(Work(), evaluation);
}

bool CTVXView::CheckMore(uint64_t lines) {
  marks_.Prepare(&program);  // beside the check, for the first move that the mouse rests on
  const size_t pending = checks_.Pending();
  const bool isUnderWay = checks_.CheckMore(lines, app->files);
  if (checks_.Pending() != pending) {
    changes.Note(Change::kCheck);
    changes.Settle();
  }
  return isUnderWay;
}

void CTVXView::FinishChecks() {
  checks_.Finish(app->files, app->ui->LongWork());
  changes.Note(Change::kCheck);
}

void CTVXView::SetMark(Mark mark, std::optional<uint32_t> block) {
  if (!marks_.Set(mark, program, block)) return;
  changes.Note(mark == Mark::kHovered ? Change::kHovered : Change::kKept | Change::kLine);
  if (mark == Mark::kKept && block) {
    line_ = program.source.lines.LineOf(*block);
    lineEdition_ = program.edition;
  }
  changes.Settle();
}

uint64_t CTVXView::line() const {
  return lineEdition_ == program.edition ? line_ : 1;
}

void CTVXView::GoToLine(uint64_t line, Centring centring) {
  const auto block = program.source.lines.FirstBlockOf(line);
  if (marks_.Set(Mark::kKept, program, block)) changes.Note(Change::kKept);
  line_ = line;
  lineEdition_ = program.edition;
  changes.Note(Change::kLine);
  if (block) Centre(*block, centring);
  changes.Settle();
}

// Brings the end of a move into the middle of the picture.
void CTVXView::Centre(uint32_t block, Centring centring) {
  const MotionBlock* const stored = program.store.Peek(block);
  if (stored == nullptr || !IsMoveType(stored->type)) return;
  ViewTransform* const transform = &view.transform;
  const Pixel pixel = Project(transform, EndPoint(*stored));
  const Pixel corner = TopLeftOf(*transform);
  const bool isOutside = std::abs(pixel.x) >= -corner.x || std::abs(pixel.y) >= -corner.y;
  if (centring == Centring::kIfOutside && !isOutside) return;
  CentreOn(transform, EndPoint(*stored));
  changes.Note(Change::kView);
}

}  // namespace tvx
