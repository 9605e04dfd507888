// Draws one-pixel lines straight into the pixels of an image: the window shows the image, and the
// PNG picture is one. Several times faster than a general painter, whose lines may have any width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
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
  RasterDevice(const Image& image, Pixel origin) : image_(image), origin_(origin) {}

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
  // A point of the image; any logical point fits.
  struct Spot {
    int64_t x, y;
  };
  Spot ToImage(Pixel p) const { return {int64_t{p.x} - origin_.x, int64_t{p.y} - origin_.y}; }
  bool IsInside(Spot p) const {
    return static_cast<uint64_t>(p.x) < static_cast<uint64_t>(image_.width) &&
           static_cast<uint64_t>(p.y) < static_cast<uint64_t>(image_.height);
  }

  // How a line runs: along its longer coordinate with each pixel, along the shorter one now and
  // then.
  struct Steps {
    int64_t offset;        // of its start in the image
    int64_t major, minor;  // what a step along either adds to the offset
    int64_t length;        // steps along the longer coordinate
    int64_t minorLength;   // and along the shorter one
  };
  struct Range {
    int64_t first, last;
  };
  // The distances from a start at which a coordinate lies in the image.
  static Range Inside(int64_t start, int64_t difference, int64_t size);

  template <bool dashed>
  [[gnu::noinline]] void DrawLine(Spot from, Spot to);  // inline it would burden the short lines
  template <bool dashed>
  void DrawClipped(const Steps& steps, Range majorInside, Range minorInside);
  template <bool dashed>
  void DrawPixels(const Steps& steps, int64_t first, int64_t last);

  Image image_;
  Pixel origin_;
  Pen pen_ = penDefault;
  uint32_t colour_ = 0xFF000000;
  bool dashed_ = false;
  int64_t dashPhase_ = 0;      // pixels drawn with the dashed pen since the last move
  bool startIsDrawn_ = false;  // the position already has the colour of the pen
  Pixel position_;             // logical
  std::vector<PlacedText> texts_;
};

}  // namespace tvx
