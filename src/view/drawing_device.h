// The surface that a path is drawn on: pixels, pens, and the five calls that a device carries out.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tvx {

// A point of a drawing area or of a device, x to the right and y downward.
struct Pixel {
  int32_t x = 0;
  int32_t y = 0;

  friend bool operator==(const Pixel& a, const Pixel& b) { return a.x == b.x && a.y == b.y; }
};

using Colour = uint32_t;  // 0xRRGGBB

// The pens, all one pixel wide.
enum Pen : uint8_t {
  penDefault,  // the pen of a fresh device
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

// In the order of the pens.
inline constexpr PenStyle kPenStyles[kPenCount] = {
    {"default", 0x000000, false},      {"penWhite", 0xFFFFFF, false},
    {"penLightGrey", 0xC8C8C8, false}, {"penGreen", 0x00FF00, false},
    {"penDarkGreen", 0x00C800, false}, {"penDarkBlue", 0x0000C8, false},
    {"penBlue", 0x0000FF, false},      {"penRed", 0xFF0000, false},
    {"penRapid", 0xFF0000, true},      {"penBlack", 0x000000, false},
    {"penGrey", 0x646464, false},
};

using PenStyles = std::span<const PenStyle, kPenCount>;

// The pens of the screen for users who see the usual ones badly on black. Every band has a
// contrast of at least 4.5 to the ground and 1.5 to its neighbours, by the definition of WCAG 2,
// and keeps it for protanopia, deuteranopia and tritanopia.
inline constexpr PenStyle kHighContrastPenStyles[kPenCount] = {
    {"default", 0x000000, false},      {"penWhite", 0xFFFFFF, false},
    {"penLightGrey", 0xB4B4B4, false}, {"penGreen", 0x70FF70, false},
    {"penDarkGreen", 0x20B040, false}, {"penDarkBlue", 0x60E8FF, false},
    {"penBlue", 0x4C78FF, false},      {"penRed", 0xFFB040, false},
    {"penRapid", 0xFF60FF, true},      {"penBlack", 0x000000, false},
    {"penGrey", 0x646464, false},
};

inline const PenStyle& StyleOf(Pen pen) {
  return kPenStyles[pen];
}

// A dashed line is drawn for kDashPixels, then left out for kGapPixels.
inline constexpr int kDashPixels = 18;
inline constexpr int kGapPixels = 6;

// A drawing surface. Coordinates are logical: one unit is one pixel, (0, 0) is the centre of the
// drawing area, y grows downward. A device keeps a selected pen and a current position.
class DrawingDevice {
 public:
  virtual ~DrawingDevice() = default;

  // Fills the pixels from (left, top) up to but not including (right, bottom).
  virtual void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                             Colour colour) = 0;
  // Selects a pen and returns the one selected before.
  virtual Pen SelectPen(Pen pen) = 0;
  virtual void MoveTo(Pixel point) = 0;
  // Draws a line from the current position to the point, which becomes the current position.
  virtual void LineTo(Pixel point) = 0;
  // Writes a text (UTF-8) with its top left corner at the point. The position does not change.
  virtual void Text(Pixel point, std::string_view text) = 0;
};

}  // namespace tvx
