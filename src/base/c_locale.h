// The "C" locale for reading and printing numbers.
#pragma once

#include <locale.h>

namespace tvx {

// The "C" locale for the conversions of this folder, so that no setting of the process, such as the
// decimal comma that a window library brings in, reaches a number.
inline locale_t CLocale() {
  static const locale_t kLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return kLocale;
}

}  // namespace tvx
