// The words of one word-address line.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tvx {

// What a line of a word-address program is.
enum class LineForm : uint8_t {
  kWords,     // the words are those of the line
  kIgnored,   // the line does not count
  kMacro,     // it has "#", "[" or a keyword: a statement, whose words are not read yet
  kOKeyword,  // an O word with a keyword: SUB, ENDSUB, IF and others
};

// A letter may be repeated: its last value counts. Of G and M all values are kept.
struct WordLine {
  // Values beyond this are not read.
  static constexpr double kLargest = 1e9;

  void Clear() {
    given = hasPoint = 0;
    gWords.clear();
    mWords.clear();
    fault = {};
  }

  bool Has(char letter) const { return (given & Bit(letter)) != 0; }
  // True if one of the letters is given.
  bool HasAny(uint32_t letters) const { return (given & letters) != 0; }
  bool HasPoint(char letter) const { return (hasPoint & Bit(letter)) != 0; }
  double operator[](char letter) const { return values[Index(letter)]; }
  // The value, or another one if the letter is not given.
  double Or(char letter, double other) const { return Has(letter) ? (*this)[letter] : other; }

  void Add(char letter, double value, bool point) {
    const uint32_t bit = Bit(letter);
    if ((bit & (Bit('G') | Bit('M'))) != 0) {
      (letter == 'G' ? gWords : mWords).push_back(value);
    }
    values[Index(letter)] = value;
    given |= bit;
    hasPoint = point ? hasPoint | bit : hasPoint & ~bit;
  }

  // Notes what is not read, unless something else was noted before.
  void NoteFault(const char* begin, const char* end) {
    if (fault.data() == nullptr) fault = {begin, static_cast<size_t>(end - begin)};
  }

  static constexpr size_t Index(char letter) { return static_cast<size_t>(letter - 'A'); }
  static constexpr uint32_t Bit(char letter) { return uint32_t{1} << Index(letter); }

  uint32_t given = 0;  // a bit for each letter
  uint32_t hasPoint = 0;
  std::array<double, 26> values{};
  std::vector<double> gWords, mWords;  // in the order of the line
  std::string_view fault;              // the first text that is not read; no data if there is none
};

// A set of letters.
constexpr uint32_t Letters(std::string_view letters) {
  uint32_t bits = 0;
  for (const char letter : letters) bits |= WordLine::Bit(letter);
  return bits;
}

}  // namespace tvx
