// Draws the path into memory.
#include "evaluate/result_pictures.h"

#include <utility>

#include "view/picture.h"

namespace tvx {

namespace {

// A file in memory. It refuses to grow beyond `limit` bytes.
class MemoryOutput final : public OutputFile {
 public:
  explicit MemoryOutput(size_t limit) : limit_(limit) {}

  Status Write(std::string_view bytes) override {
    if (bytes.size() > limit_ - bytes_.size()) return StatusKind::kWriteFailed;
    bytes_ += bytes;
    return {};
  }
  Status Patch(uint64_t, std::string_view) override { return StatusKind::kWriteFailed; }
  Status Commit() override { return {}; }

  std::string Take() { return std::move(bytes_); }

 private:
  size_t limit_;
  std::string bytes_;
};

// Empty if the picture would be larger than `limit` bytes.
std::string DrawnPicture(PictureFormat format, const PictureSize& size, const ProgramWork& work,
                         size_t limit = SIZE_MAX) {
  NcProgram* const program = work.program;
  const MotionBlock reg = program->store.CurrentBlock;
  const int32_t firstPoint = program->firstPoint;
  ViewState state = *work.view;
  OnResize(&state.transform, size.width, size.height);
  PrepareDevice(&state.transform);
  FitToPath(&state.transform, &program->store);
  MemoryOutput output(limit);
  const Status drawn = DrawPictureFile(format, {program, work.job, &state}, &output);
  program->store.CurrentBlock = reg;
  program->firstPoint = firstPoint;
  return drawn.ok() ? output.Take() : std::string();
}

}  // namespace

void DrawSheetPicture(const ProgramWork& work, ResultPictures* pictures) {
  pictures->svg =
      DrawnPicture(PictureFormat::kSvg, kSheetPicture, work, ResultPictures::kLargestSvg);
  if (!pictures->svg.empty()) return;
  pictures->png = DrawnPicture(PictureFormat::kPalettePng, kSheetPicture, work);
}

void DrawWorkbookPicture(const ProgramWork& work, ResultPictures* pictures) {
  pictures->workbookPng = DrawnPicture(PictureFormat::kPalettePng, kWorkbookPicture, work);
}

}  // namespace tvx
