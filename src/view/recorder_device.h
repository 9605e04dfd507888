// Records the calls of a drawing as text, one line each:
//   fill L T R B RRGGBB / pen NAME / move X Y / line X Y / text X Y STRING
#pragma once

#include <functional>
#include <string_view>

#include "view/drawing_device.h"

namespace tvx {

class RecorderDevice final : public DrawingDevice {
 public:
  // Receives one line without a line end. The text is valid only during the call.
  using LineSink = std::function<void(std::string_view line)>;

  explicit RecorderDevice(LineSink sink) : sink_(std::move(sink)) {}

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override;
  Pen SelectPen(Pen pen) override;
  void MoveTo(Pixel point) override;
  void LineTo(Pixel point) override;
  void Text(Pixel point, std::string_view text) override;

 private:
  void WritePoint(const char* call, Pixel point);

  LineSink sink_;
  Pen pen_ = penDefault;
};

}  // namespace tvx
