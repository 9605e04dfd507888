#include "base/base64.h"

#include <algorithm>
#include <cstdint>

namespace tvx {

std::string Base64(std::string_view bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text((bytes.size() + 2) / 3 * 4, '=');
  char* out = text.data();
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const size_t count = std::min<size_t>(3, bytes.size() - i);
    uint32_t bits = 0;
    for (size_t j = 0; j < 3; ++j) {
      bits = bits << 8 | (j < count ? static_cast<uint8_t>(bytes[i + j]) : 0);
    }
    for (size_t j = 0; j <= count; ++j) out[j] = kDigits[bits >> (18 - 6 * j) & 0x3F];
    out += 4;
  }
  return text;
}

}  // namespace tvx
