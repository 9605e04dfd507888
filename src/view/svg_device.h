// Writes a drawing as SVG in one pass: a white page of the drawing area's size with the origin at
// its centre.
#pragma once

#include <span>
#include <string_view>

#include "platform/files/files.h"
#include "view/output_buffer.h"
#include "view/polyline_device.h"
#include "view/view_transform.h"

namespace tvx {

class SvgDevice final : public PolylineDevice {
 public:
  // Writes the start of the file. With a null file every call does nothing. The file must outlive
  // the device. Width and height are those of the page, in pixels; `origin` is the logical
  // coordinate of its first pixel.
  SvgDevice(OutputFile* file, int32_t width, int32_t height, Pixel origin);

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override;

  // Writes the end of the file. It must be the last call. Fails if any write failed. The caller
  // commits the file.
  Status Finish();

 private:
  void UsePen(Pen) override {}
  void DrawRun(std::span<const Pixel> points) override;
  void PlaceText(Pixel point, std::string_view text) override;
  void WriteRectangle(int64_t left, int64_t top, int64_t width, int64_t height, Colour colour);

  OutputBuffer buffer_;
};

}  // namespace tvx
