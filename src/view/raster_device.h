// Draws one-pixel lines straight into the pixels of an image: the window shows the image, and the
// PNG picture is one. Several times faster than a general painter, whose lines may have any width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "view/drawing_device.h"

namespace tvx {

// Somebody's image of 32 bits a pixel, 0xFFRRGGBB.
struct Image {
  uint32_t* pixels = nullptr;
  int32_t width = 0;
  int32_t height = 0;
  ptrdiff_t stride = 0;  // pixels from one row to the next
};

class RasterDevice final : public DrawingDevice {
 public:
  struct PlacedText {
    Pixel point;  // logical
    std::string text;
  };

  // `origin` is the logical coordinate of the image's first pixel. The image has to outlive the
  // device.
  RasterDevice(const Image& image, Pixel origin)
      : image_(image), origin_(origin), position_(ToImage({0, 0})) {}

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override;
  Pen SelectPen(Pen pen) override;
  void MoveTo(Pixel point) override;
  // Draws both end points too, so that moves within one pixel leave a mark.
  void LineTo(Pixel point) override;
  // Texts are only collected: whoever shows the image has the font.
  void Text(Pixel point, std::string_view text) override;

  const std::vector<PlacedText>& texts() const { return texts_; }

 private:
  // One coordinate of a line: where it starts, how it goes on, and how many pixels it covers.
  struct Course {
    int64_t start;
    int64_t length;     // at least 0
    int64_t direction;  // 1 or -1

    // The first and the last distance from the start that lie in 0 to size - 1.
    std::pair<int64_t, int64_t> Inside(int64_t size) const;
  };
  static Course CourseOf(int64_t from, int64_t to);

  // The pixels of a line that lie in the image, counted from its start; none if last < first.
  struct Span {
    int64_t first = 0;
    int64_t last = -1;
    int64_t minorSteps = 0;  // along the shorter coordinate up to the first
  };
  Span SpanInside(const Course& major, const Course& minor, bool steep) const;

  bool IsInside(Pixel p) const {
    return static_cast<uint32_t>(p.x) < static_cast<uint32_t>(image_.width) &&
           static_cast<uint32_t>(p.y) < static_cast<uint32_t>(image_.height);
  }
  Pixel ToImage(Pixel point) const;
  template <bool dashed>
  void DrawLine(Pixel from, Pixel to);

  Image image_;
  Pixel origin_;
  Pen pen_ = penDefault;
  uint32_t colour_ = 0xFF000000;
  bool dashed_ = false;
  int64_t dashPhase_ = 0;  // pixels drawn with the dashed pen since the last move
  Pixel position_;         // in the image
  std::vector<PlacedText> texts_;
};

}  // namespace tvx
