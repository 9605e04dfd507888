// Formatting in the "C" locale, independent of the locale of the process.
#include "base/format.h"

#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#include "base/c_locale.h"

namespace tvx {

namespace {

// vsnprintf in the "C" locale, whatever the process has set.
int Print(char* buffer, size_t size, const char* format, va_list arguments) {
  const locale_t ofThread = uselocale(CLocale());
  const int length = std::vsnprintf(buffer, size, format, arguments);
  uselocale(ofThread);
  return length;
}

template <typename Number>
std::string ShortestNumber(Number value) {
  if (std::isnan(value)) return "nan";
  char text[1200];  // the longest are the smallest values: some 60 and 1080 characters
  const auto [end, error] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
  return error == std::errc() ? std::string(text, end) : std::string();
}

}  // namespace

std::string Format(const char* format, ...) {
  char shortText[256];
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  const int length = Print(shortText, sizeof shortText, format, arguments);
  va_end(arguments);

  std::string text;
  if (length >= 0 && static_cast<size_t>(length) < sizeof shortText) {
    text.assign(shortText, static_cast<size_t>(length));
  } else if (length >= 0) {
    text.resize(static_cast<size_t>(length));
    Print(text.data(), text.size() + 1, format, again);
  }
  va_end(again);
  return text;
}

std::string ShortestFloat(float value) {
  return ShortestNumber(value);
}

std::string ShortestDouble(double value) {
  return ShortestNumber(value);
}

std::string ClockText(double minutes) {
  constexpr double kMost = 1e9;
  if (!(std::abs(minutes) < kMost)) return "-";
  const long long seconds = std::llround(std::abs(minutes) * 60.0);
  return Format("%s%lld:%02lld:%02lld", minutes < 0 && seconds > 0 ? "-" : "", seconds / 3600,
                seconds / 60 % 60, seconds % 60);
}

}  // namespace tvx
