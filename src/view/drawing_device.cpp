#include "view/drawing_device.h"

namespace tvx {
namespace {

constexpr PenStyle kPenStyles[kPenCount] = {
    {"default", 0x000000, false},      {"penWhite", 0xFFFFFF, false},
    {"penLightGrey", 0xC8C8C8, false}, {"penGreen", 0x00FF00, false},
    {"penDarkGreen", 0x00C800, false}, {"penDarkBlue", 0x0000C8, false},
    {"penBlue", 0x0000FF, false},      {"penRed", 0xFF0000, false},
    {"penRapid", 0xFF0000, true},      {"penBlack", 0x000000, false},
    {"penGrey", 0x646464, false},
};

}  // namespace

const PenStyle& StyleOf(Pen pen) {
  return kPenStyles[pen];
}

}  // namespace tvx
