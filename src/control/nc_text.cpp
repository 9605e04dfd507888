#include "control/nc_text.h"

#include <charconv>
#include <limits>
#include <string>

namespace tvx {

NcNumber TakeLongNumber(const char** text) {
  NcNumber number;
  std::string digits;
  const char* next = SkipBlanks(*text);
  for (;; next = SkipBlanks(next + 1)) {
    if (GlyphOf(*next) == Glyph::kDigit) {
      number.isEmpty = false;
    } else if (*next == '.' && !number.hasPoint) {
      number.hasPoint = true;
    } else {
      break;
    }
    digits += *next;
  }
  *text = next;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number.value,
                                      std::chars_format::fixed);
  // Too small a number becomes 0, as the value was at first.
  const bool isHuge = result.ec == std::errc::result_out_of_range &&
                      digits.find_first_not_of('0') < digits.find('.');
  if (isHuge) number.value = std::numeric_limits<double>::infinity();
  return number;
}

}  // namespace tvx
