#include "model/number_token.h"

#include <string_view>

#include "base/scan.h"

namespace tvx {

namespace {

// At most this many characters belong to one number.
constexpr int kNumberLength = 19;

}  // namespace

const char* TakeNumberSlowPath(const char* next, bool plusAllowed, NumberToken* number) {
  const auto belongs = [&](char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || (plusAllowed && c == '+');
  };
  const char* const start = next;
  while (next - start < kNumberLength && belongs(*next)) ++next;
  number->empty = next == start;
  number->value = TextToDouble(std::string_view(start, static_cast<size_t>(next - start)));
  return next;
}

}  // namespace tvx
