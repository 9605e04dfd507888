// Reads numbers and words from text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tvx {

// Text to number: white space, then the longest prefix that is a decimal number; 0 if there is
// none. C's atof in the "C" locale, except that "nan", "inf" and hexadecimal numbers are texts like
// any other. Overflow gives an infinity. Never looks at the locale of the process.
double TextToDouble(std::string_view text);

// The same rounded to 32 bits.
float TextToFloat(std::string_view text);

// Text to whole number as C's atoi does it; values beyond 32 bits are held at the range's ends.
int32_t TextToInt(std::string_view text);

// An empty word as it is written to a file of words, where it would make the next key its value.
inline constexpr std::string_view kEmptyWord = "-";

// True if two texts are equal, or one ends with the other, apart from the case of ASCII letters.
bool EqualNoCase(std::string_view a, std::string_view b);
bool EndsWithNoCase(std::string_view text, std::string_view ending);

// Reads a text word by word as fscanf does with "%s", "%f" and "%d". White space (blank, tab, line
// feed, vertical tab, form feed, carriage return) separates the words; words have any length.
// Numbers are read as by the functions above; a whole number beyond 32 bits is held at the range's
// ends.
class WordScanner {
 public:
  // The text is not copied and has to outlive the scanner.
  explicit WordScanner(std::string_view text) : text_(text) {}

  // Each of these skips white space and then takes characters as long as they fit the conversion:
  // the first that does not fit stays unread, also in the middle of a word ("12.5" as a whole
  // number is 12 and leaves ".5"). Returns false and leaves *value alone at the end of the text, or
  // if what was taken is no number. Mostly that is nothing, so the next call meets the same word
  // again, but the sign of "-x" and the point of ".x" are gone, and so is a float that overflows.
  // An exponent without digits ("1e+x") is taken and counts as 0.
  bool ReadWord(std::string* value);
  bool ReadFloat(float* value);
  bool ReadInt(int32_t* value);

  // What has been read of the text.
  std::string_view Taken() const { return text_.substr(0, position_); }

 private:
  void SkipWhite();

  std::string_view text_;
  size_t position_ = 0;
};

}  // namespace tvx
