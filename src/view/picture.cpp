// The table of picture formats, and the drawing of each.
#include "view/picture.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <vector>

#include "base/scan.h"
#include "view/metafile_device.h"
#include "view/png_file.h"
#include "view/raster_device.h"
#include "view/svg_device.h"

namespace tvx {
namespace {

// A larger image is refused.
constexpr int64_t kMostPixels = int64_t{1} << 28;

constexpr uint32_t kPagePixel = 0xFFFFFFFF;  // white

// The letters of the axes as strokes in a cell of 7 by 11 pixels, since no font is available for
// the image.
constexpr int kLetterLeft = 1, kLetterTop = 3;
struct Stroke {
  Pixel from, to;
};
struct StrokeLetter {
  std::string_view text;
  std::array<Stroke, 3> strokes;
};
constexpr StrokeLetter kStrokeLetters[] = {
    {"X", {{{{0, 0}, {6, 10}}, {{6, 0}, {0, 10}}, {{3, 5}, {3, 5}}}}},
    {"Y", {{{{0, 0}, {3, 5}}, {{6, 0}, {3, 5}}, {{3, 5}, {3, 10}}}}},
    {"Z", {{{{0, 0}, {6, 0}}, {{6, 0}, {0, 10}}, {{0, 10}, {6, 10}}}}},
};

// With a scale near its lower bound an axis can end anywhere. A letter beyond this limit, in
// pixels, is not drawn, so that its strokes do not overflow.
constexpr int64_t kLetterLimit = int64_t{1} << 28;
bool IsNear(int32_t coordinate) {
  return std::abs(int64_t{coordinate}) < kLetterLimit;
}

void DrawLetters(RasterDevice* device) {
  device->SelectPen(penBlack);
  for (const auto& placed : device->texts()) {
    if (!IsNear(placed.point.x) || !IsNear(placed.point.y)) continue;
    for (const StrokeLetter& letter : kStrokeLetters) {
      if (letter.text != placed.text) continue;
      const auto at = [&](Pixel p) {
        return Pixel{placed.point.x + kLetterLeft + p.x, placed.point.y + kLetterTop + p.y};
      };
      for (const Stroke& stroke : letter.strokes) {
        device->MoveTo(at(stroke.from));
        device->LineTo(at(stroke.to));
      }
    }
  }
}

Status DrawMetafile(const Scene& scene, OutputFile* file) {
  MetafileDevice device(file);
  DrawPicture(scene, &device);
  return device.Finish();
}

Status DrawSvg(const Scene& scene, OutputFile* file) {
  const ViewTransform& view = scene.view->transform;
  SvgDevice device(file, view.clientWidth, view.clientHeight, TopLeftOf(view));
  DrawPicture(scene, &device);
  return device.Finish();
}

Status DrawImage(const Scene& scene, Status (*write)(const Image&, OutputFile*), OutputFile* file) {
  const ViewTransform& view = scene.view->transform;
  const int64_t count = int64_t{view.clientWidth} * view.clientHeight;
  if (view.clientWidth <= 0 || view.clientHeight <= 0 || count > kMostPixels) {
    return StatusKind::kWriteFailed;
  }
  std::vector<uint32_t> pixels(static_cast<size_t>(count), kPagePixel);
  const Image image{pixels.data(), view.clientWidth, view.clientHeight, view.clientWidth};
  RasterDevice device(image, TopLeftOf(view));
  DrawPicture(scene, &device);
  DrawLetters(&device);
  return file != nullptr ? write(image, file) : Status();
}

Status DrawPng(const Scene& scene, OutputFile* file) {
  return DrawImage(scene, WritePng, file);
}

Status DrawPalettePng(const Scene& scene, OutputFile* file) {
  return DrawImage(scene, WritePalettePng, file);
}

// A file that refuses what would make it larger than a picture may be.
class PictureFile final : public OutputFile {
 public:
  explicit PictureFile(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}

  Status Write(std::string_view bytes) override {
    written_ += bytes.size();
    return IsTooLarge() ? TooLarge() : file_->Write(bytes);
  }
  Status Patch(uint64_t offset, std::string_view bytes) override {
    return file_->Patch(offset, bytes);
  }
  Status Commit() override { return IsTooLarge() ? TooLarge() : file_->Commit(); }

 private:
  bool IsTooLarge() const { return written_ > kLargestPicture; }
  static Status TooLarge() { return {StatusKind::kWriteFailed, "", EFBIG}; }

  std::unique_ptr<OutputFile> file_;
  uint64_t written_ = 0;
};

struct FormatRow {
  std::string_view ending;
  PictureFormat format;
  Status (*draw)(const Scene& scene, OutputFile* file);
};
constexpr FormatRow kFormats[] = {
    {".emf", PictureFormat::kMetafile, DrawMetafile},
    {".svg", PictureFormat::kSvg, DrawSvg},
    {".png", PictureFormat::kPng, DrawPng},
    {".png", PictureFormat::kPalettePng, DrawPalettePng},
};

}  // namespace

std::optional<PictureFormat> PictureFormatOf(std::string_view path) {
  for (const FormatRow& row : kFormats) {
    if (EndsWithNoCase(path, row.ending)) return row.format;
  }
  return std::nullopt;
}

bool IsMetafile(std::string_view start) {
  constexpr size_t kSignaturePlace = 40;
  constexpr std::string_view kSignature = " EMF";
  return start.size() >= kSignaturePlace && start.substr(kSignaturePlace).starts_with(kSignature);
}

Status DrawPictureFile(PictureFormat format, const Scene& scene, OutputFile* file) {
  for (const FormatRow& row : kFormats) {
    if (row.format == format) return row.draw(scene, file);
  }
  return StatusKind::kWriteFailed;
}

Status WritePictureFile(PictureFormat format, const std::string& path, const Scene& scene,
                        Files* files, bool isSynced) {
  Result<std::unique_ptr<OutputFile>> created = files->Create(path);
  if (!created.ok()) {
    static_cast<void>(DrawPictureFile(format, scene, nullptr));
    return created.status;
  }
  if (!isSynced) created.value->LeaveUnsynced();
  PictureFile file(std::move(created.value));
  const Status drawn = DrawPictureFile(format, scene, &file);
  if (!drawn.ok()) return drawn.For(path);
  if (scene.progress->IsStopped()) return {StatusKind::kStopped, path};
  return file.Commit().For(path);
}

int WritePicture(const std::string& path, const Scene& scene, Files* files) {
  static_cast<void>(WritePictureFile(PictureFormat::kMetafile, path, scene, files));
  return 1;
}

}  // namespace tvx
