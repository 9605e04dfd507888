// Draws the picture of a result into memory, and brings its figures together.
#include "shell/result_details.h"

#include "platform/progress.h"
#include "shell/program_steps.h"
#include "view/picture.h"

namespace tvx {

namespace {

// A file in memory. It refuses to grow beyond `limit` bytes.
class MemoryOutput final : public OutputFile {
 public:
  explicit MemoryOutput(size_t limit) : limit_(limit) {}

  bool Write(std::string_view bytes) override {
    if (bytes.size() > limit_ - bytes_.size()) return false;
    bytes_ += bytes;
    return true;
  }
  bool Patch(uint64_t, std::string_view) override { return false; }
  bool Commit() override { return true; }

  std::string Take() { return std::move(bytes_); }

 private:
  size_t limit_;
  std::string bytes_;
};

// The path as the window shows it, fitted to a picture of this size. Empty if the picture would be
// larger than `limit` bytes.
std::string DrawnPicture(PictureFormat format, const PictureSize& size, CTVXView* view,
                         size_t limit = SIZE_MAX) {
  ViewState state = view->view;
  OnResize(&state.transform, size.width, size.height);
  PrepareDevice(&state.transform);
  FitToPath(&state.transform, &view->program.store);
  MemoryOutput output(limit);
  const bool drawn = DrawPictureFile(format, {&view->program, &view->job, &state}, &output);
  return drawn ? output.Take() : std::string();
}

RemarkCounts CountsOf(const ProgramCheck& check) {
  RemarkCounts counts{};
  for (size_t i = 0; i < kRemarkIds; ++i) counts[i] = check.lists[i].count;
  return counts;
}

void DrawPictures(const DetailsWanted& wanted, CTVXView* view, EntryDetails* details) {
  const MotionBlock reg = view->program.store.CurrentBlock;
  const int32_t firstPoint = view->program.firstPoint;
  constexpr PictureFormat kImage = PictureFormat::kPalettePng;
  if (wanted.sheet) {
    details->svg =
        DrawnPicture(PictureFormat::kSvg, kSheetPicture, view, EntryDetails::kLargestSvg);
    if (details->svg.empty()) details->png = DrawnPicture(kImage, kSheetPicture, view);
  }
  if (wanted.workbook) details->workbookPng = DrawnPicture(kImage, kWorkbookPicture, view);
  view->program.store.CurrentBlock = reg;
  view->program.firstPoint = firstPoint;
}

}  // namespace

std::shared_ptr<EntryDetails> MakeDetails(CTVXView* view) {
  const DetailsWanted& wanted = view->results.wanted;
  if (!wanted.Any()) return nullptr;
  auto details = std::make_shared<EntryDetails>();
  details->programmed = view->program.programmed;
  BlockStore& store = view->program.store;
  const bool isFollowed = view->job.AfaEnabled == 1 && view->causes != nullptr;
  if (isFollowed && view->causes->Knows(store.blockCount)) {
    details->causes = CountCauses(&store, view->program.FeedBase, *view->causes);
  }
  if (view->app->machine && wanted.sheet) {
    const MachineProfile& profile = *view->app->machine;
    details->machine = {profile, ComputeMachineTime(&store, profile)};
  }
  DrawPictures(wanted, view, details.get());
  return details;
}

void AddCheck(const ProgramCheck& check, EntryDetails* details) {
  details->remarks = CountsOf(check);
  if (details->machine) {
    SetPauses({check.dwellSeconds, check.toolChanges}, details->machine->profile,
              &details->machine->time);
  }
}

void CompleteDetails(CTVXView* view) {
  constexpr uint64_t kLinesOfAStep = 100'000;
  Progress* const progress = view->app->ui->LongWork();
  const WorkScope work(progress, Work::kCheck, "");
  const size_t all = view->check.Pending();
  while (view->check.CheckMore(kLinesOfAStep, view->app->files)) {
    progress->Step(all - view->check.Pending(), all);
  }
  for (const CutTimeEntry& entry : view->results.Recorded()) {
    const auto check = view->check.Of(entry);
    if (entry.details == nullptr || check == nullptr || check->result == nullptr) continue;
    AddCheck(*check->result, entry.details.get());
  }
}

}  // namespace tvx
