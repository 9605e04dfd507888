#pragma once

#include <cstdint>
#include <string_view>

#include "platform/scan.h"

namespace tvx {

// The number behind an address letter.
struct NumberToken {
  double value = 0;   // as C's atof gives it: of the longest valid prefix, 0 for none
  bool empty = true;  // not one character of a number followed the letter
};

// At most this many characters belong to one number; what follows is passed over by the parser.
inline constexpr int kNumberLength = 19;

// Takes the number at *next, up to `end`: digits, "." and "-", and "+" where allowed. White space
// is no part of it. Leaves *next on the first character not taken.
//
// Character by character on purpose: lengths repeat from line to line, so the processor guesses its
// way through and runs ahead, which beats taking several digits at once.
template <bool plusAllowed>
[[gnu::always_inline]] inline NumberToken TakeNumber(const char** next, const char* end) {
  // Powers of ten that a double holds exactly; with a mantissa below 2^53 one division rounds
  // right.
  static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                            1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                            1e14, 1e15, 1e16, 1e17, 1e18, 1e19};
  constexpr uint64_t kExactMantissa = uint64_t{1} << 53;

  const char* const start = *next;
  if (end - start > kNumberLength) end = start + kNumberLength;
  const char* p = start;
  const bool negative = p != end && *p == '-';
  if (negative || (plusAllowed && p != end && *p == '+')) ++p;

  uint64_t mantissa = 0;
  const auto digit = [&] { return static_cast<unsigned>(static_cast<unsigned char>(*p) - '0'); };
  const auto takeDigits = [&] {
    const char* const first = p;
    for (; p != end && digit() < 10; ++p) mantissa = mantissa * 10 + digit();
    return static_cast<int>(p - first);
  };
  const int wholes = takeDigits();
  int decimals = 0;
  if (p != end && *p == '.') {
    ++p;
    decimals = takeDigits();
  }
  NumberToken number;
  if (mantissa < kExactMantissa) [[likely]] {
    number.value = static_cast<double>(static_cast<int64_t>(mantissa)) / kPowersOfTen[decimals];
    if (negative && wholes + decimals > 0) number.value = -number.value;
  } else {
    number.value = TextToDouble(std::string_view(start, static_cast<size_t>(p - start)));
  }
  // Signs and points behind the valid prefix belong to the number without a value.
  const auto belongs = [&] {
    return digit() < 10 || *p == '.' || *p == '-' || (plusAllowed && *p == '+');
  };
  while (p != end && belongs()) ++p;
  number.empty = p == start;
  *next = p;
  return number;
}

}  // namespace tvx
