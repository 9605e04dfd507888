// What the drawing of a path needs of a device, and the pens it draws with.
#pragma once

#include <cstdint>
#include <string_view>

#include "view/pixel.h"

namespace tvx {

using Colour = uint32_t;  // 0xRRGGBB

// The pens, all one pixel wide.
enum Pen : uint8_t {
  penDefault,  // what a fresh device holds
  penWhite,
  penLightGrey,
  penGreen,
  penDarkGreen,
  penDarkBlue,
  penBlue,
  penRed,
  penRapid,
  penBlack,
  penGrey,
};
inline constexpr int kPenCount = penGrey + 1;

struct PenStyle {
  const char* name;  // "penWhite"; "default" for penDefault
  Colour colour;
  bool dashed;
};

const PenStyle& StyleOf(Pen pen);

// A dashed line is drawn for kDashPixels, then left out for kGapPixels.
inline constexpr int kDashPixels = 18;
inline constexpr int kGapPixels = 6;

// A drawing surface. Coordinates are logical: one unit is one pixel, (0, 0) is the centre of the
// drawing area, y grows downward. A device keeps a pen in force and a current position.
class DrawingDevice {
 public:
  virtual ~DrawingDevice() = default;

  // Fills the pixels from (left, top) up to but not including (right, bottom).
  virtual void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                             Colour colour) = 0;
  // Puts a pen in force and returns the one that was before.
  virtual Pen SelectPen(Pen pen) = 0;
  virtual void MoveTo(Pixel point) = 0;
  // Draws from the current position, which moves to the point.
  virtual void LineTo(Pixel point) = 0;
  // Writes a text (UTF-8) with its top left corner at the point. The position stays.
  virtual void Text(Pixel point, std::string_view text) = 0;
};

}  // namespace tvx
