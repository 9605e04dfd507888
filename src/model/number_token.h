// The numbers of NC words, read in one pass.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tvx {

// The number after an address letter.
struct NumberToken {
  double value = 0;   // as C's atof gives it: of the longest valid prefix, 0 for none
  bool empty = true;  // not one character of a number followed the letter
};

// A number of any shape, as TakeNumber takes it.
const char* TakeNumberSlowPath(const char* next, bool plusAllowed, NumberToken* number);

// Takes the number at *next: digits, "." and "-", and "+" where allowed, at most 19 characters.
// White space is no part of it. Leaves *next after the part that has a value, or after signs and
// points without one; whatever else belongs to the number is ignored by the parser anyway. A
// character that belongs to no number has to follow sooner or later; a line feed does in every
// line.
//
// Character by character on purpose: lengths repeat from line to line, so the processor guesses its
// way through and runs ahead, which beats taking several digits at once.
template <bool plusAllowed>
[[gnu::always_inline]] inline NumberToken TakeNumber(const char** next) {
  // Powers of ten that a double holds exactly; with a mantissa that it holds exactly as well, one
  // division rounds right.
  static constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  constexpr ptrdiff_t kExactDigits = 15;

  const char* p = *next;
  // The character's value as a digit; 10 and above for what is none.
  const auto digitHere = [&] {
    return static_cast<unsigned>(static_cast<unsigned char>(*p)) - '0';
  };
  constexpr unsigned kPoint = static_cast<unsigned>('.' - '0');
  constexpr unsigned kMinus = static_cast<unsigned>('-' - '0');
  constexpr unsigned kPlus = static_cast<unsigned>('+' - '0');

  const auto slowPath = [&] {
    NumberToken number;
    *next = TakeNumberSlowPath(*next, plusAllowed, &number);
    return number;
  };

  unsigned digit = digitHere();
  const bool negative = digit == kMinus;
  if (negative || (plusAllowed && digit == kPlus)) {
    ++p;
    digit = digitHere();
  }
  uint64_t mantissa = 0;
  const auto takeDigits = [&] {
    while (digit < 10) {
      mantissa = mantissa * 10 + digit;
      ++p;
      digit = digitHere();
    }
  };
  if (digit >= 10 && digit != kPoint) [[unlikely]]
    return slowPath();
  takeDigits();
  const char* decimals = p;
  if (digit == kPoint) {
    decimals = ++p;
    digit = digitHere();
    takeDigits();
  }
  // Odd are no character at all and too many of them; a sign without digits, which gives 0, and one
  // before zeros, which gives -0.
  if (p - *next > kExactDigits || (negative && mantissa == 0)) [[unlikely]]
    return slowPath();
  *next = p;
  const double value =
      static_cast<double>(static_cast<int64_t>(mantissa)) / kPowersOfTen[p - decimals];
  return {negative ? -value : value, false};
}

}  // namespace tvx
