// Formats each call as a line.
#include "view/recorder_device.h"

#include <cstdio>
#include <string>
#include <utility>

#include "base/format.h"

namespace tvx {

void RecorderDevice::FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                                   Colour colour) {
  sink_(Format("fill %d %d %d %d %06X", left, top, right, bottom, colour));
}

Pen RecorderDevice::SelectPen(Pen pen) {
  sink_(std::string("pen ") + StyleOf(pen).name);
  return std::exchange(pen_, pen);
}

void RecorderDevice::MoveTo(Pixel point) {
  WritePoint("move", point);
}

void RecorderDevice::LineTo(Pixel point) {
  WritePoint("line", point);
}

void RecorderDevice::Text(Pixel point, std::string_view text) {
  sink_(Format("text %d %d ", point.x, point.y).append(text));
}

void RecorderDevice::WritePoint(const char* call, Pixel point) {
  char line[32];
  const int length = std::snprintf(line, sizeof line, "%s %d %d", call, point.x, point.y);
  sink_({line, static_cast<size_t>(length)});
}

}  // namespace tvx
