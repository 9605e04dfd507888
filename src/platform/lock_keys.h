// Which of the keys that lock are on.
#pragma once

#include <array>

namespace tvx {

// Caps Lock, Num Lock and Scroll Lock, as their lights show; all off without a display or libxcb.
std::array<bool, 3> LockKeys();

}  // namespace tvx
