// Draws one-pixel lines directly into the pixels of an image, which the window shows and the PNG
// picture contains. Several times faster than a general painter, whose lines may have any width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "view/drawing_device.h"

namespace tvx {

// An image of 32 bits a pixel, 0xFFRRGGBB. The pixels belong to the caller.
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

  // `origin` is the logical coordinate of the image's first pixel. The pixels and the styles of the
  // pens must outlive the device.
  RasterDevice(const Image& image, Pixel origin, PenStyles styles = kPenStyles)
      : image_(image), origin_(origin), styles_(styles) {}

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override;
  Pen SelectPen(Pen pen) override;
  void MoveTo(Pixel point) override;
  // Draws both end points, so that a move within one pixel is visible.
  void LineTo(Pixel point) override;
  // Texts are only collected: the owner of the image has the font to draw them.
  void Text(Pixel point, std::string_view text) override;

  const std::vector<PlacedText>& texts() const { return texts_; }

 private:
  // A point in image coordinates. 64 bits hold the image point of any logical point.
  struct Spot {
    int64_t x, y;
  };
  Spot ToImage(Pixel p) const { return {int64_t{p.x} - origin_.x, int64_t{p.y} - origin_.y}; }
  bool IsInside(Spot p) const {
    return static_cast<uint64_t>(p.x) < static_cast<uint64_t>(image_.width) &&
           static_cast<uint64_t>(p.y) < static_cast<uint64_t>(image_.height);
  }

  // The pixels of a line: each is one step further along the longer coordinate, and some also along
  // the shorter one.
  struct Steps {
    int64_t offset;        // of the first pixel in the image
    int64_t major, minor;  // change of the offset by a step along the longer or shorter coordinate
    int64_t length;        // number of steps along the longer coordinate
    int64_t minorLength;   // number of steps along the shorter coordinate
  };
  struct Range {
    int64_t first, last;
  };
  // The numbers of steps from a start after which a coordinate is inside the image.
  static Range Inside(int64_t start, int64_t difference, int64_t size);

  template <bool dashed>
  [[gnu::noinline]] void DrawLine(Spot from, Spot to);  // inlined, it would slow the short lines
  template <bool dashed>
  void DrawClipped(const Steps& steps, Range majorInside, Range minorInside);
  template <bool dashed>
  void DrawPixels(const Steps& steps, int64_t first, int64_t last);

  Image image_;
  Pixel origin_;
  PenStyles styles_;
  Pen pen_ = penDefault;
  uint32_t colour_ = 0xFF000000;
  bool dashed_ = false;
  int64_t dashPhase_ = 0;      // pixels of the dashed pen since the last move or change of the pen
  bool startIsDrawn_ = false;  // the pixel at the position already has the colour of the pen
  Pixel position_;             // logical
  std::vector<PlacedText> texts_;
};

}  // namespace tvx
