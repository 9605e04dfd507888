// Number and word scanning by the rules of C's scanf, in the "C" locale.
#include "base/scan.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/c_locale.h"

namespace tvx {

namespace {

// The classes of characters of the "C" locale, whatever the process has set.
bool IsWhite(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsSign(char c) {
  return c == '+' || c == '-';
}
char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view WithoutLeadingWhite(std::string_view text) {
  size_t start = 0;
  while (start < text.size() && IsWhite(text[start])) ++start;
  return text.substr(start);
}

// A text that is walked from its start. The walks below take what belongs to a number and stay in
// front of what does not.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) {}

  std::string_view Taken() const { return text_.substr(0, position_); }

  bool TakeIf(bool (*fits)(char)) {
    if (position_ == text_.size() || !fits(text_[position_])) return false;
    ++position_;
    return true;
  }
  bool TakeAll(bool (*fits)(char)) {
    const size_t start = position_;
    while (TakeIf(fits)) {
    }
    return position_ > start;
  }
  bool TakeLetter(char lowerCase) {
    if (position_ == text_.size() || ToLower(text_[position_]) != lowerCase) return false;
    ++position_;
    return true;
  }

 private:
  std::string_view text_;
  size_t position_ = 0;
};

// The C library's conversions, for what std::from_chars does not cover.
void StringToReal(const std::string& text, double* value) {
  *value = strtod_l(text.c_str(), nullptr, CLocale());
}
void StringToReal(const std::string& text, float* value) {
  *value = strtof_l(text.c_str(), nullptr, CLocale());
}

bool TakeWholeNumber(Cursor* cursor) {
  cursor->TakeIf(IsSign);
  return cursor->TakeAll(IsDigit);
}

// A decimal number, and after it an exponent, which may end before its digits.
bool TakeReal(Cursor* cursor) {
  bool taken = TakeWholeNumber(cursor);
  if (cursor->TakeLetter('.')) taken |= cursor->TakeAll(IsDigit);
  if (!taken) return false;
  if (cursor->TakeLetter('e')) TakeWholeNumber(cursor);
  return true;
}

// The number at the start of a text, 0 if there is none. std::from_chars is fast and knows no
// locale, but has no plus sign, takes "nan" and "inf" for numbers, and does not tell an overflow
// from an underflow: the C library does that.
template <typename Real>
Real RealAtStart(std::string_view text) {
  std::string_view number = text;
  if (!number.empty() && number[0] == '+') number.remove_prefix(1);
  const size_t first = !number.empty() && number[0] == '-' && number.size() == text.size() ? 1 : 0;
  if (first == number.size() || !(IsDigit(number[first]) || number[first] == '.')) return 0;
  Real value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  Cursor cursor(text);
  TakeReal(&cursor);
  StringToReal(std::string(cursor.Taken()), &value);
  return value;
}

// The value of a text that holds an optional sign and digits.
int32_t WholeNumber(std::string_view text) {
  constexpr int64_t kHighest = std::numeric_limits<int32_t>::max();
  const bool negative = !text.empty() && text[0] == '-';
  int64_t magnitude = 0;
  for (const char c : text) {
    if (!IsDigit(c)) continue;
    magnitude = magnitude * 10 + (c - '0');
    if (magnitude > kHighest + 1) magnitude = kHighest + 1;
  }
  if (negative) return static_cast<int32_t>(-magnitude);
  return static_cast<int32_t>(magnitude > kHighest ? kHighest : magnitude);
}

}  // namespace

double TextToDouble(std::string_view text) {
  return RealAtStart<double>(WithoutLeadingWhite(text));
}

float TextToFloat(std::string_view text) {
  return static_cast<float>(TextToDouble(text));
}

int32_t TextToInt(std::string_view text) {
  Cursor cursor(WithoutLeadingWhite(text));
  return TakeWholeNumber(&cursor) ? WholeNumber(cursor.Taken()) : 0;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (ToLower(a[i]) != ToLower(b[i])) return false;
  }
  return true;
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() &&
         EqualNoCase(text.substr(text.size() - ending.size()), ending);
}

void WordScanner::SkipWhite() {
  position_ = text_.size() - WithoutLeadingWhite(text_.substr(position_)).size();
}

bool WordScanner::ReadWord(std::string* value) {
  SkipWhite();
  Cursor cursor(text_.substr(position_));
  if (!cursor.TakeAll([](char c) { return !IsWhite(c); })) return false;
  *value = cursor.Taken();
  position_ += cursor.Taken().size();
  return true;
}

bool WordScanner::ReadFloat(float* value) {
  SkipWhite();
  Cursor cursor(text_.substr(position_));
  const bool fits = TakeReal(&cursor);
  position_ += cursor.Taken().size();
  const float number = RealAtStart<float>(cursor.Taken());
  if (!fits || !std::isfinite(number)) return false;
  *value = number;
  return true;
}

bool WordScanner::ReadInt(int32_t* value) {
  SkipWhite();
  Cursor cursor(text_.substr(position_));
  const bool fits = TakeWholeNumber(&cursor);
  position_ += cursor.Taken().size();
  if (fits) *value = WholeNumber(cursor.Taken());
  return fits;
}

}  // namespace tvx
