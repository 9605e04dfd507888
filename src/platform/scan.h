#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tvx {

// Text to number as C's atof does it in the "C" locale: white space, then the longest valid prefix;
// 0 if there is none. Overflow gives an infinity. Never looks at the locale of the process.
double TextToDouble(std::string_view text);

// The same rounded to 32 bits.
float TextToFloat(std::string_view text);

// Text to whole number as C's atoi does it; values beyond 32 bits are held at the range's ends.
int32_t TextToInt(std::string_view text);

// True if the two texts are equal apart from the case of the ASCII letters.
bool EqualNoCase(std::string_view a, std::string_view b);

// Reads a text word by word as fscanf does with "%s", "%f" and "%d". White space (blank, tab, line
// feed, vertical tab, form feed, carriage return) separates the words; words have any length.
class WordScanner {
 public:
  // The text is not copied and has to outlive the scanner.
  explicit WordScanner(std::string_view text) : text_(text) {}

  // Each of these skips white space and then takes the longest text that fits the conversion.
  // Returns false and leaves *value alone at the end of the text or if nothing fits; a text that
  // does not fit stays unread, so the next call meets it again.
  bool ReadWord(std::string* value);
  bool ReadFloat(float* value);
  bool ReadInt(int32_t* value);

 private:
  void SkipWhite();

  std::string_view text_;
  size_t position_ = 0;
};

}  // namespace tvx
