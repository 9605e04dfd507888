// Finds the lines whose words no rule of the program check applies to. Nearly all lines of a
// program are of this kind, and finding them costs a few instructions each.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "insight/nc_codes.h"
#include "model/line_reader.h"

namespace tvx {

// Works along with a LineReader. The memory of the reader is searched for words to check as a
// whole, so a line without any costs two comparisons.
template <bool conversational>
class PlainLines {
 public:
  // `rapidFeed`: the lowest feed of an F word that makes a rapid, mm/min. The reader has to outlive
  // the object.
  PlainLines(const LineReader* reader, int64_t rapidFeed)
      : reader_(*reader), rapidFeed_(rapidFeed) {
    Search();
  }

  // Call it after each Refill of the reader.
  void Search() {
    const char* const end = reader_.End();
    words_.clear();
    for (const char* text = reader_.Position(); text < end; text += kLook) {
      uint32_t found = LettersAt(text);
      if (!conversational && found != 0) found &= ~MotionCodesAt(text);
      for (; found != 0; found &= found - 1) {
        const char* const word = text + std::countr_zero(found);
        if (word < end && !IsPlainWord(word)) words_.push_back(word);
      }
    }
    words_.push_back(end);
    next_ = words_.data();
  }

  // The next word to check, or the end of the memory; the same until Pass.
  const char* NextWord() const { return *next_; }
  // For the reader's last line, which ends before the next word to check: true only if no rule
  // about the words of a line applies to it, as long as it leaves a move with a feed.
  static bool IsPlain(const NcLine& line) {
    if (line.hasComment || line.isCut) [[unlikely]]
      return false;
    // Lines of the other format are counted.
    return !conversational || IsDigit(*line.text) || *line.text == 'L';
  }
  // Goes on after a line that is not plain.
  void Pass() {
    while (*next_ < reader_.LineFeed()) ++next_;
  }

 private:
  static constexpr ptrdiff_t kLook = 16;
  static constexpr std::array<bool, kShortCodes> kCheckedG = CheckedCodes('G');
  static constexpr std::array<bool, kShortCodes> kCheckedM = CheckedCodes('M');

  static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
  static size_t Digit(char c) { return static_cast<size_t>(c - '0'); }

  // The letters A to G and P to W, capital or not, differ in these bits only; L and M in those.
  // Every letter that a rule looks for is one of them. (L: only in the word-address format.)
  static constexpr int kManyLetters = ~(0x20 | 0x17);
  static constexpr int kTwoLetters = ~(0x20 | 0x01);

  // The places of such letters in the next 16 bytes, a bit for each.
#ifdef __SSE2__
  static uint32_t LettersAt(const char* text) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    const auto are = [bytes](char first, int group) {
      const __m128i same = _mm_and_si128(bytes, _mm_set1_epi8(static_cast<char>(group)));
      return _mm_cmpeq_epi8(same, _mm_set1_epi8(static_cast<char>(first & group)));
    };
    __m128i found = are('A', kManyLetters);
    if (!conversational) found = _mm_or_si128(found, are('L', kTwoLetters));
    return static_cast<uint32_t>(_mm_movemask_epi8(found));
  }

  // The places of G00 to G03 that start there: plain words, of which a program with arcs has one in
  // each line.
  static uint32_t MotionCodesAt(const char* text) {
    const auto from = [text](ptrdiff_t offset) {
      return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + offset));
    };
    const auto are = [](__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    const auto without = [](__m128i bytes, char bits) {
      return _mm_andnot_si128(_mm_set1_epi8(bits), bytes);
    };
    const __m128i isCode = _mm_and_si128(_mm_and_si128(are(from(0), 'G'), are(from(1), '0')),
                                         are(without(from(2), 3), '0'));
    // "." to "9", and "/".
    const __m128i last = _mm_sub_epi8(from(3), _mm_set1_epi8('.'));
    const __m128i goesOn = _mm_cmpeq_epi8(_mm_min_epu8(last, _mm_set1_epi8('9' - '.')), last);
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_andnot_si128(goesOn, isCode)));
  }
#else
  static uint32_t MotionCodesAt(const char* /*text*/) {
    return 0;
  }

  static uint32_t LettersAt(const char* text) {
    uint32_t found = 0;
    for (ptrdiff_t i = 0; i < kLook; ++i) {
      const auto is = [c = text[i]](char first, int group) {
        return (c & group) == (first & group);
      };
      const bool isFound = is('A', kManyLetters) || (!conversational && is('L', kTwoLetters));
      found |= uint32_t{isFound} << i;
    }
    return found;
  }
#endif

  // For the word of such a letter.
  bool IsPlainWord(const char* word) const {
    switch (*word | 0x20) {
      case 'g':
        return !conversational && IsPlainCode(word + 1, kCheckedG);
      case 'f':
        return IsPlainFeed(word + 1);
      case 'm':
        return IsPlainCode(word + 1, kCheckedM);
      case 'd':
      case 'e':
        return !conversational;
      case 'p':
      case 'q':
      case 's':
        return true;
      case 'r':
        return !conversational || IsDigit(word[1]) || word[1] == '+' || word[1] == '-';
      default:
        return false;
    }
  }

  // A code of one or two digits; all others are for the rules.
  static bool IsPlainCode(const char* number, const std::array<bool, kShortCodes>& checked) {
    if (!IsDigit(number[0])) return false;
    if (!IsDigit(number[1])) return number[1] != '.' && !checked[Digit(number[0])];
    return !IsDigit(number[2]) && number[2] != '.' &&
           !checked[10 * Digit(number[0]) + Digit(number[1])];
  }
  bool IsPlainFeed(const char* number) const {
    constexpr int64_t kHigh = int64_t{1} << 40;
    int64_t feed = 0;
    const char* end = number;
    for (; IsDigit(*end) && feed < kHigh; ++end)
      feed = feed * 10 + static_cast<int64_t>(Digit(*end));
    return end != number && feed < rapidFeed_;
  }

  const LineReader& reader_;
  const int64_t rapidFeed_;
  std::vector<const char*> words_;     // to check, and the end of the memory that was searched
  const char* const* next_ = nullptr;  // of them
};

}  // namespace tvx
