// The characters of word-address lines: what counts, and what does not.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tvx {

// What a character is outside comments.
enum class Glyph : uint8_t {
  kLetter,
  kLineFeed,
  kBlank,    // also tabs and control characters: does not count
  kComment,  // begins one
  kDigit,
  kOther,
};

inline constexpr std::array<Glyph, 256> kGlyphs = [] {
  std::array<Glyph, 256> glyphs{};
  glyphs.fill(Glyph::kOther);
  for (size_t c = 0; c <= ' '; ++c) glyphs[c] = Glyph::kBlank;
  glyphs[0x7F] = Glyph::kBlank;
  glyphs['\n'] = Glyph::kLineFeed;
  glyphs['('] = glyphs[';'] = Glyph::kComment;
  for (size_t c = '0'; c <= '9'; ++c) glyphs[c] = Glyph::kDigit;
  for (size_t c = 'A'; c <= 'Z'; ++c) glyphs[c] = glyphs[c + ('a' - 'A')] = Glyph::kLetter;
  return glyphs;
}();

inline Glyph GlyphOf(char c) {
  return kGlyphs[static_cast<unsigned char>(c)];
}

// A letter as upper case; other characters that begin no letter stay different from letters.
inline char UpperLetter(char c) {
  return GlyphOf(c) == Glyph::kLetter ? static_cast<char>(c & 0xDF) : c;
}

// The next character from `text` on that is neither blank nor in a comment. A line feed ends the
// text.
inline const char* SkipBlanks(const char* text) {
  for (;;) {
    const Glyph glyph = GlyphOf(*text);
    if (glyph == Glyph::kBlank) {
      ++text;
    } else if (glyph == Glyph::kComment) [[unlikely]] {
      const char close = *text == '(' ? ')' : '\n';
      while (*text != close && *text != '\n') ++text;
      if (*text != '\n') ++text;
    } else {
      return text;
    }
  }
}

// Takes the characters of a name in upper case, with blanks and comments anywhere between them.
// False, with *text alone, if the text is another one.
inline bool TakeName(const char** text, std::string_view name) {
  const char* next = *text;
  for (const char c : name) {
    next = SkipBlanks(next);
    if (UpperLetter(*next) != c) return false;
    ++next;
  }
  *text = next;
  return true;
}

// A number without sign.
struct NcNumber {
  double value = 0;
  bool hasPoint = false;
  bool isEmpty = true;  // there is no digit
};

// Takes digits with at most one decimal point, with blanks and comments anywhere between them, and
// the blanks after them. A point without digits is taken as well.
NcNumber TakeLongNumber(const char** text);

inline constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The same. Up to 15 digits, a division of two whole numbers gives the nearest double.
inline NcNumber TakeNumber(const char** text) {
  const char* next = *text;
  uint64_t digits = 0;
  const auto takeDigits = [&] {
    for (unsigned digit; (digit = static_cast<unsigned char>(*next) - unsigned{'0'}) <= 9; ++next) {
      digits = digits * 10 + digit;
    }
  };
  takeDigits();
  const bool hasPoint = *next == '.';
  std::ptrdiff_t places = 0;
  if (hasPoint) {
    const char* const afterPoint = ++next;
    takeDigits();
    places = next - afterPoint;
  }
  const std::ptrdiff_t length = next - *text - (hasPoint ? 1 : 0);
  const char* const after = SkipBlanks(next);
  const bool goesOn = after != next && (GlyphOf(*after) == Glyph::kDigit || *after == '.');
  if (length > 15 || goesOn) [[unlikely]]
    return TakeLongNumber(text);
  *text = after;
  return {static_cast<double>(digits) / kPowersOfTen[places], hasPoint, length == 0};
}

}  // namespace tvx
